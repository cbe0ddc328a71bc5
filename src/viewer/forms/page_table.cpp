#include "viewer/forms/page_table.h"

#include <QHeaderView>
#include <QPainter>

#include "viewer/forms/widgets.h"

namespace bwp {

PageTable::PageTable(const PageGrid& grid, QWidget* parent) : QTableView(parent), grid_(grid), model_(grid) {
  Name(*this, QStringLiteral("tabe"), QStringLiteral("Bytes of the Show Window"));
  LayOutLikePage(*this, model_, painter_.Geometry(), kRows);
  setSelectionMode(SingleSelection);
  setEnabled(false);
}

void PageTable::ShowPage() {
  model_.PageChanged();
}

void PageTable::NameColumns(bool hex) {
  model_.SetHex(hex);
}

std::optional<GridCell> PageTable::CellAt(const QPoint& global) const {
  const QPoint place = viewport()->mapFromGlobal(global);
  const GridCell cell{rowAt(place.y()), columnAt(place.x())};
  if (cell.row < 0 || cell.column < 0) return std::nullopt;
  return cell;
}

std::optional<GridCell> PageTable::CurrentCell() const {
  const QModelIndex current = currentIndex();
  if (!current.isValid()) return std::nullopt;
  return GridCell{current.row(), current.column()};
}

void PageTable::SetCurrentCell(GridCell cell) {
  setCurrentIndex(model_.index(cell.row, cell.column));
}

QSize PageTable::sizeHint() const {
  return minimumSize();
}

void PageTable::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter_.PaintPage(painter, grid_, palette());
  if (isEnabled()) PaintCurrentCell(painter);
}

void PageTable::PaintCurrentCell(QPainter& painter) {
  const QModelIndex current = currentIndex();
  if (!current.isValid()) return;
  const QRect cell = visualRect(current);
  // Two frames, so that one of them stands out from any colour that the cell may have.
  painter.setPen(palette().color(QPalette::Active, QPalette::Highlight));
  painter.drawRect(cell.adjusted(0, 0, -1, -1));
  painter.setPen(Qt::black);
  painter.drawRect(cell.adjusted(-1, -1, 0, 0));
}

void LayOutLikePage(QTableView& view, QAbstractItemModel& model, const CellGeometry& geometry, int rows) {
  QHeaderView& across = *view.horizontalHeader();
  QHeaderView& down = *view.verticalHeader();
  // Hidden before the model is set: a visible header looks up the bold font to measure its sections.
  across.hide();
  down.hide();
  view.setModel(&model);
  view.setLayoutDirection(Qt::LeftToRight);
  view.setFont(CellFont());
  view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setTabKeyNavigation(false);
  view.setCornerButtonEnabled(false);
  view.setAttribute(Qt::WA_OpaquePaintEvent);
  view.viewport()->setAttribute(Qt::WA_OpaquePaintEvent);

  for (QHeaderView* header : {&across, &down}) {
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(QHeaderView::Fixed);
  }
  down.setDefaultSectionSize(geometry.rowHeight);
  for (int column = 0; column < kColumns; ++column) across.resizeSection(column, geometry.Width(column));

  const int frame = 2 * view.frameWidth();
  view.setFixedSize(geometry.Right(kColumns - 1) + frame, rows * geometry.rowHeight + frame);
}

}  // namespace bwp
