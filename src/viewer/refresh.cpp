#include "viewer/refresh.h"

#include <array>
#include <cstdlib>

#include "viewer/mark_cells.h"
#include "viewer/number_text.h"
#include "viewer/paths.h"

namespace bwp {
namespace {

using funzioni::GroupThousands;
using funzioni::HexOffset;

// A step of this size or more is not doubled. The comparison is signed, so it never limits scrolling up.
constexpr std::int32_t kDoublingBound = 66666512;
// The step is first doubled when more than this many steps have been scrolled.
constexpr std::int64_t kStepsBeforeDoubling = 64;

std::int64_t Magnitude(std::int32_t step) {
  return std::abs(std::int64_t{step});
}

// A number that the menu does not offer means no acceleration.
int DoublingsAllowed(const ViewState& state) {
  constexpr int kMost = 4;
  return state.AccelMode <= kMost ? state.AccelMode : 0;
}

// One pass of the scrolling: the step, the clamp, the thumb, the acceleration.
void Scroll(ViewState& state, Display& display, int& doublings) {
  state.SWStart += state.ScrollStep;
  ClampStart(state);
  state.thumb.top = state.thumb.TopOf(state.SWStart);
  display.MoveThumb();
  state.ScrollCount += Magnitude(state.ScrollStep);
  if (doublings < DoublingsAllowed(state) && state.ScrollStep < kDoublingBound &&
      state.ScrollCount > state.ScrollLimit) {
    ++doublings;
    state.ScrollLimit *= 2;
    state.ScrollStep *= 2;
  }
}

std::string OffsetText(std::int64_t offset, bool hex) {
  return hex ? HexOffset(offset) : std::to_string(offset);
}

// If the file was truncated meanwhile, the bytes it no longer has must not stay visible.
void EmptyBytesFrom(PageGrid& grid, int position) {
  for (; position < kPageBytes; ++position) {
    grid.SetText(ValueCell(position), {});
    grid.SetText(CharCell(position), {});
  }
}

// The hit is coloured only on the page it was found on: another start or other bytes there end it.
bool ShowsOther(const ViewState& state, const std::uint8_t* bytes, std::size_t count) {
  if (state.SWStart != state.SWPrev) return true;
  for (std::size_t position = 0; position < kPageBytes; ++position) {
    const std::string_view shown = state.tabe.Text(CharCell(static_cast<int>(position)));
    if (shown.empty() != (position >= count)) return true;
    if (!shown.empty() && static_cast<std::uint8_t>(shown.front()) != bytes[position]) return true;
  }
  return false;
}

void FillPage(ViewState& state) {
  std::array<std::uint8_t, kPageBytes> bytes{};
  const auto wanted = static_cast<std::size_t>(
      funzioni::MaxOf({0, funzioni::MinOf({kPageBytes, state.FLen - state.SWStart})}));
  const std::size_t got = state.file.ReadAt(state.SWStart, bytes.data(), wanted);

  if (state.hit.length > 0 && ShowsOther(state, bytes.data(), got)) ClearHit(state);

  const std::int64_t lastRow = funzioni::MinOf({kRows - 1, (state.FLen - state.SWStart) / kBytesPerRow});
  for (int row = 0; row <= lastRow; ++row) {
    state.tabe.SetText(row, kOffsetColumn, OffsetText(row * kBytesPerRow + state.SWStart, state.HexMode));
  }
  for (std::size_t position = 0; position < got; ++position) {
    state.tabe.WriteByte(static_cast<int>(position), bytes[position], state.HexMode);
  }
  if (got < wanted) EmptyBytesFrom(state.tabe, static_cast<int>(got));
}

}  // namespace

void Refresh(ViewState& state, Display& display) {
  if (RefreshIsHeldBack(state)) return;
  if (!state.OpenFile.empty()) {
    display.SetRedraw(false);
    state.ScrollCount = 0;
    state.ScrollLimit = kStepsBeforeDoubling * Magnitude(state.ScrollStep);
    int doublings = 0;
    for (bool again = true; again; again = state.AutoScroll) {
      Scroll(state, display, doublings);
      FillPage(state);
      ColourMarks(state);
      if (state.AutoScroll) {
        display.SetRedraw(true);
        state.SWPrev = state.SWStart;
        display.NextFrame();
        display.SetRedraw(false);
      }
    }
  }
  display.ShowTitle(TitleText(state));
  display.ShowRuler(state.HexMode);
  display.ShowWindowTexts(WindowTextsOf(state));
  display.ShowChunkTexts(ChunkTextsOf(state));
  display.SetRedraw(true);
  display.FocusGridIfEnabled();
  state.SWPrev = state.SWStart;
  display.LetEventsRun();
}

bool RefreshIsHeldBack(const ViewState& state) {
  return state.EditMode || (state.FieldTyping && !state.ForceRefresh);
}

void ClampStart(ViewState& state) {
  state.SWStart = funzioni::MaxOf({0, funzioni::MinOf({state.SWStart, state.FLen - kPageBytes})});
}

std::string TitleText(const ViewState& state) {
  const auto bufferLength = static_cast<std::int64_t>(state.BufferData.size());
  return "BYTEwarp | Filename: " + funzioni::NameOf(state.OpenFile) + " (" + funzioni::SizeText(state.FLen) +
         ")  Bytes = " + GroupThousands(state.FLen) + " , " + HexOffset(state.FLen) +
         " --  Buffer: " + GroupThousands(bufferLength) + " , " + HexOffset(bufferLength);
}

WindowTexts WindowTextsOf(const ViewState& state) {
  const std::int64_t end = funzioni::MinOf({state.SWStart + kPageBytes - 1, state.FLen});
  return {GroupThousands(state.SWStart), GroupThousands(end), HexOffset(state.SWStart), HexOffset(end)};
}

ChunkTexts ChunkTextsOf(const ViewState& state) {
  const std::int64_t size = state.MarkEnd - state.MarkStart + 1;
  return {GroupThousands(state.MarkStart), GroupThousands(state.MarkEnd), GroupThousands(size),
          HexOffset(state.MarkStart),      HexOffset(state.MarkEnd),      HexOffset(size)};
}

}  // namespace bwp
