#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "support/workplace.h"

namespace bwp::test {

/// An operation to cancel at every moment, each time in a new Place, which all functions but `make` get.
template <typename Place>
struct Cancelling {
  std::function<std::unique_ptr<Place>()> make;
  std::function<void(Place&)> run;
  /// Checks the state after Cancel, given what the operation showed.
  std::function<void(Place&, const Transcript&)> expectCancelled;
  /// Checks the result of an operation that is not cancelled.
  std::function<void(Place&)> expectDone;
};

/// Presses Cancel in each round of events in turn, and runs the operation once more after each. Returns how
/// many rounds there are.
template <typename Place>
int CancelInEveryRound(const Cancelling<Place>& operation) {
  for (int round = 1;; ++round) {
    SCOPED_TRACE("Cancel in round " + std::to_string(round));
    const std::unique_ptr<Place> place = operation.make();
    place->progress.CancelAtEvents(round);
    operation.run(*place);
    EXPECT_FALSE(place->progress.Aborted());
    EXPECT_FALSE(place->progress.Visible());
    const bool cancelled = place->progress.EventRounds() >= round;
    if (cancelled) {
      operation.expectCancelled(*place, place->Story());
      operation.run(*place);
    }
    operation.expectDone(*place);
    if (!cancelled || testing::Test::HasFailure()) return round - 1;
  }
}

/// The last lines of what was shown.
inline Transcript EndOf(const Transcript& story, std::ptrdiff_t lines) {
  return {story.end() - std::min<std::ptrdiff_t>(lines, std::ssize(story)), story.end()};
}

}  // namespace bwp::test
