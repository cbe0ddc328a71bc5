#include "fileops/rescue_buffer.h"

#include <cstdlib>
#include <exception>
#include <vector>

#include "fileops/scratch_file.h"
#include "fileops/temporary_file.h"
#include "viewer/paths.h"
#include "viewer/run_time_error.h"

namespace bwp {
namespace {

// The disk of the first may be the very one that failed.
std::vector<std::string> Folders() {
  std::vector<std::string> folders{TemporaryFolder()};
  if (folders.front() != "/var/tmp/") folders.emplace_back("/var/tmp/");
  if (const char* const home = std::getenv("HOME"); home != nullptr && *home != '\0') {
    folders.push_back(funzioni::WithSeparator(home));
  }
  return folders;
}

std::string WriteTo(const std::string& folder, const std::string& bytes, const Disk& disk) {
  ScratchFile file = ScratchFile::Create(disk, folder + "bytewarp-buffer-");
  FileSystem::WriteStream output = file.Writer();
  output.Write(bytes);
  output.Sync();
  output.Close();
  file.Leave();
  return file.Path();
}

BufferRescue Rescue(const std::string& bytes, const Disk& disk) {
  std::string reason;
  for (const std::string& folder : Folders()) {
    try {
      const std::string path = WriteTo(folder, bytes, disk);
      return {path, "The bytes that were cut into the Buffer are kept in " + path};
    } catch (const RunTimeError& error) {
      if (reason.empty()) reason = error.text + ": " + error.path;
    }
  }
  return {{}, "The bytes that were cut into the Buffer could not be kept (" + reason + ")"};
}

}  // namespace

BufferRescue RescueBuffer(const ViewState& state, const Disk& disk) noexcept {
  try {
    if (state.BufferIsCut && !state.BufferData.empty()) return Rescue(state.BufferData, disk);
  } catch (const std::exception&) {
    // No memory for a path is left: the report goes out without a note.
  }
  return {};
}

}  // namespace bwp
