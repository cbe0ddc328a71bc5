#pragma once

#include <QObject>

#include "interaction/forms/scroll_bar_widget.h"
#include "interaction/keyboard_navigation.h"

class QKeyEvent;

namespace bwp {

/// The main form's keyboard, whichever of its controls has the focus. A key in a text field reaches the
/// field first and then the form; elsewhere the form's own keys go to the form alone, so that neither a
/// button nor a group of options makes something else of them. Also lets go of a held key and of the scroll
/// bar when the window loses the focus, and hands the scroll bar the mouse wheel that nobody else took.
class KeyboardFilter : public QObject {
 public:
  /// Works as long as it lives; `window` gets the focus, so that the keys work at once.
  KeyboardFilter(ViewState& state, Display& display, ScrollBarWidget& scrollBar, QWidget& window);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void KeyPressed(QWidget& receiver, QKeyEvent& event);
  void KeyReleased(QWidget& receiver, QKeyEvent& event);
  void Deliver(QWidget& receiver, QKeyEvent& event);
  void LetGoOfKey();

  KeyboardNavigation keys_;
  ScrollBarWidget& scrollBar_;
  QWidget& window_;
  const QEvent* delivering_ = nullptr;  // on its way to the field or button that has the focus
  bool keyIsDown_ = false;
};

}  // namespace bwp
