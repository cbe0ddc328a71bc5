#pragma once

#include <cstdint>

#include "viewer/run_time_error.h"

namespace FileSystem {

/// What the bar shows for so many of count bytes: 0 to 100, not rounded. Throws 11 for a count of zero.
inline float Percent(std::int64_t done, std::int64_t count) {
  if (count == 0) throw bwp::MakeRunTimeError(bwp::kDivisionByZero);
  return static_cast<float>(static_cast<double>(done) * 100 / static_cast<double>(count));
}

}  // namespace FileSystem
