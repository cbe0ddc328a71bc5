#include "support/forms/dialog_checks.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace bwp::test {
namespace {

std::string NameOf(const QWidget& control) {
  const QString name = control.objectName();
  const auto* label = qobject_cast<const QLabel*>(&control);
  return (name.isEmpty() && label != nullptr ? label->text() : name).toStdString();
}

void ExpectRoomForText(const QWidget& control) {
  const auto* label = qobject_cast<const QLabel*>(&control);
  const bool fixedText = qobject_cast<const QPushButton*>(&control) != nullptr ||
                         (label != nullptr && !label->wordWrap() && label->buddy() != nullptr);
  if (!fixedText) return;
  EXPECT_GE(control.width(), control.sizeHint().width()) << NameOf(control);
  EXPECT_GE(control.height(), control.sizeHint().height()) << NameOf(control);
}

void ExpectNames(const QWidget& control) {
  if (control.focusPolicy() == Qt::NoFocus || qobject_cast<const QLabel*>(&control) != nullptr) return;
  EXPECT_FALSE(control.objectName().isEmpty()) << control.metaObject()->className();
  EXPECT_FALSE(control.accessibleName().isEmpty()) << NameOf(control);
}

}  // namespace

void ExpectTidy(QWidget& form) {
  QWidgetList controls;
  for (QWidget* control : form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (control->isVisible() && !control->isWindow()) controls.push_back(control);
  }
  EXPECT_FALSE(controls.isEmpty());
  for (const QWidget* control : controls) {
    EXPECT_TRUE(form.rect().contains(control->geometry())) << NameOf(*control) << " sticks out";
    ExpectRoomForText(*control);
    ExpectNames(*control);
    for (const QWidget* other : controls) {
      if (other == control) break;
      EXPECT_FALSE(other->geometry().intersects(control->geometry()))
          << NameOf(*other) << " on " << NameOf(*control);
    }
  }
}

void ExpectTidyAtEverySize(QWidget& form) {
  ExpectTidy(form);
  form.resize(form.minimumSize());
  QApplication::processEvents();
  ExpectTidy(form);
  form.resize(1400, 900);
  QApplication::processEvents();
  ExpectTidy(form);
}

}  // namespace bwp::test
