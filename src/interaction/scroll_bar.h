#pragma once

#include <array>

#include "viewer/display.h"
#include "viewer/view_state.h"

namespace bwp {

/// The timer of a held button or key (`TimVSCR`): half a second after it was enabled, and unless it was
/// disabled before, it reports once to ScrollBar::HoldElapsed.
class HoldTimer {
 public:
  virtual ~HoldTimer() = default;
  /// Starts the wait; a wait that is on goes on.
  virtual void Enable() = 0;
  virtual void Disable() = 0;
};

/// Moves the page by one step, within the file, and shows it; does nothing while the refresh is held back.
/// ScrollStep must be 0: events run in here, and a step that a key or button pressed in them has set is its
/// own.
void TakeOneStep(ViewState& state, Display& display, std::int32_t step);

/// The scroll bar's rules: two line buttons, a track that pages, a thumb that drags, all of which scroll on
/// while they are held. Heights are form units; y on the track is measured from its top, y on the thumb from
/// the thumb's top. Letting go of what is not held does nothing.
class ScrollBar {
 public:
  enum class Line { kUp, kDown };  ///< `VSUP` and `VSDW`.

  ScrollBar(ViewState& state, Display& display, HoldTimer& timer);

  void PressLine(Line line);
  void ReleaseLine(Line line);

  void PressTrack(double x, double y);
  void ReleaseTrack(double y);
  /// The second press of a double click: pressed again where it was pressed before.
  void DoubleClickTrack();

  void PressThumb();
  void ReleaseThumb();
  /// The pointer moved over, or is held by, the thumb. While a drag lasts this comes back only after the
  /// first move: that one runs the refresh in which the others are handled.
  void DragThumb(bool buttonDown, double y);

  /// The mouse wheel was turned: goes down by so many lines, or up where the number is negative. Does nothing
  /// while something is held.
  void TurnWheel(int lines);

  /// The button or key was held for half a second: scrolls until it is let go.
  void HoldElapsed();

  /// The window lost the focus: whatever is held is let go.
  void LetGo();
  /// The bar was disabled: whatever is held or waits is over, without another step.
  void Stop();

 private:
  enum class Held { kNothing, kUp, kDown, kTrack, kThumb };

  std::int32_t TrackStep(double y) const;
  void Release(std::int32_t step);

  ViewState& state_;
  Display& display_;
  HoldTimer& timer_;
  Held held_ = Held::kNothing;
  bool ThumbDragging_ = false;
  double DragOriginY_ = 0;
  double TrackMouseX_ = 0;
  double TrackMouseY_ = 0;
};

/// Check marks of the five entries of the menu "Scroll Options", in the order of AccelMode.
using AccelChecks = std::array<bool, 5>;

/// Sets AccelMode to the entry that was chosen (0 to 4; another number changes nothing) and gives the check
/// marks that the menu shows then. "Not Accelerated" unchecks its neighbour alone; that slip is kept.
AccelChecks ChooseAcceleration(ViewState& state, AccelChecks shown, int chosen);

}  // namespace bwp
