#pragma once

#include <string>

namespace bwp {

/// What the help window of the split and join tool shows; lines end in carriage return and line feed.
std::string SplitJoinHelp();

}  // namespace bwp
