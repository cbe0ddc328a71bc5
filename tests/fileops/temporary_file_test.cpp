#include "fileops/temporary_file.h"

#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "fileops/buffer_operations.h"
#include "support/child.h"
#include "support/errors.h"
#include "support/workplace.h"

namespace {

using bwp::OpenTemporaryFile;
using bwp::ScratchFile;
using bwp::TemporaryPath;
using bwp::test::ErrorOf;
using bwp::test::ReadFile;
using bwp::test::ScopedVariable;
using bwp::test::TempFolder;

class TemporaryFile : public testing::Test {
 protected:
  bwp::RunTimeError Refusal() {
    return ErrorOf([&] { OpenTemporaryFile(disk); });
  }

  TempFolder folder;
  ScopedVariable variable{"TMPDIR", folder.Path().c_str()};
  std::string name = "bytewarp-" + std::to_string(geteuid()) + ".ttt";
  bwp::Disk disk;
};

TEST_F(TemporaryFile, LiesInTmpdirUnderTheUsersNumber) {
  EXPECT_EQ(TemporaryPath(), folder / name);
  const ScopedVariable bare("TMPDIR", folder.Path().substr(0, folder.Path().size() - 1).c_str());
  EXPECT_EQ(TemporaryPath(), folder / name);
}

TEST_F(TemporaryFile, LiesInVarTmpWhenTmpdirIsUnsetOrEmpty) {
  const ScopedVariable empty("TMPDIR", "");
  EXPECT_EQ(TemporaryPath(), "/var/tmp/" + name);
  const ScopedVariable unset("TMPDIR", nullptr);
  EXPECT_EQ(TemporaryPath(), "/var/tmp/" + name);
}

TEST_F(TemporaryFile, IsForTheUserAloneAndVanishesInTheEnd) {
  {
    const ScratchFile file = OpenTemporaryFile(disk);
    struct stat status = {};
    ASSERT_EQ(stat((folder / name).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>{});
}

TEST_F(TemporaryFile, ThatAnEarlierRunLeftIsEmptiedAndLockedUp) {
  chmod(folder.Write(name, "left over").c_str(), 0666);
  const ScratchFile file = OpenTemporaryFile(disk);
  struct stat status = {};
  ASSERT_EQ(stat((folder / name).c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0600U);
  EXPECT_EQ(status.st_size, 0);
}

// What is done as an ordinary user, also when the administrator runs the test.
void AsOrdinaryUser(const std::string& folder, const std::function<void()>& work) {
  if (geteuid() != 0) return work();
  ASSERT_EQ(chown(folder.c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
  bwp::test::InChild([&] {
    bwp::test::BecomeNobody();
    work();
  });
}

TEST_F(TemporaryFile, ThatWasLeftReadOnlyIsEmptiedAllTheSame) {
  AsOrdinaryUser(folder.Path(), [&] {
    ASSERT_EQ(
        chmod(folder.Write(std::filesystem::path(TemporaryPath()).filename(), "left over").c_str(), 0444), 0);
    const ScratchFile file = OpenTemporaryFile(disk);
    struct stat status = {};
    ASSERT_EQ(stat(TemporaryPath().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    EXPECT_EQ(status.st_size, 0);
  });
}

TEST_F(TemporaryFile, ThatIsReadOnlyAndInUseIsError70AndKeepsItsMode) {
  AsOrdinaryUser(folder.Path(), [&] {
    const ScratchFile theirs = OpenTemporaryFile(disk);
    ASSERT_EQ(fchmod(theirs.Descriptor(), 0444), 0);
    EXPECT_EQ(Refusal().number, 70);
    struct stat status = {};
    ASSERT_EQ(fstat(theirs.Descriptor(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0444U);
    EXPECT_EQ(status.st_nlink, 1U);
  });
}

TEST_F(TemporaryFile, InAMissingFolderIsError76AndTheFolderIsNotMade) {
  const ScopedVariable missing("TMPDIR", (folder / "missing").c_str());
  EXPECT_EQ(Refusal().number, 76);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{});
}

TEST_F(TemporaryFile, ThatIsALinkIsError70AndItsTargetIsUntouched) {
  folder.Write("precious", "bytes");
  std::filesystem::create_symlink("precious", folder / name);
  const bwp::RunTimeError error = Refusal();
  EXPECT_EQ(error.number, 70);
  EXPECT_EQ(error.path, folder / name);
  EXPECT_EQ(ReadFile(folder / "precious"), "bytes");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / name));
}

TEST_F(TemporaryFile, ThatIsALinkToNothingIsError70AndMakesNothing) {
  std::filesystem::create_symlink("nothing", folder / name);
  EXPECT_EQ(Refusal().number, 70);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{name});
}

TEST_F(TemporaryFile, ThatIsAFurtherNameOfAFileIsError70) {
  folder.Write("precious", "bytes");
  std::filesystem::create_hard_link(folder / "precious", folder / name);
  EXPECT_EQ(Refusal().number, 70);
  EXPECT_EQ(ReadFile(folder / "precious"), "bytes");
}

TEST_F(TemporaryFile, ThatIsAFolderIsError70) {
  std::filesystem::create_directory(folder / name);
  EXPECT_EQ(Refusal().number, 70);
}

TEST_F(TemporaryFile, ThatIsAPipeIsError70AndNobodyWaits) {
  ASSERT_EQ(mkfifo((folder / name).c_str(), 0600), 0);
  EXPECT_EQ(Refusal().number, 70);
}

TEST_F(TemporaryFile, ThatIsASocketIsError70) {
  const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  (folder / name).copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  EXPECT_EQ(Refusal().number, 70);
  close(descriptor);
}

TEST_F(TemporaryFile, ThatIsSomebodyElsesIsError70) {
  // Whoever runs the test, the file belongs to another user: in a namespace nobody else is known to, a file
  // of the system's administrator does.
  if (geteuid() == 0) {
    ASSERT_EQ(chown(folder.Write(name, "theirs").c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
    EXPECT_EQ(Refusal().number, 70);
    EXPECT_EQ(ReadFile(folder / name), "theirs");
  } else {
    bwp::test::InOwnMounts([&] {
      const ScopedVariable theirs("TMPDIR", folder.Path().c_str());
      folder.Write("bytewarp-0.ttt", "");
      bwp::test::MountOnto("/etc/passwd", folder / "bytewarp-0.ttt");
      EXPECT_EQ(Refusal().number, 70);
    });
  }
}

TEST_F(TemporaryFile, ThatASecondRunningCopyUsesIsError70AndStaysTheirs) {
  int wait[2];
  int go[2];
  ASSERT_EQ(pipe(wait) + pipe(go), 0);
  const pid_t child = bwp::test::StartChild([&] {
    const ScratchFile file = OpenTemporaryFile(disk);
    file.Writer().Write("theirs");
    char signal = 0;
    EXPECT_EQ(write(wait[1], &signal, 1), 1);
    EXPECT_EQ(read(go[0], &signal, 1), 1);
    EXPECT_EQ(file.Length(), 6);
  });
  char signal = 0;
  ASSERT_EQ(read(wait[0], &signal, 1), 1);
  const bwp::RunTimeError error = Refusal();
  EXPECT_EQ(error.number, 70);
  EXPECT_EQ(error.path, folder / name);
  EXPECT_EQ(ReadFile(folder / name), "theirs");
  ASSERT_EQ(write(go[1], &signal, 1), 1);
  EXPECT_EQ(bwp::test::WaitFor(child), 0);
  for (const int end : {wait[0], wait[1], go[0], go[1]}) close(end);
}

// Another copy of the program moves its temporary file onto the file that it rewrites, just when ours has
// opened it and is about to lock it.
class MovedBeforeTheLock : public bwp::Disk {
 public:
  explicit MovedBeforeTheLock(std::string from, std::string to)
      : from_(std::move(from)), to_(std::move(to)) {}
  int Lock(int descriptor) const override {
    if (!moved_) std::filesystem::rename(from_, to_);
    moved_ = true;
    return Disk::Lock(descriptor);
  }

 private:
  std::string from_, to_;
  mutable bool moved_ = false;
};

TEST_F(TemporaryFile, ThatBecameAnotherFileMeanwhileIsLeftAloneAndMadeAnew) {
  folder.Write(name, "somebody's new content");
  const MovedBeforeTheLock moving(folder / name, folder / "rewritten");
  const ScratchFile file = OpenTemporaryFile(moving);
  EXPECT_EQ(ReadFile(folder / "rewritten"), "somebody's new content");
  EXPECT_EQ(ReadFile(folder / name), "");
}

TEST_F(TemporaryFile, RefusedLeavesTheOpenFileAlone) {
  bwp::test::Workplace place("0123456789");
  std::filesystem::create_symlink("nothing", place.temporary / name);
  EXPECT_EQ(ErrorOf([&] { CutChunk(place.state, place.services); }).number, 70);
  place.state.BufferData = "xyz";
  EXPECT_EQ(ErrorOf([&] { InsertBuffer(place.state, place.services, "app"); }).number, 70);
  EXPECT_EQ(place.Bytes(), "0123456789");
  EXPECT_EQ(place.folder.Names(), std::vector<std::string>{"data"});
}

}  // namespace
