#include "app/configuration.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "support/errors.h"
#include "support/temp_folder.h"

namespace {

using bwp::Configuration;
using bwp::test::ErrorNumberOf;
using bwp::test::ReadFile;
using bwp::test::TempFolder;

int ErrorOfText(const std::string& text) {
  return ErrorNumberOf([&] { bwp::ReadConfiguration(text); });
}

TEST(Configuration, OfTheDefaultsIsExactlyThisLine) {
  EXPECT_EQ(bwp::ConfigurationText({}), "#TRUE#,4,\"/\"\n");
}

TEST(Configuration, WithoutAFileIsTheDefaults) {
  const TempFolder folder;
  const Configuration read = bwp::LoadConfiguration(folder / "Bytewarp.cfg");
  EXPECT_TRUE(read.hexMode);
  EXPECT_EQ(read.acceleration, 4);
  EXPECT_EQ(read.lastFolder, "/");
}

TEST(Configuration, ReadsItsThreeFields) {
  const Configuration read = bwp::ReadConfiguration("#FALSE#,2,\"/home/a b, c/\"\n");
  EXPECT_FALSE(read.hexMode);
  EXPECT_EQ(read.acceleration, 2);
  EXPECT_EQ(read.lastFolder, "/home/a b, c/");
}

TEST(Configuration, ReadsALineThatEndsAsOtherSystemsEndIt) {
  EXPECT_EQ(bwp::ReadConfiguration("#TRUE#,0,\"/x/\"\r\n").lastFolder, "/x/");
  EXPECT_EQ(bwp::ReadConfiguration("#TRUE#,0,\"/x/\"").lastFolder, "/x/");
}

TEST(Configuration, GivesAFolderItsSeparator) {
  EXPECT_EQ(bwp::ReadConfiguration("#TRUE#,0,\"/x\"\n").lastFolder, "/x/");
  EXPECT_EQ(bwp::ReadConfiguration("#TRUE#,0,\"\"\n").lastFolder, "/");
}

TEST(Configuration, ThatEndsTooEarlyIsInputPastTheEnd) {
  for (const char* text :
       {"", "\n", "#TRUE#", "#TRUE#,4", "#TRUE#,4,", "#TRUE#,4,\n", "#TRUE#,4,\"", "#TRUE#,4,\"/"}) {
    EXPECT_EQ(ErrorOfText(text), 62) << text;
  }
}

TEST(Configuration, WithAWrongFieldIsATypeMismatch) {
  for (const char* text :
       {"TRUE,4,\"/\"\n", "#true#,4,\"/\"\n", ",4,\"/\"\n", "#TRUE#,x,\"/\"\n", "#TRUE#,,\"/\"\n",
        "#TRUE#,4.5,\"/\"\n", "#TRUE#,4,/home\n", "#TRUE#,4,\"/\"x\n"}) {
    EXPECT_EQ(ErrorOfText(text), 13) << text;
  }
}

TEST(Configuration, WithANumberBeyond16BitsOverflows) {
  EXPECT_EQ(ErrorOfText("#TRUE#,32768,\"/\"\n"), 6);
  EXPECT_EQ(ErrorOfText("#TRUE#,-32769,\"/\"\n"), 6);
  EXPECT_EQ(bwp::ReadConfiguration("#TRUE#,32767,\"/\"\n").acceleration, 32767);
}

TEST(Configuration, ThatCannotBeReadIsNamedAndNotTouched) {
  const TempFolder folder;
  const std::string path = folder.Write("Bytewarp.cfg", "rubbish");
  const bwp::RunTimeError error = bwp::test::ErrorOf([&] { bwp::LoadConfiguration(path); });
  EXPECT_EQ(error.number, 62);
  EXPECT_EQ(error.path, path);
  EXPECT_EQ(ReadFile(path), "rubbish");
}

TEST(Configuration, SavingReplacesTheFileAndLeavesNothingElse) {
  const TempFolder folder;
  const std::string path =
      folder.Write("Bytewarp.cfg", "#TRUE#,4,\"/a much longer folder than the next/\"\n");
  bwp::SaveConfiguration(bwp::Disk(), path, {false, 1, "/b/"});
  EXPECT_EQ(ReadFile(path), "#FALSE#,1,\"/b/\"\n");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"Bytewarp.cfg"});
}

