#include "viewer/forms/page_model.h"

#include <QColor>

#include "viewer/forms/cell_painting.h"
#include "viewer/forms/text_conversion.h"

namespace bwp {

PageModel::PageModel(const PageGrid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}

int PageModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kRows;
}

int PageModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant PageModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const int row = index.row();
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
      return FromCodePage(grid_.Text(row, column));
    case Qt::BackgroundRole:
      return column == kOffsetColumn ? QVariant() : QVariant(ToQColor(grid_.Background(row, column)));
    case Qt::ForegroundRole:
      return column == kOffsetColumn ? QVariant() : QVariant(QColor(Qt::black));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    case Qt::AccessibleTextRole:
      return AccessibleText(row, column);
    default:
      return {};
  }
}

QVariant PageModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return FromCodePage(grid_.Text(section, kOffsetColumn));
  if (section == kOffsetColumn) return QStringLiteral("Offset");
  return FromCodePage(RulerLabel(section, hex_));
}

// The offsets cannot become the current cell, neither by keys nor by the mouse.
Qt::ItemFlags PageModel::flags(const QModelIndex& index) const {
  if (!index.isValid() || index.column() == kOffsetColumn) return Qt::ItemNeverHasChildren;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

void PageModel::SetHex(bool hex) {
  if (hex == hex_) return;
  hex_ = hex;
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

void PageModel::PageChanged() {
  Q_EMIT dataChanged(index(0, 0), index(kRows - 1, kColumns - 1));
}

// A screen reader's user needs the byte's place along with its value.
QString PageModel::AccessibleText(int row, int column) const {
  const QString text = FromCodePage(grid_.Text(row, column));
  if (column == kOffsetColumn) return QStringLiteral("Offset %1").arg(text);
  if (text.isEmpty()) return QStringLiteral("Empty");
  const bool character = column >= kFirstCharColumn;
  const QString shown =
      !character || text.front().isPrint() ? text : QStringLiteral("no printable character");
  return QStringLiteral("%1, %2 %3 of row %4")
      .arg(shown, character ? QStringLiteral("character") : QStringLiteral("byte"),
           FromCodePage(RulerLabel(column, hex_)), FromCodePage(grid_.Text(row, kOffsetColumn)));
}

}  // namespace bwp
