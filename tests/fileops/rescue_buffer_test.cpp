#include "fileops/rescue_buffer.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/stat.h>

#include "fileops/buffer_operations.h"
#include "support/failing_disk.h"
#include "support/workplace.h"

namespace {

using bwp::RescueBuffer;
using bwp::test::FailingDisk;
using bwp::test::Fault;
using bwp::test::ReadFile;
using bwp::test::ScopedVariable;
using bwp::test::TempFolder;
using bwp::test::Workplace;
using Names = std::vector<std::string>;

// The path that the sentence ends in.
std::string PathIn(const std::string& note) {
  const std::string before = "The bytes that were cut into the Buffer are kept in ";
  EXPECT_TRUE(note.starts_with(before)) << note;
  return note.substr(std::min(before.size(), note.size()));
}

TEST(RescueBuffer, WritesCutBytesBesideTheTemporaryFileForTheUserAlone) {
  Workplace place("0123456789");
  place.Mark(3, 5);
  CutChunk(place.state, place.services);
  const std::string path = PathIn(RescueBuffer(place.state, place.services.disk));
  EXPECT_TRUE(path.starts_with(place.temporary / "bytewarp-buffer-")) << path;
  EXPECT_EQ(ReadFile(path), "345");
  struct stat status = {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

TEST(RescueBuffer, NeverWritesOverAnEarlierRescue) {
  Workplace place("0123456789");
  CutChunk(place.state, place.services);
  RescueBuffer(place.state, place.services.disk);
  RescueBuffer(place.state, place.services.disk);
  EXPECT_EQ(place.temporary.Names().size(), 2U);
}

TEST(RescueBuffer, HasNothingToDoForAnEmptyOrACopiedBuffer) {
  Workplace place("0123456789");
  EXPECT_EQ(RescueBuffer(place.state, place.services.disk), "");
  CopyChunk(place.state, place.services);
  EXPECT_EQ(RescueBuffer(place.state, place.services.disk), "");
  EXPECT_EQ(place.temporary.Names(), Names{});
}

TEST(RescueBuffer, GoesHomeWhenNoOtherFolderTakesTheBytes) {
  const TempFolder home;
  Workplace place("0123456789");
  CutChunk(place.state, place.services);
  const ScopedVariable noFolder("TMPDIR", (home / "missing").c_str());
  const ScopedVariable itsHome("HOME", home.Path().c_str());
  // The missing folder takes the first call by itself.
  FailingDisk disk;
  disk.FailAt(2, Fault::kNoPermission);
  const std::string path = PathIn(RescueBuffer(place.state, disk));
  ASSERT_EQ(home.Names().size(), 1U);
  EXPECT_EQ(path, home / home.Names().front());
  EXPECT_EQ(ReadFile(path), "0123456789");
}

// A disk that takes nothing at all.
class DeadDisk : public bwp::Disk {
 public:
  int Open(const std::string&, int, mode_t) const override {
    errno = EIO;
    return -1;
  }
};

// The standard library fails in its own way, as it does where it finds no random numbers for a name.
class FailingLibrary : public bwp::Disk {
 public:
  explicit FailingLibrary(std::string folder) : folder_(std::move(folder)) {}
  int Open(const std::string& path, int flags, mode_t mode) const override {
    if (path.starts_with(folder_)) throw std::runtime_error("no random numbers");
    return Disk::Open(path, flags, mode);
  }

 private:
  std::string folder_;
};

TEST(RescueBuffer, SaysWhyWhenThereIsNoWay) {
  Workplace place("0123456789");
  CutChunk(place.state, place.services);
  const std::string note = RescueBuffer(place.state, DeadDisk());
  EXPECT_TRUE(
      note.starts_with("The bytes that were cut into the Buffer could not be kept (Device I/O error: " +
                       place.temporary.Path()))
      << note;
}

TEST(RescueBuffer, TriesTheNextFolderAlsoAfterAnErrorThatIsNotTheDisks) {
  const TempFolder home;
  Workplace place("0123456789");
  CutChunk(place.state, place.services);
  const std::string path = PathIn(RescueBuffer(place.state, FailingLibrary(place.temporary.Path())));
  EXPECT_TRUE(path.starts_with("/var/tmp/bytewarp-buffer-")) << path;
  EXPECT_EQ(ReadFile(path), "0123456789");
  std::filesystem::remove(path);
}

TEST(RescueBuffer, SaysThatTheBytesAreLostWhateverTheReason) {
  Workplace place("0123456789");
  CutChunk(place.state, place.services);
  EXPECT_EQ(RescueBuffer(place.state, FailingLibrary("/")),
            "The bytes that were cut into the Buffer could not be kept (no random numbers)");
}

// Notes which files and folders were waited for.
class SyncWatch : public bwp::Disk {
 public:
  int Sync(int descriptor) const override {
    struct stat status = {};
    EXPECT_EQ(fstat(descriptor, &status), 0);
    synced.push_back({status.st_dev, status.st_ino});
    return 0;
  }

  mutable std::vector<bwp::FileIdentity> synced;
};

TEST(RescueBuffer, WaitsForTheFileThenForItsFolder) {
  Workplace place("0123456789");
  CutChunk(place.state, place.services);
  const SyncWatch disk;
  const std::string path = PathIn(RescueBuffer(place.state, disk));
  EXPECT_EQ(disk.synced,
            (std::vector{bwp::IdentityOf(path).value(), bwp::IdentityOf(place.temporary.Path()).value()}));
}

TEST(RescueBuffer, LosesNothingToASingleFault) {
  for (const Fault fault : {Fault::kNoSpace, Fault::kDeviceError, Fault::kShortWrite, Fault::kInterrupted}) {
    for (int number = 1;; ++number) {
      const TempFolder home;
      const ScopedVariable itsHome("HOME", home.Path().c_str());
      Workplace place("0123456789");
      CutChunk(place.state, place.services);
      FailingDisk disk;
      disk.FailAt(number, fault);
      const std::string path = PathIn(RescueBuffer(place.state, disk));
      EXPECT_EQ(ReadFile(path), "0123456789");
      EXPECT_LE(place.temporary.Names().size(), 1U);
      if (!path.starts_with(place.temporary.Path())) remove(path.c_str());
      if (disk.Failed().empty()) break;
    }
  }
}

}  // namespace
