#include "end_to_end/support/real_program.h"

namespace {

constexpr const char* kText = "Type in a ASCII string to search";
constexpr const char* kHex = "Type in HEX bytes to search separated by spaces";
constexpr const char* kDec = "Type in DEC bytes to search separated by spaces";
constexpr const char* kFind = "Find Data in the file";

class Searching : public bwp::test::RealProgram {
 protected:
  void OpenFile(const std::string& bytes) {
    desktop_.Files().Write("a.bin", bytes);
    StartOn("a.bin");
    ExpectFocusOnMainWindow();
  }
};

TEST_F(Searching, TheThreeFieldsShowTheSameBytes) {
  OpenFile("no hit");
  Fill(kText, "AB", "");
  ExpectText(kHex, "41 42 ");
  ExpectText(kDec, "65 66 ");
}

TEST_F(Searching, EveryClickShowsTheNextHitAndTheLastWrapsRound) {
  std::string bytes(4000, '.');
  bytes.replace(1000, 4, "warp");
  bytes.replace(3000, 4, "warp");
  OpenFile(bytes);
  Fill(kText, "warp", "");
  ClickOn(kFind);
  ExpectText("Show Window start, decimal", "1.000");
  ExpectCell(0, 17, "w");
  ClickOn(kFind);
  ExpectText("Show Window start, decimal", "3.000");
  ClickOn(kFind);
  Answer("Bytewarp", "String not found");
  ClickOn(kFind);
  ExpectText("Show Window start, decimal", "1.000");
}

TEST_F(Searching, EnterInTheHexadecimalFieldFindsBytes) {
  std::string bytes(4000, '.');
  bytes.replace(2000, 2, "\xCA\xFE");
  OpenFile(bytes);
  Fill(kHex, "CA FE");
  ExpectText("Show Window start, decimal", "2.000");
}

}  // namespace
