#include <gtest/gtest.h>

#include <QApplication>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWheelEvent>

#include "splitjoin/forms/divide_form.h"

namespace {

using DivideSlider = bwp::test::DivideForm;

QPoint ThumbCentre(const QSlider& sly) {
  QStyleOptionSlider option;
  option.initFrom(&sly);
  option.orientation = Qt::Horizontal;
  option.minimum = sly.minimum();
  option.maximum = sly.maximum();
  option.sliderPosition = sly.sliderPosition();
  option.sliderValue = sly.value();
  return sly.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &sly).center();
}

TEST_F(DivideSlider, FollowsTheThumbAndPlansWhenItIsLetGo) {
  Enter("DChsize", "500");
  QSlider& sly = Find<QSlider>("Sly");
  const QImage picture = Picture();
  const QPoint from = ThumbCentre(sly);
  QTest::mousePress(&sly, Qt::LeftButton, {}, from);
  QTest::mouseMove(&sly, from - QPoint(sly.width() / 4, 0));
  const int position = sly.value();
  EXPECT_GT(position, 150);
  EXPECT_LT(position, 350);
  EXPECT_EQ(Text("DChsize"), std::to_string(position));
  EXPECT_EQ(Text("NChunk"), "2");
  EXPECT_EQ(Picture(), picture);
  QTest::mouseRelease(&sly, Qt::LeftButton, {}, from - QPoint(sly.width() / 4, 0));
  EXPECT_EQ(plan.PartSize(), position);
  EXPECT_EQ(Text("NChunk"), std::to_string((1000 + position - 1) / position));
  EXPECT_NE(Picture(), picture);
}

TEST_F(DivideSlider, ShowsTheTotalOfThePlanOnlyWhenTheSliderIsLetGo) {
  Enter("DChsize", "500");
  state.FLen = 900;
  QSlider& sly = Find<QSlider>("Sly");
  sly.setFocus();
  QTest::keyPress(&sly, Qt::Key_Left);
  EXPECT_EQ(form.windowTitle(), QStringLiteral("Split and Join Tool - Filesize:  1000 - Verified: 1000"));
  QTest::keyRelease(&sly, Qt::Key_Left);
  EXPECT_EQ(form.windowTitle(), QStringLiteral("Split and Join Tool - Filesize:  900 - Verified: 900"));
}

TEST_F(DivideSlider, PlansOnceForAKeyThatIsHeldOnTheSlider) {
  Enter("DChsize", "500");
  QSlider& sly = Find<QSlider>("Sly");
  sly.setFocus();
  QTest::keyPress(&sly, Qt::Key_Left);
  for (int i = 0; i < 3; ++i) {
    QTest::simulateEvent(&sly, false, Qt::Key_Left, {}, QString(), true);
    QTest::simulateEvent(&sly, true, Qt::Key_Left, {}, QString(), true);
  }
  EXPECT_EQ(Text("DChsize"), "496") << "the slider goes on";
  EXPECT_EQ(Text("NChunk"), "2");
  QTest::keyRelease(&sly, Qt::Key_Left);
  EXPECT_EQ(Text("NChunk"), "3");
}

TEST_F(DivideSlider, TakesALostFocusOfTheSliderForARelease) {
  Enter("DChsize", "500");
  QSlider& sly = Find<QSlider>("Sly");
  sly.setFocus();
  QTest::keyPress(&sly, Qt::Key_Left);
  ASSERT_EQ(Text("NChunk"), "2");
  Field("NChunk").setFocus();
  EXPECT_EQ(Text("NChunk"), "3");
}

TEST_F(DivideSlider, PlansWhenAKeyIsLetGoOnTheSlider) {
  Enter("DChsize", "500");
  QSlider& sly = Find<QSlider>("Sly");
  sly.setFocus();
  QTest::keyPress(&sly, Qt::Key_Left);
  EXPECT_EQ(Text("DChsize"), "499");
  EXPECT_EQ(Text("NChunk"), "2");
  QTest::keyRelease(&sly, Qt::Key_Left);
  EXPECT_EQ(Text("NChunk"), "3");
}

TEST_F(DivideSlider, PlansAtOnceForTheWheel) {
  Enter("DChsize", "500");
  QSlider& sly = Find<QSlider>("Sly");
  const QPointF centre(sly.rect().center());
  QWheelEvent turn(centre, sly.mapToGlobal(centre), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&sly, &turn);
  EXPECT_LT(plan.PartSize(), 500);
  EXPECT_EQ(Text("NChunk"), "3");
}

}  // namespace