TEST(Configuration, SavingThroughALinkKeepsTheLink) {
  const TempFolder folder;
  folder.Write("real.cfg", "old");
  ASSERT_EQ(symlink("real.cfg", (folder / "Bytewarp.cfg").c_str()), 0);
  bwp::SaveConfiguration(bwp::Disk(), folder / "Bytewarp.cfg", {});
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "Bytewarp.cfg"));
  EXPECT_EQ(ReadFile(folder / "real.cfg"), "#TRUE#,4,\"/\"\n");
}

TEST(Configuration, SavingKeepsThePermissions) {
  const TempFolder folder;
  const std::string path = folder.Write("Bytewarp.cfg", "old");
  ASSERT_EQ(chmod(path.c_str(), 0604), 0);
  bwp::SaveConfiguration(bwp::Disk(), path, {});
  struct stat status = {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0604U);
}

std::string StagedName() {
  return ".Bytewarp.cfg." + std::to_string(getpid());
}

TEST(Configuration, SavingWritesThroughNoLinkThatStandsInItsWay) {
  const TempFolder folder;
  const std::string victim = folder.Write("victim", "precious");
  ASSERT_EQ(symlink(victim.c_str(), (folder / StagedName()).c_str()), 0);
  bwp::SaveConfiguration(bwp::Disk(), folder / "Bytewarp.cfg", {});
  EXPECT_EQ(ReadFile(victim), "precious");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"Bytewarp.cfg", "victim"}));
  EXPECT_FALSE(std::filesystem::is_symlink(folder / "Bytewarp.cfg"));
}

TEST(Configuration, SavingReplacesWhatAKilledRunLeft) {
  const TempFolder folder;
  folder.Write(StagedName(), "half of a longer line than the new one would ever be, far longer");
  bwp::SaveConfiguration(bwp::Disk(), folder / "Bytewarp.cfg", {});
  EXPECT_EQ(ReadFile(folder / "Bytewarp.cfg"), "#TRUE#,4,\"/\"\n");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"Bytewarp.cfg"});
}

// A folder that accepts no new files.
class ClosedFolder : public bwp::Disk {
 public:
  int Open(const std::string& path, int flags, mode_t mode) const override {
    if ((flags & O_CREAT) == 0) return Disk::Open(path, flags, mode);
    errno = EACCES;
    return -1;
  }
};

TEST(Configuration, IsWrittenInPlaceWhereTheFolderTakesNoNewFiles) {
  const TempFolder folder;
  const std::string path = folder.Write("Bytewarp.cfg", "#FALSE#,4,\"/a/longer/folder/\"\n");
  bwp::SaveConfiguration(ClosedFolder(), path, {true, 1, "/"});
  EXPECT_EQ(ReadFile(path), "#TRUE#,1,\"/\"\n");
  EXPECT_THROW(bwp::SaveConfiguration(ClosedFolder(), folder / "none", {}), bwp::RunTimeError);
}

TEST(Configuration, SavingIntoAMissingFolderIsPathNotFound) {
  const TempFolder folder;
  EXPECT_EQ(ErrorNumberOf([&] { bwp::SaveConfiguration(bwp::Disk(), folder / "gone/Bytewarp.cfg", {}); }),
            76);
}

// A disk on which one kind of call fails.
class BrokenDisk : public bwp::Disk {
 public:
  enum class Fault { kFull, kWrite, kSync, kClose, kRename };
  explicit BrokenDisk(Fault fault) : fault_(fault) {}

