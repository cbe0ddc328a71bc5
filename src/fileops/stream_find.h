#pragma once

#include <cstdint>
#include <string_view>

#include "fileops/byte_source.h"
#include "fileops/progress.h"
#include "fileops/search_text.h"

namespace FileSystem {

/// The most new bytes that one step of a search reads.
inline constexpr std::int64_t kSearchBlock = 524'288;

enum class Compare {
  kBinary,
  kIgnoreCase  ///< By the folding of the program's character set.
};

/// What a search remembers between the calls that continue it.
struct SearchState {
  SearchText text;            ///< What is held of the file.
  std::int64_t found = 0;     ///< 1-based position in text of the last match, 0 when none is pending.
  std::int64_t consumed = 0;  ///< How many bytes of the searched range have been read.
};

/// Finds the next occurrence of the pattern (not empty) in the first count bytes (at least one) that the
/// source gives. With restart the search begins again, on a source at its start; without, it goes
/// on after the start of the last match. Returns the 1-based position of the match in the searched range, or
/// -1. After each block it moves the bar and lets events run; when Cancel was pressed, the result must not be
/// used.
///
/// Two oddities belong to it: a new search begins after as many blanks as the pattern has characters, so
/// that a pattern of blanks can be found at 0 or before; and a match that ends with its block is reported
/// twice.
std::int64_t StreamFind(bwp::Progress& progress, SearchState& state, ByteSource& source,
                        std::string_view pattern, std::int64_t count, bool restart, Compare compare,
                        std::int64_t block = kSearchBlock);

}  // namespace FileSystem
