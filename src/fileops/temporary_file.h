#pragma once

#include <string>

#include "fileops/disk.h"
#include "fileops/scratch_file.h"

namespace bwp {

/// The folder of the temporary file, ending in a separator: TMPDIR, or /var/tmp where that is unset or empty.
std::string TemporaryFolder();

/// Where a rewritten file's content is gathered: one fixed file for each user.
std::string TemporaryPath();

/// Creates the temporary file, or empties the one that an earlier run left, and locks it against other
/// running copies of the program. Throws RunTimeError: 76 when its folder is missing, 70 when what has its
/// name is a link, no regular file, not the user's own or in use, else for the call that failed.
ScratchFile OpenTemporaryFile(const Disk& disk);

}  // namespace bwp
