#include "support/scoped_variable.h"

#include <cstdlib>

namespace bwp::test {
namespace {

void Set(const std::string& name, const char* value) {
  if (value != nullptr) {
    setenv(name.c_str(), value, 1);
  } else {
    unsetenv(name.c_str());
  }
}

}  // namespace

ScopedVariable::ScopedVariable(const char* name, const char* value) : name_(name) {
  if (const char* const old = std::getenv(name)) old_ = old;
  Set(name_, value);
}

ScopedVariable::~ScopedVariable() {
  Set(name_, old_ ? old_->c_str() : nullptr);
}

}  // namespace bwp::test
