#include "splitjoin/forms/split_join_tool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTextEdit>

#include "splitjoin/help_text.h"
#include "support/forms/dialog_checks.h"
#include "support/forms/list_clicks.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/open_view_file.h"

namespace {

using bwp::test::ClickRow;
using bwp::test::DoubleClickRow;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::Wait;
using testing::Contains;
using testing::ElementsAre;

class SplitJoinTool : public testing::Test {
 protected:
  SplitJoinTool() {
    state_.LastFolder = folder_.Path();
    bwp::OpenViewFile(state_, sourceFolder_.Write("source", PatternBytes(1000)));
    tool_.Show();
  }

  // A form of the tool by its name; null before it is made.
  QWidget* Form(const char* name) { return owner_.findChild<QWidget*>(QLatin1String(name)); }
  bool Visible(const char* name) { return Form(name) != nullptr && Form(name)->isVisible(); }
  template <typename Control>
  Control& In(const char* form, const char* name) {
    return *Form(form)->findChild<Control*>(QLatin1String(name));
  }
  void Press(const char* form, const char* button) {
    QTest::mouseClick(&In<QPushButton>(form, button), Qt::LeftButton);
  }
  void Type(const char* form, const char* field, const std::string& text) {
    auto& line = In<QLineEdit>(form, field);
    line.setFocus();
    line.selectAll();
    QTest::keyClicks(&line, QString::fromStdString(text));
  }
  void SetPartSize(const char* size) {
    Type("Divide", "DChsize", size);
    QTest::keyClick(&In<QLineEdit>("Divide", "DChsize"), Qt::Key_Return);
  }
  std::string Names() { return In<QLineEdit>("Fjoin", "Ftext").text().toStdString(); }
  std::string Question() {
    return In<QWidget>("Dialog", "Warning").property("text").toString().toStdString();
  }
  bool Told(const std::string& text) const {
    return std::find(seen_.begin(), seen_.end(), "tell " + text) != seen_.end();
  }
  QAbstractItemView& Files(const char* form) { return In<QAbstractItemView>(form, "Flist"); }

