#include "viewer/folder_listing.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <string_view>
#include <sys/stat.h>

#include "viewer/paths.h"

namespace bwp {
namespace {

enum class Kind { kFolder, kFile, kOther };

// Most file systems give the type with the name; only links and unknown types need a call of fstatat.
Kind KindOf(int folder, const dirent& entry) {
  if (entry.d_type == DT_DIR) return Kind::kFolder;
  if (entry.d_type == DT_REG) return Kind::kFile;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return Kind::kOther;
  struct stat status = {};
  if (fstatat(folder, entry.d_name, &status, 0) != 0) return Kind::kOther;
  if (S_ISDIR(status.st_mode)) return Kind::kFolder;
  return S_ISREG(status.st_mode) ? Kind::kFile : Kind::kOther;
}

using Stream = std::unique_ptr<DIR, int (*)(DIR*)>;

Stream OpenFolder(const std::string& folder) {
  return {opendir(folder.c_str()), &closedir};
}

unsigned char Folded(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte - 'A' + 'a') : byte;
}

}  // namespace

FolderListing ListFolder(const std::string& folder) {
  FolderListing listing;
  const Stream stream = OpenFolder(folder);
  if (!stream) {
    listing.error = errno;
    return listing;
  }
  errno = 0;
  while (const dirent* entry = readdir(stream.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    const Kind kind = KindOf(dirfd(stream.get()), *entry);
    if (kind == Kind::kFolder) listing.folders.emplace_back(name);
    if (kind == Kind::kFile) listing.files.emplace_back(name);
    errno = 0;
  }
  listing.error = errno;
  std::sort(listing.folders.begin(), listing.folders.end(), NameLess);
  std::sort(listing.files.begin(), listing.files.end(), NameLess);
  return listing;
}

bool NameLess(const std::string& left, const std::string& right) {
  const std::size_t common = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < common; ++i) {
    const unsigned char a = Folded(left[i]);
    const unsigned char b = Folded(right[i]);
    if (a != b) return a < b;
  }
  return left.size() != right.size() ? left.size() < right.size() : left < right;
}

std::string FullFolder(const std::string& folder) {
  std::error_code failed;
  const std::filesystem::path full = std::filesystem::absolute(funzioni::FolderOrHere(folder), failed);
  return funzioni::WithSeparator(failed ? "/" : full.lexically_normal().string());
}

std::vector<std::string> ChainOf(const std::string& fullFolder) {
  std::vector<std::string> chain;
  for (std::size_t end = fullFolder.find(funzioni::kSeparator); end != std::string::npos;
       end = fullFolder.find(funzioni::kSeparator, end + 1)) {
    chain.push_back(fullFolder.substr(0, end + 1));
  }
  return chain;
}

std::string NearestReadable(const std::string& folder) {
  std::vector<std::string> chain = ChainOf(FullFolder(folder));
  while (chain.size() > 1 && !OpenFolder(chain.back())) chain.pop_back();
  return chain.back();
}

}  // namespace bwp
