#pragma once

#include <optional>
#include <string>

class QDropEvent;

namespace bwp {

/// Accepts a drag that brings a regular file, and returns the path of the first one, byte for byte. The drop
/// is always a copy: whatever its source proposes, the file is not moved.
std::optional<std::string> AcceptFile(QDropEvent& event);

}  // namespace bwp
