#pragma once

#include <thread>

namespace bwp {

/// Reads the system's font configuration on a thread of its own. It takes several milliseconds and is needed
/// before any text is shown; this way it happens while the program connects to the display.
class EarlyFonts {
 public:
  EarlyFonts();
  EarlyFonts(const EarlyFonts&) = delete;
  EarlyFonts& operator=(const EarlyFonts&) = delete;
  ~EarlyFonts();

  /// Call it before the first text is measured: two readers at a time would do the work twice.
  void WaitUntilRead();

 private:
  std::thread reader_;
};

}  // namespace bwp
