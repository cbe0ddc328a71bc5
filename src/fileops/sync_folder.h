#pragma once

#include <string>

#include "fileops/disk.h"

namespace bwp {

/// Waits until the path's entry in its folder would outlast a power cut. Returns 0 or the system's error
/// number; 0 also for a folder that cannot be waited for, because the user may not read it or its file system
/// does not know how.
int SyncFolderOf(const Disk& disk, const std::string& path);

}  // namespace bwp
