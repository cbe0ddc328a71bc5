#include "viewer/mark_cells.h"

#include <array>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "viewer/viewer_fixture.h"

namespace {

class MarkCellsTest : public bwp::test::ViewerTest {
 protected:
  MarkCellsTest() { OpenPattern(5000); }

  // The colour that the byte's cells share; 0 if they have their own colours.
  bwp::Colour MarkOf(int position) const {
    const bwp::Colour value = ValueColour(position);
    if (value == bwp::kValueColour && CharColour(position) == bwp::kCharColour) return 0;
    EXPECT_EQ(value, CharColour(position)) << position;
    return value;
  }

  int Marked() const {
    int count = 0;
    for (int position = 0; position < bwp::kPageBytes; ++position) count += MarkOf(position) != 0 ? 1 : 0;
    return count;
  }
};

TEST_F(MarkCellsTest, OnlyTheTwoBoundaryCellsAreColoured) {
  bwp::MoveMarks(state, 3, 37);
  Show();
  EXPECT_EQ(MarkOf(3), bwp::kMarkStartColour);
  EXPECT_EQ(MarkOf(37), bwp::kMarkEndColour);
  EXPECT_EQ(Marked(), 2);
}

TEST_F(MarkCellsTest, OfEqualMarksTheEndsColourWins) {
  bwp::MoveMarks(state, 40, 40);
  Show();
  EXPECT_EQ(MarkOf(40), bwp::kMarkEndColour);
  EXPECT_EQ(Marked(), 1);
}

TEST_F(MarkCellsTest, TheFirstAndTheLastByteOfThePageBelongToIt) {
  bwp::MoveMarks(state, 1000, 1511);
  ShowAt(1000);
  EXPECT_EQ(MarkOf(0), bwp::kMarkStartColour);
  EXPECT_EQ(MarkOf(511), bwp::kMarkEndColour);
  bwp::MoveMarks(state, 999, 1512);
  Show();
  EXPECT_EQ(Marked(), 0);
}

TEST_F(MarkCellsTest, MovingThePageClearsTheOldCells) {
  bwp::MoveMarks(state, 100, 200);
  Show();
  ShowAt(16);
  EXPECT_EQ(MarkOf(84), bwp::kMarkStartColour);
  EXPECT_EQ(MarkOf(184), bwp::kMarkEndColour);
  EXPECT_EQ(Marked(), 2);
  ShowAt(3000);
  EXPECT_EQ(Marked(), 0);
}

TEST_F(MarkCellsTest, AMovedMarkGivesItsOldCellBackAtOnce) {
  bwp::MoveMarks(state, 100, 200);
  Show();
  bwp::MoveMarks(state, 150, 200);
  EXPECT_EQ(MarkOf(100), 0U);
  EXPECT_EQ(MarkOf(200), bwp::kMarkEndColour);
  Show();
  EXPECT_EQ(MarkOf(150), bwp::kMarkStartColour);
  EXPECT_EQ(Marked(), 2);
}

TEST_F(MarkCellsTest, AMarkThatLeavesItsTwinUncoversIt) {
  bwp::MoveMarks(state, 100, 100);
  Show();
  bwp::MoveMarks(state, 100, 120);
  Show();
  EXPECT_EQ(MarkOf(100), bwp::kMarkStartColour);
  EXPECT_EQ(MarkOf(120), bwp::kMarkEndColour);
}

TEST_F(MarkCellsTest, AMarkPastTheEndColoursItsEmptyCell) {
  OpenPattern(100);
  bwp::MoveMarks(state, 0, 105);
  Show();
  EXPECT_EQ(MarkOf(105), bwp::kMarkEndColour);
  EXPECT_EQ(Text(6, 10), "");
}

TEST_F(MarkCellsTest, AHitIsColouredWhereThePageShowsIt) {
  ShowAt(1000);
  bwp::ShowHit(state, 990, 12);
  EXPECT_EQ(MarkOf(0), bwp::kHitColour);
  EXPECT_EQ(MarkOf(1), bwp::kHitColour);
  EXPECT_EQ(Marked(), 2);
  bwp::ClearHit(state);
  bwp::ShowHit(state, 1510, 100);
  EXPECT_EQ(MarkOf(510), bwp::kHitColour);
  EXPECT_EQ(MarkOf(511), bwp::kHitColour);
  EXPECT_EQ(Marked(), 2);
  bwp::ClearHit(state);
  bwp::ShowHit(state, 3000, 5);
  EXPECT_EQ(Marked(), 0);
}

TEST_F(MarkCellsTest, ClearingAHitGivesAMarkItsColourBack) {
  bwp::MoveMarks(state, 10, 12);
  Show();
  bwp::ShowHit(state, 9, 5);
  EXPECT_EQ(MarkOf(10), bwp::kHitColour);
  bwp::ClearHit(state);
  EXPECT_EQ(MarkOf(10), bwp::kMarkStartColour);
  EXPECT_EQ(MarkOf(12), bwp::kMarkEndColour);
  EXPECT_EQ(Marked(), 2);
}

// Whatever was moved and shown before, the page has only the colours of its marks.
RC_GTEST_FIXTURE_PROP(MarkCellsTest, ThePageHasItsMarksColoursAndNoOthers, ()) {
  const auto offset = rc::gen::inRange<std::int64_t>(0, 1200);
  const auto rounds = *rc::gen::inRange(1, 30);
  for (int round = 0; round < rounds; ++round) {
    switch (*rc::gen::inRange(0, 5)) {
      case 0:
        bwp::MoveMarks(state, *offset, state.MarkEnd);
        break;
      case 1:
        bwp::MoveMarks(state, state.MarkStart, *offset);
        break;
      case 2:
        bwp::MoveMarks(state, *offset, *offset);
        break;
      case 3:
        state.SWStart = *offset;
        break;
      default:
        state.ScrollStep = *rc::gen::element(-512, -16, 0, 16, 512);
        break;
    }
    if (*rc::gen::arbitrary<bool>()) continue;
    Show();
    state.ScrollStep = 0;
    std::array<bwp::Colour, bwp::kPageBytes> model{};
    const auto put = [&](std::int64_t mark, bwp::Colour colour) {
      const std::int64_t position = mark - state.SWStart;
      if (position >= 0 && position < bwp::kPageBytes) model[static_cast<std::size_t>(position)] = colour;
    };
    put(state.MarkStart, bwp::kMarkStartColour);
    put(state.MarkEnd, bwp::kMarkEndColour);
    for (int position = 0; position < bwp::kPageBytes; ++position) {
      RC_ASSERT(MarkOf(position) == model[static_cast<std::size_t>(position)]);
    }
  }
}

TEST_F(MarkCellsTest, AMarkInsideAHitShowsAfterARefreshAndLeavesTheHitsColourBehind) {
  bwp::MoveMarks(state, 10, 200);
  Show();
  bwp::ShowHit(state, 8, 5);
  EXPECT_EQ(MarkOf(10), bwp::kHitColour);
  Show();
  EXPECT_EQ(MarkOf(10), bwp::kMarkStartColour);
  EXPECT_EQ(MarkOf(9), bwp::kHitColour);
  bwp::MoveMarks(state, 11, 200);
  EXPECT_EQ(MarkOf(10), bwp::kHitColour);
  Show();
  EXPECT_EQ(MarkOf(10), bwp::kHitColour);
  EXPECT_EQ(MarkOf(11), bwp::kMarkStartColour);
  bwp::MoveMarks(state, 20, 200);
  Show();
  EXPECT_EQ(MarkOf(11), bwp::kHitColour);
  bwp::ClearHit(state);
  EXPECT_EQ(Marked(), 2);
}

}  // namespace
