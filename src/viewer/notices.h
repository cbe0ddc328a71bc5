#pragma once

#include <string>

namespace bwp {

/// How the engine speaks to the person: message boxes in the program, a recorder in the tests.
class Notices {
 public:
  enum class Icon { kNone, kInformation, kExclamation, kCritical };

  virtual ~Notices() = default;

  /// Shows a text until the person has seen it; an empty title is the program's own.
  virtual void Tell(const std::string& text, const std::string& title = {}, Icon icon = Icon::kNone) = 0;

  /// Asks with OK and Cancel; true for OK.
  virtual bool Ask(const std::string& question) = 0;
};

/// The title of failures that the program expects.
inline constexpr const char* kErrorTitle = "Error !";

}  // namespace bwp
