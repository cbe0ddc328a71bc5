#include "interaction/edit_mode.h"

#include <algorithm>
#include <string>

#include "viewer/code_page.h"
#include "viewer/number_text.h"

namespace bwp {
namespace {

constexpr std::uint8_t kEnter = 13;
// The keys that move a cell have the numbers of these characters, from "!" to "(". Whoever types one of the
// characters ends the byte as with Enter.
constexpr std::uint8_t kFirstMover = 33;
constexpr std::uint8_t kLastMover = 40;

int PositionOf(EditCell cell) {
  return cell.row * kBytesPerRow + (cell.column - 1) % kBytesPerRow;
}

std::int64_t ReadCell(std::string_view text, bool hex) {
  return hex ? funzioni::ParseHex(text) : funzioni::ParseDecimal(text);
}

}  // namespace

bool EditMode::MayEnter() const {
  return !On() && !state_.OpenFile.empty() && LastPosition() >= 0;
}

void EditMode::Enter(int row, int column) {
  if (!MayEnter()) return;
  before_ = std::make_unique<PageGrid>(state_.tabe);
  openings_ = state_.openings;
  state_.FieldTyping = true;
  state_.EditMode = true;
  current_ = {};
  MoveTo(row, column);
}

void EditMode::Leave() {
  if (!On()) return;
  if (PageIsOfOpenFile()) state_.tabe = *before_;
  before_.reset();
  state_.FieldTyping = false;
  state_.EditMode = false;
}

void EditMode::MoveTo(int row, int column) {
  if (!On()) return;
  const EditCell left = current_;
  EditCell cell{std::clamp(row, 0, kRows - 1), std::clamp(column, kFirstValueColumn, kColumns - 1)};
  const int last = LastPosition();
  if (PositionOf(cell) > last) {
    const int half = cell.column < kFirstCharColumn ? kFirstValueColumn : kFirstCharColumn;
    cell = {last / kBytesPerRow, half + last % kBytesPerRow};
  }
  current_ = cell;
  DigitCount_ = 0;
  Recolour(PositionOf(left));
  Recolour(PositionOf(current_));
}

void EditMode::TypeKey(std::uint8_t code) {
  if (!On() || current_.column >= kFirstCharColumn) return;
  if (code == kEnter || (code >= kFirstMover && code <= kLastMover)) return Commit();
  const auto digit = static_cast<char>(code_page::Upper(code));
  if (!funzioni::IsNumberText(std::string_view(&digit, 1), state_.HexMode)) return;
  const bool last = DigitCount_ == (state_.HexMode ? 1 : 2);
  TypeDigit(digit);
  if (last) Commit();
}

void EditMode::ButtonKey(std::uint8_t code) {
  if (!On()) return;
  const int half = current_.column < kFirstCharColumn ? kFirstValueColumn : kFirstCharColumn;
  switch (code) {
    case 38:  // up
      return MoveTo((current_.row + kRows - 1) % kRows, current_.column);
    case 40:  // down
      return MoveTo((current_.row + 1) % kRows, current_.column);
    case 37:  // right
      return MoveTo(current_.row, half + current_.column % kBytesPerRow);
    case 39:  // left
      return MoveTo(current_.row, half + (current_.column - half + kBytesPerRow - 1) % kBytesPerRow);
    default:
      return;
  }
}

bool EditMode::IsChanged(int position) const {
  if (!On() || position > LastPosition()) return false;
  const std::string_view shown =
      before_->Text(position / kBytesPerRow, position % kBytesPerRow + kFirstCharColumn);
  return shown.empty() || static_cast<std::uint8_t>(shown.front()) != ValueAt(position);
}

// The last byte of the file on the page, or of the page; negative where the page shows none.
int EditMode::LastPosition() const {
  return static_cast<int>(funzioni::MinOf({kPageBytes - 1, state_.FLen - state_.SWStart - 1}));
}

std::uint8_t EditMode::ValueAt(int position) const {
  const std::string_view text =
      state_.tabe.Text(position / kBytesPerRow, position % kBytesPerRow + kFirstValueColumn);
  return CellByte(text, state_.HexMode);
}

// The first digit takes the place of what stood in the cell.
void EditMode::TypeDigit(char digit) {
  std::string text;
  if (DigitCount_ > 0) text = state_.tabe.Text(current_.row, current_.column);
  state_.tabe.SetText(current_.row, current_.column, text + digit);
  ++DigitCount_;
  Recolour(PositionOf(current_));
}

void EditMode::Commit() {
  PageGrid& grid = state_.tabe;
  const int row = current_.row;
  const int column = current_.column;
  if (ReadCell(grid.Text(row, column), state_.HexMode) > 255) {
    grid.SetText(row, column, state_.HexMode ? "FF" : "255");
  }
  const auto character = static_cast<char>(ValueAt(PositionOf(current_)));
  grid.SetText(row, column + kBytesPerRow, {&character, 1});
  MoveTo((row + column / kBytesPerRow) % kRows, column % kBytesPerRow + 1);
}

// A byte that was changed can be told from one that was not wherever the current cell stands.
void EditMode::Recolour(int position) {
  const int row = position / kBytesPerRow;
  const bool changed = IsChanged(position);
  for (const int half : {kFirstValueColumn, kFirstCharColumn}) {
    const EditCell cell{row, position % kBytesPerRow + half};
    Colour colour = changed ? kByteChangedColour : before_->Background(cell.row, cell.column);
    if (cell == current_) colour = changed ? kCellChangedColour : kCellAsInFileColour;
    state_.tabe.cellcol(cell.row, cell.column, colour);
  }
}

std::uint8_t CellByte(std::string_view text, bool hex) {
  return static_cast<std::uint8_t>(funzioni::MinOf({255, ReadCell(text, hex)}));
}

}  // namespace bwp
