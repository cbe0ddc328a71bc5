#pragma once

#include <functional>

#include "viewer/run_time_error.h"

namespace bwp::test {

/// The run-time error that a call ends in; the test fails when there is none.
RunTimeError ErrorOf(const std::function<void()>& call);

/// The number of the run-time error that a call ends in; 0 when there is none.
int ErrorNumberOf(const std::function<void()>& call);

}  // namespace bwp::test
