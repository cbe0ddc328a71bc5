#include "fileops/forms/progform.h"

#include <gtest/gtest.h>
#include <vector>

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include "support/forms/dialog_checks.h"

namespace {

class ProgformTest : public testing::Test {
 protected:
  QProgressBar& Bar() { return *form_.findChild<QProgressBar*>(QStringLiteral("Bar")); }
  QLabel& Lab() { return *form_.findChild<QLabel*>(QStringLiteral("Lab")); }
  void PressCancel() {
    QTest::mouseClick(form_.findChild<QPushButton*>(QStringLiteral("Cancel")), Qt::LeftButton);
  }

  bwp::Progform form_{nullptr};
};

TEST_F(ProgformTest, HasItsCaptionAndControls) {
  EXPECT_EQ(form_.objectName(), QStringLiteral("Progform"));
  EXPECT_EQ(form_.windowTitle(), QStringLiteral("Work in progress"));
  EXPECT_EQ(Bar().minimum(), 0);
  EXPECT_EQ(Bar().maximum(), 100);
  EXPECT_EQ(form_.findChild<QPushButton*>(QStringLiteral("Cancel"))->text(), QStringLiteral("Cancel"));
  EXPECT_FALSE(form_.Aborted());
}

TEST_F(ProgformTest, ShowsCaptionAndLabelLiterally) {
  form_.SetCaption("Saving to file ");
  form_.SetLabel("R&D <b>/\xFF");
  EXPECT_EQ(form_.windowTitle(), QStringLiteral("Saving to file "));
  EXPECT_EQ(form_.Label(), "R&D <b>/\xFF");
  EXPECT_EQ(Lab().text().left(8), QStringLiteral("R&D <b>/"));
  EXPECT_EQ(Lab().textFormat(), Qt::PlainText);
}

TEST_F(ProgformTest, TheBarShowsTheWholePart) {
  form_.Show();
  for (const auto& [percent, shown] :
       {std::pair{0.0F, 0}, {33.99F, 33}, {99.999F, 99}, {100.0F, 100}, {0.0F, 0}}) {
    form_.SetBar(percent);
    EXPECT_EQ(Bar().value(), shown);
  }
}

TEST_F(ProgformTest, TheBarIsPaintedSoonAfterItWasSet) {
  form_.Show();
  form_.LetEventsRun();
  form_.SetBar(60);
  form_.LetEventsRun();
  QTest::qSleep(200);
  form_.LetEventsRun();
  EXPECT_TRUE(Bar().updatesEnabled());
}

TEST_F(ProgformTest, IsTheOnlyWindowThatTakesInputWhileItIsShown) {
  QLineEdit other;
  other.show();
  form_.Show();
  QTest::keyClicks(&other, QStringLiteral("dropped"));
  EXPECT_EQ(other.text(), QString());
  form_.Hide();
  QTest::keyClicks(&other, QStringLiteral("taken"));
  EXPECT_EQ(other.text(), QStringLiteral("taken"));
}

TEST_F(ProgformTest, DropsClicksOnOtherWindowsWhileItIsShown) {
  QPushButton other;
  int clicks = 0;
  QObject::connect(&other, &QPushButton::clicked, [&clicks] { ++clicks; });
  other.show();
  form_.Show();
  QTest::mouseClick(&other, Qt::LeftButton);
  EXPECT_EQ(clicks, 0);
  form_.Hide();
  QTest::mouseClick(&other, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
}

// What an input method composes of several keys arrives in one piece, and is no key.
TEST_F(ProgformTest, DropsComposedCharactersMeantForOtherWindowsWhileItIsShown) {
  QLineEdit other;
  other.show();
  const auto compose = [&other](const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&other, &event);
  };
  form_.Show();
  compose(QStringLiteral("dropped"));
  EXPECT_EQ(other.text(), QString());
  form_.Hide();
  compose(QStringLiteral("taken"));
  EXPECT_EQ(other.text(), QStringLiteral("taken"));
}

TEST_F(ProgformTest, HearsTheKeysThatAnotherWindowGets) {
  QLineEdit other;
  other.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
  form_.Show();
  QTest::keyClick(other.windowHandle(), Qt::Key_Escape);
  EXPECT_TRUE(form_.Aborted());
}

// Whether it really does is for a window manager to show: see the end-to-end tests.
TEST_F(ProgformTest, AsksForNoFocusWhenItIsShown) {
  EXPECT_TRUE(form_.testAttribute(Qt::WA_ShowWithoutActivating));
}

// Notes that a window was told to let go of what is held.
class BlockedWatch : public QWidget {
 public:
  std::vector<QEvent::Type> seen;

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked) {
      seen.push_back(event->type());
    }
    return QWidget::event(event);
  }
};

TEST_F(ProgformTest, TellsOtherWindowsThatTheyAreBlockedAndFreeAgain) {
  BlockedWatch other;
  other.show();
  form_.Show();
  EXPECT_EQ(other.seen, std::vector{QEvent::WindowBlocked});
  form_.Hide();
  EXPECT_EQ(other.seen, (std::vector{QEvent::WindowBlocked, QEvent::WindowUnblocked}));
}

