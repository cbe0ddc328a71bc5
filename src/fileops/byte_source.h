#pragma once

#include <cstddef>

namespace FileSystem {

/// What a search reads its blocks from.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  /// Reads the next count bytes; returns how many there were, fewer only at the end.
  virtual std::size_t Read(void* bytes, std::size_t count) = 0;
};

}  // namespace FileSystem
