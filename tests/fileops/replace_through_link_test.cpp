#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fileops/replace_file.h"
#include "fileops/replace_fixture.h"

// What a cut does where the file was opened by a link.
namespace {

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

const std::string& kBytes = MarkedFile::kBytes;
const std::string& kRest = MarkedFile::kRest;

class ReplaceThroughLink : public testing::TestWithParam<const char*> {};
class ReplaceThroughLinkAsRoot : public bwp::test::AsRoot {};

TEST_P(ReplaceThroughLink, KeepsTheLinkAndReplacesItsTarget) {
  Place place(GetParam());
  std::filesystem::create_directory(place.folder / "links");
  std::filesystem::create_symlink("../data", place.folder / "links/inner");
  std::filesystem::create_symlink("links/inner", place.folder / "outer");
  place.Open(place.folder / "outer");
  place.Cut();
  EXPECT_EQ(ReadFile(place.data), kRest);
  EXPECT_EQ(place.state.OpenFile, place.folder / "outer");
  EXPECT_EQ(std::filesystem::read_symlink(place.folder / "outer"), "links/inner");
  EXPECT_EQ(std::filesystem::read_symlink(place.folder / "links/inner"), "../data");
  EXPECT_EQ(place.folder.Names(), (Names{"data", "links", "outer"}));
}

TEST_P(ReplaceThroughLink, OnAnotherDiskRecoversBesideTheLink) {
  Place place(GetParam());
  const TempFolder links(kMemory);
  std::filesystem::create_symlink(place.data, links / "link");
  const TempFolder elsewhere(kOnDisk);
  const std::string mounted = elsewhere.Write("mounted", kBytes);
  InOwnMounts([&] {
    bwp::test::MountOnto(mounted, place.data);
    place.Open(links / "link");
    place.Cut();
    ExpectRecovery(place, links / "link");
    EXPECT_EQ(links.Names(), (Names{"link", "link.new"}));
    EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
  });
}

// A file in a folder that takes no new names from the user, opened by a link in one of the user's own.
struct LinkedPlace : Place {
  LinkedPlace(const std::string& temporaryUnder, const std::string& linkUnder)
      : Place(temporaryUnder), links(linkUnder) {
    std::filesystem::create_symlink(data, links / "link");
    EXPECT_EQ(chmod(folder.Path().c_str(), 0555), 0);
    for (const std::string& own : {links.Path(), temporary.Path()}) {
      EXPECT_EQ(chown(own.c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
    }
  }
  void OpenAsNobody() {
    bwp::test::BecomeNobody();
    Open(links / "link");
  }

  const TempFolder links;
};

TEST_P(ReplaceThroughLinkAsRoot, IntoAFolderThatTakesNoNewNamesRecoversBesideTheLink) {
  for (const char* const linkUnder : {kOnDisk, kMemory}) {
    LinkedPlace place(GetParam(), linkUnder);
    InChild([&] {
      place.OpenAsNobody();
      place.Cut();
      ExpectRecovery(place, place.links / "link");
      EXPECT_EQ(place.links.Names(), (Names{"link", "link.new"}));
      EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
    });
  }
}

TEST_P(ReplaceThroughLinkAsRoot, IntoAFolderThatTakesNoNewNamesIsError58WhenTheNewNameIsTaken) {
  LinkedPlace place(GetParam(), kOnDisk);
  place.links.Write("link.new", "taken");
  InChild([&] {
    place.OpenAsNobody();
    EXPECT_EQ(ErrorOf([&] { place.Cut(); }).number, 58);
    EXPECT_EQ(ReadFile(place.temporary / place.temporary.Names().at(0)), kRest);
    EXPECT_EQ(ReadFile(place.links / "link.new"), "taken");
    EXPECT_EQ(ReadFile(place.data), kBytes);
    EXPECT_EQ(place.links.Names(), (Names{"link", "link.new"}));
  });
}

TEST_P(ReplaceThroughLinkAsRoot, BetweenFoldersThatTakeNoNewNamesIsError70) {
  LinkedPlace place(GetParam(), kOnDisk);
  ASSERT_EQ(chmod(place.links.Path().c_str(), 0555), 0);
  InChild([&] {
    place.OpenAsNobody();
    const bwp::RunTimeError error = ErrorOf([&] { place.Cut(); });
    EXPECT_EQ(error.number, 70);
    EXPECT_EQ(error.path, place.folder / "");
    EXPECT_EQ(ReadFile(place.data), kBytes);
    EXPECT_EQ(place.state.BufferData, "");
    EXPECT_EQ(place.temporary.Names(), kNothing);
  });
}

TEST_P(ReplaceThroughLinkAsRoot, OnAnotherDiskInAFolderThatTakesNoNewNamesIsError70) {
  Place place(GetParam());
  const TempFolder links(kMemory);
  std::filesystem::create_symlink(place.data, links / "link");
  ASSERT_EQ(chmod(links.Path().c_str(), 0555), 0);
  const TempFolder elsewhere(kOnDisk);
  const std::string mounted = elsewhere.Write("mounted", kBytes);
  for (const std::string& own : {place.folder.Path(), place.temporary.Path(), mounted}) {
    ASSERT_EQ(chown(own.c_str(), bwp::test::kNobody, bwp::test::kNobody), 0);
  }
  InOwnMounts([&] {
    bwp::test::MountOnto(mounted, place.data);
    bwp::test::BecomeNobody();
    place.Open(links / "link");
    const bwp::RunTimeError error = ErrorOf([&] { place.Cut(); });
    EXPECT_EQ(error.number, 70);
    EXPECT_EQ(error.path, links / "link.new");
    EXPECT_EQ(ReadFile(place.data), kBytes);
    EXPECT_EQ(place.folder.Names(), kOnlyTheFile);
  });
}

INSTANTIATE_TEST_SUITE_P(OnOneFileSystem, ReplaceThroughLink, testing::Values(kOnDisk));
INSTANTIATE_TEST_SUITE_P(AcrossTwoFileSystems, ReplaceThroughLink, testing::Values(kMemory));
INSTANTIATE_TEST_SUITE_P(OnOneFileSystem, ReplaceThroughLinkAsRoot, testing::Values(kOnDisk));
INSTANTIATE_TEST_SUITE_P(AcrossTwoFileSystems, ReplaceThroughLinkAsRoot, testing::Values(kMemory));

}  // namespace
