#pragma once

#include <functional>
#include <gtest/gtest.h>

#include "interaction/scroll_bar.h"
#include "support/interaction_bench.h"

namespace bwp::test {

/// A scroll bar on an open file.
struct BarOnFile : OpenedFile {
  explicit BarOnFile(std::size_t length) : OpenedFile(length) {}

  using Line = ScrollBar::Line;

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

}  // namespace bwp::test
