#include "viewer/forms/text_conversion.h"

#include <gtest/gtest.h>
#include <string>

namespace {

TEST(TextConversion, EveryByteOfAPathSurvives) {
  std::string path = "/gr\xC3\xBC\xC3\x9F/\xE2\x82\xAC/\xF0\x9F\x98\x80/\xF0\x9F\x92\x80/";
  for (int byte = 1; byte < 256; ++byte) path += static_cast<char>(byte);
  EXPECT_EQ(bwp::ToPath(bwp::FromPath(path)), path);
}

TEST(TextConversion, AUtf8PathReadsAsItsCharacters) {
  EXPECT_EQ(bwp::FromPath("/gr\xC3\xBC\xC3\x9F"), QStringLiteral(u"/gr\u00FC\u00DF"));
}

}  // namespace
