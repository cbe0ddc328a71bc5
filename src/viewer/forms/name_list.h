#pragma once

#include <QListView>

namespace bwp {

/// A list of names that tells which row a person picked, by mouse or by keys alike. Dragging selects nothing.
class NameList : public QListView {
  Q_OBJECT

 public:
  explicit NameList(QWidget* parent);

 Q_SIGNALS:
  /// A row was clicked, or the keys went to it or selected it.
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
  int pressedRow_ = -1;
};

}  // namespace bwp