  const bwp::test::TempFolder folder_;
  const bwp::test::TempFolder sourceFolder_;
  bwp::test::Transcript seen_;
  bwp::test::RecordedDisplay display_{seen_};
  bwp::test::RecordedProgress progress_{seen_};
  bwp::test::RecordedNotices notices_{seen_};
  const bwp::Disk disk_;
  bwp::ViewState state_;
  QWidget owner_;
  bwp::SplitJoinTool tool_{state_, {display_, progress_, notices_, disk_}, owner_};
};

TEST_F(SplitJoinTool, MakesItsFormsWhenTheyAreFirstNeeded) {
  EXPECT_TRUE(Visible("Divide"));
  for (const char* form : {"Fsel", "Fjoin", "Helpsplit", "Dialog"}) EXPECT_EQ(Form(form), nullptr) << form;
  Press("Divide", "Cancel");
  QWidget* const divide = Form("Divide");
  tool_.Show();
  EXPECT_EQ(Form("Divide"), divide);
  EXPECT_TRUE(Visible("Divide"));
}

TEST_F(SplitJoinTool, IsLaidOutTidily) {
  bwp::test::ExpectTidyAtEverySize(*Form("Divide"));
  Press("Divide", "Split");
  bwp::test::ExpectTidyAtEverySize(*Form("Fsel"));
  Press("Divide", "Join");
  bwp::test::ExpectTidyAtEverySize(*Form("Fjoin"));
  Press("Fjoin", "HelpSJ");
  bwp::test::ExpectTidy(*Form("Helpsplit"));
}

TEST_F(SplitJoinTool, SplitsTheOpenFileAfterAnOk) {
  SetPartSize("300");
  Press("Divide", "Split");
  EXPECT_EQ(bwp::ToPath(Form("Fsel")->windowTitle()),
            "Split file: " + state_.OpenFile + " in chunks of  300 Bytes");
  EXPECT_EQ(In<QPushButton>("Fsel", "ActionB").text(), QStringLiteral("Split"));
  Type("Fsel", "Ftext", "part");
  Press("Fsel", "ActionB");
  EXPECT_EQ(Question(), "Split current file ?");
  QTest::qWait(50);
  EXPECT_TRUE(folder_.Names().empty()) << "the question waits";
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Split successfully completed"); });
  EXPECT_THAT(folder_.Names(), ElementsAre("part.000", "part.001", "part.002", "part.003"));
  EXPECT_FALSE(Visible("Fsel"));
  EXPECT_TRUE(Visible("Divide"));
}

TEST_F(SplitJoinTool, DoesNothingAfterACancel) {
  Press("Divide", "Split");
  Type("Fsel", "Ftext", "part");
  Press("Fsel", "ActionB");
  Press("Dialog", "CancelButton");
  QTest::qWait(60);
  EXPECT_TRUE(folder_.Names().empty());
  EXPECT_TRUE(Visible("Fsel"));
  EXPECT_TRUE(seen_.empty());
}

TEST_F(SplitJoinTool, DeletesTheOldPartsAndSplitsAfterOneOk) {
  for (const char* name : {"part000", "part001", "part002", "part004"}) folder_.Write(name, "old");
  SetPartSize("500");
  Press("Divide", "Split");
  ClickRow(Files("Fsel"), "part000");
  EXPECT_EQ(In<QLineEdit>("Fsel", "Ftext").text(), QStringLiteral("part000"));
  Press("Fsel", "ActionB");
  EXPECT_EQ(Question(),
            "Warning, file " + (folder_ / "part000") +
                " exist, going ahead will delete it and every other files of the previous splitting");
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Split successfully completed"); });
  EXPECT_THAT(folder_.Names(), ElementsAre("part000", "part001", "part004"));
  EXPECT_EQ(ReadFile(folder_ / "part001"), PatternBytes(1000).substr(500));
}

TEST_F(SplitJoinTool, AsksForTheNameThatIsDoubleClicked) {
  folder_.Write("a000", "old");
  folder_.Write("b000", "old");
  Press("Divide", "Split");
  ClickRow(Files("Fsel"), "a000");
  DoubleClickRow(Files("Fsel"), "b000");
  EXPECT_THAT(Question(), testing::HasSubstr("b000 exist"));
}

TEST_F(SplitJoinTool, JoinsInTheOrderOfTheClicks) {
  for (const char* name : {"a", "b", "c"}) folder_.Write(name, name);
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "c");
  ClickRow(Files("Fjoin"), "a", Qt::ControlModifier);
  ClickRow(Files("Fjoin"), "b", Qt::ControlModifier);
  EXPECT_EQ(Names(), "\"c\" \"a\" \"b\" ");
  ClickRow(Files("Fjoin"), "a", Qt::ControlModifier);
  EXPECT_EQ(Names(), "\"c\" \"b\" ");
  ClickRow(Files("Fjoin"), "a", Qt::ControlModifier);
  EXPECT_EQ(Names(), "\"c\" \"b\" \"a\" ");
  Type("Fjoin", "Dest", "all");
  Press("Fjoin", "ActionB");
  EXPECT_EQ(Question(), "Join files as " + (folder_ / "all") + " ? ");
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Join successful"); });
  EXPECT_EQ(ReadFile(folder_ / "all"), "cba");
  EXPECT_EQ(state_.OpenFile, folder_ / "all");
  EXPECT_FALSE(Visible("Divide"));
  EXPECT_FALSE(Visible("Fjoin"));
}

TEST_F(SplitJoinTool, PlacesOnlyTheClickedOneOfARange) {
  for (const char* name : {"a", "b", "c"}) folder_.Write(name, name);
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "a");
  ClickRow(Files("Fjoin"), "c", Qt::ShiftModifier);
  EXPECT_EQ(Names(), "\"a\" \"c\" ");
}

