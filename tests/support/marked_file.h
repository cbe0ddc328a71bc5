#pragma once

#include <string>

#include "fileops/buffer_operations.h"
#include "support/workplace.h"
#include "viewer/open_view_file.h"

namespace bwp::test {

/// A file of ten bytes on a disk, the first five marked, with the temporary file on the same disk or
/// elsewhere.
struct MarkedFile : Workplace {
  inline static const std::string kBytes = "0123456789";
  inline static const std::string kMarked = "01234";
  inline static const std::string kRest = "56789";

  explicit MarkedFile(const Disk& disk = RealDisk(), const std::string& temporaryUnder = kOnDisk)
      : Workplace(kBytes, disk, kOnDisk, temporaryUnder), data(state.OpenFile) {
    Mark(0, 4);
  }
  /// Opens the file by another path.
  void Open(const std::string& path) {
    OpenViewFile(state, path);
    Mark(0, 4);
  }
  void Cut() { CutChunk(state, services); }

  const std::string data;  ///< The file's path.
};

}  // namespace bwp::test
