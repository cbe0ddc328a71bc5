#include "interaction/forms/keyboard_filter.h"

#include <gtest/gtest.h>
#include <memory>

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "support/forms/interaction_window.h"
#include "viewer/refresh.h"

namespace {

using bwp::KeyboardFilter;
using bwp::ScrollBarWidget;
using bwp::test::FileWindow;

/// A field as the form's own are: a key going down in it begins typing.
class Field : public QLineEdit {
 public:
  Field(bwp::ViewState& state, QWidget* parent) : QLineEdit(parent), state_(state) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    state_.FieldTyping = true;
    QLineEdit::keyPressEvent(event);
  }

 private:
  bwp::ViewState& state_;
};

struct Keys : FileWindow {
  explicit Keys(std::size_t length) : FileWindow(length) {
    auto* const row = new QHBoxLayout(&window);
    bar = new ScrollBarWidget(state, display, &window);
    field = new Field(state, &window);
    button = new QPushButton(&window);
    hexop = new QRadioButton(&window);
    decop = new QRadioButton(&window);
    auto* const column = new QVBoxLayout;
    for (QWidget* const part : std::initializer_list<QWidget*>{field, button, hexop, decop}) {
      column->addWidget(part);
    }
    row->addWidget(bar);
    row->addLayout(column);
    hexop->setChecked(true);
    filter = std::make_unique<KeyboardFilter>(state, display, *bar, window);
    Show();
    bwp::Refresh(state, display);
  }

  QWidget* Focused() { return QApplication::focusWidget(); }
  /// The key goes to whoever has the focus, as the keyboard's does.
  void Press(Qt::Key key) { QTest::keyPress(window.windowHandle(), key); }
  void Release(Qt::Key key) { QTest::keyRelease(window.windowHandle(), key); }
  void Click(Qt::Key key) {
    Press(key);
    Release(key);
  }
  void Repeat(Qt::Key key, int times) {
    for (int i = 0; i < times; ++i) {
      QKeyEvent up(QEvent::KeyRelease, key, {}, {}, true);
      QCoreApplication::sendEvent(Focused(), &up);
      QKeyEvent down(QEvent::KeyPress, key, {}, {}, true);
      QCoreApplication::sendEvent(Focused(), &down);
    }
  }
  void HoldElapses() {
    auto* const timer = Find<QTimer>("TimVSCR");
    ASSERT_TRUE(timer->isActive());
    QTimerEvent elapsed(timer->timerId());
    QCoreApplication::sendEvent(timer, &elapsed);
  }

  ScrollBarWidget* bar;
  Field* field;
  QPushButton* button;
  QRadioButton* hexop;
  QRadioButton* decop;
  std::unique_ptr<KeyboardFilter> filter;
};

TEST(KeyboardFilter, TheNavigationKeysWorkAtOnce) {
  Keys k(5000);
  EXPECT_EQ(k.Focused(), &k.window);
  k.Click(Qt::Key_PageDown);
  EXPECT_EQ(k.state.SWPrev, 512);
  k.Click(Qt::Key_Down);
  EXPECT_EQ(k.state.SWPrev, 528);
  k.Click(Qt::Key_Up);
  k.Click(Qt::Key_PageUp);
  EXPECT_EQ(k.state.SWPrev, 0);
}

TEST(KeyboardFilter, HomeAndEndShowTheMarks) {
  Keys k(5000);
  k.state.MarkStart = 1000;
  k.state.MarkEnd = 3000;
  k.Click(Qt::Key_Home);
  EXPECT_EQ(k.state.SWPrev, 1000);
  k.Click(Qt::Key_End);
  EXPECT_EQ(k.state.SWPrev, 2489);
}

TEST(KeyboardFilter, OnAButtonOrABoxTheyScrollAndMoveNeitherFocusNorChoice) {
  Keys k(5000);
  for (QWidget* const control : std::initializer_list<QWidget*>{k.button, k.hexop}) {
    k.state.SWStart = 0;
    control->setFocus();
    k.Click(Qt::Key_Down);
    k.Click(Qt::Key_PageDown);
    EXPECT_EQ(k.state.SWPrev, 528);
    EXPECT_EQ(k.Focused(), control);
  }
  EXPECT_TRUE(k.hexop->isChecked());
}

TEST(KeyboardFilter, OtherKeysStillWorkTheButton) {
  Keys k(5000);
  QSignalSpy clicks(k.button, &QPushButton::clicked);
  k.button->setFocus();
  k.Click(Qt::Key_Space);
  EXPECT_EQ(clicks.count(), 1);
  EXPECT_EQ(k.state.SWStart, 0);
  k.Click(Qt::Key_Tab);
  EXPECT_NE(k.Focused(), k.button);
}

TEST(KeyboardFilter, AHeldKeyIsOnePressHoweverOftenItRepeats) {
  Keys k(5000);
  k.Press(Qt::Key_Down);
  k.Repeat(Qt::Key_Down, 10);
  EXPECT_EQ(k.state.SWStart, 0);
  k.Release(Qt::Key_Down);
  EXPECT_EQ(k.state.SWStart, 16);
}

