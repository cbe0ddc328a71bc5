#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "splitjoin/worker_fixture.h"

namespace {

using bwp::test::Names;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using testing::ElementsAre;

class SplitWorker : public bwp::test::SplitJoinWorkerTest {};

TEST_F(SplitWorker, ReportsEveryStep) {
  OpenFileOf(PatternBytes(1000));
  Split("part", 300);
  EXPECT_THAT(folder.Names(), ElementsAre("part.000", "part.001", "part.002", "part.003"));
  EXPECT_EQ(ReadFile(folder / "part.000"), PatternBytes(1000).substr(0, 300));
  EXPECT_EQ(ReadFile(folder / "part.003"), PatternBytes(1000).substr(900));
  EXPECT_EQ(job.action, "");
  Names expected{"hide Fsel", "show", "bar 0", "events"};
  for (const char* number : {"1", "2", "3", "4"}) {
    const std::string part = std::to_string(std::stoi(number) - 1);
    for (const std::string& line :
         {std::string("caption Split file, step  ") + number + " of  4", "label Creating file part.00" + part,
          std::string("events"), std::string("bar 100"), std::string("events"), std::string("bar 0")}) {
      expected.push_back(line);
    }
  }
  for (const char* line : {"hide", "tell Split successfully completed", "clear abort"})
    expected.emplace_back(line);
  EXPECT_EQ(transcript, expected);
}

TEST_F(SplitWorker, CountsNoStepForAnEmptyRest) {
  OpenFileOf(PatternBytes(1000));
  Split("part", 500);
  EXPECT_THAT(Captions(), ElementsAre("Split file, step  1 of  2", "Split file, step  2 of  2"));
  EXPECT_THAT(folder.Names(), ElementsAre("part.000", "part.001"));
}

TEST_F(SplitWorker, BeginsAtTheNumberOfTheBaseName) {
  OpenFileOf(PatternBytes(1000));
  Split("vol007x.bin", 400);
  EXPECT_THAT(folder.Names(), ElementsAre("vol007x.bin", "vol008x.bin", "vol009x.bin"));
}

TEST_F(SplitWorker, TakesThreeCharactersForTheNumber) {
  OpenFileOf(PatternBytes(1000));
  Split("a5.bin", 500);
  EXPECT_THAT(folder.Names(), ElementsAre("a005in", "a006in"));
}

TEST_F(SplitWorker, ReplacesPartsThatAreThere) {
  OpenFileOf(PatternBytes(10));
  folder.Write("part.000", std::string(5000, 'x'));
  Split("part", 10);
  EXPECT_EQ(ReadFile(folder / "part.000"), PatternBytes(10));
}

TEST_F(SplitWorker, WritesPartsUpToNumber999) {
  OpenFileOf(PatternBytes(1001));
  plan.EnterDecimalSize("1");
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 5);
  EXPECT_EQ(folder.Names().size(), 1000U);
  EXPECT_EQ(ReadFile(folder / "part.999"), PatternBytes(1001).substr(999, 1));
}

TEST_F(SplitWorker, RefusesToSplitOverTheOpenFile) {
  const std::string bytes = PatternBytes(1000);
  bwp::OpenViewFile(state, folder.Write("part.001", bytes));
  plan.EnterDecimalSize("300");
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_EQ(ReadFile(folder / "part.001"), bytes);
  EXPECT_EQ(ReadFile(folder / "part.000"), bytes.substr(0, 300));
}

TEST_F(SplitWorker, RefusesToSplitOverALinkToTheOpenFile) {
  const std::string bytes = PatternBytes(1000);
  OpenFileOf(bytes);
  ASSERT_EQ(symlink(state.OpenFile.c_str(), (folder / "part.000").c_str()), 0);
  plan.EnterDecimalSize("300");
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_EQ(ReadFile(state.OpenFile), bytes);
}

TEST_F(SplitWorker, StopsWhenTheOpenFileGotShorter) {
  OpenFileOf(PatternBytes(1000));
  plan.EnterDecimalSize("300");
  ASSERT_EQ(truncate(state.OpenFile.c_str(), 500), 0);
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 62);
  EXPECT_EQ(ReadFile(folder / "part.000"), PatternBytes(300));
}

TEST_F(SplitWorker, StopsWithoutAPartSize) {
  OpenFileOf(PatternBytes(1000));
  plan.TypeDecimalSize("0");
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 11);
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(SplitWorker, StopsOnAFullDiskWithTheEarlierPartsIntact) {
  const std::string bytes = PatternBytes(1000);
  OpenFileOf(bytes);
  plan.EnterDecimalSize("300");
  disk.room = 700;
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 61);
  EXPECT_EQ(ReadFile(folder / "part.000"), bytes.substr(0, 300));
  EXPECT_EQ(ReadFile(folder / "part.001"), bytes.substr(300, 300));
  EXPECT_EQ(ReadFile(folder / "part.002"), bytes.substr(600, 100));
  EXPECT_EQ(ReadFile(state.OpenFile), bytes);
}

TEST_F(SplitWorker, StopsInAFolderThatTakesNoFile) {
  OpenFileOf(PatternBytes(1000));
  plan.EnterDecimalSize("300");
  disk.openError = EACCES;
  disk.opensBeforeError = 2;
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_THAT(folder.Names(), ElementsAre("part.000", "part.001"));
}

TEST_F(SplitWorker, StopsAtANameThatIsTooLong) {
  OpenFileOf(PatternBytes(1000));
  plan.EnterDecimalSize("300");
  Confirm("split", folder / std::string(260, 'n'));
  EXPECT_EQ(ErrorOfRun(), 52);
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(SplitWorker, StopsInAFolderThatIsNotThere) {
  OpenFileOf(PatternBytes(1000));
  plan.EnterDecimalSize("300");
  Confirm("split", folder / "missing/part");
  EXPECT_EQ(ErrorOfRun(), 76);
}

TEST_F(SplitWorker, TakesADigitInAFoldersNameForTheNumber) {
  ASSERT_EQ(mkdir((folder / "disk2").c_str(), 0700), 0);
  OpenFileOf(PatternBytes(1000));
  Split("disk2/ab", 600);
  EXPECT_THAT(folder.Names(), ElementsAre("disk002b", "disk003b", "disk2")) << "2/a is the number";
  EXPECT_EQ(ReadFile(folder / "disk003b"), PatternBytes(1000).substr(600));
  EXPECT_EQ(rmdir((folder / "disk2").c_str()), 0) << "nothing is written there";
}

TEST_F(SplitWorker, WritesWhereAnAbsoluteBaseNameSays) {
  const bwp::test::TempFolder elsewhere;
  OpenFileOf(PatternBytes(10));
  plan.EnterDecimalSize("6");
  bwp::PrepareSplit(job, folder.Path(), elsewhere / "part");
  job.confirmed = true;
  RunToEnd();
  EXPECT_TRUE(folder.Names().empty());
  EXPECT_THAT(elsewhere.Names(), ElementsAre("part.000", "part.001"));
  EXPECT_EQ(ReadFile(elsewhere / "part.001"), PatternBytes(10).substr(6));
}

}  // namespace
