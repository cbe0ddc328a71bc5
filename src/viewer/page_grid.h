#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace bwp {

/// Geometry of the page, the same everywhere: 32 rows of 16 bytes.
inline constexpr int kBytesPerRow = 16;
inline constexpr int kRows = 32;
inline constexpr int kPageBytes = kRows * kBytesPerRow;

/// Columns of the grid: the offset, then the row's bytes as numbers (1 to 16) and as characters (17 to 32).
inline constexpr int kOffsetColumn = 0;
inline constexpr int kFirstValueColumn = 1;
inline constexpr int kFirstCharColumn = 17;
inline constexpr int kColumns = 33;

/// A cell of the grid.
struct GridCell {
  int row = 0;
  int column = kFirstValueColumn;
  friend bool operator==(const GridCell&, const GridCell&) = default;
};

/// The page position, 0 to 511, of the byte whose number or character a cell shows.
constexpr int PositionOf(GridCell cell) {
  return cell.row * kBytesPerRow + (cell.column - kFirstValueColumn) % kBytesPerRow;
}

/// The cells that show the byte at a page position, as a number and as a character.
constexpr GridCell ValueCell(int position) {
  return {position / kBytesPerRow, position % kBytesPerRow + kFirstValueColumn};
}
constexpr GridCell CharCell(int position) {
  return {position / kBytesPerRow, position % kBytesPerRow + kFirstCharColumn};
}

/// The byte cell nearest to a place, which may be outside the grid or on an offset.
GridCell NearestByteCell(GridCell place);

/// A colour as blue, green, red: 0x00BBGGRR.
using Colour = std::uint32_t;
inline constexpr Colour kMarkStartColour = 0x0000FFFF;  // yellow
inline constexpr Colour kMarkEndColour = 0x00FF00FF;    // magenta
inline constexpr Colour kValueColour = 0x00FFFFFF;      // white
inline constexpr Colour kCharColour = 0x0000FF00;       // green
inline constexpr Colour kHitColour = 0x00FFFF00;        // cyan

/// What the grid `tabe` shows: the text and the background colour of each of its 32 x 33 cells. Texts are in
/// the program's character set. A cell keeps its text and colour until they are written again.
class PageGrid {
 public:
  PageGrid();

  /// Empties every cell and gives it back its own colour.
  void Clear();

  std::string_view Text(int row, int column) const;
  std::string_view Text(GridCell cell) const { return Text(cell.row, cell.column); }
  /// Cuts the text to the ten characters that a decimal offset may need.
  void SetText(int row, int column, std::string_view text);
  void SetText(GridCell cell, std::string_view text) { SetText(cell.row, cell.column, text); }

  Colour Background(int row, int column) const;
  Colour Background(GridCell cell) const { return Background(cell.row, cell.column); }
  /// Colours one cell; the current cell of the grid does not move.
  void cellcol(int row, int column, Colour colour);

  /// Writes the byte at page position 0 to 511 as a number and as a character.
  void WriteByte(int position, std::uint8_t byte, bool hex);

  /// Colours the value and the character cell of the byte at page position 0 to 511.
  void ColourByte(int position, Colour value, Colour character);
  /// Gives both cells of the byte back their own colours.
  void ResetByteColour(int position) { ColourByte(position, kValueColour, kCharColour); }

 private:
  static constexpr std::size_t kCellCapacity = 10;
  struct Cell {
    std::array<char, kCellCapacity> text{};
    std::uint8_t length = 0;
    Colour background = kValueColour;
  };

  Cell& At(GridCell cell);
  const Cell& At(GridCell cell) const;

  std::array<Cell, std::size_t{kRows} * kColumns> cells_;
};

/// Colours all character cells of the grid green.
void PaintCharCells(PageGrid& grid);

/// The label of ruler column 1 to 32: 0 to 15 twice, 10 to 15 as the letters A to F in hexadecimal.
std::string RulerLabel(int column, bool hex);

}  // namespace bwp
