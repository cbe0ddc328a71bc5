#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "fileops/services.h"
#include "support/recorders.h"
#include "support/scoped_variable.h"
#include "support/temp_folder.h"
#include "viewer/view_state.h"

namespace bwp::test {

/// Two file systems, for the files of tests: one in memory, where many rounds do not wear out a disk, and one
/// on a disk, which supports extended attributes.
inline constexpr const char* kMemory = "/dev/shm";
inline constexpr const char* kOnDisk = "/var/tmp";

/// The names in a folder that holds nothing, or only the open file of a Workplace.
inline const std::vector<std::string> kNothing;
inline const std::vector<std::string> kOnlyTheFile{"data"};

/// All that an operation on an open file needs: recorders for what the user would see, a folder for the files
/// and one for the temporary file.
struct Workplace {
  /// The file is called "data" and is under the given folder; the temporary file under the other.
  explicit Workplace(std::string_view bytes, const Disk& changes = RealDisk(), const std::string& under = {},
                     const std::string& temporaryUnder = {});

  /// The real disk without Sync: tests read files back from the system's cache, and on a slow disk thousands
  /// of syncs would take longer than everything else.
  static const Disk& RealDisk();

  /// What was shown since the last call; every refresh is one line, "refresh".
  Transcript Story();
  /// The open file's bytes.
  std::string Bytes() const { return ReadFile(state.OpenFile); }
  void Mark(std::int64_t start, std::int64_t end);

  TempFolder folder;
  TempFolder temporary;
  ScopedVariable variable{"TMPDIR", temporary.Path().c_str()};
  Transcript transcript;
  RecordedProgress progress{transcript};
  RecordedNotices notices{transcript};
  RecordedDisplay display{transcript};
  Services services;
  ViewState state;
};

}  // namespace bwp::test