TEST(KeyboardFilter, AKeyHeldForHalfASecondScrollsUntilItComesUp) {
  Keys k(50'000);
  k.display.onFrame = [&] {
    k.Repeat(Qt::Key_Down, 2);
    if (k.display.frames == 7) k.Release(Qt::Key_Down);
  };
  k.Press(Qt::Key_Down);
  k.Repeat(Qt::Key_Down, 3);
  k.HoldElapses();
  EXPECT_EQ(k.display.frames, 7);
  EXPECT_EQ(k.state.SWStart, 8 * 16);
  EXPECT_FALSE(k.state.AutoScroll);
}

TEST(KeyboardFilter, AKeyTypedInAFieldReachesTheFieldFirstAndTheFormLeavesItAlone) {
  Keys k(5000);
  k.field->setFocus();
  k.Click(Qt::Key_7);
  EXPECT_EQ(k.field->text(), QStringLiteral("7"));
  EXPECT_TRUE(k.state.FieldTyping);
  k.Click(Qt::Key_Home);
  EXPECT_EQ(k.field->cursorPosition(), 0);
  k.Click(Qt::Key_PageDown);
  EXPECT_EQ(k.state.SWStart, 0);
}

TEST(KeyboardFilter, AKeyHeldInAFieldRepeatsThere) {
  Keys k(5000);
  k.field->setFocus();
  for (int i = 0; i < 3; ++i) {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_7, {}, QStringLiteral("7"), i > 0);
    QCoreApplication::sendEvent(k.field, &down);
  }
  EXPECT_EQ(k.field->text(), QStringLiteral("777"));
}

TEST(KeyboardFilter, InEditModeTheKeysGoToWhoHasTheFocus) {
  Keys k(5000);
  k.state.FieldTyping = true;
  k.hexop->setFocus();
  k.Click(Qt::Key_Down);
  EXPECT_EQ(k.state.SWStart, 0);
  EXPECT_TRUE(k.decop->isChecked());
}

TEST(KeyboardFilter, LosingTheFocusLetsGoOfAHeldKey) {
  Keys k(50'000);
  k.display.onFrame = [&] {
    if (k.display.frames == 3) {
      QEvent away(QEvent::WindowDeactivate);
      QCoreApplication::sendEvent(&k.window, &away);
    }
  };
  k.Press(Qt::Key_PageDown);
  k.HoldElapses();
  EXPECT_EQ(k.display.frames, 3);
  EXPECT_EQ(k.state.SWStart, 4 * 512);
  EXPECT_FALSE(k.state.AutoScroll);
}

TEST(KeyboardFilter, LosingTheFocusReallyLetsGoOfAHeldButton) {
  Keys k(50'000);
  QWidget other;
  k.display.onFrame = [&] {
    if (k.display.frames == 3) {
      other.show();
      other.activateWindow();
    }
    if (k.display.frames > 1000) k.bar->LetGo();
  };
  QTest::mousePress(k.Find<QWidget>("VSDW"), Qt::LeftButton);
  k.HoldElapses();
  EXPECT_LT(k.display.frames, 1000);
  EXPECT_FALSE(k.state.AutoScroll);
}

TEST(KeyboardFilter, AKeyThatComesUpInAnotherWindowIsLetGo) {
  Keys k(50'000);
  QWidget popup(&k.window, Qt::Popup);
  k.display.onFrame = [&] {
    if (k.display.frames == 3) {
      popup.show();
      QTest::keyRelease(&popup, Qt::Key_Down);
      popup.hide();
    }
  };
  k.Press(Qt::Key_Down);
  k.HoldElapses();
  EXPECT_EQ(k.display.frames, 3);
  EXPECT_FALSE(k.state.AutoScroll);
}

TEST(KeyboardFilter, TheWheelScrollsThreeLinesANotch) {
  Keys k(5000);
  const auto turn = [&](int eighths) {
    const QPointF place(5, 5);
    QWheelEvent event(place, k.window.mapToGlobal(place), {}, QPoint(0, eighths), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&k.window, &event);
  };
  turn(-120);
  EXPECT_EQ(k.state.SWPrev, 48);
  turn(20);
  turn(20);
  EXPECT_EQ(k.state.SWPrev, 32);
  k.Find<QWidget>("VSBack")->setEnabled(false);
  turn(-120);
  EXPECT_EQ(k.state.SWPrev, 32);
}

TEST(KeyboardFilter, AnotherWindowsKeysAreItsOwn) {
  Keys k(5000);
  QLineEdit other;
  other.show();
  QTest::keyClick(&other, Qt::Key_PageDown);
  QTest::keyClick(&other, Qt::Key_A);
  EXPECT_EQ(other.text(), QStringLiteral("a"));
  EXPECT_EQ(k.state.SWStart, 0);
}

TEST(KeyboardFilter, APressOnAButtonAloneEndsNoTyping) {
  Keys k(5000);
  k.state.FieldTyping = true;
  QTest::mousePress(k.button, Qt::LeftButton);
  EXPECT_TRUE(k.state.FieldTyping);
  QTest::mouseRelease(k.button, Qt::LeftButton, {}, QPoint(-50, -50));
  QTest::mouseClick(k.button, Qt::RightButton);
  EXPECT_TRUE(k.state.FieldTyping);
}

}  // namespace
