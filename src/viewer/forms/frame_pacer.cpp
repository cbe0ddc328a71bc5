#include "viewer/forms/frame_pacer.h"

#include <algorithm>

#include <QCoreApplication>
#include <QScreen>
#include <QWidget>

namespace bwp {
namespace {

constexpr qint64 kNanosecondsPerSecond = 1'000'000'000;
constexpr qint64 kNanosecondsPerMillisecond = 1'000'000;

qint64 FrameTime(const QWidget& page) {
  constexpr double kUsualRate = 60;
  const double rate = page.screen() != nullptr ? page.screen()->refreshRate() : kUsualRate;
  return static_cast<qint64>(static_cast<double>(kNanosecondsPerSecond) / std::max(rate, 1.0));
}

}  // namespace

FramePacer::FramePacer() {
  clock_.start();
  wake_.setTimerType(Qt::PreciseTimer);
  wake_.setSingleShot(true);
}

void FramePacer::ShowFrame(QWidget& page) {
  page.repaint();
  QCoreApplication::processEvents();
  for (qint64 now = clock_.nsecsElapsed(); now < nextFrame_; now = clock_.nsecsElapsed()) {
    const qint64 milliseconds =
        (nextFrame_ - now + kNanosecondsPerMillisecond - 1) / kNanosecondsPerMillisecond;
    wake_.start(static_cast<int>(milliseconds));
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  // A frame that is a little late keeps the rhythm; a later one, as after a pause, starts a new one.
  const qint64 now = clock_.nsecsElapsed();
  const qint64 frame = FrameTime(page);
  nextFrame_ = (now - nextFrame_ < frame ? nextFrame_ : now) + frame;
}

}  // namespace bwp
