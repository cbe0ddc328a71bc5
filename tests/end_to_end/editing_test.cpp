#include "end_to_end/support/real_program.h"

namespace {

using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::Until;

constexpr const char* kEdit = "Edit the page's bytes";
constexpr const char* kCancel = "Discard what was typed";
constexpr const char* kQuestion = "Are you sure you want to save changes ?";

class Editing : public bwp::test::RealProgram {
 protected:
  const std::string original_ = PatternBytes(700);

  void SetUp() override {
    desktop_.Files().Write("a.bin", original_);
    StartOn("a.bin");
    ExpectFocusOnMainWindow();
  }

  void ExpectEditing() const {
    EXPECT_TRUE(Until([&] { return FindNow("Bytes of the Show Window").enabled; })) << "not in edit mode";
  }
  void ExpectNoEditing() const {
    EXPECT_TRUE(Until([&] { return !FindNow("Bytes of the Show Window").enabled; })) << "still in edit mode";
  }
};

TEST_F(Editing, WritesWhatWasTypedAfterTheQuestion) {
  ClickOn(kEdit);
  ExpectEditing();
  desktop_.Type("abCD");
  ExpectCell(0, 1, "AB");
  ExpectCell(0, 2, "CD");
  desktop_.Key("Down");
  desktop_.Type("7");
  desktop_.Key("Return");
  EXPECT_EQ(ReadFile(File("a.bin")), original_);
  ClickOn(kEdit);
  Answer("Bytewarp", kQuestion);
  ExpectNoEditing();
  std::string edited = original_;
  edited[0] = '\xAB';
  edited[1] = '\xCD';
  edited[16 + 2] = '\x07';
  EXPECT_TRUE(Until([&] { return ReadFile(File("a.bin")) == edited; }));
  EXPECT_EQ(Quit(), 0) << Output();
}

TEST_F(Editing, CancelGivesEveryByteBack) {
  const std::string first = Cell(0, 1);
  ClickOn(kEdit);
  ExpectEditing();
  desktop_.Type(first == "AB" ? "CD" : "AB");
  EXPECT_TRUE(Until([&] { return Cell(0, 1) != first; }));
  ClickOn(kCancel);
  ExpectNoEditing();
  ExpectCell(0, 1, first);
  EXPECT_EQ(ReadFile(File("a.bin")), original_);
}

TEST_F(Editing, RefusingTheQuestionWritesNothing) {
  const std::string first = Cell(0, 1);
  ClickOn(kEdit);
  ExpectEditing();
  desktop_.Type(first == "AB" ? "CD" : "AB");
  ClickOn(kEdit);
  Answer("Bytewarp", kQuestion, "Cancel");
  ExpectNoEditing();
  ExpectCell(0, 1, first);
  EXPECT_EQ(ReadFile(File("a.bin")), original_);
}

TEST_F(Editing, EverythingElseIsOffMeanwhile) {
  ClickOn(kEdit);
  ExpectEditing();
  EXPECT_FALSE(FindNow("Scroll down one line").enabled);
  EXPECT_FALSE(FindNow("Mark Start, decimal").enabled);
  EXPECT_FALSE(FindNow("Cut Chunk to Buffer").enabled);
  ClickOn(kCancel);
  ExpectNoEditing();
  EXPECT_TRUE(Until([&] { return FindNow("Cut Chunk to Buffer").enabled; }));
}

}  // namespace
