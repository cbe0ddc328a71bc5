#include "interaction/keyboard_navigation.h"

#include <utility>

#include "interaction/chunk_selection.h"

namespace bwp {

KeyboardNavigation::KeyboardNavigation(ViewState& state, Display& display, HoldTimer& timer)
    : state_(state), display_(display), timer_(timer) {}

bool KeyboardNavigation::Takes(KeyCode code) const {
  if (state_.FieldTyping || state_.EditMode) return false;
  return code == kKeyPageUp || code == kKeyPageDown || code == kKeyEnd || code == kKeyHome ||
         code == kKeyUp || code == kKeyDown;
}

void KeyboardNavigation::KeyDown(KeyCode code) {
  if (KeyScrolling_ || state_.FieldTyping || state_.EditMode) return;
  state_.NavKeyHeld = true;
  switch (code) {
    case kKeyDown:
      StartScrolling(kBytesPerRow);
      return;
    case kKeyUp:
      StartScrolling(-kBytesPerRow);
      return;
    case kKeyPageDown:
      StartScrolling(kPageBytes);
      return;
    case kKeyPageUp:
      StartScrolling(-kPageBytes);
      return;
    case kKeyHome:
      state_.SWStart = state_.MarkStart;
      break;
    case kKeyEnd:
      state_.SWStart = StartOfPageAtMarkEnd(state_);
      break;
    default:
      state_.NavKeyHeld = false;
      break;
  }
  state_.AutoScroll = false;
}

void KeyboardNavigation::KeyUp() {
  const std::int32_t step = std::exchange(state_.ScrollStep, 0);
  timer_.Disable();
  state_.AutoScroll = false;
  KeyScrolling_ = false;
  if (!state_.FieldTyping) TakeOneStep(state_, display_, step);
  EndSearchTyping();
}

void KeyboardNavigation::LetGo() {
  if (KeyScrolling_ || state_.NavKeyHeld) {
    KeyUp();
  } else {
    EndSearchTyping();
  }
}

// A search leaves the fields as typed into until the key that started it comes up.
void KeyboardNavigation::EndSearchTyping() {
  if (state_.ForceRefresh && !state_.EditMode) state_.FieldTyping = false;
  state_.ForceRefresh = false;
}

void KeyboardNavigation::StartScrolling(std::int32_t step) {
  KeyScrolling_ = true;
  state_.ScrollStep = step;
  timer_.Enable();
}

}  // namespace bwp
