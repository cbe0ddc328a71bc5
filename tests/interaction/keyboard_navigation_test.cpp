#include "interaction/keyboard_navigation.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <utility>

#include "support/interaction_bench.h"
#include "viewer/refresh.h"

namespace {

using bwp::KeyboardNavigation;
using bwp::KeyCode;
using bwp::ScrollBar;
using bwp::test::OpenedFile;

struct Keys : OpenedFile {
  explicit Keys(std::size_t length) : OpenedFile(length) { bwp::Refresh(state, display); }

  void Type(KeyCode code) {
    keys.KeyDown(code);
    keys.KeyUp();
  }

  KeyboardNavigation keys{state, display, timer};
  ScrollBar bar{state, display, timer};
};

TEST(NavigationKeys, ReleasedSoonMoveExactlyOneLineOrPage) {
  Keys k(5000);
  k.Type(bwp::kKeyPageDown);
  EXPECT_EQ(k.state.SWPrev, 512);
  k.Type(bwp::kKeyDown);
  EXPECT_EQ(k.state.SWPrev, 528);
  k.Type(bwp::kKeyUp);
  k.Type(bwp::kKeyUp);
  EXPECT_EQ(k.state.SWPrev, 496);
  k.Type(bwp::kKeyPageUp);
  EXPECT_EQ(k.state.SWPrev, 0);
  EXPECT_EQ(k.state.ScrollStep, 0);
}

TEST(NavigationKeys, APressArmsTheWaitAndMovesNothing) {
  Keys k(5000);
  k.keys.KeyDown(bwp::kKeyDown);
  EXPECT_TRUE(k.timer.enabled);
  EXPECT_EQ(k.state.SWStart, 0);
  EXPECT_TRUE(k.state.NavKeyHeld);
  k.keys.KeyUp();
  EXPECT_FALSE(k.timer.enabled);
}

TEST(NavigationKeys, HeldTheyScrollUntilTheyAreLetGo) {
  Keys k(5000);
  int frames = 0;
  k.display.onFrame = [&] {
    if (++frames == 4) k.keys.KeyUp();
  };
  k.keys.KeyDown(bwp::kKeyDown);
  k.bar.HoldElapsed();
  EXPECT_EQ(k.state.SWStart, 5 * 16);
  EXPECT_EQ(k.state.SWPrev, 5 * 16);
  EXPECT_FALSE(k.state.AutoScroll);
}

TEST(NavigationKeys, AnotherKeyPressedMeanwhileIsIgnored) {
  Keys k(5000);
  k.keys.KeyDown(bwp::kKeyPageDown);
  k.keys.KeyDown(bwp::kKeyUp);
  k.keys.KeyDown(bwp::kKeyNone);
  EXPECT_EQ(k.state.ScrollStep, 512);
  k.keys.KeyUp();
  EXPECT_EQ(k.state.SWStart, 512);
}

TEST(NavigationKeys, HomeAndEndShowTheMarksWhenTheyComeUp) {
  Keys k(5000);
  k.state.MarkStart = 1000;
  k.state.MarkEnd = 3000;
  k.keys.KeyDown(bwp::kKeyHome);
  EXPECT_EQ(k.state.SWStart, 1000);
  EXPECT_EQ(k.state.SWPrev, 0);
  EXPECT_FALSE(k.timer.enabled);
  k.keys.KeyUp();
  EXPECT_EQ(k.state.SWPrev, 1000);
  k.Type(bwp::kKeyEnd);
  EXPECT_EQ(k.state.SWPrev, 2489);
  k.state.MarkEnd = 1001;
  k.state.MarkStart = 0;
  k.Type(bwp::kKeyHome);
  EXPECT_EQ(k.state.SWPrev, 0);
}

TEST(NavigationKeys, AnyOtherKeyOnlyForgetsTheLastOne) {
  Keys k(5000);
  k.Type(bwp::kKeyHome);
  EXPECT_TRUE(k.state.NavKeyHeld);
  k.keys.KeyDown(bwp::kKeyLeft);
  EXPECT_FALSE(k.state.NavKeyHeld);
  EXPECT_FALSE(k.timer.enabled);
  EXPECT_EQ(k.state.ScrollStep, 0);
}

TEST(NavigationKeys, WhileAFieldIsTypedIntoTheyDoNothing) {
  Keys k(5000);
  k.state.FieldTyping = true;
  k.transcript.clear();
  EXPECT_FALSE(k.keys.Takes(bwp::kKeyDown));
  k.Type(bwp::kKeyDown);
  k.Type(bwp::kKeyHome);
  EXPECT_EQ(k.state.SWStart, 0);
  EXPECT_FALSE(k.timer.enabled);
  EXPECT_TRUE(k.state.FieldTyping);
  EXPECT_TRUE(k.transcript.empty());
}

TEST(NavigationKeys, TheFormTakesItsSixKeysAndNoOther) {
  Keys k(5000);
  for (const KeyCode code :
       {bwp::kKeyPageUp, bwp::kKeyPageDown, bwp::kKeyHome, bwp::kKeyEnd, bwp::kKeyUp, bwp::kKeyDown}) {
    EXPECT_TRUE(k.keys.Takes(code));
  }
  for (const KeyCode code : {bwp::kKeyNone, bwp::kKeyLeft, bwp::kKeyRight}) EXPECT_FALSE(k.keys.Takes(code));
}

TEST(NavigationKeys, WhatIsPressedWhileTheLastStepIsShownKeepsItsOwn) {
  for (const bool button : {false, true}) {
    Keys k(5000);
    bool pressed = false;
    k.display.onEvents = [&] {
      if (std::exchange(pressed, true)) return;
      button ? k.bar.PressLine(ScrollBar::Line::kDown) : k.keys.KeyDown(bwp::kKeyDown);
    };
    k.Type(bwp::kKeyDown);
    EXPECT_EQ(k.state.SWPrev, 16);
    EXPECT_TRUE(k.timer.enabled);
    button ? k.bar.ReleaseLine(ScrollBar::Line::kDown) : k.keys.KeyUp();
    EXPECT_EQ(k.state.SWPrev, 32);
    EXPECT_EQ(k.state.ScrollStep, 0);
  }
}

TEST(NavigationKeys, AKeyPressedWhileTheLastStepIsShownAndHeldScrolls) {
  Keys k(5000);
  bool pressed = false;
  k.display.onEvents = [&] {
    if (!std::exchange(pressed, true)) k.keys.KeyDown(bwp::kKeyDown);
  };
  k.Type(bwp::kKeyDown);
  int frames = 0;
  k.display.onFrame = [&] {
    if (++frames == 3) k.keys.KeyUp();
  };
  k.bar.HoldElapsed();
  EXPECT_EQ(k.state.SWPrev, 5 * 16);
}

TEST(NavigationKeys, InEditModeTheyDoNothing) {
  Keys k(5000);
  k.state.EditMode = true;
  k.transcript.clear();
  EXPECT_FALSE(k.keys.Takes(bwp::kKeyDown));
  k.Type(bwp::kKeyDown);
  k.Type(bwp::kKeyEnd);
  EXPECT_EQ(k.state.SWStart, 0);
  EXPECT_TRUE(k.transcript.empty());
}

TEST(NavigationKeys, AKeyHeldSinceBeforeEditModeIsOverAndLeavesThePageAndTheTypingAlone) {
  Keys k(5000);
  k.keys.KeyDown(bwp::kKeyDown);
  k.state.EditMode = true;
  k.state.FieldTyping = true;
  k.state.ForceRefresh = true;
  k.keys.KeyUp();
  EXPECT_EQ(k.state.SWStart, 0);
  EXPECT_TRUE(k.state.FieldTyping);
  k.state.EditMode = false;
  k.state.FieldTyping = false;
  k.Type(bwp::kKeyDown);
  EXPECT_EQ(k.state.SWStart, 16);
}

TEST(NavigationKeys, HomeEndAndAnyOtherKeyEndARepeatingScroll) {
  for (const KeyCode code : {bwp::kKeyHome, bwp::kKeyEnd, bwp::kKeyLeft, bwp::kKeyNone}) {
    Keys k(50'000);
    int frames = 0;
    k.display.onFrame = [&] {
      if (++frames == 3) k.keys.KeyDown(code);
      if (frames > 10) k.state.AutoScroll = false;
    };
    k.bar.PressLine(ScrollBar::Line::kDown);
    k.bar.HoldElapsed();
    EXPECT_EQ(frames, 3) << code;
    EXPECT_FALSE(k.state.AutoScroll) << code;
  }
}

TEST(NavigationKeys, AKeyThatComesUpAfterASearchEndsTyping) {
  Keys k(5000);
  k.state.FieldTyping = true;
  k.state.ForceRefresh = true;
  k.keys.KeyUp();
  EXPECT_FALSE(k.state.FieldTyping);
  EXPECT_FALSE(k.state.ForceRefresh);
}

TEST(NavigationKeys, LosingTheFocusLetsGoOfAHeldKey) {
  Keys k(5000);
  int frames = 0;
  k.display.onFrame = [&] {
    if (++frames == 4) k.keys.LetGo();
  };
  k.keys.KeyDown(bwp::kKeyDown);
  k.bar.HoldElapsed();
  EXPECT_FALSE(k.state.AutoScroll);
  EXPECT_EQ(k.state.SWStart, 5 * 16);
}

TEST(NavigationKeys, LosingTheFocusWithAnotherKeyDownRefreshesNothing) {
  Keys k(5000);
  k.keys.KeyDown(bwp::kKeyNone);
  k.state.FieldTyping = true;
  k.state.ForceRefresh = true;
  k.transcript.clear();
  k.keys.LetGo();
  EXPECT_TRUE(k.transcript.empty());
  EXPECT_FALSE(k.state.FieldTyping);
  EXPECT_FALSE(k.state.ForceRefresh);
}

TEST(HeldScrolling, WithoutAFileNothingRepeats) {
  bwp::test::Transcript transcript;
  bwp::test::RecordedDisplay display{transcript};
  bwp::test::RecordedTimer timer;
  bwp::ViewState state;
  KeyboardNavigation keys{state, display, timer};
  ScrollBar bar{state, display, timer};
  display.onFrame = [&] { state.AutoScroll = false; };
  keys.KeyDown(bwp::kKeyPageDown);
  bar.HoldElapsed();
  keys.KeyUp();
  bar.PressThumb();
  bar.DragThumb(true, 20);
  bar.DragThumb(true, 40);
  bar.ReleaseThumb();
  EXPECT_EQ(std::count(transcript.begin(), transcript.end(), "frame"), 0);
  EXPECT_EQ(state.SWStart, 0);
  EXPECT_FALSE(state.AutoScroll);
}

TEST(HeldScrolling, InAnEmptyFileEveryTurnWaitsForTheScreenAndLettingGoEndsIt) {
  for (const bool drag : {false, true}) {
    Keys k(0);
    int frames = 0;
    k.display.onFrame = [&] {
      if (++frames == 3) drag ? k.bar.ReleaseThumb() : k.keys.KeyUp();
      if (frames > 10) k.state.AutoScroll = false;
    };
    if (drag) {
      k.bar.PressThumb();
      k.bar.DragThumb(true, 20);
    } else {
      k.keys.KeyDown(bwp::kKeyDown);
      k.bar.HoldElapsed();
    }
    EXPECT_EQ(frames, 3);
    EXPECT_EQ(k.state.SWStart, 0);
    EXPECT_FALSE(k.state.AutoScroll);
  }
}

RC_GTEST_PROP(NavigationModel, ShortKeysMoveByTheirStepsWithinTheFile, ()) {
  const auto length = *rc::gen::inRange<std::int64_t>(1, 9000);
  Keys k(static_cast<std::size_t>(length));
  const auto limit = std::max<std::int64_t>(0, length - 512);
  std::int64_t expected = 0;
  const auto keys = *rc::gen::container<std::vector<int>>(rc::gen::inRange(32, 42));
  for (const int key : keys) {
    if (key == 33) expected -= 512;
    if (key == 34) expected += 512;
    if (key == 35) expected = k.state.MarkEnd - 511;
    if (key == 36) expected = k.state.MarkStart;
    if (key == 38) expected -= 16;
    if (key == 40) expected += 16;
    expected = std::clamp<std::int64_t>(expected, 0, limit);
    k.Type(static_cast<KeyCode>(key));
    RC_ASSERT(k.state.SWStart == expected);
    RC_ASSERT(k.state.SWPrev == expected);
  }
}

}  // namespace
