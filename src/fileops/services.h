#pragma once

#include "fileops/disk.h"
#include "fileops/progress.h"
#include "viewer/display.h"
#include "viewer/notices.h"

namespace bwp {

/// What an operation on files needs besides the view state: the main form hands its own, a test its
/// recorders.
struct Services {
  Display& display;
  Progress& progress;
  Notices& notices;
  const Disk& disk;
};

}  // namespace bwp
