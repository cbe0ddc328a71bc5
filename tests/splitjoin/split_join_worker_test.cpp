#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "splitjoin/worker_fixture.h"

namespace {

using bwp::test::Names;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;

class SplitJoinWorker : public bwp::test::SplitJoinWorkerTest {};

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
  // Every part is as long as the plan says; only the last one may be shorter, and it is never empty.
  const auto whole = std::min(static_cast<std::size_t>(partSize), size);
  const Names parts = folder.Names();
  RC_ASSERT(parts.size() == (size + whole - 1) / whole);
  for (const std::string& name : parts) {
    const std::size_t length = ReadFile(folder / name).size();
    const bool last = name == parts.back();
    RC_ASSERT(length <= whole);
    RC_ASSERT(length >= (last ? 1 : whole));
  }
  Join("\"part.000\"", "all");
  RC_ASSERT(ReadFile(folder / "all") == bytes);
  RC_ASSERT(state.FLen == static_cast<std::int64_t>(size));
}

}  // namespace
