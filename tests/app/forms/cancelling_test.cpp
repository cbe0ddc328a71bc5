#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QTimer>

#include "app/forms/main_form_fixture.h"
#include "support/forms/answer_box.h"

namespace {

using bwp::test::AnswerBoxes;
using bwp::test::PatternBytes;
using bwp::test::ReadFile;

constexpr std::size_t kLength = 5'000'000;

// Cancel in the real progress window, and a click on the main window's close button at the same moment.
class Cancelling : public bwp::test::MainFormTest {
 protected:
  void SetUp() override {
    folder.Write("Bytewarp.cfg", "#TRUE#,4,\"" + folder.Path() + "\"\n");
    StartOnFile(kLength);
    press_.setInterval(0);
    QObject::connect(&press_, &QTimer::timeout, [this] { PressCancelAndClose(); });
  }
  void StartAndCancel(QAction* entry) {
    press_.start();
    entry->trigger();
    ExpectCancelled();
  }
  void ExpectCancelled() {
    EXPECT_FALSE(press_.isActive()) << "there was no progress to cancel";
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(ReadFile(folder / "file.bin") == PatternBytes(kLength));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form->isVisible(); })) << "closing was not forgotten";
  }

  QTimer press_;
  std::function<bool()> mayCancel_ = [] { return true; };

 private:
  void PressCancelAndClose() {
    auto* const progress = form->findChild<QDialog*>(QStringLiteral("Progform"));
    if (progress == nullptr || !progress->isVisible() || !mayCancel_()) return;
    press_.stop();
    QTest::mouseClick(progress->findChild<QPushButton*>(QStringLiteral("Cancel")), Qt::LeftButton);
    form->close();
    EXPECT_TRUE(form->isVisible()) << "the operation is not over";
  }
};

TEST_F(Cancelling, ACutLeavesTheFileAndTheWindowClosesAfterwards) {
  AnswerBoxes boxes;
  boxes.onBox = [this](QMessageBox&) { EXPECT_TRUE(form->isVisible()); };
  StartAndCancel(Entry("menucut"));
  EXPECT_EQ(boxes.Lines(), std::vector<std::string>{"[Bytewarp] Cut Aborted"});
  EXPECT_EQ(form->State().BufferData, "");
}

TEST_F(Cancelling, AnInsertLeavesTheFileAndTheWindowClosesAfterwards) {
  Entry("menucopy")->trigger();
  AnswerBoxes boxes;
  StartAndCancel(Entry("menuappend"));
  EXPECT_EQ(boxes.Lines(), std::vector<std::string>{"[Bytewarp] Insert aborted"});
}

TEST_F(Cancelling, ASaveLeavesAShortFileAndTheWindowClosesAfterwards) {
  AnswerBoxes boxes;
  Entry("sav")->trigger();
  auto* const saver = Find<QWidget>("Saver");
  saver->findChild<QLineEdit*>(QStringLiteral("Ftext"))->setText(QStringLiteral("copy.bin"));
  // The file does not exist before the first block is written.
  mayCancel_ = [this] { return std::filesystem::exists(folder / "copy.bin"); };
  press_.start();
  saver->findChild<QPushButton*>(QStringLiteral("Fsave"))->click();
  ExpectCancelled();
  EXPECT_EQ(boxes.Lines(), std::vector<std::string>{});
  EXPECT_EQ(form->State().OpenFile, folder / "file.bin");
  const std::string copy = ReadFile(folder / "copy.bin");
  EXPECT_LT(copy.size(), kLength);
  EXPECT_TRUE(PatternBytes(kLength).starts_with(copy));
}

}  // namespace
