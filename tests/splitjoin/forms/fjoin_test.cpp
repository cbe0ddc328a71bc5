#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>

#include "splitjoin/forms/tool_fixture.h"
#include "support/errors.h"
#include "support/forms/list_clicks.h"
#include "viewer/run_time_error.h"

namespace {

using bwp::test::ClickRow;
using bwp::test::DoubleClickRow;
using bwp::test::ReadFile;
using bwp::test::Wait;
using testing::ElementsAre;

class Fjoin : public bwp::test::SplitJoinToolTest {};

TEST_F(Fjoin, JoinsInTheOrderOfTheClicks) {
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

TEST_F(Fjoin, TakesAKeysMoveWithoutASelectionForNoPick) {
  for (const char* name : {"a", "b", "c"}) folder_.Write(name, name);
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "a");
  QTest::keyClick(&Files("Fjoin"), Qt::Key_Down, Qt::ControlModifier);
  QTest::keyClick(&Files("Fjoin"), Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(Names(), "\"a\" ");
  QTest::keyClick(&Files("Fjoin"), Qt::Key_Space, Qt::ControlModifier);
  EXPECT_EQ(Names(), "\"a\" \"c\" ");
}

TEST_F(Fjoin, PlacesOnlyTheClickedOneOfARange) {
  for (const char* name : {"a", "b", "c"}) folder_.Write(name, name);
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "a");
  ClickRow(Files("Fjoin"), "c", Qt::ShiftModifier);
  EXPECT_EQ(Names(), "\"a\" \"c\" ");
}

TEST_F(Fjoin, KeepsThePlaceOfAFileThatAPlainClickUnselects) {
  for (const char* name : {"a", "b", "c"}) folder_.Write(name, name);
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "c");
  ClickRow(Files("Fjoin"), "a");
  EXPECT_EQ(Names(), "\"c\" \"a\" ");
}

TEST_F(Fjoin, DropsTheFirstForARangesFileThatIsUnselected) {
  for (const char* name : {"a", "b", "c"}) folder_.Write(name, name);
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "a");
  ClickRow(Files("Fjoin"), "c", Qt::ShiftModifier);
  ClickRow(Files("Fjoin"), "b", Qt::ControlModifier);
  EXPECT_EQ(Names(), "\"c\" ");
}

TEST_F(Fjoin, StartsTheOrderAgainInAnotherFolder) {
  folder_.Write("a", "a");
  ASSERT_TRUE(QDir(QString::fromStdString(folder_.Path())).mkdir(QStringLiteral("inner")));
  folder_.Write("inner/b", "b");
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "a");
  DoubleClickRow(In<QAbstractItemView>("Fjoin", "Dlist"), "inner");
  EXPECT_EQ(Names(), "");
  ClickRow(Files("Fjoin"), "b");
  EXPECT_EQ(Names(), "\"b\" ");
}

TEST_F(Fjoin, KeepsATypedTextWhenTheListIsRefilled) {
  folder_.Write("a.001", "one");
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "a.001");
  Type("Fjoin", "Ftext", "b.001");
  Press("Fjoin", "Cancel");
  Press("Divide", "Join");
  EXPECT_EQ(Names(), "b.001");
}

TEST_F(Fjoin, PassesAnEmptyDestinationOnAsTheFolder) {
  folder_.Write("a.001", "one");
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "a.001");
  Press("Fjoin", "ActionB");
  EXPECT_EQ(Question(), "Join files as " + folder_.Path() + " ? ");
}

TEST_F(Fjoin, StartsTheOrderAgainWhenTheListIsFilled) {
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

TEST_F(Fjoin, KeepsTheOrderWhenFilesComeAndGo) {
  for (const char* name : {"b", "c", "d"}) folder_.Write(name, name);
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "d");
  ClickRow(Files("Fjoin"), "b", Qt::ControlModifier);
  folder_.Write("a", "new");
  Wait([this] { return Files("Fjoin").model()->rowCount() == 4; });
  ClickRow(Files("Fjoin"), "c", Qt::ControlModifier);
  EXPECT_EQ(Names(), "\"d\" \"b\" \"c\" ");
  ASSERT_EQ(unlink((folder_ / "b").c_str()), 0);
  Wait([this] { return Files("Fjoin").model()->rowCount() == 3; });
  ClickRow(Files("Fjoin"), "a", Qt::ControlModifier);
  EXPECT_EQ(Names(), "\"d\" \"c\" \"a\" ");
}

