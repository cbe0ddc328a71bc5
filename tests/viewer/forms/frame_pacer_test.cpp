#include "viewer/forms/frame_pacer.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QWidget>

namespace {

class Page : public QWidget {
 public:
  int paints = 0;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override { ++paints; }
};

struct Pacing {
  Pacing() {
    page.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
    QCoreApplication::processEvents();
    page.paints = 0;
  }
  /// How long the screen shows one picture, in nanoseconds.
  qint64 Frame() const { return static_cast<qint64>(1e9 / page.screen()->refreshRate()); }

  Page page;
};

TEST(FramePacer, PaintsEveryFrameAndIsNoFasterThanTheScreen) {
  Pacing p;
  QElapsedTimer clock;
  clock.start();
  bwp::FramePacer pacer;
  constexpr int kFrames = 8;
  for (int i = 1; i <= kFrames; ++i) {
    pacer.ShowFrame(p.page);
    EXPECT_EQ(p.page.paints, i);
  }
  EXPECT_GE(clock.nsecsElapsed(), (kFrames - 1) * p.Frame());
}

TEST(FramePacer, AfterAPauseTheFirstFrameIsShownAsLongAsTheOthers) {
  Pacing p;
  bwp::FramePacer pacer;
  pacer.ShowFrame(p.page);
  QTest::qSleep(static_cast<int>(3 * p.Frame() / 1'000'000));
  QElapsedTimer clock;
  clock.start();
  for (int i = 0; i < 3; ++i) pacer.ShowFrame(p.page);
  EXPECT_GE(clock.nsecsElapsed(), 2 * p.Frame());
}

TEST(FramePacer, HandlesEventsMeanwhile) {
  Pacing p;
  bwp::FramePacer pacer;
  int handled = 0;
  for (int i = 1; i <= 3; ++i) {
    QTimer::singleShot(0, &p.page, [&] { ++handled; });
    pacer.ShowFrame(p.page);
    EXPECT_EQ(handled, i);
  }
}

}  // namespace
