#include "viewer/forms/file_lists.h"

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

#include <QDialog>
#include <QTest>
#include <QVBoxLayout>

#include "support/forms/list_clicks.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/volumes.h"

namespace {

using bwp::FileLists;
using bwp::test::ClickRow;
using bwp::test::DoubleClickRow;
using bwp::test::RowTexts;
using bwp::test::Wait;
using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

// A dialog that holds nothing but the lists, on a folder of its own:
// top/ with b.bin, a.bin and the subfolders inner/ (with deep.bin) and Other/.
class FileListsTest : public testing::Test {
 protected:
  FileListsTest() {
    fs::create_directories(folder_ / "top/inner");
    fs::create_directories(folder_ / "top/Other");
    for (const char* name : {"top/b.bin", "top/a.bin", "top/inner/deep.bin"}) (void)folder_.Write(name, "x");
    state_.LastFolder = Top();
  }

  void Show(FileLists::Selection selection = FileLists::Selection::kOne) {
    lists_ = std::make_unique<FileLists>(state_, notices_, dialog_, selection);
    auto* column = new QVBoxLayout(&dialog_);
    column->addWidget(&lists_->Drive());
    column->addWidget(&lists_->Folders());
    column->addWidget(&lists_->Files());
    lists_->ShowLastFolder();
    dialog_.resize(400, 600);
    dialog_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog_));
    QObject::connect(
        lists_.get(), &FileLists::FilePicked, &dialog_,
        [this](int row, const std::string& name) { heard_.push_back(std::to_string(row) + " " + name); });
    QObject::connect(lists_.get(), &FileLists::FileChosen, &dialog_,
                     [this](const std::string& name) { heard_.push_back("chosen " + name); });
    QObject::connect(lists_.get(), &FileLists::Filled, &dialog_, [this] { heard_.push_back("filled"); });
    QObject::connect(lists_.get(), &FileLists::FilesChanged, &dialog_,
                     [this] { heard_.push_back("changed"); });
  }

  std::string Top() const { return folder_ / "top/"; }
  std::vector<std::string> Files() const { return RowTexts(lists_->Files()); }
  // The folder list's rows below those that lead to the folder shown.
  std::vector<std::string> Subfolders() const {
    const std::vector<std::string> rows = RowTexts(lists_->Folders());
    const auto above = std::count(state_.LastFolder.begin(), state_.LastFolder.end(), '/');
    return {rows.begin() + above, rows.end()};
  }
  void Choose(const QString& drive) {
    lists_->Drive().addItem(drive);
    lists_->Drive().setFocus();
    while (lists_->Drive().currentText() != drive) {
      const int before = lists_->Drive().currentIndex();
      QTest::keyClick(&lists_->Drive(), Qt::Key_End);
      if (lists_->Drive().currentIndex() == before) break;
    }
  }

  // A press that lasts until Release, on a file's row.
  void Press(const std::string& name) {
    const std::vector<std::string> names = Files();
    const auto row = std::find(names.begin(), names.end(), name) - names.begin();
    pressed_ = lists_->Files().visualRect(lists_->Files().model()->index(static_cast<int>(row), 0)).center();
    QTest::mousePress(lists_->Files().viewport(), Qt::LeftButton, {}, pressed_);
  }
  void Release() { QTest::mouseRelease(lists_->Files().viewport(), Qt::LeftButton, {}, pressed_); }
  QPoint BesideTheRows() const { return lists_->Files().viewport()->rect().bottomLeft() - QPoint(-5, 5); }

  const bwp::test::TempFolder folder_;
  bwp::test::Transcript told_;
  bwp::test::RecordedNotices notices_{told_};
  bwp::ViewState state_;
  std::vector<std::string> heard_;
  QDialog dialog_;
  std::unique_ptr<FileLists> lists_;
  QPoint pressed_;
};

TEST_F(FileListsTest, TheThreeHaveTheirNames) {
  Show();
  EXPECT_EQ(dialog_.findChild<QComboBox*>(QStringLiteral("Drive1")), &lists_->Drive());
  EXPECT_EQ(dialog_.findChild<QAbstractItemView*>(QStringLiteral("Dlist")), &lists_->Folders());
  EXPECT_EQ(dialog_.findChild<QAbstractItemView*>(QStringLiteral("Flist")), &lists_->Files());
}

