#include "support/forms/list_clicks.h"

#include <gtest/gtest.h>

#include <QTest>

namespace bwp::test {
namespace {

// The middle of a row's text, scrolled into view.
QPoint PlaceOf(QAbstractItemView& list, const std::string& text) {
  const std::vector<std::string> rows = RowTexts(list);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows[row] != text) continue;
    const QModelIndex index = list.model()->index(static_cast<int>(row), 0);
    list.scrollTo(index);
    return list.visualRect(index).center();
  }
  ADD_FAILURE() << "no row " << text;
  return {-1, -1};
}

}  // namespace

std::vector<std::string> RowTexts(const QAbstractItemView& list) {
  std::vector<std::string> texts;
  for (int row = 0; row < list.model()->rowCount(); ++row) {
    texts.push_back(list.model()->index(row, 0).data().toString().toStdString());
  }
  return texts;
}

void ClickRow(QAbstractItemView& list, const std::string& text, Qt::KeyboardModifiers modifiers) {
  QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, PlaceOf(list, text));
}

void DoubleClickRow(QAbstractItemView& list, const std::string& text) {
  const QPoint place = PlaceOf(list, text);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
}

bool Wait(const std::function<bool()>& condition) {
  const bool held = QTest::qWaitFor(condition, 5000);
  EXPECT_TRUE(held) << "waited in vain";
  return held;
}

}  // namespace bwp::test
