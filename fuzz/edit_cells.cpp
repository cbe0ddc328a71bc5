#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "interaction/edit_mode.h"
#include "require.h"
#include "viewer/page_grid.h"
#include "viewer/view_state.h"

namespace {

std::string_view ValueText(const bwp::PageGrid& grid, int position) {
  return grid.Text(bwp::ValueCell(position));
}

void ShowPage(bwp::ViewState& state, int bytes, bool hex) {
  state.OpenFile = "file";
  state.FLen = bytes;
  state.HexMode = hex;
  for (int i = 0; i < bytes; ++i) state.tabe.WriteByte(i, static_cast<std::uint8_t>(i * 7), hex);
}

void Press(bwp::EditMode& edit, std::uint8_t action, std::uint8_t value) {
  if (action % 8 == 0) edit.ButtonKey(value);
  if (action % 8 == 1) edit.MoveTo({static_cast<std::int8_t>(value), action / 8});
  if (action % 8 > 1) edit.TypeKey(value);
}

}  // namespace

// Any keys may be pressed in edit mode: the current cell stays on a byte of the file, no cell holds more than
// a byte, nothing is written past the file's end, and leaving brings the page back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const int bytes = std::min(1 + data[0] * 2 + data[1] / 128, bwp::kPageBytes);
  bwp::ViewState state;
  ShowPage(state, bytes, data[1] % 2 == 0);
  bwp::EditMode edit(state);
  Require(bwp::MayEdit(state));
  edit.Enter({});

  for (std::size_t i = 2; i + 1 < size; i += 2) {
    Press(edit, data[i], data[i + 1]);
    const bwp::GridCell cell = edit.Current();
    Require(edit.On() && cell.row >= 0 && cell.row < bwp::kRows);
    Require(cell.column >= bwp::kFirstValueColumn && cell.column < bwp::kColumns);
    Require(PositionOf(cell) < bytes);
    const std::string_view text = ValueText(state.tabe, PositionOf(cell));
    Require(!text.empty() && text.size() <= (state.HexMode ? 2U : 3U));
  }
  for (int i = bytes; i < bwp::kPageBytes; ++i) Require(ValueText(state.tabe, i).empty());

  edit.Leave();
  bwp::ViewState untouched;
  ShowPage(untouched, bytes, state.HexMode);
  for (int i = 0; i < bytes; ++i) Require(ValueText(state.tabe, i) == ValueText(untouched.tabe, i));
  return 0;
}
