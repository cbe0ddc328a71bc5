#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QWindow>

#include "app/forms/main_form_fixture.h"
#include "support/forms/answer_box.h"
#include "support/temp_folder.h"
#include "viewer/page_grid.h"

namespace {

using bwp::MainForm;
using bwp::test::MainFormTest;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::TempFolder;

TEST_F(MainFormTest, WithoutAFileShowsItsTitleAndNoCommandThatNeedsOne) {
  Start();
  EXPECT_EQ(form->windowTitle(),
            QStringLiteral("BYTEwarp | Filename:  (0 Bytes)  Bytes = 0 , 00000000 --  Buffer: 0 , 00000000"));
  for (const char* name : {"sav", "sachnk", "sachnk2", "menucopy", "menucut", "menupasteBMS", "menupasteAMS",
                           "menuappend", "menufind", "menufindnext"}) {
    EXPECT_FALSE(Entry(name)->isEnabled()) << name;
  }
  for (const char* name : {"cop", "Cut", "Paste", "Gstart", "Gend", "Find", "edit", "Cancel"}) {
    EXPECT_FALSE(Button(name)->isEnabled()) << name;
  }
  for (const char* name : {"menuopen", "MenuExit", "Menuabout", "menusplitjoin", "MenuA16X"}) {
    EXPECT_TRUE(Entry(name)->isEnabled()) << name;
  }
  EXPECT_TRUE(Button("opn")->isEnabled());
}

TEST_F(MainFormTest, ShowsTheFileThatTheCommandLineNames) {
  StartOnFile(1536);
  EXPECT_EQ(form->windowTitle(),
            QStringLiteral("BYTEwarp | Filename: file.bin (1.5 KB)  Bytes = 1.536 , 00000600 --  Buffer: 0 , "
                           "00000000"));
  EXPECT_EQ(Cell(0, 0), QStringLiteral("00000000"));
  EXPECT_EQ(Cell(31, 0), QStringLiteral("000001F0"));
  EXPECT_TRUE(Button("cop")->isEnabled());
  EXPECT_EQ(Find<QLineEdit>("mdend")->text(), QStringLiteral("1.535"));
}

TEST_F(MainFormTest, TakesQuotesBlanksAndAnyByteInTheNameOnTheCommandLine) {
  const std::string name = "my \xFF own file";
  folder.Write(name, "abc");
  Start("\"" + (folder / name) + "\"");
  EXPECT_EQ(form->State().OpenFile, folder / name);
  EXPECT_EQ(Cell(0, 1), QStringLiteral("61"));
}

TEST_F(MainFormTest, FindsARelativeNameInTheFolderItWasStartedIn) {
  folder.Write("near.bin", "x");
  Start("near.bin");
  EXPECT_EQ(form->State().OpenFile, folder / "near.bin");
}

TEST_F(MainFormTest, IgnoresACommandLineThatNamesNoFile) {
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  for (const std::string& path : {folder / "none", folder.Path(), folder / "pipe"}) {
    Start(path);
    EXPECT_TRUE(form->State().OpenFile.empty()) << path;
  }
}

TEST_F(MainFormTest, TellsThatAFileIsTooLargeAndOpensNothing) {
  const std::string path = folder.Write("large", "");
  std::filesystem::resize_file(path, std::uintmax_t{2'147'483'648});
  bwp::test::AnswerBoxes boxes;
  Start(path);
  EXPECT_EQ(boxes.Lines(),
            std::vector<std::string>{"[Error !] File is too large (the limit is 2.147.483.647 bytes) (x)"});
  EXPECT_TRUE(form->State().OpenFile.empty());
}

TEST_F(MainFormTest, ShowsTheEndOfTheLongestFile) {
  const std::string path = folder.Write("longest", "");
  std::filesystem::resize_file(path, std::uintmax_t{2'147'483'647});
  Start(path);
  Press(Qt::Key_End);
  EXPECT_EQ(form->State().SWStart, 2'147'483'647 - 512);
  EXPECT_EQ(Cell(0, 0), QStringLiteral("7FFFFDFF"));
  EXPECT_EQ(Cell(31, 16), QStringLiteral("00"));
  EXPECT_EQ(Find<QLineEdit>("Dend")->text(), QStringLiteral("2.147.483.646"));
}

TEST_F(MainFormTest, NavigationKeysWorkAtOnceAndAfterAClickOnAButtonOrOption) {
  StartOnFile(4096);
  Press(Qt::Key_PageDown);
  EXPECT_EQ(form->State().SWStart, 512);
  QTest::mouseClick(Button("Gstart"), Qt::LeftButton);
  EXPECT_EQ(form->State().SWStart, 0);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(form->State().SWStart, 16);
  auto* const decop = Find<QRadioButton>("decop");
  QTest::mouseClick(decop, Qt::LeftButton, {}, QPoint(8, decop->height() / 2));
  EXPECT_EQ(Cell(0, 0), QStringLiteral("16"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(form->State().SWStart, 32);
}

TEST_F(MainFormTest, AClickOnAButtonEndsTypingSoThatTheNavigationKeysWork) {
  StartOnFile(4096);
  QTest::keyClicks(Find<QLineEdit>("Dstart"), QStringLiteral("77"));
  ASSERT_TRUE(form->State().FieldTyping);
  QTest::mouseClick(Button("Gend"), Qt::LeftButton);
  EXPECT_EQ(form->State().SWStart, 4096 - 512);
  EXPECT_EQ(Find<QLineEdit>("Dstart")->text(), QStringLiteral("3.584"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  EXPECT_EQ(form->State().SWStart, 4096 - 512 - 16);
}

TEST_F(MainFormTest, AnOptionOrTheOpenButtonEndsTypingToo) {
  StartOnFile(4096);
  for (const char* name : {"decop", "hexop", "opn"}) {
    auto* const Dstart = Find<QLineEdit>("Dstart");
    Dstart->setFocus();
    Dstart->selectAll();
    QTest::keyClicks(Dstart, QStringLiteral("77"));
    ASSERT_TRUE(form->State().FieldTyping) << name;
    auto* const button = Find<QAbstractButton>(name);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    EXPECT_FALSE(form->State().FieldTyping) << name;
    EXPECT_EQ(form->State().SWStart, 0) << name;
    EXPECT_EQ(Cell(1, 0), std::string(name) == "decop" ? QStringLiteral("16") : QStringLiteral("00000010"));
  }
  EXPECT_TRUE(Find<QWidget>("Loader")->isVisible());
  QTest::mouseClick(Button("Gend"), Qt::LeftButton);
  EXPECT_EQ(Find<QLineEdit>("Dstart")->text(), QStringLiteral("3.584")) << "nothing is held back";
}

TEST_F(MainFormTest, EnterInDstartMovesTheThumbAndShowsThePageWhenTheKeyComesUp) {
  StartOnFile(65536);
  auto* const Dstart = Find<QLineEdit>("Dstart");
  auto* const VSB = Find<QWidget>("VSB");
  Dstart->setFocus();
  Dstart->selectAll();
  QTest::keyClicks(Dstart, QStringLiteral("32768"));
  const int thumbBefore = VSB->y();
  QTest::keyPress(Dstart, Qt::Key_Return);
  EXPECT_GT(VSB->y(), thumbBefore);
  EXPECT_EQ(Cell(0, 0), QStringLiteral("00000000"));
  QTest::keyRelease(Dstart, Qt::Key_Return);
  EXPECT_EQ(Cell(0, 0), QStringLiteral("00008000"));
}

TEST_F(MainFormTest, CopyShowsTheBuffersSizeInTheTitle) {
  StartOnFile(2048);
  QTest::mouseClick(Button("cop"), Qt::LeftButton);
  EXPECT_TRUE(form->windowTitle().endsWith(QStringLiteral("Buffer: 2.048 , 00000800")))
      << form->windowTitle().toStdString();
  EXPECT_EQ(form->State().BufferData, PatternBytes(2048));
  EXPECT_FALSE(form->findChild<QWidget*>(QStringLiteral("Progform"))->isVisible());
}

TEST_F(MainFormTest, CutAndInsertRewriteTheFileFromMenuAndButton) {
  const std::string bytes = PatternBytes(3000);
  StartOnFile(bytes.size());
  auto* const mdstart = Find<QLineEdit>("mdstart");
  mdstart->selectAll();
  QTest::keyClicks(mdstart, QStringLiteral("1000"));
  QTest::keyClick(mdstart, Qt::Key_Return);
  auto* const mdend = Find<QLineEdit>("mdend");
  mdend->selectAll();
  QTest::keyClicks(mdend, QStringLiteral("1999"));
  QTest::keyClick(mdend, Qt::Key_Return);
  Entry("menucut")->trigger();
  EXPECT_EQ(ReadFile(folder / "file.bin"), bytes.substr(0, 1000) + bytes.substr(2000));
  EXPECT_EQ(form->State().BufferData, bytes.substr(1000, 1000));
  {
    bwp::test::AnswerBoxes boxes;
    QTest::mouseClick(Button("Paste"), Qt::LeftButton);
    EXPECT_EQ(boxes.Lines(), std::vector<std::string>{"[Bytewarp] Insert Successful"});
  }
  EXPECT_EQ(ReadFile(folder / "file.bin"), bytes);
  {
    const bwp::test::AnswerBoxes boxes;
    Entry("menuappend")->trigger();
  }
  EXPECT_EQ(ReadFile(folder / "file.bin"), bytes + bytes.substr(1000, 1000));
  {
    const bwp::test::AnswerBoxes boxes;
    Entry("menupasteAMS")->trigger();
  }
  EXPECT_EQ(ReadFile(folder / "file.bin").substr(0, 2001), bytes.substr(0, 1001) + bytes.substr(1000, 1000));
}

TEST_F(MainFormTest, ACommandEndsTypingSoThatItsResultIsSeen) {
  StartOnFile(2048);
  QTest::keyClicks(Find<QLineEdit>("mdstart"), QStringLiteral("5"));
  ASSERT_TRUE(form->State().FieldTyping);
  Entry("menucopy")->trigger();
  EXPECT_TRUE(form->windowTitle().endsWith(QStringLiteral("Buffer: 2.048 , 00000800")));
  EXPECT_EQ(Find<QLineEdit>("mdstart")->text(), QStringLiteral("0"));
}

TEST_F(MainFormTest, MenuEntriesSaveSearchAndPlan) {
  StartOnFile(2048);
  Entry("sav")->trigger();
  EXPECT_EQ(form->findChild<QWidget*>(QStringLiteral("Saver"))->windowTitle(),
            QStringLiteral("Save File as.."));
  Entry("sachnk2")->trigger();
  EXPECT_EQ(form->findChild<QWidget*>(QStringLiteral("Saver"))->windowTitle(),
            QStringLiteral("Save Chunk from  0 to  2047"));
  Entry("menufind")->trigger();
  EXPECT_EQ(QApplication::focusWidget(), Find<QWidget>("Atext"));
  Entry("menusplitjoin")->trigger();
  EXPECT_TRUE(form->findChild<QWidget*>(QStringLiteral("Divide"))->isVisible());
  Entry("menuopen")->trigger();
  EXPECT_TRUE(form->findChild<QWidget*>(QStringLiteral("Loader"))->isVisible());
}

TEST_F(MainFormTest, ShowsAFileNameInTheTitleWhateverItHolds) {
  Start(folder.Write("a[*]b[*][*]", "abc"));
  EXPECT_TRUE(form->windowHandle()->title().contains(QStringLiteral(" a[*]b[*][*] (3 Bytes)")))
      << form->windowHandle()->title().toStdString();
}

TEST_F(MainFormTest, ColumnsAreNamedAsTheRulerCountsThem) {
  StartOnFile(100);
  const QAbstractItemModel* const page = Find<QTableView>("tabe")->model();
  const auto name = [page](int column) { return page->headerData(column, Qt::Horizontal).toString(); };
  EXPECT_EQ(name(11), QStringLiteral("A"));
  EXPECT_EQ(name(32), QStringLiteral("F"));
  auto* const decop = Find<QRadioButton>("decop");
  QTest::mouseClick(decop, Qt::LeftButton, {}, QPoint(8, decop->height() / 2));
  EXPECT_EQ(name(11), QStringLiteral("10"));
}

TEST_F(MainFormTest, DecimalDisplaySurvivesTheExitInItsOwnWorkingDirectoryOnly) {
  StartOnFile(100);
  auto* const decop = Find<QRadioButton>("decop");
  QTest::mouseClick(decop, Qt::LeftButton, {}, QPoint(8, decop->height() / 2));
  Entry("MenuExit")->trigger();
  StartOnFile(100);
  EXPECT_EQ(Cell(1, 0), QStringLiteral("16"));
  EXPECT_TRUE(Find<QRadioButton>("decop")->isChecked());

  const TempFolder elsewhere;
  MainForm other(elsewhere.Path());
  other.Start(folder / "file.bin");
  EXPECT_TRUE(other.State().HexMode);
  other.close();
  EXPECT_EQ(ReadFile(elsewhere / "Bytewarp.cfg"), "#TRUE#,4,\"/\"\n");
  EXPECT_EQ(ReadFile(folder / "Bytewarp.cfg"), "#FALSE#,4,\"/\"\n");
}

TEST_F(MainFormTest, ClosingWritesTheSettings) {
  Start();
  auto* const decop = Find<QRadioButton>("decop");
  QTest::mouseClick(decop, Qt::LeftButton, {}, QPoint(8, decop->height() / 2));
  Entry("MenuA4X")->trigger();
  form->close();
  EXPECT_EQ(ReadFile(folder / "Bytewarp.cfg"), "#FALSE#,2,\"/\"\n");
}

TEST_F(MainFormTest, ExitWritesTheSettings) {
  Start();
  Entry("MenuExit")->trigger();
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(ReadFile(folder / "Bytewarp.cfg"), "#TRUE#,4,\"/\"\n");
}

TEST_F(MainFormTest, StartsWithTheSettingsThatWereKept) {
  folder.Write("Bytewarp.cfg", "#FALSE#,3,\"/usr/\"\n");
  StartOnFile(100);
  EXPECT_TRUE(Find<QRadioButton>("decop")->isChecked());
  EXPECT_FALSE(Find<QRadioButton>("hexop")->isChecked());
  EXPECT_TRUE(Entry("MenuA8X")->isChecked());
  EXPECT_FALSE(Entry("MenuA16X")->isChecked());
  EXPECT_EQ(form->State().AccelMode, 3);
  EXPECT_EQ(form->State().LastFolder, "/usr/");
  EXPECT_EQ(Cell(1, 0), QStringLiteral("16"));
}

TEST_F(MainFormTest, AChoiceThatNoEntryHasChecksNone) {
  folder.Write("Bytewarp.cfg", "#TRUE#,7,\"/\"\n");
  Start();
  for (const char* name : {"MenuNAcc", "MenuA2X", "MenuA4X", "MenuA8X", "MenuA16X"}) {
    EXPECT_FALSE(Entry(name)->isChecked()) << name;
  }
  form->close();
  EXPECT_EQ(ReadFile(folder / "Bytewarp.cfg"), "#TRUE#,7,\"/\"\n");
  Start();
  Entry("MenuA2X")->trigger();
  form->close();
  EXPECT_EQ(ReadFile(folder / "Bytewarp.cfg"), "#TRUE#,1,\"/\"\n");
}

TEST_F(MainFormTest, NotAcceleratedLeavesAllButItsNeighbourChecked) {
  Start();
  ASSERT_TRUE(Entry("MenuA16X")->isChecked());
  Entry("MenuNAcc")->trigger();
  EXPECT_TRUE(Entry("MenuNAcc")->isChecked());
  EXPECT_TRUE(Entry("MenuA16X")->isChecked());
  EXPECT_EQ(form->State().AccelMode, 0);
  Entry("MenuA2X")->trigger();
  EXPECT_FALSE(Entry("MenuNAcc")->isChecked());
  EXPECT_FALSE(Entry("MenuA16X")->isChecked());
  EXPECT_TRUE(Entry("MenuA2X")->isChecked());
}

TEST_F(MainFormTest, HasEveryEntryUnderItsGivenCaption) {
  Start();
  const std::pair<const char*, const char*> entries[] = {{"sav", "Save As"},
                                                         {"sachnk", "Save Chunk"},
                                                         {"sachnk2", "Save Chunk"},
                                                         {"menucopy", "Copy"},
                                                         {"menucut", "Cut"},
                                                         {"menupasteBMS", "Insert Before Mark Start"},
                                                         {"menupasteAMS", "Insert after Mark Start"},
                                                         {"menuappend", "Append"},
                                                         {"MenuNAcc", "Not Accelerated"},
                                                         {"MenuA2X", "Acelerated up to 2X"},
                                                         {"MenuA4X", "Accelerated up to 4X"},
                                                         {"MenuA8X", "Accelerated up to 8X"},
                                                         {"MenuA16X", "Accelerated up to 16X"},
                                                         {"menusplitjoin", "Split&&Join"}};
  for (const auto& [name, caption] : entries) EXPECT_EQ(Entry(name)->text(), QString::fromLatin1(caption));
}

TEST_F(MainFormTest, KeepsCutBytesWhenTheProgramMustEnd) {
  StartOnFile(2048);
  EXPECT_EQ(form->RescueBuffer(), "");
  Entry("menucut")->trigger();
  const std::string note = form->RescueBuffer();
  ASSERT_EQ(temporary.Names().size(), 1U);
  EXPECT_NE(note.find(temporary / temporary.Names().front()), std::string::npos) << note;
  EXPECT_EQ(ReadFile(temporary / temporary.Names().front()), PatternBytes(2048));
}

}  // namespace
