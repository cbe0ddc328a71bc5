#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>

#include "viewer/page_grid.h"

namespace bwp {

/// The toolkit's colour for a blue-green-red number.
QColor ToQColor(Colour colour);

/// The colour of the grid lines of byte cells.
inline constexpr QColor kCellLineColour(200, 200, 200);

/// Paints a cell without its text: the background and the grid lines at the right and at the bottom.
void PaintBlankCell(QPainter& painter, const QRect& cell, const QColor& ground, const QColor& line);

}  // namespace bwp
