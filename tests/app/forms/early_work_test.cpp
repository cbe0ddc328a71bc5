#include "app/forms/early_work.h"

#include <clocale>
#include <gtest/gtest.h>
#include <string>

#include "support/scoped_variable.h"

namespace {

using bwp::EarlyWork;
using bwp::test::ScopedVariable;

TEST(EarlyWork, SetsTheUsersLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const ScopedVariable user("LC_ALL", "C.UTF-8");
  std::setlocale(LC_ALL, "C");
  {
    const EarlyWork work;
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C.UTF-8");
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(EarlyWork, CanBeWaitedForAgain) {
  EarlyWork work;
  work.WaitUntilDone();
  EXPECT_NO_THROW(work.WaitUntilDone());
}

}  // namespace
