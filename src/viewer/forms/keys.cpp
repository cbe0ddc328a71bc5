#include "viewer/forms/keys.h"

#include <QKeyEvent>

namespace bwp {

bool IsEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool IsCharacterKey(const QKeyEvent& key) {
  return !key.text().isEmpty() && key.key() != Qt::Key_Delete;
}

BoxKey BoxKeyOf(const QKeyEvent& key) {
  if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) return BoxKey::kTab;
  const bool enter = IsEnter(key);
  if (!enter && key.key() != Qt::Key_Escape) return BoxKey::kTyping;
  if (key.isAutoRepeat()) return BoxKey::kHeld;
  return enter ? BoxKey::kEnter : BoxKey::kEscape;
}

}  // namespace bwp