TEST_F(Fjoin, JoinsTheNamesThatAreShownAlsoWhenOneIsGone) {
  for (const char* name : {"a", "b", "c"}) folder_.Write(name, name);
  int error = 0;
  tool_.run = [&error](const auto& job) { error = bwp::test::ErrorNumberOf(job); };
  Press("Divide", "Join");
  ClickRow(Files("Fjoin"), "a");
  ClickRow(Files("Fjoin"), "b", Qt::ControlModifier);
  ClickRow(Files("Fjoin"), "c", Qt::ControlModifier);
  Type("Fjoin", "Dest", "all");
  ASSERT_EQ(unlink((folder_ / "b").c_str()), 0);
  Wait([this] { return Files("Fjoin").model()->rowCount() == 2; });
  ASSERT_EQ(Names(), "\"a\" \"b\" \"c\" ");
  Press("Fjoin", "ActionB");
  Press("Dialog", "OKButton");
  Wait([&error] { return error != 0; });
  EXPECT_EQ(error, bwp::kFileNotFound);
  EXPECT_FALSE(Told("Join successful"));
}

TEST_F(Fjoin, ShowsEveryNameOfALongList) {
  std::string expected;
  for (int i = 100; i < 240; ++i) {
    const std::string name = std::to_string(i) + std::string(250, 'x');
    folder_.Write(name, "x");
    expected += '"' + name + "\" ";
  }
  Press("Divide", "Join");
  QAbstractItemView& files = Files("Fjoin");
  for (int row = 0; row < files.model()->rowCount(); ++row) {
    const QModelIndex index = files.model()->index(row, 0);
    files.scrollTo(index);
    QTest::mouseClick(files.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      files.visualRect(index).center());
  }
  EXPECT_EQ(Names(), expected);
}

TEST_F(Fjoin, JoinsConsecutiveFilesFromTheOneThatIsDoubleClicked) {
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

TEST_F(Fjoin, JoinsATypedNameWithoutQuotes) {
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

TEST_F(Fjoin, JoinsTheWholeSelectionOnEnterInTheList) {
  for (const char* name : {"a.001", "b.001"}) folder_.Write(name, name);
  Press("Divide", "Join");
  Type("Fjoin", "Dest", "all");
  ClickRow(Files("Fjoin"), "b.001");
  ClickRow(Files("Fjoin"), "a.001", Qt::ControlModifier);
  QTest::keyClick(&Files("Fjoin"), Qt::Key_Return);
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Join successful"); });
  EXPECT_EQ(ReadFile(folder_ / "all"), "b.001a.001");
}

TEST_F(Fjoin, SaysThatAPickedNameWithAQuoteCannotBeJoined) {
  for (const char* name : {"a", "12\".001"}) folder_.Write(name, name);
  const std::string said = "[Error !] A file whose name holds a double quote cannot be joined (x)";
  Press("Divide", "Join");
  Type("Fjoin", "Dest", "all");
  ClickRow(Files("Fjoin"), "a");
  ClickRow(Files("Fjoin"), "12\".001", Qt::ControlModifier);
  Press("Fjoin", "ActionB");
  EXPECT_TRUE(Told(said));
  EXPECT_FALSE(Visible("Dialog"));
  seen_.clear();
  DoubleClickRow(Files("Fjoin"), "12\".001");
  EXPECT_TRUE(Told(said));
  EXPECT_FALSE(Visible("Dialog"));
  ClickRow(Files("Fjoin"), "a");
  seen_.clear();
  ClickRow(Files("Fjoin"), "12\".001", Qt::ControlModifier);
  ClickRow(Files("Fjoin"), "12\".001", Qt::ControlModifier);
  Press("Fjoin", "ActionB");
  EXPECT_TRUE(seen_.empty());
  EXPECT_TRUE(Visible("Dialog"));
}

TEST_F(Fjoin, JoinsFilesWhoseNamesAreNoUtf8) {
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

}  // namespace
