#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QTextEdit>

#include "splitjoin/forms/tool_fixture.h"
#include "splitjoin/help_text.h"
#include "support/forms/dialog_checks.h"
#include "support/forms/list_clicks.h"
#include "viewer/forms/text_conversion.h"

namespace {

using bwp::test::ClickRow;
using bwp::test::DoubleClickRow;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;
using bwp::test::Wait;
using testing::ElementsAre;

class SplitJoinTool : public bwp::test::SplitJoinToolTest {};

TEST_F(SplitJoinTool, MakesItsFormsWhenTheyAreFirstNeeded) {
  EXPECT_TRUE(Visible("Divide"));
  for (const char* form : {"Fsel", "Fjoin", "Helpsplit", "Dialog"}) EXPECT_EQ(Form(form), nullptr) << form;
  Press("Divide", "Cancel");
  QWidget* const divide = Form("Divide");
  tool_.Show();
  EXPECT_EQ(Form("Divide"), divide);
  EXPECT_TRUE(Visible("Divide"));
}

TEST_F(SplitJoinTool, LetsThePersonGoOnInTheOtherWindows) {
  Press("Divide", "Split");
  Press("Divide", "Join");
  Press("Fjoin", "HelpSJ");
  for (const char* form : {"Divide", "Fsel", "Fjoin", "Helpsplit"}) {
    EXPECT_TRUE(Visible(form)) << form;
    EXPECT_FALSE(Form(form)->isModal()) << form;
  }
}

TEST_F(SplitJoinTool, HidesTheBaseNameFormOnCancel) {
  Press("Divide", "Split");
  Type("Fsel", "Ftext", "part");
  Press("Fsel", "Cancel");
  EXPECT_FALSE(Visible("Fsel"));
  EXPECT_EQ(Form("Dialog"), nullptr);
  EXPECT_TRUE(Visible("Divide"));
}

TEST_F(SplitJoinTool, TicksOnlyWhileAQuestionOrAConfirmedJobWaits) {
  const auto ticks = [this] { return tool_.findChild<QTimer*>()->isActive(); };
  EXPECT_FALSE(ticks());
  Press("Divide", "Split");
  Type("Fsel", "Ftext", "part");
  EXPECT_FALSE(ticks());
  Press("Fsel", "ActionB");
  EXPECT_TRUE(ticks());
  Press("Dialog", "CancelButton");
  Wait([&] { return !ticks(); });
  Press("Fsel", "ActionB");
  EXPECT_TRUE(ticks());
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Split successfully completed"); });
  Wait([&] { return !ticks(); });
}

TEST_F(SplitJoinTool, IsLaidOutTidily) {
  bwp::test::ExpectTidyAtEverySize(*Form("Divide"));
  Press("Divide", "Split");
  bwp::test::ExpectTidyAtEverySize(*Form("Fsel"));
  Press("Divide", "Join");
  bwp::test::ExpectTidyAtEverySize(*Form("Fjoin"));
  Press("Fjoin", "HelpSJ");
  bwp::test::ExpectTidy(*Form("Helpsplit"));
}

TEST_F(SplitJoinTool, IsDrawnAtTheScaleOfTheScreen) {
  const double scale = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
  Press("Divide", "Split");
  Press("Divide", "Join");
  for (const char* form : {"Divide", "Fsel", "Fjoin"}) {
    const QPixmap picture = Form(form)->grab();
    EXPECT_EQ(picture.devicePixelRatio(), scale) << form;
    EXPECT_EQ(picture.size(), Form(form)->size() * scale) << form;
  }
}

// The scale belongs to the process, so these tests run once more in another one.

TEST(SplitJoinForms, AreTidyAtTwiceTheScale) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
  process.setProcessEnvironment(environment);
  process.start(
      QCoreApplication::applicationFilePath(),
      {QStringLiteral("--gtest_filter=SplitJoinTool.IsLaidOutTidily:SplitJoinTool.IsDrawnAtTheScale*")});
  ASSERT_TRUE(process.waitForFinished(60'000));
  const std::string output = process.readAllStandardOutput().toStdString();
  EXPECT_EQ(process.exitCode(), 0) << output;
  EXPECT_THAT(output, testing::HasSubstr("PASSED  ] 2 tests"));
}

TEST_F(SplitJoinTool, SplitsTheOpenFileAfterAnOk) {
  SetPartSize("300");
  Press("Divide", "Split");
  EXPECT_EQ(bwp::ToPath(Form("Fsel")->windowTitle()),
            "Split file: " + state_.OpenFile + " in chunks of  300 Bytes");
  EXPECT_EQ(In<QPushButton>("Fsel", "ActionB").text(), QStringLiteral("Split"));
  Type("Fsel", "Ftext", "part");
  Press("Fsel", "ActionB");
  EXPECT_EQ(Question(), "Split current file ?");
  QTest::qWait(50);
  EXPECT_TRUE(folder_.Names().empty()) << "the question waits";
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Split successfully completed"); });
  EXPECT_THAT(folder_.Names(), ElementsAre("part.000", "part.001", "part.002", "part.003"));
  EXPECT_FALSE(Visible("Fsel"));
  EXPECT_TRUE(Visible("Divide"));
}

TEST_F(SplitJoinTool, SplitsByATypedSizeWithoutEnter) {
  SetPartSize("300");
  Type("Divide", "DChsize", "600");
  Press("Divide", "Split");
  EXPECT_THAT(bwp::ToPath(Form("Fsel")->windowTitle()), testing::EndsWith(" in chunks of  600 Bytes"));
  Type("Fsel", "Ftext", "part");
  Press("Fsel", "ActionB");
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Split successfully completed"); });
  EXPECT_EQ(ReadFile(folder_ / "part.001"), PatternBytes(1000).substr(600));
}

TEST_F(SplitJoinTool, DoesNothingAfterACancel) {
  Press("Divide", "Split");
  Type("Fsel", "Ftext", "part");
  Press("Fsel", "ActionB");
  Press("Dialog", "CancelButton");
  QTest::qWait(60);
  EXPECT_TRUE(folder_.Names().empty());
  EXPECT_TRUE(Visible("Fsel"));
  EXPECT_TRUE(seen_.empty());
}

TEST_F(SplitJoinTool, DeletesTheOldPartsAndSplitsAfterOneOk) {
  for (const char* name : {"part000", "part001", "part002", "part004"}) folder_.Write(name, "old");
  SetPartSize("500");
  Press("Divide", "Split");
  ClickRow(Files("Fsel"), "part000");
  EXPECT_EQ(In<QLineEdit>("Fsel", "Ftext").text(), QStringLiteral("part000"));
  Press("Fsel", "ActionB");
  EXPECT_EQ(Question(),
            "Warning, file " + (folder_ / "part000") +
                " exist, going ahead will delete it and every other files of the previous splitting");
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Split successfully completed"); });
  EXPECT_THAT(folder_.Names(), ElementsAre("part000", "part001", "part004"));
  EXPECT_EQ(ReadFile(folder_ / "part001"), PatternBytes(1000).substr(500));
}

TEST_F(SplitJoinTool, AsksForTheNameThatIsDoubleClicked) {
  folder_.Write("a000", "old");
  folder_.Write("b000", "old");
  Press("Divide", "Split");
  ClickRow(Files("Fsel"), "a000");
  DoubleClickRow(Files("Fsel"), "b000");
  EXPECT_THAT(Question(), testing::HasSubstr("b000 exist"));
}

TEST_F(SplitJoinTool, LetsAConfirmedJobWaitUntilItMayRun) {
  bool editing = true;
  tool_.run = [&editing](const auto& action) {
    if (!editing) action();
  };
  SetPartSize("500");
  Press("Divide", "Split");
  Type("Fsel", "Ftext", "part");
  Press("Fsel", "ActionB");
  Press("Dialog", "OKButton");
  QTest::qWait(60);
  EXPECT_TRUE(folder_.Names().empty());
  editing = false;
  Wait([this] { return Told("Split successfully completed"); });
  EXPECT_THAT(folder_.Names(), ElementsAre("part.000", "part.001"));
}

TEST_F(SplitJoinTool, RunsNoJobWhoseQuestionIsNotAnswered) {
  bool editing = true;
  tool_.run = [&editing](const auto& action) {
    if (!editing) action();
  };
  folder_.Write("a.001", "one");
  folder_.Write("all", "old");
  Press("Divide", "Split");
  Type("Fsel", "Ftext", "part");
  Press("Fsel", "ActionB");
  Press("Dialog", "OKButton");
  Press("Divide", "Join");
  Type("Fjoin", "Ftext", "a.001");
  Type("Fjoin", "Dest", "all");
  Press("Fjoin", "ActionB");
  editing = false;
  QTest::qWait(80);
  EXPECT_TRUE(Visible("Dialog"));
  EXPECT_THAT(folder_.Names(), ElementsAre("a.001", "all"));
  EXPECT_EQ(ReadFile(folder_ / "all"), "old");
  Press("Dialog", "OKButton");
  Wait([this] { return Told("Join successful"); });
  EXPECT_EQ(ReadFile(folder_ / "all"), "one");
}

TEST_F(SplitJoinTool, HelpsUnderTheTitleOfTheHelpButton) {
  Press("Divide", "Split");
  Press("Fsel", "HelpSJ");
  EXPECT_TRUE(Visible("Helpsplit"));
  EXPECT_EQ(Form("Helpsplit")->windowTitle(), QStringLiteral("Split & Join Help"));
  auto& text = In<QTextEdit>("Helpsplit", "HelpText");
  EXPECT_TRUE(text.isReadOnly());
  EXPECT_EQ(text.toPlainText().remove(QLatin1Char('\r')),
            bwp::FromCodePage(bwp::SplitJoinHelp()).remove(QLatin1Char('\r')));
  Form("Helpsplit")->hide();
  Form("Helpsplit")->setWindowTitle(QString());
  Press("Divide", "Join");
  Press("Fjoin", "HelpSJ");
  EXPECT_TRUE(Visible("Helpsplit"));
  EXPECT_EQ(Form("Helpsplit")->windowTitle(), QStringLiteral("Split & Join Help"));
  const bwp::Helpsplit fresh(nullptr);
  EXPECT_EQ(fresh.windowTitle(), QStringLiteral("Split and Join Help"));
}

}  // namespace
