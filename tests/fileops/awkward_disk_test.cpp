#include <algorithm>
#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fileops/buffer_operations.h"
#include "fileops/temporary_file.h"
#include "support/child.h"
#include "support/workplace.h"
#include "viewer/open_view_file.h"

// Disks that refuse a call that most of them know, and mounts that lead to one disk by two ways.
namespace {

using bwp::CutChunk;
using bwp::test::ErrorOf;
using bwp::test::InOwnMounts;
using bwp::test::ReadFile;
using bwp::test::TempFolder;
using bwp::test::Transcript;
using bwp::test::Workplace;
using Names = std::vector<std::string>;

const std::string kBytes = "0123456789";
const std::string kRest = "56789";

// No name that stands can be replaced, nor can a rename be told to replace none.
class PlainDisk : public bwp::Disk {
 public:
  int Rename(const std::string&, const std::string&) const override { return Refuse(EPERM); }
  int RenameNew(const std::string& from, const std::string& to) const override {
    return knowsRenameNew ? Disk::RenameNew(from, to) : Refuse(EINVAL);
  }

  bool knowsRenameNew = false;

 private:
  static int Refuse(int error) {
    errno = error;
    return -1;
  }
};

// Two mounts that look like one until something is renamed; while the content is brought across, somebody
// writes to the file.
class SecretlyTwoDisks : public bwp::Disk {
 public:
  int Rename(const std::string& from, const std::string& to) const override {
    if (from.find(".bytewarp-") != std::string::npos) return Disk::Rename(from, to);
    if (meanwhile) meanwhile();
    errno = EXDEV;
    return -1;
  }

  std::function<void()> meanwhile;
};

struct Place : Workplace {
  explicit Place(const bwp::Disk& disk = RealDisk())
      : Workplace(kBytes, disk, "/var/tmp", "/var/tmp"), data(state.OpenFile) {
    Mark(0, 4);
  }
  void Open(const std::string& path) {
    OpenViewFile(state, path);
    Mark(0, 4);
  }
  void Cut() { CutChunk(state, services); }

  std::string data;
};

long CountOf(const Transcript& story, const std::string& line) {
  return std::count(story.begin(), story.end(), line);
}

TEST(AwkwardDisk, ThatCannotRenameToANewNameOnlyGetsTheContentUnderItAllTheSame) {
  const PlainDisk disk;
  Place place(disk);
  place.Cut();
  EXPECT_EQ(place.state.OpenFile, place.data + ".new");
  EXPECT_EQ(place.Bytes(), kRest);
  EXPECT_EQ(ReadFile(place.data), kBytes);
  EXPECT_EQ(place.state.BufferData, "01234");
  EXPECT_EQ(place.folder.Names(), (Names{"data", "data.new"}));
  EXPECT_EQ(place.temporary.Names(), Names{});
}

TEST(AwkwardDisk, NeverOverwritesTheNewNameAndKeepsTheContentForTheUser) {
  for (const bool knowsRenameNew : {false, true}) {
    PlainDisk disk;
    disk.knowsRenameNew = knowsRenameNew;
    Place place(disk);
    place.folder.Write("data.new", "taken");
    ASSERT_EQ(chmod(place.data.c_str(), 0444), 0);
    if (geteuid() == 0) {
      ASSERT_EQ(chown(place.data.c_str(), 1234, 1234), 0);
    }
    EXPECT_EQ(ErrorOf([&] { place.Cut(); }).number, 58);
    EXPECT_EQ(ReadFile(place.data + ".new"), "taken");
    EXPECT_EQ(ReadFile(bwp::TemporaryPath()), kRest);
    struct stat status = {};
    ASSERT_EQ(stat(bwp::TemporaryPath().c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, geteuid());
    EXPECT_EQ(status.st_gid, getegid());
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
  }
}

TEST(AwkwardDisk, TellsOfTheNewNameBeforeTheFileIsOpenedUnderIt) {
  PlainDisk disk;
  Place place(disk);
  bool told = false;
  place.notices.onTell = [&] {
    told = true;
    EXPECT_EQ(ReadFile(place.data + ".new"), kRest);
    EXPECT_EQ(place.state.FLen, 10);
    char first = 0;
    EXPECT_EQ(place.state.file.ReadAt(0, &first, 1), 1U) << "what is shown can be painted meanwhile";
  };
  place.Cut();
  EXPECT_TRUE(told);
  EXPECT_EQ(place.state.FLen, 5);
}

TEST(AwkwardDisk, ThatTurnsOutToBeTwoGetsTheContentStaged) {
  const SecretlyTwoDisks disk;
  Place place(disk);
  place.Cut();
  EXPECT_EQ(ReadFile(place.data), kRest);
  EXPECT_EQ(place.folder.Names(), Names{"data"});
  EXPECT_EQ(place.temporary.Names(), Names{});
}

TEST(AwkwardDisk, ThatTurnsOutToBeTwoLosesNothingThatSomebodyWroteMeanwhile) {
  SecretlyTwoDisks disk;
  Place place(disk);
  disk.meanwhile = [&] { place.folder.Write("data", "somebody else's"); };
  place.Cut();
  EXPECT_EQ(ReadFile(place.data), "somebody else's");
  EXPECT_EQ(place.Story().back(), "refresh");
  EXPECT_EQ(place.state.FLen, 15);
  EXPECT_EQ(place.state.BufferData, "");
  EXPECT_EQ(place.folder.Names(), Names{"data"});
  EXPECT_EQ(place.temporary.Names(), Names{});
}

TEST(AwkwardDisk, MountedTwiceStagesWithProgressAndCanBeCancelled) {
  Place place;
  const TempFolder mounted("/var/tmp");
  InOwnMounts([&] {
    bwp::test::MountOnto(place.folder.Path(), mounted.Path());
    place.Open(mounted / "data");
    // The tail has events before and after its block, so has the staging.
    place.progress.CancelAtEvents(7);
    place.Cut();
    const Transcript story = place.Story();
    EXPECT_EQ(CountOf(story, "bar 100"), 3);
    EXPECT_EQ(CountOf(story, "tell Cut Aborted"), 1);
    EXPECT_EQ(ReadFile(place.data), kBytes);
    EXPECT_EQ(place.folder.Names(), Names{"data"});
    place.Cut();
    EXPECT_EQ(ReadFile(place.data), kRest);
  });
}

TEST(AwkwardDisk, MountedReadOnlyIsError75AndTheFileIsWhole) {
  Place place;
  const TempFolder mounted("/var/tmp");
  InOwnMounts([&] {
    bwp::test::MountOnto(place.folder.Path(), mounted.Path());
    ASSERT_EQ(mount(nullptr, mounted.Path().c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr), 0);
    place.Open(mounted / "data");
    const bwp::RunTimeError error = ErrorOf([&] { place.Cut(); });
    EXPECT_EQ(error.number, 75);
    EXPECT_TRUE(error.path.starts_with(mounted.Path())) << error.path;
    EXPECT_EQ(ReadFile(place.data), kBytes);
    EXPECT_EQ(place.state.BufferData, "");
    EXPECT_EQ(place.temporary.Names(), Names{});
  });
}

}  // namespace
