#include <filesystem>

#include "end_to_end/support/real_program.h"

namespace {

using bwp::test::Control;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::Until;

/// Marks, copies, cuts, inserts and saves, and looks at what lies on the disk.
class Buffer : public bwp::test::RealProgram {
 protected:
  const std::string original_ = PatternBytes(3000);

  void SetUp() override {
    RememberFolderOfFiles();
    desktop_.Files().Write("a.bin", original_);
    StartOn("a.bin");
    ExpectFocusOnMainWindow();
  }

  void Mark(int start, int end) const {
    Fill("Mark End, decimal", std::to_string(end));
    Fill("Mark Start, decimal", std::to_string(start));
    const std::string size = std::to_string(end - start + 1);
    EXPECT_TRUE(Until([&] {
      std::string shown = TextOf("Chunk size, decimal");
      std::erase(shown, '.');
      return shown == size;
    })) << "the chunk is not of "
        << size << " bytes";
  }

  void ExpectBuffer(const std::string& size) const { ExpectTitle("Buffer: " + size + " , "); }

  void ExpectFile(const std::string& name, const std::string& bytes) const {
    EXPECT_TRUE(Until([&] { return std::filesystem::exists(File(name)) && ReadFile(File(name)) == bytes; }))
        << name << " holds " << ReadFile(File(name)).size() << " bytes, wanted " << bytes.size();
  }

