#include "support/workplace.h"

#include <utility>

#include "viewer/open_view_file.h"

namespace bwp::test {
namespace {

class UnsyncedDisk : public Disk {
 public:
  int Sync(int /*descriptor*/) const override { return 0; }
};

}  // namespace

Workplace::Workplace(std::string_view bytes, const Disk& changes, const std::string& under,
                     const std::string& temporaryUnder)
    : folder(under), temporary(temporaryUnder), services{display, progress, notices, changes} {
  OpenViewFile(state, folder.Write("data", bytes));
}

const Disk& Workplace::RealDisk() {
  static const UnsyncedDisk disk;
  return disk;
}

Transcript Workplace::Story() {
  Transcript story;
  bool inRefresh = false;
  for (std::string& line : std::exchange(transcript, {})) {
    if (line == "redraw off") {
      inRefresh = true;
      story.emplace_back("refresh");
    } else if (line == "display events") {
      inRefresh = false;
    } else if (!inRefresh) {
      story.push_back(std::move(line));
    }
  }
  return story;
}

void Workplace::Mark(std::int64_t start, std::int64_t end) {
  state.MarkStart = start;
  state.MarkEnd = end;
}

}  // namespace bwp::test
