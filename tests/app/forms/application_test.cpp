#include "app/forms/application.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

using bwp::Application;
using bwp::RunTimeError;

Application& App() {
  return *static_cast<Application*>(QCoreApplication::instance());
}

// Runs in the child of a death test: a timer runs the handler, and another one prints the report on standard
// error and closes it.
void RunHandler(const std::function<void()>& handler) {
  QTimer person;
  QObject::connect(&person, &QTimer::timeout, [] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    std::fprintf(stderr, "box title=%s icon=%d text=%s\n", qPrintable(box->windowTitle()), box->icon(),
                 qPrintable(box->text()));
    box->accept();
  });
  person.start(10);
  QTimer::singleShot(0, &App(), handler);
  QCoreApplication::exec();
}

class ApplicationDeathTest : public testing::Test {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(ApplicationDeathTest, ReportsARunTimeErrorAndEndsWithStatusOne) {
  EXPECT_EXIT(RunHandler([] { throw bwp::MakeRunTimeError(bwp::kDiskFull, "/tmp/x"); }),
              testing::ExitedWithCode(1),
              "Run-time error '61':\n\nDisk full\n/tmp/x\n(.|\n)*box title=Bytewarp icon=3 text=Run-time "
              "error '61':");
}

TEST_F(ApplicationDeathTest, ReportsMemoryThatRanOutAsErrorSeven) {
  EXPECT_EXIT(RunHandler([] { throw std::bad_alloc(); }), testing::ExitedWithCode(1),
              "Run-time error '7':\n\nOut of memory");
}

TEST_F(ApplicationDeathTest, ReportsAnyOtherExceptionAsErrorFiveAndKeepsTheBuffer) {
  const auto operation = [] {
    App().beforeEnd = [] { return std::string("The Buffer was kept in /tmp/kept."); };
    throw std::out_of_range("row 7");
  };
  EXPECT_EXIT(RunHandler(operation), testing::ExitedWithCode(1),
              "row 7\nRun-time error '5':\n\nInvalid procedure call or argument\nThe Buffer was kept in "
              "/tmp/kept.\n(.|\n)*box title=Bytewarp");
}

TEST_F(ApplicationDeathTest, NeverRunsAnotherLineOfAnOperationInterruptedInNestedEvents) {
  const auto operation = [] {
    QTimer::singleShot(0, &App(), [] { throw bwp::MakeRunTimeError(bwp::kDeviceError); });
    for (int round = 0; round < 100; ++round) QCoreApplication::processEvents();
    std::fprintf(stderr, "the operation went on\n");
    std::_Exit(2);
  };
  EXPECT_EXIT(RunHandler(operation), testing::ExitedWithCode(1), "Device I/O error");
}

TEST_F(ApplicationDeathTest, RunsNoTimerOfTheProgramWhileItReports) {
  const auto operation = [] {
    auto* const form = new QWidget;
    auto* const timer = new QTimer(form);
    QObject::connect(timer, &QTimer::timeout, [] { std::_Exit(2); });
    timer->start(0);
    throw bwp::MakeRunTimeError(bwp::kOverflow);
  };
  EXPECT_EXIT(RunHandler(operation), testing::ExitedWithCode(1), "Overflow");
}

// Closes the report as a user does, by a mouse click on the button.
void ReadAndClickOk() {
  QTimer person;
  QObject::connect(&person, &QTimer::timeout, [] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box != nullptr) QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
  });
  person.start(10);
  QTimer::singleShot(0, &App(), [] { throw bwp::MakeRunTimeError(bwp::kOverflow); });
  QTimer::singleShot(5000, &App(), [] { std::_Exit(2); });
  QCoreApplication::exec();
}

TEST_F(ApplicationDeathTest, EndsWhenTheReportsButtonIsClicked) {
  EXPECT_EXIT(ReadAndClickOk(), testing::ExitedWithCode(1), "Overflow");
}

TEST_F(ApplicationDeathTest, SaysWhatWasKept) {
  const auto operation = [] {
    App().beforeEnd = [] { return std::string("The Buffer was kept in /tmp/kept."); };
    throw bwp::MakeRunTimeError(bwp::kDiskFull, "/tmp/x");
  };
  EXPECT_EXIT(RunHandler(operation), testing::ExitedWithCode(1), "/tmp/x\nThe Buffer was kept in /tmp/kept.");
}

TEST_F(ApplicationDeathTest, GuardsWorkThatNoEventStarted) {
  const auto work = [] {
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, [] {
      if (QWidget* box = QApplication::activeModalWidget()) box->close();
    });
    person.start(10);
    App().Guard([] { throw bwp::MakeRunTimeError(bwp::kTypeMismatch); });
  };
  EXPECT_EXIT(work(), testing::ExitedWithCode(1), "Run-time error '13':\n\nType mismatch");
}

}  // namespace
