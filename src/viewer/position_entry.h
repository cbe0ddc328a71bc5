#pragma once

#include <string_view>

#include "viewer/display.h"
#include "viewer/view_state.h"

/// What Enter does in the four boxes for the Show Window's start and end. Texts are in the program's
/// character set.
namespace bwp {

/// Start in hexadecimal: the page is shown at once.
void EnterHStart(ViewState& state, Display& display, std::string_view text);

/// Last byte in hexadecimal: the thumb moves, then the page is shown.
void EnterHEnd(ViewState& state, Display& display, std::string_view text);

/// Start in decimal: the thumb moves; the page is shown only by the next refresh, because FieldTyping is
/// still set during this one.
void EnterDstart(ViewState& state, Display& display, std::string_view text);

/// Last byte in decimal: the thumb moves, then the page is shown.
void EnterDend(ViewState& state, Display& display, std::string_view text);

/// Ends typing, by Escape or otherwise: the boxes show the view state again.
void AbandonTyping(ViewState& state, Display& display);

}  // namespace bwp
