#pragma once

#include <array>

#include "viewer/forms/glyph_cache.h"
#include "viewer/page_grid.h"

namespace bwp {

/// The positions of the cells of the page and its ruler, in logical pixels. A cell includes the grid lines at
/// its right and its bottom.
struct CellGeometry {
  explicit CellGeometry(const GlyphCache& glyphs);

  std::array<int, kColumns + 1> left{};  ///< Left edge of every column; the last is the total width.
  int rowHeight;
  int baseline;  ///< From a row's top.

  int Left(int column) const { return left[static_cast<std::size_t>(column)]; }
  int Right(int column) const { return left[static_cast<std::size_t>(column) + 1]; }
  int Width(int column) const { return Right(column) - Left(column); }
  /// Where a right-aligned text in the column ends.
  int TextRight(int column) const { return Right(column) - kLine - kPadding; }

  static constexpr int kLine = 1;     ///< Thickness of a grid line.
  static constexpr int kPadding = 2;  ///< Between a text and its cell's edges.
};

/// The desktop's fixed-pitch font in a size that fits the columns.
QFont CellFont();

}  // namespace bwp
