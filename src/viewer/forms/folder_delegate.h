#pragma once

#include <QIcon>
#include <QStyledItemDelegate>

namespace bwp {

/// Draws the folder list: each folder of the way from the root a little further in, the subfolders below
/// them, open folders telling the way from closed ones.
class FolderDelegate : public QStyledItemDelegate {
 public:
  explicit FolderDelegate(QWidget* list);

  /// How many rows at the top are the way from the root.
  void SetChain(int rows) { chain_ = rows; }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  int chain_ = 0;
  QIcon open_;
  QIcon closed_;
};

}  // namespace bwp
