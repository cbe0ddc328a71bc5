#include "viewer/forms/ruler.h"

#include <QPainter>

#include "viewer/forms/page_table.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"

namespace bwp {

int RulerModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 1;
}

int RulerModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant RulerModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
  }
  if (role != Qt::DisplayRole) return {};
  if (index.column() == kOffsetColumn) return QStringLiteral("Offset");
  return FromCodePage(RulerLabel(index.column(), hex_));
}

void RulerModel::SetHex(bool hex) {
  if (hex == hex_) return;
  hex_ = hex;
  Q_EMIT dataChanged(index(0, 0), index(0, kColumns - 1));
}

Ruler::Ruler(QWidget* parent) : QTableView(parent) {
  Name(*this, QStringLiteral("Ruler"), QStringLiteral("Column ruler"));
  LayOutLikePage(*this, model_, painter_.Geometry(), 1);
  setSelectionMode(NoSelection);
  setFocusPolicy(Qt::NoFocus);
}

QSize Ruler::sizeHint() const {
  return minimumSize();
}

void Ruler::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter_.PaintRuler(painter, model_.Hex(), palette());
}

}  // namespace bwp
