#include "interaction/scroll_bar.h"

#include <algorithm>

#include "viewer/refresh.h"

namespace bwp {
namespace {

std::int32_t LineStep(ScrollBar::Line line) {
  return line == ScrollBar::Line::kUp ? -kBytesPerRow : kBytesPerRow;
}

}  // namespace

void TakeOneStep(ViewState& state, Display& display, std::int32_t step) {
  if (RefreshIsHeldBack(state)) return;
  state.SWStart += step;
  ClampStart(state);
  Refresh(state, display);
}

ScrollBar::ScrollBar(ViewState& state, Display& display, HoldTimer& timer)
    : state_(state), display_(display), timer_(timer) {}

void ScrollBar::PressLine(Line line) {
  held_ = line == Line::kUp ? Held::kUp : Held::kDown;
  timer_.Enable();
  state_.ScrollStep = LineStep(line);
  state_.FieldTyping = false;
}

void ScrollBar::ReleaseLine(Line line) {
  if (held_ != (line == Line::kUp ? Held::kUp : Held::kDown)) return;
  Release(LineStep(line));
}

void ScrollBar::PressTrack(double x, double y) {
  held_ = Held::kTrack;
  state_.FieldTyping = false;
  state_.ScrollStep = TrackStep(y);
  if (state_.ScrollStep != 0) {
    timer_.Enable();
  } else {
    state_.AutoScroll = false;
    timer_.Disable();
  }
  TrackMouseX_ = x;
  TrackMouseY_ = y;
}

void ScrollBar::ReleaseTrack(double y) {
  if (held_ != Held::kTrack) return;
  Release(TrackStep(y));
}

void ScrollBar::DoubleClickTrack() {
  PressTrack(TrackMouseX_, TrackMouseY_);
}

void ScrollBar::PressThumb() {
  held_ = Held::kThumb;
  ThumbDragging_ = false;
  state_.ScrollStep = 0;
  state_.FieldTyping = false;
}

void ScrollBar::ReleaseThumb() {
  if (held_ != Held::kThumb) return;
  held_ = Held::kNothing;
  ThumbDragging_ = false;
  state_.AutoScroll = false;
  state_.ScrollStep = 0;
  // The last move may have come in one batch of events with this release, too late for the drag's refresh.
  if (state_.SWStart != state_.SWPrev) Refresh(state_, display_);
}

void ScrollBar::DragThumb(bool buttonDown, double y) {
  if (!buttonDown) {
    ThumbDragging_ = false;
    state_.AutoScroll = false;
    return;
  }
  if (held_ != Held::kThumb) return;
  if (!ThumbDragging_) {
    DragOriginY_ = y;
    ThumbDragging_ = true;
    state_.AutoScroll = true;
    timer_.Disable();
    display_.LetEventsRun();
    Refresh(state_, display_);
    return;
  }
  ScrollThumb& thumb = state_.thumb;
  thumb.top = std::max(0.0, std::min(thumb.ThumbTravel, thumb.top + y - DragOriginY_));
  state_.SWStart = thumb.StartOf(thumb.top);
  display_.MoveThumb();
  display_.ShowWindowTexts(WindowTextsOf(state_));
}

void ScrollBar::TurnWheel(int lines) {
  if (held_ != Held::kNothing || state_.AutoScroll || state_.ScrollStep != 0) return;
  state_.FieldTyping = false;
  TakeOneStep(state_, display_, lines * kBytesPerRow);
}

void ScrollBar::HoldElapsed() {
  // The wait is over before the scrolling begins: a button pressed again while it ends has a wait of its own.
  timer_.Disable();
  state_.AutoScroll = true;
  Refresh(state_, display_);
}

void ScrollBar::LetGo() {
  switch (held_) {
    case Held::kNothing:
      break;
    case Held::kUp:
      ReleaseLine(Line::kUp);
      break;
    case Held::kDown:
      ReleaseLine(Line::kDown);
      break;
    case Held::kTrack:
      ReleaseTrack(TrackMouseY_);
      break;
    case Held::kThumb:
      ReleaseThumb();
      break;
  }
}

void ScrollBar::Stop() {
  held_ = Held::kNothing;
  ThumbDragging_ = false;
  state_.AutoScroll = false;
  state_.ScrollStep = 0;
  timer_.Disable();
}

// A page up above the thumb, a page down below it, nothing on it.
std::int32_t ScrollBar::TrackStep(double y) const {
  const ScrollThumb& thumb = state_.thumb;
  if (y < thumb.top) return -kPageBytes;
  if (thumb.top + thumb.height >= y) return 0;
  return kPageBytes;
}

// Nothing is held any more; the last step is taken.
void ScrollBar::Release(std::int32_t step) {
  Stop();
  TakeOneStep(state_, display_, step);
}

AccelChecks ChooseAcceleration(ViewState& state, AccelChecks shown, int chosen) {
  if (chosen < 0 || chosen >= static_cast<int>(shown.size())) return shown;
  state.AccelMode = chosen;
  if (chosen == 0) {
    shown[0] = true;
    shown[1] = false;
    return shown;
  }
  shown.fill(false);
  shown[static_cast<std::size_t>(chosen)] = true;
  return shown;
}

}  // namespace bwp
