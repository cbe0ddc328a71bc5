#pragma once

#include <gtest/gtest.h>
#include <string>

#include <QImage>
#include <QLineEdit>
#include <QSpinBox>
#include <QStyleOptionSpinBox>
#include <QTest>

#include "splitjoin/forms/divide.h"

namespace bwp::test {

/// The form `Divide` on a file of 1000 bytes, shown.
class DivideForm : public testing::Test {
 protected:
  DivideForm() { Show(1000); }

  /// Shows the form anew, on a file of that size that is marked as a whole.
  void Show(std::int64_t fileSize) {
    state.OpenFile = "/files/f.bin";
    state.FLen = fileSize;
    state.MarkStart = 0;
    state.MarkEnd = fileSize - 1;
    form.Start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  }
  QLineEdit& Field(const char* name) { return Find<QLineEdit>(name); }
  std::string Text(const char* name) { return Field(name).text().toStdString(); }
  template <typename Widget>
  Widget& Find(const char* name) {
    return *form.findChild<Widget*>(QLatin1String(name));
  }
  void Type(const char* name, const char* text) {
    Field(name).setFocus();
    Field(name).selectAll();
    QTest::keyClicks(&Field(name), QLatin1String(text));
  }
  void Enter(const char* name, const char* text) {
    Type(name, text);
    QTest::keyClick(&Field(name), Qt::Key_Return);
  }
  QImage Picture() { return Find<QWidget>("Division").grab().toImage(); }
  void ClickArrow(QStyle::SubControl arrow) {
    QSpinBox& upDown = Find<QSpinBox>("UDCh");
    QStyleOptionSpinBox option;
    option.initFrom(&upDown);
    option.frame = true;
    option.buttonSymbols = QAbstractSpinBox::UpDownArrows;
    const QRect rect = upDown.style()->subControlRect(QStyle::CC_SpinBox, &option, arrow, &upDown);
    QTest::mouseClick(&upDown, Qt::LeftButton, {}, rect.center());
  }

  ViewState state;
  SplitPlan plan{state};
  Divide form{plan, nullptr};
};

}  // namespace bwp::test
