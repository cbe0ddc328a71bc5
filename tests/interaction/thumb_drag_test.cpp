#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "interaction/scroll_bar_fixture.h"
#include "viewer/refresh.h"

namespace {

using Bar = bwp::test::BarOnFile;

TEST(ScrollBarThumb, DraggingMovesTheWindowAndTheBoxes) {
  Bar b(512 + 58'000);
  int frame = 0;
  b.display.onFrame = [&] {
    if (++frame == 1) {
      b.bar.DragThumb(true, 5 + 1000);
      EXPECT_DOUBLE_EQ(b.state.thumb.top, 1000);
      EXPECT_EQ(b.state.SWStart, 10'000);
      EXPECT_EQ(b.display.window.Dstart, "10.000");
      EXPECT_EQ(b.display.window.Dend, "10.511");
      EXPECT_EQ(b.display.window.HStart, "00002710");
      EXPECT_EQ(b.display.window.HEnd, "0000290F");
    } else {
      EXPECT_EQ(b.state.SWPrev, 10'000) << "the page was shown at the place of the drag";
      b.bar.ReleaseThumb();
    }
  };
  b.bar.PressThumb();
  b.bar.DragThumb(true, 5);
  EXPECT_EQ(frame, 2);
  EXPECT_EQ(b.state.SWStart, 10'000);
  EXPECT_FALSE(b.state.AutoScroll);
}

TEST(ScrollBarThumb, IsPinnedAboveAndBelowItsTravel) {
  Bar b(60'000);
  int frame = 0;
  b.display.onFrame = [&] {
    if (++frame == 1) {
      b.bar.DragThumb(true, 1e6);
      EXPECT_DOUBLE_EQ(b.state.thumb.top, b.state.thumb.ThumbTravel);
      EXPECT_EQ(b.state.SWStart, 60'000 - 512);
    } else {
      b.bar.DragThumb(true, -1e6);
      EXPECT_DOUBLE_EQ(b.state.thumb.top, 0);
      EXPECT_EQ(b.state.SWStart, 0);
      b.bar.ReleaseThumb();
    }
  };
  b.bar.PressThumb();
  b.bar.DragThumb(true, 20);
  EXPECT_EQ(frame, 2);
}

TEST(ScrollBarThumb, TheLastMoveIsShownEvenWhenTheReleaseComesWithIt) {
  Bar b(60'000);
  b.display.onFrame = [&] {
    b.bar.DragThumb(true, 1e6);
    b.bar.ReleaseThumb();
  };
  b.bar.PressThumb();
  b.bar.DragThumb(true, 20);
  EXPECT_EQ(b.state.tabe.Text(0, 0), bwp::WindowTextsOf(b.state).HStart);
  EXPECT_EQ(b.state.SWPrev, b.state.SWStart);
}

TEST(ScrollBarThumb, AMoveWithNoButtonEndsTheDrag) {
  Bar b(60'000);
  b.display.onFrame = [&] { b.bar.DragThumb(false, 0); };
  b.bar.PressThumb();
  b.bar.DragThumb(true, 20);
  EXPECT_FALSE(b.state.AutoScroll);
}

TEST(ScrollBarThumb, TheFirstMoveStopsAWaitAndLetsEventsRunBeforeTheRefresh) {
  Bar b(60'000);
  b.timer.Enable();
  b.bar.PressThumb();
  b.display.onFrame = [&] { b.bar.ReleaseThumb(); };
  b.bar.DragThumb(true, 20);
  EXPECT_FALSE(b.timer.enabled);
  EXPECT_EQ(b.transcript[0], "display events");
  EXPECT_EQ(b.transcript[1], "redraw off");
}

TEST(ScrollBarThumb, APressEndsTypingAndStopsTheStep) {
  Bar b(60'000);
  b.state.FieldTyping = true;
  b.state.ScrollStep = 16;
  b.bar.PressThumb();
  EXPECT_FALSE(b.state.FieldTyping);
  EXPECT_EQ(b.state.ScrollStep, 0);
}

TEST(ScrollBarThumb, ASmallFileShowsOffsetZeroWhereverItIsDragged) {
  for (const std::size_t length : {1U, 100U, 512U}) {
    Bar b(length);
    int frame = 0;
    b.display.onFrame = [&] {
      b.bar.DragThumb(true, 3000);
      EXPECT_EQ(b.state.SWStart, 0);
      if (++frame == 2) b.bar.ReleaseThumb();
    };
    b.bar.PressThumb();
    b.bar.DragThumb(true, 20);
    EXPECT_EQ(frame, 2);
  }
}

TEST(ScrollBarThumb, AnExactHalfGoesToTheEvenNeighbour) {
  bwp::ScrollThumb thumb;
  thumb.ThumbTravel = 100;
  thumb.ThumbScale = 0.5;
  EXPECT_EQ(thumb.StartOf(0.25), 0);
  EXPECT_EQ(thumb.StartOf(0.75), 2);
  EXPECT_EQ(thumb.StartOf(1.25), 2);
}

TEST(ScrollBarFocus, LosingItEndsADragUntilTheNextPress) {
  Bar b(60'000);
  b.display.onFrame = [&] { b.bar.LetGo(); };
  b.bar.PressThumb();
  b.bar.DragThumb(true, 20);
  const std::int64_t start = b.state.SWStart;
  b.bar.DragThumb(true, 2000);
  EXPECT_EQ(b.state.SWStart, start);
  EXPECT_FALSE(b.state.AutoScroll);
}

RC_GTEST_PROP(ScrollBarModel, ADragNeverLeavesTheFileOrTheTrack, ()) {
  const auto length = *rc::gen::inRange<std::size_t>(1, 200'000);
  const auto moves = *rc::gen::container<std::vector<int>>(rc::gen::inRange(-8000, 8000));
  Bar b(length);
  std::size_t next = 0;
  b.display.onFrame = [&] {
    if (next == moves.size()) return b.bar.ReleaseThumb();
    // Where the pointer stands on the track decides, not how it got there.
    const double pointer = moves[next++];
    b.bar.DragThumb(true, pointer - b.state.thumb.top);
    const double top = std::clamp(pointer - 30, 0.0, b.state.thumb.ThumbTravel);
    RC_ASSERT(std::abs(b.state.thumb.top - top) < 1e-6);
    RC_ASSERT(b.state.SWStart == (top > 0 ? std::llrint(top / b.state.thumb.ThumbScale) : 0));
    RC_ASSERT(b.state.SWStart <= std::max<std::int64_t>(0, b.state.FLen - 512));
  };
  b.bar.PressThumb();
  b.bar.DragThumb(true, 30);
}

}  // namespace
