#include <algorithm>
#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fileops/temporary_file.h"
#include "support/child.h"
#include "support/errors.h"
#include "support/marked_file.h"

// Disks that refuse a call that most of them know, and mounts that lead to one disk by two ways.
namespace {

using bwp::test::ErrorOf;
using bwp::test::InOwnMounts;
using bwp::test::kNothing;
using bwp::test::kOnDisk;
using bwp::test::kOnlyTheFile;
using bwp::test::MarkedFile;
using bwp::test::ReadFile;
using bwp::test::TempFolder;
using bwp::test::Transcript;
using Names = std::vector<std::string>;

const std::string& kBytes = MarkedFile::kBytes;
const std::string& kRest = MarkedFile::kRest;

int Refuse(int error) {
  errno = error;
  return -1;
}

bool IsHidden(const std::string& path) {
  return path.find("/.bytewarp-") != std::string::npos;
}

// No name of the user's can be replaced, nor can a rename be told to replace none.
class PlainDisk : public bwp::Disk {
 public:
  int Rename(const std::string& from, const std::string& to) const override {
    return IsHidden(to) ? Disk::Rename(from, to) : Refuse(EPERM);
  }
  int RenameNew(const std::string& from, const std::string& to) const override {
    return knowsRenameNew ? Disk::RenameNew(from, to) : Refuse(EINVAL);
  }

  bool knowsRenameNew = false;
};

// Waiting for a folder ends in that error.
class FolderSyncDisk : public PlainDisk {
 public:
  FolderSyncDisk(int error, bool givesUpNames) : error_(error), givesUpNames_(givesUpNames) {}
  int Rename(const std::string& from, const std::string& to) const override {
    return givesUpNames_ ? Disk::Rename(from, to) : PlainDisk::Rename(from, to);
  }
  int Sync(int descriptor) const override {
    struct stat status = {};
    EXPECT_EQ(fstat(descriptor, &status), 0);
    if (!S_ISDIR(status.st_mode)) return 0;
    foldersSynced = true;
    return Refuse(error_);
  }

  mutable bool foldersSynced = false;

 private:
  int error_;
  bool givesUpNames_;
};

// Two mounts that look like one until something is renamed; while the content is brought across, somebody
// writes to the file.
class SecretlyTwoDisks : public bwp::Disk {
 public:
  int Rename(const std::string& from, const std::string& to) const override {
    if (IsHidden(from)) return Disk::Rename(from, to);
    if (meanwhile) meanwhile();
    return Refuse(EXDEV);
  }

