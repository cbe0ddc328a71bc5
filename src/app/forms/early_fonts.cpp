#include "app/forms/early_fonts.h"

#include <dlfcn.h>
#include <sched.h>

namespace bwp {
namespace {

// The window system answers meanwhile and is waited for; this is not, so it must not take the processor from
// either.
void GiveWay() {
  const sched_param none{};
  sched_setscheduler(0, SCHED_BATCH, &none);
}

}  // namespace

EarlyFonts::EarlyFonts() {
  // The toolkit brings fontconfig along; where it does not, there is nothing to read.
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
