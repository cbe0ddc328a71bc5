#include "fileops/forms/confirmation.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "support/forms/dialog_checks.h"

namespace {

class DialogTest : public testing::Test {
 protected:
  void Press(const char* name) {
    QTest::mouseClick(dialog_.findChild<QPushButton*>(QString::fromLatin1(name)), Qt::LeftButton);
  }
  QLabel& Warning() { return *dialog_.findChild<QLabel*>(QStringLiteral("Warning")); }

  bool answer_ = false;
  bwp::Dialog dialog_{answer_, nullptr};
};

TEST_F(DialogTest, HasItsCaptionAndControls) {
  EXPECT_EQ(dialog_.objectName(), QStringLiteral("Dialog"));
  EXPECT_EQ(dialog_.windowTitle(), QStringLiteral("Are You sure ?"));
  EXPECT_EQ(
      Warning().text(),
      QStringLiteral("Warning sdfsdffd  fsdfsdfsdf fdsfsdfsd sdfsdfsdf sdfsdfsdf fsdfsdf fsdffsdsfd fdsff"));
  EXPECT_EQ(dialog_.findChild<QPushButton*>(QStringLiteral("OKButton"))->text(), QStringLiteral("OK"));
  EXPECT_EQ(dialog_.findChild<QPushButton*>(QStringLiteral("CancelButton"))->text(),
            QStringLiteral("Cancel"));
}

TEST_F(DialogTest, AsksWithoutWaiting) {
  dialog_.Ask("Split current file ?");
  EXPECT_TRUE(dialog_.isVisible());
  EXPECT_FALSE(dialog_.isModal());
  EXPECT_EQ(Warning().text(), QStringLiteral("Split current file ?"));
}

TEST_F(DialogTest, OkStoresYesAndHides) {
  dialog_.Ask("?");
  EXPECT_FALSE(answer_);
  Press("OKButton");
  EXPECT_TRUE(answer_);
  EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(DialogTest, CancelStoresNoAndHides) {
  answer_ = true;
  dialog_.Ask("?");
  EXPECT_TRUE(answer_) << "asking alone answers nothing";
  Press("CancelButton");
  EXPECT_FALSE(answer_);
  EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(DialogTest, EnterIsOkAndEscapeIsCancel) {
  dialog_.Ask("?");
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog_));
  QTest::keyClick(&dialog_, Qt::Key_Return);
  EXPECT_TRUE(answer_);
  EXPECT_FALSE(dialog_.isVisible());
  dialog_.Ask("?");
  QTest::keyClick(&dialog_, Qt::Key_Escape);
  EXPECT_FALSE(answer_);
  EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(DialogTest, AQuestionThatIsNeverAnsweredLeavesTheAnswerBefore) {
  for (const bool before : {false, true}) {
    answer_ = before;
    dialog_.Ask("?");
    EXPECT_TRUE(dialog_.close());
    EXPECT_EQ(answer_, before);
    EXPECT_FALSE(dialog_.isVisible());
  }
}

TEST_F(DialogTest, GrowsForALongPathAndShrinksAgain) {
  dialog_.Ask("Split current file ?");
  const QSize small = dialog_.size();
  dialog_.Ask("Warning, file /" + std::string(400, 'x') + " exist, going ahead will delete it");
  EXPECT_GT(dialog_.height(), small.height());
  EXPECT_EQ(dialog_.width(), small.width());
  EXPECT_EQ(Warning().height(), Warning().heightForWidth(Warning().width()));
  bwp::test::ExpectTidy(dialog_);
  dialog_.Ask("Split current file ?");
  EXPECT_EQ(dialog_.size(), small);
}

}  // namespace
