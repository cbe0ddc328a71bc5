#include "viewer/view_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "viewer/run_time_error.h"

namespace bwp {
namespace {

struct stat StatusOf(int descriptor, const std::string& path) {
  struct stat status = {};
  if (fstat(descriptor, &status) != 0) throw RunTimeErrorFromErrno(errno, path);
  return status;
}

}  // namespace

ViewFile::ViewFile(ViewFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}

ViewFile& ViewFile::operator=(ViewFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(path_, other.path_);
  return *this;
}

ViewFile::~ViewFile() {
  Close();
}

void ViewFile::Open(const std::string& path) {
  Close();
  // Non-blocking, so that a pipe that took the file's name meanwhile does not hang the program.
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) throw RunTimeErrorFromErrno(errno, path);
  descriptor_ = descriptor;
  path_ = path;
  if (!S_ISREG(StatusOf(descriptor, path).st_mode)) {
    Close();
    throw MakeRunTimeError(kPathFileAccess, path);
  }
}

void ViewFile::Close() {
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
}

std::int64_t ViewFile::Length() const {
  return StatusOf(descriptor_, path_).st_size;
}

FileIdentity ViewFile::Identity() const {
  const struct stat status = StatusOf(descriptor_, path_);
  return {status.st_dev, status.st_ino};
}

std::size_t ViewFile::ReadAt(std::int64_t offset, void* bytes, std::size_t count) const {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = pread(descriptor_, static_cast<char*>(bytes) + done, count - done,
                              offset + static_cast<std::int64_t>(done));
    if (got == 0) break;
    if (got > 0) {
      done += static_cast<std::size_t>(got);
    } else if (errno != EINTR) {
      throw RunTimeErrorFromErrno(errno, path_);
    }
  }
  return done;
}

std::optional<FileIdentity> IdentityOf(const std::string& path, bool followLinks) {
  struct stat status = {};
  const int result = followLinks ? stat(path.c_str(), &status) : lstat(path.c_str(), &status);
  if (result != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

}  // namespace bwp
