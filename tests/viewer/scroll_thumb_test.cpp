#include "viewer/scroll_thumb.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

bwp::ScrollThumb Fitted(std::int64_t length, double track) {
  bwp::ScrollThumb thumb;
  thumb.Fit(length, track);
  return thumb;
}

TEST(ScrollThumb, IsAsHighAsThePagesShareOfTheFile) {
  EXPECT_DOUBLE_EQ(Fitted(2048, 8000).height, 2000);
  EXPECT_DOUBLE_EQ(Fitted(1024, 8000).height, 4000);
}

TEST(ScrollThumb, IsNeverBelow200UnitsNorAboveTheTrack) {
  EXPECT_DOUBLE_EQ(Fitted(2'147'483'647, 8000).height, 200);
  EXPECT_DOUBLE_EQ(Fitted(100, 8000).height, 8000);
  EXPECT_DOUBLE_EQ(Fitted(512, 8000).height, 8000);
  EXPECT_DOUBLE_EQ(Fitted(0, 8000).height, 8000);
  EXPECT_DOUBLE_EQ(Fitted(1'000'000, 150).height, 150);
}

TEST(ScrollThumb, TravelsTheRestOfTheTrackOverTheScrollRange) {
  const bwp::ScrollThumb thumb = Fitted(2048, 8000);
  EXPECT_DOUBLE_EQ(thumb.ThumbTravel, 6000);
  EXPECT_DOUBLE_EQ(thumb.ThumbScale, 6000.0 / 1536);
  EXPECT_DOUBLE_EQ(thumb.TopOf(0), 0);
  EXPECT_DOUBLE_EQ(thumb.TopOf(1536), 6000);
}

TEST(ScrollThumb, AFileOfOnePageLeavesItNoWayToGo) {
  for (const std::int64_t length : {0, 1, 511, 512}) {
    const bwp::ScrollThumb thumb = Fitted(length, 8000);
    EXPECT_DOUBLE_EQ(thumb.ThumbTravel, 0);
    EXPECT_EQ(thumb.StartOf(0), 0);
    EXPECT_EQ(thumb.StartOf(4000), 0);
  }
}

TEST(ScrollThumb, OneByteMoreThanAPageHasTwoStarts) {
  const bwp::ScrollThumb thumb = Fitted(513, 8000);
  EXPECT_EQ(thumb.StartOf(0), 0);
  EXPECT_EQ(thumb.StartOf(thumb.ThumbTravel), 1);
}

TEST(ScrollThumb, AnExactHalfGoesToTheEvenStart) {
  bwp::ScrollThumb thumb;
  thumb.ThumbScale = 2;
  EXPECT_EQ(thumb.StartOf(1), 0);
  EXPECT_EQ(thumb.StartOf(3), 2);
  EXPECT_EQ(thumb.StartOf(5), 2);
  EXPECT_EQ(thumb.StartOf(5.1), 3);
}

RC_GTEST_PROP(ScrollThumb, EveryStartIsReachedFromItsOwnTop, ()) {
  const auto length = *rc::gen::inRange<std::int64_t>(513, 2'147'483'647);
  const auto track = static_cast<double>(*rc::gen::inRange(250, 20'000));
  const bwp::ScrollThumb thumb = Fitted(length, track);
  const auto start = *rc::gen::inRange<std::int64_t>(0, length - 511);
  RC_ASSERT(thumb.StartOf(thumb.TopOf(start)) == start);
  RC_ASSERT(thumb.TopOf(start) >= 0);
  RC_ASSERT(thumb.TopOf(start) <= thumb.ThumbTravel * (1 + 1e-12));
  RC_ASSERT(thumb.StartOf(thumb.ThumbTravel) == length - 512);
  RC_ASSERT(thumb.height + thumb.ThumbTravel == track);
}

}  // namespace
