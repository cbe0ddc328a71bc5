#include "viewer/forms/offset_box.h"

#include <cmath>

#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocument>
#include <QWheelEvent>

#include "viewer/forms/cell_geometry.h"
#include "viewer/forms/emphasis.h"
#include "viewer/forms/keys.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"

namespace bwp {
namespace {

// Eight digits, some of them bold, and room for the cursor.
constexpr int kCharacters = 9;
constexpr int kMargin = 3;

}  // namespace

OffsetBox::OffsetBox(const QString& name, const QString& accessibleName, QWidget* parent)
    : QTextEdit(parent) {
  Name(*this, name, accessibleName);
  setFont(CellFont());
  setAcceptRichText(false);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  // A file that is dropped here is for the window to open.
  setAcceptDrops(false);
  setLineWrapMode(NoWrap);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  document()->setDocumentMargin(kMargin);
  const QFontMetricsF metrics(font());
  const int frame = 2 * (frameWidth() + kMargin);
  setFixedSize(frame + static_cast<int>(std::ceil(kCharacters * metrics.horizontalAdvance(QLatin1Char('0')))),
               frame + static_cast<int>(std::ceil(metrics.height())));
}

void OffsetBox::ShowText(const std::string& text) {
  const QString shown = FromCodePage(text);
  if (shown == shown_ && !document()->isModified()) return;
  shown_ = shown;
  // One edit, so that the text is laid out once.
  QTextCursor all(document());
  all.beginEditBlock();
  all.select(QTextCursor::Document);
  all.insertText(shown, {});
  ApplyEmphasis(*this, OffsetEmphasis(static_cast<int>(shown.size())));
  all.endEditBlock();
  document()->setModified(false);
}

std::string OffsetBox::Text() const {
  return ToCodePage(toPlainText());
}

void OffsetBox::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (IsEnter(*event) || key == Qt::Key_Escape || key == Qt::Key_Tab) {
    event->ignore();
  } else {
    QTextEdit::keyPressEvent(event);
  }
}

// A single line does not scroll.
void OffsetBox::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void OffsetBox::insertFromMimeData(const QMimeData* source) {
  textCursor().insertText(source->text().simplified());
}

}  // namespace bwp
