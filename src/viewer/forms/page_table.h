#pragma once

#include <optional>

#include <QTableView>

#include "viewer/forms/page_model.h"
#include "viewer/forms/page_painter.h"

namespace bwp {

/// The grid `tabe`: shows a page and, while it is enabled, has a current cell. Disabled, as it is outside
/// edit mode, it looks the same and leaves the mouse to the form behind it.
class PageTable : public QTableView {
  Q_OBJECT
 public:
  explicit PageTable(const PageGrid& grid, QWidget* parent = nullptr);

  /// Shows what stands in the grid now.
  void ShowPage();
  /// Names the columns for who cannot see the ruler, in its numbers.
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

/// Gives a view its model and the columns of the page and rows of its height, no headers and no scroll bars,
/// and makes it just large enough for that many rows.
void LayOutLikePage(QTableView& view, QAbstractItemModel& model, const CellGeometry& geometry, int rows);

}  // namespace bwp
