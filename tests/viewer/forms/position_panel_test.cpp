#include "viewer/forms/position_panel.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/forms/offset_box.h"
#include "viewer/open_view_file.h"
#include "viewer/refresh.h"

namespace {

class PositionPanelTest : public testing::Test {
 protected:
  PositionPanelTest() {
    state.thumb.trackHeight = 5000;
    bwp::OpenViewFile(state, folder.Write("file", bwp::test::PatternBytes(4096)));
    display.onEvents = [this] { ++events; };
    panel = std::make_unique<bwp::PositionPanel>(state, display);
    panel->show();
    ShowPage();
  }

  void ShowPage() {
    bwp::Refresh(state, display);
    panel->ShowWindowTexts(display.window);
    transcript.clear();
  }

  QWidget* Box(const char* name) { return panel->findChild<QWidget*>(QLatin1String(name)); }

  void Type(const char* name, const char* text, Qt::Key last = Qt::Key_Return) {
    QWidget* const box = Box(name);
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, QLatin1String(text));
    QTest::keyClick(box, last);
  }

  // Whether a page was drawn since the last call.
  bool Refreshed() {
    const bool title = std::find(transcript.begin(), transcript.end(), "title") != transcript.end();
    transcript.clear();
    return title;
  }

  bwp::test::TempFolder folder;
  bwp::test::Transcript transcript;
  bwp::test::RecordedDisplay display{transcript};
  bwp::ViewState state;
  std::unique_ptr<bwp::PositionPanel> panel;
  int events = 0;
};

TEST_F(PositionPanelTest, ShowsTheWindowInBothBases) {
  EXPECT_EQ(qobject_cast<bwp::OffsetBox*>(Box("HStart"))->Text(), "00000000");
  EXPECT_EQ(qobject_cast<bwp::OffsetBox*>(Box("HEnd"))->Text(), "000001FF");
  EXPECT_EQ(qobject_cast<QLineEdit*>(Box("Dstart"))->text(), QStringLiteral("0"));
  EXPECT_EQ(qobject_cast<QLineEdit*>(Box("Dend"))->text(), QStringLiteral("511"));
}

TEST_F(PositionPanelTest, EveryControlHasANameAPersonWouldSay) {
  for (const char* const name : {"HStart", "HEnd", "Dstart", "Dend", "hexop", "decop"}) {
    ASSERT_NE(Box(name), nullptr) << name;
    EXPECT_FALSE(Box(name)->accessibleName().isEmpty()) << name;
  }
}

TEST_F(PositionPanelTest, EnterInHStartShowsThePageThere) {
  Type("HStart", "0123");
  EXPECT_EQ(state.SWStart, 0x123);
  EXPECT_FALSE(state.FieldTyping);
  EXPECT_TRUE(Refreshed());
}

TEST_F(PositionPanelTest, EnterInHEndMakesItTheLastByteOfThePage) {
  Type("HEnd", "00000400");
  EXPECT_EQ(state.SWStart, 0x400 - 511);
  EXPECT_FALSE(state.FieldTyping);
  EXPECT_TRUE(Refreshed());
}

TEST_F(PositionPanelTest, EnterInDendShowsThePageAtOnce) {
  Type("Dend", "1000");
  EXPECT_EQ(state.SWStart, 489);
  EXPECT_FALSE(state.FieldTyping);
  EXPECT_TRUE(Refreshed());
}

TEST_F(PositionPanelTest, EnterInDstartMovesTheThumbAndLeavesThePageToTheNextRefresh) {
  Type("Dstart", "1000");
  EXPECT_EQ(state.SWStart, 1000);
  EXPECT_DOUBLE_EQ(state.thumb.top, state.thumb.TopOf(1000));
  EXPECT_FALSE(state.FieldTyping);
  EXPECT_EQ(transcript, (bwp::test::Transcript{"thumb"}));
}

TEST_F(PositionPanelTest, TheNumberBlocksEnterIsEnter) {
  Type("Dend", "1000", Qt::Key_Enter);
  EXPECT_EQ(state.SWStart, 489);
}

TEST_F(PositionPanelTest, AHeldEnterIsOnePress) {
  Type("HStart", "0010", Qt::Key_Shift);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
  QCoreApplication::sendEvent(Box("HStart"), &held);
  EXPECT_EQ(state.SWStart, 0);
  EXPECT_TRUE(state.FieldTyping);
  EXPECT_FALSE(Refreshed());
}

TEST_F(PositionPanelTest, AHeldCharacterIsTypedAgainAndAgain) {
  auto* const box = qobject_cast<QLineEdit*>(Box("Dstart"));
  box->clear();
  for (const bool again : {false, true, true}) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"), again);
    QCoreApplication::sendEvent(box, &key);
  }
  EXPECT_EQ(box->text(), QStringLiteral("111"));
}

