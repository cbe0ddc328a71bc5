#include "viewer/folder_listing.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sys/stat.h>

#include "support/temp_folder.h"

namespace {

using bwp::ChainOf;
using bwp::ListFolder;
using bwp::test::TempFolder;
using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

TEST(FolderListing, SubfoldersAndFilesAreToldApartAndSortedWithoutCase) {
  const TempFolder folder;
  for (const char* name : {"b.bin", "A.bin", "a.bin", "c", ".hidden"}) (void)folder.Write(name, "x");
  for (const char* name : {"sub", "Top"}) fs::create_directory(folder / name);
  const bwp::FolderListing listing = ListFolder(folder.Path());
  EXPECT_EQ(listing.error, 0);
  EXPECT_THAT(listing.folders, ElementsAre("sub", "Top"));
  EXPECT_THAT(listing.files, ElementsAre(".hidden", "A.bin", "a.bin", "b.bin", "c"));
}

TEST(FolderListing, LinksCountAsWhatTheyLeadTo) {
  const TempFolder folder;
  (void)folder.Write("file", "x");
  fs::create_directory(folder / "sub");
  fs::create_symlink("file", folder / "to file");
  fs::create_symlink("sub", folder / "to sub");
  fs::create_symlink("nothing", folder / "broken");
  const bwp::FolderListing listing = ListFolder(folder.Path());
  EXPECT_THAT(listing.folders, ElementsAre("sub", "to sub"));
  EXPECT_THAT(listing.files, ElementsAre("file", "to file"));
}

TEST(FolderListing, PipesAndOtherOddThingsAreLeftOut) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const bwp::FolderListing listing = ListFolder(folder.Path());
  EXPECT_THAT(listing.folders, IsEmpty());
  EXPECT_THAT(listing.files, IsEmpty());
}

TEST(FolderListing, NamesAreBytes) {
  const TempFolder folder;
  const std::string name = "\xFF\x80 a\nb";
  (void)folder.Write(name, "x");
  EXPECT_THAT(ListFolder(folder.Path()).files, ElementsAre(name));
}

TEST(FolderListing, AFolderThatCannotBeReadSaysWhy) {
  const TempFolder folder;
  EXPECT_EQ(ListFolder(folder / "gone/").error, ENOENT);
  EXPECT_EQ(ListFolder(folder.Write("file", "x")).error, ENOTDIR);
}

TEST(FolderListing, TheChainLeadsFromTheRootToTheFolder) {
  EXPECT_THAT(ChainOf("/"), ElementsAre("/"));
  EXPECT_THAT(ChainOf("/home/anna/"), ElementsAre("/", "/home/", "/home/anna/"));
}

TEST(FolderListing, AFullFolderIsAbsoluteAndPlain) {
  EXPECT_EQ(bwp::FullFolder("/a/./b/../c"), "/a/c/");
  EXPECT_EQ(bwp::FullFolder(""), fs::current_path().string() + "/");
  EXPECT_EQ(bwp::FullFolder("sub/"), fs::current_path().string() + "/sub/");
}

TEST(FolderListing, TheNearestReadableFolderIsTheFolderItselfOrOneAboveIt) {
  const TempFolder folder;
  EXPECT_EQ(bwp::NearestReadable(folder.Path()), folder.Path());
  EXPECT_EQ(bwp::NearestReadable(folder / "gone/too/"), folder.Path());
  EXPECT_EQ(bwp::NearestReadable("/no such folder here/"), "/");
}

RC_GTEST_PROP(FolderListing, TheOrderOfNamesIsAStrictOne, (std::vector<std::string> names)) {
  std::sort(names.begin(), names.end(), bwp::NameLess);
  for (std::size_t i = 0; i + 1 < names.size(); ++i) {
    RC_ASSERT(!bwp::NameLess(names[i + 1], names[i]));
    RC_ASSERT(names[i] == names[i + 1] || bwp::NameLess(names[i], names[i + 1]));
  }
}

}  // namespace
