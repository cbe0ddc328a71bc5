#include "splitjoin/forms/helpsplit.h"

#include <QFontDatabase>
#include <QScreen>
#include <QTextEdit>
#include <QVBoxLayout>

#include "splitjoin/help_text.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"

namespace bwp {
namespace {

// Room for the longest line and for all lines of the text.
constexpr int kColumns = 56;
constexpr int kRows = 35;

}  // namespace

Helpsplit::Helpsplit(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("Helpsplit"));
  setWindowTitle(QStringLiteral("Split and Join Help"));
  auto* const text = new QTextEdit(this);
  Name(*text, QStringLiteral("HelpText"), QStringLiteral("Help on split and join"));
  // The columns of the text only line up in a fixed-width font.
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text->setLineWrapMode(QTextEdit::NoWrap);
  text->setReadOnly(true);
  text->setPlainText(FromCodePage(SplitJoinHelp()));
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(text);
  const QFontMetrics metrics(text->font());
  const QSize whole(metrics.horizontalAdvance(u'0') * kColumns, metrics.lineSpacing() * kRows);
  resize(whole.boundedTo(screen()->availableSize()));
}

void Helpsplit::ShowHelp() {
  setWindowTitle(QStringLiteral("Split & Join Help"));
  BringUp(*this);
}

}  // namespace bwp
