#include "viewer/forms/cell_pictures.h"

#include <charconv>
#include <string>

#include <QPainter>

#include "viewer/forms/cell_painting.h"
#include "viewer/forms/glyph_run.h"
#include "viewer/number_text.h"

namespace bwp {
namespace {

constexpr int kBytes = 256;

// The byte that a number cell's text shows; nothing for any other text.
std::optional<int> ByteOf(std::string_view text, int base) {
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, base);
  const bool whole = result.ec == std::errc() && result.ptr == end;
  return whole && value >= 0 && value < kBytes ? std::optional(value) : std::nullopt;
}

}  // namespace

void CellPictures::SetRatio(double ratio) {
  // At a fractional ratio the cells of a column do not all have the same size in device pixels.
  const int whole = static_cast<int>(ratio);
  const int usable = whole == ratio ? whole : 0;
  if (usable == ratio_) return;
  ratio_ = usable;
  images_.fill({});
}

std::optional<CellPictures::Picture> CellPictures::Find(std::string_view text, bool character) {
  if (ratio_ == 0 || text.empty()) return std::nullopt;
  // Two digits look the same in both bases.
  const Kind kind = character ? kCharacter : text.size() == 2 ? kPair : kDecimal;
  const std::optional<int> byte = character ? std::optional<int>(static_cast<std::uint8_t>(text.front()))
                                            : ByteOf(text, kind == kPair ? 16 : 10);
  if (!byte) return std::nullopt;
  QImage& image = images_[kind];
  if (image.isNull()) image = Make(kind);
  const int height = geometry_.rowHeight * ratio_;
  return Picture{&image, QRect(0, *byte * height, image.width(), height)};
}

QImage CellPictures::Make(Kind kind) const {
  const int column = kind == kCharacter ? kFirstCharColumn : kFirstValueColumn;
  const QSize cell(geometry_.Width(column), geometry_.rowHeight);
  QImage image(cell.width() * ratio_, cell.height() * kBytes * ratio_, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio_);
  QPainter painter(&image);
  GlyphRun run(glyphs_);
  for (int byte = 0; byte < kBytes; ++byte) {
    const QPoint top(0, byte * cell.height());
    PaintBlankCell(painter, QRect(top, cell), ToQColor(kind == kCharacter ? kCharColour : kValueColour),
                   kCellLineColour);
    const std::string text = kind == kPair      ? funzioni::HexByte(byte)
                             : kind == kDecimal ? std::to_string(byte)
                                                : std::string(1, static_cast<char>(byte));
    run.Add(text, geometry_.TextRight(column) - geometry_.Left(column), top.y() + geometry_.baseline);
  }
  run.Draw(painter, Qt::black);
  painter.end();
  image.setDevicePixelRatio(1);
  return image;
}

}  // namespace bwp
