#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace FileSystem {

/// Two bytes to look for at a fixed distance. A byte of the text fits when it equals the value once the bits
/// of the mask are set in both: a mask of 0x20 lets "a" and "A" fit, and now and then something else.
struct BytePair {
  struct Part {
    std::size_t offset;
    unsigned char value;
    unsigned char mask;
  };
  Part first;
  Part second;

  bool FitsAt(const unsigned char* text) const {
    return (text[first.offset] | first.mask) == first.value &&
           (text[second.offset] | second.mask) == second.value;
  }
};

/// The first position from `from` on, before `end`, where the pair fits; `end` when there is none. The text
/// must reach at least the larger offset beyond the last position.
std::size_t ScanForPair(const BytePair& pair, const unsigned char* text, std::size_t from, std::size_t end);

/// Every way that this processor has to do it, the fastest first; ScanForPair is the first of them.
using PairScan = std::size_t (*)(const BytePair&, const unsigned char*, std::size_t, std::size_t);
std::vector<PairScan> PairScans();

}  // namespace FileSystem
