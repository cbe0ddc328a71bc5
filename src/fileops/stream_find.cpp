#include "fileops/stream_find.h"

#include "fileops/byte_finder.h"
#include "fileops/percent.h"
#include "viewer/number_text.h"

namespace FileSystem {

std::int64_t StreamFind(bwp::Progress& progress, SearchState& state, ByteSource& source,
                        std::string_view pattern, std::int64_t count, bool restart, Compare compare,
                        std::int64_t block) {
  if (progress.Aborted()) return -1;
  if (restart) {
    state.text.FillWithBlanks(pattern.size());
    state.found = 0;
    state.consumed = 0;
  }

  ByteFinder finder(pattern, compare == Compare::kIgnoreCase);
  do {
    if (state.found == 0) {
      const std::int64_t step = funzioni::MinOf({block, count - state.consumed});
      state.text.ReadBlock(source, pattern.size(), static_cast<std::size_t>(step));
      state.consumed += step;
      progress.SetBar(Percent(state.consumed, count));
      progress.LetEventsRun();
    }
    const std::size_t place = finder.Find(state.text.View(), static_cast<std::size_t>(state.found));
    state.found = place == ByteFinder::kNone ? 0 : static_cast<std::int64_t>(place) + 1;
  } while (state.found == 0 && !progress.Aborted() && state.consumed < count);

  if (state.consumed - state.found >= count) return -1;
  return state.found + state.consumed - static_cast<std::int64_t>(state.text.View().size());
}

}  // namespace FileSystem
