#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "app/forms/main_form_fixture.h"
#include "support/forms/answer_box.h"

namespace {

using bwp::test::AnswerBoxes;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using Lines = std::vector<std::string>;

// Does something in the first round of events after a window was hidden.
class AfterHiding : public QObject {
 public:
  AfterHiding(QWidget& window, std::function<void()> action) : action_(std::move(action)) {
    window.installEventFilter(this);
  }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Hide) QTimer::singleShot(0, this, action_);
    return false;
  }

 private:
  std::function<void()> action_;
};

// A split and a join work on the open file as the main form's own commands do: nothing else runs meanwhile.
class SplitJoinOperation : public bwp::test::MainFormTest {
 protected:
  void StartInItsFolder(std::size_t length) {
    folder.Write("Bytewarp.cfg", "#TRUE#,4,\"" + folder.Path() + "\"\n");
    StartOnFile(length);
    Entry("menusplitjoin")->trigger();
  }
  template <typename Control>
  Control& In(const char* window, const char* name) {
    return *Find<QWidget>(window)->findChild<Control*>(QString::fromLatin1(name));
  }
  void Press(const char* window, const char* button) { In<QPushButton>(window, button).click(); }
  void Fill(const char* window, const char* field, const char* text) {
    In<QLineEdit>(window, field).setText(QString::fromLatin1(text));
  }

