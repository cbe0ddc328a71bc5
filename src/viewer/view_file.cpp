#include "viewer/view_file.h"

#include <sys/stat.h>
#include <unistd.h>

namespace bwp {
void ViewFile::Open(const std::string& path) {
  Close();
  descriptor_ = OpenForReading(path);
  path_ = path;
}

std::int64_t ViewFile::Length() const {
  return StatusOf(descriptor_.Number(), path_).st_size;
}

FileIdentity ViewFile::Identity() const {
  return IdentityOf(StatusOf(descriptor_.Number(), path_));
}

std::size_t ViewFile::ReadAt(std::int64_t offset, void* bytes, std::size_t count) const {
  return ReadUntilFull(path_, bytes, count, [&](char* to, std::size_t missing, std::size_t done) {
    return pread(descriptor_.Number(), to, missing, offset + static_cast<std::int64_t>(done));
  });
}

FileIdentity IdentityOf(const struct stat& status) {
  return {status.st_dev, status.st_ino};
}

std::optional<FileIdentity> IdentityOf(const std::string& path, bool followLinks) {
  struct stat status = {};
  const int result = followLinks ? stat(path.c_str(), &status) : lstat(path.c_str(), &status);
  if (result != 0) return std::nullopt;
  return IdentityOf(status);
}

}  // namespace bwp
