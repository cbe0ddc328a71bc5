#pragma once

#include <QListView>
#include <QPersistentModelIndex>

namespace bwp {

/// A list of names that reports which row the user picked, by mouse or by keys. Dragging selects nothing, and
/// neither do the other mouse buttons. Rows may be added and removed while the button is down.
class NameList : public QListView {
  Q_OBJECT

 public:
  explicit NameList(QWidget* parent);

 Q_SIGNALS:
  /// A row was clicked, or the keys selected or unselected it.
  void RowPicked(int row);
  /// A row was double-clicked, or Enter was pressed on it.
  void RowChosen(int row);
  /// Backspace was pressed.
  void BackPressed();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPersistentModelIndex pressed_;
};

}  // namespace bwp
