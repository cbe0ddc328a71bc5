#include "interaction/forms/search_panel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "interaction/keyboard_navigation.h"
#include "support/forms/interaction_window.h"
#include "support/interaction_bench.h"
#include "support/recorders.h"
#include "viewer/refresh.h"

namespace {

using bwp::SearchPanel;
using bwp::test::FileWindow;

struct Panel : FileWindow {
  explicit Panel(const std::string& content) : FileWindow(0) {
    bwp::OpenViewFile(state, folder.Write("searched", content));
    auto* const column = new QVBoxLayout(&window);
    panel = new SearchPanel(state, services, &window);
    column->addWidget(panel);
    Atext = Find<QLineEdit>("Atext");
    Htext = Find<QLineEdit>("Htext");
    Dtext = Find<QLineEdit>("Dtext");
    NoCase = Find<QCheckBox>("NoCase");
    Show();
    bwp::Refresh(state, display);
  }

  void Type(QLineEdit* field, const char* text) {
    field->setFocus();
    QTest::keyClicks(field, QLatin1String(text));
  }
  testing::AssertionResult Shows(const char* characters, const char* hex, const char* decimal) const {
    const QString wanted =
        QStringLiteral("%1|%2|%3").arg(QLatin1String(characters), QLatin1String(hex), QLatin1String(decimal));
    const QString shown = QStringLiteral("%1|%2|%3").arg(Atext->text(), Htext->text(), Dtext->text());
    if (shown == wanted) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "shown: " << shown.toStdString();
  }
  void ClickFind() { QTest::mouseClick(panel->Find, Qt::LeftButton); }
  /// The key that started a search comes up, as the form sees it.
  void KeyUp() { keys.KeyUp(); }

  bwp::test::Transcript transcript;
  bwp::test::RecordedNotices notices{transcript};
  bwp::test::RecordedProgress progress{transcript};
  bwp::Disk disk;
  bwp::Services services{display, progress, notices, disk};
  bwp::test::RecordedTimer timer;
  bwp::KeyboardNavigation keys{state, display, timer};
  SearchPanel* panel;
  QLineEdit* Atext;
  QLineEdit* Htext;
  QLineEdit* Dtext;
  QCheckBox* NoCase;
};

std::string Far(const std::string& found) {
  return std::string(2000, '.') + found + std::string(2000, '.');
}

TEST(SearchPanel, HasItsCaptionsToolTipsAndSpokenNames) {
  Panel p("abc");
  EXPECT_EQ(p.Atext->toolTip(), QStringLiteral("Type in a ASCII string to search"));
  EXPECT_EQ(p.Htext->toolTip(), QStringLiteral("Type in HEX bytes to search separated by spaces"));
  EXPECT_EQ(p.Dtext->toolTip(), QStringLiteral("Type in DEC bytes to search separated by spaces"));
  EXPECT_EQ(p.panel->Find->text(), QStringLiteral("Find/Next"));
  EXPECT_EQ(p.panel->Find->toolTip(), QStringLiteral("Find Data in the file"));
  EXPECT_EQ(p.NoCase->text(), QStringLiteral("Not Sensitive"));
  EXPECT_EQ(p.NoCase->toolTip(),
            QStringLiteral("Uncheck to perform search CASE SENSITIVE, it affects also HEX and DEC searches"));
  for (const char* name : {"Atext", "Htext", "Dtext", "Find", "NoCase"}) {
    EXPECT_FALSE(p.Find<QWidget>(name)->accessibleName().isEmpty()) << name;
  }
}

TEST(SearchFields, CharactersShowInBothMirrorsAtOnce) {
  Panel p("abc");
  p.Type(p.Atext, "AB");
  EXPECT_TRUE(p.Shows("AB", "41 42 ", "65 66 "));
  EXPECT_TRUE(p.state.FieldTyping);
}

TEST(SearchFields, BackspaceAndDeletingInTheMiddleAreMirroredToo) {
  Panel p("abc");
  p.Type(p.Atext, "ABC");
  QTest::keyClick(p.Atext, Qt::Key_Left);
  QTest::keyClick(p.Atext, Qt::Key_Backspace);
  EXPECT_TRUE(p.Shows("AC", "41 43 ", "65 67 "));
  QTest::keyClick(p.Atext, Qt::Key_Delete);
  EXPECT_TRUE(p.Shows("A", "41 ", "65 "));
  QTest::keyClick(p.Atext, Qt::Key_Home);
  QTest::keyClicks(p.Atext, QStringLiteral("z"));
  EXPECT_TRUE(p.Shows("zA", "7A 41 ", "122 65 "));
}

TEST(SearchFields, KeysWithoutACharacterChangeNothing) {
  Panel p("abc");
  p.Type(p.Htext, "41 4");
  p.state.FieldTyping = false;
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_F5, Qt::Key_Shift}) {
    for (QLineEdit* const field : {p.Atext, p.Htext, p.Dtext}) QTest::keyClick(field, key);
  }
  EXPECT_FALSE(p.state.FieldTyping);
  EXPECT_TRUE(p.Shows("A", "41 4", "65 ")) << "a key without a character has brought the mirrors level";
}

