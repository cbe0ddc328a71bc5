#include "fileops/held_file.h"

#include <filesystem>
#include <optional>

#include "viewer/paths.h"
#include "viewer/run_time_error.h"

namespace bwp {
namespace {

std::optional<FileIdentity> FolderIdentity(const std::string& path) {
  const std::string folder = funzioni::FolderOf(path);
  return IdentityOf(folder.empty() ? "." : folder);
}

}  // namespace

void RefuseOverwriteOfOpenFile(const ViewState& state, const std::string& path) {
  if (!state.file.IsOpen()) return;
  if (IdentityOf(path) == state.file.Identity()) throw MakeRunTimeError(kPermissionDenied, path);
}

void RefuseDeletionOfOpenFile(const ViewState& state, const std::string& path) {
  if (!state.file.IsOpen() || IdentityOf(path, false) != state.file.Identity()) return;
  // The same file so far; hard links share that, so the entry itself decides.
  std::error_code failed;
  const std::string openEntry = std::filesystem::canonical(state.OpenFile, failed).string();
  if (failed || funzioni::NameOf(openEntry) != funzioni::NameOf(path)) return;
  if (FolderIdentity(openEntry) == FolderIdentity(path)) throw MakeRunTimeError(kPermissionDenied, path);
}

}  // namespace bwp
