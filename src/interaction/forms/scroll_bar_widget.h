#pragma once

#include <QWidget>

#include "interaction/forms/hold_timer.h"
#include "interaction/scroll_bar.h"

class QMouseEvent;

namespace bwp {

class LineButton;

/// The main form's scroll bar: the line buttons `VSUP` and `VSDW`, and between them the track `VSBack` with
/// the thumb `VSB`. It sizes the thumb to its track itself; ShowThumb puts it where the view state has it.
class ScrollBarWidget : public QWidget {
 public:
  ScrollBarWidget(ViewState& state, Display& display, QWidget* parent = nullptr);

  /// The thumb's place or height changed, or the bar was enabled or disabled.
  void ShowThumb();

  /// `TimVSCR`, which the keys that scroll share.
  HoldTimer& Timer() { return timer_; }

  /// The wheel was turned over the window, by so many eighths of a degree away from the person.
  void TurnWheel(int eighths);

  /// The window lost the focus.
  void LetGo();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool TrackMouse(const QMouseEvent& mouse);
  bool ThumbMouse(const QMouseEvent& mouse);

  ViewState& state_;
  QtHoldTimer timer_;
  ScrollBar bar_;
  LineButton* VSUP_;
  LineButton* VSDW_;
  QWidget* VSBack_;
  QWidget* VSB_;
  int wheel_ = 0;  // what was turned and is no whole line yet
};

}  // namespace bwp
