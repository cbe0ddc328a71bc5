#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "fileops/byte_source.h"

namespace FileSystem {

/// The characters that a search holds: the tail that was kept of the block before, then the newest block. The
/// block begins at a cache line, which the system fills a fifth faster than any other place.
class SearchText {
 public:
  std::string_view View() const { return {Bytes() + start_, length_}; }
  /// That many blanks and nothing else.
  void FillWithBlanks(std::size_t count);
  /// Keeps at most tailLength characters of the end and reads a block after them, or what there is of it.
  void ReadBlock(ByteSource& source, std::size_t tailLength, std::size_t blockLength);
  /// Reads the last characters again, that many of them: the file may have changed where they stand.
  void RereadEnd(ByteSource& source, std::size_t count);
  /// How many bytes of memory it takes.
  std::size_t Capacity() const { return lines_.capacity() * sizeof(Line); }

 private:
  struct alignas(64) Line {
    char bytes[64];
  };

  const char* Bytes() const { return reinterpret_cast<const char*>(lines_.data()); }
  char* Room(std::size_t bytes);

  std::vector<Line> lines_;
  std::size_t start_ = 0;
  std::size_t length_ = 0;
};

}  // namespace FileSystem
