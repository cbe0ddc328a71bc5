#pragma once

#include <QElapsedTimer>
#include <QTimer>

class QWidget;

namespace bwp {

/// Makes a repeated scroll show every page it passes, no faster than the screen can: a held key then scrolls
/// alike on every machine and takes little processor time.
class FramePacer {
 public:
  FramePacer();

  /// Paints what the widget shows now and handles events until the screen can show the next frame.
  void ShowFrame(QWidget& page);

 private:
  QElapsedTimer clock_;
  qint64 nextFrame_ = 0;  // nanoseconds of clock_
  QTimer wake_;
};

}  // namespace bwp
