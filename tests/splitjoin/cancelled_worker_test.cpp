#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "fileops/file_system.h"
#include "splitjoin/worker_fixture.h"

namespace {

using bwp::test::Names;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr auto kBlock = static_cast<std::size_t>(FileSystem::kCopyBlock);

class CancelledWorker : public bwp::test::SplitJoinWorkerTest {};

// Rounds of events: one before the parts, then one before and one after each block of each part. A copy that
// has begun takes one more block; one that begins after the Cancel takes none.
TEST_F(CancelledWorker, KeepsThePartsOfASplitThatIsCancelledAtAnyBlock) {
  constexpr std::size_t kPart = kBlock + kBlock / 4;
  const std::string bytes = PatternBytes(2 * kPart);
  const struct {
    std::size_t written;
    Names parts;
  } expected[] = {{0, {"part.000"}},
                  {kBlock, {"part.000"}},
                  {kBlock, {"part.000"}},
                  {kPart, {"part.000"}},
                  {kPart + kBlock, {"part.000", "part.001"}},
                  {kPart + kBlock, {"part.000", "part.001"}},
                  {2 * kPart, {"part.000", "part.001"}}};
  OpenFileOf(bytes);
  int round = 0;
  for (const auto& [length, parts] : expected) {
    SCOPED_TRACE(++round);
    transcript.clear();
    progress.CancelAtEvents(progress.EventRounds() + round);
    Split("part", kPart);
    EXPECT_EQ(End(3), (Names{"hide", "tell Split aborted", "clear abort"}));
    Names captions{"Split file, step  1 of  2", "Split file, step  2 of  2"};
    captions.resize(parts.size());
    EXPECT_EQ(Captions(), captions);
    EXPECT_FALSE(progress.Aborted());
    EXPECT_EQ(folder.Names(), parts);
    std::string written;
    for (const std::string& name : parts) {
      written += ReadFile(folder / name);
      unlink((folder / name).c_str());
    }
    EXPECT_EQ(written.size(), length);
    EXPECT_TRUE(written == bytes.substr(0, length));
  }
  progress.CancelAtEvents(progress.EventRounds() + round + 1);
  Split("part", kPart);
  EXPECT_EQ(End(3), (Names{"hide", "tell Split successfully completed", "clear abort"}))
      << "seven rounds are all there are";
}

// Rounds of events: one before the files, then for each file one, one before its copy and one after each
// block.
TEST_F(CancelledWorker, LeavesTheOpenFileShownWhenAJoinIsCancelledAtAnyBlock) {
  const std::string bytes = PatternBytes(kBlock + 10);
  const std::size_t whole = bytes.size();
  OpenFileOf("shown");
  const std::string shown = state.OpenFile;
  folder.Write("x.000", bytes);
  folder.Write("x.001", bytes);
  int round = 0;
  for (const std::size_t length : {std::size_t{0}, std::size_t{0}, kBlock, kBlock, whole, whole,
                                   whole + kBlock, whole + kBlock, 2 * whole}) {
    SCOPED_TRACE(++round);
    transcript.clear();
    progress.CancelAtEvents(progress.EventRounds() + round);
    Join("\"x.000\"", "all");
    EXPECT_EQ(End(3), (Names{"hide", "tell Join aborted", "clear abort"}));
    EXPECT_THAT(transcript, Not(Contains("hide Fjoin")));
    EXPECT_THAT(Captions(),
                ElementsAre("Joining files", "Joining files, step  1 of  2", "Joining files, step  2 of  2"));
    EXPECT_EQ(state.OpenFile, shown);
    EXPECT_FALSE(progress.Aborted());
    const std::string written = ReadFile(folder / "all");
    EXPECT_EQ(written.size(), length);
    EXPECT_TRUE(written == (bytes + bytes).substr(0, length));
    unlink((folder / "all").c_str());
  }
  progress.CancelAtEvents(progress.EventRounds() + round + 1);
  Join("\"x.000\"", "all");
  EXPECT_EQ(state.OpenFile, folder / "all") << "nine rounds are all there are";
}

}  // namespace
