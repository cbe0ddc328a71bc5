#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "app/configuration.h"
#include "require.h"
#include "viewer/run_time_error.h"

// Any bytes may stand in the configuration file: they are read, or refused with one of the read errors. What
// was read once is written and read again as the same settings.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  bwp::Configuration read;
  try {
    read = bwp::ReadConfiguration(text);
  } catch (const bwp::RunTimeError& error) {
    Require(error.number == bwp::kInputPastEnd || error.number == bwp::kTypeMismatch ||
            error.number == bwp::kOverflow);
    return 0;
  }
  Require(!read.lastFolder.empty() && read.lastFolder.back() == '/');
  const bwp::Configuration again = bwp::ReadConfiguration(bwp::ConfigurationText(read));
  Require(again.hexMode == read.hexMode);
  Require(again.acceleration == read.acceleration);
  Require(again.lastFolder == read.lastFolder);
  return 0;
}
