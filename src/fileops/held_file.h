#pragma once

#include <string>

#include "viewer/view_state.h"

/// The file that the page shows is held open: an operation that would take it away from under the page is
/// refused before it touches anything.
namespace bwp {

/// Before a file is created or emptied. Throws error 70 when the path leads to the open file, by whatever
/// name or link.
void RefuseOverwriteOfOpenFile(const ViewState& state, const std::string& path);

/// Before a folder entry is deleted. Throws error 70 when it is the open file's own entry; a link to the open
/// file or another hard link of it may go.
void RefuseDeletionOfOpenFile(const ViewState& state, const std::string& path);

}  // namespace bwp
