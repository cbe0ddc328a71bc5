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
  for (const std::string& argument : arguments) {
    if (!text.empty()) text += ' ';
    text += argument;
  }
  return text;
}

void ApplyConfiguration(const Configuration& configuration, ViewState& state) {
  constexpr int kStrongest = 4;
  state.HexMode = configuration.hexMode;
  const bool known = configuration.acceleration >= 0 && configuration.acceleration <= kStrongest;
  state.AccelMode = known ? configuration.acceleration : 0;
  state.LastFolder = configuration.lastFolder;
}

Configuration ConfigurationOf(const ViewState& state) {
  return {state.HexMode, state.AccelMode, state.LastFolder};
}

}  // namespace bwp