  ssize_t Write(int descriptor, const void* bytes, std::size_t count) const override {
    if (fault_ == Fault::kFull && count < 8) return Fail(ENOSPC);
    if (fault_ == Fault::kFull) return Disk::Write(descriptor, bytes, count / 2);
    if (fault_ == Fault::kWrite) return Fail(EIO);
    return Disk::Write(descriptor, bytes, count);
  }
  int Sync(int descriptor) const override {
    return fault_ == Fault::kSync ? Fail(EIO) : Disk::Sync(descriptor);
  }
  int Close(int descriptor) const override {
    const int result = Disk::Close(descriptor);
    return fault_ == Fault::kClose ? Fail(EIO) : result;
  }
  int Rename(const std::string& from, const std::string& to) const override {
    return fault_ == Fault::kRename ? Fail(EPERM) : Disk::Rename(from, to);
  }

 private:
  static int Fail(int error) {
    errno = error;
    return -1;
  }
  Fault fault_;
};

TEST(Configuration, ASaveThatFailsLeavesTheOldFileWholeAndNothingBesideIt) {
  using Fault = BrokenDisk::Fault;
  const std::pair<Fault, int> cases[] = {
      {Fault::kFull, 61}, {Fault::kWrite, 57}, {Fault::kSync, 57}, {Fault::kClose, 57}, {Fault::kRename, 70}};
  for (const auto& [fault, number] : cases) {
    const TempFolder folder;
    const std::string path = folder.Write("Bytewarp.cfg", "#TRUE#,4,\"/\"\n");
    try {
      bwp::SaveConfiguration(BrokenDisk(fault), path, {false, 0, "/b/"});
      ADD_FAILURE() << "no error";
    } catch (const bwp::RunTimeError& error) {
      EXPECT_EQ(error.number, number);
      EXPECT_EQ(error.path, path);
    }
    EXPECT_EQ(ReadFile(path), "#TRUE#,4,\"/\"\n");
    EXPECT_EQ(folder.Names().size(), 1U);
  }
}

// A disk that writes one byte at a time and records the order of Sync and Rename.
class SlowDisk : public bwp::Disk {
 public:
  ssize_t Write(int descriptor, const void* bytes, std::size_t /*count*/) const override {
    return Disk::Write(descriptor, bytes, 1);
  }
  int Sync(int descriptor) const override {
    struct stat status = {};
    fstat(descriptor, &status);
    order += "sync " + std::to_string(status.st_size) + ", ";
    return Disk::Sync(descriptor);
  }
  int Rename(const std::string& from, const std::string& to) const override {
    order += "rename";
    return Disk::Rename(from, to);
  }

  mutable std::string order;
};

TEST(Configuration, IsCompleteAndOnTheDiskBeforeItTakesTheOldOnesPlace) {
  const TempFolder folder;
  const std::string path = folder.Write("Bytewarp.cfg", "old");
  const SlowDisk disk;
  bwp::SaveConfiguration(disk, path, {});
  EXPECT_EQ(ReadFile(path), "#TRUE#,4,\"/\"\n");
  EXPECT_EQ(disk.order, "sync 13, rename");
  EXPECT_EQ(folder.Names().size(), 1U);
}

TEST(Configuration, OfANewFolderHasThePermissionsOfAnyNewFile) {
  const TempFolder folder;
  bwp::SaveConfiguration(bwp::Disk(), folder / "Bytewarp.cfg", {});
  struct stat other = {};
  struct stat own = {};
  std::ofstream(folder / "any");
  ASSERT_EQ(stat((folder / "any").c_str(), &other), 0);
  ASSERT_EQ(stat((folder / "Bytewarp.cfg").c_str(), &own), 0);
  EXPECT_EQ(own.st_mode, other.st_mode);
}

RC_GTEST_PROP(Configuration, SurvivesTheRoundTripWhateverTheFolderHolds,
              (bool hex, std::int16_t acceleration, const std::string& name)) {
  const std::string folder = "/" + name + "\",\xFF/";
  const Configuration read = bwp::ReadConfiguration(bwp::ConfigurationText({hex, acceleration, folder}));
  RC_ASSERT(read.hexMode == hex);
  RC_ASSERT(read.acceleration == acceleration);
  RC_ASSERT(read.lastFolder == folder);
}

}  // namespace