TEST(SearchFields, HexadecimalMirrorsLagOneKeyBehind) {
  Panel p("abc");
  p.Type(p.Htext, "41 4");
  EXPECT_TRUE(p.Shows("A", "41 4", "65 "));
  p.Type(p.Htext, "2");
  EXPECT_TRUE(p.Shows("A\x04", "41 42", "65 4 "));
  p.Type(p.Htext, " ");
  EXPECT_TRUE(p.Shows("AB", "41 42 ", "65 66 "));
}

TEST(SearchFields, DecimalMirrorsLagOneKeyBehind) {
  Panel p("abc");
  p.Type(p.Dtext, "65 300");
  EXPECT_TRUE(p.Shows("A\x1E", "41 1E ", "65 300"));
  QTest::keyClick(p.Dtext, Qt::Key_Backspace);
  EXPECT_EQ(p.Htext->text(), QStringLiteral("41 FF "));
}

TEST(SearchFields, LeavingAFieldBringsItsMirrorsLevel) {
  Panel p("abc");
  p.Type(p.Htext, "41 42");
  p.Dtext->setFocus();
  EXPECT_TRUE(p.Shows("AB", "41 42", "65 66 "));
  p.Type(p.Dtext, "67");
  EXPECT_EQ(p.Dtext->text(), QStringLiteral("65 66 67"));
  p.Atext->setFocus();
  EXPECT_TRUE(p.Shows("ABC", "41 42 43 ", "65 66 67"));
}

