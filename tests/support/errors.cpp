#include "support/errors.h"

#include <gtest/gtest.h>

namespace bwp::test {

RunTimeError ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return error;
  }
  ADD_FAILURE() << "no run-time error";
  return {};
}

int ErrorNumberOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return error.number;
  }
  return 0;
}

}  // namespace bwp::test
