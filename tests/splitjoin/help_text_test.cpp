#include "splitjoin/help_text.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

TEST(SplitJoinHelp, ExplainsSplitAndJoinInTurn) {
  const std::string text = bwp::SplitJoinHelp();
  EXPECT_EQ(text.rfind("SPLIT:\r\n\r\nChoose or type the BASEFILE name of split parts\r\n", 0), 0U);
  EXPECT_NE(text.find("\r\n\r\n    - abab###abab.bab\r\n    - abab###.bab\r\n    - ###abab.bab\r\n    - "
                      "abab.###\r\n\r\n"),
            std::string::npos);
  EXPECT_NE(
      text.find(
          "\r\n    'bab'   is a generic file extension,\r\n     ###    is a three digits start number.\r\n"),
      std::string::npos);
  EXPECT_NE(text.find("\r\n\r\nJOIN:\r\n\r\nChoose the BASEFILE name as below, ONLY BASEFILE\r\n"),
            std::string::npos);
  const std::string last = "\r\nType the DESTINATION filename in the bottom box.";
  EXPECT_EQ(text.substr(text.size() - last.size()), last);
}

TEST(SplitJoinHelp, HasAllOfItsLines) {
  const std::string text = bwp::SplitJoinHelp();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 32);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 32);
}

}  // namespace
