#include "app/forms/lean_style.h"

#include <QIcon>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace bwp {

QIcon LeanStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
  if (which == SP_ToolBarHorizontalExtensionButton) return {};
  return QProxyStyle::standardIcon(which, option, widget);
}

void LeanStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  if (element != PE_FrameGroupBox || baseStyle()->name() != QStringLiteral("fusion")) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    return;
  }
  // The heading is above the frame.
  constexpr int kGap = 3;
  const int heading = widget != nullptr ? widget->fontMetrics().height() + kGap : 0;
  painter->save();
  painter->setPen(option->palette.color(QPalette::Mid));
  painter->setBrush(Qt::NoBrush);
  painter->drawRect(option->rect.adjusted(0, heading, -1, -1));
  painter->restore();
}

}  // namespace bwp