  std::function<void()> meanwhile;
};

long CountOf(const Transcript& story, const std::string& line) {
  return std::count(story.begin(), story.end(), line);
}

TEST(AwkwardDisk, ThatCannotRenameToANewNameOnlyGetsTheContentUnderItAllTheSame) {
  const PlainDisk disk;
  MarkedFile place(disk);
  place.Cut();
  EXPECT_EQ(place.state.OpenFile, place.data + ".new");
  EXPECT_EQ(place.Bytes(), kRest);
  EXPECT_EQ(ReadFile(place.data), kBytes);
  EXPECT_EQ(place.state.BufferData, MarkedFile::kMarked);
  EXPECT_EQ(place.folder.Names(), (Names{"data", "data.new"}));
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(AwkwardDisk, NeverOverwritesTheNewNameAndKeepsTheContentForTheUser) {
  for (const bool knowsRenameNew : {false, true}) {
    PlainDisk disk;
    disk.knowsRenameNew = knowsRenameNew;
    MarkedFile place(disk);
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
  MarkedFile place(disk);
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

TEST(AwkwardDisk, ThatCannotWaitForFoldersCutsAllTheSame) {
  for (const int error : {EINVAL, ENOTSUP}) {
    const FolderSyncDisk disk(error, true);
    MarkedFile place(disk);
    place.Cut();
    EXPECT_TRUE(disk.foldersSynced);
    EXPECT_EQ(place.Bytes(), kRest);
    EXPECT_EQ(place.state.FLen, 5);
  }
}

TEST(AwkwardDisk, ThatFailsToWaitForTheFolderIsAnErrorThatSaysWhatTheFileHolds) {
  const FolderSyncDisk disk(EIO, true);
  MarkedFile place(disk);
  const bwp::RunTimeError error = ErrorOf([&] { place.Cut(); });
  EXPECT_EQ(error.number, 57);
  EXPECT_EQ(error.path, place.data);
  EXPECT_EQ(error.note, "The file holds the new content, but a power cut may still undo that.");
  EXPECT_EQ(place.Bytes(), kRest);
  EXPECT_EQ(place.state.BufferData, MarkedFile::kMarked);
}

// The message may be left unread for hours.
TEST(AwkwardDisk, TellsOfTheNewNameAfterTheWaitForTheFolderEvenWhenThatFails) {
  const FolderSyncDisk disk(EIO, false);
  MarkedFile place(disk);
  bool told = false;
  place.notices.onTell = [&] {
    told = true;
    EXPECT_TRUE(disk.foldersSynced);
  };
  EXPECT_EQ(ErrorOf([&] { place.Cut(); }).path, place.data + ".new");
  EXPECT_TRUE(told);
  EXPECT_EQ(place.state.OpenFile, place.data + ".new");
  EXPECT_EQ(place.Bytes(), kRest);
}

TEST(AwkwardDisk, DoesNotMindAFolderThatMayBeWrittenButNotRead) {
  MarkedFile place;
  if (geteuid() == 0) {
    for (const std::string& path : {place.folder.Path(), place.temporary.Path(), place.data}) {
      ASSERT_EQ(chown(path.c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
    }
  }
  ASSERT_EQ(chmod(place.folder.Path().c_str(), 0300), 0);
  bwp::test::InChild([&] {
    if (geteuid() == 0) bwp::test::BecomeNobody();
    place.Cut();
    EXPECT_EQ(place.Bytes(), kRest);
  });
  ASSERT_EQ(chmod(place.folder.Path().c_str(), 0700), 0);
}

TEST(AwkwardDisk, ThatTurnsOutToBeTwoGetsTheContentStaged) {
  const SecretlyTwoDisks disk;
  MarkedFile place(disk);
  place.Cut();
  EXPECT_EQ(ReadFile(place.data), kRest);
  EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(AwkwardDisk, ThatTurnsOutToBeTwoLosesNothingThatSomebodyWroteMeanwhile) {
  SecretlyTwoDisks disk;
  MarkedFile place(disk);
  disk.meanwhile = [&] { place.folder.Write("data", "somebody else's"); };
  place.Cut();
  EXPECT_EQ(ReadFile(place.data), "somebody else's");
  EXPECT_EQ(place.Story().back(), "refresh");
  EXPECT_EQ(place.state.FLen, 15);
  EXPECT_EQ(place.state.BufferData, "");
  EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
  EXPECT_EQ(place.temporary.Names(), kNothing);
}

TEST(AwkwardDisk, MountedTwiceStagesWithProgressAndCanBeCancelled) {
  MarkedFile place;
  const TempFolder mounted(kOnDisk);
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
    EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
    place.Cut();
    EXPECT_EQ(ReadFile(place.data), kRest);
  });
}

TEST(AwkwardDisk, MountedReadOnlyIsError75AndTheFileIsWhole) {
  MarkedFile place;
  const TempFolder mounted(kOnDisk);
  InOwnMounts([&] {
    bwp::test::MountOnto(place.folder.Path(), mounted.Path());
    ASSERT_EQ(mount(nullptr, mounted.Path().c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr), 0);
    place.Open(mounted / "data");
    const bwp::RunTimeError error = ErrorOf([&] { place.Cut(); });
    EXPECT_EQ(error.number, 75);
    EXPECT_TRUE(error.path.starts_with(mounted.Path())) << error.path;
    EXPECT_EQ(ReadFile(place.data), kBytes);
    EXPECT_EQ(place.state.BufferData, "");
    EXPECT_EQ(place.temporary.Names(), kNothing);
  });
}

}  // namespace
