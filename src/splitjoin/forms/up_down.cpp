#include "splitjoin/forms/up_down.h"

#include <algorithm>

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOptionSpinBox>

namespace bwp {

UpDown::UpDown(QWidget* parent) : QSpinBox(parent) {
  lineEdit()->hide();
  lineEdit()->setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

// The target is computed first: a handler of DownClicked may set another value.
void UpDown::stepBy(int steps) {
  const int target = static_cast<int>(std::clamp<qint64>(qint64{value()} + steps, minimum(), maximum()));
  if (steps < 0) Q_EMIT DownClicked();
  if (value() == target) {
    Q_EMIT valueChanged(target);
  } else {
    setValue(target);
  }
}

// As wide as the arrows and as high as a field.
QSize UpDown::sizeHint() const {
  QStyleOptionSpinBox option;
  initStyleOption(&option);
  option.rect = QRect(QPoint(), QSpinBox::sizeHint());
  const QRect arrow = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
  return {std::max(arrow.width(), 14) + 2 * (option.rect.right() - arrow.right()) + 2, option.rect.height()};
}

// Other keys would write into the hidden text.
void UpDown::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      QSpinBox::keyPressEvent(event);
      break;
    default:
      event->ignore();
  }
}

}  // namespace bwp
