#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "fileops/services.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/run_time_error.h"
#include "viewer/view_state.h"

namespace bwp::test {

/// An environment variable that has another value for a while; none when the value is a null pointer.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value);
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;
  ~ScopedVariable();

 private:
  std::string name_;
  std::optional<std::string> old_;
};

/// All that an operation on an open file needs, with everything that a person would see recorded, a folder
/// for the files and one for the temporary file.
struct Workplace {
  /// The file is called "data" and lies under the given folder; the temporary file under the other.
  explicit Workplace(std::string_view bytes, const Disk& changes = RealDisk(), const std::string& under = {},
                     const std::string& temporaryUnder = {});

  /// The real disk, but that nothing waits for its platters: what a test reads back comes from the system's
  /// memory, and on a slow disk thousands of syncs would take longer than all the rest.
  static const Disk& RealDisk();

  /// What was seen, from the last call on; every refresh is one line, "refresh".
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

/// The run-time error that a call ends in; the test fails when there is none.
RunTimeError ErrorOf(const std::function<void()>& call);

}  // namespace bwp::test
