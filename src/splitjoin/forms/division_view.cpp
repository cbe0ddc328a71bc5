#include "splitjoin/forms/division_view.h"

#include <utility>

#include <QPainter>

#include "viewer/forms/units.h"

namespace bwp {
namespace {

QColor ColourOf(std::uint32_t blueGreenRed) {
  return QColor::fromRgb(static_cast<int>(blueGreenRed & 0xFFU),
                         static_cast<int>((blueGreenRed >> 8U) & 0xFFU),
                         static_cast<int>((blueGreenRed >> 16U) & 0xFFU));
}

}  // namespace

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
                     ColourOf(box.colour));
  }
}

}  // namespace bwp
