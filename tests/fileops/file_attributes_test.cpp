#include "fileops/file_attributes.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "fileops/temporary_file.h"
#include "support/child.h"
#include "support/errors.h"
#include "support/marked_file.h"

// What a rewritten file keeps of the rights and attributes of the old one, where the order of giving them or
// the folder gets in the way.
namespace {

using bwp::test::kMemory;
using bwp::test::kOnDisk;
using bwp::test::MarkedFile;

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kDefaultList = "system.posix_acl_default";

struct Entry {
  std::uint16_t tag, permissions;
  std::uint32_t id;
};

// The owner, user 1234, the group and all others.
struct AccessList {
  std::uint32_t version = 2;
  Entry entries[5];
};

constexpr AccessList ListGiving(std::uint16_t toUser) {
  return {2, {{1, 7, ~0U}, {2, toUser, 1234}, {4, 0, ~0U}, {16, 7, ~0U}, {32, 0, ~0U}}};
}

struct Place : MarkedFile {
  explicit Place(const std::string& temporaryUnder) : MarkedFile(RealDisk(), temporaryUnder) {}
  void GiveToNobody() const {
    for (const std::string& path : {folder.Path(), temporary.Path(), data}) {
      ASSERT_EQ(chown(path.c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
    }
  }
};

unsigned ModeOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777U;
}

class FileAttributes : public testing::TestWithParam<const char*> {};

// The administrator may write to a read-only file, so it is tried as somebody else.
TEST_P(FileAttributes, OfAReadOnlyFileAreKeptForAnOrdinaryUser) {
  Place place(GetParam());
  ASSERT_EQ(setxattr(place.data.c_str(), "user.colour", "blue", 4, 0), 0);
  ASSERT_EQ(chmod(place.data.c_str(), 0444), 0);
  if (geteuid() == 0) place.GiveToNobody();
  bwp::test::InChild([&] {
    if (geteuid() == 0) bwp::test::BecomeNobody();
    place.Cut();
  });
  EXPECT_EQ(place.Bytes(), MarkedFile::kRest);
  EXPECT_EQ(ModeOf(place.data), 0444U);
  char colour[8] = {};
  EXPECT_EQ(getxattr(place.data.c_str(), "user.colour", colour, sizeof colour), 4);
}

TEST_P(FileAttributes, TakeNoAccessListFromTheFolder) {
  Place place(GetParam());
  ASSERT_EQ(chmod(place.data.c_str(), 0640), 0);
  const AccessList generous = ListGiving(7);
  for (const std::string& folder : {place.folder.Path(), place.temporary.Path()}) {
    ASSERT_EQ(setxattr(folder.c_str(), kDefaultList, &generous, sizeof generous, 0), 0);
  }
  place.Cut();
  EXPECT_EQ(place.Bytes(), MarkedFile::kRest);
  EXPECT_EQ(ModeOf(place.data), 0640U);
  EXPECT_LT(getxattr(place.data.c_str(), kAccessList, nullptr, 0), 0);
}

TEST_P(FileAttributes, KeepTheFilesOwnAccessListWhateverTheFoldersSays) {
  Place place(GetParam());
  const AccessList strict = ListGiving(4);
  const AccessList generous = ListGiving(7);
  ASSERT_EQ(setxattr(place.data.c_str(), kAccessList, &strict, sizeof strict, 0), 0);
  ASSERT_EQ(setxattr(place.folder.Path().c_str(), kDefaultList, &generous, sizeof generous, 0), 0);
  place.Cut();
  AccessList kept{};
  ASSERT_EQ(getxattr(place.data.c_str(), kAccessList, &kept, sizeof kept), static_cast<ssize_t>(sizeof kept));
  EXPECT_EQ(kept.entries[1].id, 1234U);
  EXPECT_EQ(kept.entries[1].permissions, 4);
}

// A disk that cannot give a file another owner, and says so in its own way.
class DiskWithoutOwners : public bwp::Disk {
 public:
  explicit DiskWithoutOwners(int error) : error_(error) {}
  int Sync(int /*descriptor*/) const override { return 0; }
  int ChangeOwner(int, uid_t, gid_t) const override {
    ++refused;
    errno = error_;
    return -1;
  }

