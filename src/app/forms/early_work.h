#pragma once

#include <thread>

namespace bwp {

/// What a start needs no display for, done on a thread of its own while the program connects to the display:
/// it reads the system's font configuration, which takes several milliseconds and is needed before any text
/// is shown, and gives back the linker's pages. Where no thread can be made, the toolkit reads the fonts when
/// it needs them.
class EarlyWork {
 public:
  EarlyWork();
  EarlyWork(const EarlyWork&) = delete;
  EarlyWork& operator=(const EarlyWork&) = delete;
  ~EarlyWork();

  /// Call it before the first text is measured: two readers at a time would do the work twice.
  void WaitUntilDone();

 private:
  std::thread worker_;
};

}  // namespace bwp
