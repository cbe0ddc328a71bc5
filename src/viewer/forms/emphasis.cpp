#include "viewer/forms/emphasis.h"

#include <QTextCursor>
#include <QTextEdit>

#include "viewer/forms/cell_painting.h"

namespace bwp {

void ApplyEmphasis(QTextEdit& box, const std::vector<EmphasisRun>& runs) {
  QTextCursor cursor(box.document());
  cursor.beginEditBlock();
  for (const EmphasisRun& run : runs) {
    QTextCharFormat format;
    format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
    if (run.colour) format.setForeground(ToQColor(*run.colour));
    cursor.setPosition(run.start);
    cursor.setPosition(run.start + run.length, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(format);
  }
  cursor.endEditBlock();
  cursor.setPosition(runs.back().start);
  box.setTextCursor(cursor);
}

}  // namespace bwp
