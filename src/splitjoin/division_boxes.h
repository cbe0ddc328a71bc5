#pragma once

#include <cstdint>
#include <vector>

#include "viewer/page_grid.h"

namespace bwp {

/// The rectangle that frames the division graphic, in form units.
struct FrameShape {
  double left, top, width, height;
};

/// One filled box of the division graphic, in form units.
struct DivisionBox {
  double left, top, right, bottom;
  Colour colour;
};

inline constexpr Colour kFirstPartColour = 0x00FF00;   // green
inline constexpr Colour kSecondPartColour = 0xFF0000;  // blue

/// The boxes that show a file of that size cut into parts of that size: one per whole part, in alternating
/// colours, and a closing one that fills the frame to its end. Above 1000 whole parts there is only the
/// closing box; without a part size there is none.
std::vector<DivisionBox> DivisionBoxes(std::int64_t fileSize, std::int64_t partSize, const FrameShape& frame);

}  // namespace bwp
