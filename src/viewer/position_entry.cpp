#include "viewer/position_entry.h"

#include "viewer/number_text.h"
#include "viewer/refresh.h"

namespace bwp {
namespace {

void StartAt(ViewState& state, std::int64_t start) {
  state.SWStart = start;
  ClampStart(state);
}

void StartAtWithThumb(ViewState& state, Display& display, std::int64_t start) {
  StartAt(state, start);
  state.thumb.top = state.thumb.TopOf(state.SWStart);
  display.MoveThumb();
}

}  // namespace

void EnterHStart(ViewState& state, Display& display, std::string_view text) {
  StartAt(state, funzioni::ParseHex(text));
  display.LetEventsRun();
  AbandonTyping(state, display);
}

void EnterHEnd(ViewState& state, Display& display, std::string_view text) {
  StartAtWithThumb(state, display, funzioni::ParseHex(text) - (kPageBytes - 1));
  AbandonTyping(state, display);
}

void EnterDstart(ViewState& state, Display& display, std::string_view text) {
  StartAtWithThumb(state, display, funzioni::ParseDecimal(text));
  Refresh(state, display);
  state.FieldTyping = false;
}

void EnterDend(ViewState& state, Display& display, std::string_view text) {
  StartAtWithThumb(state, display, funzioni::ParseDecimal(text) - (kPageBytes - 1));
  AbandonTyping(state, display);
}

void AbandonTyping(ViewState& state, Display& display) {
  state.FieldTyping = false;
  Refresh(state, display);
}

}  // namespace bwp