TEST(SearchFields, PastingKeepsTheThreeInStep) {
  Panel p("abc");
  QApplication::clipboard()->setText(QStringLiteral("41 42"));
  p.Htext->setFocus();
  QTest::keyClick(p.Htext, Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(p.Shows("AB", "41 42", "65 66 "));
  p.Dtext->clear();
  p.Dtext->setFocus();
  QApplication::clipboard()->setText(QStringLiteral("66 67"));
  QTest::keyClick(p.Dtext, Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(p.Shows("BC", "42 43 ", "66 67"));
  p.Atext->setFocus();
  p.Atext->selectAll();
  QApplication::clipboard()->setText(QStringLiteral("xyz"));
  QTest::keyClick(p.Atext, Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(p.Shows("xyz", "78 79 7A ", "120 121 122 "));
}

TEST(SearchFields, TextDroppedIntoAFieldKeepsTheThreeInStep) {
  Panel p("abc");
  const auto drop = [&](QLineEdit* field, const QString& text) {
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(QPoint(3, 3), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(field, &enter);
    QDropEvent event(QPointF(3, 3), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(field, &event);
  };
  drop(p.Htext, QStringLiteral("41 42"));
  EXPECT_TRUE(p.Shows("AB", "41 42", "65 66 "));
  p.Atext->clear();
  drop(p.Atext, QStringLiteral("xy"));
  EXPECT_TRUE(p.Shows("xy", "78 79 ", "120 121 "));
  p.Dtext->clear();
  drop(p.Dtext, QStringLiteral("66 67"));
  EXPECT_TRUE(p.Shows("BC", "42 43 ", "66 67"));
}

TEST(SearchFields, ATextThatAnAssistiveToolSetsIsMirroredAndSearchedFor) {
  Panel p(Far("BC"));
  const auto set = [](QLineEdit* field, const char* text) {
    QAccessible::queryAccessibleInterface(field)->setText(QAccessible::Value, QLatin1String(text));
  };
  set(p.Atext, "AB");
  EXPECT_TRUE(p.Shows("AB", "41 42 ", "65 66 "));
  EXPECT_TRUE(p.state.FieldTyping);
  set(p.Htext, "42 43");
  EXPECT_TRUE(p.Shows("BC", "42 43", "66 67 "));
  set(p.Dtext, "67 68");
  EXPECT_TRUE(p.Shows("CD", "43 44 ", "67 68"));
  p.Atext->setText(QStringLiteral("BC"));
  p.ClickFind();
  EXPECT_EQ(p.state.SWStart, 2000);
}

TEST(SearchFields, BackspaceInTheHexadecimalFieldIsMirroredByTheNextKey) {
  Panel p("abc");
  p.Type(p.Htext, "41 42");
  QTest::keyClick(p.Htext, Qt::Key_Backspace);
  EXPECT_TRUE(p.Shows("AB", "41 4", "65 66 "));
  QTest::keyClick(p.Htext, Qt::Key_Backspace);
  EXPECT_TRUE(p.Shows("A\x04", "41 ", "65 4 "));
}

TEST(SearchFields, CuttingAndUndoingKeepTheThreeInStep) {
  Panel p("abc");
  const auto command = [](QLineEdit* field, Qt::Key key) {
    QTest::keyClick(field, key, Qt::ControlModifier);
  };
  for (QLineEdit* const field : {p.Atext, p.Htext, p.Dtext}) {
    field->clear();
    p.Type(field, field == p.Atext ? "AB" : field == p.Htext ? "41 42" : "65 66");
    command(field, Qt::Key_A);
    command(field, Qt::Key_X);
    EXPECT_TRUE(p.Shows("", "", "")) << field->objectName().toStdString();
    command(field, Qt::Key_Z);
    EXPECT_TRUE(p.Shows("AB", field == p.Htext ? "41 42" : "41 42 ", field == p.Dtext ? "65 66" : "65 66 "));
  }
}

TEST(SearchFields, EscapeGivesThePageBack) {
  Panel p("abc");
  p.Type(p.Atext, "A");
  QTest::keyClick(p.Atext, Qt::Key_Escape);
  EXPECT_FALSE(p.state.FieldTyping);
  EXPECT_TRUE(p.Shows("A", "41 ", "65 "));
}

TEST(SearchRun, EnterInEachFieldFindsTheTerm) {
  for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
    for (const char* name : {"Atext", "Htext", "Dtext"}) {
      Panel p(Far("AB"));
      auto* const field = p.Find<QLineEdit>(name);
      p.Type(field, field == p.Atext ? "AB" : field == p.Htext ? "41 42" : "65 66");
      QTest::keyClick(field, enter);
      EXPECT_EQ(p.state.SWStart, 2000) << name;
      EXPECT_EQ(p.state.SWPrev, 2000) << "the page was shown although the field is typed into";
      EXPECT_EQ(p.state.tabe.Background(0, 1), bwp::kHitColour);
      EXPECT_EQ(p.state.tabe.Background(0, 18), bwp::kHitColour);
    }
  }
}

TEST(SearchRun, AClickOnFindSearchesForWhatStandsInTheField) {
  Panel p(Far("AB"));
  p.Type(p.Htext, "41 42");
  p.ClickFind();
  EXPECT_EQ(p.state.SWStart, 2000);
  EXPECT_FALSE(p.state.FieldTyping);
}

TEST(SearchRun, FindGoesOnToTheNextHitAndStartsOverAfterTheLast) {
  Panel p(std::string(1000, '.') + "AB" + std::string(1000, '.') + "AB" + std::string(1000, '.'));
  p.Type(p.Atext, "AB");
  p.ClickFind();
  EXPECT_EQ(p.state.SWStart, 1000);
  p.ClickFind();
  EXPECT_EQ(p.state.SWStart, 2002);
  p.ClickFind();
  EXPECT_THAT(p.transcript, testing::Contains(testing::StartsWith("tell String not found")));
  p.ClickFind();
  EXPECT_EQ(p.state.SWStart, 1000);
}

TEST(SearchRun, EnterStartsAtTheBeginningAgain) {
  Panel p(std::string(1000, '.') + "AB" + std::string(1000, '.') + "AB" + std::string(1000, '.'));
  p.Type(p.Atext, "AB");
  p.ClickFind();
  p.ClickFind();
  EXPECT_EQ(p.state.SWStart, 2002);
  p.Atext->setFocus();
  QTest::keyClick(p.Atext, Qt::Key_Return);
  EXPECT_TRUE(p.state.FieldTyping);
  p.KeyUp();
  EXPECT_FALSE(p.state.FieldTyping);
  EXPECT_EQ(p.state.SWStart, 1000);
}

TEST(SearchRun, TheBoxDecidesWhetherCaseCounts) {
  Panel p(Far("AB"));
  p.Type(p.Htext, "61 62");
  p.ClickFind();
  EXPECT_EQ(p.state.SWStart, 0);
  QTest::mouseClick(p.NoCase, Qt::LeftButton, {}, QPoint(8, p.NoCase->height() / 2));
  ASSERT_TRUE(p.NoCase->isChecked());
  p.ClickFind();
  EXPECT_EQ(p.state.SWStart, 2000);
}

TEST(SearchRun, AnEmptyTermDoesNothing) {
  Panel p(Far("AB"));
  p.ClickFind();
  EXPECT_TRUE(p.transcript.empty());
  EXPECT_EQ(p.state.SWStart, 0);
}

TEST(SearchRun, EnterInTheTextSearchesForWhatTheTextShows) {
  Panel p(Far("A"));
  p.Type(p.Dtext, "65 x");
  p.Atext->setFocus();
  EXPECT_TRUE(p.Shows("A", "41 ", "65 x"));
  QTest::keyClick(p.Atext, Qt::Key_Return);
  EXPECT_TRUE(p.Shows("A", "41 ", "65 "));
  EXPECT_EQ(p.state.SWStart, 2000);
}

TEST(SearchRun, WhatRunsItMayRefuseAndEndTypingFirst) {
  Panel p(Far("AB"));
  p.Type(p.Atext, "AB");
  p.panel->run = [](const auto& /*search*/) {};
  QTest::keyClick(p.Atext, Qt::Key_Return);
  p.ClickFind();
  EXPECT_TRUE(p.transcript.empty());
  p.panel->run = [&](const auto& search) {
    p.state.FieldTyping = false;
    search();
  };
  QTest::keyClick(p.Atext, Qt::Key_Return);
  EXPECT_EQ(p.state.SWPrev, 2000);
  EXPECT_TRUE(p.state.FieldTyping) << "Enter leaves the field as typed into until the key comes up";
  p.ClickFind();
  EXPECT_FALSE(p.state.FieldTyping);
}

TEST(SearchRun, AHeldEnterIsOneSearch) {
  Panel p(Far("A"));
  p.Type(p.Atext, "A");
  QTest::keyPress(p.Atext, Qt::Key_Return);
  const std::size_t afterOne = p.transcript.size();
  QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
  QCoreApplication::sendEvent(p.Atext, &again);
  EXPECT_GT(afterOne, 0U);
  EXPECT_EQ(p.transcript.size(), afterOne);
}

TEST(SearchRun, AClickOnTheBoxEndsTyping) {
  Panel p("abc");
  p.Type(p.Atext, "A");
  ASSERT_TRUE(p.state.FieldTyping);
  p.NoCase->setFocus();
  QTest::keyClick(p.NoCase, Qt::Key_Space);
  EXPECT_FALSE(p.state.FieldTyping);
}

}  // namespace
