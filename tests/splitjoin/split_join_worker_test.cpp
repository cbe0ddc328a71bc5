#include "splitjoin/split_join_worker.h"

#include <algorithm>
#include <cerrno>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"
#include "viewer/run_time_error.h"

namespace {

using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::TempFolder;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Names = std::vector<std::string>;

constexpr std::size_t kBlock = 1'048'576;

// A disk that refuses what it is told to.
class FailingDisk : public bwp::Disk {
 public:
  int Delete(const std::string& path) const override {
    if (deleteError == 0) return Disk::Delete(path);
    errno = deleteError;
    return -1;
  }
  int Open(const std::string& path, int flags, mode_t mode) const override {
    if (openError == 0 || --opensBeforeError >= 0) return Disk::Open(path, flags, mode);
    errno = openError;
    return -1;
  }
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) const override {
    if (room < 0) return Disk::Write(descriptor, bytes, count);
    const auto taken = std::min(static_cast<std::size_t>(room), count);
    if (taken == 0) {
      errno = ENOSPC;
      return -1;
    }
    room -= static_cast<ssize_t>(taken);
    return Disk::Write(descriptor, bytes, taken);
  }
  ssize_t CopyRange(int from, int to, std::size_t count) const override {
    if (room >= 0) {
      errno = EXDEV;
      return -1;
    }
    if (!holes) return Disk::CopyRange(from, to, count);
    const off_t end = lseek(to, static_cast<off_t>(count), SEEK_CUR);
    lseek(from, static_cast<off_t>(count), SEEK_CUR);
    return ftruncate(to, end) == 0 ? static_cast<ssize_t>(count) : -1;
  }

  int deleteError = 0;
  int openError = 0;
  mutable int opensBeforeError = 0;
  mutable ssize_t room = -1;  // Bytes that the disk still takes; negative for no end.
  bool holes = false;         // Copies inside the kernel are holes: long files that take no time.
};

class SplitJoinWorker : public testing::Test, protected bwp::SplitJoinWindows {
 protected:
  void HideDivide() override { transcript.push_back("hide Divide"); }
  void HideFsel() override { transcript.push_back("hide Fsel"); }
  void HideFjoin() override { transcript.push_back("hide Fjoin"); }

  // Opens a file of these bytes, outside the folder of the parts.
  void OpenFileOf(const std::string& bytes) { bwp::OpenViewFile(state, sourceFolder.Write("source", bytes)); }

  void Confirm(const std::string& action, const std::string& names, const std::string& destination = {}) {
    job = {true, action, names, destination.empty() ? "" : folder / destination};
    state.LastFolder = folder.Path();
  }
  // Ticks as the timer does until nothing is confirmed any more.
  void RunToEnd() {
    while (job.confirmed) worker.Tick();
  }
  int ErrorOfRun() {
    try {
      RunToEnd();
    } catch (const bwp::RunTimeError& error) {
      return error.number;
    }
    return 0;
  }
  void Split(const std::string& base, std::int64_t partSize) {
    plan.EnterDecimalSize(std::to_string(partSize));
    Confirm("split", folder / base);
    RunToEnd();
  }
  void Join(const std::string& names, const std::string& destination) {
    Confirm("join", names, destination);
    RunToEnd();
  }
  Names Captions() const {
    Names captions;
    for (const std::string& line : transcript) {
      if (line.rfind("caption ", 0) == 0) captions.push_back(line.substr(8));
    }
    return captions;
  }

  TempFolder sourceFolder;
  TempFolder folder;

  bwp::test::Transcript transcript;
  bwp::ViewState state;
  bwp::test::RecordedProgress progress{transcript};
  bwp::test::RecordedNotices notices{transcript};
  bwp::test::RecordedDisplay display{transcript};
  FailingDisk disk;
  bwp::SplitPlan plan{state};
  bwp::SplitJoinJob job;
  bwp::SplitJoinWorker worker{state, {display, progress, notices, disk}, plan, job, *this};
};

TEST_F(SplitJoinWorker, DoesNothingUnconfirmed) {
  job.action = "split";
  worker.Tick();
  EXPECT_TRUE(transcript.empty());
  EXPECT_EQ(job.action, "split");
}

TEST_F(SplitJoinWorker, DoesNothingForNoAction) {
  job.confirmed = true;
  worker.Tick();
  EXPECT_TRUE(transcript.empty());
  EXPECT_FALSE(job.confirmed);
}

