#include "viewer/paths.h"

#include <cstdlib>
#include <memory>
#include <sys/stat.h>

#include "viewer/number_text.h"

namespace funzioni {

bool FileExists(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool FolderExists(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind(kSeparator) + 1);
}

std::string NameOf(const std::string& path) {
  return path.substr(path.rfind(kSeparator) + 1);
}

std::string WithSeparator(std::string folder) {
  if (folder.empty() || folder.back() != kSeparator) folder += kSeparator;
  return folder;
}

std::string FolderOrHere(const std::string& folder) {
  return folder.empty() ? "." : folder;
}

std::optional<std::string> ResolvedPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr), &std::free);
  if (!resolved) return std::nullopt;
  return std::string(resolved.get());
}

std::string PathIn(const std::string& folder, const std::string& name) {
  return name.starts_with(kSeparator) ? name : folder + name;
}

std::string CommandLinePath(const std::string& text) {
  return StripQuotes(text);
}

}  // namespace funzioni
