#pragma once

#include <optional>

#include <QTableView>

#include "viewer/forms/page_model.h"
#include "viewer/forms/page_painter.h"

namespace bwp {

/// The grid `tabe`: shows a page and, while it is enabled, has a current cell. Disabled, as it is outside
/// edit mode, it looks the same and leaves the mouse to the form that it is on.
class PageTable : public QTableView {
  Q_OBJECT
 public:
  explicit PageTable(const PageGrid& grid, QWidget* parent = nullptr);

  /// Shows the grid's current content.
  void ShowPage();
  /// Names the columns for screen readers, with the ruler's numbers.
  void NameColumns(bool hex);

  /// The cell under a place on the screen (global position); none outside the cells.
  std::optional<GridCell> CellAt(const QPoint& global) const;

  /// The current cell; none before one was chosen.
  std::optional<GridCell> CurrentCell() const;
  void SetCurrentCell(GridCell cell);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintCurrentCell(QPainter& painter);

  const PageGrid& grid_;
  PagePainter painter_;
  PageModel model_;
};

/// Gives a view the model, the page's column widths and row height, no headers and no scroll bars, and makes
/// it just large enough for that many rows.
void LayOutLikePage(QTableView& view, QAbstractItemModel& model, const CellGeometry& geometry, int rows);

}  // namespace bwp
