#include "fileops/forms/input_barrier.h"

#include <utility>

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace bwp {
namespace {

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
      return true;
    default:
      return false;
  }
}

bool IsPartOf(const QWidget& window, const QObject& receiver) {
  if (receiver.isWidgetType()) return static_cast<const QWidget&>(receiver).window() == &window;
  return window.windowHandle() == &receiver;
}

}  // namespace

InputBarrier::~InputBarrier() {
  TakeDown();
}

void InputBarrier::PutUp() {
  if (std::exchange(up_, true)) return;
  // What is held in another window is let go there: it will not see the key or the button come up.
  TellOtherWindows(QEvent::WindowBlocked);
  QCoreApplication::instance()->installEventFilter(this);
}

void InputBarrier::TakeDown() {
  if (!std::exchange(up_, false)) return;
  QCoreApplication::instance()->removeEventFilter(this);
  TellOtherWindows(QEvent::WindowUnblocked);
}

bool InputBarrier::eventFilter(QObject* watched, QEvent* event) {
  if (!IsInput(event->type()) || MayReceive(*watched)) return false;
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  // A key reaches the window before it reaches the widget in it that has the focus; once is enough.
  if (isKey && watched->isWindowType()) HandOn(*event);
  return true;
}

void InputBarrier::HandOn(QEvent& event) {
  QWidget* const focused = window_.focusWidget();
  QCoreApplication::sendEvent(focused != nullptr ? focused : &window_, &event);
}

void InputBarrier::TellOtherWindows(int eventType) const {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window == &window_ || !window->isVisible()) continue;
    QEvent event(static_cast<QEvent::Type>(eventType));
    QCoreApplication::sendEvent(window, &event);
  }
}

bool InputBarrier::MayReceive(const QObject& receiver) const {
  const QWidget* const box = QApplication::activeModalWidget();
  return IsPartOf(window_, receiver) || (box != nullptr && IsPartOf(*box, receiver));
}

}  // namespace bwp
