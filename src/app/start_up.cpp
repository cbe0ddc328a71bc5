#include "app/start_up.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <unistd.h>

#include "viewer/paths.h"
#include "viewer/run_time_error.h"

namespace bwp {

std::string CurrentFolder() {
  const std::unique_ptr<char, decltype(&std::free)> folder(getcwd(nullptr, 0), &std::free);
  if (!folder) throw RunTimeErrorFromErrno(errno, ".");
  return funzioni::WithSeparator(folder.get());
}

std::string CommandLineText(const std::vector<std::string>& arguments) {
  std::string text;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (i > 0) text += ' ';
    text += arguments[i];
  }
  return text;
}

void ApplyConfiguration(const Configuration& configuration, ViewState& state) {
  state.HexMode = configuration.hexMode;
  state.AccelMode = configuration.acceleration;
  state.LastFolder = configuration.lastFolder;
}

Configuration ConfigurationOf(const ViewState& state) {
  return {state.HexMode, state.AccelMode, state.LastFolder};
}

}  // namespace bwp
