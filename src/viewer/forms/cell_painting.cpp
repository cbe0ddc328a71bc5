#include "viewer/forms/cell_painting.h"

#include "viewer/forms/cell_geometry.h"

namespace bwp {

QColor ToQColor(Colour colour) {
  return {static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
          static_cast<int>((colour >> 16U) & 0xFFU)};
}

void PaintBlankCell(QPainter& painter, const QRect& cell, const QColor& ground, const QColor& line) {
  constexpr int kLine = CellGeometry::kLine;
  const int width = cell.width() - kLine;
  const int height = cell.height() - kLine;
  painter.fillRect(cell.x(), cell.y(), width, height, ground);
  painter.fillRect(cell.x() + width, cell.y(), kLine, cell.height(), line);
  painter.fillRect(cell.x(), cell.y() + height, width, kLine, line);
}

}  // namespace bwp
