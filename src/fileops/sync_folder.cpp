#include "fileops/sync_folder.h"

#include <cerrno>
#include <fcntl.h>

#include "viewer/descriptor.h"
#include "viewer/paths.h"
#include "viewer/uninterrupted.h"

namespace bwp {

int SyncFolderOf(const Disk& disk, const std::string& path) {
  const std::string folder = funzioni::FolderOf(path);
  const Descriptor opened(open(funzioni::FolderOrHere(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!opened.IsOpen() || Uninterrupted([&] { return disk.Sync(opened.Number()); }) == 0) return 0;
  // Some network file systems answer so for every folder.
  return errno == EINVAL || errno == ENOTSUP ? 0 : errno;
}

}  // namespace bwp
