#include "app/forms/lean_style.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionFrame>

namespace {

using bwp::LeanStyle;

constexpr QSize kSize(40, 40);

class LeanStyleTest : public testing::Test {
 protected:
  LeanStyleTest() {
    style.setBaseStyle(QStyleFactory::create(QStringLiteral("fusion")));
    option.rect = QRect({0, 0}, kSize);
    option.palette.setColor(QPalette::Mid, Qt::red);
    option.palette.setColor(QPalette::Highlight, Qt::blue);
  }

  QImage Drawn(QStyle::PrimitiveElement element, const QWidget* widget = nullptr) {
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    style.drawPrimitive(element, &option, &painter, widget);
    return image;
  }

  LeanStyle style;
  QStyleOptionFrame option;
};

TEST_F(LeanStyleTest, TheFrameOfALineEditIsSquare) {
  const QImage image = Drawn(QStyle::PE_FrameLineEdit);
  EXPECT_EQ(image.pixelColor(0, 0), Qt::red);
  EXPECT_EQ(image.pixelColor(39, 39), Qt::red);
  EXPECT_EQ(image.pixelColor(1, 1), Qt::white);
}

TEST_F(LeanStyleTest, TheFrameOfALineEditThatIsTypedIntoStandsOut) {
  option.state = QStyle::State_HasFocus;
  EXPECT_EQ(Drawn(QStyle::PE_FrameLineEdit).pixelColor(0, 0), Qt::blue);
}

TEST_F(LeanStyleTest, TheFrameOfAGroupIsBelowItsHeading) {
  const QGroupBox group(QStringLiteral("Chunk"));
  option.state = QStyle::State_HasFocus;
  const QImage image = Drawn(QStyle::PE_FrameGroupBox, &group);
  const int top = group.fontMetrics().height() + 3;
  EXPECT_EQ(image.pixelColor(20, top - 1), Qt::white);
  EXPECT_EQ(image.pixelColor(20, top), Qt::red);
  EXPECT_EQ(image.pixelColor(20, 39), Qt::red);
}

TEST_F(LeanStyleTest, AnotherStyleDrawsItsOwnFrames) {
  style.setBaseStyle(QStyleFactory::create(QStringLiteral("windows")));
  EXPECT_NE(Drawn(QStyle::PE_FrameLineEdit).pixelColor(0, 0), Qt::red);
}

TEST_F(LeanStyleTest, AMenuBarHasNoPictureForWhatDoesNotFit) {
  EXPECT_TRUE(style.standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr).isNull());
}

}  // namespace
