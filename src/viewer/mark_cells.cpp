#include "viewer/mark_cells.h"

#include <algorithm>

namespace bwp {
namespace {

bool OnPage(std::int64_t offset, std::int64_t pageStart) {
  return offset >= pageStart && offset <= pageStart + kPageBytes - 1;
}

// A byte of the hit gets the hit's colour back when a mark leaves it.
void ClearCell(ViewState& state, std::int64_t offset) {
  if (!OnPage(offset, state.SWPrev)) return;
  const auto position = static_cast<int>(offset - state.SWPrev);
  if (offset >= state.hit.start && offset < state.hit.start + state.hit.length) {
    state.tabe.ColourByte(position, kHitColour, kHitColour);
  } else {
    state.tabe.ResetByteColour(position);
  }
}

void ColourCell(ViewState& state, std::int64_t offset, Colour colour) {
  if (OnPage(offset, state.SWStart)) {
    state.tabe.ColourByte(static_cast<int>(offset - state.SWStart), colour, colour);
  }
}

// The part of the hit on the page that starts at pageStart, as page positions [first, last).
struct PageRange {
  int first;
  int last;
};
PageRange HitOnPage(const SearchHit& hit, std::int64_t pageStart) {
  const std::int64_t first = std::clamp<std::int64_t>(hit.start - pageStart, 0, kPageBytes);
  const std::int64_t last = std::clamp<std::int64_t>(hit.start + hit.length - pageStart, 0, kPageBytes);
  return {static_cast<int>(first), static_cast<int>(last)};
}

}  // namespace

void MoveMarks(ViewState& state, std::int64_t markStart, std::int64_t markEnd) {
  if (markStart != state.MarkStart) ClearCell(state, state.MarkStart);
  if (markEnd != state.MarkEnd) ClearCell(state, state.MarkEnd);
  state.MarkStart = markStart;
  state.MarkEnd = markEnd;
}

void ColourMarks(ViewState& state) {
  ClearCell(state, state.MarkStart);
  ClearCell(state, state.MarkEnd);
  ColourCell(state, state.MarkStart, kMarkStartColour);
  ColourCell(state, state.MarkEnd, kMarkEndColour);
}

void ShowHit(ViewState& state, std::int64_t start, std::int64_t length) {
  state.hit = {start, length};
  const PageRange range = HitOnPage(state.hit, state.SWStart);
  for (int position = range.first; position < range.last; ++position) {
    state.tabe.ColourByte(position, kHitColour, kHitColour);
  }
}

void ClearHit(ViewState& state) {
  const PageRange range = HitOnPage(state.hit, state.SWPrev);
  for (int position = range.first; position < range.last; ++position) {
    const std::int64_t offset = state.SWPrev + position;
    if (offset == state.MarkEnd) {
      state.tabe.ColourByte(position, kMarkEndColour, kMarkEndColour);
    } else if (offset == state.MarkStart) {
      state.tabe.ColourByte(position, kMarkStartColour, kMarkStartColour);
    } else {
      state.tabe.ResetByteColour(position);
    }
  }
  state.hit = {};
}

}  // namespace bwp
