#pragma once

#include <thread>

namespace bwp {

/// Reads the system's font configuration on a thread of its own. It takes several milliseconds, and
/// everything that shows a letter waits for it; a start has them to spare while it connects to the display.
class EarlyFonts {
 public:
  EarlyFonts();
  EarlyFonts(const EarlyFonts&) = delete;
  EarlyFonts& operator=(const EarlyFonts&) = delete;
  ~EarlyFonts();

  /// To be called before the first letter is measured: two readers at a time would do the work twice.
  void WaitUntilRead();

 private:
  std::thread reader_;
};

}  // namespace bwp
