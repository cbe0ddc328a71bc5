#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "splitjoin/part_names.h"
#include "splitjoin/worker_fixture.h"

namespace {

using bwp::test::Names;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using testing::ElementsAre;

class DeletionPass : public bwp::test::SplitJoinWorkerTest {};

TEST_F(DeletionPass, DeletesTheOldPartsUpToTheFirstGap) {
  OpenFileOf(PatternBytes(10));
  for (const char* name : {"part000", "part001", "part003"}) folder.Write(name, "old");
  plan.EnterDecimalSize("10");
  Confirm("del&split", folder / "part000");
  worker.Tick();
  EXPECT_THAT(folder.Names(), ElementsAre("part003"));
  EXPECT_THAT(transcript, ElementsAre("hide Fsel"));
  EXPECT_EQ(job.action, "split");
  EXPECT_TRUE(job.confirmed);
  worker.Tick();
  EXPECT_THAT(folder.Names(), ElementsAre("part000", "part003"));
  EXPECT_FALSE(job.confirmed);
}

TEST_F(DeletionPass, CannotDeleteThePartsOfABaseNameWithoutNumber) {
  OpenFileOf(PatternBytes(10));
  folder.Write("part", "old");
  Confirm("del&split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 5);
  EXPECT_EQ(ReadFile(folder / "part"), "old");
}

TEST_F(DeletionPass, StopsWhereAnOldPartCannotBeDeleted) {
  OpenFileOf(PatternBytes(10));
  folder.Write("part000", "old");
  disk.deleteError = EACCES;
  Confirm("del&split", folder / "part000");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_FALSE(job.confirmed);
}

TEST_F(DeletionPass, RefusesToDeleteTheOpenFileForItsParts) {
  const std::string bytes = PatternBytes(1000);
  bwp::OpenViewFile(state, folder.Write("part000", bytes));
  Confirm("del&split", folder / "part000");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_EQ(ReadFile(folder / "part000"), bytes);
}

TEST_F(DeletionPass, MayDeleteALinkToTheOpenFile) {
  const std::string bytes = PatternBytes(100);
  OpenFileOf(bytes);
  ASSERT_EQ(symlink(state.OpenFile.c_str(), (folder / "part000").c_str()), 0);
  ASSERT_EQ(link(state.OpenFile.c_str(), (folder / "part001").c_str()), 0);
  plan.EnterDecimalSize("60");
  Confirm("del&split", folder / "part000");
  RunToEnd();
  EXPECT_EQ(ReadFile(state.OpenFile), bytes);
  EXPECT_EQ(ReadFile(folder / "part000"), bytes.substr(0, 60));
  EXPECT_EQ(ReadFile(folder / "part001"), bytes.substr(60));
}

TEST_F(DeletionPass, DeletesTheDestinationOnATickOfItsOwn) {
  folder.Write("x.000", "new");
  folder.Write("all", "something longer");
  Confirm("del&join", "\"x.000\"", "all");
  worker.Tick();
  EXPECT_THAT(folder.Names(), ElementsAre("x.000"));
  EXPECT_EQ(job.action, "join");
  EXPECT_TRUE(job.confirmed);
  EXPECT_TRUE(transcript.empty());
  worker.Tick();
  EXPECT_EQ(ReadFile(folder / "all"), "new");
}

TEST_F(DeletionPass, StopsAfterTheLastNumberAndLeavesTheSplitUnconfirmed) {
  OpenFileOf(PatternBytes(10));
  Names all;
  for (int number = 0; number <= 999; ++number) all.push_back(bwp::PartNames{"part", 0, ""}.Name(number));
  for (const std::string& name : all) folder.Write(name, "");
  plan.EnterDecimalSize("10");
  Confirm("del&split", folder / "part000");
  EXPECT_EQ(ErrorOfRun(), 5);
  EXPECT_TRUE(folder.Names().empty());
  EXPECT_FALSE(job.confirmed);
  EXPECT_EQ(job.action, "del&split");
}

TEST_F(DeletionPass, StopsWhenTheDestinationIsGoneSinceTheQuestion) {
  folder.Write("x.000", "new");
  Confirm("del&join", "\"x.000\"", "all");
  EXPECT_EQ(ErrorOfRun(), 53);
  EXPECT_THAT(folder.Names(), ElementsAre("x.000"));
  EXPECT_EQ(ReadFile(folder / "x.000"), "new");
}

TEST_F(DeletionPass, KeepsADestinationThatCannotBeDeleted) {
  folder.Write("x.000", "new");
  folder.Write("all", "old");
  disk.deleteError = EACCES;
  Confirm("del&join", "\"x.000\"", "all");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_EQ(ReadFile(folder / "all"), "old");
  EXPECT_TRUE(transcript.empty());
}

}  // namespace
