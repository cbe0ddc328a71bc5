#include "viewer/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

namespace bwp {

void Descriptor::Close() {
  if (IsOpen()) close(std::exchange(number_, -1));
}

Descriptor OpenForReading(const std::string& path) {
  // Non-blocking, so that a pipe that has replaced the file does not hang the program.
  Descriptor descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!descriptor.IsOpen()) throw RunTimeErrorFromErrno(errno, path);
  if (!S_ISREG(StatusOf(descriptor.Number(), path).st_mode)) throw MakeRunTimeError(kPathFileAccess, path);
  return descriptor;
}

struct stat StatusOf(int descriptor, const std::string& path) {
  struct stat status = {};
  if (fstat(descriptor, &status) != 0) throw RunTimeErrorFromErrno(errno, path);
  return status;
}

}  // namespace bwp
