#include "viewer/forms/message_notices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>

#include "support/forms/answer_box.h"

namespace {

using bwp::MessageNotices;
using bwp::Notices;
using bwp::test::AnswerBoxes;
using testing::ElementsAre;

TEST(MessageNotices, ANoticeWithoutATitleIsTheProgramsOwn) {
  const AnswerBoxes answers;
  MessageNotices().Tell("Copy aborted", {}, Notices::Icon::kNone);
  EXPECT_THAT(answers.Lines(), ElementsAre("[Bytewarp] Copy aborted"));
  EXPECT_THAT(answers.Seen().at(0).buttons, ElementsAre("OK"));
}

TEST(MessageNotices, TitleTextAndIconAreThoseGiven) {
  const AnswerBoxes answers;
  MessageNotices notices;
  notices.Tell("FIle has dimension 0", "Error !", Notices::Icon::kCritical);
  notices.Tell("Drive is not present", "System Message", Notices::Icon::kExclamation);
  notices.Tell("Done", {}, Notices::Icon::kInformation);
  EXPECT_THAT(answers.Lines(),
              ElementsAre("[Error !] FIle has dimension 0 (x)", "[System Message] Drive is not present (!)",
                          "[Bytewarp] Done (i)"));
}

TEST(MessageNotices, AQuestionIsAnsweredWithOkOrCancel) {
  const AnswerBoxes answers({QMessageBox::Ok, QMessageBox::Cancel, QMessageBox::NoButton});
  MessageNotices notices;
  EXPECT_TRUE(notices.Ask("overwrite ?"));
  EXPECT_FALSE(notices.Ask("overwrite ?"));
  EXPECT_FALSE(notices.Ask("overwrite ?")) << "Escape is Cancel";
  EXPECT_THAT(answers.Lines(), testing::Each("[Bytewarp] overwrite ?"));
  EXPECT_THAT(answers.Seen().at(0).buttons, testing::UnorderedElementsAre("OK", "Cancel"));
}

TEST(MessageNotices, APathThatLooksLikeRichTextOrAMnemonicIsShownAsItIs) {
  AnswerBoxes answers;
  Qt::TextFormat format = Qt::AutoText;
  bool mnemonic = true;
  answers.onBox = [&](QMessageBox& box) {
    format = box.textFormat();
    const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    mnemonic = label->buddy() != nullptr;
  };
  MessageNotices().Tell("File  '/tmp/<b>R&D</b>'", {}, Notices::Icon::kNone);
  EXPECT_THAT(answers.Lines(), ElementsAre("[Bytewarp] File  '/tmp/<b>R&D</b>'"));
  EXPECT_EQ(format, Qt::PlainText);
  EXPECT_FALSE(mnemonic) << "without a buddy a label shows its ampersands";
}

}  // namespace
