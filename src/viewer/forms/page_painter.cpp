#include "viewer/forms/page_painter.h"

#include <cmath>

#include <QGlyphRun>

#include "viewer/forms/units.h"

namespace bwp {
namespace {

constexpr double kOffsetWidth = 1240;  // form units
constexpr double kValueWidth = 500;    // form units
// Pixels between a text and the line at its right.
constexpr int kPadding = 2;
constexpr int kLine = 1;
// The longest text of the offset column: a decimal offset.
constexpr int kOffsetCharacters = 10;

CellGeometry MakeGeometry(const GlyphCache& glyphs) {
  CellGeometry geometry;
  const int charWidth = static_cast<int>(std::ceil(glyphs.Advance())) + 2 * kPadding + kLine;
  for (int column = 0; column < kColumns; ++column) {
    const int width = column == kOffsetColumn     ? ToPixels(kOffsetWidth)
                      : column < kFirstCharColumn ? ToPixels(kValueWidth)
                                                  : charWidth;
    geometry.left[static_cast<std::size_t>(column) + 1] =
        geometry.left[static_cast<std::size_t>(column)] + width;
  }
  const int textHeight = static_cast<int>(std::ceil(glyphs.Ascent()) + std::ceil(glyphs.Descent()));
  geometry.rowHeight = textHeight + kLine;
  geometry.baseline = static_cast<int>(std::ceil(glyphs.Ascent()));
  return geometry;
}

}  // namespace

QFont PagePainter::Font() {
  return FixedFontFitting(kOffsetCharacters, ToPixels(kOffsetWidth) - kPadding - kLine);
}

PagePainter::PagePainter() : glyphs_(Font()), geometry_(MakeGeometry(glyphs_)) {}

void PagePainter::PaintPage(QPainter& painter, const PageGrid& grid, const QPalette& palette) {
  PaintBackgrounds(painter, grid, palette.color(QPalette::Active, QPalette::Base));
  painter.fillRect(0, 0, geometry_.Right(kOffsetColumn), kRows * geometry_.rowHeight,
                   palette.color(QPalette::Active, QPalette::Button));
  PaintLines(painter, kRows, palette);
  for (int row = 0; row < kRows; ++row) {
    PlaceText(offsets_, grid.Text(row, kOffsetColumn), row, kOffsetColumn);
    for (int column = kFirstValueColumn; column < kColumns; ++column) {
      PlaceText(bytes_, grid.Text(row, column), row, column);
    }
  }
  Draw(painter, offsets_, palette.color(QPalette::Active, QPalette::ButtonText));
  Draw(painter, bytes_, Qt::black);
}

void PagePainter::PaintRuler(QPainter& painter, bool hex, const QPalette& palette) {
  painter.fillRect(0, 0, geometry_.Right(kColumns - 1), geometry_.rowHeight,
                   palette.color(QPalette::Active, QPalette::Button));
  PaintLines(painter, 1, palette);
  PlaceText(offsets_, "Offset", 0, kOffsetColumn);
  for (int column = kFirstValueColumn; column < kColumns; ++column) {
    PlaceText(offsets_, RulerLabel(column, hex), 0, column);
  }
  Draw(painter, offsets_, palette.color(QPalette::Active, QPalette::ButtonText));
}

void PagePainter::PlaceText(Texts& texts, std::string_view text, int row, int column) const {
  const double width = glyphs_.Advance() * static_cast<double>(text.size());
  double x = std::floor(geometry_.Right(column) - kLine - kPadding - width);
  const double y = row * geometry_.rowHeight + geometry_.baseline;
  for (const char character : text) {
    const quint32 glyph = glyphs_.Glyph(static_cast<std::uint8_t>(character));
    if (glyph != GlyphCache::kNothing) {
      texts.glyphs.push_back(glyph);
      texts.places.emplace_back(x, y);
    }
    x += glyphs_.Advance();
  }
}

void PagePainter::Draw(QPainter& painter, Texts& texts, const QColor& colour) {
  if (!texts.glyphs.empty()) {
    QGlyphRun run;
    run.setRawFont(glyphs_.Font());
    run.setRawData(texts.glyphs.data(), texts.places.data(), static_cast<int>(texts.glyphs.size()));
    painter.setPen(colour);
    painter.drawGlyphRun({}, run);
  }
  texts.glyphs.clear();
  texts.places.clear();
}

void PagePainter::PaintBackgrounds(QPainter& painter, const PageGrid& grid, const QColor& empty) const {
  const auto colourAt = [&](int row, int column) {
    const Colour colour = grid.Background(row, column);
    const bool holdsNothing = colour == kValueColour && grid.Text(row, column).empty();
    return holdsNothing ? empty.rgb() : ToQColor(colour).rgb();
  };
  // Neighbours of one colour are one rectangle.
  for (int row = 0; row < kRows; ++row) {
    for (int first = kFirstValueColumn; first < kColumns;) {
      const QRgb colour = colourAt(row, first);
      int next = first + 1;
      while (next < kColumns && colourAt(row, next) == colour) ++next;
      painter.fillRect(geometry_.Left(first), row * geometry_.rowHeight,
                       geometry_.Left(next) - geometry_.Left(first), geometry_.rowHeight, QColor(colour));
      first = next;
    }
  }
}

void PagePainter::PaintLines(QPainter& painter, int rows, const QPalette& palette) const {
  const QColor ofTheme = palette.color(QPalette::Active, QPalette::Mid);
  const QColor ofCells(200, 200, 200);
  const int height = rows * geometry_.rowHeight;
  const int width = geometry_.Right(kColumns - 1);
  const int cells = geometry_.Right(kOffsetColumn);
  for (int row = 1; row <= rows; ++row) {
    const int y = row * geometry_.rowHeight - kLine;
    painter.fillRect(0, y, cells, kLine, ofTheme);
    painter.fillRect(cells, y, width - cells, kLine, ofCells);
  }
  for (int column = 0; column < kColumns; ++column) {
    painter.fillRect(geometry_.Right(column) - kLine, 0, kLine, height,
                     column == kOffsetColumn ? ofTheme : ofCells);
  }
}

QColor ToQColor(Colour colour) {
  return {static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
          static_cast<int>((colour >> 16U) & 0xFFU)};
}

}  // namespace bwp
