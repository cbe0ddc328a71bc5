#include "viewer/page_grid.h"

#include <gtest/gtest.h>

namespace {

TEST(PageGrid, BeginsEmptyWithWhiteValuesAndGreenCharacters) {
  const bwp::PageGrid grid;
  for (int row = 0; row < bwp::kRows; ++row) {
    for (int column = 0; column < bwp::kColumns; ++column) {
      EXPECT_EQ(grid.Text(row, column), "");
      EXPECT_EQ(grid.Background(row, column), column >= 17 ? 65280U : 16777215U);
    }
  }
}

TEST(PageGrid, ColoursAreTheGivenNumbers) {
  EXPECT_EQ(bwp::kMarkStartColour, 0x00FFFFU);
  EXPECT_EQ(bwp::kMarkEndColour, 0xFF00FFU);
  EXPECT_EQ(bwp::kValueColour, 0xFFFFFFU);
  EXPECT_EQ(bwp::kCharColour, 0x00FF00U);
  EXPECT_EQ(bwp::kHitColour, 0xFFFF00U);
}

TEST(PageGrid, ACellAndItsByteNameEachOther) {
  EXPECT_EQ(bwp::ValueCell(0), (bwp::GridCell{0, 1}));
  EXPECT_EQ(bwp::CharCell(511), (bwp::GridCell{31, 32}));
  for (int position = 0; position < bwp::kPageBytes; ++position) {
    EXPECT_EQ(bwp::PositionOf(bwp::ValueCell(position)), position);
    EXPECT_EQ(bwp::PositionOf(bwp::CharCell(position)), position);
  }
}

TEST(PageGrid, AByteStandsInItsRowTwice) {
  bwp::PageGrid grid;
  grid.WriteByte(0, 'A', true);
  grid.WriteByte(15, 'B', true);
  grid.WriteByte(16, 'C', true);
  grid.WriteByte(511, 0, true);
  EXPECT_EQ(grid.Text(0, 1), "41");
  EXPECT_EQ(grid.Text(0, 17), "A");
  EXPECT_EQ(grid.Text(0, 16), "42");
  EXPECT_EQ(grid.Text(0, 32), "B");
  EXPECT_EQ(grid.Text(1, 1), "43");
  EXPECT_EQ(grid.Text(1, 17), "C");
  EXPECT_EQ(grid.Text(31, 16), "00");
  EXPECT_EQ(grid.Text(31, 32), std::string_view("\0", 1));
}

TEST(PageGrid, HexadecimalHasTwoDigitsAndDecimalNoPadding) {
  bwp::PageGrid grid;
  for (int byte = 0; byte < 256; ++byte) {
    grid.WriteByte(7, static_cast<std::uint8_t>(byte), false);
    EXPECT_EQ(grid.Text(0, 8), std::to_string(byte));
    grid.WriteByte(7, static_cast<std::uint8_t>(byte), true);
    EXPECT_EQ(grid.Text(0, 8).size(), 2U);
    EXPECT_EQ(std::stoi(std::string(grid.Text(0, 8)), nullptr, 16), byte);
    EXPECT_EQ(static_cast<std::uint8_t>(grid.Text(0, 24).front()), byte);
  }
}

TEST(PageGrid, WritingATextKeepsTheColour) {
  bwp::PageGrid grid;
  grid.cellcol(2, 3, bwp::kMarkEndColour);
  grid.WriteByte(34, 'x', true);
  grid.SetText(2, 3, "7");
  EXPECT_EQ(grid.Background(2, 3), bwp::kMarkEndColour);
  EXPECT_EQ(grid.Text(2, 3), "7");
}

TEST(PageGrid, ALongTextIsCut) {
  bwp::PageGrid grid;
  grid.SetText(0, 0, "2147483647");
  EXPECT_EQ(grid.Text(0, 0), "2147483647");
  grid.SetText(0, 0, "12345678901");
  EXPECT_EQ(grid.Text(0, 0), "1234567890");
}

TEST(PageGrid, ClearEmptiesAndRecolours) {
  bwp::PageGrid grid;
  grid.WriteByte(100, 'x', true);
  grid.ColourByte(100, bwp::kHitColour, bwp::kHitColour);
  grid.SetText(6, 0, "00000060");
  grid.Clear();
  EXPECT_EQ(grid.Text(6, 0), "");
  EXPECT_EQ(grid.Text(6, 5), "");
  EXPECT_EQ(grid.Background(6, 5), bwp::kValueColour);
  EXPECT_EQ(grid.Background(6, 21), bwp::kCharColour);
}

TEST(PaintCharCells, ColoursTheCharacterCellsAlone) {
  bwp::PageGrid grid;
  grid.cellcol(31, 16, 1);
  grid.cellcol(31, 17, 2);
  grid.cellcol(0, 32, 3);
  bwp::PaintCharCells(grid);
  EXPECT_EQ(grid.Background(31, 16), 1U);
  EXPECT_EQ(grid.Background(31, 17), bwp::kCharColour);
  EXPECT_EQ(grid.Background(0, 32), bwp::kCharColour);
}

TEST(RulerLabel, RunsFrom0To15Twice) {
  EXPECT_EQ(bwp::RulerLabel(1, false), "0");
  EXPECT_EQ(bwp::RulerLabel(16, false), "15");
  EXPECT_EQ(bwp::RulerLabel(17, false), "0");
  EXPECT_EQ(bwp::RulerLabel(32, false), "15");
  EXPECT_EQ(bwp::RulerLabel(10, true), "9");
  EXPECT_EQ(bwp::RulerLabel(11, true), "A");
  EXPECT_EQ(bwp::RulerLabel(16, true), "F");
  EXPECT_EQ(bwp::RulerLabel(27, true), "A");
  EXPECT_EQ(bwp::RulerLabel(32, true), "F");
}

}  // namespace
