#include "splitjoin/division_boxes.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

using bwp::DivisionBox;
using bwp::DivisionBoxes;
using bwp::FrameShape;
using bwp::kFirstPartColour;
using bwp::kSecondPartColour;

constexpr FrameShape kFrame{100, 200, 1040, 540};

TEST(DivisionBoxes, ShowThreePartsAndTheRest) {
  const auto boxes = DivisionBoxes(1000, 300, kFrame);
  ASSERT_EQ(boxes.size(), 4U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_DOUBLE_EQ(boxes[i].left, 120 + 300.0 * static_cast<double>(i));
    EXPECT_DOUBLE_EQ(boxes[i].right, 120 + 300.0 * static_cast<double>(i + 1) + 1);
    EXPECT_DOUBLE_EQ(boxes[i].top, 220);
    EXPECT_DOUBLE_EQ(boxes[i].bottom, 720);
    EXPECT_EQ(boxes[i].colour, i % 2 == 0 ? 0x00FF00U : 0xFF0000U);
  }
  EXPECT_DOUBLE_EQ(boxes[3].left, 1020);
  EXPECT_DOUBLE_EQ(boxes[3].right, 1120);
  EXPECT_DOUBLE_EQ(boxes[3].top, 220);
  EXPECT_DOUBLE_EQ(boxes[3].bottom, 720);
  EXPECT_EQ(boxes[3].colour, kSecondPartColour);
}

TEST(DivisionBoxes, CloseAnExactDivisionWithABoxOfNoWidth) {
  const auto boxes = DivisionBoxes(1000, 250, kFrame);
  ASSERT_EQ(boxes.size(), 5U);
  EXPECT_DOUBLE_EQ(boxes[4].left, boxes[4].right);
  EXPECT_EQ(boxes[4].colour, kFirstPartColour);
}

TEST(DivisionBoxes, StillShowAThousandParts) {
  EXPECT_EQ(DivisionBoxes(1000, 1, kFrame).size(), 1001U);
}

TEST(DivisionBoxes, FillTheFrameGreenFromAThousandAndOnePartsOn) {
  const auto boxes = DivisionBoxes(1001, 1, kFrame);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_DOUBLE_EQ(boxes[0].left, 120);
  EXPECT_DOUBLE_EQ(boxes[0].right, 1120);
  EXPECT_EQ(boxes[0].colour, kFirstPartColour);
}

TEST(DivisionBoxes, AreNoneWithoutAPlan) {
  EXPECT_TRUE(DivisionBoxes(0, 0, kFrame).empty());
  EXPECT_TRUE(DivisionBoxes(1000, 0, kFrame).empty());
}

RC_GTEST_PROP(DivisionBoxes, FillTheFrameWithoutAGap, ()) {
  const auto fileSize = *rc::gen::inRange<std::int64_t>(1, 2'147'483'647);
  const auto partSize = *rc::gen::inRange<std::int64_t>(1, fileSize + 1);
  const auto boxes = DivisionBoxes(fileSize, partSize, kFrame);
  RC_ASSERT(!boxes.empty());
  RC_ASSERT(boxes.front().left == 120);
  RC_ASSERT(boxes.back().right == 1120);
  for (std::size_t i = 1; i < boxes.size(); ++i) {
    RC_ASSERT(boxes[i].left < boxes[i - 1].right);
    RC_ASSERT(boxes[i].left > boxes[i - 1].right - 1.001);
    RC_ASSERT(boxes[i].colour != boxes[i - 1].colour);
  }
}

}  // namespace