TEST_F(SplitJoinWorker, SplitsInStepsThatItTells) {
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

TEST_F(SplitJoinWorker, CountsNoStepForAnEmptyRest) {
  OpenFileOf(PatternBytes(1000));
  Split("part", 500);
  EXPECT_THAT(Captions(), ElementsAre("Split file, step  1 of  2", "Split file, step  2 of  2"));
  EXPECT_THAT(folder.Names(), ElementsAre("part.000", "part.001"));
}

TEST_F(SplitJoinWorker, BeginsAtTheNumberOfTheBaseName) {
  OpenFileOf(PatternBytes(1000));
  Split("vol007x.bin", 400);
  EXPECT_THAT(folder.Names(), ElementsAre("vol007x.bin", "vol008x.bin", "vol009x.bin"));
}

TEST_F(SplitJoinWorker, TakesThreeCharactersForTheNumber) {
  OpenFileOf(PatternBytes(1000));
  Split("a5.bin", 500);
  EXPECT_THAT(folder.Names(), ElementsAre("a005in", "a006in"));
}

TEST_F(SplitJoinWorker, ReplacesPartsThatAreThere) {
  OpenFileOf(PatternBytes(10));
  folder.Write("part.000", std::string(5000, 'x'));
  Split("part", 10);
  EXPECT_EQ(ReadFile(folder / "part.000"), PatternBytes(10));
}

TEST_F(SplitJoinWorker, WritesPartsUpToNumber999) {
  OpenFileOf(PatternBytes(1001));
  plan.EnterDecimalSize("1");
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 5);
  EXPECT_EQ(folder.Names().size(), 1000U);
  EXPECT_EQ(ReadFile(folder / "part.999"), PatternBytes(1001).substr(999, 1));
}

TEST_F(SplitJoinWorker, KeepsThePartsOfASplitThatIsCancelledAtAnyBlock) {
  const std::string bytes = PatternBytes(2 * kBlock + kBlock / 2);
  OpenFileOf(bytes);
  // Rounds of events: the one before the parts, then one before and one after each block of each part.
  for (int round = 1;; ++round) {
    transcript.clear();
    progress.CancelAtEvents(progress.EventRounds() + round);
    const int before = progress.EventRounds();
    Split("part", kBlock + kBlock / 4);
    const bool cancelled = progress.EventRounds() >= before + round;
    EXPECT_THAT(transcript, Contains(cancelled ? "tell Split aborted" : "tell Split successfully completed"));
    EXPECT_FALSE(progress.Aborted());
    EXPECT_FALSE(progress.Visible());
    std::string written;
    for (const std::string& name : folder.Names()) {
      written += ReadFile(folder / name);
      unlink((folder / name).c_str());
    }
    EXPECT_EQ(written, bytes.substr(0, written.size()));
    if (!cancelled) {
      EXPECT_EQ(written.size(), bytes.size());
      EXPECT_EQ(round, 8);
      break;
    }
    EXPECT_LE(written.size(), static_cast<std::size_t>(round) * kBlock);
  }
}

