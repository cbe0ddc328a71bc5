#include "viewer/forms/folder_delegate.h"

#include <algorithm>

#include <QStyle>
#include <QWidget>

namespace bwp {
namespace {

constexpr int kIndentPixels = 8;
constexpr int kDeepest = 10;  // Indented further, names would have no room left.

}  // namespace

FolderDelegate::FolderDelegate(QWidget* list)
    : QStyledItemDelegate(list),
      open_(list->style()->standardIcon(QStyle::SP_DirOpenIcon)),
      closed_(list->style()->standardIcon(QStyle::SP_DirIcon)) {}

void FolderDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const bool onTheWay = index.row() < chain_;
  option->features |= QStyleOptionViewItem::HasDecoration;
  option->icon = onTheWay ? open_ : closed_;
  const int side = option->fontMetrics.height();
  option->decorationSize = QSize(side, side);
  option->rect.adjust(kIndentPixels * std::min(onTheWay ? index.row() : chain_, kDeepest), 0, 0, 0);
}

}  // namespace bwp
