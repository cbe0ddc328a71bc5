#pragma once

#include <string>

#include "fileops/disk.h"
#include "viewer/view_state.h"

/// The open file must not be deleted or overwritten while the program shows it.
namespace bwp {

/// Throws error 70 when the path is a name that the open file is reached by. Any other link to it, symbolic
/// or hard, may be deleted: the file stays.
void RefuseToDeleteOpenFile(const ViewState& state, const std::string& path);

/// Deletes what has that name. Throws as RefuseToDeleteOpenFile does, and RunTimeError for a failed call.
void DeleteUnlessOpen(const ViewState& state, const Disk& disk, const std::string& path);

/// Throws error 70 when writing to the path, links followed, would write into the open file.
void RefuseToOverwriteOpenFile(const ViewState& state, const std::string& path);

}  // namespace bwp
