#include "viewer/forms/name_list.h"

#include <utility>

#include <QKeyEvent>
#include <QMouseEvent>

namespace bwp {

NameList::NameList(QWidget* parent) : QListView(parent) {
  setEditTriggers(NoEditTriggers);
  setUniformItemSizes(true);
  setTextElideMode(Qt::ElideMiddle);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void NameList::mousePressEvent(QMouseEvent* event) {
  // A press beside the rows would give up a multiple selection without a row to tell of.
  if (!indexAt(event->position().toPoint()).isValid()) return;
  QListView::mousePressEvent(event);
  if (event->button() == Qt::LeftButton) pressedRow_ = currentIndex().row();
}

void NameList::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) QListView::mouseMoveEvent(event);
}

void NameList::mouseReleaseEvent(QMouseEvent* event) {
  QListView::mouseReleaseEvent(event);
  if (event->button() != Qt::LeftButton) return;
  const int row = std::exchange(pressedRow_, -1);
  if (row >= 0) Q_EMIT RowPicked(row);
}

void NameList::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !index.isValid()) return;
  pressedRow_ = -1;
  setCurrentIndex(index);
  Q_EMIT RowChosen(index.row());
}

void NameList::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && currentIndex().isValid()) {
    if (!event->isAutoRepeat()) Q_EMIT RowChosen(currentIndex().row());
    return;
  }
  if (event->key() == Qt::Key_Backspace) {
    Q_EMIT BackPressed();
    return;
  }
  const QModelIndex current = currentIndex();
  const QItemSelection selected = selectionModel()->selection();
  QListView::keyPressEvent(event);
  const bool moved = currentIndex() != current || selectionModel()->selection() != selected;
  if (moved && currentIndex().isValid()) Q_EMIT RowPicked(currentIndex().row());
}

}  // namespace bwp
