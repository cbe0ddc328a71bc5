#pragma once

#include <cmath>

namespace bwp {

/// Lengths in forms are given in units of 1/15 of a logical pixel; these functions convert them.
inline constexpr double kUnitsPerPixel = 15;

inline int ToPixels(double units) {
  return static_cast<int>(std::lround(units / kUnitsPerPixel));
}
inline double ToUnits(double pixels) {
  return pixels * kUnitsPerPixel;
}

}  // namespace bwp
