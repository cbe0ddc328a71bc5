#include <fcntl.h>
#include <unistd.h>

#include "end_to_end/support/real_program.h"

namespace {

using bwp::test::Until;

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

TEST_F(Searching, TheKeysFindAndFindAgain) {
  std::string bytes(4000, '.');
  bytes.replace(1000, 2, "ab");
  bytes.replace(2000, 2, "ab");
  OpenFile(bytes);
  desktop_.Key("ctrl+f");
  EXPECT_TRUE(Until([&] { return FindNow(kText).focused; }));
  desktop_.Type("ab");
  desktop_.Key("Return");
  ExpectText("Show Window start, decimal", "1.000");
  ExpectFocusOnMainWindow();
  desktop_.Key("F3");
  ExpectText("Show Window start, decimal", "2.000");
}

TEST_F(Searching, CancelEndsALongSearch) {
  const int file = open(File("big.bin").c_str(), O_WRONLY | O_CREAT, 0600);
  ASSERT_EQ(ftruncate(file, off_t{2'147'483'647}), 0);
  close(file);
  StartOn("big.bin");
  Fill(kText, "absent");
  // The key waits for the program, which comes to it after the block at hand.
  desktop_.Do({"windowfocus", "--sync", StopAtWindow("Search$")});
  desktop_.Key("Escape");
  GoOn();
  Answer("Bytewarp", "Search aborted");
  ExpectNoWindow("Search");
  ExpectFocusOnMainWindow();
  EXPECT_EQ(Quit(), 0) << Output();
}

}  // namespace
