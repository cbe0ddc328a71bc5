#include "app/forms/lean_style.h"

#include <QIcon>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace bwp {

namespace {

void DrawFrame(QPainter& painter, const QRect& frame, const QColor& colour) {
  painter.save();
  painter.setPen(colour);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(frame.adjusted(0, 0, -1, -1));
  painter.restore();
}

}  // namespace

QIcon LeanStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
  if (which == SP_ToolBarHorizontalExtensionButton) return {};
  return QProxyStyle::standardIcon(which, option, widget);
}

void LeanStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  const bool inFusion = baseStyle()->name() == QStringLiteral("fusion");
  if (inFusion && element == PE_FrameGroupBox) {
    // The heading is above the frame.
    constexpr int kGap = 3;
    const int heading = widget != nullptr ? widget->fontMetrics().height() + kGap : 0;
    DrawFrame(*painter, option->rect.adjusted(0, heading, 0, 0), option->palette.color(QPalette::Mid));
  } else if (inFusion && element == PE_FrameLineEdit) {
    const bool typedInto = option->state.testFlag(State_HasFocus);
    DrawFrame(*painter, option->rect, option->palette.color(typedInto ? QPalette::Highlight : QPalette::Mid));
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

}  // namespace bwp
