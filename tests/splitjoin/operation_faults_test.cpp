#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <set>

#include "splitjoin/split_join_worker.h"
#include "support/failing_disk.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"
#include "viewer/run_time_error.h"

// Every call that changes the disk is made to fail once, one after the other, until the job runs through.
// Each time the test checks what must never be lost.
namespace {

using bwp::RunTimeError;
using bwp::test::FailingDisk;
using bwp::test::Fault;
using bwp::test::NameOf;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using Names = std::vector<std::string>;

constexpr Fault kFaults[] = {Fault::kNoSpace, Fault::kDeviceError, Fault::kShortWrite, Fault::kInterrupted,
                             Fault::kNoPermission};
constexpr std::size_t kPartSize = 400;
const Names kParts{"part.000", "part.001", "part.002"};
const Names kSources{"x.000", "x.001"};

const std::string& OpenBytes() {
  static const std::string bytes = PatternBytes(1'000);
  return bytes;
}

std::string PartBytes(std::size_t part) {
  return OpenBytes().substr(part * kPartSize, kPartSize);
}

std::string JoinedBytes() {
  return "first " + PatternBytes(700);
}

class NoWindows : public bwp::SplitJoinWindows {
  void HideDivide() override {}
  void HideFsel() override {}
  void HideFjoin() override {}
};

// One run of a job with one fault.
class Trial {
 public:
  Trial(const std::string& action, int number, Fault fault) : fault_(fault) {
    for (const std::string& name : kSources) folder_.Write(name, SourceBytes(name));
    deletes_ = action.starts_with("del&");
    joins_ = action.ends_with("join");
    if (deletes_) {
      for (const std::string& name : OldFiles()) folder_.Write(name, "old");
    }
    OpenViewFile(state_, sourceFolder_.Write("open", OpenBytes()));
    state_.LastFolder = folder_.Path();
    plan_.EnterDecimalSize(std::to_string(kPartSize));
    job_ = {true, action, joins_ ? "\"x.000\"" : folder_ / "part.000", folder_ / "all"};
    disk_.FailAt(number, fault);
  }

  // The call that failed, without the folder; empty if none did.
  std::string Run() {
    const std::size_t descriptors = OpenDescriptors();
    try {
      while (job_.confirmed) worker_.Tick();
    } catch (const RunTimeError& error) {
      error_ = error;
    }
    SCOPED_TRACE(disk_.Failed());
    EXPECT_EQ(OpenDescriptors(), descriptors);
    CheckReport();
    EXPECT_EQ(ReadFile(sourceFolder_ / "open"), OpenBytes());
    for (const std::string& name : kSources) EXPECT_EQ(ReadFile(folder_ / name), SourceBytes(name));
    joins_ ? CheckJoin() : CheckSplit();
    return FailedCall();
  }

 private:
  static std::string SourceBytes(const std::string& name) {
    return name == "x.000" ? "first " : PatternBytes(700);
  }
  static std::size_t OpenDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
  }
  Names OldFiles() const { return joins_ ? Names{"all"} : Names{"part.000", "part.001"}; }

  std::string FailedCall() const {
    std::string call = disk_.Failed();
    const std::size_t at = call.find(folder_.Path());
    return at == std::string::npos ? call : call.erase(at, folder_.Path().size());
  }

  // If the kernel cannot copy, plain reading and writing takes over; an interruption and a short write are
  // not failures.
  void CheckReport() {
    const bool harmless = fault_ == Fault::kInterrupted || fault_ == Fault::kShortWrite;
    const std::string failed = FailedCall();
    EXPECT_EQ(error_.has_value(), !failed.empty() && failed != "copy range" && !harmless);
    if (!error_) return;
    const int expected = fault_ == Fault::kNoSpace ? 61 : fault_ == Fault::kDeviceError ? 57 : 70;
    EXPECT_EQ(error_->number, expected) << error_->Report();
    EXPECT_TRUE(error_->path.starts_with(folder_.Path())) << error_->Report();
  }

  std::string Told() const {
    const auto told = std::find_if(transcript_.begin(), transcript_.end(),
                                   [](const std::string& line) { return line.starts_with("tell "); });
    return told == transcript_.end() ? "" : told->substr(5);
  }

  // The names in the folder, without the sources of a join.
  Names Written() const {
    Names names = folder_.Names();
    std::erase_if(names, [](const std::string& name) { return name.starts_with("x."); });
    return names;
  }

  void CheckSplit() {
    EXPECT_EQ(state_.OpenFile, sourceFolder_ / "open");
    if (!error_) {
      EXPECT_EQ(Told(), "Split successfully completed");
      EXPECT_EQ(Written(), kParts);
      for (std::size_t part = 0; part < kParts.size(); ++part) {
        EXPECT_EQ(ReadFile(folder_ / kParts[part]), PartBytes(part));
      }
      return;
    }
    EXPECT_EQ(Told(), "");
    if (FailedCall().starts_with("delete ")) {
      CheckOldFiles();
    } else {
      CheckPartsBefore(error_->path);
    }
  }

  // Those before the one that could not be deleted are gone, the others are as they were.
  void CheckOldFiles() {
    Names left = OldFiles();
    std::erase_if(left, [&](const std::string& name) { return folder_ / name < error_->path; });
    EXPECT_EQ(Written(), left);
    for (const std::string& name : left) EXPECT_EQ(ReadFile(folder_ / name), "old");
  }

  // The earlier parts are whole, the one that failed is incomplete or missing, the later ones are missing.
  void CheckPartsBefore(const std::string& failed) {
    const Names written = Written();
    std::size_t part = 0;
    for (; part < kParts.size() && folder_ / kParts[part] != failed; ++part) {
      EXPECT_EQ(ReadFile(folder_ / kParts[part]), PartBytes(part));
    }
    ASSERT_LT(part, kParts.size());
    EXPECT_TRUE(written.size() == part || written.size() == part + 1);
    if (written.size() > part) {
      EXPECT_TRUE(PartBytes(part).starts_with(ReadFile(failed)));
    }
  }

  void CheckJoin() {
    if (!error_) {
      EXPECT_EQ(Told(), "Join successful");
      EXPECT_EQ(ReadFile(folder_ / "all"), JoinedBytes());
      EXPECT_EQ(state_.OpenFile, folder_ / "all");
      return;
    }
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(state_.OpenFile, sourceFolder_ / "open");
    EXPECT_EQ(error_->path, folder_ / "all");
    if (FailedCall().starts_with("delete ")) return CheckOldFiles();
    if (!Written().empty()) {
      EXPECT_TRUE(JoinedBytes().starts_with(ReadFile(folder_ / "all")));
    }
  }

  Fault fault_;
  bool deletes_ = false;
  bool joins_ = false;
  const bwp::test::TempFolder sourceFolder_{"/dev/shm"};
  const bwp::test::TempFolder folder_{"/dev/shm"};
  bwp::test::Transcript transcript_;
  bwp::test::RecordedProgress progress_{transcript_};
  bwp::test::RecordedNotices notices_{transcript_};
  bwp::test::RecordedDisplay display_{transcript_};
  FailingDisk disk_;
  NoWindows windows_;
  bwp::ViewState state_;
  bwp::SplitPlan plan_{state_};
  bwp::SplitJoinJob job_;
  bwp::SplitJoinWorker worker_{state_, {display_, progress_, notices_, disk_}, plan_, job_, windows_};
  std::optional<RunTimeError> error_;
};

std::set<std::string> FailOneCallAfterTheOther(const std::string& action) {
  std::set<std::string> calls;
  for (const Fault fault : kFaults) {
    for (int number = 1;; ++number) {
      SCOPED_TRACE(std::string(NameOf(fault)) + " at call " + std::to_string(number));
      const std::string failed = Trial(action, number, fault).Run();
      if (failed.empty()) break;
      calls.insert(failed);
      if (testing::Test::HasFailure()) return calls;
    }
  }
  // Only some systems copy by themselves.
  calls.erase("write");
  return calls;
}

using Calls = std::set<std::string>;

TEST(EveryFaultOfASplit, IsReportedAndLeavesTheEarlierPartsWhole) {
  EXPECT_EQ(FailOneCallAfterTheOther("split"),
            (Calls{"open part.000", "open part.001", "open part.002", "copy range", "close"}));
}

TEST(EveryFaultOfASplitThatDeletesOldParts, IsReportedAndLeavesTheEarlierPartsWhole) {
  EXPECT_EQ(FailOneCallAfterTheOther("del&split"),
            (Calls{"delete part.000", "delete part.001", "open part.000", "open part.001", "open part.002",
                   "copy range", "close"}));
}

TEST(EveryFaultOfAJoin, IsReportedAndLeavesItsSourcesWhole) {
  EXPECT_EQ(FailOneCallAfterTheOther("join"), (Calls{"open all", "copy range", "close"}));
}

TEST(EveryFaultOfAJoinThatOverwrites, IsReportedAndLeavesItsSourcesWhole) {
  EXPECT_EQ(FailOneCallAfterTheOther("del&join"), (Calls{"delete all", "open all", "copy range", "close"}));
}

}  // namespace
