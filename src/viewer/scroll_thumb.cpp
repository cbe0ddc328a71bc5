#include "viewer/scroll_thumb.h"

#include <algorithm>
#include <cmath>

#include "viewer/page_grid.h"

namespace bwp {
namespace {

// Large enough to grab even for the largest file: a little over 13 pixels.
constexpr double kMinThumbHeight = 200;
// Keeps the scroll range from being zero for a file that one page shows whole.
constexpr double kMinScrollRange = 0.05;

}  // namespace

void ScrollThumb::Fit(std::int64_t fileLength, double track) {
  const auto length = static_cast<double>(fileLength);
  trackHeight = track;
  height = length > 0 ? track * kPageBytes / length : track;
  height = std::min(track, std::max(kMinThumbHeight, height));
  ThumbTravel = track - height;
  ThumbScale = ThumbTravel / std::max(kMinScrollRange, length - kPageBytes);
}

std::int64_t ScrollThumb::StartOf(double thumbTop) const {
  if (ThumbScale <= 0) return 0;
  return std::llrint(thumbTop / ThumbScale);
}

}  // namespace bwp
