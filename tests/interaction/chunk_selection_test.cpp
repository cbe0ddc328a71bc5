#include "interaction/chunk_selection.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <string>

#include "support/interaction_bench.h"
#include "viewer/number_text.h"
#include "viewer/refresh.h"

namespace {

using bwp::ChunkField;
using bwp::EnterChunkField;
using bwp::GridCell;
using bwp::ViewState;
using bwp::test::OpenedFile;

struct Chunk : OpenedFile {
  explicit Chunk(std::size_t length) : OpenedFile(length) { bwp::Refresh(state, display); }

  bool Enter(ChunkField field, const std::string& text) {
    state.FieldTyping = true;
    return EnterChunkField(state, display, field, text);
  }
  void Marks(std::int64_t start, std::int64_t end) {
    state.MarkStart = start;
    state.MarkEnd = end;
  }
  testing::AssertionResult MarksAre(std::int64_t start, std::int64_t end) const {
    if (state.MarkStart == start && state.MarkEnd == end) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "marks " << state.MarkStart << ".." << state.MarkEnd;
  }
};

TEST(ChunkFields, HexadecimalBoxesReadHexadecimalAndDecimalOnesDecimal) {
  Chunk c(5000);
  EXPECT_TRUE(c.Enter(ChunkField::kMHStart, "00000010"));
  EXPECT_TRUE(c.MarksAre(16, 4999));
  EXPECT_TRUE(c.Enter(ChunkField::kMHEnd, "ff"));
  EXPECT_TRUE(c.MarksAre(16, 255));
  EXPECT_TRUE(c.Enter(ChunkField::kMHSize, "A"));
  EXPECT_TRUE(c.MarksAre(16, 25));
  EXPECT_TRUE(c.Enter(ChunkField::kMdStart, "20"));
  EXPECT_TRUE(c.MarksAre(20, 25));
  EXPECT_TRUE(c.Enter(ChunkField::kMdEnd, "100"));
  EXPECT_TRUE(c.MarksAre(20, 100));
  EXPECT_TRUE(c.Enter(ChunkField::kMdSize, "10"));
  EXPECT_TRUE(c.MarksAre(20, 29));
}

TEST(ChunkFields, AcceptedTextEndsTypingAndIsShown) {
  Chunk c(5000);
  EXPECT_TRUE(c.Enter(ChunkField::kMdStart, "1500"));
  EXPECT_FALSE(c.state.FieldTyping);
  EXPECT_EQ(c.display.chunk.mdstart, "1.500");
  EXPECT_EQ(c.display.chunk.MHStart, "000005DC");
}

TEST(ChunkFields, ATextThatIsNoNumberChangesNothingAndTypingGoesOn) {
  for (const char* text : {"", "12x", "1.500", "-", "12 3"}) {
    Chunk c(5000);
    c.transcript.clear();
    for (const ChunkField field : {ChunkField::kMHStart, ChunkField::kMdEnd, ChunkField::kMdSize}) {
      EXPECT_FALSE(c.Enter(field, text)) << text;
    }
    EXPECT_TRUE(c.MarksAre(0, 4999));
    EXPECT_TRUE(c.state.FieldTyping);
    EXPECT_TRUE(c.transcript.empty());
  }
  Chunk c(5000);
  EXPECT_FALSE(c.Enter(ChunkField::kMdStart, "A"));
  EXPECT_TRUE(c.Enter(ChunkField::kMHStart, "A"));
}

TEST(ChunkFields, FourHexadecimalDigitsAreReadWithTheirSign) {
  Chunk c(70'000);
  EXPECT_TRUE(c.Enter(ChunkField::kMHStart, "FFFF"));
  EXPECT_TRUE(c.MarksAre(0, 69'999));
  EXPECT_TRUE(c.Enter(ChunkField::kMHStart, "0FFFF"));
  EXPECT_TRUE(c.MarksAre(65'535, 69'999));
}

TEST(ChunkFields, AnEndOfZeroBecomesOne) {
  Chunk c(100);
  EXPECT_TRUE(c.Enter(ChunkField::kMHEnd, "0"));
  EXPECT_TRUE(c.MarksAre(0, 1));
}

TEST(ChunkFields, AStartBeyondTheFileBecomesTheLastPlaceForTwoBytes) {
  Chunk c(100);
  EXPECT_TRUE(c.Enter(ChunkField::kMdStart, "5000"));
  EXPECT_TRUE(c.MarksAre(98, 99));
}

TEST(ChunkFields, AMarkMovedAcrossTheOtherTakesItAlong) {
  Chunk c(1000);
  c.Marks(100, 200);
  EXPECT_TRUE(c.Enter(ChunkField::kMdStart, "300"));
  EXPECT_TRUE(c.MarksAre(300, 301));
  EXPECT_TRUE(c.Enter(ChunkField::kMdEnd, "50"));
  EXPECT_TRUE(c.MarksAre(49, 50));
}

TEST(ChunkFields, ASizeBelowTwoGivesTwoBytes) {
  for (const char* size : {"0", "1", "2"}) {
    Chunk c(1000);
    c.Marks(100, 200);
    EXPECT_TRUE(c.Enter(ChunkField::kMdSize, size));
    EXPECT_TRUE(c.MarksAre(100, 101)) << size;
  }
}

TEST(ChunkFields, ASizePastTheEndStopsAtTheLastByte) {
  Chunk c(1000);
  c.Marks(100, 200);
  EXPECT_TRUE(c.Enter(ChunkField::kMdSize, "99999999999"));
  EXPECT_TRUE(c.MarksAre(100, 999));
}

TEST(ChunkFields, InAOneByteFileMarkStartIsNeverBelowZero) {
  for (const ChunkField field : {ChunkField::kMdStart, ChunkField::kMdEnd, ChunkField::kMdSize}) {
    Chunk c(1);
    EXPECT_TRUE(c.Enter(field, "0"));
    EXPECT_TRUE(c.MarksAre(0, 1));
  }
}

TEST(ChunkColours, AMovedMarkLeavesNoColourBehind) {
  Chunk c(1000);
  EXPECT_EQ(c.state.tabe.Background(0, 1), bwp::kMarkStartColour);
  EXPECT_TRUE(c.Enter(ChunkField::kMdStart, "17"));
  EXPECT_EQ(c.state.tabe.Background(0, 1), bwp::kValueColour);
  EXPECT_EQ(c.state.tabe.Background(0, 17), bwp::kCharColour);
  EXPECT_EQ(c.state.tabe.Background(1, 2), bwp::kMarkStartColour);
  EXPECT_EQ(c.state.tabe.Background(1, 18), bwp::kMarkStartColour);
}

TEST(ChunkButtons, GotoStartBeginsThePageAtTheMark) {
  Chunk c(5000);
  c.Marks(1000, 3000);
  GotoMarkStart(c.state, c.display);
  EXPECT_EQ(c.state.SWPrev, 1000);
}

TEST(ChunkButtons, GotoEndEndsThePageAtTheMark) {
  Chunk c(5000);
  c.Marks(1000, 3000);
  GotoMarkEnd(c.state, c.display);
  EXPECT_EQ(c.state.SWPrev, 3000 - 511);
  c.Marks(0, 100);
  GotoMarkEnd(c.state, c.display);
  EXPECT_EQ(c.state.SWPrev, 0);
}

TEST(PopupByte, NumberAndCharacterOfAByteGiveTheSameOffset) {
  ViewState state;
  state.SWStart = 512;
  EXPECT_EQ(ByteUnder(state, {3, 20}), 563);
  EXPECT_EQ(ByteUnder(state, {3, 4}), 563);
  EXPECT_EQ(ByteUnder(state, {0, 1}), 512);
  EXPECT_EQ(ByteUnder(state, {31, 32}), 1023);
}

TEST(PopupByte, APlaceBesideTheCellsIsTheNearestCell) {
  EXPECT_EQ(bwp::NearestByteCell({-1, 0}), (GridCell{0, 1}));
  EXPECT_EQ(bwp::NearestByteCell({32, 40}), (GridCell{31, 32}));
}

TEST(PopupMarks, AStartAfterTheEndStopsInFrontOfIt) {
  Chunk c(1000);
  c.Marks(10, 20);
  MarkStartAt(c.state, c.display, {5, 1});
  EXPECT_TRUE(c.MarksAre(19, 20));
}

TEST(PopupMarks, AStartLeavesTheFilesLastByteToTheEnd) {
  Chunk c(100);
  c.Marks(0, 300);
  MarkStartAt(c.state, c.display, {31, 32});
  EXPECT_TRUE(c.MarksAre(98, 300));
}

TEST(PopupMarks, AStartInAOneByteFileIsItsByte) {
  Chunk c(1);
  MarkStartAt(c.state, c.display, {0, 1});
  EXPECT_TRUE(c.MarksAre(0, 0));
}

TEST(PopupMarks, AnEndBeforeTheStartStopsBehindIt) {
  Chunk c(1000);
  c.Marks(100, 200);
  MarkEndAt(c.state, c.display, {0, 5});
  EXPECT_TRUE(c.MarksAre(100, 101));
}

TEST(PopupMarks, AnEndOnAnEmptyCellGoesPastTheFile) {
  Chunk c(100);
  MarkEndAt(c.state, c.display, {6, 10});
  EXPECT_TRUE(c.MarksAre(0, 105));
}

TEST(PopupMarks, DefaultMarkIsTheWholeFile) {
  Chunk c(1000);
  c.Marks(100, 200);
  MarkWholeFile(c.state, c.display);
  EXPECT_TRUE(c.MarksAre(0, 999));
  EXPECT_EQ(c.display.chunk.Mdsize, "1.000");
}

RC_GTEST_PROP(ChunkModel, EveryWayToSetAMarkFollowsItsRuleAndKeepsAtLeastTwoBytes, ()) {
  const auto length = *rc::gen::inRange<std::int64_t>(2, 3000);
  Chunk c(static_cast<std::size_t>(length));
  const std::int64_t last = std::max<std::int64_t>(0, length - 512);
  std::int64_t start = 0;
  std::int64_t end = length - 1;
  const int actions = *rc::gen::inRange(1, 20);
  for (int i = 0; i < actions; ++i) {
    const auto v = *rc::gen::inRange<std::int64_t>(0, 3500);
    const bool hex = *rc::gen::arbitrary<bool>();
    const std::string text = hex ? funzioni::HexOffset(v) : std::to_string(v);
    const GridCell cell{*rc::gen::inRange(0, 32), *rc::gen::inRange(1, 33)};
    const std::int64_t pointed = c.state.SWStart + cell.row * 16 + (cell.column - 1) % 16;
    switch (*rc::gen::inRange(0, 9)) {
      case 0:
        RC_ASSERT(c.Enter(hex ? ChunkField::kMHStart : ChunkField::kMdStart, text));
        start = std::clamp<std::int64_t>(v, 0, length - 2);
        if (start >= end) end = start + 1;
        break;
      case 1:
        RC_ASSERT(c.Enter(hex ? ChunkField::kMHEnd : ChunkField::kMdEnd, text));
        end = std::clamp<std::int64_t>(v, 1, length - 1);
        if (end <= start) start = end - 1;
        break;
      case 2:
        RC_ASSERT(c.Enter(hex ? ChunkField::kMHSize : ChunkField::kMdSize, text));
        end = std::max(start + 1, std::min(start + v - 1, length - 1));
        break;
      case 3:
        MarkStartAt(c.state, c.display, cell);
        start = std::min({pointed, length - 2, end - 1});
        break;
      case 4:
        MarkEndAt(c.state, c.display, cell);
        end = std::max(start + 1, pointed);
        break;
      case 5:
        MarkWholeFile(c.state, c.display);
        start = 0;
        end = length - 1;
        break;
      case 6:
        GotoMarkStart(c.state, c.display);
        RC_ASSERT(c.state.SWPrev == std::min(start, last));
        break;
      case 7:
        GotoMarkEnd(c.state, c.display);
        RC_ASSERT(c.state.SWPrev == std::clamp<std::int64_t>(end - 511, 0, last));
        break;
      default:
        c.state.SWStart = v;
        bwp::Refresh(c.state, c.display);
        break;
    }
    RC_ASSERT(c.MarksAre(start, end));
    RC_ASSERT(start >= 0 && start <= length - 2 && start + 1 <= end);
    // No cell but the two marks' wears another colour than its own.
    for (int position = 0; position < bwp::kPageBytes; ++position) {
      const std::int64_t offset = c.state.SWStart + position;
      const bwp::Colour own = offset == end     ? bwp::kMarkEndColour
                              : offset == start ? bwp::kMarkStartColour
                                                : bwp::kValueColour;
      RC_ASSERT(c.state.tabe.Background(position / 16, position % 16 + 1) == own);
    }
  }
}

TEST(DefaultMark, OfAnEmptyAndOfAOneByteFileIsItsFirstByte) {
  for (const std::size_t length : {0U, 1U}) {
    Chunk c(length);
    c.Marks(7, 9);
    bwp::MarkWholeFile(c.state, c.display);
    EXPECT_TRUE(c.MarksAre(0, 0)) << length;
  }
}

}  // namespace
