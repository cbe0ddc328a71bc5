#include <gtest/gtest.h>

#include <QRadioButton>

#include "interaction/forms/edit_form.h"
#include "viewer/mark_cells.h"
#include "viewer/run_time_error.h"

namespace {

using bwp::test::ReadFile;
using Cell = bwp::GridCell;
using Form = bwp::test::EditForm;

TEST(EditController, TheButtonTurnsTheModeOnAtTheFirstCell) {
  Form f(5000);
  EXPECT_EQ(f.edit->text(), QStringLiteral("Edit"));
  f.Click(f.edit);
  EXPECT_TRUE(f.controller->IsOn());
  EXPECT_EQ(f.edit->text(), QStringLiteral("Save"));
  EXPECT_EQ(f.table->CurrentCell(), (Cell{0, 1}));
  EXPECT_EQ(QApplication::focusWidget(), f.table);
}

TEST(EditController, EverythingElseIsOffMeanwhileAndOnAfterwardsButTheGrid) {
  Form f(5000);
  const QStringList before = f.Enabled();
  EXPECT_FALSE(before.contains(QStringLiteral("tabe")));
  f.Click(f.edit);
  EXPECT_EQ(f.Enabled(), Form::LiveInEditMode());
  f.Click(f.edit);
  EXPECT_EQ(f.Enabled(), before);
  f.Click(f.edit);
  f.Click(f.Cancel);
  EXPECT_EQ(f.Enabled(), before);
  EXPECT_TRUE(f.window.isVisible());
}

TEST(EditController, TheScrollBarStandsStillMeanwhile) {
  Form f(5000);
  f.Click(f.edit);
  for (const char* part : {"VSUP", "VSDW", "VSBack", "VSB"}) {
    auto* const widget = f.Find<QWidget>(part);
    QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(3, widget->height() - 2));
  }
  EXPECT_EQ(f.state.SWStart, 0);
  EXPECT_TRUE(f.state.FieldTyping);
}

TEST(EditController, KeepsTheBaseOfEachKind) {
  for (const bool hex : {true, false}) {
    Form f(5000, hex);
    f.Click(f.edit);
    EXPECT_EQ(f.Find<QRadioButton>("hexop")->isChecked(), hex);
    f.Click(f.Cancel);
    EXPECT_EQ(f.Find<QRadioButton>("hexop")->isChecked(), hex);
    EXPECT_EQ(f.state.HexMode, hex);
  }
}

TEST(EditController, WhatIsTypedIsSavedAfterAYes) {
  Form f(5000);
  f.Click(f.edit);
  f.Keys("41423");
  f.Key(Qt::Key_Return);
  EXPECT_EQ(f.Text(0, 17), "A");
  EXPECT_EQ(f.table->CurrentCell(), (Cell{0, 4}));
  EXPECT_EQ(ReadFile(f.path), f.bytes);
  f.Click(f.edit);
  EXPECT_EQ(f.transcript, (bwp::test::Transcript{"ask Are you sure you want to save changes ?"}));
  std::string expected = f.bytes;
  expected.replace(0, 3, "AB\x03");
  EXPECT_EQ(ReadFile(f.path), expected);
  EXPECT_FALSE(f.controller->IsOn());
  EXPECT_FALSE(f.state.FieldTyping);
  EXPECT_EQ(f.edit->text(), QStringLiteral("Edit"));
  EXPECT_EQ(f.Text(0, 3), "03");
}

TEST(EditController, ANoLeavesTheFileAloneAndTheModeToo) {
  Form f(5000);
  f.notices.answer = false;
  const std::string before = f.Text(0, 1);
  f.Click(f.edit);
  f.Keys("0102");
  f.Click(f.edit);
  EXPECT_EQ(ReadFile(f.path), f.bytes);
  EXPECT_FALSE(f.controller->IsOn());
  EXPECT_EQ(f.Text(0, 1), before);
}

TEST(EditController, CancelDiscardsEveryEditWithoutAQuestion) {
  Form f(5000);
  const bwp::PageGrid before = f.state.tabe;
  f.Click(f.edit);
  f.Keys("0102");
  f.Click(f.Cancel);
  EXPECT_TRUE(f.transcript.empty());
  EXPECT_EQ(ReadFile(f.path), f.bytes);
  EXPECT_FALSE(f.controller->IsOn());
  EXPECT_EQ(f.edit->text(), QStringLiteral("Edit"));
  for (int row = 0; row < bwp::kRows; ++row) {
    for (int column = 0; column < bwp::kColumns; ++column) {
      ASSERT_EQ(f.state.tabe.Text(row, column), before.Text(row, column));
      ASSERT_EQ(f.state.tabe.Background(row, column), before.Background(row, column));
    }
  }
}

