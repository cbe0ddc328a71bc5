#pragma once

#include "interaction/scroll_bar.h"
#include "viewer/display.h"
#include "viewer/view_state.h"

namespace bwp {

/// The numbers of the keys that move the page or the grid's current cell.
enum KeyCode : int {
  kKeyNone = 0,  ///< Any key that is not one of these.
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
};

/// The form's keys. The four scrolling keys work like the scroll bar's buttons: the step is taken when the
/// key is let go, and a key that is held scrolls on. Home and End go to the marks. A held key is one KeyDown:
/// its automatic repeats are not to be handed in.
class KeyboardNavigation {
 public:
  KeyboardNavigation(ViewState& state, Display& display, HoldTimer& timer);

  /// Whether the key, pressed now, is one that the form uses, so that nobody else may.
  bool Takes(KeyCode code) const;
  void KeyDown(KeyCode code);
  void KeyUp();
  /// The window lost the focus while a key was down. A key that moves the page ends as if it came up; any
  /// other one must not cause a refresh now: what took the focus may be an operation on the file.
  void LetGo();

 private:
  void StartScrolling(std::int32_t step);
  void EndSearchTyping();

  ViewState& state_;
  Display& display_;
  HoldTimer& timer_;
  bool KeyScrolling_ = false;
};

}  // namespace bwp
