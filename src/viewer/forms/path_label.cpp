#include "viewer/forms/path_label.h"

#include <algorithm>

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <QToolTip>

namespace bwp {
namespace {

constexpr int kUsualLetters = 68;
constexpr int kFewestLetters = 24;

}  // namespace

PathLabel::PathLabel(int lines, bool steady, QWidget* parent)
    : QLabel(parent), lines_(lines), steady_(steady) {
  setTextFormat(Qt::PlainText);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

int PathLabel::heightForWidth(int width) const {
  const auto lines = steady_ ? lines_ : static_cast<int>(LinesAt(width).size());
  return std::max(1, lines) * fontMetrics().lineSpacing();
}

QSize PathLabel::sizeHint() const {
  const int width = kUsualLetters * fontMetrics().averageCharWidth();
  return {width, heightForWidth(width)};
}

QSize PathLabel::minimumSizeHint() const {
  return {kFewestLetters * fontMetrics().averageCharWidth(), fontMetrics().lineSpacing()};
}

bool PathLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLabel::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  // As escaped rich text: a tooltip breaks lines only in rich text.
  QToolTip::showText(help->globalPos(), QStringLiteral("<p>%1</p>").arg(text().toHtmlEscaped()), this);
  return true;
}

void PathLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QRect line(0, 0, width(), fontMetrics().lineSpacing());
  for (const QString& text : LinesAt(width())) {
    style()->drawItemText(&painter, line, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), text,
                          foregroundRole());
    line.translate(0, line.height());
  }
}

// Line breaks in the text are kept; each paragraph leaves at least one line for each of those after it.
QStringList PathLabel::LinesAt(int width) const {
  const QStringList paragraphs = text().split(QLatin1Char('\n'));
  QStringList lines;
  for (int i = 0; i < paragraphs.size() && lines.size() < lines_; ++i) {
    const auto toCome = static_cast<int>(paragraphs.size()) - i - 1;
    const int last = std::max(static_cast<int>(lines.size()) + 1, lines_ - toCome);
    lines << Broken(paragraphs[i], width, last - static_cast<int>(lines.size()));
  }
  return lines;
}

QStringList PathLabel::Broken(const QString& paragraph, int width, int most) const {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QTextLayout layout(paragraph, font());
  layout.setTextOption(option);
  layout.beginLayout();
  QStringList lines;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    if (lines.size() + 1 == most) {
      lines << fontMetrics().elidedText(paragraph.mid(line.textStart()), Qt::ElideMiddle, width);
      break;
    }
    lines << paragraph.mid(line.textStart(), line.textLength());
  }
  layout.endLayout();
  if (lines.isEmpty()) lines << QString();
  return lines;
}

}  // namespace bwp