  mutable int refused = 0;

 private:
  int error_;
};

// Two files of different owners, the second for its user alone, as a temporary file is.
class FileAttributesAsRoot : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(geteuid(), 0U) << "only root can make a file of another user";
    for (const char* const name : {"old", "new"}) folder_.Write(name, "bytes");
    ASSERT_EQ(chown((folder_ / "old").c_str(), 1234, 4321), 0);
    ASSERT_EQ(chmod((folder_ / "new").c_str(), 0600), 0);
  }
  void Copy(const bwp::Disk& disk) {
    const int from = open((folder_ / "old").c_str(), O_RDONLY | O_CLOEXEC);
    const int to = open((folder_ / "new").c_str(), O_RDWR | O_CLOEXEC);
    bwp::CopyAttributes(disk, from, to, folder_ / "old");
    close(from);
    close(to);
  }

  const bwp::test::TempFolder folder_;
};

TEST_F(FileAttributesAsRoot, OfADiskThatRefusesAnOwnerInItsOwnWayAreKeptButForTheOwner) {
  for (const int error : {EPERM, EINVAL, ENOSYS, EOPNOTSUPP}) {
    SCOPED_TRACE(error);
    const DiskWithoutOwners disk(error);
    ASSERT_EQ(chmod((folder_ / "old").c_str(), 06754), 0);
    EXPECT_NO_THROW(Copy(disk));
    EXPECT_EQ(disk.refused, 2) << "the owner, then the group alone";
    EXPECT_EQ(ModeOf(folder_ / "new"), 0744U);
  }
}

TEST_F(FileAttributesAsRoot, OfAFailingDiskAreAnError) {
  const DiskWithoutOwners disk(EIO);
  EXPECT_EQ(bwp::test::ErrorOf([&] { Copy(disk); }).number, 57);
}

class DiskWithoutModes : public bwp::Disk {
 public:
  int ChangeMode(int, mode_t) const override {
    errno = ENOSYS;
    return -1;
  }
};

TEST(FileAttributesOfADiskWithoutModes, NeedNoChangeWhereTheModeIsRightAlready) {
  const DiskWithoutModes disk;
  const bwp::test::TempFolder folder;
  const std::string old = folder.Write("old", "bytes");
  const std::string fresh = folder.Write("new", "bytes");
  const int from = open(old.c_str(), O_RDONLY | O_CLOEXEC);
  const int to = open(fresh.c_str(), O_RDWR | O_CLOEXEC);
  EXPECT_NO_THROW(bwp::CopyAttributes(disk, from, to, old));
  ASSERT_EQ(chmod(old.c_str(), 0400), 0);
  EXPECT_EQ(bwp::test::ErrorOf([&] { bwp::CopyAttributes(disk, from, to, old); }).number, 57);
  close(from);
  close(to);
}

// Notes where the temporary file's name is whenever a file is opened up for others.
class ModeWatch : public bwp::Disk {
 public:
  int Sync(int /*descriptor*/) const override { return 0; }
  int ChangeMode(int descriptor, mode_t mode) const override {
    struct stat status = {};
    EXPECT_EQ(fstat(descriptor, &status), 0);
    if ((mode & 077U) != 0) {
      ++opened;
      EXPECT_NE(bwp::IdentityOf(bwp::TemporaryPath()), (bwp::FileIdentity{status.st_dev, status.st_ino}));
    }
    return Disk::ChangeMode(descriptor, mode);
  }

  mutable int opened = 0;
};

// The folder of the old file may keep out people whom the folder of the temporary file lets in.
TEST(FileAttributesOfTheTemporaryFile, LetNobodyElseInBeforeItIsBesideTheOldFile) {
  const ModeWatch disk;
  MarkedFile place(disk);
  ASSERT_EQ(chmod(place.data.c_str(), 0644), 0);
  place.Cut();
  EXPECT_EQ(disk.opened, 1);
  EXPECT_EQ(ModeOf(place.data), 0644U);
}

INSTANTIATE_TEST_SUITE_P(OnOneFileSystem, FileAttributes, testing::Values(kOnDisk));
INSTANTIATE_TEST_SUITE_P(AcrossTwoFileSystems, FileAttributes, testing::Values(kMemory));

}  // namespace
