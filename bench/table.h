#pragma once

#include <cstdio>
#include <string>

namespace bench {

/// Prints a row of the table that bench/run collects from all benchmarks: by the clock, by processor time,
/// and the target. bench/run takes the lines that begin with a bar.
inline void Row(const std::string& what, const std::string& clock, const std::string& processor,
                const std::string& wanted) {
  std::printf("| %-58s | %9s | %9s | %-15s |\n", what.c_str(), clock.c_str(), processor.c_str(),
              wanted.c_str());
  std::fflush(stdout);
}

inline std::string Number(double value, const std::string& unit = {}) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text + unit;
}

inline std::string AtLeast(double limit) {
  return "at least " + Number(limit);
}

inline std::string AtMost(double limit, const std::string& unit = {}) {
  return "at most " + Number(limit, unit);
}

}  // namespace bench
