#include "interaction/chunk_selection.h"

#include "viewer/mark_cells.h"
#include "viewer/number_text.h"
#include "viewer/position_entry.h"

namespace bwp {
namespace {

using funzioni::MaxOf;
using funzioni::MinOf;

bool IsHex(ChunkField field) {
  return field == ChunkField::kMHStart || field == ChunkField::kMHEnd || field == ChunkField::kMHSize;
}

void TakeStart(ViewState& state, std::int64_t typed) {
  const std::int64_t start = MaxOf({0, MinOf({typed, state.FLen - 2})});
  MoveMarks(state, start, MaxOf({state.MarkEnd, start + 1}));
}

void TakeEnd(ViewState& state, std::int64_t typed) {
  const std::int64_t end = MaxOf({1, MinOf({typed, state.FLen - 1})});
  MoveMarks(state, MinOf({state.MarkStart, end - 1}), end);
}

void TakeSize(ViewState& state, std::int64_t typed) {
  const std::int64_t end = MinOf({state.MarkStart + typed - 1, state.FLen - 1});
  MoveMarks(state, state.MarkStart, MaxOf({state.MarkStart + 1, end}));
}

}  // namespace

bool EnterChunkField(ViewState& state, Display& display, ChunkField field, std::string_view text) {
  const bool hex = IsHex(field);
  if (!funzioni::IsNumberText(text, hex)) return false;
  const std::int64_t typed = hex ? funzioni::ParseHex(text) : funzioni::ParseDecimal(text);
  switch (field) {
    case ChunkField::kMHStart:
    case ChunkField::kMdStart:
      TakeStart(state, typed);
      break;
    case ChunkField::kMHEnd:
    case ChunkField::kMdEnd:
      TakeEnd(state, typed);
      break;
    case ChunkField::kMHSize:
    case ChunkField::kMdSize:
      TakeSize(state, typed);
      break;
  }
  AbandonTyping(state, display);
  return true;
}

void GotoMarkStart(ViewState& state, Display& display) {
  state.SWStart = state.MarkStart;
  AbandonTyping(state, display);
}

void GotoMarkEnd(ViewState& state, Display& display) {
  state.SWStart = StartOfPageAtMarkEnd(state);
  AbandonTyping(state, display);
}

std::int64_t StartOfPageAtMarkEnd(const ViewState& state) {
  return MaxOf({0, state.MarkEnd - (kPageBytes - 1)});
}

std::int64_t ByteUnder(const ViewState& state, GridCell cell) {
  return state.SWStart + PositionOf(cell);
}

void MarkStartAt(ViewState& state, Display& display, GridCell cell) {
  // A file of one byte leaves no room in front of Mark End; the first byte is the first all the same.
  const std::int64_t start = MinOf({ByteUnder(state, cell), state.FLen - 2, state.MarkEnd - 1});
  MoveMarks(state, MaxOf({0, start}), state.MarkEnd);
  AbandonTyping(state, display);
}

void MarkEndAt(ViewState& state, Display& display, GridCell cell) {
  MoveMarks(state, state.MarkStart, MaxOf({state.MarkStart + 1, 1, ByteUnder(state, cell)}));
  AbandonTyping(state, display);
}

void MarkWholeFile(ViewState& state, Display& display) {
  MoveMarks(state, 0, MaxOf({0, state.FLen - 1}));
  AbandonTyping(state, display);
}

}  // namespace bwp
