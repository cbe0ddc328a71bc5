#include "viewer/number_text.h"

#include <gtest/gtest.h>

namespace {

TEST(HexByte, HasAtLeastTwoDigits) {
  EXPECT_EQ(funzioni::HexByte(0), "00");
  EXPECT_EQ(funzioni::HexByte(10), "0A");
  EXPECT_EQ(funzioni::HexByte(255), "FF");
  EXPECT_EQ(funzioni::HexByte(256), "100");
}

}  // namespace
