#include "viewer/group_emphasis.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

namespace {

using bwp::EmphasisRun;
using bwp::GroupEmphasis;

EmphasisRun Group(int start, int length, bool bold, std::optional<bwp::Colour> colour = {}) {
  return {start, length, bold, colour};
}

TEST(GroupEmphasis, AnOffsetsPairsArePlainAndBoldInTurnFromTheRight) {
  const std::vector<EmphasisRun> expected{Group(6, 2, false), Group(4, 2, true), Group(2, 2, false),
                                          Group(0, 2, true)};
  EXPECT_EQ(bwp::OffsetEmphasis(8), expected);
}

TEST(GroupEmphasis, TheLeftmostGroupMayBeShorter) {
  const std::vector<EmphasisRun> expected{Group(3, 2, false), Group(1, 2, true), Group(0, 1, false)};
  EXPECT_EQ(GroupEmphasis(5, 2, {}, {}, true), expected);
}

TEST(GroupEmphasis, GroupsAreOfThreeAndNotBoldUnlessAskedFor) {
  const std::vector<EmphasisRun> expected{Group(4, 3, false), Group(1, 3, false), Group(0, 1, false)};
  EXPECT_EQ(GroupEmphasis(7), expected);
}

TEST(GroupEmphasis, ColoursTakeTurnsBeginningWithTheFirst) {
  const std::vector<EmphasisRun> expected{Group(4, 2, false, 255), Group(2, 2, true, 65280),
                                          Group(0, 2, false, 255)};
  EXPECT_EQ(GroupEmphasis(6, 2, 255, 65280, true), expected);
}

TEST(GroupEmphasis, OneColourIsEnoughToColour) {
  const std::vector<EmphasisRun> second{Group(2, 2, false, 0), Group(0, 2, false, 255)};
  EXPECT_EQ(GroupEmphasis(4, 2, {}, 255), second);
  const std::vector<EmphasisRun> first{Group(2, 2, false, 255), Group(0, 2, false, 0)};
  EXPECT_EQ(GroupEmphasis(4, 2, 255), first);
}

TEST(GroupEmphasis, AnEmptyTextIsOneEmptyGroup) {
  EXPECT_EQ(GroupEmphasis(0, 2), std::vector<EmphasisRun>{Group(0, 0, false)});
}

RC_GTEST_PROP(GroupEmphasis, TheGroupsCoverTheTextOnceFromTheRight, ()) {
  const int length = *rc::gen::inRange(1, 60);
  const int size = *rc::gen::inRange(1, 9);
  int end = length;
  bool bold = false;
  for (const EmphasisRun& run : GroupEmphasis(length, size, {}, {}, true)) {
    RC_ASSERT(run.start + run.length == end);
    RC_ASSERT(run.length == size || run.start == 0);
    RC_ASSERT(run.bold == bold);
    bold = !bold;
    end = run.start;
  }
  RC_ASSERT(end == 0);
}

}  // namespace
