#include "viewer/page_grid.h"

#include <algorithm>
#include <charconv>

namespace bwp {

PageGrid::PageGrid() {
  Clear();
}

void PageGrid::Clear() {
  cells_.fill(Cell{});
  PaintCharCells(*this);
}

std::string_view PageGrid::Text(int row, int column) const {
  const Cell& cell = At({row, column});
  return {cell.text.data(), cell.length};
}

void PageGrid::SetText(int row, int column, std::string_view text) {
  Cell& cell = At({row, column});
  cell.length = static_cast<std::uint8_t>(std::min(text.size(), kCellCapacity));
  std::copy_n(text.begin(), cell.length, cell.text.begin());
}

Colour PageGrid::Background(int row, int column) const {
  return At({row, column}).background;
}

void PageGrid::cellcol(int row, int column, Colour colour) {
  At({row, column}).background = colour;
}

void PageGrid::WriteByte(int position, std::uint8_t byte, bool hex) {
  Cell& value = At(ValueCell(position));
  if (hex) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    value.text[0] = kDigits[byte / 16U];
    value.text[1] = kDigits[byte % 16U];
    value.length = 2;
  } else {
    char* const start = value.text.data();
    value.length = static_cast<std::uint8_t>(std::to_chars(start, start + kCellCapacity, byte).ptr - start);
  }
  Cell& character = At(CharCell(position));
  character.text[0] = static_cast<char>(byte);
  character.length = 1;
}

void PageGrid::ColourByte(int position, Colour value, Colour character) {
  At(ValueCell(position)).background = value;
  At(CharCell(position)).background = character;
}

PageGrid::Cell& PageGrid::At(GridCell cell) {
  return cells_[static_cast<std::size_t>(cell.row * kColumns + cell.column)];
}

const PageGrid::Cell& PageGrid::At(GridCell cell) const {
  return cells_[static_cast<std::size_t>(cell.row * kColumns + cell.column)];
}

GridCell NearestByteCell(GridCell place) {
  return {std::clamp(place.row, 0, kRows - 1), std::clamp(place.column, kFirstValueColumn, kColumns - 1)};
}

void PaintCharCells(PageGrid& grid) {
  for (int row = 0; row < kRows; ++row) {
    for (int column = kFirstCharColumn; column < kColumns; ++column) grid.cellcol(row, column, kCharColour);
  }
}

std::string RulerLabel(int column, bool hex) {
  const int value = (column - 1) % kBytesPerRow;
  if (hex && value >= 10) return std::string(1, static_cast<char>('A' + value - 10));
  return std::to_string(value);
}

}  // namespace bwp
