#include "viewer/forms/page_painter.h"

#include "viewer/forms/cell_painting.h"

namespace bwp {
namespace {

// Pictures pay off only over many pages; the first pages are faster, and take less memory, without them.
constexpr int kPagesWithoutPictures = 3;

QColor ThemeColour(const QPalette& palette, QPalette::ColorRole role) {
  return palette.color(QPalette::Active, role);  // also while the grid is disabled
}

// Device pixels per logical pixel, from the transformation, because a painter may have been redirected to a
// device with another ratio than the widget's. 0 if it is not a uniform scaling.
double RatioOf(const QPainter& painter) {
  const QTransform transform = painter.deviceTransform();
  return transform.type() <= QTransform::TxScale && transform.m11() == transform.m22() ? transform.m11() : 0;
}

}  // namespace

PagePainter::PagePainter()
    : glyphs_(CellFont()),
      geometry_(glyphs_),
      pictures_(glyphs_, geometry_),
      themeTexts_(glyphs_),
      byteTexts_(glyphs_) {}

void PagePainter::PaintPage(QPainter& painter, const PageGrid& grid, const QPalette& palette) {
  if (pages_ < kPagesWithoutPictures) {
    ++pages_;
  } else {
    pictures_.SetRatio(RatioOf(painter));
  }
  withoutPicture_.clear();
  BlitPictures(painter, grid);
  const QColor empty = ThemeColour(palette, QPalette::Base);
  for (const GridCell& cell : withoutPicture_) PaintByteCell(painter, grid, cell, empty);
  for (int row = 0; row < kRows; ++row) {
    PaintThemeCell(painter, {row, kOffsetColumn}, grid.Text(row, kOffsetColumn), palette);
  }
  themeTexts_.Draw(painter, ThemeColour(palette, QPalette::ButtonText));
  byteTexts_.Draw(painter, Qt::black);
}

void PagePainter::PaintRuler(QPainter& painter, bool hex, const QPalette& palette) {
  PaintThemeCell(painter, {0, kOffsetColumn}, "Offset", palette);
  for (int column = kFirstValueColumn; column < kColumns; ++column) {
    PaintThemeCell(painter, {0, column}, RulerLabel(column, hex), palette);
  }
  themeTexts_.Draw(painter, ThemeColour(palette, QPalette::ButtonText));
}

QRect PagePainter::PlaceOf(GridCell cell) const {
  return {geometry_.Left(cell.column), cell.row * geometry_.rowHeight, geometry_.Width(cell.column),
          geometry_.rowHeight};
}

void PagePainter::BlitPictures(QPainter& painter, const PageGrid& grid) {
  const int ratio = pictures_.Ratio();
  // In device pixels: otherwise the toolkit would scale a part of an image, even one to one.
  painter.save();
  if (ratio > 0) painter.scale(1.0 / ratio, 1.0 / ratio);
  for (int row = 0; row < kRows; ++row) {
    for (int column = kFirstValueColumn; column < kColumns; ++column) {
      const bool character = column >= kFirstCharColumn;
      const bool ownColour = grid.Background(row, column) == (character ? kCharColour : kValueColour);
      const auto picture = ownColour ? pictures_.Find(grid.Text(row, column), character) : std::nullopt;
      if (picture) {
        const QPoint place(geometry_.Left(column) * ratio, row * geometry_.rowHeight * ratio);
        painter.drawImage(place, *picture->image, picture->source);
      } else {
        withoutPicture_.push_back({row, column});
      }
    }
  }
  painter.restore();
}

void PagePainter::PaintByteCell(QPainter& painter, const PageGrid& grid, GridCell cell, const QColor& empty) {
  const std::string_view text = grid.Text(cell.row, cell.column);
  const Colour colour = grid.Background(cell.row, cell.column);
  const bool holdsNothing = text.empty() && colour == kValueColour;
  PaintBlankCell(painter, PlaceOf(cell), holdsNothing ? empty : ToQColor(colour), kCellLineColour);
  AddText(byteTexts_, cell, text);
}

void PagePainter::PaintThemeCell(QPainter& painter, GridCell cell, std::string_view text,
                                 const QPalette& palette) {
  PaintBlankCell(painter, PlaceOf(cell), ThemeColour(palette, QPalette::Button),
                 ThemeColour(palette, QPalette::Mid));
  AddText(themeTexts_, cell, text);
}

void PagePainter::AddText(GlyphRun& run, GridCell cell, std::string_view text) const {
  run.Add(text, geometry_.TextRight(cell.column), cell.row * geometry_.rowHeight + geometry_.baseline);
}

}  // namespace bwp
