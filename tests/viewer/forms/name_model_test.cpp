#include "viewer/forms/name_model.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>

#include "viewer/folder_listing.h"
#include "viewer/forms/text_conversion.h"

namespace {

using bwp::NameModel;

std::vector<std::string> SortedNames(const std::vector<int>& numbers) {
  std::vector<std::string> names;
  for (const int number : numbers) names.push_back("n" + std::to_string(number));
  std::sort(names.begin(), names.end(), bwp::NameLess);
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

TEST(NameModel, RowsReadAsTheBareNames) {
  NameModel model;
  const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  model.SetNames({"/", "\xFFname"});
  EXPECT_EQ(model.rowCount(), 2);
  EXPECT_EQ(model.index(0).data().toString(), QStringLiteral("/"));
  EXPECT_EQ(bwp::ToPath(model.index(1).data().toString()), "\xFFname");
}

RC_GTEST_PROP(NameModel, AnUpdateLeavesTheNewNamesAndFollowsTheRowsThatStay, ()) {
  const auto numbers = rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 30));
  const std::vector<std::string> before = SortedNames(*numbers);
  const std::vector<std::string> after = SortedNames(*numbers);
  std::vector<std::string> rows = {"top", "above"};
  rows.insert(rows.end(), before.begin(), before.end());
  NameModel model;
  const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  model.SetNames(rows);
  std::vector<QPersistentModelIndex> followed;
  for (int row = 0; row < model.rowCount(); ++row) followed.emplace_back(model.index(row));

  model.UpdateNames(after, 2);

  std::vector<std::string> expected = {"top", "above"};
  expected.insert(expected.end(), after.begin(), after.end());
  RC_ASSERT(model.Names() == expected);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool stays = std::find(expected.begin(), expected.end(), rows[i]) != expected.end();
    RC_ASSERT(followed[i].isValid() == stays);
    if (stays) RC_ASSERT(bwp::ToPath(followed[i].data().toString()) == rows[i]);
  }
}

}  // namespace
