#pragma once

#include <optional>
#include <string>

class QDropEvent;

namespace bwp {

/// Accepts a drag if there is a regular file among what it brings, and gives the path of the first one, byte
/// for byte. The file is only looked at: whatever its source proposes, it is not moved.
std::optional<std::string> AcceptFile(QDropEvent& event);

}  // namespace bwp
