#include "splitjoin/help_text.h"

namespace bwp {
namespace {

constexpr const char* kLines[] = {
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

}  // namespace

std::string SplitJoinHelp() {
  std::string text;
  for (const char* line : kLines) {
    if (!text.empty()) text += "\r\n";
    text += line;
  }
  return text;
}

}  // namespace bwp
