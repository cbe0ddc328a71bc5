#include "splitjoin/division_boxes.h"

namespace bwp {
namespace {

// The distance of the boxes from the frame.
constexpr double kInset = 20;
// Neighbours overlap by this much, so that no gap shows between them.
constexpr double kOverlap = 1;
// More boxes than this could not be told apart.
constexpr std::int64_t kMostBoxes = 1000;

}  // namespace

std::vector<DivisionBox> DivisionBoxes(std::int64_t fileSize, std::int64_t partSize,
                                       const FrameShape& frame) {
  std::vector<DivisionBox> boxes;
  if (partSize <= 0 || fileSize <= 0) return boxes;

  const double left = frame.left + kInset;
  const double top = frame.top + kInset;
  const double bottom = top + frame.height - 2 * kInset;
  const double width = frame.width - 2 * kInset;
  const double boxWidth = width * static_cast<double>(partSize) / static_cast<double>(fileSize);
  const std::int64_t wholeParts = fileSize / partSize;
  const std::int64_t drawn = wholeParts <= kMostBoxes ? wholeParts : 0;

  boxes.reserve(static_cast<std::size_t>(drawn) + 1);
  const auto colourOf = [](std::int64_t i) { return i % 2 == 0 ? kFirstPartColour : kSecondPartColour; };
  for (std::int64_t i = 0; i < drawn; ++i) {
    const auto place = static_cast<double>(i);
    boxes.push_back(
        {left + boxWidth * place, top, left + boxWidth * (place + 1) + kOverlap, bottom, colourOf(i)});
  }
  boxes.push_back({left + boxWidth * static_cast<double>(drawn), top, left + width, bottom, colourOf(drawn)});
  return boxes;
}

}  // namespace bwp