  /// Right click on a cell, then that entry of the menu.
  void ChooseOnCell(int row, int column, int entry) const {
    const std::optional<Control> cell = controls_->Cell(FindNow("Bytes of the Show Window"), row, column);
    ASSERT_TRUE(cell.has_value());
    desktop_.Click(cell->CentreX(), cell->CentreY(), 3);
    for (int step = 0; step < entry; ++step) desktop_.Key("Down");
    desktop_.Key("Return");
  }
};

TEST_F(Buffer, TheFieldsOfTheChunkFollowEachOther) {
  Fill("Mark Start, hexadecimal", "10");
  Fill("Mark End, hexadecimal", "2F");
  ExpectText("Mark Start, decimal", "16");
  ExpectText("Mark End, decimal", "47");
  ExpectText("Chunk size, hexadecimal", "00000020");
  Fill("Chunk size, decimal", "100");
  ExpectText("Mark End, hexadecimal", "00000073");
  ClickOn("Goto Mark End position");
  ExpectCell(0, 0, "00000000");
  ClickOn("Goto Mark Start position");
  ExpectCell(0, 0, "00000010");
}

TEST_F(Buffer, TheMenuOfThePageMarksTheByteUnderTheMouse) {
  ChooseOnCell(3, 5, 1);
  ExpectText("Mark Start, decimal", "52");
  ChooseOnCell(4, 17 + 15, 2);
  ExpectText("Mark End, decimal", "79");
  ChooseOnCell(0, 1, 3);
  ExpectText("Mark Start, decimal", "0");
  ExpectText("Mark End, decimal", "2.999");
}

TEST_F(Buffer, CopiesCutsAndInsertsWhatIsMarked) {
  Mark(100, 299);
  const std::string chunk = original_.substr(100, 200);
  ClickOn("Copy Chunk to Buffer");
  ExpectBuffer("200");
  EXPECT_EQ(ReadFile(File("a.bin")), original_);

  Mark(1000, 1999);
  const std::string cut = original_.substr(0, 1000) + original_.substr(2000);
  ClickOn("Cut Chunk to Buffer");
  ExpectBuffer("1.000");
  ExpectFile("a.bin", cut);
  ExpectTitle("Bytes = 2.000 , 000007D0");

  Mark(500, 600);
  ClickOn("Insert Buffer before Mark Start");
  Answer("Bytewarp", "Insert Successful");
  const std::string before = cut.substr(0, 500) + original_.substr(1000, 1000) + cut.substr(500);
  ExpectFile("a.bin", before);

  Choose("Chunk", "Insert after Mark Start");
  Answer("Bytewarp", "Insert Successful");
  const std::string after = before.substr(0, 501) + original_.substr(1000, 1000) + before.substr(501);
  ExpectFile("a.bin", after);

  Choose("Chunk", "Append");
  Answer("Bytewarp", "Insert Successful");
  ExpectFile("a.bin", after + original_.substr(1000, 1000));
  EXPECT_EQ(Quit(), 0) << Output();
  EXPECT_EQ(desktop_.Files().Names(), (std::vector<std::string>{"Bytewarp.cfg", "a.bin"}));
}

TEST_F(Buffer, TheShortcutsCopyAndCut) {
  Mark(0, 9);
  // In a field the keys belong to the field.
  ClickOn("Goto Mark Start position");
  desktop_.Key("ctrl+c");
  ExpectBuffer("10");
  desktop_.Key("ctrl+x");
  ExpectTitle("Bytes = 2.990 , ");
  ExpectFile("a.bin", original_.substr(10));
}

TEST_F(Buffer, AnInsertOfAnEmptyBufferIsReportedAndLeavesTheFile) {
  ClickOn("Insert Buffer before Mark Start");
  ExpectWindow("Bytewarp");
  EXPECT_TRUE(Until([&] {
    return Message("Bytewarp").rfind("Run-time error '11':\n\nDivision by zero", 0) == 0;
  })) << Message("Bytewarp");
  ClickOn("OK", "Bytewarp");
  EXPECT_EQ(program_->WaitForEnd(), 1);
  EXPECT_EQ(ReadFile(File("a.bin")), original_);
}

TEST_F(Buffer, SavesTheChunkUnderAnotherName) {
  Mark(10, 19);
  Choose("File", "Save Chunk");
  ExpectWindow("Save Chunk from  10 to  19");
  Fill("Save as", "chunk.bin", "", "Save Chunk from");
  ClickOn("Save", "Save Chunk from");
  ExpectFile("chunk.bin", original_.substr(10, 10));
  ExpectTitle("Filename: a.bin (");
}

TEST_F(Buffer, SavesTheFileUnderAnotherNameAndShowsIt) {
  desktop_.Files().Write("b.bin", "old");
  Choose("File", "Save As");
  ExpectWindow("Save File as..");
  Fill("Save as", "b.bin", "", "Save File as..");
  ClickOn("Save", "Save File as..");
  Answer("Bytewarp", "File  'b.bin'  exist, do you want to overwrite ?", "Cancel");
  EXPECT_EQ(ReadFile(File("b.bin")), "old");
  Choose("File", "Save As");
  ExpectWindow("Save File as..");
  Fill("Save as", "b.bin", "", "Save File as..");
  ClickOn("Save", "Save File as..");
  Answer("Bytewarp", "File  'b.bin'  exist, do you want to overwrite ?", "OK");
  ExpectTitle("Filename: b.bin (");
  ExpectFile("b.bin", original_);
}

TEST_F(Buffer, SavingOntoTheOpenFileIsRefused) {
  Choose("File", "Save As");
  Fill("Save as", "a.bin", "", "Save File as..");
  ClickOn("Save", "Save File as..");
  Answer("Bytewarp", "File  'a.bin'  exist, do you want to overwrite ?", "OK");
  EXPECT_TRUE(Until([&] {
    return Message("Bytewarp").rfind("Run-time error '70':\n\nPermission denied", 0) == 0;
  })) << Message("Bytewarp");
  ClickOn("OK", "Bytewarp");
  EXPECT_EQ(program_->WaitForEnd(), 1);
  EXPECT_EQ(ReadFile(File("a.bin")), original_);
}

TEST_F(Buffer, BytesThatWereCutAreKeptWhenAnErrorEndsTheProgram) {
  Mark(1000, 1999);
  ClickOn("Cut Chunk to Buffer");
  ExpectBuffer("1.000");
  Choose("File", "Save As");
  Fill("Save as", "a.bin", "", "Save File as..");
  ClickOn("Save", "Save File as..");
  Answer("Bytewarp", "File  'a.bin'  exist, do you want to overwrite ?", "OK");
  const std::string kept = "\nThe bytes that were cut into the Buffer are kept in ";
  EXPECT_TRUE(Until([&] { return Message("Bytewarp").find(kept) != std::string::npos; }))
      << Message("Bytewarp");
  const std::string report = Message("Bytewarp");
  EXPECT_EQ(report.rfind("Run-time error '70':\n\nPermission denied\n" + File("a.bin") + kept, 0), 0U)
      << report;
  const std::string rescued = report.substr(report.find(kept) + kept.size());
  ClickOn("OK", "Bytewarp");
  EXPECT_EQ(program_->WaitForEnd(), 1);
  EXPECT_EQ(ReadFile(rescued), original_.substr(1000, 1000)) << rescued;
  EXPECT_EQ(ReadFile(File("a.bin")), original_.substr(0, 1000) + original_.substr(2000));
}

}  // namespace
