#include "viewer/view_file.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "support/temp_folder.h"
#include "viewer/run_time_error.h"

namespace {

class ViewFileTest : public testing::Test {
 protected:
  int ErrorOfOpening(const std::string& path) {
    try {
      file.Open(path);
    } catch (const bwp::RunTimeError& error) {
      EXPECT_EQ(error.path, path);
      EXPECT_FALSE(file.IsOpen());
      return error.number;
    }
    return 0;
  }

  std::string Read(std::int64_t offset, std::size_t count) {
    std::string bytes(count, '?');
    bytes.resize(file.ReadAt(offset, bytes.data(), count));
    return bytes;
  }

  bwp::test::TempFolder folder;
  bwp::ViewFile file;
};

TEST_F(ViewFileTest, ReadsAtAnyPlace) {
  file.Open(folder.Write("file", "0123456789"));
  EXPECT_TRUE(file.IsOpen());
  EXPECT_EQ(file.Length(), 10);
  EXPECT_EQ(Read(0, 4), "0123");
  EXPECT_EQ(Read(7, 3), "789");
  EXPECT_EQ(Read(2, 0), "");
}

TEST_F(ViewFileTest, ReadsLessOnlyAtTheEnd) {
  file.Open(folder.Write("file", "0123456789"));
  EXPECT_EQ(Read(8, 100), "89");
  EXPECT_EQ(Read(10, 1), "");
  EXPECT_EQ(Read(1000, 1), "");
}

TEST_F(ViewFileTest, ReadsTheLastByteOfTheLongestFile) {
  const std::string path = folder.Write("file", "");
  ASSERT_EQ(truncate(path.c_str(), bwp::kMaxFileLength), 0);
  file.Open(path);
  EXPECT_EQ(file.Length(), bwp::kMaxFileLength);
  EXPECT_EQ(Read(bwp::kMaxFileLength - 1, 5), std::string(1, '\0'));
}

TEST_F(ViewFileTest, OpensRegularFilesAlone) {
  EXPECT_EQ(ErrorOfOpening(folder / "missing"), bwp::kFileNotFound);
  EXPECT_EQ(ErrorOfOpening(folder / "missing/file"), bwp::kPathNotFound);
  EXPECT_EQ(ErrorOfOpening(folder.Path()), bwp::kPathFileAccess);
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(ErrorOfOpening(folder / "pipe"), bwp::kPathFileAccess);
}

TEST_F(ViewFileTest, OpeningAnotherFileClosesTheFirst) {
  file.Open(folder.Write("a", "aaa"));
  const bwp::FileIdentity first = file.Identity();
  file.Open(folder.Write("b", "bb"));
  EXPECT_EQ(Read(0, 9), "bb");
  EXPECT_NE(file.Identity(), first);
  file.Close();
  EXPECT_FALSE(file.IsOpen());
  file.Close();
}

TEST_F(ViewFileTest, MovingHandsTheFileOver) {
  file.Open(folder.Write("a", "aaa"));
  bwp::ViewFile other(std::move(file));
  EXPECT_EQ(other.Length(), 3);
  file = std::move(other);
  EXPECT_EQ(Read(0, 9), "aaa");
}

TEST_F(ViewFileTest, ReadingAClosedFileIsABadFile) {
  char byte = 0;
  try {
    file.ReadAt(0, &byte, 1);
    FAIL() << "no error";
  } catch (const bwp::RunTimeError& error) {
    EXPECT_EQ(error.number, bwp::kBadFileName);
  }
}

TEST_F(ViewFileTest, IdentityTellsFilesApartWhateverTheirNames) {
  const std::string path = folder.Write("a", "aaa");
  const std::string other = folder.Write("b", "aaa");
  std::filesystem::create_hard_link(path, folder / "hard");
  std::filesystem::create_symlink(path, folder / "link");
  file.Open(path);
  EXPECT_EQ(bwp::IdentityOf(path), file.Identity());
  EXPECT_EQ(bwp::IdentityOf(folder / "hard"), file.Identity());
  EXPECT_EQ(bwp::IdentityOf(folder / "link"), file.Identity());
  EXPECT_NE(bwp::IdentityOf(folder / "link", false), file.Identity());
  EXPECT_NE(bwp::IdentityOf(other), file.Identity());
  EXPECT_EQ(bwp::IdentityOf(folder / "missing"), std::nullopt);
}

}  // namespace
