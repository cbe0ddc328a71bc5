#include "splitjoin/forms/division_view.h"

#include <utility>

#include <QPainter>

#include "viewer/forms/cell_painting.h"
#include "viewer/forms/units.h"

namespace bwp {

DivisionView::DivisionView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

FrameShape DivisionView::Frame() const {
  return {0, 0, ToUnits(width()), ToUnits(height())};
}

void DivisionView::ShowBoxes(std::vector<DivisionBox> boxes) {
  boxes_ = std::move(boxes);
  update();
}

void DivisionView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.scale(1 / kUnitsPerPixel, 1 / kUnitsPerPixel);
  for (const DivisionBox& box : boxes_) {
    painter.fillRect(QRectF(QPointF(box.left, box.top), QPointF(box.right, box.bottom)),
                     ToQColor(box.colour));
  }
}

}  // namespace bwp
