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
  if (event->button() != Qt::LeftButton) return;
  // An earlier press may have had no release: the window was hidden, or a menu took it.
  pressed_ = QModelIndex();
  // A press outside the rows would clear a multiple selection without a row to report.
  if (!indexAt(event->position().toPoint()).isValid()) return;
  QListView::mousePressEvent(event);
  pressed_ = currentIndex();
}

void NameList::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) QListView::mouseMoveEvent(event);
}

void NameList::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  QListView::mouseReleaseEvent(event);
  const QModelIndex picked = std::exchange(pressed_, {});
  if (picked.isValid()) Q_EMIT RowPicked(picked.row());
}

void NameList::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !index.isValid()) return;
  pressed_ = QModelIndex();
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
  const bool arrow = (key == Qt::Key_Down || key == Qt::Key_Up) && event->modifiers() != Qt::ControlModifier;
  if (arrow && selected.isEmpty() && current.isValid()) {
    // A list that gets the focus makes its first row current without selecting it; the first key selects it.
    selectionModel()->select(current, QItemSelectionModel::Select);
  } else {
    QListView::keyPressEvent(event);
  }
  const bool picked = selectionModel()->selection() != selected;
  if (picked && currentIndex().isValid()) Q_EMIT RowPicked(currentIndex().row());
}

}  // namespace bwp
