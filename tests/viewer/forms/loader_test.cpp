#include "viewer/forms/loader.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>

#include "support/forms/dialog_checks.h"
#include "support/forms/list_clicks.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"
#include "viewer/refresh.h"

namespace {

using bwp::test::ClickRow;
using bwp::test::DoubleClickRow;
using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

class LoaderTest : public testing::Test {
 protected:
  LoaderTest() {
    (void)folder_.Write("small.bin", "0123456789");
    (void)folder_.Write("empty.bin", "");
    fs::create_directory(folder_ / "sub");
    (void)folder_.Write("sub/inner.bin", "abc");
    (void)folder_.Write("open.bin", "what was open");
    bwp::OpenViewFile(state_, folder_ / "open.bin");
    state_.LastFolder = folder_.Path();
    loader_.Open();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&loader_));
    state_.tabe.Clear();
  }

  template <typename Control>
  Control& Find(const char* name) {
    return *loader_.findChild<Control*>(QString::fromLatin1(name));
  }
  void Type(const std::string& name) {
    Find<QLineEdit>("Ftext").setFocus();
    Find<QLineEdit>("Ftext").clear();
    QTest::keyClicks(&Find<QLineEdit>("Ftext"), QString::fromStdString(name));
  }
  void PressOpen() { QTest::mouseClick(&Find<QPushButton>("Fload"), Qt::LeftButton); }
  bool Refreshed() const { return std::count(seen_.begin(), seen_.end(), "window texts") > 0; }

  const bwp::test::TempFolder folder_;
  bwp::test::Transcript seen_;
  bwp::test::Transcript told_;
  bwp::test::RecordedDisplay display_{seen_};
  bwp::test::RecordedNotices notices_{told_};
  bwp::ViewState state_;
  bwp::Loader loader_{state_, display_, notices_, nullptr};
};

TEST_F(LoaderTest, IsShownOnTheLastFolderWithItsControls) {
  EXPECT_EQ(loader_.objectName(), QStringLiteral("Loader"));
  EXPECT_EQ(loader_.windowTitle(), QStringLiteral("Open File"));
  EXPECT_FALSE(loader_.isModal());
  EXPECT_THAT(bwp::test::RowTexts(Find<QAbstractItemView>("Flist")),
              ElementsAre("empty.bin", "open.bin", "small.bin"));
  EXPECT_NE(loader_.findChild<QComboBox*>(QStringLiteral("Drive1")), nullptr);
  EXPECT_EQ(Find<QPushButton>("Fload").text(), QStringLiteral("Open"));
  EXPECT_EQ(Find<QPushButton>("Cancel").text(), QStringLiteral("Cancel"));
}

TEST_F(LoaderTest, AClickOnANameCopiesItAndShowsItsSize) {
  ClickRow(Find<QAbstractItemView>("Flist"), "small.bin");
  EXPECT_EQ(Find<QLineEdit>("Ftext").text(), QStringLiteral("small.bin"));
  EXPECT_EQ(Find<QLabel>("Labsize").text(), QStringLiteral("10 Bytes"));
  EXPECT_TRUE(loader_.isVisible());
  EXPECT_EQ(state_.OpenFile, folder_ / "open.bin");
}

TEST_F(LoaderTest, TypingAnotherNameTakesTheSizeAway) {
  ClickRow(Find<QAbstractItemView>("Flist"), "small.bin");
  QTest::keyClicks(&Find<QLineEdit>("Ftext"), QStringLiteral("x"));
  EXPECT_EQ(Find<QLabel>("Labsize").text(), QString());
}

TEST_F(LoaderTest, AnotherFolderTakesTheSizeAway) {
  ClickRow(Find<QAbstractItemView>("Flist"), "small.bin");
  ASSERT_FALSE(Find<QLabel>("Labsize").text().isEmpty());
  DoubleClickRow(Find<QAbstractItemView>("Dlist"), "sub");
  EXPECT_EQ(Find<QLabel>("Labsize").text(), QString());
}

TEST_F(LoaderTest, OpeningEndsWhatWasTypedMeanwhileSoThatTheFileIsSeen) {
  state_.FieldTyping = true;
  Type("small.bin");
  PressOpen();
  EXPECT_FALSE(state_.FieldTyping);
  EXPECT_TRUE(Refreshed());
}

