#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QTimer>

#include "app/forms/application.h"
#include "app/forms/main_form_fixture.h"

namespace {

using bwp::MainForm;
using bwp::test::TempFolder;

// Makes reads through the open handle on that file fail, as on a disk that was removed.
void MakeReadsFail(const std::string& path) {
  const int folder = open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code none;
    if (std::filesystem::read_symlink(entry.path(), none) != path) continue;
    dup2(folder, std::stoi(entry.path().filename().string()));
  }
}

// The program in the child of a death test, with a timer in the user's place, which runs `meanwhile` when the
// report is shown, prints the report and closes it.
struct Program {
  Program() {
    folder.Write("file.bin", bwp::test::PatternBytes(65536));
    folder.Write("Bytewarp.cfg", "#TRUE#,4,\"" + folder.Path() + "\"\n");
    form = new MainForm(folder.Path());
    form->Start("file.bin");
    form->show();
    QApplication::setActiveWindow(form);
    QObject::connect(&person, &QTimer::timeout, [this] { Read(); });
    person.start(10);
  }

  void Read() {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    person.stop();
    if (meanwhile) meanwhile();
    std::fprintf(stderr, "read: %s\nstart %d\n", qPrintable(box->text()),
                 static_cast<int>(form->State().SWStart));
    box->accept();
  }

  TempFolder folder;
  MainForm* form = nullptr;
  QTimer person;
  std::function<void()> meanwhile;
};

class EndingDeathTest : public testing::Test {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(EndingDeathTest, AHeldKeyDoesNotEndTheProgramBeforeTheReportIsRead) {
  const auto hold = [] {
    Program program;
    MakeReadsFail(program.folder / "file.bin");
    QTest::keyPress(program.form, Qt::Key_PageDown);
    QTest::qWait(1000);
  };
  EXPECT_EXIT(hold(), testing::ExitedWithCode(1), "read: Run-time error '75'(.|\n)*start 512\n");
}

TEST_F(EndingDeathTest, NeitherKeysNorMouseNorFocusReachTheProgramDuringTheReport) {
  const auto disturb = [] {
    Program program;
    program.meanwhile = [&program] {
      QTest::keyClick(program.form, Qt::Key_PageDown);
      QTest::keyRelease(program.form, Qt::Key_PageDown);
      QTest::mouseClick(program.form->findChild<QWidget*>(QStringLiteral("opn")), Qt::LeftButton);
      for (const QEvent::Type type : {QEvent::WindowDeactivate, QEvent::WindowActivate, QEvent::FocusOut,
                                      QEvent::WindowBlocked, QEvent::WindowUnblocked}) {
        QEvent event(type);
        QCoreApplication::sendEvent(program.form, &event);
      }
      program.form->close();
      if (!program.form->isVisible()) std::fprintf(stderr, "the form was closed\n");
      if (program.form->findChild<QWidget*>(QStringLiteral("Loader"))) std::fprintf(stderr, "a dialog\n");
      QTest::qWait(100);
    };
    MakeReadsFail(program.folder / "file.bin");
    QTest::keyPress(program.form, Qt::Key_PageDown);
    QTest::qWait(1000);
  };
  EXPECT_EXIT(disturb(), testing::ExitedWithCode(1), "receiving widget\nread: (.|\n)*file.bin\nstart 512\n");
}

TEST_F(EndingDeathTest, ASecondErrorDuringTheReportIsSwallowed) {
  const auto twice = [] {
    Program program;
    QTimer second;
    QObject::connect(&second, &QTimer::timeout, [] {
      if (QApplication::activeModalWidget() != nullptr) throw bwp::MakeRunTimeError(bwp::kDiskFull);
    });
    second.start(0);
    program.meanwhile = [] { QTest::qWait(50); };
    MakeReadsFail(program.folder / "file.bin");
    QTest::keyPress(program.form, Qt::Key_PageDown);
    QTest::qWait(1000);
  };
  EXPECT_EXIT(twice(), testing::ExitedWithCode(1), "read: Run-time error '75'");
}

// Ends the program by the command while other windows are open; prints which of them are left.
void ExitBy(const std::function<void(MainForm&)>& command) {
  Program program;
  const auto press = [&program](const char* window, const char* button) {
    auto* const form = program.form->findChild<QWidget*>(QLatin1String(window));
    form->findChild<QPushButton*>(QLatin1String(button))->click();
  };
  program.form->findChild<QAction*>(QStringLiteral("menuopen"))->trigger();
  program.form->findChild<QAction*>(QStringLiteral("menusplitjoin"))->trigger();
  press("Divide", "Split");
  auto* const fsel = program.form->findChild<QWidget*>(QStringLiteral("Fsel"));
  fsel->findChild<QLineEdit*>(QStringLiteral("Ftext"))->setText(QStringLiteral("part"));
  press("Fsel", "ActionB");
  for (const char* window : {"Loader", "Divide", "Fsel", "Dialog"}) {
    if (!program.form->findChild<QWidget*>(QLatin1String(window))->isVisible()) std::_Exit(2);
  }
  QApplication::setActiveWindow(program.form);
  QTimer::singleShot(0, program.form, [&] { command(*program.form); });
  QTimer::singleShot(10'000, program.form, [] { std::_Exit(3); });
  const int status = QApplication::exec();
  int left = 0;
  for (const QWidget* const window : QApplication::topLevelWidgets()) left += window->isVisible() ? 1 : 0;
  const std::string kept = bwp::test::ReadFile(program.folder / "Bytewarp.cfg");
  std::fprintf(stderr, "%d windows left, %zu parts, settings kept: %d\n", left,
               program.folder.Names().size() - 2, kept.starts_with("#TRUE#,4,"));
  std::_Exit(status);
}

TEST_F(EndingDeathTest, AnExitClosesEveryWindowAndAsksNothing) {
  const std::string end = "0 windows left, 0 parts, settings kept: 1";
  const auto menu = [](MainForm& form) { form.findChild<QAction*>(QStringLiteral("MenuExit"))->trigger(); };
  EXPECT_EXIT(ExitBy(menu), testing::ExitedWithCode(0), end);
  const auto keys = [](MainForm& form) { QTest::keyClick(&form, Qt::Key_Q, Qt::ControlModifier); };
  EXPECT_EXIT(ExitBy(keys), testing::ExitedWithCode(0), end);
  const auto frame = [](MainForm& form) { form.close(); };
  EXPECT_EXIT(ExitBy(frame), testing::ExitedWithCode(0), end);
}

TEST_F(EndingDeathTest, TheFileListsStandStillDuringTheReport) {
  const auto change = [] {
    Program program;
    program.form->findChild<QAction*>(QStringLiteral("menuopen"))->trigger();
    auto* const files = program.form->findChild<QListView*>(QStringLiteral("Flist"));
    const int rows = files->model()->rowCount();
    program.meanwhile = [&program, files, rows] {
      program.folder.Write("new", "");
      QTest::qWait(300);
      std::fprintf(stderr, "%d new names\n", files->model()->rowCount() - rows);
    };
    MakeReadsFail(program.folder / "file.bin");
    QTest::keyPress(program.form, Qt::Key_PageDown);
    QTest::qWait(1000);
  };
  EXPECT_EXIT(change(), testing::ExitedWithCode(1), "\n0 new names\nread: ");
}

}  // namespace
