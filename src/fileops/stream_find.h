#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "fileops/progress.h"

namespace FileSystem {

/// What a search reads its blocks from.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  /// Reads the next count bytes; returns how many there were, fewer only at the end.
  virtual std::size_t Read(void* bytes, std::size_t count) = 0;
};

/// The most new bytes that one step of a search reads.
inline constexpr std::int64_t kSearchBlock = 524'288;

enum class Compare {
  kBinary,
  kIgnoreCase  ///< By the folding of the program's character set.
};

/// The characters that a search holds: the tail that was kept of the block before, then the newest block. The
/// block begins at a cache line, which the system fills a fifth faster than any other place.
class SearchText {
 public:
  std::string_view View() const { return {Bytes() + start_, length_}; }
  /// That many blanks and nothing else.
  void FillWithBlanks(std::size_t count);
  /// Keeps at most tailLength characters of the end and reads a block behind them; what of it there was.
  void ReadBlock(ByteSource& source, std::size_t tailLength, std::size_t blockLength);
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

/// Where a search stands between the calls that continue it.
struct SearchState {
  SearchText text;            ///< What is held of the file.
  std::int64_t found = 0;     ///< 1-based position in text of the last match, 0 when none is pending.
  std::int64_t consumed = 0;  ///< How many bytes of the searched range have been read.
};

/// Finds the next occurrence of the pattern (not empty) in the first count bytes (at least one) that the
/// source gives. With restart the search begins anew, on a source that stands at its start; without, it goes
/// on behind the start of the last match. Returns the 1-based position of the match in the searched range, or
/// -1. After each block it moves the bar and lets events run; when Cancel was pressed, the result must not be
/// used.
///
/// Two oddities belong to it: a new search begins behind as many blanks as the pattern has characters, so
/// that a pattern of blanks can be found at 0 or before; and a match that ends with its block is reported
/// twice.
std::int64_t StreamFind(bwp::Progress& progress, SearchState& state, ByteSource& source,
                        std::string_view pattern, std::int64_t count, bool restart, Compare compare,
                        std::int64_t block = kSearchBlock);

}  // namespace FileSystem
