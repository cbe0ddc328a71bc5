#pragma once

#include <cmath>

namespace bwp {

/// Lengths in forms were given in units of 1/15 of a logical pixel; this is where they become pixels.
inline constexpr double kUnitsPerPixel = 15;

inline int ToPixels(double units) {
  return static_cast<int>(std::lround(units / kUnitsPerPixel));
}
inline double ToUnits(double pixels) {
  return pixels * kUnitsPerPixel;
}

}  // namespace bwp
