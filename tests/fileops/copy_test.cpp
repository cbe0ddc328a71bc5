#include <gtest/gtest.h>

#include "fileops/buffer_operations.h"
#include "support/workplace.h"

namespace {

using bwp::CopyChunk;
using bwp::test::ErrorOf;
using bwp::test::PatternBytes;
using bwp::test::Transcript;
using bwp::test::Workplace;

constexpr std::size_t kBlock = 1'048'576;
constexpr const char* kMemory = "/dev/shm";  // Where many rounds do not wear out a disk.

TEST(Copy, SeeksMarkStartThenReadsTheChunk) {
  Workplace place("0123456789");
  place.Mark(3, 5);
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.Story(),
            (Transcript{"caption Seeking MarkStart", "label Wait please", "show", "events", "bar 100",
                        "events", "caption Copy", "label Copying Chunk to Buffer", "events", "bar 100",
                        "events", "bar 0", "hide", "refresh", "clear abort"}));
  EXPECT_EQ(place.state.BufferData, "345");
  EXPECT_FALSE(place.state.BufferIsCut);
  EXPECT_EQ(place.Bytes(), "0123456789");
}

TEST(Copy, FromTheVeryStartSkipsNothing) {
  Workplace place("0123456789");
  place.Mark(0, 9);
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.Story(), (Transcript{"caption Seeking MarkStart", "label Wait please", "show", "events",
                                       "caption Copy", "label Copying Chunk to Buffer", "events", "bar 100",
                                       "events", "bar 0", "hide", "refresh", "clear abort"}));
  EXPECT_EQ(place.state.BufferData, "0123456789");
}

TEST(Copy, LeavesMarksAndPageStartAlone) {
  Workplace place(PatternBytes(5000));
  place.Mark(700, 4000);
  place.state.SWStart = 1024;
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.state.MarkStart, 700);
  EXPECT_EQ(place.state.MarkEnd, 4000);
  EXPECT_EQ(place.state.SWStart, 1024);
}

TEST(Copy, TakesEveryByteValue) {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  Workplace place(bytes);
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.state.BufferData, bytes);
}

TEST(Copy, CancelledAtAnyMomentKeepsTheBuffer) {
  const std::string bytes = PatternBytes(3 * kBlock + 5);
  for (int round = 1;; ++round) {
    Workplace place(bytes, Workplace::RealDisk(), kMemory, kMemory);
    place.Mark(kBlock + 1, static_cast<std::int64_t>(bytes.size()) - 1);
    place.state.BufferData = "before";
    place.state.BufferIsCut = true;
    place.progress.CancelAtEvents(round);
    CopyChunk(place.state, place.services);
    const bool cancelled = place.progress.EventRounds() >= round;
    const Transcript story = place.Story();
    EXPECT_FALSE(place.progress.Aborted());
    EXPECT_FALSE(place.progress.Visible());
    EXPECT_EQ(place.Bytes(), bytes);
    if (!cancelled) {
      EXPECT_EQ(place.state.BufferData, bytes.substr(kBlock + 1));
      EXPECT_GE(round, 6);
      break;
    }
    EXPECT_EQ(Transcript(story.end() - 5, story.end()),
              (Transcript{"bar 0", "hide", "tell Copy aborted", "refresh", "clear abort"}));
    EXPECT_EQ(place.state.BufferData, "before");
    EXPECT_TRUE(place.state.BufferIsCut);

    CopyChunk(place.state, place.services);
    EXPECT_EQ(place.state.BufferData, bytes.substr(kBlock + 1));
  }
}

TEST(Copy, TakesTheBytesThatAreThereWhenMarkEndLiesPastTheEnd) {
  Workplace place("0123456789");
  place.Mark(8, 20);
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.state.BufferData, "89");
  EXPECT_EQ(place.state.MarkEnd, 20);
}

TEST(Copy, OfAChunkPastTheEndTellsAndChangesNothing) {
  for (const std::string bytes : {"0123456789", ""}) {
    Workplace place(bytes);
    place.Mark(10, 12);
    place.state.BufferData = "before";
    CopyChunk(place.state, place.services);
    EXPECT_EQ(place.Story(), Transcript{"tell [Error !] The chunk holds no byte of the file (x)"});
    EXPECT_EQ(place.state.BufferData, "before");
  }
}

TEST(Copy, OfAFileThatAnotherProgramCutShortTellsAndShowsItAnew) {
  Workplace place(PatternBytes(2000));
  place.Mark(100, 1999);
  place.folder.Write("data", "short");
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.Story(),
            (Transcript{"tell [Error !] The file was changed by another program (x)", "refresh"}));
  EXPECT_EQ(place.state.FLen, 5);
  EXPECT_EQ(place.state.BufferData, "");
}

TEST(Copy, OfAFileThatGrewTakesTheChunk) {
  Workplace place("0123456789");
  place.Mark(2, 4);
  place.folder.Write("data", "0123456789abc");
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.state.BufferData, "234");
}

TEST(Copy, OfAFileThatShrinksMeanwhileIsError62) {
  Workplace place(PatternBytes(2 * kBlock));
  place.state.BufferData = "before";
  place.progress.onEvents = [&] { place.folder.Write("data", "short"); };
  const bwp::RunTimeError error = ErrorOf([&] { CopyChunk(place.state, place.services); });
  EXPECT_EQ(error.number, 62);
  EXPECT_EQ(error.path, place.state.OpenFile);
  EXPECT_EQ(place.state.BufferData, "before");
}

}  // namespace
