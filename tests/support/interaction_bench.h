#pragma once

#include <string>

#include "interaction/scroll_bar.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"
#include "viewer/view_state.h"

namespace bwp::test {

/// Replaces `TimVSCR`: records whether the timer is enabled and how often it was started.
struct RecordedTimer : HoldTimer {
  void Enable() override {
    if (!enabled) ++starts;
    enabled = true;
  }
  void Disable() override { enabled = false; }

  bool enabled = false;
  int starts = 0;
};

/// A file of the given length (PatternBytes) open in a view state with a track of 6000 units, and recorders
/// in place of the windows.
struct OpenedFile {
  explicit OpenedFile(std::size_t length) : bytes(PatternBytes(length)), path(folder.Write("file", bytes)) {
    state.thumb.trackHeight = 6000;
    OpenViewFile(state, path);
  }

  TempFolder folder;
  std::string bytes;
  std::string path;
  ViewState state;
  Transcript transcript;
  RecordedDisplay display{transcript};
  RecordedTimer timer;
};

}  // namespace bwp::test
