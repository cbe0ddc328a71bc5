#pragma once

#include <string>

#include "fileops/disk.h"
#include "viewer/view_state.h"

namespace bwp {

/// Writes the Buffer, when its bytes were cut, to a new file of the user's own beside the temporary file, or
/// to the next best folder that takes it. Returns the sentence for the report that says where the bytes are
/// now, or why they are lost; empty when there was nothing to rescue. Never throws: it is called while a
/// run-time error is reported.
std::string RescueBuffer(const ViewState& state, const Disk& disk) noexcept;

}  // namespace bwp
