#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

#include "viewer/mark_cells.h"
#include "viewer/viewer_fixture.h"

// The stepping of a refresh: one step per call, and step after step while AutoScroll is set.

namespace {

class ScrollingTest : public bwp::test::ViewerTest {
 protected:
  // Holds a scroll button until that many further pages were shown; returns the start of every page.
  std::vector<std::int64_t> Hold(std::int32_t step, int frames) {
    std::vector<std::int64_t> starts;
    state.AutoScroll = true;
    state.ScrollStep = step;
    display.onFrame = [&] {
      starts.push_back(state.SWStart);
      EXPECT_EQ(state.SWPrev, state.SWStart);
      if (static_cast<int>(starts.size()) == frames) state.AutoScroll = false;
    };
    Show();
    display.onFrame = nullptr;
    return starts;
  }

  static std::vector<std::int64_t> Differences(const std::vector<std::int64_t>& starts, std::int64_t from) {
    std::vector<std::int64_t> steps;
    for (const std::int64_t start : starts) {
      steps.push_back(start - from);
      from = start;
    }
    return steps;
  }
};

TEST_F(ScrollingTest, ASingleRefreshTakesOneStep) {
  OpenPattern(5000);
  state.ScrollStep = 16;
  Show();
  EXPECT_EQ(state.SWStart, 16);
  EXPECT_EQ(Text(0, 0), "00000010");
  state.ScrollStep = 512;
  Show();
  EXPECT_EQ(state.SWStart, 528);
  state.ScrollStep = -16;
  Show();
  EXPECT_EQ(state.SWStart, 512);
  state.ScrollStep = 0;
  Show();
  EXPECT_EQ(state.SWStart, 512);
}

TEST_F(ScrollingTest, ItStopsAtBothEnds) {
  OpenPattern(1000);
  state.ScrollStep = 512;
  Show();
  EXPECT_EQ(state.SWStart, 488);
  Show();
  EXPECT_EQ(state.SWStart, 488);
  state.ScrollStep = -512;
  Show();
  EXPECT_EQ(state.SWStart, 0);
}

TEST_F(ScrollingTest, EveryPageIsShownBeforeTheNext) {
  OpenPattern(5000);
  Hold(16, 2);
  const bwp::test::Transcript expected{"redraw off",  "thumb",     "redraw on",  "frame",
                                       "redraw off",  "thumb",     "redraw on",  "frame",
                                       "redraw off",  "title",     "ruler hex",  "window texts",
                                       "chunk texts", "redraw on", "focus grid", "display events"};
  EXPECT_EQ(transcript, expected);
}

TEST_F(ScrollingTest, WithoutAccelerationTheStepStaysForEver) {
  OpenPattern(200'000);
  state.AccelMode = 0;
  const auto steps = Differences(Hold(16, 500), 0);
  EXPECT_EQ(std::count(steps.begin(), steps.end(), 16), 500);
  EXPECT_EQ(state.ScrollStep, 16);
}

TEST_F(ScrollingTest, ALineStepDoublesAfter65StepsThenAfter2048And4096And8192Bytes) {
  OpenPattern(200'000);
  state.AccelMode = 4;
  const auto starts = Hold(16, 400);
  const auto steps = Differences(starts, 0);
  // The step that follows the first one to pass the limit is the doubled one.
  EXPECT_EQ(steps[64], 16);
  EXPECT_EQ(steps[65], 32);
  std::int64_t scrolled = 0;
  std::int64_t step = 16;
  std::int64_t limit = 1024;
  for (std::size_t index = 0; index < steps.size(); ++index) {
    ASSERT_EQ(steps[index], step) << index;
    scrolled += step;
    if (scrolled > limit && limit <= 8192) {
      step *= 2;
      limit *= 2;
    }
  }
  EXPECT_EQ(step, 256);
  EXPECT_EQ(state.ScrollStep, 256);
}

TEST_F(ScrollingTest, APageStepDoublesFrom32768BytesOnUpTo8192) {
  OpenPattern(3'000'000);
  state.AccelMode = 4;
  const auto steps = Differences(Hold(512, 400), 0);
  EXPECT_EQ(steps[64], 512);  // 65 steps are 33,280 bytes, the first to exceed 32,768
  EXPECT_EQ(steps[65], 1024);
  EXPECT_EQ(state.ScrollStep, 8192);
}

TEST_F(ScrollingTest, TheAccelerationChoiceIsTheNumberOfDoublings) {
  OpenPattern(2'000'000);
  for (int choice = 0; choice <= 4; ++choice) {
    ShowAt(0);
    state.AccelMode = choice;
    Hold(16, 600);
    EXPECT_EQ(state.ScrollStep, 16 << choice);
    state.ScrollStep = 0;
  }
}

TEST_F(ScrollingTest, AChoiceThatTheMenuDoesNotOfferAcceleratesNothing) {
  OpenPattern(2'000'000);
  for (const int choice : {-1, 5, 7, 32767}) {
    ShowAt(0);
    state.AccelMode = choice;
    Hold(16, 600);
    EXPECT_EQ(state.ScrollStep, 16) << choice;
  }
}

TEST_F(ScrollingTest, AStepUpDoublesKeepingItsSign) {
  OpenPattern(200'000);
  ShowAt(199'000);
  state.AccelMode = 2;
  const auto steps = Differences(Hold(-16, 300), 199'000);
  // More than 1,024 bytes after 65 steps, more than 2,048 after 32 steps of double length.
  std::vector<std::int64_t> wanted(65, -16);
  wanted.insert(wanted.end(), 32, -32);
  wanted.insert(wanted.end(), 203, -64);
  EXPECT_EQ(steps, wanted);
  EXPECT_EQ(state.ScrollStep, -64);
}

TEST_F(ScrollingTest, AtTheEndOfTheFileTheDistanceGoesOnCounting) {
  OpenPattern(600);
  state.AccelMode = 1;
  Hold(16, 100);
  EXPECT_EQ(state.SWStart, 88);
  EXPECT_EQ(state.ScrollStep, 32);
}

// The comparison with the bound is signed: it only affects steps down.
TEST_F(ScrollingTest, AStepOfTheBoundIsNotDoubledDownButUp) {
  OpenPattern(600);
  state.AccelMode = 4;
  Hold(66'666'512, 66);
  EXPECT_EQ(state.ScrollStep, 66'666'512);
  Hold(66'666'511, 66);
  EXPECT_EQ(state.ScrollStep, 133'333'022);
  Hold(-66'666'512, 66);
  EXPECT_EQ(state.ScrollStep, -133'333'024);
}

TEST_F(ScrollingTest, ADragShowsThePagesThatTheHandChooses) {
  OpenPattern(5000);
  std::vector<std::string> offsets;
  state.AutoScroll = true;
  display.onFrame = [&] {
    offsets.push_back(Text(0, 0));
    state.SWStart += 100;
    if (offsets.size() == 3) state.AutoScroll = false;
  };
  Show();
  EXPECT_EQ(offsets, (std::vector<std::string>{"00000000", "00000064", "000000C8"}));
  // The texts are updated only when the scrolling ends.
  EXPECT_EQ(display.window.Dstart, "300");
}

TEST_F(ScrollingTest, AHandlerMayRefreshWhileThePagesTurn) {
  OpenPattern(5000);
  state.AutoScroll = true;
  state.ScrollStep = 16;
  int frames = 0;
  display.onFrame = [&] {
    if (++frames < 3) return;
    // The button is released: one more step, then the scrolling ends.
    state.ScrollStep = 16;
    state.AutoScroll = false;
    Show();
    state.ScrollStep = 0;
  };
  Show();
  EXPECT_EQ(frames, 3);
  EXPECT_EQ(state.SWStart, 64);
  EXPECT_EQ(state.SWPrev, 64);
  EXPECT_EQ(display.window.Dstart, "64");
}

TEST_F(ScrollingTest, TheCountersBeginAnewWithEveryRefresh) {
  OpenPattern(50'000);
  state.AccelMode = 4;
  for (int click = 0; click < 200; ++click) {
    state.ScrollStep = 16;
    Show();
    ASSERT_EQ(state.ScrollStep, 16);
    ASSERT_EQ(state.ScrollCount, 16);
    ASSERT_EQ(state.ScrollLimit, 1024);
  }
}

TEST_F(ScrollingTest, AMarkLeavesNoColourBehindOnThePagesThatPass) {
  OpenPattern(5000);
  bwp::MoveMarks(state, 700, 900);
  state.AutoScroll = true;
  state.ScrollStep = 16;
  int frames = 0;
  display.onFrame = [&] {
    int coloured = 0;
    for (int position = 0; position < bwp::kPageBytes; ++position) {
      coloured += ValueColour(position) != bwp::kValueColour ? 1 : 0;
    }
    const auto onPage = [&](std::int64_t mark) {
      return mark >= state.SWStart && mark < state.SWStart + 512;
    };
    EXPECT_EQ(coloured, (onPage(700) ? 1 : 0) + (onPage(900) ? 1 : 0)) << state.SWStart;
    if (++frames == 100) state.AutoScroll = false;
  };
  Show();
}

// The doubling rule written a second way, with the state reset for every held button.
RC_GTEST_FIXTURE_PROP(ScrollingTest, HoldingFollowsTheRuleOfDoubling, ()) {
  const auto length = *rc::gen::inRange<std::size_t>(0, 100'000);
  const auto step = *rc::gen::element<std::int32_t>(16, -16, 512, -512);
  const auto frames = *rc::gen::inRange(1, 200);
  state.AccelMode = *rc::gen::inRange(0, 5);
  OpenPattern(length);
  const auto from = *rc::gen::inRange<std::int64_t>(0, 100'000);
  ShowAt(from);
  const double last = std::max(0.0, static_cast<double>(length) - 512);
  double start = std::min(static_cast<double>(from), last);
  double current = step;
  double scrolled = 0;
  double limit = 64.0 * std::abs(step);
  const auto shown = Hold(step, frames);
  for (const std::int64_t page : shown) {
    start = std::max(0.0, std::min(start + current, last));
    RC_ASSERT(static_cast<double>(page) == start);
    scrolled += std::abs(current);
    if (scrolled > limit && std::abs(current) < std::abs(step) * std::exp2(state.AccelMode)) {
      limit *= 2;
      current *= 2;
    }
  }
}

}  // namespace