TEST_F(PositionPanelTest, EscapeAbandonsTypingEverywhereButInHStart) {
  for (const char* const name : {"HEnd", "Dstart", "Dend"}) {
    Type(name, "77", Qt::Key_Escape);
    EXPECT_FALSE(state.FieldTyping) << name;
    EXPECT_TRUE(Refreshed()) << name;
    EXPECT_EQ(state.SWStart, 0) << name;
  }
  Type("HStart", "77", Qt::Key_Escape);
  EXPECT_TRUE(state.FieldTyping);
  EXPECT_FALSE(Refreshed());
}

TEST_F(PositionPanelTest, AnyKeyInAHexadecimalBoxStartsTyping) {
  for (const Qt::Key key :
       {Qt::Key_Left, Qt::Key_Home, Qt::Key_Shift, Qt::Key_Delete, Qt::Key_A, Qt::Key_F5}) {
    for (const char* const name : {"HStart", "HEnd"}) {
      state.FieldTyping = false;
      QTest::keyClick(Box(name), key);
      EXPECT_TRUE(state.FieldTyping) << name << " " << key;
    }
  }
}

TEST_F(PositionPanelTest, OnlyACharacterKeyInADecimalBoxStartsTyping) {
  for (const char* const name : {"Dstart", "Dend"}) {
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_Shift, Qt::Key_Delete, Qt::Key_F5}) {
      state.FieldTyping = false;
      QTest::keyClick(Box(name), key);
      EXPECT_FALSE(state.FieldTyping) << name << " " << key;
    }
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_X, Qt::Key_Backspace, Qt::Key_Space}) {
      state.FieldTyping = false;
      QTest::keyClick(Box(name), key);
      EXPECT_TRUE(state.FieldTyping) << name << " " << key;
    }
  }
}

TEST_F(PositionPanelTest, TabMovesOnAndIsNoTyping) {
  panel->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(panel.get()));
  Box("HStart")->setFocus();
  for (const char* const next : {"Dstart", "HEnd", "Dend", "hexop"}) {
    QTest::keyClick(panel->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(panel->focusWidget(), Box(next)) << next;
    EXPECT_FALSE(state.FieldTyping);
  }
  QTest::keyClick(panel->focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(panel->focusWidget(), Box("Dend"));
  EXPECT_FALSE(state.FieldTyping);
  EXPECT_EQ(qobject_cast<bwp::OffsetBox*>(Box("HStart"))->Text(), "00000000");
}

TEST_F(PositionPanelTest, AGroupedNumberIsReadToItsFirstPoint) {
  Type("Dend", "1.600");
  EXPECT_EQ(state.SWStart, 0);
  Type("Dend", " 1600");
  EXPECT_EQ(state.SWStart, 1089);
}

TEST_F(PositionPanelTest, BeyondTheEndItShowsTheLastPage) {
  Type("HStart", "FFFFF");
  EXPECT_EQ(state.SWStart, 4096 - 512);
  Type("HStart", "FFFF");  // four digits are signed: -1
  EXPECT_EQ(state.SWStart, 0);
}

TEST_F(PositionPanelTest, TheOptionsSwitchTheBaseAndRefresh) {
  auto* const decimal = qobject_cast<QRadioButton*>(Box("decop"));
  auto* const hexadecimal = qobject_cast<QRadioButton*>(Box("hexop"));
  EXPECT_TRUE(hexadecimal->isChecked());
  QTest::mouseClick(decimal, Qt::LeftButton, {}, QPoint(5, decimal->height() / 2));
  EXPECT_FALSE(state.HexMode);
  EXPECT_TRUE(decimal->isChecked());
  EXPECT_FALSE(hexadecimal->isChecked());
  EXPECT_TRUE(Refreshed());
  QTest::mouseClick(hexadecimal, Qt::LeftButton, {}, QPoint(5, hexadecimal->height() / 2));
  EXPECT_TRUE(state.HexMode);
  EXPECT_TRUE(Refreshed());
}

TEST_F(PositionPanelTest, ShowingTheBaseRefreshesNothing) {
  state.HexMode = false;
  panel->ShowBase();
  EXPECT_TRUE(qobject_cast<QRadioButton*>(Box("decop"))->isChecked());
  EXPECT_FALSE(qobject_cast<QRadioButton*>(Box("hexop"))->isChecked());
  EXPECT_TRUE(transcript.empty());
}

TEST_F(PositionPanelTest, DisablingDoesNotChangeTheBase) {
  panel->setEnabled(false);
  panel->setEnabled(true);
  EXPECT_TRUE(qobject_cast<QRadioButton*>(Box("hexop"))->isChecked());
  EXPECT_TRUE(state.HexMode);
}

}  // namespace
