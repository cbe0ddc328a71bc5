#include "interaction/scroll_bar.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "support/interaction_bench.h"
#include "viewer/refresh.h"

namespace {

using bwp::AccelChecks;
using bwp::ChooseAcceleration;
using bwp::ScrollBar;
using bwp::ViewState;
using bwp::test::OpenedFile;
using Line = bwp::ScrollBar::Line;

struct Bar : OpenedFile {
  explicit Bar(std::size_t length) : OpenedFile(length) {}

  void Click(Line line) {
    bar.PressLine(line);
    bar.ReleaseLine(line);
  }
  void ClickTrack(double y) {
    bar.PressTrack(7, y);
    bar.ReleaseTrack(y);
  }
  /// Lets the wait end and the scrolling go on until the given number of pages has been shown.
  void HoldFor(int frames, const std::function<void()>& release) {
    int shown = 0;
    display.onFrame = [&] {
      if (++shown == frames) release();
    };
    ASSERT_TRUE(timer.enabled);
    bar.HoldElapsed();
    display.onFrame = nullptr;
  }
  double BelowThumb() const { return state.thumb.top + state.thumb.height + 1; }

  ScrollBar bar{state, display, timer};
};

TEST(ScrollBarLine, APressAloneMovesNothing) {
  Bar b(5000);
  b.bar.PressLine(Line::kDown);
  EXPECT_EQ(b.state.SWStart, 0);
  EXPECT_EQ(b.state.ScrollStep, 16);
  EXPECT_TRUE(b.timer.enabled);
  EXPECT_TRUE(b.transcript.empty());
}

TEST(ScrollBarLine, AClickMovesTheWindowByExactlyOneLine) {
  Bar b(5000);
  b.Click(Line::kDown);
  EXPECT_EQ(b.state.SWStart, 16);
  b.Click(Line::kDown);
  b.Click(Line::kUp);
  EXPECT_EQ(b.state.SWStart, 16);
  EXPECT_EQ(b.state.ScrollStep, 0);
  EXPECT_FALSE(b.state.AutoScroll);
  EXPECT_FALSE(b.timer.enabled);
}

TEST(ScrollBarLine, AtTheEndsOfTheFileNothingMoves) {
  Bar b(1000);
  b.Click(Line::kUp);
  EXPECT_EQ(b.state.SWStart, 0);
  b.state.SWStart = 488;
  b.Click(Line::kDown);
  EXPECT_EQ(b.state.SWStart, 488);
}

TEST(ScrollBarLine, APressEndsTypingInAField) {
  Bar b(5000);
  b.state.FieldTyping = true;
  b.Click(Line::kDown);
  EXPECT_FALSE(b.state.FieldTyping);
  EXPECT_EQ(b.state.SWStart, 16);
}

TEST(ScrollBarLine, AHoldScrollsUntilTheReleaseWhichTakesOneLastStep) {
  Bar b(5000);
  b.bar.PressLine(Line::kDown);
  b.HoldFor(5, [&] { b.bar.ReleaseLine(Line::kDown); });
  EXPECT_EQ(b.state.SWStart, 16 * 6);
  EXPECT_EQ(b.state.SWPrev, 16 * 6);
  EXPECT_EQ(b.state.ScrollStep, 0);
  EXPECT_FALSE(b.timer.enabled);
}

TEST(ScrollBarLine, WithoutAccelerationTheStepStaysTheSameHoweverLong) {
  Bar b(20'000);
  b.bar.PressLine(Line::kDown);
  b.HoldFor(300, [&] { b.bar.ReleaseLine(Line::kDown); });
  EXPECT_EQ(b.state.SWStart, 301 * 16);
}

TEST(ScrollBarLine, WithFourDoublingsTheStepGrowsTo256) {
  Bar b(500'000);
  b.state.AccelMode = 4;
  b.bar.PressLine(Line::kDown);
  std::vector<std::int32_t> steps;
  int frames = 0;
  b.display.onFrame = [&] {
    steps.push_back(b.state.ScrollStep);
    if (++frames == 400) b.bar.ReleaseLine(Line::kDown);
  };
  b.bar.HoldElapsed();
  EXPECT_EQ(steps[63], 16);
  EXPECT_EQ(steps[64], 32);  // the 65th step exceeds 1024 bytes
  EXPECT_EQ(std::count(steps.begin(), steps.end(), 32), 32);
  EXPECT_EQ(std::count(steps.begin(), steps.end(), 64), 32);
  EXPECT_EQ(std::count(steps.begin(), steps.end(), 128), 32);
  EXPECT_EQ(*std::max_element(steps.begin(), steps.end()), 256);
}

TEST(ScrollBarLine, LettingGoWhatIsNotHeldDoesNothing) {
  Bar b(5000);
  b.bar.ReleaseLine(Line::kDown);
  b.bar.ReleaseTrack(5999);
  b.bar.ReleaseThumb();
  b.bar.LetGo();
  EXPECT_EQ(b.state.SWStart, 0);
  EXPECT_TRUE(b.transcript.empty());
}

TEST(ScrollBarTrack, ScrollsAPageTowardsThePointer) {
  Bar b(5000);
  b.ClickTrack(5999);
  EXPECT_EQ(b.state.SWStart, 512);
  b.ClickTrack(5999);
  b.ClickTrack(0);
  EXPECT_EQ(b.state.SWStart, 512);
  EXPECT_EQ(b.state.ScrollStep, 0);
}

TEST(ScrollBarTrack, APressOnTheThumbThroughTheTrackDoesNotScroll) {
  Bar b(5000);
  b.state.SWStart = 2000;
  b.Click(Line::kDown);
  const double top = b.state.thumb.top;
  for (const double y : {top, top + 5, top + b.state.thumb.height}) {
    b.bar.PressTrack(0, y);
    EXPECT_FALSE(b.timer.enabled);
    b.bar.ReleaseTrack(y);
    EXPECT_EQ(b.state.SWStart, 2016);
  }
}

TEST(ScrollBarTrack, APressOnTheThumbStopsAWait) {
  Bar b(5000);
  b.bar.PressTrack(0, 5999);
  EXPECT_TRUE(b.timer.enabled);
  b.state.AutoScroll = true;
  b.bar.PressTrack(0, 1);
  EXPECT_FALSE(b.timer.enabled);
  EXPECT_FALSE(b.state.AutoScroll);
}

TEST(ScrollBarTrack, ADoubleClickBelowTheThumbScrollsTwoPages) {
  Bar b(5000);
  const double y = b.BelowThumb() + 3000;
  b.ClickTrack(y);
  b.bar.DoubleClickTrack();
  EXPECT_TRUE(b.timer.enabled);
  b.bar.ReleaseTrack(y);
  EXPECT_EQ(b.state.SWStart, 1024);
}

TEST(ScrollBarTrack, AHoldPagesUntilItIsLetGo) {
  Bar b(50'000);
  b.bar.PressTrack(0, 5999);
  b.HoldFor(3, [&] { b.bar.ReleaseTrack(5999); });
  EXPECT_EQ(b.state.SWStart, 4 * 512);
}

TEST(ScrollBarTrack, APageStepMayGrowTo8192) {
  Bar b(2'000'000);
  b.state.AccelMode = 4;
  b.bar.PressTrack(0, 5999);
  std::int32_t largest = 0;
  int frames = 0;
  b.display.onFrame = [&] {
    largest = std::max(largest, b.state.ScrollStep);
    if (++frames == 64) {
      EXPECT_EQ(largest, 512);  // 32768 bytes are reached, not exceeded
    }
    if (frames == 400) b.bar.LetGo();
  };
  b.bar.HoldElapsed();
  EXPECT_EQ(largest, 8192);
}

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

TEST(ScrollBarFocus, LosingItLetsGoOfAHeldButton) {
  Bar b(5000);
  b.bar.PressLine(Line::kDown);
  b.HoldFor(3, [&] { b.bar.LetGo(); });
  EXPECT_EQ(b.state.SWStart, 4 * 16);
  b.bar.ReleaseLine(Line::kDown);
  EXPECT_EQ(b.state.SWStart, 4 * 16) << "the button that comes up later was let go before";
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

TEST(ScrollBarWait, AButtonPressedWhileTheScrollingEndsHasAWaitOfItsOwn) {
  Bar b(50'000);
  b.bar.PressLine(Line::kDown);
  b.HoldFor(2, [&] {
    b.bar.ReleaseLine(Line::kDown);
    b.bar.PressLine(Line::kUp);
  });
  EXPECT_TRUE(b.timer.enabled);
}

TEST(ScrollBarWheel, MovesByLinesWithinTheFileUnlessSomethingIsHeld) {
  Bar b(5000);
  b.bar.TurnWheel(3);
  EXPECT_EQ(b.state.SWPrev, 48);
  b.bar.TurnWheel(-5);
  EXPECT_EQ(b.state.SWPrev, 0);
  b.bar.PressLine(Line::kDown);
  b.bar.TurnWheel(3);
  EXPECT_EQ(b.state.SWStart, 0);
  EXPECT_TRUE(b.timer.enabled);
}

TEST(Acceleration, EachEntrySetsItsModeAndChecksItselfAlone) {
  for (int chosen = 1; chosen < 5; ++chosen) {
    ViewState state;
    AccelChecks wanted{};
    wanted[static_cast<std::size_t>(chosen)] = true;
    EXPECT_EQ(ChooseAcceleration(state, {true, true, true, true, true}, chosen), wanted);
    EXPECT_EQ(state.AccelMode, chosen);
  }
}

TEST(Acceleration, NotAcceleratedLeavesTheHigherEntriesChecked) {
  ViewState state;
  state.AccelMode = 3;
  EXPECT_EQ(ChooseAcceleration(state, {false, false, false, true, false}, 0),
            (AccelChecks{true, false, false, true, false}));
  EXPECT_EQ(state.AccelMode, 0);
  EXPECT_EQ(ChooseAcceleration(state, {false, true, false, false, false}, 0),
            (AccelChecks{true, false, false, false, false}));
}

TEST(Acceleration, ANumberOutsideTheMenuChoosesNothing) {
  ViewState state;
  state.AccelMode = 2;
  const AccelChecks shown{false, false, true, false, false};
  EXPECT_EQ(ChooseAcceleration(state, shown, 5), shown);
  EXPECT_EQ(ChooseAcceleration(state, shown, -1), shown);
  EXPECT_EQ(state.AccelMode, 2);
}

RC_GTEST_PROP(ScrollBarModel, ClicksAndHoldsMoveByTheirStepsWithinTheFile, ()) {
  const auto length = *rc::gen::inRange<std::size_t>(1, 40'000);
  Bar b(length);
  const auto limit = std::max<std::int64_t>(0, static_cast<std::int64_t>(length) - 512);
  std::int64_t expected = 0;
  const auto step = [&](std::int64_t by) { expected = std::clamp<std::int64_t>(expected + by, 0, limit); };

  const int actions = *rc::gen::inRange(1, 8);
  for (int i = 0; i < actions; ++i) {
    const Line line = *rc::gen::element(Line::kUp, Line::kDown);
    const std::int64_t base = line == Line::kUp ? -16 : 16;
    b.state.AccelMode = *rc::gen::inRange(0, 5);
    const int frames = *rc::gen::inRange(0, 120);
    b.bar.PressLine(line);
    if (frames == 0) {
      b.bar.ReleaseLine(line);
    } else {
      b.HoldFor(frames, [&] { b.bar.ReleaseLine(line); });
      std::int64_t current = base;
      std::int64_t scrolled = 0;
      for (int frame = 0, doublings = 0; frame < frames; ++frame) {
        step(current);
        scrolled += std::abs(current);
        if (doublings < b.state.AccelMode && scrolled > (1024LL << doublings)) {
          ++doublings;
          current *= 2;
        }
      }
    }
    step(base);
    RC_ASSERT(b.state.SWStart == expected);
    RC_ASSERT(std::abs(b.state.thumb.top - b.state.thumb.ThumbScale * static_cast<double>(expected)) < 1e-6);
  }
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
