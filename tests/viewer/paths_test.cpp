#include "viewer/paths.h"

#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/temp_folder.h"

namespace {

TEST(Paths, FolderAndNameMeetAtTheLastSeparator) {
  EXPECT_EQ(funzioni::FolderOf("/a/b/c"), "/a/b/");
  EXPECT_EQ(funzioni::NameOf("/a/b/c"), "c");
  EXPECT_EQ(funzioni::FolderOf("/a/b/"), "/a/b/");
  EXPECT_EQ(funzioni::NameOf("/a/b/"), "");
  EXPECT_EQ(funzioni::FolderOf("name"), "");
  EXPECT_EQ(funzioni::NameOf("name"), "name");
  EXPECT_EQ(funzioni::FolderOf("/"), "/");
  EXPECT_EQ(funzioni::NameOf(""), "");
}

TEST(Paths, AFolderEndsWithOneSeparator) {
  EXPECT_EQ(funzioni::WithSeparator("/a"), "/a/");
  EXPECT_EQ(funzioni::WithSeparator("/a/"), "/a/");
  EXPECT_EQ(funzioni::WithSeparator("/"), "/");
}

TEST(Paths, NoFolderIsTheOneWeAreIn) {
  EXPECT_EQ(funzioni::FolderOrHere(""), ".");
  EXPECT_EQ(funzioni::FolderOrHere("/a/"), "/a/");
  EXPECT_EQ(funzioni::FolderOrHere(funzioni::FolderOf("name")), ".");
}

TEST(Paths, AResolvedPathHasNoLinksAndLeadsSomewhere) {
  const bwp::test::TempFolder folder;
  const std::string file = folder.Write("file \xFF", "x");
  ASSERT_EQ(symlink("file \xFF", (folder / "link").c_str()), 0);
  const std::string real = std::filesystem::canonical(folder.Path()).string() + "/file \xFF";
  EXPECT_EQ(funzioni::ResolvedPath(file), real);
  EXPECT_EQ(funzioni::ResolvedPath(folder / "link"), real);
  EXPECT_EQ(funzioni::ResolvedPath(folder / "missing"), std::nullopt);
  EXPECT_EQ(errno, ENOENT);
}

TEST(Paths, ATypedNameIsMeantForTheFolderUnlessItStartsAtTheRoot) {
  EXPECT_EQ(funzioni::PathIn("/home/anna/", "a.bin"), "/home/anna/a.bin");
  EXPECT_EQ(funzioni::PathIn("/home/anna/", "sub/a.bin"), "/home/anna/sub/a.bin");
  EXPECT_EQ(funzioni::PathIn("/home/anna/", "/tmp/a.bin"), "/tmp/a.bin");
  EXPECT_EQ(funzioni::PathIn("/home/anna/", ""), "/home/anna/");
}

TEST(Paths, ACommandLinePathLosesItsQuotes) {
  EXPECT_EQ(funzioni::CommandLinePath("\"/a file\""), "/a file");
  EXPECT_EQ(funzioni::CommandLinePath("/a file"), "/a file");
  EXPECT_EQ(funzioni::CommandLinePath(""), "");
}

TEST(FolderExists, IsTrueForAFolderAndALinkToOne) {
  const bwp::test::TempFolder folder;
  EXPECT_TRUE(funzioni::FolderExists(folder.Path()));
  EXPECT_FALSE(funzioni::FolderExists(folder.Write("file", "x")));
  EXPECT_FALSE(funzioni::FolderExists(folder / "missing"));
  ASSERT_EQ(symlink(".", (folder / "link").c_str()), 0);
  EXPECT_TRUE(funzioni::FolderExists(folder / "link"));
}

TEST(FileExists, IsTrueForRegularFilesAlone) {
  const bwp::test::TempFolder folder;
  const std::string file = folder.Write("file \xFF", "x");
  EXPECT_TRUE(funzioni::FileExists(file));
  EXPECT_FALSE(funzioni::FileExists(folder.Path()));
  EXPECT_FALSE(funzioni::FileExists(folder / "missing"));
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(funzioni::FileExists(folder / "pipe"));
  ASSERT_EQ(symlink(file.c_str(), (folder / "link").c_str()), 0);
  EXPECT_TRUE(funzioni::FileExists(folder / "link"));
  ASSERT_EQ(symlink("nowhere", (folder / "dangling").c_str()), 0);
  EXPECT_FALSE(funzioni::FileExists(folder / "dangling"));
}

}  // namespace
