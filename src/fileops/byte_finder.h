#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fileops/byte_pair_scan.h"

namespace FileSystem {

/// Finds one pattern in any number of texts, in a time that grows with the text alone. It looks for
/// two bytes of the pattern that are rare in the text, many positions at once, and compares the rest where
/// both are found. When too many comparisons fail, it goes on byte by byte with a failure table.
class ByteFinder {
 public:
  static constexpr std::size_t kNone = std::string_view::npos;

  /// The pattern must hold at least one byte. Case is that of the program's character set.
  ByteFinder(std::string_view pattern, bool ignoreCase);

  /// Where the first match at or after `from` begins; kNone when there is none.
  std::size_t Find(std::string_view text, std::size_t from);

 private:
  unsigned char Folded(char byte) const { return fold_[static_cast<unsigned char>(byte)]; }
  std::vector<std::size_t> RarePlaces(std::string_view text) const;
  BytePair PairAt(std::size_t first, std::size_t second) const;
  BytePair RarePair(std::string_view text) const;
  std::size_t LastMismatch(const char* text) const;
  std::size_t FindByTable(std::string_view text, std::size_t from);

  std::array<unsigned char, 256> fold_{};  // each byte as the comparison sees it
  std::array<unsigned char, 256> mask_{};  // the bits in which the two cases of a folded byte differ
  std::string pattern_;                    // folded
  std::array<std::size_t, 256> last_{};    // one past the last place of each byte in the pattern, 0 for none
  std::vector<std::size_t> places_;        // the last place of each different byte
  BytePair pair_{};                        // what is looked for
  unsigned searched_ = 0;                  // how many texts were
  std::vector<std::uint32_t> failure_;     // made when it is needed
};

}  // namespace FileSystem
