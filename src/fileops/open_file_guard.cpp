#include "fileops/open_file_guard.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "viewer/paths.h"
#include "viewer/run_time_error.h"
#include "viewer/uninterrupted.h"

namespace bwp {
namespace {

// As many links in a row as the system follows.
constexpr int kMostLinks = 40;

// The entry of a folder that a path names, spelt in one way only; empty when its folder is not there.
std::string EntryOf(const std::string& path) {
  const std::optional<std::string> folder =
      funzioni::ResolvedPath(funzioni::FolderOrHere(funzioni::FolderOf(path)));
  return folder ? funzioni::WithSeparator(*folder) + funzioni::NameOf(path) : std::string();
}

// What a symbolic link says, from the root on; empty when the entry is none.
std::string LinkTarget(const std::string& entry) {
  std::array<char, 4096> text{};
  const ssize_t length = readlink(entry.c_str(), text.data(), text.size());
  if (length <= 0) return {};
  const std::string target(text.data(), static_cast<std::size_t>(length));
  return target.front() == funzioni::kSeparator ? target : funzioni::FolderOf(entry) + target;
}

// The entry that a path names and, where it is a link, all those that it leads over.
std::vector<std::string> EntriesOnTheWay(const std::string& path) {
  std::vector<std::string> entries;
  std::string entry = EntryOf(path);
  for (int links = 0; !entry.empty() && links <= kMostLinks; ++links) {
    entries.push_back(entry);
    const std::string target = LinkTarget(entry);
    if (target.empty()) break;
    entry = EntryOf(target);
  }
  return entries;
}

// A folder that is mounted twice has two spellings, so the folders themselves are compared.
bool IsSameEntry(const std::string& one, const std::string& other) {
  if (one == other) return true;
  const std::optional<FileIdentity> folder = IdentityOf(funzioni::FolderOf(one));
  return folder && folder == IdentityOf(funzioni::FolderOf(other)) &&
         funzioni::NameOf(one) == funzioni::NameOf(other);
}

// Where upper and lower case name the same file, the last name of all can be spelt in many ways.
bool IsOnlyNameOfOpenFile(const ViewState& state, const std::string& path) {
  struct stat status = {};
  return state.file.IsOpen() && lstat(path.c_str(), &status) == 0 && status.st_nlink == 1 &&
         state.file.Identity() == IdentityOf(status);
}

}  // namespace

void RefuseToDeleteOpenFile(const ViewState& state, const std::string& path) {
  if (state.OpenFile.empty()) return;
  const std::string doomed = EntryOf(path);
  const std::vector<std::string> guarded = EntriesOnTheWay(state.OpenFile);
  if (IsOnlyNameOfOpenFile(state, path) ||
      std::any_of(guarded.begin(), guarded.end(),
                  [&](const std::string& entry) { return IsSameEntry(entry, doomed); })) {
    throw MakeRunTimeError(kPermissionDenied, path);
  }
}

void DeleteUnlessOpen(const ViewState& state, const Disk& disk, const std::string& path) {
  RefuseToDeleteOpenFile(state, path);
  if (Uninterrupted([&] { return disk.Delete(path); }) != 0) throw RunTimeErrorFromErrno(errno, path);
}

void RefuseToOverwriteOpenFile(const ViewState& state, const std::string& path) {
  if (state.file.IsOpen() && IdentityOf(path) == state.file.Identity()) {
    throw MakeRunTimeError(kPermissionDenied, path);
  }
}

}  // namespace bwp
