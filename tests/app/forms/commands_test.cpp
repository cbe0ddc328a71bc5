#include <gtest/gtest.h>

#include <QLineEdit>

#include "app/forms/main_form_fixture.h"
#include "support/forms/answer_box.h"

namespace {

using bwp::test::AnswerBoxes;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;

// What the entries and buttons of the whole form do to the file, one after the other.
class Commands : public bwp::test::MainFormTest {
 protected:
  void Fill(const char* field, const char* text) {
    auto* const box = Find<QLineEdit>(field);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QString::fromLatin1(text));
    QTest::keyClick(box, Qt::Key_Return);
  }
  void Mark(const char* start, const char* end) {
    Fill("mdend", end);
    Fill("mdstart", start);
  }
};

TEST_F(Commands, TheButtonCutCuts) {
  const std::string bytes = PatternBytes(1000);
  StartOnFile(bytes.size());
  Mark("10", "19");
  QTest::mouseClick(Button("Cut"), Qt::LeftButton);
  EXPECT_EQ(ReadFile(folder / "file.bin"), bytes.substr(0, 10) + bytes.substr(20));
  EXPECT_EQ(form->State().BufferData, bytes.substr(10, 10));
}

TEST_F(Commands, TheMenuInsertsBeforeMarkStart) {
  const std::string bytes = PatternBytes(1000);
  StartOnFile(bytes.size());
  Mark("10", "19");
  Entry("menucopy")->trigger();
  Mark("500", "600");
  AnswerBoxes boxes;
  Entry("menupasteBMS")->trigger();
  EXPECT_EQ(boxes.Lines(), std::vector<std::string>{"[Bytewarp] Insert Successful"});
  EXPECT_EQ(ReadFile(folder / "file.bin"), bytes.substr(0, 500) + bytes.substr(10, 10) + bytes.substr(500));
}

TEST_F(Commands, BothEntriesSaveTheChunk) {
  const std::string bytes = PatternBytes(1000);
  folder.Write("Bytewarp.cfg", "#TRUE#,4,\"" + folder.Path() + "\"\n");
  StartOnFile(bytes.size());
  Mark("10", "19");
  for (const char* name : {"sachnk", "sachnk2"}) {
    Entry(name)->trigger();
    auto* const saver = Find<QWidget>("Saver");
    EXPECT_EQ(saver->windowTitle(), QStringLiteral("Save Chunk from  10 to  19"));
    saver->findChild<QLineEdit*>(QStringLiteral("Ftext"))->setText(QString::fromLatin1(name));
    saver->findChild<QPushButton*>(QStringLiteral("Fsave"))->click();
    EXPECT_EQ(ReadFile(folder / name), bytes.substr(10, 10)) << name;
  }
}

TEST_F(Commands, BytesThatAreTypedAfterASearchStay) {
  StartOnFile(4096);
  auto* const Atext = Find<QLineEdit>("Atext");
  Atext->setFocus();
  QTest::keyClicks(Atext, QStringLiteral("0"));
  AnswerBoxes boxes;
  QTest::mouseClick(Button("Find"), Qt::LeftButton);
  QTest::mouseClick(Button("edit"), Qt::LeftButton);
  QWidget* const page = Find<QWidget>("tabe");
  QTest::keyClicks(page, QStringLiteral("5A"));
  QTest::qWait(50);
  EXPECT_EQ(Cell(0, 1), QStringLiteral("5A"));
  const auto place = static_cast<std::size_t>(form->State().SWStart);
  QTest::mouseClick(Button("edit"), Qt::LeftButton);
  EXPECT_EQ(ReadFile(folder / "file.bin").at(place), '\x5A');
}

TEST_F(Commands, ASaveOfTheEditThatIsGivenUpLeavesEditModeOn) {
  StartOnFile(1000);
  QTest::mouseClick(Button("edit"), Qt::LeftButton);
  QTest::keyClicks(Find<QWidget>("tabe"), QStringLiteral("5A"));
  AnswerBoxes boxes;
  QPushButton* const edit = Button("edit");
  QTest::mousePress(edit, Qt::LeftButton);
  QTest::mouseRelease(edit, Qt::LeftButton, {}, QPoint(-20, -20));
  QTest::mouseClick(edit, Qt::RightButton);
  EXPECT_TRUE(boxes.Seen().empty());
  EXPECT_EQ(edit->text(), QStringLiteral("Save"));
  EXPECT_EQ(Cell(0, 1), QStringLiteral("5A"));
  QTest::mouseClick(edit, Qt::LeftButton);
  EXPECT_EQ(boxes.Seen().size(), 1U);
  EXPECT_EQ(ReadFile(folder / "file.bin").front(), '\x5A');
}

}  // namespace