  void AskToSplit() {
    Fill("Divide", "DChsize", "600");
    Press("Divide", "Split");
    Fill("Fsel", "Ftext", "part");
    Press("Fsel", "ActionB");
  }
  void AskToJoin() {
    folder.Write("x.000", PatternBytes(700));
    folder.Write("x.001", "end");
    Press("Divide", "Join");
    Fill("Fjoin", "Ftext", "x.000");
    Fill("Fjoin", "Dest", "all");
    Press("Fjoin", "ActionB");
  }
  static std::string Joined() { return PatternBytes(700) + "end"; }
  void Confirm() { Press("Dialog", "OKButton"); }
  // While the first message is up, the split is confirmed and must not start.
  void ConfirmDuringTheFirst(AnswerBoxes& boxes) {
    boxes.onBox = [this, &boxes](QMessageBox&) {
      if (boxes.Seen().size() > 1) return;
      Confirm();
      QTest::qWait(100);
      EXPECT_FALSE(PartsExist());
    };
  }
  // Waits until the job's message was shown and closed.
  void Finish(const AnswerBoxes& boxes) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return !boxes.Seen().empty(); }));
    QTest::qWait(1);
  }

  // The toolkit delivers a drop only to a widget that was entered first.
  void Drop(const std::string& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(form.get(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(form.get(), &drop);
  }
  bool PartsExist() const { return std::filesystem::exists(folder / "part.000"); }
};

TEST_F(SplitJoinOperation, NoCommandStartsWhileASplitHasItsMessageUp) {
  StartInItsFolder(1000);
  AskToSplit();
  AnswerBoxes boxes;
  boxes.onBox = [this](QMessageBox&) {
    Entry("menucut")->trigger();
    Drop(folder.Write("other", "other"));
  };
  Confirm();
  Finish(boxes);
  EXPECT_EQ(boxes.Lines(), Lines{"[Bytewarp] Split successfully completed"});
  EXPECT_EQ(ReadFile(folder / "file.bin"), PatternBytes(1000));
  EXPECT_EQ(form->State().OpenFile, folder / "file.bin");
  EXPECT_EQ(ReadFile(folder / "part.001"), PatternBytes(1000).substr(600));
}

TEST_F(SplitJoinOperation, NoCommandStartsWhileAJoinHasItsMessageUp) {
  StartInItsFolder(1000);
  AskToJoin();
  AnswerBoxes boxes;
  boxes.onBox = [this](QMessageBox&) {
    Entry("menucut")->trigger();
    Drop(folder.Write("other", "other"));
  };
  Confirm();
  Finish(boxes);
  EXPECT_EQ(boxes.Lines(), Lines{"[Bytewarp] Join successful"});
  EXPECT_EQ(form->State().OpenFile, folder / "all");
  EXPECT_EQ(ReadFile(folder / "all"), Joined());
}

TEST_F(SplitJoinOperation, NoCommandThatWaitedStartsWhileTheResultIsShown) {
  StartInItsFolder(1000);
  AskToJoin();
  const AfterHiding hurry(*Find<QWidget>("Fjoin"), [this] {
    Entry("menucut")->trigger();
    Drop(folder.Write("other", "other"));
  });
  AnswerBoxes boxes;
  Confirm();
  Finish(boxes);
  EXPECT_EQ(boxes.Lines(), Lines{"[Bytewarp] Join successful"});
  EXPECT_EQ(form->State().OpenFile, folder / "all");
  EXPECT_EQ(ReadFile(folder / "all"), Joined());
}

TEST_F(SplitJoinOperation, ClosingWaitsUntilTheJoinIsOverAndItsMessageWasRead) {
  StartInItsFolder(1000);
  AskToJoin();
  const AfterHiding hurry(*Find<QWidget>("Fjoin"), [this] { form->close(); });
  AnswerBoxes boxes;
  boxes.onBox = [this](QMessageBox&) {
    QTest::qWait(250);
    EXPECT_TRUE(form->isVisible());
  };
  Confirm();
  Finish(boxes);
  EXPECT_EQ(boxes.Lines(), Lines{"[Bytewarp] Join successful"});
  EXPECT_TRUE(QTest::qWaitFor([this] { return !form->isVisible(); }));
  EXPECT_EQ(form->State().OpenFile, folder / "all");
}

TEST_F(SplitJoinOperation, AConfirmedSplitWaitsUntilThePageIsNoLongerEdited) {
  StartInItsFolder(1000);
  AskToSplit();
  QTest::mouseClick(Button("edit"), Qt::LeftButton);
  AnswerBoxes boxes;
  Confirm();
  QTest::qWait(100);
  EXPECT_FALSE(PartsExist());
  for (QPushButton* const cancel : form->findChildren<QPushButton*>(QStringLiteral("Cancel"))) {
    if (cancel->window() == form.get()) QTest::mouseClick(cancel, Qt::LeftButton);
  }
  Finish(boxes);
  EXPECT_EQ(ReadFile(folder / "part.000"), PatternBytes(600));
  EXPECT_EQ(ReadFile(folder / "part.001"), PatternBytes(1000).substr(600));
}

TEST_F(SplitJoinOperation, ASplitThatIsConfirmedDuringAnotherCommandsMessageWaitsForItsEnd) {
  StartInItsFolder(1000);
  AskToSplit();
  Entry("menucopy")->trigger();
  AnswerBoxes boxes;
  ConfirmDuringTheFirst(boxes);
  Entry("menuappend")->trigger();
  EXPECT_TRUE(QTest::qWaitFor([&] { return boxes.Seen().size() == 2; }));
  EXPECT_EQ(boxes.Lines(),
            (Lines{"[Bytewarp] Insert Successful", "[Bytewarp] Split successfully completed"}));
  EXPECT_EQ(ReadFile(folder / "part.003"), PatternBytes(1000).substr(800));
}

TEST_F(SplitJoinOperation, ASplitThatIsConfirmedDuringADropsMessageWaitsUntilItWasRead) {
  StartInItsFolder(1000);
  AskToSplit();
  const std::string large = folder.Write("large", "");
  std::filesystem::resize_file(large, std::uintmax_t{2'147'483'648});
  AnswerBoxes boxes;
  ConfirmDuringTheFirst(boxes);
  Drop(large);
  EXPECT_TRUE(QTest::qWaitFor([&] { return boxes.Seen().size() == 2; }));
  EXPECT_EQ(boxes.Lines(), (Lines{"[Error !] File is too large (the limit is 2.147.483.647 bytes) (x)",
                                  "[Bytewarp] Split successfully completed"}));
  EXPECT_EQ(ReadFile(folder / "part.001"), PatternBytes(1000).substr(600));
}

}  // namespace
