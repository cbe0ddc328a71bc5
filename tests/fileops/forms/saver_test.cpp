#include "fileops/forms/saver.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>

#include "support/forms/dialog_checks.h"
#include "support/forms/list_clicks.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"

namespace {

using bwp::test::ClickRow;
using bwp::test::DoubleClickRow;
using bwp::test::ReadFile;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

class SaverTest : public testing::Test {
 protected:
  SaverTest() {
    (void)folder_.Write("open.bin", "0123456789");
    (void)folder_.Write("old.bin", "old");
    fs::create_directory(folder_ / "sub");
    bwp::OpenViewFile(state_, folder_ / "open.bin");
    state_.LastFolder = folder_.Path();
    state_.MarkStart = 2;
    state_.MarkEnd = 4;
  }

  void Open(const bwp::SaveTask& task) {
    saver_.Open(task);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&saver_));
  }
  template <typename Control>
  Control& Find(const char* name) {
    return *saver_.findChild<Control*>(QString::fromLatin1(name));
  }
  void Type(const std::string& name) {
    Find<QLineEdit>("Ftext").clear();
    QTest::keyClicks(&Find<QLineEdit>("Ftext"), QString::fromStdString(name));
  }
  void PressSave() { QTest::mouseClick(&Find<QPushButton>("Fsave"), Qt::LeftButton); }

  const bwp::test::TempFolder folder_;
  bwp::test::Transcript seen_;
  bwp::test::Transcript told_;
  bwp::test::RecordedDisplay display_{seen_};
  bwp::test::RecordedProgress progress_{seen_};
  bwp::test::RecordedNotices notices_{told_};
  const bwp::Disk disk_;
  bwp::Services services_{display_, progress_, notices_, disk_};
  bwp::ViewState state_;
  bwp::Saver saver_{state_, services_, nullptr};
};

TEST_F(SaverTest, TheCaptionTellsTheKindOfSaveAndTheRangeIsTaken) {
  EXPECT_EQ(saver_.objectName(), QStringLiteral("Saver"));
  Open(bwp::SaveAsTask(state_));
  EXPECT_EQ(saver_.windowTitle(), QStringLiteral("Save File as.."));
  EXPECT_EQ(saver_.from, 0);
  EXPECT_EQ(saver_.to, 9);
  EXPECT_FALSE(saver_.isModal());
  Open(bwp::SaveChunkTask(state_));
  EXPECT_EQ(saver_.windowTitle(), QStringLiteral("Save Chunk from  2 to  4"));
  EXPECT_EQ(saver_.from, 2);
  EXPECT_EQ(saver_.to, 4);
}

TEST_F(SaverTest, ShowsTheFilesOfTheLastFolder) {
  Open(bwp::SaveAsTask(state_));
  EXPECT_THAT(bwp::test::RowTexts(Find<QAbstractItemView>("Flist")), ElementsAre("old.bin", "open.bin"));
  EXPECT_NE(saver_.findChild<QComboBox*>(QStringLiteral("Drive1")), nullptr);
  EXPECT_EQ(Find<QPushButton>("Fsave").text(), QStringLiteral("Save"));
  EXPECT_EQ(Find<QPushButton>("Cancel").text(), QStringLiteral("Cancel"));
}

TEST_F(SaverTest, AChunkIsSavedUnderTheTypedNameAndTheOpenFileStays) {
  Open(bwp::SaveChunkTask(state_));
  Type("new.bin");
  PressSave();
  EXPECT_FALSE(saver_.isVisible());
  EXPECT_EQ(ReadFile(folder_ / "new.bin"), "234");
  EXPECT_EQ(state_.OpenFile, folder_ / "open.bin");
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_THAT(seen_, Contains("caption Saving to file "));
}

TEST_F(SaverTest, AfterASaveAsTheCopyIsTheOpenFile) {
  Open(bwp::SaveAsTask(state_));
  Type("copy.bin");
  QTest::keyClick(&Find<QLineEdit>("Ftext"), Qt::Key_Return);
  EXPECT_FALSE(saver_.isVisible());
  EXPECT_EQ(ReadFile(folder_ / "copy.bin"), "0123456789");
  EXPECT_EQ(state_.OpenFile, folder_ / "copy.bin");
}

TEST_F(SaverTest, TheRangeCanBeSetFromOutside) {
  Open(bwp::SaveChunkTask(state_));
  saver_.from = 7;
  saver_.to = 7;
  Type("one.bin");
  PressSave();
  EXPECT_EQ(ReadFile(folder_ / "one.bin"), "7");
}

