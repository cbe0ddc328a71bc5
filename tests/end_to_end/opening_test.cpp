#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

#include "end_to_end/support/real_program.h"

namespace {

using bwp::test::PatternBytes;
using bwp::test::ReadFile;

constexpr const char* kEmptyTitle =
    "BYTEwarp | Filename:  (0 Bytes)  Bytes = 0 , 00000000 --  Buffer: 0 , 00000000";

class Opening : public bwp::test::RealProgram {
 protected:
  void WriteSparse(const std::string& name, off_t length) const {
    const int file = open(File(name).c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_EQ(ftruncate(file, length), 0);
    close(file);
  }

  /// Opens the name from the command line and expects its first byte on the page.
  void ExpectOpens(const std::string& name) {
    desktop_.Files().Write(name, "\x42xyz");
    StartOn(name);
    ExpectCell(0, 1, "42");
    EXPECT_EQ(Quit(), 0) << Output();
  }

  /// Expects that the argument opens nothing and says nothing.
  void ExpectOpensNothing(const std::string& argument) {
    Start({argument});
    ExpectTitle(kEmptyTitle);
    EXPECT_EQ(Quit(), 0) << Output();
  }
};

TEST_F(Opening, ShowsTheFileOfTheCommandLineAndItsTitle) {
  desktop_.Files().Write("a.bin", PatternBytes(1536));
  Start({"a.bin"});
  ExpectTitle("BYTEwarp | Filename: a.bin (1.5 KB)  Bytes = 1.536 , 00000600 --  Buffer: 0 , 00000000");
  ExpectCell(0, 0, "00000000");
  ExpectCell(31, 0, "000001F0");
}

TEST_F(Opening, WritesTheSettingsInOneLineWhenItEnds) {
  desktop_.Files().Write("a.bin", "abc");
  StartOn("a.bin");
  EXPECT_EQ(Quit(), 0);
  EXPECT_EQ(ReadFile(File("Bytewarp.cfg")), "#TRUE#,4,\"/\"\n");
  EXPECT_EQ(desktop_.Files().Names(), (std::vector<std::string>{"Bytewarp.cfg", "a.bin"}));
  EXPECT_EQ(Output(), "");
}

TEST_F(Opening, OpensANameWithBlanksAndQuotes) {
  ExpectOpens("two  words, \"quoted\" and 'more'.bin");
}

TEST_F(Opening, OpensANameBeyondAscii) {
  ExpectOpens("größe é.bin");
}

TEST_F(Opening, OpensANameThatIsNotUtf8) {
  desktop_.Files().Write("latin\xE9\xFF.bin", "\x42xyz");
  Start({"latin\xE9\xFF.bin"});
  ExpectTitle("Filename: latin");
  ExpectCell(0, 1, "42");
  EXPECT_EQ(Quit(), 0) << Output();
}

TEST_F(Opening, JoinsItsArgumentsByBlanks) {
  desktop_.Files().Write("two words.bin", "\x42xyz");
  Start({"two", "words.bin"});
  ExpectTitle("Filename: two words.bin (4 Bytes)");
}

TEST_F(Opening, StartsWithNoFileOnAMissingPath) {
  ExpectOpensNothing("missing.bin");
}

TEST_F(Opening, TakesAFolderForNoFile) {
  ASSERT_EQ(mkdir(File("folder").c_str(), 0700), 0);
  ExpectOpensNothing("folder");
}

TEST_F(Opening, TakesAPipeForNoFileAndDoesNotWaitOnIt) {
  ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
  ExpectOpensNothing("pipe");
}

TEST_F(Opening, ShowsAnEmptyFileOfTheCommandLineWithNoBytes) {
  desktop_.Files().Write("empty.bin", "");
  Start({"empty.bin"});
  ExpectTitle("Filename: empty.bin (0 Bytes)");
  EXPECT_EQ(Quit(), 0) << Output();
}

TEST_F(Opening, RefusesAFileOverTheLimit) {
  WriteSparse("big.bin", off_t{2'147'483'648});
  Start({"big.bin"});
  Answer("Error !", "File is too large (the limit is 2.147.483.647 bytes)");
  ExpectTitle(kEmptyTitle);
}

TEST_F(Opening, ShowsAFileAtTheLimit) {
  WriteSparse("big.bin", off_t{2'147'483'647});
  Start({"big.bin"});
  ExpectTitle("Filename: big.bin (2 GB)  Bytes = 2.147.483.647 , 7FFFFFFF");
  ExpectCell(0, 1, "00");
}

TEST_F(Opening, ReportsAMalformedConfigurationAndLeavesItAlone) {
  desktop_.Files().Write("Bytewarp.cfg", "#TRUE#,four,\"/\"\n");
  Start({});
  Answer("Bytewarp", "Run-time error '13':\n\nType mismatch\n" + File("Bytewarp.cfg"));
  EXPECT_EQ(program_->WaitForEnd(), 1);
  EXPECT_EQ(ReadFile(File("Bytewarp.cfg")), "#TRUE#,four,\"/\"\n");
  EXPECT_NE(Output().find("Run-time error '13':\n\nType mismatch\n" + File("Bytewarp.cfg")),
            std::string::npos);
}

TEST_F(Opening, ReportsSettingsThatCannotBeWrittenAtTheEnd) {
  ASSERT_EQ(mkdir(File("Bytewarp.cfg").c_str(), 0700), 0);
  Start({});
  ExpectTitle(kEmptyTitle);
  desktop_.Key("ctrl+q");
  ExpectWindow("Bytewarp");
  EXPECT_EQ(Message("Bytewarp").rfind("Run-time error '75':\n\nPath/File access error", 0), 0U);
  ClickOn("OK", "Bytewarp");
  EXPECT_EQ(program_->WaitForEnd(), 1);
}

}  // namespace
