#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "fileops/buffer_operations.h"
#include "support/child.h"
#include "support/workplace.h"
#include "viewer/open_view_file.h"

// What a rewritten file keeps of the rights and attributes of the old one, where the order of giving them or
// the folder gets in the way.
namespace {

using bwp::CutChunk;
using bwp::test::Workplace;

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

// A file of ten bytes on a disk, the temporary file there or elsewhere.
struct Place : Workplace {
  explicit Place(const std::string& temporaryUnder)
      : Workplace("0123456789", RealDisk(), "/var/tmp", temporaryUnder), data(state.OpenFile) {
    Mark(0, 4);
  }
  void GiveToNobody() const {
    for (const std::string& path : {folder.Path(), temporary.Path(), data}) {
      ASSERT_EQ(chown(path.c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
    }
  }
  void Cut() { CutChunk(state, services); }

  std::string data;
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
  EXPECT_EQ(place.Bytes(), "56789");
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
  EXPECT_EQ(place.Bytes(), "56789");
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

INSTANTIATE_TEST_SUITE_P(OnOneFileSystem, FileAttributes, testing::Values("/var/tmp"));
INSTANTIATE_TEST_SUITE_P(AcrossTwoFileSystems, FileAttributes, testing::Values("/dev/shm"));

}  // namespace
