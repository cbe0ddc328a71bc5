#include "fileops/replace_file.h"

#include <array>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "fileops/buffer_operations.h"
#include "fileops/replace_fixture.h"

// What a cut leaves of the file that it replaces, and what it does where the name cannot be replaced.
namespace {

using bwp::InsertBuffer;
using bwp::test::ErrorOf;
using bwp::test::ExpectRecovery;
using bwp::test::InChild;
using bwp::test::InOwnMounts;
using bwp::test::kMemory;
using bwp::test::kNothing;
using bwp::test::kOnDisk;
using bwp::test::kOnlyTheFile;
using bwp::test::MarkedFile;
using bwp::test::Names;
using bwp::test::Place;
using bwp::test::ReadFile;
using bwp::test::TempFolder;
using bwp::test::Transcript;

const std::string& kBytes = MarkedFile::kBytes;
const std::string& kRest = MarkedFile::kRest;

struct stat StatusOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
  return status;
}

unsigned ModeOf(const std::string& path) {
  return StatusOf(path).st_mode & 07777U;
}

std::string AttributeOf(const std::string& path, const char* name) {
  std::array<char, 256> value{};
  const ssize_t size = getxattr(path.c_str(), name, value.data(), value.size());
  return size < 0 ? "none" : std::string(value.data(), static_cast<std::size_t>(size));
}

class Replace : public testing::TestWithParam<const char*> {};

// What only root can try; ./test runs these apart where it is not root.
class ReplaceAsRoot : public bwp::test::AsRoot {};

TEST_P(Replace, KeepsTheMode) {
  for (const mode_t mode : {0600U, 0755U, 0444U, 0640U}) {
    Place place(GetParam());
    ASSERT_EQ(chmod(place.data.c_str(), mode), 0);
    place.Cut();
    EXPECT_EQ(ModeOf(place.data), mode);
    EXPECT_EQ(place.Bytes(), kRest);
  }
}

TEST_P(ReplaceAsRoot, KeepsOwnerAndGroup) {
  Place place(GetParam());
  ASSERT_EQ(chown(place.data.c_str(), 1234, 4321), 0);
  ASSERT_EQ(chmod(place.data.c_str(), 06755), 0);
  place.Cut();
  EXPECT_EQ(StatusOf(place.data).st_uid, 1234U);
  EXPECT_EQ(StatusOf(place.data).st_gid, 4321U);
  EXPECT_EQ(ModeOf(place.data), 06755U);
}

TEST_P(Replace, KeepsAttributes) {
  Place place(GetParam());
  ASSERT_EQ(setxattr(place.data.c_str(), "user.colour", "blue", 4, 0), 0);
  ASSERT_EQ(setxattr(place.data.c_str(), "user.empty", "", 0, 0), 0);
  place.Cut();
  EXPECT_EQ(AttributeOf(place.data, "user.colour"), "blue");
  EXPECT_EQ(AttributeOf(place.data, "user.empty"), "");
}

TEST_P(Replace, KeepsAccessLists) {
  struct Entry {
    std::uint16_t tag, permissions;
    std::uint32_t id;
  };
  // The owner may read and write, user 1234 may read, all others nothing.
  struct {
    std::uint32_t version = 2;
    Entry entries[5] = {{1, 6, ~0U}, {2, 4, 1234}, {4, 0, ~0U}, {16, 4, ~0U}, {32, 0, ~0U}};
  } list;
  Place place(GetParam());
  ASSERT_EQ(setxattr(place.data.c_str(), "system.posix_acl_access", &list, sizeof list, 0), 0);
  const std::string before = AttributeOf(place.data, "system.posix_acl_access");
  place.Cut();
  EXPECT_EQ(AttributeOf(place.data, "system.posix_acl_access"), before);
  EXPECT_EQ(before.size(), sizeof list);
}

