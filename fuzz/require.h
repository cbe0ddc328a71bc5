#pragma once

#include <cstdlib>

/// Ends the fuzzer with a finding when the rule does not hold.
inline void Require(bool rule) {
  if (!rule) std::abort();
}