TEST_F(FileListsTest, TheFolderListShowsTheWayFromTheRootAndTheSubfolders) {
  Show();
  const std::vector<std::string> rows = RowTexts(lists_->Folders());
  EXPECT_EQ(rows.at(0), "/");
  EXPECT_THAT(std::vector<std::string>(rows.end() - 3, rows.end()), ElementsAre("top", "inner", "Other"));
  EXPECT_EQ(lists_->Folders().currentIndex().data().toString(), QStringLiteral("top"));
  EXPECT_THAT(Files(), ElementsAre("a.bin", "b.bin"));
}

TEST_F(FileListsTest, ADoubleClickGoesIntoASubfolderAndBackToAFolderAbove) {
  Show();
  DoubleClickRow(lists_->Folders(), "inner");
  EXPECT_EQ(state_.LastFolder, Top() + "inner/");
  EXPECT_THAT(Files(), ElementsAre("deep.bin"));
  EXPECT_THAT(Subfolders(), IsEmpty());
  DoubleClickRow(lists_->Folders(), "top");
  EXPECT_EQ(state_.LastFolder, Top());
  DoubleClickRow(lists_->Folders(), "/");
  EXPECT_EQ(state_.LastFolder, "/");
  EXPECT_THAT(heard_, ElementsAre("filled", "filled", "filled"));
}

TEST_F(FileListsTest, ASingleClickOnAFolderOnlySelectsIt) {
  Show();
  ClickRow(lists_->Folders(), "inner");
  EXPECT_EQ(state_.LastFolder, Top());
  EXPECT_THAT(heard_, IsEmpty());
}

TEST_F(FileListsTest, EnterGoesIntoTheFolderAndBackspaceUp) {
  Show();
  ClickRow(lists_->Folders(), "inner");
  QTest::keyClick(&lists_->Folders(), Qt::Key_Return);
  EXPECT_EQ(state_.LastFolder, Top() + "inner/");
  QTest::keyClick(&lists_->Folders(), Qt::Key_Backspace);
  EXPECT_EQ(state_.LastFolder, Top());
  EXPECT_TRUE(dialog_.isVisible()) << "Enter is not the dialog's";
}

TEST_F(FileListsTest, BackspaceAtTheRootStaysThere) {
  state_.LastFolder = "/";
  Show();
  QTest::keyClick(&lists_->Folders(), Qt::Key_Backspace);
  EXPECT_EQ(state_.LastFolder, "/");
}

TEST_F(FileListsTest, AClickOrTheArrowKeysPickAFile) {
  Show();
  ClickRow(lists_->Files(), "b.bin");
  QTest::keyClick(&lists_->Files(), Qt::Key_Up);
  EXPECT_THAT(heard_, ElementsAre("1 b.bin", "0 a.bin"));
}

TEST_F(FileListsTest, ADoubleClickOrEnterChoosesAFile) {
  Show();
  DoubleClickRow(lists_->Files(), "b.bin");
  EXPECT_THAT(heard_, ElementsAre("1 b.bin", "chosen b.bin"));
  QTest::keyClick(&lists_->Files(), Qt::Key_Enter);
  EXPECT_THAT(heard_, ElementsAre("1 b.bin", "chosen b.bin", "chosen b.bin"));
}

TEST_F(FileListsTest, ALastFolderThatIsGoneShowsTheNearestOneThatIsThere) {
  state_.LastFolder = Top() + "gone/too/";
  Show();
  EXPECT_EQ(state_.LastFolder, Top());
  EXPECT_THAT(Files(), ElementsAre("a.bin", "b.bin"));
}

TEST_F(FileListsTest, TheDriveShownIsTheOneThatHoldsTheFolder) {
  Show();
  const std::string volume = bwp::VolumeOf(bwp::Volumes(), Top());
  ASSERT_FALSE(volume.empty());
  EXPECT_EQ(bwp::ToPath(lists_->Drive().currentText()), volume);
  EXPECT_NE(lists_->Drive().findText(QStringLiteral("/"), Qt::MatchExactly), -1) << "all volumes are there";
}

