#include "fileops/sync_folder.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include "fileops/uninterrupted.h"
#include "viewer/paths.h"

namespace bwp {

int SyncFolderOf(const Disk& disk, const std::string& path) {
  const std::string folder = funzioni::FolderOf(path);
  const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return 0;
  const int result = Uninterrupted([&] { return disk.Sync(descriptor); });
  const int error = errno;
  close(descriptor);
  // Some network file systems answer so for every folder.
  return result == 0 || error == EINVAL || error == ENOTSUP ? 0 : error;
}

}  // namespace bwp
