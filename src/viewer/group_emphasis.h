#pragma once

#include <optional>
#include <vector>

#include "viewer/page_grid.h"

namespace bwp {

/// A part of a box's text and its format.
struct EmphasisRun {
  int start = 0;
  int length = 0;
  bool bold = false;
  std::optional<Colour> colour;  ///< None: the colour stays as it is.
  friend bool operator==(const EmphasisRun&, const EmphasisRun&) = default;
};

/// Divides a text of that length into groups, counted from its right end, and formats them so that neighbours
/// differ: the rightmost is plain in colour A, the next bold (with emphasis) in colour B, and so on in turn;
/// the leftmost may be shorter. Colours are set only if at least one is given; a missing one is black. An
/// empty text is one empty group. The runs are in the order in which to apply them, from the right.
std::vector<EmphasisRun> GroupEmphasis(int textLength, int groupSize = 3, std::optional<Colour> colourA = {},
                                       std::optional<Colour> colourB = {}, bool emphasis = false);

/// The format of every hexadecimal offset: its pairs of digits are plain and bold in turn.
inline std::vector<EmphasisRun> OffsetEmphasis(int textLength) {
  return GroupEmphasis(textLength, 2, {}, {}, true);
}

}  // namespace bwp
