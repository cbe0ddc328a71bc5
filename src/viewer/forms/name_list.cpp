#include "viewer/forms/name_list.h"

#include <utility>

#include <QKeyEvent>
#include <QMouseEvent>

#include "viewer/forms/keys.h"

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
  const QModelIndex current = currentIndex();
  const int key = event->key();
  if (IsEnter(*event) && selectionModel()->isSelected(current)) {
    if (!event->isAutoRepeat()) Q_EMIT RowChosen(current.row());
    return;
  }
  if (key == Qt::Key_Backspace) {
    Q_EMIT BackPressed();
    return;
  }
  const QItemSelection selected = selectionModel()->selection();
  if ((key == Qt::Key_Down || key == Qt::Key_Up) && selected.isEmpty() && current.isValid()) {
    // A list that got the focus stands on its first row without having selected it; the first key does.
    selectionModel()->select(current, QItemSelectionModel::Select);
  } else {
    QListView::keyPressEvent(event);
  }
  const bool moved = currentIndex() != current || selectionModel()->selection() != selected;
  if (moved && currentIndex().isValid()) Q_EMIT RowPicked(currentIndex().row());
}

}  // namespace bwp
