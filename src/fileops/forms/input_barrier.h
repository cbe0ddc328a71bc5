#pragma once

#include <QObject>

class QWidget;

namespace bwp {

/// Keeps the person's input to one window, and to the message boxes above it, while it is up. Modality would
/// do the same; but a window manager that gives the focus back while a modal window closes leaves the toolkit
/// believing that no window has it, and from then on no field takes a key.
class InputBarrier : public QObject {
 public:
  explicit InputBarrier(QWidget& window) : window_(window) {}
  ~InputBarrier() override;

  void PutUp();
  void TakeDown();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TellOtherWindows(int eventType) const;
  bool MayReceive(const QObject& receiver) const;
  void HandOn(QEvent& event);

  QWidget& window_;
  bool up_ = false;
};

}  // namespace bwp
