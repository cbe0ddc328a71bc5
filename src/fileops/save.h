#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "fileops/services.h"
#include "viewer/view_state.h"

namespace bwp {

/// What `Saver` was shown for. The caption distinguishes a Save As from saving a chunk.
struct SaveTask {
  std::string caption;
  std::int64_t from = 0;  ///< First byte to save, zero-based.
  std::int64_t to = 0;    ///< Last byte to save.
};

/// The tasks of the menu entries "Save As" and "Save Chunk".
SaveTask SaveAsTask(const ViewState& state);
SaveTask SaveChunkTask(const ViewState& state);

/// The click on Save, after `Saver` was hidden: asks before it overwrites, saves into LastFolder under the
/// typed name and, after a Save As that was not cancelled, shows the copy as the open file. Throws as
/// SaveChunk does.
void SaveUnderTypedName(ViewState& state, const Services& services, const SaveTask& task,
                        const std::string& name);

/// The double click on a name of the file list: as the click on Save, but for the question's wording.
void SaveOntoListedFile(ViewState& state, const Services& services, const SaveTask& task,
                        const std::string& name);

/// Saves bytes of the open file under another name, replacing what is there; all of them when no range is
/// given. Cancel leaves a short file. Throws RunTimeError, 70 for a name that the open file needs; what was
/// written is then removed again.
void SaveChunk(const ViewState& state, const Services& services, const std::string& destination,
               std::optional<std::int64_t> from = std::nullopt,
               std::optional<std::int64_t> to = std::nullopt);

}  // namespace bwp
