#pragma once

#include <QTimer>

#include "interaction/scroll_bar.h"

namespace bwp {

/// `TimVSCR`: fires once, half a second after a button or key was pressed and not let go since.
class QtHoldTimer : public HoldTimer {
 public:
  explicit QtHoldTimer(QObject* parent) : timer_(new QTimer(parent)) {
    timer_->setObjectName(QStringLiteral("TimVSCR"));
    timer_->setInterval(500);
    timer_->setSingleShot(true);
    timer_->setTimerType(Qt::PreciseTimer);
  }

  void Enable() override {
    if (!timer_->isActive()) timer_->start();
  }
  void Disable() override { timer_->stop(); }
  QTimer& Timer() { return *timer_; }

 private:
  QTimer* timer_;  // owned by its parent
};

}  // namespace bwp