TEST_F(LoaderTest, AsksBeforeItActsWhetherItMay) {
  loader_.run = [](const std::function<void()>& /*action*/) {};
  Type("small.bin");
  PressOpen();
  DoubleClickRow(Find<QAbstractItemView>("Flist"), "small.bin");
  EXPECT_EQ(state_.OpenFile, folder_ / "open.bin");
  EXPECT_TRUE(loader_.isVisible());
}

TEST_F(LoaderTest, ADoubleClickOpensTheFileAndRefreshes) {
  DoubleClickRow(Find<QAbstractItemView>("Flist"), "small.bin");
  EXPECT_FALSE(loader_.isVisible());
  EXPECT_EQ(state_.OpenFile, folder_ / "small.bin");
  EXPECT_EQ(state_.FLen, 10);
  EXPECT_EQ(state_.MarkEnd, 9);
  EXPECT_TRUE(Refreshed());
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(LoaderTest, TheButtonOpensTheTypedName) {
  Type("small.bin");
  PressOpen();
  EXPECT_FALSE(loader_.isVisible());
  EXPECT_EQ(state_.OpenFile, folder_ / "small.bin");
  EXPECT_TRUE(Refreshed());
}

TEST_F(LoaderTest, EnterInTheNameBoxOpensToo) {
  Type("small.bin");
  QTest::keyClick(&Find<QLineEdit>("Ftext"), Qt::Key_Return);
  EXPECT_EQ(state_.OpenFile, folder_ / "small.bin");
  EXPECT_FALSE(loader_.isVisible());
}

TEST_F(LoaderTest, ANameInASubfolderOpensThereAndThatFolderIsTheLastOne) {
  Type("sub/inner.bin");
  PressOpen();
  EXPECT_EQ(state_.OpenFile, folder_ / "sub/inner.bin");
  EXPECT_EQ(state_.LastFolder, folder_ / "sub/");
}

TEST_F(LoaderTest, ATypedPathFromTheRootStandsForItselfAndItsFolderIsTheLastOne) {
  state_.LastFolder = "/";
  loader_.Open();
  Type(folder_ / "small.bin");
  PressOpen();
  EXPECT_EQ(state_.OpenFile, folder_ / "small.bin");
  EXPECT_EQ(state_.LastFolder, folder_.Path());
}

TEST_F(LoaderTest, AnEmptyFileIsOpenedAndToldAndTheDialogComesBack) {
  seen_.clear();
  DoubleClickRow(Find<QAbstractItemView>("Flist"), "empty.bin");
  EXPECT_THAT(told_, ElementsAre("tell [Error !] FIle has dimension 0 (x)"));
  EXPECT_TRUE(loader_.isVisible());
  EXPECT_EQ(state_.OpenFile, folder_ / "empty.bin");
  EXPECT_EQ(state_.FLen, 0);
  EXPECT_EQ(state_.MarkEnd, 12) << "the marks are those of the file before";
  EXPECT_FALSE(Refreshed());
}

TEST_F(LoaderTest, NothingOfTheFileBeforeStaysInViewOfAnEmptyOne) {
  bwp::Refresh(state_, display_);
  seen_.clear();
  Type("empty.bin");
  PressOpen();
  EXPECT_THAT(seen_, ElementsAre("redraw on", "thumb", "title"));
  EXPECT_THAT(display_.title, testing::HasSubstr("empty.bin (0 Bytes)"));
}

TEST_F(LoaderTest, ANameThatNamesNoFileIsToldAndWhatWasOpenStaysOpen) {
  for (const char* name : {"nothing.bin", "sub", "", "sub/nothing"}) {
    told_.clear();
    Type(name);
    PressOpen();
    EXPECT_THAT(told_, ElementsAre("tell [Error !] File not found (x)")) << name;
    EXPECT_TRUE(loader_.isVisible());
    EXPECT_EQ(state_.OpenFile, folder_ / "open.bin");
    EXPECT_EQ(state_.LastFolder, folder_.Path());
  }
}

TEST_F(LoaderTest, AFileOverTheLimitIsToldAndWhatWasOpenStaysOpen) {
  fs::resize_file(folder_.Write("huge.bin", ""), 2'147'483'648);
  Type("huge.bin");
  PressOpen();
  EXPECT_THAT(told_, ElementsAre("tell [Error !] File is too large (the limit is 2.147.483.647 bytes) (x)"));
  EXPECT_TRUE(loader_.isVisible());
  EXPECT_EQ(state_.OpenFile, folder_ / "open.bin");
}

TEST_F(LoaderTest, TheDialogIsHiddenBeforeAnythingIsTold) {
  struct Watch : bwp::Notices {
    QWidget* loader = nullptr;
    bool seen = true;
    void Tell(const std::string&, const std::string&, Icon) override { seen = loader->isVisible(); }
    bool Ask(const std::string&) override { return false; }
  } watch;
  bwp::Loader loader(state_, display_, watch, nullptr);
  watch.loader = &loader;
  loader.Open();
  QTest::mouseClick(loader.findChild<QPushButton*>(QStringLiteral("Fload")), Qt::LeftButton);
  EXPECT_FALSE(watch.seen);
  EXPECT_TRUE(loader.isVisible());
}

TEST_F(LoaderTest, CancelAndEscapeHideWithoutOpening) {
  Type("small.bin");
  QTest::mouseClick(&Find<QPushButton>("Cancel"), Qt::LeftButton);
  EXPECT_FALSE(loader_.isVisible());
  loader_.Open();
  QTest::keyClick(&Find<QAbstractItemView>("Flist"), Qt::Key_Escape);
  EXPECT_FALSE(loader_.isVisible());
  EXPECT_EQ(state_.OpenFile, folder_ / "open.bin");
}

TEST_F(LoaderTest, ABytewiseNameIsOpened) {
  const std::string name = "\xFE\xFF.bin";
  (void)folder_.Write("sub/" + name, "xyz");
  fs::remove(folder_ / "sub/inner.bin");
  DoubleClickRow(Find<QAbstractItemView>("Dlist"), "sub");
  Find<QAbstractItemView>("Flist").setFocus();
  QTest::keyClick(&Find<QAbstractItemView>("Flist"), Qt::Key_Down);
  PressOpen();
  EXPECT_EQ(state_.OpenFile, folder_ / ("sub/" + name));
}

TEST_F(LoaderTest, TheFirstArrowKeyPicksTheFirstFileAndEnterOpensThePickedOne) {
  auto& files = Find<QAbstractItemView>("Flist");
  QTest::keyClick(&files, Qt::Key_Down);
  EXPECT_EQ(Find<QLineEdit>("Ftext").text(), QStringLiteral("empty.bin"));
  QTest::keyClick(&files, Qt::Key_End);
  EXPECT_EQ(Find<QLineEdit>("Ftext").text(), QStringLiteral("small.bin"));
  QTest::keyClick(&files, Qt::Key_Return);
  EXPECT_EQ(state_.OpenFile, folder_ / "small.bin");
}

TEST_F(LoaderTest, EnterOnAListWithoutASelectionMeansTheNameBox) {
  Type("small.bin");
  Find<QAbstractItemView>("Flist").setFocus();
  QTest::keyClick(&Find<QAbstractItemView>("Flist"), Qt::Key_Return);
  EXPECT_EQ(state_.OpenFile, folder_ / "small.bin");
}

TEST_F(LoaderTest, IsTidyAtEverySize) {
  bwp::test::ExpectTidyAtEverySize(loader_);
}

TEST_F(LoaderTest, IsTidyWithLettersOfTwiceTheSize) {
  QFont font = loader_.font();
  font.setPointSizeF(font.pointSizeF() * 2);
  bwp::Loader large(state_, display_, notices_, nullptr);
  large.setFont(font);
  large.Open();
  bwp::test::ExpectTidyAtEverySize(large);
}

TEST_F(LoaderTest, TheTabKeyGoesThroughTheControlsInReadingOrder) {
  std::vector<std::string> order;
  QWidget* const first = &Find<QComboBox>("Drive1");
  first->setFocus();
  do {
    order.push_back(loader_.focusWidget()->objectName().toStdString());
    QTest::keyClick(loader_.focusWidget(), Qt::Key_Tab);
  } while (loader_.focusWidget() != first && order.size() < 10);
  EXPECT_THAT(order, ElementsAre("Drive1", "Dlist", "Flist", "Ftext", "Fload", "Cancel"));
}

}  // namespace
