#include "interaction/scroll_bar.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <utility>

#include "interaction/scroll_bar_fixture.h"
#include "viewer/refresh.h"

namespace {

using Bar = bwp::test::BarOnFile;
using Line = bwp::ScrollBar::Line;

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

TEST(ScrollBarTrack, APressEndsTyping) {
  Bar b(5000);
  for (const double y : {0.0, b.state.thumb.top + 1, 5999.0}) {
    b.state.FieldTyping = true;
    b.bar.PressTrack(0, y);
    EXPECT_FALSE(b.state.FieldTyping) << y;
    b.bar.LetGo();
  }
}

TEST(ScrollBarTrack, WhereTheButtonComesUpDecidesTheStep) {
  Bar b(50'000);
  b.state.SWStart = 20'000;
  bwp::Refresh(b.state, b.display);
  b.bar.PressTrack(0, 5999);
  b.bar.ReleaseTrack(0);
  EXPECT_EQ(b.state.SWStart, 20'000 - 512) << "released above the thumb";
  b.bar.PressTrack(0, 0);
  b.bar.ReleaseTrack(5999);
  EXPECT_EQ(b.state.SWStart, 20'000) << "released below it";
  b.bar.PressTrack(0, 5999);
  b.bar.ReleaseTrack(b.state.thumb.top + 1);
  EXPECT_EQ(b.state.SWStart, 20'000) << "released on it";
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

TEST(ScrollBarFocus, LosingItLetsGoOfAHeldButton) {
  Bar b(5000);
  b.bar.PressLine(Line::kDown);
  b.HoldFor(3, [&] { b.bar.LetGo(); });
  EXPECT_EQ(b.state.SWStart, 4 * 16);
  b.bar.ReleaseLine(Line::kDown);
  EXPECT_EQ(b.state.SWStart, 4 * 16) << "the button that comes up later was let go before";
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

TEST(ScrollBarWheel, ATurnThatComesWhileTheLastOneIsShownCountsToo) {
  Bar b(5000);
  bool turned = false;
  b.display.onEvents = [&] {
    if (!std::exchange(turned, true)) b.bar.TurnWheel(2);
  };
  b.bar.TurnWheel(3);
  EXPECT_EQ(b.state.SWPrev, 80);
}

TEST(ScrollBarWheel, ATurnEndsTyping) {
  Bar b(5000);
  b.state.FieldTyping = true;
  b.bar.TurnWheel(3);
  EXPECT_FALSE(b.state.FieldTyping);
  EXPECT_EQ(b.state.SWPrev, 48);
}

TEST(ScrollBarRelease, AButtonPressedWhileTheLastStepIsShownKeepsItsOwn) {
  for (const bool held : {false, true}) {
    Bar b(50'000);
    bool pressed = false;
    b.display.onEvents = [&] {
      if (!std::exchange(pressed, true)) b.bar.PressLine(Line::kDown);
    };
    b.Click(Line::kDown);
    EXPECT_EQ(b.state.SWPrev, 16);
    if (held) {
      b.HoldFor(3, [&] { b.bar.ReleaseLine(Line::kDown); });
    } else {
      b.bar.ReleaseLine(Line::kDown);
    }
    EXPECT_EQ(b.state.SWPrev, held ? 5 * 16 : 2 * 16);
    EXPECT_EQ(b.state.ScrollStep, 0);
  }
}

TEST(ScrollBarRelease, WhileAFieldIsTypedIntoAgainNothingMoves) {
  Bar b(5000);
  b.bar.PressLine(Line::kDown);
  b.state.FieldTyping = true;
  b.bar.ReleaseLine(Line::kDown);
  EXPECT_EQ(b.state.SWStart, 0);
  EXPECT_EQ(b.state.ScrollStep, 0);
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

}  // namespace
