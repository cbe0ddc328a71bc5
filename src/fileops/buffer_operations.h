#pragma once

#include <string>

#include "fileops/services.h"
#include "viewer/view_state.h"

/// The Buffer's operations. Each shows its progress, can be cancelled, reports its end, and leaves the marks
/// and the page start alone. A rewritten file takes its name by one rename, see FileReplacement. They throw
/// RunTimeError; the open file is then whole, old or new, and the bytes that were cut are still in the Buffer
/// or in the file. The main form must take no input meanwhile.
namespace bwp {

/// Copies the chunk's bytes into the Buffer.
void CopyChunk(ViewState& state, const Services& services);

/// Takes the chunk's bytes out of the open file, into the Buffer.
void CutChunk(ViewState& state, const Services& services);

/// Puts the Buffer's bytes into the open file: "bms" before Mark Start, "ams" after it, "app" at the end; any
/// other mode puts them at the start. Throws error 11 for an empty Buffer.
void InsertBuffer(ViewState& state, const Services& services, const std::string& mode);

}  // namespace bwp
