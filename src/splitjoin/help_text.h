#pragma once

#include <string>

namespace bwp {

/// The text of the help window; lines are separated by carriage return and line feed.
std::string SplitJoinHelp();

}  // namespace bwp