TEST_F(SplitJoinWorker, DeletesTheOldPartsUpToTheFirstGap) {
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

TEST_F(SplitJoinWorker, CannotDeleteThePartsOfABaseNameWithoutNumber) {
  OpenFileOf(PatternBytes(10));
  folder.Write("part", "old");
  Confirm("del&split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 5);
  EXPECT_EQ(ReadFile(folder / "part"), "old");
}

TEST_F(SplitJoinWorker, StopsWhereAnOldPartCannotBeDeleted) {
  OpenFileOf(PatternBytes(10));
  folder.Write("part000", "old");
  disk.deleteError = EACCES;
  Confirm("del&split", folder / "part000");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_FALSE(job.confirmed);
}

TEST_F(SplitJoinWorker, RefusesToSplitOverTheOpenFile) {
  const std::string bytes = PatternBytes(1000);
  bwp::OpenViewFile(state, folder.Write("part.001", bytes));
  plan.EnterDecimalSize("300");
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_EQ(ReadFile(folder / "part.001"), bytes);
  EXPECT_EQ(ReadFile(folder / "part.000"), bytes.substr(0, 300));
}

TEST_F(SplitJoinWorker, RefusesToSplitOverALinkToTheOpenFile) {
  const std::string bytes = PatternBytes(1000);
  OpenFileOf(bytes);
  ASSERT_EQ(symlink(state.OpenFile.c_str(), (folder / "part.000").c_str()), 0);
  plan.EnterDecimalSize("300");
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_EQ(ReadFile(state.OpenFile), bytes);
}

TEST_F(SplitJoinWorker, RefusesToDeleteTheOpenFileForItsParts) {
  const std::string bytes = PatternBytes(1000);
  bwp::OpenViewFile(state, folder.Write("part000", bytes));
  Confirm("del&split", folder / "part000");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_EQ(ReadFile(folder / "part000"), bytes);
}

TEST_F(SplitJoinWorker, MayDeleteALinkToTheOpenFile) {
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

TEST_F(SplitJoinWorker, StopsWhenTheOpenFileGotShorter) {
  OpenFileOf(PatternBytes(1000));
  plan.EnterDecimalSize("300");
  ASSERT_EQ(truncate(state.OpenFile.c_str(), 500), 0);
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 62);
  EXPECT_EQ(ReadFile(folder / "part.000"), PatternBytes(300));
}

TEST_F(SplitJoinWorker, StopsWithoutAPartSize) {
  OpenFileOf(PatternBytes(1000));
  plan.TypeDecimalSize("0");
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 11);
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(SplitJoinWorker, StopsOnAFullDiskWithTheEarlierPartsIntact) {
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

TEST_F(SplitJoinWorker, StopsInAFolderThatTakesNoFile) {
  OpenFileOf(PatternBytes(1000));
  plan.EnterDecimalSize("300");
  disk.openError = EACCES;
  disk.opensBeforeError = 2;
  Confirm("split", folder / "part");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_THAT(folder.Names(), ElementsAre("part.000", "part.001"));
}

TEST_F(SplitJoinWorker, StopsAtANameThatIsTooLong) {
  OpenFileOf(PatternBytes(1000));
  plan.EnterDecimalSize("300");
  Confirm("split", folder / std::string(260, 'n'));
  EXPECT_EQ(ErrorOfRun(), 52);
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(SplitJoinWorker, StopsInAFolderThatIsNotThere) {
  OpenFileOf(PatternBytes(1000));
  plan.EnterDecimalSize("300");
  Confirm("split", folder / "missing/part");
  EXPECT_EQ(ErrorOfRun(), 76);
}

TEST_F(SplitJoinWorker, JoinsTheConsecutiveFilesOfASingleName) {
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

TEST_F(SplitJoinWorker, JoinsPickedFilesInTheirOrder) {
  for (const char* name : {"a", "b", "c"}) folder.Write(name, name);
  Join("\"c\" \"a\" \"b\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "cab");
}

TEST_F(SplitJoinWorker, ShowsTheResultAlthoughAPositionWasBeingTyped) {
  folder.Write("x.000", "new");
  state.FieldTyping = true;
  Join("\"x.000\"", "all");
  EXPECT_THAT(transcript, Contains("window texts"));
}

TEST_F(SplitJoinWorker, JoinsOneFileTwiceWhenItIsPickedTwice) {
  folder.Write("a", "one");
  Join("\"a\" \"a\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "oneone");
}

TEST_F(SplitJoinWorker, NeedsADigitInASingleName) {
  folder.Write("part", "x");
  folder.Write("all", "old");
  Confirm("join", "\"part\"", "all");
  EXPECT_EQ(ErrorOfRun(), 5);
  Confirm("del&join", "\"part\"", "all");
  EXPECT_EQ(ErrorOfRun(), 5);
  EXPECT_EQ(ReadFile(folder / "all"), "old");
}

TEST_F(SplitJoinWorker, CannotNameTheFileAfterNumber999) {
  folder.Write("x.999", "x");
  folder.Write("all", "old");
  Confirm("join", "\"x.999\"", "all");
  EXPECT_EQ(ErrorOfRun(), 5);
  EXPECT_EQ(ReadFile(folder / "all"), "old");
}

TEST_F(SplitJoinWorker, DeletesTheDestinationOnATickOfItsOwn) {
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

TEST_F(SplitJoinWorker, RefusesADestinationThatIsOneOfItsSources) {
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

TEST_F(SplitJoinWorker, RefusesADestinationThatWouldReadItself) {
  folder.Write("a", "x");
  Confirm("join", "\"a\" \"all\"", "all");
  EXPECT_EQ(ErrorOfRun(), 70);
  EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST_F(SplitJoinWorker, RefusesToJoinOntoTheOpenFile) {
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

TEST_F(SplitJoinWorker, MayJoinTheOpenFileItself) {
  bwp::OpenViewFile(state, folder.Write("a", "one"));
  folder.Write("b", "two");
  Join("\"a\" \"b\"", "all");
  EXPECT_EQ(ReadFile(folder / "all"), "onetwo");
}

TEST_F(SplitJoinWorker, StopsAtAPickedFileThatIsMissing) {
  folder.Write("a", "one");
  Confirm("join", "\"a\" \"gone\"", "all");
  EXPECT_EQ(ErrorOfRun(), 53);
  EXPECT_EQ(ReadFile(folder / "all"), "one");
}

TEST_F(SplitJoinWorker, StopsAtAnEmptySource) {
  folder.Write("a", "one");
  folder.Write("b", "");
  Confirm("join", "\"a\" \"b\"", "all");
  EXPECT_EQ(ErrorOfRun(), 11);
}

TEST_F(SplitJoinWorker, CannotJoinIntoAFolder) {
  folder.Write("x.000", "one");
  Confirm("join", "\"x.000\"", "./");
  EXPECT_EQ(ErrorOfRun(), 75);
}

TEST_F(SplitJoinWorker, StopsJoiningOnAFullDisk) {
  folder.Write("x.000", "12345");
  folder.Write("x.001", "67890");
  disk.room = 7;
  Confirm("join", "\"x.000\"", "all");
  EXPECT_EQ(ErrorOfRun(), 61);
  EXPECT_EQ(ReadFile(folder / "all"), "1234567");
  EXPECT_EQ(ReadFile(folder / "x.001"), "67890");
}

TEST_F(SplitJoinWorker, LeavesTheOpenFileShownWhenAJoinIsCancelledAtAnyBlock) {
  const std::string bytes = PatternBytes(kBlock + 10);
  OpenFileOf("shown");
  const std::string shown = state.OpenFile;
  folder.Write("x.000", bytes);
  folder.Write("x.001", bytes);
  // The event rounds of a whole join: one, then one a file, one before its copy and one a block.
  for (int round = 1; round <= 9; ++round) {
    transcript.clear();
    progress.CancelAtEvents(progress.EventRounds() + round);
    Join("\"x.000\"", "all");
    EXPECT_THAT(transcript, Contains("tell Join aborted"));
    EXPECT_THAT(transcript, Not(Contains("hide Fjoin")));
    EXPECT_THAT(Captions(),
                ElementsAre("Joining files", "Joining files, step  1 of  2", "Joining files, step  2 of  2"));
    EXPECT_EQ(state.OpenFile, shown);
    EXPECT_FALSE(progress.Aborted());
    const std::string written = ReadFile(folder / "all");
    EXPECT_EQ(written, (bytes + bytes).substr(0, written.size()));
    unlink((folder / "all").c_str());
  }
  progress.CancelAtEvents(progress.EventRounds() + 10);
  Join("\"x.000\"", "all");
  EXPECT_EQ(state.OpenFile, folder / "all") << "nine rounds are all there are";
}

TEST_F(SplitJoinWorker, ShowsTheOldFileAgainWhenTheResultIsTooLong) {
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

TEST_F(SplitJoinWorker, IgnoresTicksThatComeWhileItWorks) {
  OpenFileOf(PatternBytes(1000));
  int ticks = 0;
  progress.onEvents = [this, &ticks] {
    worker.Tick();
    ++ticks;
  };
  Split("part", 300);
  EXPECT_EQ(ticks, 9);
  EXPECT_EQ(folder.Names().size(), 4U);
}

RC_GTEST_FIXTURE_PROP(SplitJoinWorker, JoinsWhatItSplit, ()) {
  const auto size = *rc::gen::inRange<std::size_t>(1, 5000);
  const auto partSize = *rc::gen::inRange<std::int64_t>(static_cast<std::int64_t>(size / 900) + 1, 6000);
  const std::string bytes = PatternBytes(size);
  OpenFileOf(bytes);
  Split("part", partSize);
  for (const std::string& name : folder.Names()) RC_ASSERT(ReadFile(folder / name).size() <= 6000U);
  Join("\"part.000\"", "all");
  RC_ASSERT(ReadFile(folder / "all") == bytes);
  RC_ASSERT(state.FLen == static_cast<std::int64_t>(size));
}

}  // namespace
