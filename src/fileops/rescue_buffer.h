#pragma once

#include <string>

#include "fileops/disk.h"
#include "viewer/view_state.h"

namespace bwp {

/// What became of the Buffer when the program had to end.
struct BufferRescue {
  std::string path;  ///< Where the bytes are now; empty when there was nothing to rescue or no way to.
  std::string note;  ///< The sentence about it for the report; empty when there was nothing to rescue.
};

/// Writes the Buffer, when its bytes were cut, to a new file of the user's own beside the temporary file, or
/// to the next best folder that takes it. Never throws: it is called while a run-time error is reported.
BufferRescue RescueBuffer(const ViewState& state, const Disk& disk) noexcept;

}  // namespace bwp
