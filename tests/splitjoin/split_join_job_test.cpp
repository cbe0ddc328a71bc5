#include "splitjoin/split_join_job.h"

#include <gtest/gtest.h>

#include "support/recorders.h"
#include "support/temp_folder.h"

namespace {

using bwp::PrepareJoin;
using bwp::PreparePickedJoin;
using bwp::PrepareSplit;
using bwp::SplitJoinJob;

TEST(PrepareSplit, AsksWhetherToSplit) {
  const bwp::test::TempFolder folder;
  SplitJoinJob job;
  EXPECT_EQ(PrepareSplit(job, folder.Path(), "part000.bin"), "Split current file ?");
  EXPECT_EQ(job.action, "split");
  EXPECT_EQ(job.names, folder / "part000.bin");
  EXPECT_FALSE(job.confirmed);
}

TEST(PrepareSplit, WarnsOfABaseFileThatIsThere) {
  const bwp::test::TempFolder folder;
  const std::string path = folder.Write("part000.bin", "x");
  SplitJoinJob job;
  EXPECT_EQ(PrepareSplit(job, folder.Path(), "part000.bin"),
            "Warning, file " + path +
                " exist, going ahead will delete it and every other files of the previous splitting");
  EXPECT_EQ(job.action, "del&split");
}

TEST(PrepareSplit, VoidsTheAnswerToAnEarlierQuestion) {
  SplitJoinJob job;
  job.confirmed = true;
  PrepareSplit(job, "/some/folder/", "part");
  EXPECT_FALSE(job.confirmed);
}

TEST(PrepareJoin, VoidsTheAnswerToAnEarlierQuestion) {
  SplitJoinJob job;
  job.confirmed = true;
  PrepareJoin(job, "/some/folder/", "a.001", "all");
  EXPECT_FALSE(job.confirmed);
}

TEST(PrepareSplit, LooksForTheBaseNameAsItIsTyped) {
  const bwp::test::TempFolder folder;
  folder.Write("part.000", "x");
  SplitJoinJob job;
  EXPECT_EQ(PrepareSplit(job, folder.Path(), "part"), "Split current file ?");
  EXPECT_EQ(PrepareSplit(job, folder.Path(), ""), "Split current file ?");
  EXPECT_EQ(job.names, folder.Path());
}

TEST(PrepareSplit, TakesAPathFromTheRootAsItIs) {
  SplitJoinJob job;
  EXPECT_EQ(PrepareSplit(job, "/some/folder/", "/other/part"), "Split current file ?");
  EXPECT_EQ(job.names, "/other/part");
  EXPECT_EQ(PrepareJoin(job, "/some/folder/", "a", "/other/all"), "Join files as /other/all ? ");
}

TEST(PrepareJoin, StoresQuotedNamesAndTheDestination) {
  const bwp::test::TempFolder folder;
  SplitJoinJob job;
  EXPECT_EQ(PrepareJoin(job, folder.Path(), "\"c\" \"a\" ", "all"),
            "Join files as " + (folder / "all") + " ? ");
  EXPECT_EQ(job.action, "join");
  EXPECT_EQ(job.names, "\"c\" \"a\"");
  EXPECT_EQ(job.destination, folder / "all");
}

TEST(PrepareJoin, WarnsOfADestinationThatIsThere) {
  const bwp::test::TempFolder folder;
  const std::string path = folder.Write("all", "x");
  SplitJoinJob job;
  EXPECT_EQ(PrepareJoin(job, folder.Path(), "a.001", "all"),
            "Warning, file " + path + " exists, do you want to overwrite ? ");
  EXPECT_EQ(job.action, "del&join");
  EXPECT_EQ(job.names, "\"a.001\"");
}

TEST(PreparePickedJoin, StoresTheNamesInTheirOrder) {
  bwp::test::Transcript told;
  bwp::test::RecordedNotices notices(told);
  SplitJoinJob job;
  EXPECT_EQ(PreparePickedJoin(job, notices, "/some/folder/", {"c", "a b"}, "all"),
            "Join files as /some/folder/all ? ");
  EXPECT_EQ(job.action, "join");
  EXPECT_EQ(job.names, "\"c\" \"a b\"");
  EXPECT_TRUE(told.empty());
}

TEST(PreparePickedJoin, RefusesANameThatHoldsAQuote) {
  bwp::test::Transcript told;
  bwp::test::RecordedNotices notices(told);
  SplitJoinJob job;
  EXPECT_EQ(PreparePickedJoin(job, notices, "/some/folder/", {"a", "12\".001"}, "all"), std::nullopt);
  EXPECT_EQ(told, bwp::test::Transcript{
                      "tell [Error !] A file whose name holds a double quote cannot be joined (x)"});
  EXPECT_EQ(job.action, "");
  EXPECT_EQ(job.names, "");
}

TEST(SplitTitle, NamesTheFileAndTheSizeOfTheParts) {
  EXPECT_EQ(bwp::SplitTitle("/d/f.bin", 300), "Split file: /d/f.bin in chunks of  300 Bytes");
}

}  // namespace
