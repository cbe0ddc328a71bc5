#include "app/forms/early_fonts.h"

#include <dlfcn.h>
#include <sched.h>

namespace bwp {
namespace {

// The program waits for the window system meanwhile, not for this thread, so it must not take the processor
// from either.
void GiveWay() {
  const sched_param none{};
  sched_setscheduler(0, SCHED_BATCH, &none);
}

}  // namespace

EarlyFonts::EarlyFonts() {
  // The toolkit loads fontconfig; if it does not, there is nothing to read.
  using Initialize = int (*)();
  const auto initialize = reinterpret_cast<Initialize>(dlsym(RTLD_DEFAULT, "FcInit"));
  if (initialize == nullptr) return;
  reader_ = std::thread([initialize] {
    GiveWay();
    initialize();
  });
}

EarlyFonts::~EarlyFonts() {
  WaitUntilRead();
}

void EarlyFonts::WaitUntilRead() {
  if (reader_.joinable()) reader_.join();
}

}  // namespace bwp
