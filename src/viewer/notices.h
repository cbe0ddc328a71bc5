#pragma once

#include <string>

namespace bwp {

/// How the engine talks to the user: message boxes in the program, a recorder in the tests.
class Notices {
 public:
  enum class Icon { kNone, kInformation, kExclamation, kCritical };

  virtual ~Notices() = default;

  /// Shows a text until the user closes it; an empty title stands for the program's name.
  virtual void Tell(const std::string& text, const std::string& title = {}, Icon icon = Icon::kNone) = 0;

  /// Asks with OK and Cancel; true for OK.
  virtual bool Ask(const std::string& question) = 0;
};

/// The title of messages about expected failures.
inline constexpr const char* kErrorTitle = "Error !";

}  // namespace bwp
