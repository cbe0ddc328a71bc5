#pragma once

#include <array>
#include <string_view>
#include <vector>

#include <QFont>
#include <QPainter>
#include <QPalette>

#include "viewer/forms/glyph_cache.h"
#include "viewer/page_grid.h"

namespace bwp {

/// Where the cells of the page and of its ruler stand, in logical pixels. A cell includes the grid line at
/// its right and its bottom.
struct CellGeometry {
  std::array<int, kColumns + 1> left{};  ///< Left edge of every column; the last is the width of all.
  int rowHeight = 0;
  int baseline = 0;  ///< From a row's top.

  int Width(int column) const {
    const auto index = static_cast<std::size_t>(column);
    return left[index + 1] - left[index];
  }
  int Left(int column) const { return left[static_cast<std::size_t>(column)]; }
  int Right(int column) const { return left[static_cast<std::size_t>(column) + 1]; }
};

/// Draws the page and the ruler cell by cell from cached glyphs: all backgrounds, the grid lines, then all
/// texts of one colour in one go. It keeps its buffers, so that a page costs no allocation.
class PagePainter {
 public:
  /// The font that fits the columns: the desktop's fixed-pitch font.
  static QFont Font();

  PagePainter();
  const CellGeometry& Geometry() const { return geometry_; }

  /// Draws all rows of the page at the painter's origin. Given colours keep dark text in every theme; the
  /// offsets and the cells that hold nothing follow the palette.
  void PaintPage(QPainter& painter, const PageGrid& grid, const QPalette& palette);

  /// Draws the ruler's one row.
  void PaintRuler(QPainter& painter, bool hex, const QPalette& palette);

 private:
  struct Texts {
    std::vector<quint32> glyphs;
    std::vector<QPointF> places;
  };

  void PlaceText(Texts& texts, std::string_view text, int row, int column) const;
  void Draw(QPainter& painter, Texts& texts, const QColor& colour);
  void PaintBackgrounds(QPainter& painter, const PageGrid& grid, const QColor& empty) const;
  void PaintLines(QPainter& painter, int rows, const QPalette& palette) const;

  GlyphCache glyphs_;
  CellGeometry geometry_;
  Texts offsets_;
  Texts bytes_;
};

/// The toolkit's colour of a blue-green-red number.
QColor ToQColor(Colour colour);

}  // namespace bwp
