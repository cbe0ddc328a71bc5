#include "splitjoin/forms/divide.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

#include "splitjoin/forms/divide_form.h"

namespace {

using Divide = bwp::test::DivideForm;

TEST_F(Divide, HasItsControlsUnderTheirNames) {
  EXPECT_EQ(form.objectName(), QStringLiteral("Divide"));
  const std::pair<const char*, const char*> tips[] = {
      {"Sly", "Drag to select part size, the graphic shows the division"},
      {"UDCh", "Click to select the number of parts"},
      {"NChunk", "Select the desired number of parts"},
      {"DChsize", "Type in the single part Max size (DEC)"},
      {"HCHsize", "Type in the single part Max size (HEX)"},
      {"Dlast", "Shows the size of the last part (DEC)"},
      {"Hlast", "Shows the size of the last part (HEX)"},
      {"Preset", "Presets of some useful partsizes"},
      {"Split", ""},
      {"Join", ""},
      {"Cancel", ""}};
  for (const auto& [name, tip] : tips) {
    auto* const control = form.findChild<QWidget*>(QLatin1String(name));
    ASSERT_NE(control, nullptr) << name;
    EXPECT_EQ(control->toolTip(), QLatin1String(tip)) << name;
  }
}

TEST_F(Divide, IsTitledByItsNameUntilItHasAPlan) {
  const bwp::Divide unseen(plan, nullptr);
  EXPECT_EQ(unseen.windowTitle(), QStringLiteral("Split and join tool"));
}

TEST_F(Divide, ShowsThePlanOfTheMarkedChunkWhenItIsOpened) {
  state.MarkEnd = 299;
  form.Start();
  EXPECT_EQ(Text("DChsize"), "300");
  EXPECT_EQ(Text("HCHsize"), "0000012C");
  EXPECT_EQ(Text("NChunk"), "4");
  EXPECT_EQ(Text("Dlast"), "100");
  EXPECT_EQ(Text("Hlast"), "00000064");
  EXPECT_EQ(Find<QSlider>("Sly").value(), 300);
  EXPECT_EQ(Find<QSpinBox>("UDCh").value(), 4);
  EXPECT_EQ(form.windowTitle(), QStringLiteral("Split and Join Tool - Filesize:  1000 - Verified: 1000"));
}

TEST_F(Divide, LimitsSliderAndArrowsToTheFile) {
  EXPECT_EQ(Find<QSlider>("Sly").minimum(), 1);
  EXPECT_EQ(Find<QSlider>("Sly").maximum(), 1000);
  EXPECT_EQ(Find<QSlider>("Sly").pageStep(), 32);
  EXPECT_EQ(Find<QSpinBox>("UDCh").property("minimum"), 1);
  EXPECT_EQ(Find<QSpinBox>("UDCh").property("maximum"), 1000);
  EXPECT_EQ(Find<QSpinBox>("UDCh").property("value"), 1);
}

TEST_F(Divide, PlansOnEnterInTheDecimalSize) {
  Enter("DChsize", "300");
  EXPECT_EQ(Text("NChunk"), "4");
  EXPECT_EQ(Text("HCHsize"), "0000012C");
}

TEST_F(Divide, FollowsADecimalSizeWhileItIsTyped) {
  Type("DChsize", "30");
  EXPECT_EQ(Text("HCHsize"), "0000001E");
  EXPECT_EQ(Text("DChsize"), "30");
  EXPECT_EQ(Text("NChunk"), "1") << "Enter plans";
}

TEST_F(Divide, FollowsAHexadecimalSizeWhileItIsTyped) {
  Type("HCHsize", "12c");
  EXPECT_EQ(Text("DChsize"), "300");
  EXPECT_EQ(Text("HCHsize"), "12c");
  QTest::keyClick(&Field("HCHsize"), Qt::Key_Return);
  EXPECT_EQ(Text("HCHsize"), "0000012C");
  EXPECT_EQ(Text("NChunk"), "4");
}

TEST_F(Divide, ReadsFourHexadecimalDigitsAsASignedNumber) {
  Type("HCHsize", "FFFF");
  EXPECT_EQ(Text("HCHsize"), "FFFF");
  EXPECT_EQ(Text("DChsize"), "-1");
  EXPECT_EQ(plan.PartSize(), 1000);
  QTest::keyClick(&Field("HCHsize"), Qt::Key_Return);
  EXPECT_EQ(Text("HCHsize"), "00000001");
  EXPECT_EQ(Text("NChunk"), "1000");
}

TEST_F(Divide, TypesInTheMiddleOfASize) {
  Enter("DChsize", "100");
  Field("DChsize").setCursorPosition(1);
  QTest::keyClicks(&Field("DChsize"), QStringLiteral("23"));
  EXPECT_EQ(Text("DChsize"), "12300");
  EXPECT_EQ(Field("DChsize").cursorPosition(), 3);
}

TEST_F(Divide, PlansOnEnterInTheCount) {
  Enter("NChunk", "4");
  EXPECT_EQ(Text("DChsize"), "250");
  Enter("NChunk", "0");
  EXPECT_EQ(Text("DChsize"), "1000");
  Type("NChunk", "7");
  EXPECT_EQ(Text("DChsize"), "1000") << "Enter plans";
}

TEST_F(Divide, CountsByOneWithTheArrows) {
  ClickArrow(QStyle::SC_SpinBoxUp);
  EXPECT_EQ(Text("NChunk"), "2");
  EXPECT_EQ(Text("DChsize"), "501");
  ClickArrow(QStyle::SC_SpinBoxUp);
  EXPECT_EQ(Text("NChunk"), "3");
  ClickArrow(QStyle::SC_SpinBoxDown);
  EXPECT_EQ(Text("NChunk"), "2");
  EXPECT_EQ(Text("DChsize"), "501");
  ClickArrow(QStyle::SC_SpinBoxDown);
  EXPECT_EQ(Text("NChunk"), "1");
}

TEST_F(Divide, LeavesAOneByteFileInOnePartAtTheDownArrow) {
  Show(1);
  ClickArrow(QStyle::SC_SpinBoxDown);
  EXPECT_EQ(Text("NChunk"), "1");
  EXPECT_EQ(Text("DChsize"), "1");
  EXPECT_EQ(plan.PartSize(), 1);
  EXPECT_EQ(form.windowTitle(), QStringLiteral("Split and Join Tool - Filesize:  1 - Verified: 1"));
}

TEST_F(Divide, CountsDownFromPartsOfOneByte) {
  Enter("DChsize", "1");
  ClickArrow(QStyle::SC_SpinBoxDown);
  EXPECT_EQ(Text("DChsize"), "2") << "999 parts, one byte more than the quotient";
  EXPECT_EQ(Text("NChunk"), "500");
}

TEST_F(Divide, TakesAValueOfTheArrowsAsACount) {
  Find<QSpinBox>("UDCh").setProperty("value", 4);
  EXPECT_EQ(Text("NChunk"), "4");
  EXPECT_EQ(Text("DChsize"), "251");
}

TEST_F(Divide, TakesAPresetFromTheList) {
  Show(2'000'000);
  auto& preset = Find<QComboBox>("Preset");
  ASSERT_EQ(preset.count(), 6);
  EXPECT_EQ(preset.itemText(1), QStringLiteral("Floppy 1,44M"));
  EXPECT_EQ(preset.itemData(1).toLongLong(), 1457664);
  preset.setFocus();
  QTest::keyClick(&preset, Qt::Key_Down);
  EXPECT_EQ(Text("DChsize"), "730112");
  QTest::keyClick(&preset, Qt::Key_Down);
  EXPECT_EQ(Text("DChsize"), "1457664");
  QTest::keyClick(&preset, Qt::Key_End);
  EXPECT_EQ(Text("DChsize"), "2000000");
  EXPECT_EQ(Text("NChunk"), "1");
}

TEST_F(Divide, ShowsNoPresetForASizeThatWasSetAnotherWay) {
  Show(2'000'000);
  auto& preset = Find<QComboBox>("Preset");
  preset.setFocus();
  QTest::keyClick(&preset, Qt::Key_Down);
  ASSERT_EQ(preset.currentIndex(), 0);
  ClickArrow(QStyle::SC_SpinBoxUp);
  EXPECT_EQ(preset.currentIndex(), -1);
  QTest::keyClick(&preset, Qt::Key_Down);
  EXPECT_EQ(Text("DChsize"), "730112");
}

TEST_F(Divide, NamesNoMediumForASizeThatIsBeingTypedOrDragged) {
  Show(2'000'000);
  auto& preset = Find<QComboBox>("Preset");
  const auto choose = [&preset] {
    preset.setFocus();
    QTest::keyClick(&preset, Qt::Key_Home);
    ASSERT_EQ(preset.currentIndex(), 0);
  };
  choose();
  QTest::keyClick(&Find<QLineEdit>("DChsize"), Qt::Key_5);
  EXPECT_EQ(preset.currentIndex(), -1);
  choose();
  auto& slider = Find<QSlider>("Sly");
  QTest::keyPress(&slider, Qt::Key_Right);
  EXPECT_EQ(preset.currentIndex(), -1);
  QTest::keyRelease(&slider, Qt::Key_Right);
  choose();
  QTest::keyClicks(&Find<QLineEdit>("HCHsize"), QStringLiteral("5"));
  EXPECT_EQ(preset.currentIndex(), 0) << "the part size waits for Enter";
}

TEST_F(Divide, KeepsItsSmallestSizeAndFitsSliderAndFrame) {
  form.resize(100, 100);
  EXPECT_EQ(form.size(), QSize(578, 262));
  form.resize(900, 500);
  QTest::qWait(1);
  EXPECT_EQ(Find<QSlider>("Sly").width(), 900 - 7);
  EXPECT_EQ(Find<QWidget>("Division").width(), 900 - 31);
}

TEST_F(Divide, PlansAndDrawsAgainWhenItIsResized) {
  Enter("DChsize", "500");
  state.FLen = 400;
  form.resize(900, 500);
  EXPECT_EQ(Text("DChsize"), "400");
  Enter("DChsize", "200");
  form.resize(1200, 700);
  const QImage image = Find<QWidget>("Division").grab().toImage();
  const int right = image.width() - 3;
  EXPECT_EQ(image.pixelColor(right, image.height() / 2), QColor(0, 0, 255)) << "up to the new frame's end";
  EXPECT_EQ(image.pixelColor(image.width() / 2 - 3, image.height() / 2), QColor(0, 255, 0));
}

TEST_F(Divide, PlansNothingWhileItIsMinimised) {
  Enter("DChsize", "500");
  form.setWindowState(Qt::WindowMinimized);
  ASSERT_TRUE(form.isMinimized());
  state.FLen = 400;
  form.resize(900, 500);
  EXPECT_EQ(Text("DChsize"), "500");
}

TEST_F(Divide, ClearsThePictureWhenItIsActivatedOnAnEmptyFile) {
  const auto middle = [](const QImage& image) { return image.pixelColor(image.rect().center()); };
  ASSERT_EQ(middle(Picture()), QColor(0, 255, 0));
  state.FLen = 0;
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(&form, &activation);
  EXPECT_EQ(middle(Picture()), form.palette().color(QPalette::Base));
}

TEST_F(Divide, PlansAgainWhenItIsActivatedAfterAnotherFileWasOpened) {
  state.FLen = 400;
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(&form, &activation);
  EXPECT_EQ(Text("DChsize"), "400");
  EXPECT_EQ(Find<QSlider>("Sly").maximum(), 400);
}

TEST_F(Divide, SplitsNothingWithoutBytes) {
  EXPECT_TRUE(Find<QPushButton>("Split").isEnabled());
  Show(0);
  EXPECT_FALSE(Find<QPushButton>("Split").isEnabled());
  EXPECT_TRUE(Find<QPushButton>("Join").isEnabled());
  EXPECT_FALSE(Find<QSlider>("Sly").isEnabled());
  Show(10);
  EXPECT_TRUE(Find<QPushButton>("Split").isEnabled());
  Type("DChsize", "0");
  EXPECT_FALSE(Find<QPushButton>("Split").isEnabled());
}

TEST_F(Divide, ReportsItsButtonsAndHidesOnCancel) {
  int splits = 0;
  int joins = 0;
  QObject::connect(&form, &bwp::Divide::SplitClicked, [&splits] { ++splits; });
  QObject::connect(&form, &bwp::Divide::JoinClicked, [&joins] { ++joins; });
  QTest::mouseClick(&Find<QPushButton>("Split"), Qt::LeftButton);
  QTest::mouseClick(&Find<QPushButton>("Join"), Qt::LeftButton);
  EXPECT_EQ(splits, 1);
  EXPECT_EQ(joins, 1);
  EXPECT_TRUE(form.isVisible());
  Enter("DChsize", "300");
  EXPECT_EQ(splits, 1) << "Enter belongs to the field";
  QTest::mouseClick(&Find<QPushButton>("Cancel"), Qt::LeftButton);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(plan.PartSize(), 300);
}

}  // namespace
