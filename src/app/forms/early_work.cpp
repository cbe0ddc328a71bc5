#include "app/forms/early_work.h"

#include <clocale>
#include <dlfcn.h>
#include <sched.h>
#include <system_error>

#include "app/linker_pages.h"

namespace bwp {
namespace {

// The program waits for the window system meanwhile, not for this thread, so it must not take the processor
// from either.
void GiveWay() {
  const sched_param none{};
  sched_setscheduler(0, SCHED_BATCH, &none);
}

void ReadFonts() {
  // The toolkit loads fontconfig; if it does not, there is nothing to read.
  using Initialize = int (*)();
  const auto initialize = reinterpret_cast<Initialize>(dlsym(RTLD_DEFAULT, "FcInit"));
  if (initialize != nullptr) initialize();
}

}  // namespace

EarlyWork::EarlyWork() {
  // Numbers in the fonts' configuration are read by the locale, which the toolkit sets at the same time. One
  // that is set already does not change then.
  std::setlocale(LC_ALL, "");
  try {
    worker_ = std::thread([] {
      GiveWay();
      ReadFonts();
      ReleaseLinkerPages();
    });
  } catch (const std::system_error&) {
    // The start only takes a little longer.
  }
}

EarlyWork::~EarlyWork() {
  WaitUntilDone();
}

void EarlyWork::WaitUntilDone() {
  if (worker_.joinable()) worker_.join();
}

}  // namespace bwp
