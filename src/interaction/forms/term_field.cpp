#include "interaction/forms/term_field.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>

#include "viewer/forms/cell_geometry.h"
#include "viewer/forms/keys.h"
#include "viewer/forms/widgets.h"

namespace bwp {
namespace {

// A term of this length is a term of a whole page many times over; the default would cut its mirrors.
constexpr int kLongestText = 1 << 24;

bool IsTyping(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Backspace) return true;
  // A command, such as pasting.
  if ((event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier) return false;
  const QString text = event.text();
  return !text.isEmpty() && text.front() >= QLatin1Char(' ') && event.key() != Qt::Key_Delete;
}

}  // namespace

TermField::TermField(const QString& name, const QString& toolTip, QWidget* parent) : QLineEdit(parent) {
  Name(*this, name, toolTip, toolTip);
  setFont(CellFont());
  setMaxLength(kLongestText);
  connect(this, &QLineEdit::textChanged, this, [this] {
    if (!showing_) Q_EMIT Edited(inCharacter_);
  });
}

void TermField::ShowText(const QString& text) {
  const QScopedValueRollback showing(showing_, true);
  setText(text);
}

void TermField::keyPressEvent(QKeyEvent* event) {
  const BoxKey kind = BoxKeyOf(*event);
  if (kind == BoxKey::kEnter) Q_EMIT EnterPressed();
  if (kind == BoxKey::kEscape) Q_EMIT EscapePressed();
  if (kind != BoxKey::kTyping && kind != BoxKey::kTab) return;
  const bool typing = IsTyping(*event);
  if (typing) Q_EMIT CharacterComing();
  const QScopedValueRollback inCharacter(inCharacter_, typing);
  QLineEdit::keyPressEvent(event);
}

// A file is for the window to open, not for its name to be typed.
void TermField::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) {
    event->ignore();
  } else {
    QLineEdit::dragEnterEvent(event);
  }
}

void TermField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  Q_EMIT FocusLeft();
}

}  // namespace bwp
