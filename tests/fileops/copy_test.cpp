#include <gtest/gtest.h>
#include <memory>

#include "fileops/buffer_operations.h"
#include "fileops/file_system.h"
#include "support/cancelling.h"
#include "support/errors.h"
#include "support/workplace.h"

namespace {

using bwp::CopyChunk;
using bwp::test::EndOf;
using bwp::test::ErrorOf;
using bwp::test::kMemory;
using bwp::test::PatternBytes;
using bwp::test::Transcript;
using bwp::test::Workplace;

constexpr auto kBlock = static_cast<std::size_t>(FileSystem::kCopyBlock);

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

TEST(Copy, TakesTheChunkThatWasMarkedWhenItBegan) {
  Workplace place("0123456789");
  place.Mark(3, 5);
  place.progress.onEvents = [&place] { place.Mark(1, 8); };
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.state.BufferData, "345");
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
  const bwp::test::Cancelling<Workplace> copy{
      .make =
          [&] {
            auto place = std::make_unique<Workplace>(bytes, Workplace::RealDisk(), kMemory, kMemory);
            place->Mark(kBlock + 1, static_cast<std::int64_t>(bytes.size()) - 1);
            place->state.BufferData = "before";
            place->state.BufferIsCut = true;
            return place;
          },
      .run = [](Workplace& place) { CopyChunk(place.state, place.services); },
      .expectCancelled =
          [&](Workplace& place, const Transcript& story) {
            EXPECT_EQ(EndOf(story, 5),
                      (Transcript{"bar 0", "hide", "tell Copy aborted", "refresh", "clear abort"}));
            EXPECT_TRUE(place.Bytes() == bytes);
            EXPECT_EQ(place.state.BufferData, "before");
            EXPECT_TRUE(place.state.BufferIsCut);
          },
      .expectDone =
          [&](Workplace& place) {
            EXPECT_TRUE(place.Bytes() == bytes);
            EXPECT_TRUE(place.state.BufferData == bytes.substr(kBlock + 1));
            EXPECT_FALSE(place.state.BufferIsCut);
          }};
  // The window, the two blocks of the skip, the second step and its three blocks.
  EXPECT_EQ(CancelInEveryRound(copy), 7);
}

TEST(Copy, CancelledInTheSkipStillAnnouncesTheCopy) {
  Workplace place(PatternBytes(3 * kBlock));
  place.Mark(2 * kBlock, 3 * kBlock - 1);
  place.progress.CancelAtEvents(2);
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.Story(),
            (Transcript{"caption Seeking MarkStart", "label Wait please", "show", "events", "bar 50",
                        "events", "caption Copy", "label Copying Chunk to Buffer", "events", "bar 0", "hide",
                        "tell Copy aborted", "refresh", "clear abort"}));
  EXPECT_EQ(place.state.BufferData, "");
}

TEST(Copy, OfAFewBytesGivesBackTheMemoryOfALargeBuffer) {
  Workplace place("0123456789");
  place.state.BufferData = PatternBytes(kBlock);
  place.Mark(3, 5);
  CopyChunk(place.state, place.services);
  EXPECT_EQ(place.state.BufferData, "345");
  EXPECT_LT(place.state.BufferData.capacity(), 100U);
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