TEST(EditController, ArrowAndPagingKeysMoveTheCurrentCell) {
  Form f(5000);
  f.Click(f.edit);
  f.Key(Qt::Key_Down);
  f.Key(Qt::Key_Right);
  EXPECT_EQ(f.table->CurrentCell(), (Cell{1, 2}));
  f.Key(Qt::Key_Left);
  f.Key(Qt::Key_Left);
  EXPECT_EQ(f.table->CurrentCell(), (Cell{1, 1})) << "the offsets are no cells to edit";
  f.Key(Qt::Key_Up);
  f.Key(Qt::Key_PageDown);
  EXPECT_EQ(f.table->CurrentCell()->row, 31);
  f.Key(Qt::Key_PageUp);
  EXPECT_EQ(f.table->CurrentCell()->row, 0);
  f.Key(Qt::Key_End);
  EXPECT_EQ(f.table->CurrentCell(), (Cell{0, 32}));
  f.Key(Qt::Key_Home);
  EXPECT_EQ(f.table->CurrentCell(), (Cell{0, 1})) << "not the offset";
  EXPECT_EQ(f.state.SWStart, 0) << "edit mode never scrolls";
}

TEST(EditController, TheNumberBlocksEnterEndsAByteToo) {
  Form f(5000);
  f.Click(f.edit);
  f.Keys("7");
  f.Key(Qt::Key_Enter);
  EXPECT_EQ(f.Text(0, 17), "\x07");
  EXPECT_EQ(f.table->CurrentCell(), (Cell{0, 2}));
}

TEST(EditController, AClickMovesTheCurrentCell) {
  Form f(5000);
  f.Click(f.edit);
  QTest::mouseClick(f.window.windowHandle(), Qt::LeftButton, {}, f.Place(7, 9));
  EXPECT_EQ(f.table->CurrentCell(), (Cell{7, 9}));
  EXPECT_EQ(f.state.tabe.Background(7, 9), bwp::kCellAsInFileColour);
  EXPECT_NE(f.state.tabe.Background(0, 1), bwp::kCellAsInFileColour);
}

TEST(EditController, InAShortFileTheCurrentCellStaysOnItsBytes) {
  Form f(100);
  f.Click(f.edit);
  QTest::mouseClick(f.window.windowHandle(), Qt::LeftButton, {}, f.Place(20, 9));
  EXPECT_EQ(f.table->CurrentCell(), (Cell{6, 4}));
  f.Key(Qt::Key_Down);
  EXPECT_EQ(f.table->CurrentCell(), (Cell{6, 4}));
  f.Keys("EE");
  f.Click(f.edit);
  std::string expected = f.bytes;
  expected[99] = '\xEE';
  EXPECT_EQ(ReadFile(f.path), expected);
}

TEST(EditController, ADoubleClickOnTheGridEditsThatCell) {
  Form f(5000);
  bwp::test::DoubleClickAt(f.window, f.Place(4, 20));
  EXPECT_TRUE(f.controller->IsOn());
  EXPECT_EQ(f.table->CurrentCell(), (Cell{4, 20}));
}

TEST(EditController, ADoubleClickOnAnOffsetEditsTheRowsFirstByte) {
  Form f(5000);
  bwp::test::DoubleClickAt(f.window, f.Place(4, 0));
  EXPECT_EQ(f.table->CurrentCell(), (Cell{4, 1}));
}

TEST(EditController, ADoubleClickBesideTheGridDoesNothing) {
  Form f(5000);
  bwp::test::DoubleClickAt(f.window, QPoint(2, 2));
  EXPECT_FALSE(f.controller->IsOn());
}

TEST(EditController, ThePopUpsEntryEditsTheCellThatWasPointedAt) {
  Form f(5000);
  QTest::mouseClick(f.window.windowHandle(), Qt::RightButton, {}, f.Place(5, 6));
  auto* const popmark = f.Find<QMenu>("popmark");
  auto* const popedit = popmark->findChild<QAction*>(QStringLiteral("popedit"));
  QTest::mouseClick(popmark, Qt::LeftButton, {}, popmark->actionGeometry(popedit).center());
  EXPECT_TRUE(f.controller->IsOn());
  EXPECT_EQ(f.table->CurrentCell(), (Cell{5, 6}));
}

