#pragma once

#include <QAbstractTableModel>

#include "viewer/page_grid.h"

namespace bwp {

/// The page as the toolkit's views and screen readers see it: 32 rows of offset, 16 numbers and 16
/// characters. It holds no data of its own; the caller reports changes of the grid with PageChanged.
class PageModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit PageModel(const PageGrid& grid, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// Whether the columns are numbered in hexadecimal, as the ruler shows them.
  void SetHex(bool hex);

  /// Reports a change of the whole page.
  void PageChanged();

 private:
  QString AccessibleText(int row, int column) const;

  const PageGrid& grid_;
  bool hex_ = false;
};

}  // namespace bwp
