#include "interaction/edit_mode.h"

#include <string>

#include "viewer/code_page.h"
#include "viewer/number_text.h"

namespace bwp {
namespace {

// The keys that move a cell, from Page Up to Down, have the numbers of these characters; typing one of the
// characters ends a byte as Enter does.
constexpr std::uint8_t kFirstMover = '!';
constexpr std::uint8_t kLastMover = '(';

// The first column of the half of the row, numbers or characters, that a cell is in.
int HalfOf(GridCell cell) {
  return cell.column < kFirstCharColumn ? kFirstValueColumn : kFirstCharColumn;
}

// The page position of the last byte that the page shows; negative where it shows none.
int LastPosition(const ViewState& state) {
  return static_cast<int>(funzioni::MinOf({kPageBytes - 1, state.FLen - state.SWStart - 1}));
}

std::int64_t ReadCell(std::string_view text, bool hex) {
  return hex ? funzioni::ParseHex(text) : funzioni::ParseDecimal(text);
}

}  // namespace

bool MayEdit(const ViewState& state) {
  return !state.OpenFile.empty() && LastPosition(state) >= 0;
}

void EditMode::Enter(GridCell place) {
  if (On() || !MayEdit(state_)) return;
  before_ = std::make_unique<PageGrid>(state_.tabe);
  openings_ = state_.openings;
  state_.FieldTyping = true;
  state_.EditMode = true;
  current_ = {};
  MoveTo(place);
}

void EditMode::Leave() {
  if (!On()) return;
  if (PageIsOfOpenFile()) state_.tabe = *before_;
  before_.reset();
  state_.FieldTyping = false;
  state_.EditMode = false;
}

void EditMode::MoveTo(GridCell place) {
  if (!On()) return;
  const GridCell left = current_;
  current_ = NearestByteCell(place);
  const int last = LastPosition(state_);
  if (PositionOf(current_) > last) {
    current_ = HalfOf(current_) == kFirstValueColumn ? ValueCell(last) : CharCell(last);
  }
  DigitCount_ = 0;
  Recolour(PositionOf(left));
  Recolour(PositionOf(current_));
}

void EditMode::TypeKey(std::uint8_t character) {
  if (!On() || current_.column >= kFirstCharColumn) return;
  if (character == kEnterCharacter || (character >= kFirstMover && character <= kLastMover)) return Commit();
  const auto digit = static_cast<char>(code_page::Upper(character));
  if (!funzioni::IsNumberText(std::string_view(&digit, 1), state_.HexMode)) return;
  const bool last = DigitCount_ == (state_.HexMode ? 1 : 2);
  TypeDigit(digit);
  if (last) Commit();
}

// The characters have the numbers of the keys Left, Up, Right and Down. That "%" goes right and "'" left is
// known of old and kept.
bool EditMode::ButtonKey(std::uint8_t character) {
  if (!On()) return false;
  const auto [row, column] = current_;
  const int half = HalfOf(current_);
  switch (character) {
    case '&':
      MoveTo({(row + kRows - 1) % kRows, column});
      return true;
    case '(':
      MoveTo({(row + 1) % kRows, column});
      return true;
    case '%':
      MoveTo({row, half + column % kBytesPerRow});
      return true;
    case '\'':
      MoveTo({row, half + (column - half + kBytesPerRow - 1) % kBytesPerRow});
      return true;
    default:
      return false;
  }
}

bool EditMode::IsChanged(int position) const {
  if (!On() || position > LastPosition(state_)) return false;
  const std::string_view shown = before_->Text(CharCell(position));
  return shown.empty() || static_cast<std::uint8_t>(shown.front()) != ValueAt(position);
}

std::uint8_t EditMode::ValueAt(int position) const {
  return CellByte(state_.tabe.Text(ValueCell(position)), state_.HexMode);
}

// The first digit takes the place of what was in the cell.
void EditMode::TypeDigit(char digit) {
  std::string text;
  if (DigitCount_ > 0) text = state_.tabe.Text(current_);
  state_.tabe.SetText(current_, text + digit);
  ++DigitCount_;
  Recolour(PositionOf(current_));
}

void EditMode::Commit() {
  PageGrid& grid = state_.tabe;
  if (ReadCell(grid.Text(current_), state_.HexMode) > 255) {
    grid.SetText(current_, state_.HexMode ? "FF" : "255");
  }
  const int position = PositionOf(current_);
  const auto character = static_cast<char>(ValueAt(position));
  grid.SetText(CharCell(position), {&character, 1});
  MoveTo(ValueCell((position + 1) % kPageBytes));
}

// A byte that was changed can be told from one that was not wherever the current cell is.
void EditMode::Recolour(int position) {
  const bool changed = IsChanged(position);
  for (const GridCell cell : {ValueCell(position), CharCell(position)}) {
    Colour colour = changed ? kByteChangedColour : before_->Background(cell);
    if (cell == current_) colour = changed ? kCellChangedColour : kCellAsInFileColour;
    state_.tabe.cellcol(cell.row, cell.column, colour);
  }
}

std::uint8_t CellByte(std::string_view text, bool hex) {
  return static_cast<std::uint8_t>(funzioni::MinOf({255, ReadCell(text, hex)}));
}

}  // namespace bwp