TEST_F(SaverTest, AClickCopiesTheNameAndSaveAsksBeforeItOverwrites) {
  notices_.answer = false;
  Open(bwp::SaveChunkTask(state_));
  ClickRow(Find<QAbstractItemView>("Flist"), "old.bin");
  EXPECT_EQ(Find<QLineEdit>("Ftext").text(), QStringLiteral("old.bin"));
  PressSave();
  EXPECT_THAT(told_, ElementsAre("ask File  'old.bin'  exist, do you want to overwrite ?"));
  EXPECT_EQ(ReadFile(folder_ / "old.bin"), "old");
  notices_.answer = true;
  Open(bwp::SaveChunkTask(state_));
  PressSave();
  EXPECT_EQ(ReadFile(folder_ / "old.bin"), "234");
}

TEST_F(SaverTest, ADoubleClickSavesAtOnceWithAQuestionOfItsOwn) {
  Open(bwp::SaveChunkTask(state_));
  DoubleClickRow(Find<QAbstractItemView>("Flist"), "old.bin");
  EXPECT_THAT(told_, ElementsAre("ask File old.bin exist, do you want to overwrite"));
  EXPECT_FALSE(saver_.isVisible());
  EXPECT_EQ(ReadFile(folder_ / "old.bin"), "234");
}

TEST_F(SaverTest, SavesIntoTheFolderThatWasGoneTo) {
  Open(bwp::SaveChunkTask(state_));
  DoubleClickRow(Find<QAbstractItemView>("Dlist"), "sub");
  Type("deep.bin");
  PressSave();
  EXPECT_EQ(ReadFile(folder_ / "sub/deep.bin"), "234");
  EXPECT_EQ(state_.LastFolder, folder_ / "sub/");
}

TEST_F(SaverTest, ATypedPathFromTheRootStandsForItself) {
  Open(bwp::SaveChunkTask(state_));
  Type(folder_ / "sub/full.bin");
  PressSave();
  EXPECT_EQ(ReadFile(folder_ / "sub/full.bin"), "234");
}

TEST_F(SaverTest, AnAbortedSaveAsKeepsTheOpenFileAndClearsTheFlag) {
  progress_.CancelAtEvents(1);
  Open(bwp::SaveAsTask(state_));
  Type("short.bin");
  PressSave();
  EXPECT_EQ(state_.OpenFile, folder_ / "open.bin");
  EXPECT_FALSE(progress_.Aborted());
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(SaverTest, HidesOnlyWhenTheFileItWasOpenedForIsNoLongerWhatIsShown) {
  Open(bwp::SaveAsTask(state_));
  saver_.HideWhenStale();
  EXPECT_TRUE(saver_.isVisible());
  bwp::OpenViewFile(state_, folder_ / "old.bin");
  saver_.HideWhenStale();
  EXPECT_FALSE(saver_.isVisible());
  Open(bwp::SaveAsTask(state_));
  saver_.HideWhenStale();
  EXPECT_TRUE(saver_.isVisible());
}

TEST_F(SaverTest, WithoutANameThereIsNothingToSaveTo) {
  Open(bwp::SaveChunkTask(state_));
  EXPECT_FALSE(Find<QPushButton>("Fsave").isEnabled());
  QTest::keyClick(&Find<QLineEdit>("Ftext"), Qt::Key_Return);
  EXPECT_TRUE(saver_.isVisible());
  Type("x");
  EXPECT_TRUE(Find<QPushButton>("Fsave").isEnabled());
}

TEST_F(SaverTest, CancelAndEscapeHideWithoutSaving) {
  Open(bwp::SaveChunkTask(state_));
  Type("new.bin");
  QTest::mouseClick(&Find<QPushButton>("Cancel"), Qt::LeftButton);
  EXPECT_FALSE(saver_.isVisible());
  Open(bwp::SaveChunkTask(state_));
  QTest::keyClick(&Find<QLineEdit>("Ftext"), Qt::Key_Escape);
  EXPECT_FALSE(saver_.isVisible());
  EXPECT_THAT(folder_.Names(), ElementsAre("old.bin", "open.bin", "sub"));
}

TEST_F(SaverTest, IsTidyAtEverySize) {
  Open(bwp::SaveChunkTask(state_));
  bwp::test::ExpectTidyAtEverySize(saver_);
}

}  // namespace
