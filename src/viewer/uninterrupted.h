#pragma once

#include <cerrno>

namespace bwp {

/// Repeats a system call for as long as a signal interrupts it.
template <typename Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace bwp
