#include "viewer/volumes.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace {

using bwp::VolumeOf;
using bwp::Volumes;
using bwp::VolumesIn;
using testing::ElementsAre;

TEST(Volumes, OnlyThoseThatHoldRealFilesAreListedByMountPoint) {
  EXPECT_THAT(VolumesIn("22 27 0:21 / /proc rw,relatime - proc proc rw\n"
                        "24 27 0:6 / /dev rw - devtmpfs devtmpfs rw\n"
                        "25 24 0:23 / /dev/shm rw - tmpfs tmpfs rw\n"
                        "26 27 0:25 / /run rw - tmpfs tmpfs rw\n"
                        "27 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda rw\n"
                        "28 27 8:1 / /run/media/anna/STICK rw - vfat /dev/sdb1 rw\n"
                        "29 27 8:2 / /home rw shared:2 master:1 - btrfs /dev/sda2 rw\n"
                        "30 27 0:40 / /tmp rw - tmpfs tmpfs rw\n"
                        "31 27 7:1 / /snap/core/1 ro - squashfs /dev/loop1 ro\n"
                        "32 27 0:41 / /sys/fs/cgroup rw - cgroup2 cgroup2 rw\n"),
              ElementsAre("/", "/home", "/run/media/anna/STICK", "/tmp"));
}

TEST(Volumes, EscapedCharactersOfAMountPointAreReadBack) {
  EXPECT_THAT(VolumesIn("28 27 8:1 / /media/my\\040stick\\134x rw - vfat /dev/sdb1 rw\n"),
              ElementsAre("/", "/media/my stick\\x"));
}

TEST(Volumes, WhatIsMountedLaterHidesWhatWasThere) {
  EXPECT_THAT(VolumesIn("28 27 0:1 / /net rw - autofs auto rw\n29 28 0:2 / /net rw - nfs4 host:/ rw\n"
                        "30 27 8:1 / /gone rw - ext4 /dev/sdb1 rw\n31 30 0:3 / /gone rw - proc proc rw\n"),
              ElementsAre("/", "/net"));
}

TEST(Volumes, AFileMountedOverAFileIsNoVolume) {
  const bwp::test::TempFolder folder;
  const std::string file = folder.Write("hosts", "x");
  EXPECT_THAT(VolumesIn("28 27 8:1 /etc/hosts " + file + " rw - ext4 /dev/sda1 rw\n"), ElementsAre("/"));
  EXPECT_THAT(VolumesIn("28 27 8:1 /@home /usr rw - btrfs /dev/sda1 rw\n"), ElementsAre("/", "/usr"))
      << "a part of a volume mounted on a folder is one";
}

TEST(Volumes, ABrokenTableStillHasTheRoot) {
  EXPECT_THAT(VolumesIn(""), ElementsAre("/"));
  EXPECT_THAT(VolumesIn("nonsense\n1 2 3 / /x\n"), ElementsAre("/"));
}

TEST(Volumes, ThisMachineHasARootFirst) {
  EXPECT_EQ(Volumes().at(0), "/");
}

TEST(Volumes, AFolderLiesOnTheLongestMountPointAboveIt) {
  const std::vector<std::string> volumes = {"/", "/nowhere", "/nowhere/usb", "/nowhere2"};
  EXPECT_EQ(VolumeOf(volumes, "/nowhere/usb/a/"), "/nowhere/usb");
  EXPECT_EQ(VolumeOf(volumes, "/nowhere/usb"), "/nowhere/usb");
  EXPECT_EQ(VolumeOf(volumes, "/nowhere/usbstick/"), "/nowhere");
  EXPECT_EQ(VolumeOf(volumes, "/nowhere23/"), "/");
}

TEST(Volumes, AFolderReachedThroughALinkLiesWhereTheLinkLeads) {
  const bwp::test::TempFolder folder;
  std::filesystem::create_directory(folder / "stick");
  std::filesystem::create_directory_symlink(folder / "stick", folder / "link");
  const std::string stick = std::filesystem::canonical(folder / "stick").string();
  EXPECT_EQ(VolumeOf({"/", stick}, folder / "link/"), stick);
}

}  // namespace
