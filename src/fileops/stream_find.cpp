#include "fileops/stream_find.h"

#include <algorithm>
#include <cstring>

#include "fileops/byte_finder.h"
#include "fileops/percent.h"
#include "viewer/number_text.h"

namespace FileSystem {
void SearchText::FillWithBlanks(std::size_t count) {
  std::memset(Room(count), ' ', count);
  start_ = 0;
  length_ = count;
}

// The tail moves to the front and the new block is read behind it: nothing else is ever copied.
void SearchText::ReadBlock(ByteSource& source, std::size_t tailLength, std::size_t blockLength) {
  const std::size_t tail = std::min(tailLength, length_);
  const std::size_t place = (tail + sizeof(Line) - 1) / sizeof(Line) * sizeof(Line);
  char* const bytes = Room(place + blockLength);
  std::memmove(bytes + place - tail, bytes + start_ + length_ - tail, tail);
  start_ = place - tail;
  length_ = tail + source.Read(bytes + place, blockLength);
}

char* SearchText::Room(std::size_t bytes) {
  const std::size_t lines = bytes / sizeof(Line) + 1;
  if (lines > lines_.size()) {
    lines_.reserve(lines);
    lines_.resize(lines);
  }
  return reinterpret_cast<char*>(lines_.data());
}

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
