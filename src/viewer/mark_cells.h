#pragma once

#include "viewer/view_state.h"

namespace bwp {

/// Gives the marks' new places, and the cells of the old ones that are on the shown page their own colour
/// back. Every change of a mark goes through here, except opening a file, which clears the grid.
void MoveMarks(ViewState& state, std::int64_t markStart, std::int64_t markEnd);

/// The refresh's colouring of the boundary cells: the marks' cells as they stood on the page shown before are
/// cleared, then those on the page shown now coloured. Of two equal marks Mark End's colour wins.
void ColourMarks(ViewState& state);

/// Colours the bytes of a hit cyan where they lie on the page, and remembers them.
void ShowHit(ViewState& state, std::int64_t start, std::int64_t length);

/// Gives the hit's bytes their own colour back, a mark's cell the mark's, and forgets the hit.
void ClearHit(ViewState& state);

}  // namespace bwp
