#pragma once

#include <cstdint>
#include <vector>

namespace bwp {

/// The rectangle that frames the division graphic, in form units.
struct FrameShape {
  double left, top, width, height;
};

/// One filled box of the division graphic, in form units; the colour is 0xBBGGRR.
struct DivisionBox {
  double left, top, right, bottom;
  std::uint32_t colour;
};

inline constexpr std::uint32_t kFirstPartColour = 0x00FF00;
inline constexpr std::uint32_t kSecondPartColour = 0xFF0000;

/// The boxes that show a file of that size cut into parts of that size, one a part in two colours by turns,
/// and a closing one up to the frame's end. Above 1000 whole parts the closing box is the only one; without
/// a part size there is none.
std::vector<DivisionBox> DivisionBoxes(std::int64_t fileSize, std::int64_t partSize, const FrameShape& frame);

}  // namespace bwp
