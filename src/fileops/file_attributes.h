#pragma once

#include <string>

#include "fileops/disk.h"

namespace bwp {

/// Gives the file of one descriptor the owner (where that is allowed), the mode and the extended attributes,
/// access lists among them, of another's. Throws RunTimeError, about the path, when something that belongs to
/// the user cannot be carried over.
void CopyAttributes(const Disk& disk, int from, int to, const std::string& path);

}  // namespace bwp
