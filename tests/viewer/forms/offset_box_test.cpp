#include "viewer/forms/offset_box.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "viewer/forms/emphasis.h"

namespace {

using bwp::OffsetBox;

class OffsetBoxTest : public testing::Test {
 protected:
  OffsetBox box{QStringLiteral("HStart"), QStringLiteral("Start")};

  // A "b" for every bold character, a "." for every other.
  std::string Boldness() {
    std::string result;
    QTextCursor cursor(box.document());
    while (cursor.movePosition(QTextCursor::NextCharacter)) {
      result += cursor.charFormat().fontWeight() == QFont::Bold ? 'b' : '.';
    }
    return result;
  }
};

TEST_F(OffsetBoxTest, ShowsPairsPlainAndBoldInTurnFromTheRight) {
  box.ShowText("0012ABCD");
  EXPECT_EQ(box.Text(), "0012ABCD");
  EXPECT_EQ(Boldness(), "bb..bb..");
}

TEST_F(OffsetBoxTest, LeavesNoSelectionAndTheCursorAtTheStart) {
  box.ShowText("0012ABCD");
  EXPECT_FALSE(box.textCursor().hasSelection());
  EXPECT_EQ(box.textCursor().position(), 0);
}

TEST_F(OffsetBoxTest, ShowingTheSameTextAgainChangesNothing) {
  box.ShowText("0012ABCD");
  QSignalSpy changes(&box, &QTextEdit::textChanged);
  box.ShowText("0012ABCD");
  EXPECT_EQ(changes.size(), 0);
}

TEST_F(OffsetBoxTest, WhatWasTypedIsReplacedAlsoByTheTextShownBefore) {
  box.ShowText("0012ABCD");
  box.selectAll();
  QTest::keyClicks(&box, QStringLiteral("0012ABCD"));
  box.ShowText("0012ABCD");
  EXPECT_EQ(Boldness(), "bb..bb..");
  QTest::keyClicks(&box, QStringLiteral("7"));
  EXPECT_EQ(box.Text(), "70012ABCD");
  box.ShowText("0012ABCD");
  EXPECT_EQ(box.Text(), "0012ABCD");
}

TEST_F(OffsetBoxTest, EnterEscapeAndTabTypeNothing) {
  box.show();
  box.ShowText("00000010");
  QTest::keyClick(&box, Qt::Key_Return);
  QTest::keyClick(&box, Qt::Key_Enter);
  QTest::keyClick(&box, Qt::Key_Escape);
  QTest::keyClick(&box, Qt::Key_Tab);
  QTest::keyClick(&box, Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(box.Text(), "00000010");
}

TEST_F(OffsetBoxTest, PastedTextIsPlainAndOfOneLine) {
  QGuiApplication::clipboard()->setText(QStringLiteral("12\n 34\n"));
  box.paste();
  EXPECT_EQ(box.Text(), "12 34");
}

TEST_F(OffsetBoxTest, EightBoldDigitsFitWithoutScrolling) {
  box.show();
  box.ShowText("00000010");
  box.selectAll();
  box.setFontWeight(QFont::Bold);
  QCoreApplication::processEvents();
  EXPECT_EQ(box.horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(box.verticalScrollBar()->maximum(), 0);
}

TEST_F(OffsetBoxTest, ColoursAreGivenWhereTheyAreAskedFor) {
  box.setPlainText(QStringLiteral("123456"));
  bwp::ApplyEmphasis(box, bwp::GroupEmphasis(6, 3, 255, 65280));
  QTextCursor cursor(box.document());
  cursor.setPosition(6);
  EXPECT_EQ(cursor.charFormat().foreground().color(), QColor(255, 0, 0));
  cursor.setPosition(3);
  EXPECT_EQ(cursor.charFormat().foreground().color(), QColor(0, 255, 0));
}

}  // namespace