TEST_P(ReplaceAsRoot, OfAnotherUsersFileDropsWhatWouldGiveAwayRights) {
  Place place(GetParam());
  for (const std::string& folder : {place.folder.Path(), place.temporary.Path()}) {
    ASSERT_EQ(chown(folder.c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
  }
  ASSERT_EQ(chmod(place.data.c_str(), 06754), 0);
  InChild([&] {
    bwp::test::BecomeNobody();
    place.Cut();
    EXPECT_EQ(place.Bytes(), kRest);
  });
  EXPECT_EQ(StatusOf(place.data).st_uid, bwp::test::kNobody);
  EXPECT_EQ(ModeOf(place.data), 0744U);
}

TEST_P(Replace, LeavesTheOldContentUnderOtherHardLinks) {
  Place place(GetParam());
  std::filesystem::create_hard_link(place.data, place.folder / "other");
  place.Cut();
  EXPECT_EQ(ReadFile(place.data), kRest);
  EXPECT_EQ(ReadFile(place.folder / "other"), kBytes);
}

// The old file stays, so does what had the new name, and the new content in the temporary file.
void ExpectTaken(Place& place, const std::string& name) {
  const bwp::RunTimeError error = ErrorOf([&] { place.Cut(); });
  EXPECT_EQ(error.number, 58);
  EXPECT_EQ(error.path, name + ".new");
  ASSERT_EQ(place.temporary.Names().size(), 1U);
  const std::string kept = place.temporary / place.temporary.Names().front();
  EXPECT_NE(error.note.find(kept), std::string::npos) << error.note;
  EXPECT_EQ(ReadFile(kept), kRest);
  EXPECT_EQ(ReadFile(name), kBytes);
  EXPECT_EQ(ReadFile(name + ".new"), "taken");
  EXPECT_EQ(place.folder.Names(), (Names{"data", "data.new"}));
}

// While this lives the file can be neither changed nor deleted nor replaced.
class Immutable {
 public:
  explicit Immutable(const std::string& path) : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    Set(FS_IMMUTABLE_FL);
  }
  Immutable(const Immutable&) = delete;
  Immutable& operator=(const Immutable&) = delete;
  ~Immutable() {
    Set(0);
    close(descriptor_);
  }

 private:
  void Set(int flag) const {
    int flags = 0;
    EXPECT_EQ(ioctl(descriptor_, FS_IOC_GETFLAGS, &flags), 0);
    flags = (flags & ~FS_IMMUTABLE_FL) | flag;
    EXPECT_EQ(ioctl(descriptor_, FS_IOC_SETFLAGS, &flags), 0) << "only the administrator can do this";
  }

  int descriptor_;
};

TEST_P(ReplaceAsRoot, OfAnImmutableFileGoesOnUnderTheNewName) {
  Place place(GetParam());
  const Immutable immutable(place.data);
  place.Cut();
  ExpectRecovery(place, place.data);
  EXPECT_EQ(place.folder.Names(), (Names{"data", "data.new"}));
}

TEST_P(ReplaceAsRoot, OfAnImmutableFileWhoseNewNameIsTakenIsError58) {
  Place place(GetParam());
  place.folder.Write("data.new", "taken");
  const Immutable immutable(place.data);
  ExpectTaken(place, place.data);
}

TEST_P(ReplaceAsRoot, ByAnInsertSpellsTheRecoveryInItsOwnWay) {
  Place place(GetParam());
  const Immutable immutable(place.data);
  place.state.BufferData = "xyz";
  InsertBuffer(place.state, place.services, "app");
  const Transcript story = place.Story();
  EXPECT_EQ(
      Transcript(story.end() - 5, story.end()),
      (Transcript{"hide",
                  "tell There is a SYSTEM ERROR caused by windows preview!  Your file has been renamed as '" +
                      place.data + ".new'",
                  "refresh", "tell Insert Successful", "clear abort"}));
  EXPECT_EQ(ReadFile(place.data + ".new"), kBytes + "xyz");
  EXPECT_EQ(ReadFile(place.data), kBytes);
}

TEST_P(ReplaceAsRoot, InAStickyFolderOfSomebodyElseGoesOnUnderTheNewName) {
  Place place(GetParam());
  ASSERT_EQ(chmod(place.folder.Path().c_str(), 01777), 0);
  ASSERT_EQ(chown(place.data.c_str(), 1234, 1234), 0);
  ASSERT_EQ(chown(place.temporary.Path().c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
  InChild([&] {
    bwp::test::BecomeNobody();
    place.Cut();
    ExpectRecovery(place, place.data);
    EXPECT_EQ(place.folder.Names(), (Names{"data", "data.new"}));
  });
}

TEST_P(ReplaceAsRoot, InAFolderThatTakesNoNewNamesIsError70) {
  Place place(GetParam());
  ASSERT_EQ(chmod(place.folder.Path().c_str(), 0555), 0);
  ASSERT_EQ(chown(place.temporary.Path().c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
  InChild([&] {
    bwp::test::BecomeNobody();
    const bwp::RunTimeError error = ErrorOf([&] { place.Cut(); });
    EXPECT_EQ(error.number, 70);
    EXPECT_TRUE(error.path.starts_with(place.folder.Path())) << error.path;
    EXPECT_EQ(ReadFile(place.data), kBytes);
    EXPECT_EQ(place.state.BufferData, "");
    EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
    EXPECT_EQ(place.temporary.Names(), kNothing);
  });
}

TEST_P(Replace, OfAMountPointGoesOnUnderTheNewName) {
  Place place(GetParam());
  const TempFolder elsewhere(kOnDisk);
  const std::string mounted = elsewhere.Write("mounted", kBytes);
  InOwnMounts([&] {
    bwp::test::MountOnto(mounted, place.data);
    place.Open(place.data);
    place.Cut();
    ExpectRecovery(place, place.data);
    EXPECT_EQ(place.folder.Names(), (Names{"data", "data.new"}));
  });
}

TEST_P(Replace, OfAMountPointWhoseNewNameIsTakenIsError58) {
  Place place(GetParam());
  place.folder.Write("data.new", "taken");
  const TempFolder elsewhere(kOnDisk);
  const std::string mounted = elsewhere.Write("mounted", kBytes);
  InOwnMounts([&] {
    bwp::test::MountOnto(mounted, place.data);
    place.Open(place.data);
    ExpectTaken(place, place.data);
  });
}

INSTANTIATE_TEST_SUITE_P(OnOneFileSystem, Replace, testing::Values(kOnDisk));
INSTANTIATE_TEST_SUITE_P(AcrossTwoFileSystems, Replace, testing::Values(kMemory));
INSTANTIATE_TEST_SUITE_P(OnOneFileSystem, ReplaceAsRoot, testing::Values(kOnDisk));
INSTANTIATE_TEST_SUITE_P(AcrossTwoFileSystems, ReplaceAsRoot, testing::Values(kMemory));

TEST(ReplaceAcrossMounts, OfOneFileSystemStagesBesideTheFile) {
  Place place;
  const TempFolder mounted(kOnDisk);
  InOwnMounts([&] {
    bwp::test::MountOnto(place.folder.Path(), mounted.Path());
    place.Open(mounted / "data");
    place.Cut();
    EXPECT_EQ(ReadFile(place.data), kRest);
    EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
    EXPECT_EQ(place.temporary.Names(), kNothing);
  });
}

}  // namespace
