#include "app/forms/early_fonts.h"

#include <dlfcn.h>

namespace bwp {

EarlyFonts::EarlyFonts() {
  // The toolkit brings fontconfig along; where it does not, there is nothing to read.
  using Initialize = int (*)();
  const auto initialize = reinterpret_cast<Initialize>(dlsym(RTLD_DEFAULT, "FcInit"));
  if (initialize != nullptr) reader_ = std::thread([initialize] { initialize(); });
}

EarlyFonts::~EarlyFonts() {
  WaitUntilRead();
}

void EarlyFonts::WaitUntilRead() {
  if (reader_.joinable()) reader_.join();
}

}  // namespace bwp
