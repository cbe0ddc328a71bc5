#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QAbstractItemView>

namespace bwp::test {

/// The texts of a list's rows, as UTF-8.
std::vector<std::string> RowTexts(const QAbstractItemView& list);

/// Real mouse events on the row with that text; the test fails when there is none.
void ClickRow(QAbstractItemView& list, const std::string& text, Qt::KeyboardModifiers modifiers = {});
void DoubleClickRow(QAbstractItemView& list, const std::string& text);

/// Lets events run until the condition holds, for a few seconds at most; the test fails when it never does.
bool Wait(const std::function<bool()>& condition);

}  // namespace bwp::test
