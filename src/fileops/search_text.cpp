#include "fileops/search_text.h"

#include <algorithm>
#include <cstring>

namespace FileSystem {

void SearchText::FillWithBlanks(std::size_t count) {
  std::memset(Room(count), ' ', count);
  start_ = 0;
  length_ = count;
}

// The tail moves to the front and the new block is read after it: nothing else is ever copied.
void SearchText::ReadBlock(ByteSource& source, std::size_t tailLength, std::size_t blockLength) {
  const std::size_t tail = std::min(tailLength, length_);
  const std::size_t place = (tail + sizeof(Line) - 1) / sizeof(Line) * sizeof(Line);
  char* const bytes = Room(place + blockLength);
  std::memmove(bytes + place - tail, bytes + start_ + length_ - tail, tail);
  start_ = place - tail;
  length_ = tail + source.Read(bytes + place, blockLength);
}

void SearchText::RereadEnd(ByteSource& source, std::size_t count) {
  source.Read(reinterpret_cast<char*>(lines_.data()) + start_ + length_ - count, count);
}

char* SearchText::Room(std::size_t bytes) {
  const std::size_t lines = bytes / sizeof(Line) + 1;
  if (lines > lines_.size()) {
    lines_.reserve(lines);
    lines_.resize(lines);
  }
  return reinterpret_cast<char*>(lines_.data());
}

}  // namespace FileSystem
