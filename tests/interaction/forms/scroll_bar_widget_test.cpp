#include "interaction/forms/scroll_bar_widget.h"

#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QImage>
#include <QMouseEvent>
#include <QTest>
#include <QToolButton>

#include "support/forms/interaction_window.h"
#include "viewer/forms/units.h"
#include "viewer/refresh.h"

namespace {

using bwp::ScrollBarWidget;
using bwp::test::DoubleClick;
using bwp::test::FileWindow;

struct Bar : FileWindow {
  explicit Bar(std::size_t length) : FileWindow(length) {
    auto* const row = new QHBoxLayout(&window);
    bar = new ScrollBarWidget(state, display, &window);
    row->addWidget(bar);
    display.onThumb = [this] { bar->ShowThumb(); };
    window.resize(60, 500);
    Show();
    VSUP = Find<QWidget>("VSUP");
    VSDW = Find<QWidget>("VSDW");
    VSBack = Find<QWidget>("VSBack");
    VSB = Find<QWidget>("VSB");
    TimVSCR = Find<QTimer>("TimVSCR");
    bwp::Refresh(state, display);
  }

  void HoldElapses() {
    ASSERT_TRUE(TimVSCR->isActive());
    QTimerEvent elapsed(TimVSCR->timerId());
    QCoreApplication::sendEvent(TimVSCR, &elapsed);
  }
  /// A real move with the left button down, to a height on the track.
  void MoveTo(int trackY) {
    const QPointF global = VSBack->mapToGlobal(QPointF(5, trackY));
    QMouseEvent move(QEvent::MouseMove, VSB->mapFromGlobal(global), global, Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(VSB, &move);
  }

  ScrollBarWidget* bar;
  QWidget* VSUP;
  QWidget* VSDW;
  QWidget* VSBack;
  QWidget* VSB;
  QTimer* TimVSCR;
};

TEST(ScrollBarWidget, HasItsNamesToolTipsAndSpokenNames) {
  Bar b(5000);
  EXPECT_EQ(b.VSUP->toolTip(), QStringLiteral("Click to scroll Up one line"));
  EXPECT_EQ(b.VSDW->toolTip(), QStringLiteral("Click to scroll Down one line"));
  EXPECT_EQ(b.VSBack->toolTip(), QStringLiteral("Click to scroll one page "));
  EXPECT_EQ(b.VSB->toolTip(), QStringLiteral("Drag to scroll data window"));
  EXPECT_EQ(b.VSB->parentWidget(), b.VSBack);
  for (const QWidget* part : {b.VSUP, b.VSDW, b.VSBack, b.VSB}) {
    EXPECT_FALSE(part->accessibleName().isEmpty());
  }
  EXPECT_EQ(b.TimVSCR->interval(), 500);
  EXPECT_FALSE(b.TimVSCR->isActive());
}

TEST(ScrollBarWidget, SizesTheThumbToItsTrack) {
  Bar b(2000);
  EXPECT_DOUBLE_EQ(b.state.thumb.trackHeight, bwp::ToUnits(b.VSBack->height()));
  EXPECT_EQ(b.VSB->height(), bwp::ToPixels(b.state.thumb.height));
  EXPECT_EQ(b.VSB->y(), 0);
  b.window.resize(60, 900);
  EXPECT_DOUBLE_EQ(b.state.thumb.trackHeight, bwp::ToUnits(b.VSBack->height()));
}

TEST(ScrollBarWidget, AShortClickMovesOneLine) {
  Bar b(5000);
  QTest::mouseClick(b.VSDW, Qt::LeftButton);
  EXPECT_EQ(b.state.SWStart, 16);
  QTest::mouseClick(b.VSDW, Qt::LeftButton);
  QTest::mouseClick(b.VSUP, Qt::LeftButton);
  EXPECT_EQ(b.state.SWStart, 16);
  EXPECT_EQ(b.VSB->y(), bwp::ToPixels(b.state.thumb.TopOf(16)));
  EXPECT_FALSE(b.TimVSCR->isActive());
}

TEST(ScrollBarWidget, OnlyTheLeftButtonScrolls) {
  Bar b(5000);
  QTest::mouseClick(b.VSDW, Qt::RightButton);
  QTest::mouseClick(b.VSBack, Qt::RightButton, {}, QPoint(5, b.VSBack->height() - 2));
  QTest::mouseClick(b.VSBack, Qt::MiddleButton, {}, QPoint(5, b.VSBack->height() - 2));
  EXPECT_EQ(b.state.SWStart, 0);
}

TEST(ScrollBarWidget, TheSecondClickOfADoubleClickOnALineButtonCountsToo) {
  Bar b(5000);
  DoubleClick(b.VSDW, QPoint(5, 5));
  EXPECT_EQ(b.state.SWStart, 32);
}

TEST(ScrollBarWidget, AButtonReleasedOutsideItselfStillTakesItsStep) {
  Bar b(5000);
  QTest::mousePress(b.VSDW, Qt::LeftButton);
  QTest::mouseRelease(b.VSDW, Qt::LeftButton, {}, QPoint(-40, -40));
  EXPECT_EQ(b.state.SWStart, 16);
}

TEST(ScrollBarWidget, AClickByAToolThatStandsInForTheMouseMovesOneLine) {
  Bar b(5000);
  b.Find<QAbstractButton>("VSDW")->click();
  EXPECT_EQ(b.state.SWStart, 16);
}

TEST(ScrollBarWidget, AButtonReallyHeldForHalfASecondScrollsOn) {
  Bar b(50'000);
  b.display.onFrame = [&] {
    if (b.display.frames == 5) QTest::mouseRelease(b.VSDW, Qt::LeftButton);
  };
  QTest::mousePress(b.VSDW, Qt::LeftButton);
  EXPECT_EQ(b.state.SWStart, 0);
  ASSERT_TRUE(QTest::qWaitFor([&] { return b.display.frames == 5; }, 5000));
  EXPECT_EQ(b.state.SWStart, 6 * 16);
  EXPECT_FALSE(b.state.AutoScroll);
}

TEST(ScrollBarWidget, TheTrackScrollsPages) {
  Bar b(50'000);
  const QPoint below(5, b.VSBack->height() - 2);
  QTest::mouseClick(b.VSBack, Qt::LeftButton, {}, below);
  EXPECT_EQ(b.state.SWStart, 512);
  b.state.SWStart = 40'000;
  bwp::Refresh(b.state, b.display);
  QTest::mouseClick(b.VSBack, Qt::LeftButton, {}, QPoint(5, 1));
  EXPECT_EQ(b.state.SWStart, 40'000 - 512);
}

TEST(ScrollBarWidget, ADoubleClickOnTheTrackScrollsTwoPages) {
  Bar b(50'000);
  DoubleClick(b.VSBack, QPoint(5, b.VSBack->height() - 2));
  EXPECT_EQ(b.state.SWStart, 1024);
}

TEST(ScrollBarWidget, TheTrackHeldPagesOn) {
  Bar b(50'000);
  const QPoint below(5, b.VSBack->height() - 2);
  b.display.onFrame = [&] {
    if (b.display.frames == 3) QTest::mouseRelease(b.VSBack, Qt::LeftButton, {}, below);
  };
  QTest::mousePress(b.VSBack, Qt::LeftButton, {}, below);
  b.HoldElapses();
  EXPECT_EQ(b.state.SWStart, 4 * 512);
}

TEST(ScrollBarWidget, TheThumbFollowsThePointerAndStopsAtTheEndsOfItsTravel) {
  Bar b(50'000);
  const int height = b.VSBack->height();
  int lowest = 0;
  int middle = 0;
  b.display.onFrame = [&] {
    switch (b.display.frames) {
      case 1:
        b.MoveTo(5 + 100);
        middle = b.VSB->y();
        break;
      case 2:
        b.MoveTo(height + 300);
        lowest = b.VSB->y();
        EXPECT_EQ(b.state.SWStart, 50'000 - 512);
        break;
      case 3:
        b.MoveTo(-300);
        break;
      default:
        QTest::mouseRelease(b.VSB, Qt::LeftButton);
    }
  };
  QTest::mousePress(b.VSB, Qt::LeftButton, {}, QPoint(5, 5));
  b.MoveTo(5);
  EXPECT_EQ(b.display.frames, 4);
  EXPECT_EQ(middle, 100);
  EXPECT_EQ(lowest, bwp::ToPixels(b.state.thumb.ThumbTravel));
  EXPECT_EQ(b.VSB->y(), 0);
  EXPECT_EQ(b.state.SWStart, 0);
  EXPECT_FALSE(b.state.AutoScroll);
}

TEST(ScrollBarWidget, AMoveOfTheThumbWithNoButtonDownEndsTheDrag) {
  Bar b(50'000);
  b.display.onFrame = [&] {
    const QPointF global = b.VSB->mapToGlobal(QPointF(5, 6));
    QMouseEvent move(QEvent::MouseMove, QPointF(5, 6), global, Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(b.VSB, &move);
    if (b.display.frames > 3) b.bar->LetGo();
  };
  QTest::mousePress(b.VSB, Qt::LeftButton, {}, QPoint(5, 5));
  b.MoveTo(20);
  EXPECT_EQ(b.display.frames, 1);
  EXPECT_FALSE(b.state.AutoScroll);
}

TEST(ScrollBarWidget, AClickOnTheThumbDoesNotScroll) {
  Bar b(5000);
  QTest::mouseClick(b.VSB, Qt::LeftButton);
  DoubleClick(b.VSB, QPoint(5, 5));
  EXPECT_EQ(b.state.SWStart, 0);
}

TEST(ScrollBarWidget, LosingTheFocusLetsGo) {
  Bar b(50'000);
  b.display.onFrame = [&] {
    if (b.display.frames == 2) b.bar->LetGo();
  };
  QTest::mousePress(b.VSDW, Qt::LeftButton);
  b.HoldElapses();
  EXPECT_EQ(b.state.SWStart, 3 * 16);
  QTest::mouseRelease(b.VSDW, Qt::LeftButton);
  EXPECT_EQ(b.state.SWStart, 3 * 16);
}

TEST(ScrollBarWidget, TheThumbStandsOutFromItsTrackInALightAndInADarkTheme) {
  for (const bool dark : {false, true}) {
    Bar b(2000);
    QPalette palette;
    palette.setColor(QPalette::Window, dark ? QColor(30, 30, 30) : QColor(240, 240, 240));
    palette.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
    b.window.setPalette(palette);
    const QImage seen = b.VSBack->grab().toImage();
    const int x = seen.width() / 2;
    const int thumb = qGray(seen.pixel(x, b.VSB->geometry().center().y()));
    const int track = qGray(seen.pixel(x, seen.height() - 5));
    EXPECT_GT(std::abs(thumb - track), 30) << (dark ? "dark" : "light");
  }
}

TEST(ScrollBarWidget, AButtonThatIsLetGoByLosingTheFocusComesUp) {
  Bar b(5000);
  auto* const down = b.Find<QAbstractButton>("VSDW");
  QTest::mousePress(down, Qt::LeftButton);
  ASSERT_TRUE(down->isDown());
  b.bar->LetGo();
  EXPECT_FALSE(down->isDown());
  EXPECT_EQ(b.state.SWStart, 16);
}

}  // namespace
