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
  const bool drawn = element == PE_FrameGroupBox || element == PE_FrameLineEdit;
  if (!drawn || baseStyle()->name() != QStringLiteral("fusion")) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    return;
  }
  // A group's heading is above its frame.
  constexpr int kGap = 3;
  const bool group = element == PE_FrameGroupBox;
  const int heading = group && widget != nullptr ? widget->fontMetrics().height() + kGap : 0;
  const bool typedInto = !group && option->state.testFlag(State_HasFocus);
  painter->save();
  painter->setPen(option->palette.color(typedInto ? QPalette::Highlight : QPalette::Mid));
  painter->setBrush(Qt::NoBrush);
  painter->drawRect(option->rect.adjusted(0, heading, -1, -1));
  painter->restore();
}

}  // namespace bwp
