#pragma once

#include <string_view>

#include "viewer/display.h"
#include "viewer/view_state.h"

/// Setting the chunk's marks and going to them. A chunk holds at least two bytes: a mark that is typed across
/// the other takes it along.
namespace bwp {

/// The six boxes that show the chunk and take it as typed.
enum class ChunkField { kMHStart, kMHEnd, kMHSize, kMdStart, kMdEnd, kMdSize };

/// Enter in a box: takes the mark or the size that its text (in the program's character set) names, brought
/// into the file where it lies outside. False, and nothing is changed, when the text is no number of the
/// box's base: typing goes on.
bool EnterChunkField(ViewState& state, Display& display, ChunkField field, std::string_view text);

/// Buttons `Gstart` and `Gend`: the page begins at Mark Start, or ends at Mark End.
void GotoMarkStart(ViewState& state, Display& display);
void GotoMarkEnd(ViewState& state, Display& display);

/// Where the page begins that ends at Mark End.
std::int64_t StartOfPageAtMarkEnd(const ViewState& state);

/// The file offset of the byte whose number or character the cell shows.
std::int64_t ByteUnder(const ViewState& state, GridCell cell);

/// Menu entries `popmstart`, `popmend` and `popmdefault`. `popmend` goes past the end of the file where the
/// cell does.
void MarkStartAt(ViewState& state, Display& display, GridCell cell);
void MarkEndAt(ViewState& state, Display& display, GridCell cell);
void MarkWholeFile(ViewState& state, Display& display);

}  // namespace bwp