TEST(EditController, FourCharactersTypedOnTheButtonMoveTheCell) {
  Form f(5000);
  f.Click(f.edit);
  f.edit->setFocus();
  f.Keys("((%%&'");
  EXPECT_EQ(f.table->CurrentCell(), (Cell{1, 2}));
  f.Click(f.Cancel);
  f.edit->setFocus();
  f.Keys("(");
  EXPECT_FALSE(f.controller->IsOn());
}

TEST(EditController, WithoutAFileOrAByteNothingHappens) {
  Form f(0);
  f.Click(f.edit);
  EXPECT_FALSE(f.controller->IsOn());
  EXPECT_EQ(f.edit->text(), QStringLiteral("Edit"));
  f.state.OpenFile.clear();
  f.Click(f.edit);
  bwp::test::DoubleClickAt(f.window, f.Place(4, 4));
  EXPECT_FALSE(f.controller->IsOn());
}

TEST(EditController, AFileThatAnotherProgramChangedIsShownAsItIsNow) {
  Form f(5000);
  f.Click(f.edit);
  f.Keys("00");
  f.folder.Write("file", "short");
  f.Click(f.edit);
  EXPECT_EQ(f.transcript.back(), "tell [Error !] The file was changed by another program (x)");
  EXPECT_EQ(ReadFile(f.path), "short");
  EXPECT_EQ(f.state.FLen, 5);
  EXPECT_EQ(f.Text(0, 17), "s");
  EXPECT_EQ(f.Text(0, 22), "");
  EXPECT_FALSE(f.controller->IsOn());
}

TEST(EditController, WhoeverOwnsTheFormIsAskedToDisableWhatMakesNoSense) {
  Form f(5000);
  QObject::connect(f.controller, &bwp::EditController::ControlsEnabled,
                   [&] { f.MenuExit->setEnabled(false); });
  f.Click(f.edit);
  f.Click(f.Cancel);
  EXPECT_FALSE(f.MenuExit->isEnabled());
}

TEST(EditController, TheNavigationKeysWorkAtOnceAfterwards) {
  Form f(5000);
  f.Click(f.edit);
  f.Key(Qt::Key_Down);
  f.Click(f.Cancel);
  f.Key(Qt::Key_Down);
  EXPECT_EQ(f.state.SWStart, 16);
}

TEST(EditController, APressThatIsNoClickKeepsTheEdits) {
  Form f(5000);
  f.Click(f.edit);
  f.Keys("4");
  for (QPushButton* const button : {f.edit, f.Cancel}) {
    QTest::mousePress(button, Qt::LeftButton);
    QTest::mouseMove(button, QPoint(-50, -50));
    QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-50, -50));
    QTest::mouseClick(button, Qt::RightButton);
  }
  bwp::Refresh(f.state, f.display);
  EXPECT_TRUE(f.controller->IsOn());
  EXPECT_EQ(f.Text(0, 1), "4");
}

TEST(EditController, AFailedWriteIsThePlatformsErrorAndKeepsWhatWasTyped) {
  Form f(5000);
  f.Click(f.edit);
  f.Keys("00");
  f.disk.FailAt(2, bwp::test::Fault::kDeviceError);
  EXPECT_THROW(f.edit->click(), bwp::RunTimeError);
  EXPECT_EQ(ReadFile(f.path), f.bytes);
  EXPECT_TRUE(f.controller->IsOn());
  EXPECT_EQ(f.Text(0, 1), "00");
}

TEST(EditController, AfterSaveThePageHasTheColoursOfMarksAndHitOnly) {
  for (const bool answer : {true, false}) {
    Form f(5000);
    bwp::MoveMarks(f.state, 3, 40);
    bwp::Refresh(f.state, f.display);
    bwp::ShowHit(f.state, 38, 4);
    bwp::Refresh(f.state, f.display);
    f.notices.answer = answer;
    f.Click(f.edit);
    f.Keys("EEEE");
    f.Click(f.edit);
    for (int position = 0; position < bwp::kPageBytes; ++position) {
      // The hit ends with other bytes on the page, and stays where nothing was written.
      bwp::Colour wanted = !answer && position >= 38 && position < 42 ? bwp::kHitColour : bwp::kValueColour;
      if (position == 3) wanted = bwp::kMarkStartColour;
      if (position == 40) wanted = bwp::kMarkEndColour;
      ASSERT_EQ(f.state.tabe.Background(position / 16, position % 16 + 1), wanted) << answer << position;
    }
  }
}

}  // namespace
