#include "splitjoin/forms/division_view.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

namespace {

class DivisionView : public testing::Test {
 protected:
  DivisionView() { view.resize(400, 60); }

  void ShowDivision(std::int64_t fileSize, std::int64_t partSize) {
    view.ShowBoxes(bwp::DivisionBoxes(fileSize, partSize, view.Frame()));
  }
  QRgb Colour(int x, int y = 30) { return view.grab().toImage().pixel(x, y); }

  const QRgb green = qRgb(0, 255, 0);
  const QRgb blue = qRgb(0, 0, 255);
  bwp::DivisionView view{nullptr};
};

TEST_F(DivisionView, DrawsThePartsInTwoColours) {
  ShowDivision(1000, 500);
  EXPECT_EQ(Colour(100), green);
  EXPECT_EQ(Colour(195), green);
  EXPECT_EQ(Colour(205), blue);
  EXPECT_EQ(Colour(395), blue);
}

TEST_F(DivisionView, DrawsMoreThanAThousandPartsAsOne) {
  ShowDivision(2002, 2);
  EXPECT_EQ(Colour(100), green);
  EXPECT_EQ(Colour(300), green);
}

TEST_F(DivisionView, KeepsItsFrameAroundTheParts) {
  const QRgb frame = view.palette().color(QPalette::Mid).rgb();
  ShowDivision(1000, 500);
  EXPECT_EQ(Colour(0), frame);
  EXPECT_EQ(Colour(399), frame);
  EXPECT_EQ(Colour(200, 0), frame);
  EXPECT_EQ(Colour(200, 59), frame);
}

TEST_F(DivisionView, ForgetsTheBoxesBefore) {
  ShowDivision(1000, 500);
  view.ShowBoxes({});
  const QRgb empty = view.palette().color(QPalette::Base).rgb();
  EXPECT_EQ(Colour(100), empty);
  EXPECT_EQ(Colour(300), empty);
}

}  // namespace
