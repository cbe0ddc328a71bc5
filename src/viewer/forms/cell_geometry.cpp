#include "viewer/forms/cell_geometry.h"

#include <cmath>

#include "viewer/forms/units.h"

namespace bwp {
namespace {

constexpr double kOffsetWidth = 1240;  // form units
constexpr double kValueWidth = 500;    // form units
// The longest text of the offset column: a decimal offset.
constexpr int kOffsetCharacters = 10;

}  // namespace

CellGeometry::CellGeometry(const GlyphCache& glyphs) {
  const int charWidth = static_cast<int>(std::ceil(glyphs.Advance())) + 2 * kPadding + kLine;
  for (std::size_t column = 0; column < kColumns; ++column) {
    const int width = column == kOffsetColumn     ? ToPixels(kOffsetWidth)
                      : column < kFirstCharColumn ? ToPixels(kValueWidth)
                                                  : charWidth;
    left[column + 1] = left[column] + width;
  }
  const int ascent = static_cast<int>(std::ceil(glyphs.Ascent()));
  const int descent = static_cast<int>(std::ceil(glyphs.Descent()));
  rowHeight = 1 + ascent + descent + kLine;
  baseline = 1 + ascent;
}

QFont CellFont() {
  static const QFont font = FixedFontFitting(
      kOffsetCharacters, ToPixels(kOffsetWidth) - CellGeometry::kPadding - CellGeometry::kLine);
  return font;
}

}  // namespace bwp
