#include <filesystem>
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "app/forms/main_form_fixture.h"
#include "support/forms/answer_box.h"

namespace {

using bwp::test::AnswerBoxes;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;

// Only one command works on the open file at a time, however many windows there are.
class OneAtATime : public bwp::test::MainFormTest {
 protected:
  QWidget* Window(const char* name) { return Find<QWidget>(name); }
  template <typename Control>
  Control* In(QWidget* window, const char* name) {
    return window->findChild<Control*>(QString::fromLatin1(name));
  }
  void EnterEditMode() { QTest::mouseClick(Button("edit"), Qt::LeftButton); }
  /// The names of the window's controls and menu entries that are enabled.
  QStringList NamesOfWhatIsEnabled() {
    QStringList names;
    for (const QWidget* const widget : form->findChildren<QWidget*>()) {
      const QString name = widget->objectName();
      const bool ours = !name.isEmpty() && !name.startsWith(QStringLiteral("qt_"));
      if (ours && widget->window() == form.get() && widget->isEnabled()) names << name;
    }
    for (const QAction* const entry : form->findChildren<QAction*>()) {
      const QString name = entry->objectName();
      const bool ours = !name.isEmpty() && !name.startsWith(QStringLiteral("_q_"));
      if (ours && entry->isEnabled()) names << name;
    }
    names.sort();
    return names;
  }
  QPushButton* CancelEdit() {
    for (QPushButton* const button : form->findChildren<QPushButton*>(QStringLiteral("Cancel"))) {
      if (button->window() == form.get()) return button;
    }
    return nullptr;
  }
};

TEST_F(OneAtATime, EditModeHidesTheFileDialogsAndTheirButtonsDoNothingMeanwhile) {
  folder.Write("other.bin", PatternBytes(5000));
  folder.Write("Bytewarp.cfg", "#TRUE#,4,\"" + folder.Path() + "\"\n");
  StartOnFile(1000);
  Entry("menuopen")->trigger();
  Entry("sav")->trigger();
  QWidget* const loader = Window("Loader");
  QWidget* const saver = Window("Saver");
  EnterEditMode();
  EXPECT_FALSE(loader->isVisible());
  EXPECT_FALSE(saver->isVisible());

  // A click that was already pending.
  In<QLineEdit>(loader, "Ftext")->setText(QStringLiteral("other.bin"));
  In<QPushButton>(loader, "Fload")->click();
  In<QLineEdit>(saver, "Ftext")->setText(QStringLiteral("copy.bin"));
  In<QPushButton>(saver, "Fsave")->click();
  EXPECT_EQ(form->State().OpenFile, folder / "file.bin");
  EXPECT_FALSE(std::filesystem::exists(folder / "copy.bin"));
  EXPECT_FALSE(Button("cop")->isEnabled());

  AnswerBoxes boxes;
  QTest::mouseClick(Button("edit"), Qt::LeftButton);
  EXPECT_EQ(ReadFile(folder / "file.bin"), PatternBytes(1000));
  EXPECT_EQ(ReadFile(folder / "other.bin"), PatternBytes(5000));
  EXPECT_TRUE(Button("cop")->isEnabled());
}

TEST_F(OneAtATime, EditModeLeavesNoOtherControlAndNoEntryAliveAndGivesAllBack) {
  StartOnFile(1000);
  const QStringList before = NamesOfWhatIsEnabled();
  EXPECT_GT(before.size(), 30);
  EXPECT_TRUE(before.contains(QStringLiteral("MenuExit")));
  EXPECT_FALSE(before.contains(QStringLiteral("tabe")));
  for (QPushButton* const end : {Button("edit"), CancelEdit()}) {
    EnterEditMode();
    EXPECT_EQ(NamesOfWhatIsEnabled(),
              (QStringList{QStringLiteral("Cancel"), QStringLiteral("edit"), QStringLiteral("tabe")}));
    const AnswerBoxes boxes;
    QTest::mouseClick(end, Qt::LeftButton);
    EXPECT_EQ(NamesOfWhatIsEnabled(), before);
  }
}

TEST_F(OneAtATime, TheFileDialogsWorkAgainAfterEditMode) {
  folder.Write("other.bin", "other");
  folder.Write("Bytewarp.cfg", "#TRUE#,4,\"" + folder.Path() + "\"\n");
  StartOnFile(1000);
  EnterEditMode();
  QTest::mouseClick(CancelEdit(), Qt::LeftButton);
  QTest::mouseClick(Button("opn"), Qt::LeftButton);
  QWidget* const loader = Window("Loader");
  ASSERT_TRUE(loader->isVisible());
  In<QLineEdit>(loader, "Ftext")->setText(QStringLiteral("other.bin"));
  In<QPushButton>(loader, "Fload")->click();
  EXPECT_EQ(form->State().OpenFile, folder / "other.bin");
}

TEST_F(OneAtATime, TheSaveDialogGoesWhenTheBytesItWasOpenedForChange) {
  StartOnFile(1000);
  Entry("menucopy")->trigger();
  Entry("sav")->trigger();
  QWidget* const saver = Window("Saver");
  Press(Qt::Key_PageDown);
  Entry("menucopy")->trigger();
  EXPECT_TRUE(saver->isVisible()) << "looking and copying change nothing";
  AnswerBoxes boxes;
  Entry("menuappend")->trigger();
  EXPECT_FALSE(saver->isVisible()) << "it would save the first half only";
  Entry("sav")->trigger();
  EXPECT_TRUE(saver->isVisible());
}

TEST_F(OneAtATime, AnEmptyFileHasNothingToEdit) {
  StartOnFile(0);
  EXPECT_TRUE(Button("Paste")->isEnabled());
  EXPECT_FALSE(Button("edit")->isEnabled());
}

TEST_F(OneAtATime, CuttingAllBytesLeavesNothingToEdit) {
  StartOnFile(100);
  ASSERT_TRUE(Button("edit")->isEnabled());
  Entry("menucut")->trigger();
  EXPECT_FALSE(Button("edit")->isEnabled());
}

TEST_F(OneAtATime, AHeldShortcutIsOnePress) {
  StartOnFile(4096);
  QLineEdit* const Mdsize = Find<QLineEdit>("Mdsize");
  Mdsize->selectAll();
  QTest::keyClicks(Mdsize, QStringLiteral("100"));
  QTest::keyClick(Mdsize, Qt::Key_Return);
  form->setFocus();
  const auto press = [this](bool again) {
    QTest::simulateEvent(form.get(), true, Qt::Key_X, Qt::ControlModifier, QStringLiteral("x"), again);
  };
  press(false);
  press(true);
  press(true);
  EXPECT_EQ(ReadFile(folder / "file.bin"), PatternBytes(4096).substr(100));
  EXPECT_EQ(form->State().BufferData, PatternBytes(4096).substr(0, 100));
}

TEST_F(OneAtATime, NoSecondOperationStartsWhileTheFirstHasItsMessageUp) {
  StartOnFile(1000);
  Entry("menucopy")->trigger();
  AnswerBoxes boxes;
  boxes.onBox = [this](QMessageBox&) { Entry("menucut")->trigger(); };
  Entry("menuappend")->trigger();
  EXPECT_EQ(ReadFile(folder / "file.bin"), PatternBytes(1000) + PatternBytes(1000));
  EXPECT_EQ(boxes.Lines(), std::vector<std::string>{"[Bytewarp] Insert Successful"});
}

TEST_F(OneAtATime, NoSearchStartsWhileAnOperationRuns) {
  for (const bool button : {false, true}) {
    StartOnFile(4096);
    QTest::keyClicks(Find<QLineEdit>("Atext"), QStringLiteral("none"));
    bool tried = false;
    QTimer tool;
    QObject::connect(&tool, &QTimer::timeout, form.get(), [&] {
      auto* const progress = form->findChild<QWidget*>(QStringLiteral("Progform"));
      if (progress == nullptr || !progress->isVisible()) return;
      tool.stop();
      tried = true;
      const QString title = progress->windowTitle();
      button ? Button("Find")->click() : Entry("menufindnext")->trigger();
      EXPECT_TRUE(progress->isVisible());
      EXPECT_EQ(progress->windowTitle(), title);
    });
    tool.start(0);
    AnswerBoxes boxes;
    Entry("menucopy")->trigger();
    EXPECT_TRUE(tried);
    EXPECT_TRUE(boxes.Seen().empty());
    EXPECT_EQ(form->State().BufferData, PatternBytes(4096));
  }
}

TEST_F(OneAtATime, NothingElseStartsWhileASearchHasItsMessageUp) {
  for (const bool button : {false, true}) {
    StartOnFile(4096);
    QTest::keyClicks(Find<QLineEdit>("Atext"), QStringLiteral("none"));
    AnswerBoxes boxes;
    boxes.onBox = [&, this](QMessageBox&) {
      if (boxes.Seen().size() > 1) return;
      Entry("menucut")->trigger();
      Entry("menufindnext")->trigger();
      Button("edit")->click();
    };
    button ? Button("Find")->click() : Entry("menufindnext")->trigger();
    EXPECT_EQ(boxes.Lines(), std::vector<std::string>{"[Bytewarp] String not found"});
    EXPECT_EQ(ReadFile(folder / "file.bin"), PatternBytes(4096));
    EXPECT_EQ(Button("edit")->text(), QStringLiteral("Edit"));
  }
}

TEST_F(OneAtATime, AMessageOrAnOperationKeepsEditModeAway) {
  StartOnFile(1000);
  Entry("menucopy")->trigger();
  AnswerBoxes boxes;
  boxes.onBox = [this](QMessageBox&) { Button("edit")->click(); };
  Entry("menuappend")->trigger();
  EXPECT_EQ(boxes.Seen().size(), 1U);
  EXPECT_EQ(Button("edit")->text(), QStringLiteral("Edit"));
  EXPECT_FALSE(form->State().EditMode);
}

TEST_F(OneAtATime, ClosingWaitsUntilTheOperationIsOverAndItsMessageWasRead) {
  StartOnFile(1000);
  Entry("menucopy")->trigger();
  AnswerBoxes boxes;
  boxes.onBox = [this](QMessageBox&) {
    form->close();
    QTest::qWait(250);
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(std::filesystem::exists(folder / "Bytewarp.cfg"));
  };
  Entry("menuappend")->trigger();
  EXPECT_EQ(boxes.Seen().size(), 1U);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !form->isVisible(); }));
  EXPECT_TRUE(std::filesystem::exists(folder / "Bytewarp.cfg"));
  EXPECT_EQ(ReadFile(folder / "file.bin"), PatternBytes(1000) + PatternBytes(1000));
}

}  // namespace
