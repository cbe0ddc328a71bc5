#pragma once

#include <optional>
#include <string>

namespace bwp::test {

/// Sets an environment variable, or removes it if the value is a null pointer, and restores it at the end.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value);
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;
  ~ScopedVariable();

 private:
  std::string name_;
  std::optional<std::string> old_;
};

}  // namespace bwp::test
