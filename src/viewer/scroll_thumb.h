#pragma once

#include <cstdint>

namespace bwp {

/// Geometry of the scroll bar's thumb on its track. All lengths are form units (1/15 of a logical pixel),
/// measured from the track's top.
struct ScrollThumb {
  double trackHeight = 0;
  double height = 0;
  double top = 0;
  double ThumbTravel = 0;  ///< The largest top: track height minus thumb height.
  double ThumbScale = 0;   ///< Units of travel per byte of the Show Window's start.

  /// Sizes the thumb for a file of that length in a track of that height. The caller sets the top.
  void Fit(std::int64_t fileLength, double track);

  /// The top that shows the page at start.
  double TopOf(std::int64_t start) const { return static_cast<double>(start) * ThumbScale; }

  /// The page start that a top shows: the nearest whole number, an exact half to the even neighbour; 0 for a
  /// file for which the thumb cannot move.
  std::int64_t StartOf(double thumbTop) const;
};

}  // namespace bwp
