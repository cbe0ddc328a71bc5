#pragma once

#include <optional>
#include <string>

namespace bwp::test {

/// An environment variable that has another value for a while; none when the value is a null pointer.
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
