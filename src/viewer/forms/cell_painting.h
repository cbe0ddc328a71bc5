#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>

#include "viewer/page_grid.h"

namespace bwp {

/// The toolkit's colour of a blue-green-red number.
QColor ToQColor(Colour colour);

/// The grid lines of cells with given colours.
inline constexpr QColor kCellLineColour(200, 200, 200);

/// A cell without its text: the ground and the grid line at the right and at the bottom.
void PaintBlankCell(QPainter& painter, const QRect& cell, const QColor& ground, const QColor& line);

}  // namespace bwp
