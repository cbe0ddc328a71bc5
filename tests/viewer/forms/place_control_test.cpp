#include "viewer/forms/place_control.h"

#include <gtest/gtest.h>

namespace {

// A widget that was never shown has no frame, so that the margins are 60 units, 4 pixels.
TEST(PlaceControl, PlacesInPixelsWhatTheRulesSayInUnits) {
  QWidget form;
  form.resize(400, 300);
  QWidget button(&form);
  button.resize(80, 25);
  bwp::PlaceControl(form, button, "rb");
  EXPECT_EQ(button.geometry(), QRect(400 - 80 - 4, 300 - 25 - 4, 80, 25));
  QWidget list(&form);
  bwp::PlaceControl(form, list, "", {.rightOf = 0.0, .below = 0.0, .width = &button, .height = &button});
  EXPECT_EQ(list.geometry(), QRect(QPoint(4, 4), QPoint(button.x() - 5, button.y() - 5)));
}

TEST(PlaceControl, AControlThatIsPlacedAgainForALargerFormKeepsItsDistances) {
  QWidget form;
  form.resize(400, 300);
  QWidget button(&form);
  button.resize(80, 25);
  bwp::PlaceControl(form, button, "rb");
  form.resize(1000, 700);
  bwp::PlaceControl(form, button, "rb");
  EXPECT_EQ(button.geometry(), QRect(916, 671, 80, 25));
}

}  // namespace
