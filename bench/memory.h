#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace bench {

/// A value of /proc/self/status, in KiB.
inline std::int64_t MemoryOf(const std::string& field) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::int64_t value = 0;
    if (word == field + ":" && status >> value) return value;
  }
  return 0;
}

/// The memory that the program holds when this is created, to measure how much more it takes later.
class IdleMemory {
 public:
  IdleMemory() {
    std::ofstream("/proc/self/clear_refs") << 5;  // forgets the peak so far
    held_ = MemoryOf("VmRSS");
  }
  /// The most memory held since then, above that, in MiB.
  double MostAbove() const { return static_cast<double>(MemoryOf("VmHWM") - held_) / 1024; }

 private:
  std::int64_t held_ = 0;
};

}  // namespace bench
