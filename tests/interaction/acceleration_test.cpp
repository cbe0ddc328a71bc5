#include <gtest/gtest.h>

#include "interaction/scroll_bar.h"

namespace {

using bwp::AccelChecks;
using bwp::ChooseAcceleration;
using bwp::ViewState;

TEST(Acceleration, EachEntrySetsItsModeAndChecksItselfAlone) {
  for (int chosen = 1; chosen < 5; ++chosen) {
    ViewState state;
    AccelChecks wanted{};
    wanted[static_cast<std::size_t>(chosen)] = true;
    EXPECT_EQ(ChooseAcceleration(state, {true, true, true, true, true}, chosen), wanted);
    EXPECT_EQ(state.AccelMode, chosen);
  }
}

TEST(Acceleration, NotAcceleratedLeavesTheHigherEntriesChecked) {
  ViewState state;
  state.AccelMode = 3;
  EXPECT_EQ(ChooseAcceleration(state, {false, false, false, true, false}, 0),
            (AccelChecks{true, false, false, true, false}));
  EXPECT_EQ(state.AccelMode, 0);
  EXPECT_EQ(ChooseAcceleration(state, {false, true, false, false, false}, 0),
            (AccelChecks{true, false, false, false, false}));
}

TEST(Acceleration, ANumberOutsideTheMenuChoosesNothing) {
  ViewState state;
  state.AccelMode = 2;
  const AccelChecks shown{false, false, true, false, false};
  EXPECT_EQ(ChooseAcceleration(state, shown, 5), shown);
  EXPECT_EQ(ChooseAcceleration(state, shown, -1), shown);
  EXPECT_EQ(state.AccelMode, 2);
}

}  // namespace
