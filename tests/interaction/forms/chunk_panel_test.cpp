#include "interaction/forms/chunk_panel.h"

#include <gtest/gtest.h>
#include <utility>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "support/forms/interaction_window.h"
#include "viewer/forms/offset_box.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/refresh.h"

namespace {

using bwp::ChunkPanel;
using bwp::OffsetBox;
using bwp::test::FileWindow;

struct Panel : FileWindow {
  explicit Panel(std::size_t length) : FileWindow(length) {
    auto* const column = new QVBoxLayout(&window);
    panel = new ChunkPanel(state, display, &window);
    column->addWidget(panel);
    display.onChunk = [this](const bwp::ChunkTexts& texts) { panel->ShowChunkTexts(texts); };
    Show();
    bwp::Refresh(state, display);
  }

  std::string TextOf(const char* name) {
    if (auto* const box = window.findChild<OffsetBox*>(QLatin1String(name))) return box->Text();
    return bwp::ToCodePage(Find<QLineEdit>(name)->text());
  }
  /// Types over what stands in the box.
  void Type(const char* name, const char* text) {
    auto* const box = Find<QWidget>(name);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, QLatin1String(text));
  }
  void Enter(const char* name, const char* text) {
    Type(name, text);
    QTest::keyClick(Find<QWidget>(name), Qt::Key_Return);
  }

  ChunkPanel* panel;
};

/// Counts the keys that reach an object.
class KeyCounter : public QObject {
 public:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) ++presses;
    return false;
  }
  int presses = 0;
};

constexpr const char* kHexBoxes[] = {"MHStart", "MHEnd", "MHSize"};
constexpr const char* kDecimalBoxes[] = {"mdstart", "mdend", "Mdsize"};

TEST(ChunkPanel, ShowsTheChunkInBothBases) {
  Panel p(5000);
  EXPECT_EQ(p.TextOf("MHStart"), "00000000");
  EXPECT_EQ(p.TextOf("MHEnd"), "00001387");
  EXPECT_EQ(p.TextOf("MHSize"), "00001388");
  EXPECT_EQ(p.TextOf("mdstart"), "0");
  EXPECT_EQ(p.TextOf("mdend"), "4.999");
  EXPECT_EQ(p.TextOf("Mdsize"), "5.000");
}

TEST(ChunkPanel, HasItsToolTipsLabelsAndSpokenNames) {
  Panel p(5000);
  EXPECT_EQ(p.panel->Gstart->toolTip(), QStringLiteral("Goto Mark Start position"));
  EXPECT_EQ(p.panel->Gend->toolTip(), QStringLiteral("Goto Mark End position"));
  QStringList labels;
  for (const QLabel* label : p.panel->findChildren<QLabel*>()) labels << label->text();
  labels.sort();
  EXPECT_EQ(labels.join(QLatin1Char(' ')), QStringLiteral("Dec End Hex Size Start"));
  for (const char* name : {"MHStart", "MHEnd", "MHSize", "mdstart", "mdend", "Mdsize", "Gstart", "Gend"}) {
    EXPECT_FALSE(p.Find<QWidget>(name)->accessibleName().isEmpty()) << name;
  }
}

TEST(ChunkPanel, EnterTakesWhatWasTyped) {
  Panel p(5000);
  p.Enter("MHStart", "10");
  EXPECT_EQ(p.state.MarkStart, 16);
  p.Enter("MHEnd", "1ff");
  EXPECT_EQ(p.state.MarkEnd, 511);
  p.Enter("MHSize", "20");
  EXPECT_EQ(p.state.MarkEnd, 47);
  p.Enter("mdstart", "20");
  EXPECT_EQ(p.state.MarkStart, 20);
  p.Enter("mdend", "99");
  EXPECT_EQ(p.state.MarkEnd, 99);
  p.Enter("Mdsize", "10");
  EXPECT_EQ(p.state.MarkEnd, 29);
  EXPECT_EQ(p.TextOf("MHEnd"), "0000001D");
  EXPECT_EQ(p.TextOf("mdend"), "29");
}

TEST(ChunkPanel, AKeyInAnyBoxHoldsThePageBack) {
  for (const char* const* boxes : {kHexBoxes, kDecimalBoxes}) {
    for (int i = 0; i < 3; ++i) {
      Panel p(5000);
      p.Type(boxes[i], "12");
      EXPECT_TRUE(p.state.FieldTyping) << boxes[i];
      bwp::Refresh(p.state, p.display);
      EXPECT_EQ(p.TextOf(boxes[i]), "12");
    }
  }
}