TEST_F(ProgformTest, CancelOnlySetsTheFlag) {
  form_.Show();
  PressCancel();
  EXPECT_TRUE(form_.Aborted());
  EXPECT_TRUE(form_.isVisible());
  PressCancel();
  EXPECT_TRUE(form_.Aborted());
  form_.Hide();
  EXPECT_TRUE(form_.Aborted()) << "the operation clears it";
  form_.ClearAbort();
  EXPECT_FALSE(form_.Aborted());
}

TEST_F(ProgformTest, EscapeIsCancel) {
  form_.Show();
  QTest::keyClick(&form_, Qt::Key_Escape);
  EXPECT_TRUE(form_.Aborted());
  EXPECT_TRUE(form_.isVisible());
}

TEST_F(ProgformTest, ClosingItsFrameIsCancel) {
  form_.Show();
  EXPECT_FALSE(form_.close());
  EXPECT_TRUE(form_.Aborted());
  EXPECT_TRUE(form_.isVisible());
}

TEST_F(ProgformTest, AnEnterStillHeldFromStartingTheOperationDoesNotCancelIt) {
  form_.Show();
  QTest::keyClick(&form_, Qt::Key_Return);
  QTest::keyClick(form_.findChild<QPushButton*>(QStringLiteral("Cancel")), Qt::Key_Return);
  EXPECT_FALSE(form_.Aborted());
}

TEST_F(ProgformTest, APressThatWaitsIsSeenWhenEventsRun) {
  form_.Show();
  auto* cancel = form_.findChild<QPushButton*>(QStringLiteral("Cancel"));
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QCoreApplication::postEvent(cancel, new QKeyEvent(type, Qt::Key_Space, Qt::NoModifier));
  }
  EXPECT_FALSE(form_.Aborted());
  form_.LetEventsRun();
  EXPECT_TRUE(form_.Aborted());
}

// A click that the window system has delivered and no round of events has seen yet.
void LeaveAClickWaiting(QWidget& widget) {
  QWindow* const window = widget.window()->windowHandle();
  const QPoint place = widget.mapTo(widget.window(), widget.rect().center());
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    const bool down = type == QEvent::MouseButtonPress;
    QCoreApplication::postEvent(window,
                                new QMouseEvent(type, place, window->mapToGlobal(place), Qt::LeftButton,
                                                down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
  }
}

TEST_F(ProgformTest, AClickOnAnotherWindowThatWaitsWhenItHidesStartsNothing) {
  QPushButton other;
  int clicks = 0;
  QObject::connect(&other, &QPushButton::clicked, [&] { ++clicks; });
  other.show();
  form_.Show();
  form_.LetEventsRun();
  LeaveAClickWaiting(other);
  form_.Hide();
  QCoreApplication::processEvents();
  EXPECT_EQ(clicks, 0);
  LeaveAClickWaiting(other);
  QCoreApplication::processEvents();
  EXPECT_EQ(clicks, 1) << "clicks of this kind do arrive where nothing is in their way";
}

TEST_F(ProgformTest, AClickOnCancelThatWaitsWhenItHidesCounts) {
  form_.Show();
  form_.LetEventsRun();
  LeaveAClickWaiting(*form_.findChild<QPushButton*>(QStringLiteral("Cancel")));
  form_.Hide();
  EXPECT_TRUE(form_.Aborted());
}

TEST_F(ProgformTest, NoLabelChangesItsSize) {
  form_.SetLabel("Wait please");
  form_.Show();
  form_.LetEventsRun();
  const QSize size = form_.size();
  for (const std::size_t length : {0U, 60U, 200U, 4000U}) {
    form_.SetLabel("/" + std::string(length, 'x'));
    form_.LetEventsRun();
    EXPECT_EQ(form_.size(), size) << length;
    bwp::test::ExpectTidy(form_);
  }
}

TEST(LazyProgform, IsMadeWhenItIsFirstNeeded) {
  QWidget window;
  bwp::LazyProgform progress(&window);
  progress.ClearAbort();
  EXPECT_FALSE(progress.Aborted());
  EXPECT_EQ(progress.Label(), "");
  EXPECT_TRUE(window.children().isEmpty());
  progress.SetLabel("Wait please");
  auto* form = window.findChild<QDialog*>(QStringLiteral("Progform"));
  ASSERT_NE(form, nullptr);
  progress.Show();
  EXPECT_TRUE(form->isVisible());
  progress.LetEventsRun();
  QTest::keyClick(form, Qt::Key_Escape);
  EXPECT_TRUE(progress.Aborted());
  progress.Hide();
  progress.ClearAbort();
  EXPECT_FALSE(progress.Aborted());
  EXPECT_EQ(window.findChildren<QDialog*>().size(), 1);
}

}  // namespace
