#include "fileops/open_file_guard.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <unistd.h>
#include <vector>

#include "viewer/paths.h"
#include "viewer/run_time_error.h"

namespace bwp {
namespace {

// As many links in a row as the system follows.
constexpr int kMostLinks = 40;

// The entry of a folder that a path names, spelt in one way only; empty when its folder is not there.
std::string EntryOf(const std::string& path) {
  const std::string folder = funzioni::FolderOf(path);
  const std::unique_ptr<char, decltype(&std::free)> resolved(
      realpath(folder.empty() ? "." : folder.c_str(), nullptr), &std::free);
  if (!resolved) return {};
  return funzioni::WithSeparator(resolved.get()) + funzioni::NameOf(path);
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

}  // namespace

void RefuseToDeleteOpenFile(const ViewState& state, const std::string& path) {
  if (state.OpenFile.empty()) return;
  const std::string doomed = EntryOf(path);
  for (const std::string& entry : EntriesOnTheWay(state.OpenFile)) {
    if (entry == doomed) throw MakeRunTimeError(kPermissionDenied, path);
  }
}

void RefuseToOverwriteOpenFile(const ViewState& state, const std::string& path) {
  if (state.file.IsOpen() && IdentityOf(path) == state.file.Identity()) {
    throw MakeRunTimeError(kPermissionDenied, path);
  }
}

}  // namespace bwp
