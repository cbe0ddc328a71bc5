#pragma once

#include <gtest/gtest.h>
#include <string>

#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"
#include "viewer/refresh.h"

namespace bwp::test {

/// A view state on a file of its own, shown on a recorded display.
class ViewerTest : public testing::Test {
 protected:
  ViewerTest() { state.thumb.trackHeight = kTrack; }

  static constexpr double kTrack = 5000;  // form units

  /// Opens a file with these bytes and shows its first page.
  void Open(const std::string& bytes) {
    OpenViewFile(state, folder.Write("file", bytes));
    Refresh(state, display);
    transcript.clear();
  }
  void OpenPattern(std::size_t count) { Open(PatternBytes(count)); }

  void Show() { Refresh(state, display); }
  void ShowAt(std::int64_t start) {
    state.SWStart = start;
    Show();
  }

  std::string Text(int row, int column) const { return std::string(state.tabe.Text(row, column)); }
  /// The colours of the value and the character cell of a byte on the page.
  Colour ValueColour(int position) const {
    return state.tabe.Background(position / kBytesPerRow, position % kBytesPerRow + kFirstValueColumn);
  }
  Colour CharColour(int position) const {
    return state.tabe.Background(position / kBytesPerRow, position % kBytesPerRow + kFirstCharColumn);
  }

  TempFolder folder;
  Transcript transcript;
  RecordedDisplay display{transcript};
  ViewState state;
};

}  // namespace bwp::test
