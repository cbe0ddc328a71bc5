#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include "viewer/forms/page_painter.h"

namespace bwp {

/// The labels of the page's columns: "Offset", then 0 to 15 twice.
class RulerModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  using QAbstractTableModel::QAbstractTableModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

  bool Hex() const { return hex_; }
  /// Reports a change only if the labels change.
  void SetHex(bool hex);

 private:
  bool hex_ = false;
};

/// The grid `Ruler` above the page.
class Ruler : public QTableView {
  Q_OBJECT
 public:
  explicit Ruler(QWidget* parent = nullptr);

  /// Shows 10 to 15 as A to F in hexadecimal.
  void ShowLabels(bool hex) { model_.SetHex(hex); }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  PagePainter painter_;
  RulerModel model_;
};

}  // namespace bwp
