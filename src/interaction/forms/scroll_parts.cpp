#include "interaction/forms/scroll_parts.h"

#include <QMouseEvent>
#include <QPainter>

namespace bwp {
namespace {

// The colour between two of the palette's, so that edges show in light and dark themes alike.
QColor Between(const QColor& one, const QColor& other, double share) {
  const auto mix = [share](float a, float b) { return a + static_cast<float>(share) * (b - a); };
  return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                          mix(one.blueF(), other.blueF()));
}

}  // namespace

LineButton::LineButton(Qt::ArrowType arrow, QWidget* parent) : QToolButton(parent) {
  setArrowType(arrow);
  setFocusPolicy(Qt::NoFocus);
  // Clicked by an assistive tool.
  connect(this, &QAbstractButton::clicked, this, [this] {
    Q_EMIT Held();
    Q_EMIT LetGo();
  });
}

void LineButton::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  setDown(true);
  Q_EMIT Held();
}

void LineButton::mouseMoveEvent(QMouseEvent* /*event*/) {}

void LineButton::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  setDown(false);
  Q_EMIT LetGo();
}

void LineButton::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

ScrollTrack::ScrollTrack(QWidget* parent) : QWidget(parent) {}

void ScrollTrack::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = palette().color(QPalette::WindowText);
  painter.setPen(Between(ground, ink, 0.25));
  painter.setBrush(Between(ground, ink, 0.1));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

ThumbHandle::ThumbHandle(QWidget* parent) : QWidget(parent) {
  // A move with no button down ends a drag whose release went elsewhere.
  setMouseTracking(true);
}

void ThumbHandle::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = palette().color(QPalette::WindowText);
  painter.setPen(Between(ground, ink, 0.6));
  painter.setBrush(Between(ground, ink, isEnabled() ? 0.35 : 0.2));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 0.5, -1.5, -0.5), 3, 3);
}

}  // namespace bwp
