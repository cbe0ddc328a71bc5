#include "fileops/rescue_buffer.h"

#include <cstdlib>
#include <exception>
#include <vector>

#include "fileops/scratch_file.h"
#include "fileops/sync_folder.h"
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

constexpr const char* kLost = "The bytes that were cut into the Buffer could not be kept";

std::string WriteTo(const std::string& folder, const std::string& bytes, const Disk& disk) {
  ScratchFile file = ScratchFile::Create(disk, folder + "bytewarp-buffer-");
  FileSystem::WriteStream output = file.Writer();
  output.Write(bytes);
  output.Sync();
  output.Close();
  file.Leave();
  // The bytes are there; that a power cut may still undo it is no reason to look for another folder.
  SyncFolderOf(disk, file.Path());
  return file.Path();
}

// When no folder takes the bytes, this tells why the first one did not.
std::string Rescue(const std::string& bytes, const Disk& disk) {
  std::string reason;
  for (const std::string& folder : Folders()) {
    std::string failure;
    try {
      return "The bytes that were cut into the Buffer are kept in " + WriteTo(folder, bytes, disk);
    } catch (const RunTimeError& error) {
      failure = error.text + ": " + error.path;
    } catch (const std::exception& error) {
      failure = error.what();
    }
    if (reason.empty()) reason = failure;
  }
  return kLost + (" (" + reason + ")");
}

}  // namespace

std::string RescueBuffer(const ViewState& state, const Disk& disk) noexcept {
  if (!state.BufferIsCut || state.BufferData.empty()) return {};
  try {
    try {
      return Rescue(state.BufferData, disk);
    } catch (const std::exception&) {
      return kLost;
    }
  } catch (const std::exception&) {
    // Not even memory for the sentence is left: the report goes out without it.
    return {};
  }
}

}  // namespace bwp
