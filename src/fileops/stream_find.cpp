#include "fileops/stream_find.h"

#include <algorithm>
#include <cstring>

#include "fileops/byte_finder.h"
#include "fileops/percent.h"
#include "viewer/number_text.h"

namespace FileSystem {
namespace {

// The tail moves to the front and the new block is read behind it: one buffer holds both, and nothing but the
// tail is copied.
void ReadBlock(SearchState& state, ByteSource& source, std::size_t tailLength, std::int64_t step) {
  const std::size_t tail = std::min(tailLength, state.text.size());
  const auto wanted = static_cast<std::size_t>(step);
  std::memmove(state.text.data(), state.text.data() + state.text.size() - tail, tail);
  state.text.resize(tail + wanted);
  state.text.resize(tail + source.Read(state.text.data() + tail, wanted));
  state.consumed += step;
}

}  // namespace

std::int64_t StreamFind(bwp::Progress& progress, SearchState& state, ByteSource& source,
                        std::string_view pattern, std::int64_t count, bool restart, Compare compare,
                        std::int64_t block) {
  if (progress.Aborted()) return -1;
  if (restart) state = {std::string(pattern.size(), ' '), 0, 0};

  ByteFinder finder(pattern, compare == Compare::kIgnoreCase);
  do {
    if (state.found == 0) {
      ReadBlock(state, source, pattern.size(), funzioni::MinOf({block, count - state.consumed}));
      progress.SetBar(Percent(state.consumed, count));
      progress.LetEventsRun();
    }
    const std::size_t place = finder.Find(state.text, static_cast<std::size_t>(state.found));
    state.found = place == ByteFinder::kNone ? 0 : static_cast<std::int64_t>(place) + 1;
  } while (state.found == 0 && !progress.Aborted() && state.consumed < count);

  if (state.consumed - state.found >= count) return -1;
  return state.found + state.consumed - static_cast<std::int64_t>(state.text.size());
}

}  // namespace FileSystem
