#pragma once

#include <QIcon>
#include <QStyledItemDelegate>

namespace bwp {

/// Draws the folder list: each folder on the path from the root a little further in, with an open icon, then
/// the subfolders, with closed ones.
class FolderDelegate : public QStyledItemDelegate {
 public:
  explicit FolderDelegate(QWidget* list);

  /// How many rows at the top are the path from the root.
  void SetChain(int rows) { chain_ = rows; }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  int chain_ = 0;
  QIcon open_;
  QIcon closed_;
};

}  // namespace bwp
