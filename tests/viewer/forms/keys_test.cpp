#include "viewer/forms/keys.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

namespace {

using bwp::BoxKey;
using bwp::BoxKeyOf;

QKeyEvent Key(Qt::Key key, const QString& text = {}, bool held = false) {
  return QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text, held);
}

TEST(Keys, BothKeysWithEnterOnThemAreEnter) {
  EXPECT_TRUE(bwp::IsEnter(Key(Qt::Key_Return)));
  EXPECT_TRUE(bwp::IsEnter(Key(Qt::Key_Enter)));
  EXPECT_FALSE(bwp::IsEnter(Key(Qt::Key_Space)));
}

TEST(Keys, EnterEscapeAndBackspaceStandForCharactersAndDeleteAndArrowsDoNot) {
  EXPECT_TRUE(bwp::IsCharacterKey(Key(Qt::Key_7, QStringLiteral("7"))));
  EXPECT_TRUE(bwp::IsCharacterKey(Key(Qt::Key_Return, QStringLiteral("\r"))));
  EXPECT_TRUE(bwp::IsCharacterKey(Key(Qt::Key_Escape, QStringLiteral("\x1B"))));
  EXPECT_TRUE(bwp::IsCharacterKey(Key(Qt::Key_Backspace, QStringLiteral("\b"))));
  EXPECT_FALSE(bwp::IsCharacterKey(Key(Qt::Key_Delete, QStringLiteral("\x7F"))));
  EXPECT_FALSE(bwp::IsCharacterKey(Key(Qt::Key_Left)));
}

TEST(Keys, OnlyEnterAndEscapeAreDroppedWhileTheyAreHeld) {
  EXPECT_EQ(BoxKeyOf(Key(Qt::Key_Return)), BoxKey::kEnter);
  EXPECT_EQ(BoxKeyOf(Key(Qt::Key_Escape)), BoxKey::kEscape);
  EXPECT_EQ(BoxKeyOf(Key(Qt::Key_Return, {}, true)), BoxKey::kHeld);
  EXPECT_EQ(BoxKeyOf(Key(Qt::Key_Enter, {}, true)), BoxKey::kHeld);
  EXPECT_EQ(BoxKeyOf(Key(Qt::Key_Escape, {}, true)), BoxKey::kHeld);
  EXPECT_EQ(BoxKeyOf(Key(Qt::Key_7, QStringLiteral("7"), true)), BoxKey::kTyping);
  EXPECT_EQ(BoxKeyOf(Key(Qt::Key_Tab, {}, true)), BoxKey::kTab);
  EXPECT_EQ(BoxKeyOf(Key(Qt::Key_Backtab)), BoxKey::kTab);
}

}  // namespace