TEST_F(FileListsTest, AnotherDriveShowsItsTopFolder) {
  Show();
  Choose(bwp::FromPath(Top() + "inner"));
  EXPECT_EQ(state_.LastFolder, Top() + "inner/");
  EXPECT_THAT(Files(), ElementsAre("deep.bin"));
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(FileListsTest, ADriveThatCannotBeReadIsToldAndWhatWasShownStays) {
  Show();
  const QString before = lists_->Drive().currentText();
  Choose(QStringLiteral("/no such drive"));
  EXPECT_THAT(told_, ElementsAre("tell [System Message] Drive is not present (!)"));
  EXPECT_EQ(lists_->Drive().currentText(), before);
  EXPECT_EQ(state_.LastFolder, Top());
  EXPECT_THAT(Files(), ElementsAre("a.bin", "b.bin"));
}

TEST_F(FileListsTest, FilesAndFoldersThatComeAndGoAreFollowed) {
  Show();
  ClickRow(lists_->Files(), "b.bin");
  (void)folder_.Write("top/aa.bin", "x");
  fs::create_directory(Top() + "middle");
  Wait([this] { return Files().size() == 3 && Subfolders().size() == 3; });
  EXPECT_THAT(Files(), ElementsAre("a.bin", "aa.bin", "b.bin"));
  EXPECT_THAT(Subfolders(), ElementsAre("inner", "middle", "Other"));
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(2)) << "the selection stays on its file";
  fs::remove(Top() + "a.bin");
  fs::remove_all(Top() + "inner");
  Wait([this] { return Files().size() == 2 && Subfolders().size() == 2; });
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(1));
  EXPECT_THAT(heard_, testing::Contains("changed"));
}

TEST_F(FileListsTest, AFolderThatVanishesGivesWayToTheOneAbove) {
  Show();
  DoubleClickRow(lists_->Folders(), "inner");
  fs::remove_all(Top() + "inner");
  Wait([this] { return state_.LastFolder == Top(); });
  EXPECT_THAT(Subfolders(), ElementsAre("Other"));
}

TEST_F(FileListsTest, ASubfolderThatCannotBeReadIsToldAndNotEntered) {
  Show();
  dialog_.hide();  // The disk is not followed now.
  fs::remove_all(Top() + "inner");
  DoubleClickRow(lists_->Folders(), "inner");
  EXPECT_THAT(told_, ElementsAre("tell [Error !] Folder cannot be read (x)"));
  EXPECT_EQ(state_.LastFolder, Top());
  EXPECT_THAT(Subfolders(), ElementsAre("Other"));
}

TEST_F(FileListsTest, ActivationBringsTheListsToTheFolderThatAnotherDialogWentTo) {
  Show();
  state_.LastFolder = Top() + "inner/";
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(&dialog_, &activation);
  EXPECT_THAT(Files(), ElementsAre("deep.bin"));
}

TEST_F(FileListsTest, NamesThatAreNoTextSurvive) {
  const std::string file =
      "\xFF"
      "a&b <i>";
  const std::string sub = "sub\x80";
  fs::create_directory(Top() + sub);
  (void)folder_.Write("top/" + sub + "/" + file, "x");
  Show();
  DoubleClickRow(lists_->Folders(), bwp::FromPath(sub).toStdString());
  EXPECT_EQ(state_.LastFolder, Top() + sub + "/");
  EXPECT_THAT(lists_->FileNames(), ElementsAre(file));
  QTest::keyClick(&lists_->Files(), Qt::Key_Down);
  EXPECT_THAT(heard_, ElementsAre("filled", "0 " + file));
  (void)folder_.Write("top/" + sub + "/zz", "x");
  Wait([this] { return Files().size() == 2; });
}

TEST_F(FileListsTest, OneSelectionGivesWayToTheNext) {
  Show();
  ClickRow(lists_->Files(), "a.bin");
  ClickRow(lists_->Files(), "b.bin", Qt::ControlModifier);
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(1));
}

TEST_F(FileListsTest, ManyAreSelectedWithControlAndShift) {
  (void)folder_.Write("top/c.bin", "x");
  Show(FileLists::Selection::kMany);
  ClickRow(lists_->Files(), "c.bin");
  ClickRow(lists_->Files(), "a.bin", Qt::ControlModifier);
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(0, 2));
  ClickRow(lists_->Files(), "c.bin", Qt::ControlModifier);
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(0));
  ClickRow(lists_->Files(), "a.bin");
  ClickRow(lists_->Files(), "c.bin", Qt::ShiftModifier);
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(0, 1, 2));
  EXPECT_THAT(heard_, ElementsAre("2 c.bin", "0 a.bin", "2 c.bin", "0 a.bin", "2 c.bin"));
}

