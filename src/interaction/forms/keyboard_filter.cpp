#include "interaction/forms/keyboard_filter.h"

#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QTextEdit>
#include <QWheelEvent>

namespace bwp {
namespace {

KeyCode CodeOf(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_PageUp:
      return kKeyPageUp;
    case Qt::Key_PageDown:
      return kKeyPageDown;
    case Qt::Key_End:
      return kKeyEnd;
    case Qt::Key_Home:
      return kKeyHome;
    case Qt::Key_Left:
      return kKeyLeft;
    case Qt::Key_Up:
      return kKeyUp;
    case Qt::Key_Right:
      return kKeyRight;
    case Qt::Key_Down:
      return kKeyDown;
    default:
      return kKeyNone;
  }
}

// Where keys have a meaning of their own: fields that are typed into, and a menu that was opened by its key.
bool HasKeysOfItsOwn(const QWidget& widget) {
  return qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QTextEdit*>(&widget) != nullptr ||
         qobject_cast<const QMenuBar*>(&widget) != nullptr;
}

}  // namespace

KeyboardFilter::KeyboardFilter(ViewState& state, Display& display, ScrollBarWidget& scrollBar,
                               QWidget& window)
    : keys_(state, display, scrollBar.Timer()), scrollBar_(scrollBar), window_(window) {
  window.setFocusPolicy(Qt::ClickFocus);
  window.setFocus();
  QCoreApplication::instance()->installEventFilter(this);
}

bool KeyboardFilter::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (watched == &window_ && (type == QEvent::WindowDeactivate || type == QEvent::WindowBlocked)) {
    LetGoOfKey();
    scrollBar_.LetGo();
    return false;
  }
  if (watched == &window_ && type == QEvent::Wheel) {
    scrollBar_.TurnWheel(static_cast<const QWheelEvent&>(*event).angleDelta().y());
    return true;
  }
  if (type != QEvent::KeyPress && type != QEvent::KeyRelease) return false;
  if (event == delivering_ || !watched->isWidgetType()) return false;
  auto& receiver = static_cast<QWidget&>(*watched);
  auto& key = static_cast<QKeyEvent&>(*event);
  if (receiver.window() != &window_) {
    // A menu or a dialog that opened meanwhile sees the key come up.
    if (type == QEvent::KeyRelease && !key.isAutoRepeat()) LetGoOfKey();
    return false;
  }
  if (type == QEvent::KeyPress) {
    KeyPressed(receiver, key);
  } else {
    KeyReleased(receiver, key);
  }
  return true;
}

void KeyboardFilter::KeyPressed(QWidget& receiver, QKeyEvent& event) {
  const KeyCode code = CodeOf(event);
  const bool again = event.isAutoRepeat();
  if (!again) keyIsDown_ = true;
  if (!HasKeysOfItsOwn(receiver) && keys_.Takes(code)) {
    event.accept();
    if (!again) keys_.KeyDown(code);
    return;
  }
  Deliver(receiver, event);
  // What the field did may have taken so long that the key is up again.
  if (!again && keyIsDown_) keys_.KeyDown(code);
}

void KeyboardFilter::KeyReleased(QWidget& receiver, QKeyEvent& event) {
  const bool again = event.isAutoRepeat();
  if (!again) keyIsDown_ = false;
  Deliver(receiver, event);
  if (!again) keys_.KeyUp();
}

void KeyboardFilter::Deliver(QWidget& receiver, QKeyEvent& event) {
  const QEvent* const outer = std::exchange(delivering_, &event);
  QCoreApplication::sendEvent(&receiver, &event);
  delivering_ = outer;
}

void KeyboardFilter::LetGoOfKey() {
  if (std::exchange(keyIsDown_, false)) keys_.LetGo();
}

}  // namespace bwp
