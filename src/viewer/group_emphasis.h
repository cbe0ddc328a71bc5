#pragma once

#include <optional>
#include <vector>

#include "viewer/page_grid.h"

namespace bwp {

/// A stretch of a box's text and how it is to look.
struct EmphasisRun {
  int start = 0;
  int length = 0;
  bool bold = false;
  std::optional<Colour> colour;  ///< None: the colour stays as it is.
  friend bool operator==(const EmphasisRun&, const EmphasisRun&) = default;
};

/// Marks a text of that length in groups counted from its right end, so that neighbouring groups are told
/// apart: the rightmost plain in colour A, the next bold (with emphasis) in colour B, and so on in turn; the
/// leftmost may be shorter. Colours are given only when at least one is asked for, a missing one being black.
/// An empty text is one empty group. The runs come in the order in which they are to be applied, from the
/// right.
std::vector<EmphasisRun> GroupEmphasis(int textLength, int groupSize = 3, std::optional<Colour> colourA = {},
                                       std::optional<Colour> colourB = {}, bool emphasis = false);

/// How every hexadecimal offset is marked: its two-digit pairs in turn plain and bold.
inline std::vector<EmphasisRun> OffsetEmphasis(int textLength) {
  return GroupEmphasis(textLength, 2, {}, {}, true);
}

}  // namespace bwp
