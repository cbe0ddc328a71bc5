#pragma once

#include <cstdint>
#include <memory>

#include "viewer/view_state.h"

namespace bwp {

/// The current cell's colour while its byte is as in the file, and once it was changed.
inline constexpr Colour kCellAsInFileColour = 65280;  // green
inline constexpr Colour kCellChangedColour = 255;     // red
/// Both cells of a byte that was changed and not yet saved, where it is not the current one.
inline constexpr Colour kByteChangedColour = 8438015;  // light orange

/// A cell of the grid that the current cell can be: row 0 to 31, column 1 to 32.
struct EditCell {
  int row = 0;
  int column = kFirstValueColumn;
  friend bool operator==(const EditCell&, const EditCell&) = default;
};

/// Direct edit mode: bytes of the shown page are typed over in the grid, the file is left alone. While it is
/// on, ViewState::EditMode keeps refreshes and the keys that scroll off the page.
class EditMode {
 public:
  explicit EditMode(ViewState& state) : state_(state) {}

  /// Whether there is anything to edit: a file is open and the page shows at least one of its bytes.
  bool MayEnter() const;
  /// Turns the mode on with the nearest cell of a byte as the current one.
  void Enter(int row, int column);
  /// Turns it off. The page is as it was before, texts and colours alike, until the next refresh; that of a
  /// file that was opened meanwhile stays as it is.
  void Leave();
  bool On() const { return before_ != nullptr; }
  /// No file was opened, nor this one again, since the mode was turned on.
  bool PageIsOfOpenFile() const { return openings_ == state_.openings; }

  EditCell Current() const { return current_; }
  /// The grid's current cell was moved to a place; it goes to the nearest cell that shows a byte.
  void MoveTo(int row, int column);

  /// A character key in the grid; 13 is Enter. Digits are typed into a value cell until the byte is full;
  /// Enter and the characters with the codes 33 to 40 end a byte early.
  void TypeKey(std::uint8_t code);

  /// A character key on the button `edit`: the characters with the codes 37 to 40 move the current cell, at
  /// the ends of its half of the row and of the page to the other end.
  void ButtonKey(std::uint8_t code);

  /// Whether the byte at a page position is another one than the file holds.
  bool IsChanged(int position) const;

 private:
  int LastPosition() const;
  std::uint8_t ValueAt(int position) const;
  void TypeDigit(char digit);
  void Commit();
  void Recolour(int position);

  ViewState& state_;
  std::unique_ptr<PageGrid> before_;  // the page as it was shown; there while the mode is on
  EditCell current_;                  // EditRow and EditCol
  int DigitCount_ = 0;
  std::uint64_t openings_ = 0;  // which opening of a file the page is of
};

/// The byte that a value cell's text stands for: at most 255, 0 for what is no number.
std::uint8_t CellByte(std::string_view text, bool hex);

}  // namespace bwp