TEST(ChunkPanel, EvenAKeyThatTypesNothingHoldsThePageBack) {
  Panel p(5000);
  for (const char* const* boxes : {kHexBoxes, kDecimalBoxes}) {
    for (int i = 0; i < 3; ++i) {
      for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Shift, Qt::Key_Delete, Qt::Key_F5}) {
        p.state.FieldTyping = false;
        QTest::keyClick(p.Find<QWidget>(boxes[i]), key);
        EXPECT_TRUE(p.state.FieldTyping) << boxes[i] << " " << key;
      }
    }
  }
}

TEST(ChunkPanel, DecimalBoxesPassEnterOnAndHexadecimalOnesKeepIt) {
  Panel p(5000);
  KeyCounter passed;
  p.panel->installEventFilter(&passed);
  for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
    for (const char* name : kHexBoxes) {
      QTest::keyClick(p.Find<QWidget>(name), enter);
      EXPECT_EQ(std::exchange(passed.presses, 0), 0) << name;
    }
    for (const char* name : kDecimalBoxes) {
      QTest::keyClick(p.Find<QWidget>(name), enter);
      EXPECT_EQ(std::exchange(passed.presses, 0), 1) << name;
    }
  }
}

TEST(ChunkPanel, TheNumberBlocksEnterIsEnter) {
  for (const char* const* boxes : {kHexBoxes, kDecimalBoxes}) {
    Panel p(5000);
    p.Type(boxes[2], "20");
    QTest::keyClick(p.Find<QWidget>(boxes[2]), Qt::Key_Enter);
    EXPECT_EQ(p.state.MarkEnd, boxes == kHexBoxes ? 31 : 19);
    EXPECT_FALSE(p.state.FieldTyping);
  }
}

TEST(ChunkPanel, EscapePutsTheBoxesBack) {
  for (const char* const* boxes : {kHexBoxes, kDecimalBoxes}) {
    for (int i = 0; i < 3; ++i) {
      Panel p(5000);
      const std::string before = p.TextOf(boxes[i]);
      p.Type(boxes[i], "12");
      QTest::keyClick(p.Find<QWidget>(boxes[i]), Qt::Key_Escape);
      EXPECT_FALSE(p.state.FieldTyping);
      EXPECT_EQ(p.TextOf(boxes[i]), before);
      EXPECT_EQ(p.state.MarkStart, 0);
      EXPECT_EQ(p.state.MarkEnd, 4999);
    }
  }
}

TEST(ChunkPanel, ATextThatIsNoNumberStaysAndChangesNothing) {
  Panel p(5000);
  p.Enter("mdstart", "1x");
  EXPECT_EQ(p.TextOf("mdstart"), "1x");
  EXPECT_TRUE(p.state.FieldTyping);
  EXPECT_EQ(p.state.MarkStart, 0);
  p.Enter("MHEnd", "xyz");
  EXPECT_EQ(p.TextOf("MHEnd"), "xyz");
  EXPECT_EQ(p.state.MarkEnd, 4999);
}

TEST(ChunkPanel, EnterAddsNoLineToAHexadecimalBox) {
  Panel p(5000);
  p.Enter("MHSize", "nothing");
  EXPECT_EQ(p.TextOf("MHSize"), "nothing");
}

TEST(ChunkPanel, TabOnlyMovesOn) {
  Panel p(5000);
  p.Find<QWidget>("MHStart")->setFocus();
  QTest::keyClick(p.Find<QWidget>("MHStart"), Qt::Key_Tab);
  EXPECT_FALSE(p.state.FieldTyping);
  EXPECT_EQ(QApplication::focusWidget(), p.Find<QWidget>("mdstart"));
}

TEST(ChunkPanel, TheButtonsGoToTheMarks) {
  Panel p(5000);
  p.state.MarkStart = 1000;
  p.state.MarkEnd = 3000;
  QTest::mouseClick(p.panel->Gstart, Qt::LeftButton);
  EXPECT_EQ(p.state.SWPrev, 1000);
  QTest::mouseClick(p.panel->Gend, Qt::LeftButton);
  EXPECT_EQ(p.state.SWPrev, 2489);
}

TEST(ChunkPanel, TheGotoButtonsEndTypingHoweverTheyAreWorked) {
  Panel p(5000);
  p.Enter("mdstart", "1000");
  for (QPushButton* const button : {p.panel->Gstart, p.panel->Gend}) {
    p.Type("mdend", "77");
    ASSERT_TRUE(p.state.FieldTyping);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_FALSE(p.state.FieldTyping);
    EXPECT_EQ(p.TextOf("mdend"), "4.999");
    EXPECT_EQ(p.state.SWPrev, button == p.panel->Gstart ? 1000 : 4488);
  }
}

}  // namespace