TEST_F(SplitJoinTool, StartsTheOrderAnewWhenTheListIsFilled) {
  for (const char* name : {"a", "b"}) folder_.Write(name, name);
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "b");
  Press("Fjoin", "Cancel");
  EXPECT_FALSE(Visible("Fjoin"));
  Press("Divide", "Join");
  EXPECT_EQ(Names(), "");
  ClickRow(Files("Fjoin"), "a");
  EXPECT_EQ(Names(), "\"a\" ");
}

TEST_F(SplitJoinTool, KeepsTheOrderWhenFilesComeAndGo) {
  for (const char* name : {"b", "c", "d"}) folder_.Write(name, name);
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "d");
  ClickRow(Files("Fjoin"), "b", Qt::ControlModifier);
  folder_.Write("a", "new");
  Wait([this] { return Files("Fjoin").model()->rowCount() == 4; });
  ClickRow(Files("Fjoin"), "c", Qt::ControlModifier);
  EXPECT_EQ(Names(), "\"d\" \"b\" \"c\" ");
}

TEST_F(SplitJoinTool, JoinsConsecutiveFilesFromTheOneThatIsDoubleClicked) {
  for (const char* name : {"x.005", "x.006", "y"}) folder_.Write(name, name);
  folder_.Write("all", "old");
  Press("Divide", "Join");
  Type("Fjoin", "Dest", "all");
  ClickRow(Files("Fjoin"), "y");
  DoubleClickRow(Files("Fjoin"), "x.005");
  EXPECT_EQ(Question(), "Warning, file " + (folder_ / "all") + " exists, do you want to overwrite ? ");
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Join successful"); });
  EXPECT_EQ(ReadFile(folder_ / "all"), "x.005x.006");
}

TEST_F(SplitJoinTool, JoinsATypedNameWithoutQuotes) {
  folder_.Write("a.001", "one");
  folder_.Write("a.002", "two");
  Press("Divide", "Join");
  Type("Fjoin", "Ftext", "a.001");
  Type("Fjoin", "Dest", "all");
  Press("Fjoin", "ActionB");
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Join successful"); });
  EXPECT_EQ(ReadFile(folder_ / "all"), "onetwo");
}

TEST_F(SplitJoinTool, JoinsFilesWhoseNamesAreNoUtf8) {
  folder_.Write("\xE4.001", "one");
  Press("Divide", "Join");
  const auto& files = Files("Fjoin");
  const QRect row = files.visualRect(files.model()->index(0, 0));
  QTest::mouseClick(files.viewport(), Qt::LeftButton, {}, row.center());
  Type("Fjoin", "Dest", "all");
  Press("Fjoin", "ActionB");
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Join successful"); });
  EXPECT_EQ(ReadFile(folder_ / "all"), "one");
}

TEST_F(SplitJoinTool, LetsAConfirmedJobWaitUntilItMayRun) {
  bool editing = true;
  tool_.mayRun = [&editing] { return !editing; };
  SetPartSize("500");
  Press("Divide", "Split");
  Type("Fsel", "Ftext", "part");
  Press("Fsel", "ActionB");
  Press("Dialog", "OKButton");
  QTest::qWait(60);
  EXPECT_TRUE(folder_.Names().empty());
  editing = false;
  Wait([this] { return Told("Split successfully completed"); });
  EXPECT_THAT(folder_.Names(), ElementsAre("part.000", "part.001"));
}

TEST_F(SplitJoinTool, HelpsUnderTheTitleOfTheHelpButton) {
  Press("Divide", "Split");
  Press("Fsel", "HelpSJ");
  EXPECT_TRUE(Visible("Helpsplit"));
  EXPECT_EQ(Form("Helpsplit")->windowTitle(), QStringLiteral("Split & Join Help"));
  auto& text = In<QTextEdit>("Helpsplit", "HelpText");
  EXPECT_TRUE(text.isReadOnly());
  EXPECT_EQ(text.toPlainText().remove(QLatin1Char('\r')),
            bwp::FromCodePage(bwp::SplitJoinHelp()).remove(QLatin1Char('\r')));
  const bwp::Helpsplit fresh(nullptr);
  EXPECT_EQ(fresh.windowTitle(), QStringLiteral("Split and Join Help"));
}

}  // namespace
