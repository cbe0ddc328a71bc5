#include "splitjoin/help_text.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

TEST(SplitJoinHelp, IsTheseLinesWithoutAnEndAfterTheLast) {
  const std::vector<std::string> expected{
      "SPLIT:",
      "",
      "Choose or type the BASEFILE name of split parts",
      "using one of the formats:",
      "",
      "    - abab###abab.bab",
      "    - abab###.bab",
      "    - ###abab.bab",
      "    - abab.###",
      "",
      "Where:",
      "",
      "    'abab'  is a generic string,",
      "    'bab'   is a generic file extension,",
      "     ###    is a three digits start number.",
      "",
      "There is complete freedom on where you want to",
      "put the number, you can use every name accepted",
      "by Windows, with or without extension.",
      "If you don't specify a ### it will be appended",
      "as extension starting from '000'.",
      "",
      "JOIN:",
      "",
      "Choose the BASEFILE name as below, ONLY BASEFILE",
      "AND consecutives 'part' files will be joined.",
      "",
      "Alternatively you can do a multiple selection,",
      "files will be joined in the order you selected them.",
      "",
      "To perform multiple selection use CTRL and/or",
      "SHIFT keys, dragging mouse WON'T DO IT.",
      "Type the DESTINATION filename in the bottom box.",
  };
  std::vector<std::string> lines;
  std::string rest = bwp::SplitJoinHelp();
  for (std::size_t end = rest.find("\r\n"); end != std::string::npos; end = rest.find("\r\n")) {
    lines.push_back(rest.substr(0, end));
    rest.erase(0, end + 2);
  }
  lines.push_back(rest);
  EXPECT_EQ(lines, expected);
}

}  // namespace
