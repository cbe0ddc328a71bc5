#pragma once

#include "viewer/view_state.h"

namespace bwp {

/// Moves the marks. The cells of the old ones on the shown page get back their own colour, or that of the
/// hit. Every change of a mark goes through here, except opening a file, which clears the grid.
void MoveMarks(ViewState& state, std::int64_t markStart, std::int64_t markEnd);

/// Recolours the marks for a refresh: clears their cells on the page shown before, then colours those on the
/// page shown now. If both marks are equal, Mark End's colour wins.
void ColourMarks(ViewState& state);

/// Remembers a hit, and colours those of its bytes cyan that are on the page.
void ShowHit(ViewState& state, std::int64_t start, std::int64_t length);

/// Gives the hit's bytes back their own colour, or that of a mark, and forgets the hit.
void ClearHit(ViewState& state);

}  // namespace bwp
