#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "interaction/search.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"
#include "viewer/refresh.h"

namespace bwp::test {

/// A search of a file in a folder of its own, with recorders in place of the windows.
class SearchFixture : public testing::Test {
 protected:
  void Open(const std::string& bytes, const std::string& name = "a") {
    OpenViewFile(state, folder.Write(name, bytes));
    Refresh(state, display);
    said.clear();
  }

  /// Types the term anew.
  void Type(const std::string& text) {
    fields.Atext = text;
    MirrorAtext(fields);
    search.TermTyped(state);
  }

  /// Where the search found the term, -1 when it did not.
  std::int64_t Find(bool noCase = false) {
    said.clear();
    search.FindClicked(state, services, fields, noCase);
    return state.hit.length > 0 ? state.hit.start : -1;
  }

  /// The page positions in the hit's colour.
  std::vector<int> Coloured() const {
    std::vector<int> positions;
    for (int position = 0; position < kPageBytes; ++position) {
      const bool coloured = state.tabe.Background(ValueCell(position)) == kHitColour;
      EXPECT_EQ(state.tabe.Background(CharCell(position)) == kHitColour, coloured);
      if (coloured) positions.push_back(position);
    }
    return positions;
  }

  TempFolder folder;
  Transcript said;
  RecordedDisplay display{said};
  RecordedProgress progress{said};
  RecordedNotices notices{said};
  Disk disk;
  Services services{display, progress, notices, disk};
  ViewState state;
  SearchFields fields;
  Search search;
};

}  // namespace bwp::test
