#include <filesystem>

#include "end_to_end/support/real_program.h"

namespace {

using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::Until;

constexpr const char* kTool = "Split and Join Tool";
constexpr const char* kSplit = "Split file: ";
constexpr const char* kJoin = "Join files";
constexpr const char* kQuestion = "Are You sure ?";

class Splitting : public bwp::test::RealProgram {
 protected:
  const std::string original_ = PatternBytes(2500);

  void SetUp() override {
    RememberFolderOfFiles();
    desktop_.Files().Write("a.bin", original_);
    StartOn("a.bin");
    ExpectFocusOnMainWindow();
  }

  void SplitIntoParts() {
    Choose("Tools", "Split&Join");
    ExpectWindow(kTool);
    Fill("Part size, decimal", "1000", "Return", kTool);
    ExpectText("Number of parts", "3", kTool);
    ClickOn("Split", kTool);
    ExpectWindow(kSplit);
    Fill("Base name", "part.000", "", kSplit);
    ClickOn("Split", kSplit);
    ExpectWindow(kQuestion);
    ClickOn("OK", kQuestion);
    Answer("Bytewarp", "Split successfully completed");
  }
};

TEST_F(Splitting, SplitsIntoPartsAndJoinsThemAgain) {
  SplitIntoParts();
  EXPECT_EQ(ReadFile(File("part.000")), original_.substr(0, 1000));
  EXPECT_EQ(ReadFile(File("part.001")), original_.substr(1000, 1000));
  EXPECT_EQ(ReadFile(File("part.002")), original_.substr(2000));
  ClickOn("Join", kTool);
  ExpectWindow(kJoin);
  Fill("Files to join", "part.000", "", kJoin);
  Fill("Destination", "whole.bin", "", kJoin);
  ClickOn("Join", kJoin);
  ExpectWindow(kQuestion);
  ClickOn("OK", kQuestion);
  Answer("Bytewarp", "Join successful");
  ExpectTitle("Filename: whole.bin (");
  EXPECT_EQ(ReadFile(File("whole.bin")), original_);
}

TEST_F(Splitting, JoinsThePickedFilesInTheOrderOfTheClicks) {
  desktop_.Files().Write("x.bin", "xxx");
  desktop_.Files().Write("y.bin", "yy");
  Choose("Tools", "Split&Join");
  ClickOn("Join", kTool);
  ExpectWindow(kJoin);
  ClickOn("y.bin", kJoin);
  desktop_.Do({"keydown", "ctrl"});
  ClickOn("x.bin", kJoin);
  desktop_.Do({"keyup", "ctrl"});
  ExpectText("Files to join", "\"y.bin\" \"x.bin\" ", kJoin);
  Fill("Destination", "both.bin", "", kJoin);
  ClickOn("Join", kJoin);
  ExpectWindow(kQuestion);
  ClickOn("OK", kQuestion);
  Answer("Bytewarp", "Join successful");
  EXPECT_EQ(ReadFile(File("both.bin")), "yyxxx");
}

TEST_F(Splitting, AsksBeforeItDeletesTheParts) {
  desktop_.Files().Write("part.000", "old");
  Choose("Tools", "Split&Join");
  ExpectWindow(kTool);
  ClickOn("Split", kTool);
  ExpectWindow(kSplit);
  Fill("Base name", "part.000", "", kSplit);
  ClickOn("Split", kSplit);
  ExpectWindow(kQuestion);
  ClickOn("Cancel", kQuestion);
  ExpectNoWindow(kQuestion);
  EXPECT_EQ(ReadFile(File("part.000")), "old");
}

}  // namespace