TEST_F(FileListsTest, DraggingDoesNotSelect) {
  Show(FileLists::Selection::kMany);
  QListView& files = lists_->Files();
  const QPoint from = files.visualRect(files.model()->index(0, 0)).center();
  const QPoint to = files.visualRect(files.model()->index(1, 0)).center();
  QTest::mousePress(files.viewport(), Qt::LeftButton, {}, from);
  QMouseEvent drag(QEvent::MouseMove, to, files.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                   {});
  QApplication::sendEvent(files.viewport(), &drag);
  QTest::mouseRelease(files.viewport(), Qt::LeftButton, {}, to);
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(0));
  EXPECT_THAT(heard_, ElementsAre("0 a.bin"));
}

TEST_F(FileListsTest, ARowThatVanishesUnderThePressIsNotPicked) {
  Show();
  Press("b.bin");
  fs::remove(Top() + "b.bin");
  lists_->FollowDisk();
  Release();
  EXPECT_THAT(heard_, ElementsAre("changed"));
}

TEST_F(FileListsTest, ARowThatMovesUnderThePressIsPickedWhereItIsNow) {
  Show();
  Press("a.bin");
  (void)folder_.Write("top/Aa.bin", "x");
  (void)folder_.Write("top/0.bin", "x");
  lists_->FollowDisk();
  Release();
  EXPECT_THAT(heard_, ElementsAre("changed", "1 a.bin"));
}

TEST_F(FileListsTest, APressWhoseReleaseNeverCameIsForgotten) {
  Show();
  Press("b.bin");
  QTest::mouseClick(lists_->Files().viewport(), Qt::LeftButton, {}, BesideTheRows());
  EXPECT_THAT(heard_, IsEmpty());
}

TEST_F(FileListsTest, TheOtherMouseButtonsNeitherSelectNorPick) {
  Show(FileLists::Selection::kMany);
  ClickRow(lists_->Files(), "a.bin");
  QListView& files = lists_->Files();
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseClick(files.viewport(), button, {}, files.visualRect(files.model()->index(1, 0)).center());
  }
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(0));
  EXPECT_THAT(heard_, ElementsAre("0 a.bin"));
}

TEST_F(FileListsTest, KeysThatOnlyMoveAboutPickNothing) {
  (void)folder_.Write("top/c.bin", "x");
  Show(FileLists::Selection::kMany);
  ClickRow(lists_->Files(), "a.bin");
  QTest::keyClick(&lists_->Files(), Qt::Key_Down, Qt::ControlModifier);
  QTest::keyClick(&lists_->Files(), Qt::Key_Down, Qt::ControlModifier);
  EXPECT_THAT(heard_, ElementsAre("0 a.bin"));
  QTest::keyClick(&lists_->Files(), Qt::Key_Space, Qt::ControlModifier);
  EXPECT_THAT(heard_, ElementsAre("0 a.bin", "2 c.bin"));
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(0, 2));
}

TEST_F(FileListsTest, AMoveWithoutSelectingStaysOneWhenNothingIsSelected) {
  Show(FileLists::Selection::kMany);
  ClickRow(lists_->Files(), "a.bin");
  QTest::keyClick(&lists_->Files(), Qt::Key_Space, Qt::ControlModifier);
  QTest::keyClick(&lists_->Files(), Qt::Key_Down, Qt::ControlModifier);
  EXPECT_THAT(lists_->SelectedRows(), IsEmpty());
  EXPECT_EQ(lists_->Files().currentIndex().row(), 1);
}

TEST_F(FileListsTest, AClickBesideTheRowsKeepsTheSelection) {
  Show(FileLists::Selection::kMany);
  ClickRow(lists_->Files(), "a.bin");
  QTest::mouseClick(lists_->Files().viewport(), Qt::LeftButton, {}, BesideTheRows());
  EXPECT_THAT(lists_->SelectedRows(), ElementsAre(0));
  EXPECT_THAT(heard_, ElementsAre("0 a.bin"));
}

}  // namespace
