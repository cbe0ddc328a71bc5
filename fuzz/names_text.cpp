#include "splitjoin/names_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "require.h"
#include "viewer/run_time_error.h"

// Anything may be typed as the names to join. It is taken apart into names without quotes, or refused for a
// quote that is not closed; names put together come apart again as they were.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string typed(reinterpret_cast<const char*>(data), size);
  const std::string quoted = bwp::QuotedNames(typed);
  Require(quoted.front() == '"' && quoted.back() == '"');
  const auto quotes = std::count(quoted.begin(), quoted.end(), '"');
  try {
    const std::vector<std::string> names = bwp::ParseNames(quoted);
    Require(static_cast<std::ptrdiff_t>(names.size()) * 2 == quotes);
    for (const std::string& name : names) Require(name.find('"') == std::string::npos);
    Require(bwp::ParseNames(bwp::QuotedNames(bwp::NamesText(names))) == names);
  } catch (const bwp::RunTimeError& error) {
    Require(error.number == bwp::kInvalidProcedureCall && quotes % 2 != 0);
  }
  return 0;
}
