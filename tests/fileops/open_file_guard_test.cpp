#include "fileops/open_file_guard.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <unistd.h>
#include <utility>

#include "support/child.h"
#include "support/errors.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"
#include "viewer/run_time_error.h"

namespace {

class OpenFileGuard : public testing::Test {
 protected:
  OpenFileGuard() {
    bwp::OpenViewFile(state, folder.Write("open", "bytes"));
    EXPECT_EQ(symlink((folder / "open").c_str(), (folder / "symbolic").c_str()), 0);
    EXPECT_EQ(link((folder / "open").c_str(), (folder / "hard").c_str()), 0);
    folder.Write("other", "bytes");
  }
  bool MayOverwrite(const std::string& path) { return Passes(bwp::RefuseToOverwriteOpenFile, path); }
  bool MayDelete(const std::string& path) { return Passes(bwp::RefuseToDeleteOpenFile, path); }
  bool Passes(void (*refuse)(const bwp::ViewState&, const std::string&), const std::string& path) {
    try {
      refuse(state, path);
      return true;
    } catch (const bwp::RunTimeError& error) {
      EXPECT_EQ(error.number, 70);
      EXPECT_EQ(error.path, path);
      return false;
    }
  }

  bwp::test::TempFolder folder;
  bwp::ViewState state;
};

TEST_F(OpenFileGuard, LetsNobodyOverwriteTheFileByAnyName) {
  EXPECT_FALSE(MayOverwrite(folder / "open"));
  EXPECT_FALSE(MayOverwrite(folder / "./open"));
  EXPECT_FALSE(MayOverwrite(folder / "symbolic"));
  EXPECT_FALSE(MayOverwrite(folder / "hard"));
  EXPECT_TRUE(MayOverwrite(folder / "other"));
  EXPECT_TRUE(MayOverwrite(folder / "none"));
}

TEST_F(OpenFileGuard, LetsLinksOfTheFileBeDeletedButNotItself) {
  EXPECT_FALSE(MayDelete(folder / "open"));
  EXPECT_FALSE(MayDelete(folder / "./open"));
  EXPECT_TRUE(MayDelete(folder / "symbolic"));
  EXPECT_TRUE(MayDelete(folder / "hard"));
  EXPECT_TRUE(MayDelete(folder / "other"));
  EXPECT_TRUE(MayDelete(folder / "none"));
}

TEST_F(OpenFileGuard, KeepsTheLinkThatTheFileWasOpenedByAndItsTarget) {
  bwp::OpenViewFile(state, folder / "symbolic");
  EXPECT_FALSE(MayDelete(folder / "symbolic"));
  EXPECT_FALSE(MayDelete(folder / "open"));
  EXPECT_TRUE(MayDelete(folder / "hard"));
}

TEST_F(OpenFileGuard, KnowsTheFileByAnotherMountOfItsFolder) {
  const bwp::test::TempFolder mounted;
  bwp::test::InOwnMounts([&] {
    bwp::test::MountOnto(folder.Path(), mounted.Path());
    EXPECT_FALSE(MayDelete(mounted / "open"));
    EXPECT_TRUE(MayDelete(mounted / "symbolic"));
    EXPECT_TRUE(MayDelete(mounted / "hard"));
    EXPECT_TRUE(MayDelete(mounted / "other"));
    bwp::OpenViewFile(state, mounted / "symbolic");
    EXPECT_FALSE(MayDelete(folder / "symbolic"));
    EXPECT_FALSE(MayDelete(folder / "open"));
  });
}

TEST_F(OpenFileGuard, KeepsTheLastNameHoweverItIsSpelt) {
  ASSERT_EQ(unlink((folder / "hard").c_str()), 0);
  bwp::test::InOwnMounts([&] {
    // As on a disk where upper and lower case name the same file.
    bwp::test::MountOnto(folder / "open", folder / "other");
    EXPECT_FALSE(MayDelete(folder / "other"));
  });
}

// The first call is interrupted.
class InterruptedOnce : public bwp::Disk {
 public:
  int Delete(const std::string& path) const override {
    if (std::exchange(interrupted_, true)) return Disk::Delete(path);
    errno = EINTR;
    return -1;
  }

 private:
  mutable bool interrupted_ = false;
};

TEST_F(OpenFileGuard, DeletesWhatIsNotTheOpenFile) {
  const InterruptedOnce disk;
  using bwp::test::ErrorNumberOf;
  EXPECT_EQ(ErrorNumberOf([&] { DeleteUnlessOpen(state, disk, folder / "open"); }), 70);
  EXPECT_EQ(ErrorNumberOf([&] { DeleteUnlessOpen(state, disk, folder / "other"); }), 0);
  EXPECT_EQ(ErrorNumberOf([&] { DeleteUnlessOpen(state, disk, folder / "other"); }), 53);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"hard", "open", "symbolic"}));
}

TEST_F(OpenFileGuard, HasNothingToGuardWithoutAnOpenFile) {
  state = {};
  EXPECT_TRUE(MayOverwrite(folder / "open"));
  EXPECT_TRUE(MayDelete(folder / "open"));
}

TEST_F(OpenFileGuard, FollowsALoopOfLinksOnlySoFar) {
  EXPECT_EQ(symlink("loop", (folder / "loop").c_str()), 0);
  state.OpenFile = folder / "loop";
  EXPECT_FALSE(MayDelete(folder / "loop"));
  EXPECT_TRUE(MayDelete(folder / "open"));
}

}  // namespace
