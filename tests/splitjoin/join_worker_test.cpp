#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "splitjoin/worker_fixture.h"

namespace {

using bwp::test::Names;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class JoinWorker : public bwp::test::SplitJoinWorkerTest {};

TEST_F(JoinWorker, JoinsTheConsecutiveFilesOfASingleName) {
  for (const char* name : {"x.004", "x.005", "x.006", "x.008"}) folder.Write(name, name);
  Join("\"x.005\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "x.005x.006");
  EXPECT_EQ(state.OpenFile, folder / "all");
  EXPECT_EQ(state.FLen, 10);
  EXPECT_EQ(state.MarkEnd, 9);
  const Names expected{"hide Divide",
                       "caption Joining files",
                       "show",
                       "events",
                       "caption Joining files, step  1 of  2",
                       "label Joining file x.005 to all",
                       "events",
                       "events",
                       "bar 100",
                       "events",
                       "bar 0",
                       "caption Joining files, step  2 of  2",
                       "label Joining file x.006 to all",
                       "events",
                       "events",
                       "bar 100",
                       "events",
                       "bar 0",
                       "hide",
                       "hide Fjoin"};
  ASSERT_GT(transcript.size(), expected.size());
  EXPECT_EQ(Names(transcript.begin(), transcript.begin() + static_cast<std::ptrdiff_t>(expected.size())),
            expected);
  EXPECT_EQ(transcript[expected.size()], "redraw off");
  EXPECT_EQ(Names(transcript.end() - 2, transcript.end()), (Names{"tell Join successful", "clear abort"}));
}

TEST_F(JoinWorker, JoinsPickedFilesInTheirOrder) {
  for (const char* name : {"a", "b", "c"}) folder.Write(name, name);
  Join("\"c\" \"a\" \"b\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "cab");
}

TEST_F(JoinWorker, ShowsTheResultAlthoughAPositionWasBeingTyped) {
  folder.Write("x.000", "new");
  state.FieldTyping = true;
  Join("\"x.000\"", "all");
  EXPECT_THAT(transcript, Contains("window texts"));
}

TEST_F(JoinWorker, JoinsOneFileTwiceWhenItIsPickedTwice) {
  folder.Write("a", "one");
  Join("\"a\" \"a\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "oneone");
}

TEST_F(JoinWorker, NeedsADigitInASingleName) {
  folder.Write("part", "x");
  folder.Write("all", "old");
  Confirm("join", "\"part\"", "all");
  EXPECT_EQ(ErrorOfRun(), 5);
  Confirm("del&join", "\"part\"", "all");
  EXPECT_EQ(ErrorOfRun(), 5);
  EXPECT_EQ(ReadFile(folder / "all"), "old");
}

TEST_F(JoinWorker, CannotNameTheFileAfterNumber999) {
  folder.Write("x.999", "x");
  folder.Write("all", "old");
  Confirm("join", "\"x.999\"", "all");
  EXPECT_EQ(ErrorOfRun(), 5);
  EXPECT_EQ(ReadFile(folder / "all"), "old");
}

TEST_F(JoinWorker, RefusesADestinationThatIsOneOfItsSources) {
  folder.Write("x.000", "zero");
  folder.Write("x.001", "one");
  for (const char* action : {"del&join", "join"}) {
    Confirm(action, "\"x.000\"", "x.001");
    EXPECT_EQ(ErrorOfRun(), 70) << action;
    Confirm(action, "\"x.001\" \"x.000\"", "x.000");
    EXPECT_EQ(ErrorOfRun(), 70) << action;
    Confirm(action, "\"x.000\" \"x.001\"", "./x.001");
    EXPECT_EQ(ErrorOfRun(), 70) << action;
  }
  EXPECT_EQ(ReadFile(folder / "x.000"), "zero");
  EXPECT_EQ(ReadFile(folder / "x.001"), "one");
}

TEST_F(JoinWorker, RefusesADestinationThatWouldReadItself) {
  folder.Write("a", "x");
  Confirm("join", "\"a\" \"all\"", "all");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST_F(JoinWorker, RefusesToJoinOntoTheOpenFile) {
  const std::string bytes = PatternBytes(50);
  bwp::OpenViewFile(state, folder.Write("all", bytes));
  folder.Write("x.000", "new");
  ASSERT_EQ(link((folder / "all").c_str(), (folder / "other").c_str()), 0);
  Confirm("del&join", "\"x.000\"", "all");
  EXPECT_EQ(ErrorOfRun(), 70);
  Confirm("join", "\"x.000\"", "all");
  EXPECT_EQ(ErrorOfRun(), 70);
  Confirm("join", "\"x.000\"", "other");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_EQ(ReadFile(folder / "all"), bytes);
}

TEST_F(JoinWorker, MayJoinTheOpenFileItself) {
  bwp::OpenViewFile(state, folder.Write("a", "one"));
  folder.Write("b", "two");
  Join("\"a\" \"b\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "onetwo");
}

TEST_F(JoinWorker, StopsAtAPickedFileThatIsMissing) {
  folder.Write("a", "one");
  Confirm("join", "\"a\" \"gone\"", "all");
  EXPECT_EQ(ErrorOfRun(), 53);
  EXPECT_EQ(ReadFile(folder / "all"), "one");
}

TEST_F(JoinWorker, StopsAtAnEmptySource) {
  folder.Write("a", "one");
  folder.Write("b", "");
  Confirm("join", "\"a\" \"b\"", "all");
  EXPECT_EQ(ErrorOfRun(), 11);
}

TEST_F(JoinWorker, CannotJoinIntoAFolder) {
  folder.Write("x.000", "one");
  Confirm("join", "\"x.000\"", "./");
  EXPECT_EQ(ErrorOfRun(), 75);
}

TEST_F(JoinWorker, StopsJoiningOnAFullDisk) {
  folder.Write("x.000", "12345");
  folder.Write("x.001", "67890");
  disk.room = 7;
  Confirm("join", "\"x.000\"", "all");
  EXPECT_EQ(ErrorOfRun(), 61);
  EXPECT_EQ(ReadFile(folder / "all"), "1234567");
  EXPECT_EQ(ReadFile(folder / "x.001"), "67890");
}

TEST_F(JoinWorker, ShowsTheOldFileAgainWhenTheResultIsTooLong) {
  OpenFileOf("shown");
  const std::string shown = state.OpenFile;
  disk.holes = true;
  folder.Write("x.000", "");
  folder.Write("x.001", "end");
  ASSERT_EQ(truncate((folder / "x.000").c_str(), 2'147'483'645), 0);
  Join("\"x.000\"", "all");
  struct stat status = {};
  ASSERT_EQ(stat((folder / "all").c_str(), &status), 0);
  EXPECT_EQ(status.st_size, 2'147'483'648);
  EXPECT_EQ(state.OpenFile, shown);
  EXPECT_EQ(state.FLen, 5);
  EXPECT_THAT(transcript,
              Contains("tell [Error !] File is too large (the limit is 2.147.483.647 bytes) (x)"));
  EXPECT_THAT(transcript, Contains("hide Fjoin"));
  EXPECT_THAT(transcript, Contains("redraw off"));
  EXPECT_THAT(transcript, Not(Contains("tell Join successful")));
}

TEST_F(JoinWorker, TakesAbsoluteNamesAsTheyAre) {
  const bwp::test::TempFolder elsewhere;
  elsewhere.Write("x.000", "zero");
  elsewhere.Write("x.001", "one");
  folder.Write("y", "here");
  state.LastFolder = folder.Path();
  bwp::PrepareJoin(job, folder.Path(), '"' + (elsewhere / "x.001") + "\" \"y\"", elsewhere / "all");
  job.confirmed = true;
  RunToEnd();
  EXPECT_EQ(ReadFile(elsewhere / "all"), "onehere");
  EXPECT_THAT(folder.Names(), ElementsAre("y"));
}

TEST_F(JoinWorker, LooksForTheNumberOfAnAbsoluteNameBehindItsFolder) {
  const std::string elsewhere = folder / "2026/";
  ASSERT_EQ(mkdir(elsewhere.c_str(), 0700), 0);
  folder.Write("2026/x.000", "zero");
  folder.Write("2026/x.001", "one");
  folder.Write("2026/x.002", "two");
  Join('"' + elsewhere + "x.001\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "onetwo");
  EXPECT_THAT(transcript, Contains("label Joining file " + elsewhere + "x.002 to all"));
}

TEST_F(JoinWorker, TakesADigitInTheFolderOfARelativeNameForTheNumber) {
  for (const char* const name : {"d1", "d2"}) {
    ASSERT_EQ(mkdir((folder / name).c_str(), 0700), 0);
    folder.Write(std::string(name) + "/x.005", name);
  }
  folder.Write("d1/x.006", "not joined");
  folder.Write("d002.005", "not joined either");
  Join("\"d1/x.005\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "d1not joined either");
}

TEST_F(JoinWorker, GoesOnWithItsJobWhenAnotherIsPreparedMeanwhile) {
  const bwp::test::TempFolder elsewhere;
  folder.Write("x.000", "zero");
  folder.Write("x.001", "one");
  progress.onEvents = [&] {
    bwp::PrepareJoin(job, elsewhere.Path(), "y.000", "other");
    state.LastFolder = elsewhere.Path();
  };
  Join("\"x.000\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "zeroone");
  EXPECT_EQ(state.OpenFile, folder / "all");
  EXPECT_THAT(transcript, Contains("label Joining file x.001 to all"));
  EXPECT_THAT(elsewhere.Names(), IsEmpty());
}

TEST_F(JoinWorker, CannotWriteToAnEmptyDestination) {
  folder.Write("x.000", "one");
  state.LastFolder = folder.Path();
  bwp::PrepareJoin(job, folder.Path(), "x.000", "");
  EXPECT_EQ(job.destination, folder.Path());
  job.confirmed = true;
  EXPECT_EQ(ErrorOfRun(), 75);
  EXPECT_THAT(folder.Names(), ElementsAre("x.000"));
}

}  // namespace
