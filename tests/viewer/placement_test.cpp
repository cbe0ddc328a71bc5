#include "viewer/placement.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

using bwp::FormSize;
using bwp::Place;
using bwp::Placed;

// 60 units of the outer size are 50 of the inner width and 40 of the inner height.
constexpr FormSize kForm{1000, 600, 1200, 900};
constexpr Place kControl{11, 22, 200, 100};

void ExpectPlace(const Place& place, double left, double top, double width = 200, double height = 100) {
  EXPECT_DOUBLE_EQ(place.left, left);
  EXPECT_DOUBLE_EQ(place.top, top);
  EXPECT_DOUBLE_EQ(place.width, width);
  EXPECT_DOUBLE_EQ(place.height, height);
}

TEST(Placement, TheMarginsAreSixtyUnitsOfTheOuterSizeInInnerUnits) {
  EXPECT_DOUBLE_EQ(bwp::HorizontalMargin(kForm), 50);
  EXPECT_DOUBLE_EQ(bwp::VerticalMargin(kForm), 40);
}

TEST(Placement, TheCodesPutAControlAtTheEdgesOrIntoTheMiddle) {
  ExpectPlace(Placed(kForm, kControl, "r"), 1000 - 200 - 50, 22);
  ExpectPlace(Placed(kForm, kControl, "b"), 11, 600 - 100 - 40);
  ExpectPlace(Placed(kForm, kControl, "rb"), 750, 460);
  ExpectPlace(Placed(kForm, kControl, "c"), 400, 250);
  ExpectPlace(Placed(kForm, kControl, "cw"), 400, 22);
  ExpectPlace(Placed(kForm, kControl, "ch"), 11, 250);
  ExpectPlace(Placed(kForm, kControl, "l"), 50, 22);
  ExpectPlace(Placed(kForm, kControl, ""), 11, 22);
  ExpectPlace(Placed(kForm, kControl, "x"), 11, 22);
}

TEST(Placement, AControlGoesRightOfOrBelowAnotherAtTheMargin) {
  const Place other{100, 60, 30, 20};
  ExpectPlace(Placed(kForm, kControl, "", {.rightOf = other}), 100 + 30 + 50, 22);
  ExpectPlace(Placed(kForm, kControl, "", {.below = other}), 11, 60 + 20 + 40);
}

TEST(Placement, AControlGoesLeftOfOrAboveAnotherAtTheMargin) {
  const Place other{500, 400, 30, 20};
  ExpectPlace(Placed(kForm, kControl, "", {.leftOf = other}), 500 - 200 - 50, 22);
  ExpectPlace(Placed(kForm, kControl, "", {.above = other}), 11, 400 - 100 - 40);
}

TEST(Placement, APercentageIsOneOfTheInnerSizeButNeverLessThanTheMargin) {
  ExpectPlace(Placed(kForm, kControl, "", {.rightOf = 30.0, .below = 50.0}), 300, 300);
  ExpectPlace(Placed(kForm, kControl, "", {.rightOf = 0.0, .below = 0.0}), 50, 40);
  ExpectPlace(Placed(kForm, kControl, "", {.leftOf = 50.0, .above = 50.0}), 300, 200);
  ExpectPlace(Placed(kForm, kControl, "", {.leftOf = 1.0, .above = 1.0}), 50, 40);
}

TEST(Placement, AWidthOrHeightReachesAnotherControlOrAPercentage) {
  const Place other{500, 400, 30, 20};
  ExpectPlace(Placed(kForm, kControl, "", {.width = other, .height = other}), 11, 22, 500 - 50 - 11,
              400 - 40 - 22);
  ExpectPlace(Placed(kForm, kControl, "", {.width = 100.0, .height = 100.0}), 11, 22, 1000 - 50 - 11,
              600 - 40 - 22);
  ExpectPlace(Placed(kForm, kControl, "", {.width = Place{5, 5, 1, 1}}), 11, 22, 0, 100);
}

TEST(Placement, TheCodeHasTheLastWord) {
  ExpectPlace(Placed(kForm, kControl, "r", {.rightOf = 10.0, .width = 50.0}), 1000 - 350 - 50, 22, 350);
}

RC_GTEST_PROP(Placement, WhatIsAnchoredToTheRightAndBottomKeepsItsDistanceWhenTheFormGrows, ()) {
  const double width = *rc::gen::inRange(300, 5000);
  const double height = *rc::gen::inRange(300, 5000);
  const FormSize form{width, height, width, height};
  const Place place = Placed(form, kControl, "rb");
  RC_ASSERT(place.left + place.width == width - 60);
  RC_ASSERT(place.top + place.height == height - 60);
}

}  // namespace
