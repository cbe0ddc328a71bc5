#pragma once

#include <string_view>
#include <vector>

#include <QPainter>
#include <QPalette>

#include "viewer/forms/cell_geometry.h"
#include "viewer/forms/cell_pictures.h"
#include "viewer/forms/glyph_cache.h"
#include "viewer/forms/glyph_run.h"
#include "viewer/page_grid.h"

namespace bwp {

/// Draws the page and the ruler cell by cell: as pictures where there are any, else the background, the grid
/// lines and, all in one call, the glyphs.
class PagePainter {
 public:
  PagePainter();
  PagePainter(const PagePainter&) = delete;
  PagePainter& operator=(const PagePainter&) = delete;

  const CellGeometry& Geometry() const { return geometry_; }

  /// Draws all rows of the page at the painter's origin. Byte cells have dark text in every theme; the
  /// offsets and the cells that hold nothing follow the palette.
  void PaintPage(QPainter& painter, const PageGrid& grid, const QPalette& palette);

  /// Draws the ruler's one row.
  void PaintRuler(QPainter& painter, bool hex, const QPalette& palette);

 private:
  QRect PlaceOf(GridCell cell) const;
  void BlitPictures(QPainter& painter, const PageGrid& grid);
  void PaintByteCell(QPainter& painter, const PageGrid& grid, GridCell cell, const QColor& empty);
  void PaintThemeCell(QPainter& painter, GridCell cell, std::string_view text, const QPalette& palette);
  void AddText(GlyphRun& run, GridCell cell, std::string_view text) const;

  GlyphCache glyphs_;
  CellGeometry geometry_;
  CellPictures pictures_;
  GlyphRun themeTexts_;
  GlyphRun byteTexts_;
  std::vector<GridCell> withoutPicture_;  // a buffer of PaintPage
  int pages_ = 0;
};

}  // namespace bwp
