#pragma once

#include <cstdint>
#include <memory>

#include "viewer/view_state.h"

namespace bwp {

/// The current cell's colour while its byte is as in the file, and once it was changed.
inline constexpr Colour kCellAsInFileColour = 0x0000FF00;  // green
inline constexpr Colour kCellChangedColour = 0x000000FF;   // red
/// Both cells of a byte that was changed and not yet saved, where it is not the current one.
inline constexpr Colour kByteChangedColour = 0x0080C0FF;  // light orange

/// Enter as a character.
inline constexpr std::uint8_t kEnterCharacter = 13;

/// Whether there is anything to edit: a file is open and the page shows at least one of its bytes.
bool MayEdit(const ViewState& state);

/// Direct edit mode: bytes of the shown page are typed over in the grid, the file is left alone. While it is
/// on, ViewState::EditMode keeps refreshes and the keys that scroll off the page.
class EditMode {
 public:
  explicit EditMode(ViewState& state) : state_(state) {}

  /// Turns the mode on, if MayEdit, with the nearest cell of a byte as the current one.
  void Enter(GridCell place);
  /// Turns it off. The page is as it was before, texts and colours alike, until the next refresh; that of a
  /// file that was opened meanwhile stays as it is.
  void Leave();
  bool On() const { return before_ != nullptr; }
  /// No file was opened, nor this one again, since the mode was turned on.
  bool PageIsOfOpenFile() const { return openings_ == state_.openings; }

  GridCell Current() const { return current_; }
  /// The grid's current cell was moved to a place; it goes to the nearest cell that shows a byte.
  void MoveTo(GridCell place);

  /// A character key in the grid, or kEnterCharacter. Digits are typed into a value cell until the byte is
  /// full; Enter and the characters from "!" to "(" end a byte early.
  void TypeKey(std::uint8_t character);

  /// A character key on the button `edit`: "&", "(", "%" and "'" move the current cell, at the ends of its
  /// half of the row and of the page to the other end. False for a key that it does not take.
  bool ButtonKey(std::uint8_t character);

  /// Whether the byte at a page position is another one than the file holds.
  bool IsChanged(int position) const;

 private:
  std::uint8_t ValueAt(int position) const;
  void TypeDigit(char digit);
  void Commit();
  void Recolour(int position);

  ViewState& state_;
  std::unique_ptr<PageGrid> before_;  // the page as it was shown; there while the mode is on
  GridCell current_;
  int DigitCount_ = 0;
  std::uint64_t openings_ = 0;  // which opening of a file the page is of
};

/// The byte that a value cell's text means: at most 255, 0 for what is no number.
std::uint8_t CellByte(std::string_view text, bool hex);

}  // namespace bwp
