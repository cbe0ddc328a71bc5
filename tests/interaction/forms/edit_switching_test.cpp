#include <gtest/gtest.h>

#include <QTimer>

#include "interaction/forms/edit_form.h"

namespace {

using bwp::test::ExpectPageOfFile;
using bwp::test::ReadFile;
using Cell = bwp::GridCell;
using Form = bwp::test::EditForm;

TEST(EditSwitching, EnteringEndsTypingSearchingAndSteppingAndShowsThePageOfTheViewState) {
  Form f(5000);
  f.state.SWStart = 1000;
  f.state.FieldTyping = true;
  f.state.ForceRefresh = true;
  f.state.ScrollStep = 16;
  f.edit->click();
  ASSERT_TRUE(f.controller->IsOn());
  EXPECT_EQ(f.state.SWStart, 1000);
  ExpectPageOfFile(f);
  EXPECT_TRUE(f.state.FieldTyping);
  EXPECT_FALSE(f.state.ForceRefresh);
  EXPECT_EQ(f.state.ScrollStep, 0);
  f.Keys("4");
  bwp::Refresh(f.state, f.display);
  EXPECT_EQ(f.Text(0, 1), "4") << "a key that came up has ended the typing";
}

TEST(EditSwitching, EnteringWhileAButtonScrollsStopsThePage) {
  Form f(50'000);
  auto* const down = f.Find<QAbstractButton>("VSDW");
  auto* const timer = f.Find<QTimer>("TimVSCR");
  f.display.onFrame = [&] {
    if (f.display.frames == 3) f.edit->click();
    if (f.display.frames > 100) f.state.AutoScroll = false;
  };
  QTest::mousePress(down, Qt::LeftButton);
  QTimerEvent elapsed(timer->timerId());
  QCoreApplication::sendEvent(timer, &elapsed);
  ASSERT_TRUE(f.controller->IsOn());
  EXPECT_EQ(f.display.frames, 3);
  EXPECT_FALSE(f.state.AutoScroll);
  EXPECT_FALSE(timer->isActive());
  EXPECT_EQ(f.state.SWStart, 48);
  ExpectPageOfFile(f);
  f.Keys("4");
  QTest::mouseRelease(down, Qt::LeftButton);
  f.bar->LetGo();
  EXPECT_EQ(f.state.SWStart, 48);
  EXPECT_EQ(f.Text(0, 1), "4");
  f.Click(f.Cancel);
  EXPECT_EQ(f.state.SWStart, 48);
  ExpectPageOfFile(f);
}

TEST(EditSwitching, EnteringStopsTheWaitOfAHeldButton) {
  Form f(50'000);
  QTest::mousePress(f.Find<QWidget>("VSDW"), Qt::LeftButton);
  ASSERT_TRUE(f.Find<QTimer>("TimVSCR")->isActive());
  f.edit->click();
  EXPECT_FALSE(f.Find<QTimer>("TimVSCR")->isActive());
  EXPECT_EQ(f.state.SWStart, 0);
}

TEST(EditSwitching, TheStepsOfEnteringSavingAndCancellingHaveTheirOrder) {
  Form f(5000);
  std::vector<std::string> steps;
  const auto note = [&](const char* what) {
    steps.push_back(std::string(what) + (f.controller->IsOn() ? " on " : " off ") +
                    f.edit->text().toStdString() + (f.table->isEnabled() ? " grid" : "") +
                    (f.Find<QWidget>("Gstart")->isEnabled() ? " others" : ""));
  };
  f.display.onRedraw = [&] { note("refresh"); };
  QObject::connect(f.controller, &bwp::EditController::ControlsEnabled, [&] { note("enabled"); });
  f.Click(f.edit);
  EXPECT_EQ(steps, (std::vector<std::string>{"refresh off Edit others"}));
  steps.clear();
  f.Click(f.edit);
  EXPECT_EQ(steps, (std::vector<std::string>{"refresh off Save", "enabled off Save others"}));
  f.Click(f.edit);
  steps.clear();
  f.Click(f.Cancel);
  EXPECT_EQ(steps, (std::vector<std::string>{"enabled off Save others", "refresh off Save others"}));
}

// The mode is on and nothing but typing changes the page.
void ExpectLocked(Form& f) {
  ASSERT_TRUE(f.controller->IsOn());
  EXPECT_TRUE(f.state.EditMode);
  EXPECT_EQ(f.edit->text(), QStringLiteral("Save"));
  EXPECT_EQ(f.Enabled(), Form::LiveInEditMode());
  const std::int64_t start = f.state.SWStart;
  f.table->setFocus();
  f.Key(Qt::Key_Down);
  EXPECT_EQ(f.table->CurrentCell(), (Cell{1, 1})) << "the key went to the page";
  f.Keys("4");
  EXPECT_EQ(f.Text(1, 1), "4");
  EXPECT_EQ(f.state.SWStart, start);
}

TEST(EditSwitching, ASecondClickWhileTheModeBeginsChangesNothing) {
  for (int round = 1; round <= 3; ++round) {
    for (const char* name : {"edit", "Cancel"}) {
      SCOPED_TRACE(std::string(name) + " in round " + std::to_string(round));
      Form f(5000);
      f.InRound(round, [&] { f.Find<QPushButton>(name)->click(); });
      f.Click(f.edit);
      EXPECT_TRUE(f.transcript.empty());
      EXPECT_TRUE(f.state.FieldTyping);
      ExpectLocked(f);
    }
  }
}

TEST(EditSwitching, ADoubleClickWhileTheModeBeginsChangesNothing) {
  for (int round = 1; round <= 3; ++round) {
    SCOPED_TRACE(round);
    Form f(5000);
    f.InRound(round, [&] { bwp::test::DoubleClickAt(f.window, f.Place(0, 1)); });
    f.Click(f.edit);
    ExpectLocked(f);
  }
}

TEST(EditSwitching, AClickOnEditWhileTheModeEndsDoesNotBeginItAgain) {
  for (const bool save : {false, true}) {
    for (int round = 1; round <= 3; ++round) {
      SCOPED_TRACE((save ? "saving, round " : "cancelling, round ") + std::to_string(round));
      Form f(5000);
      const QStringList before = f.Enabled();
      f.Click(f.edit);
      f.InRound(round, [&] { f.edit->click(); });
      f.Click(save ? f.edit : f.Cancel);
      EXPECT_FALSE(f.controller->IsOn());
      EXPECT_FALSE(f.state.EditMode);
      EXPECT_FALSE(f.state.FieldTyping);
      EXPECT_EQ(f.edit->text(), QStringLiteral("Edit"));
      EXPECT_EQ(f.Enabled(), before);
    }
  }
}

TEST(EditSwitching, WhileTheQuestionIsUpNeitherButtonDoesAnything) {
  for (const char* name : {"edit", "Cancel"}) {
    Form f(5000);
    f.Click(f.edit);
    f.Keys("00");
    f.notices.onTell = [&] {
      if (f.transcript.size() == 1) f.Find<QPushButton>(name)->click();
    };
    f.Click(f.edit);
    EXPECT_EQ(f.transcript, (bwp::test::Transcript{"ask Are you sure you want to save changes ?"})) << name;
    EXPECT_EQ(ReadFile(f.path).front(), '\0') << name;
    EXPECT_FALSE(f.controller->IsOn()) << name;
  }
}

TEST(EditSwitching, AnEnterInABoxDuringWhichTheModeBeginsDoesNotUnlockThePage) {
  for (const char* box : {"HStart", "HEnd", "Dend", "MHStart", "mdend"}) {
    SCOPED_TRACE(box);
    Form f(5000);
    auto* const field = f.Find<QWidget>(box);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, QStringLiteral("1000"));
    f.InRound(1, [&] { f.edit->click(); });
    QTest::keyClick(field, Qt::Key_Return);
    ExpectLocked(f);
  }
}

TEST(EditSwitching, ItDoesNotBeginWhereItMayNot) {
  Form f(5000);
  f.controller->mayEnter = [] { return false; };
  f.Click(f.edit);
  EXPECT_FALSE(f.controller->Busy());
  EXPECT_EQ(f.edit->text(), QStringLiteral("Edit"));
}

TEST(EditSwitching, TheFormIsBusyFromTheFirstClickToTheLastEvent) {
  Form f(5000);
  std::vector<bool> busy;
  f.display.onEvents = [&] { busy.push_back(f.controller->Busy()); };
  f.Click(f.edit);
  f.Click(f.edit);
  f.Click(f.edit);
  f.Click(f.Cancel);
  EXPECT_EQ(busy, std::vector<bool>(busy.size(), true));
  EXPECT_GE(busy.size(), 10U);
  EXPECT_FALSE(f.controller->Busy());
}

TEST(EditSwitching, WhenAFileWithoutAByteIsOpenedMeanwhileTheModeDoesNotBegin) {
  Form f(5000);
  const QStringList before = f.Enabled();
  f.InRound(2, [&] { OpenViewFile(f.state, f.folder.Write("empty", "")); });
  f.Click(f.edit);
  EXPECT_FALSE(f.controller->IsOn());
  EXPECT_EQ(f.edit->text(), QStringLiteral("Edit"));
  EXPECT_EQ(f.Enabled(), before);
}

TEST(EditSwitching, AFileThatWasOpenedMeanwhileIsNotOverwritten) {
  const std::string other(600, 'x');
  for (const bool save : {true, false}) {
    Form f(5000);
    f.Click(f.edit);
    f.Keys("00");
    OpenViewFile(f.state, f.folder.Write("other", other));
    f.Click(save ? f.edit : f.Cancel);
    EXPECT_FALSE(f.controller->IsOn());
    EXPECT_EQ(f.transcript.empty(), !save);
    EXPECT_EQ(ReadFile(f.path), f.bytes);
    EXPECT_EQ(ReadFile(f.folder / "other"), other);
    EXPECT_EQ(f.Text(0, 1), "78");
    EXPECT_EQ(f.state.tabe.Background(0, 2), bwp::kValueColour);
  }
}

}  // namespace
