#include "splitjoin/click_order.h"

#include <gtest/gtest.h>
#include <list>
#include <rapidcheck/gtest.h>
#include <set>

namespace {

using bwp::ClickOrder;
using Entries = std::vector<std::size_t>;

TEST(ClickOrder, IsTheOrderOfTheClicks) {
  ClickOrder order;
  order.Click(2, true);
  order.Click(0, true);
  order.Click(1, true);
  EXPECT_EQ(order.Picked(), (Entries{2, 0, 1}));
}

TEST(ClickOrder, ClosesUpWhenAnEntryIsUnselected) {
  ClickOrder order;
  for (const std::size_t entry : {2U, 0U, 1U}) order.Click(entry, true);
  order.Click(0, false);
  EXPECT_EQ(order.Picked(), (Entries{2, 1}));
  order.Click(0, true);
  EXPECT_EQ(order.Picked(), (Entries{2, 1, 0}));
}

TEST(ClickOrder, MovesAnEntryThatIsClickedAgainToTheEnd) {
  ClickOrder order;
  for (const std::size_t entry : {0U, 1U, 0U}) order.Click(entry, true);
  EXPECT_EQ(order.Picked(), (Entries{1, 0}));
}

TEST(ClickOrder, DropsTheFirstForAnEntryThatHadNoPlace) {
  ClickOrder order;
  for (const std::size_t entry : {3U, 4U}) order.Click(entry, true);
  order.Click(7, false);
  EXPECT_EQ(order.Picked(), (Entries{4}));
}

TEST(ClickOrder, StartsAgainAfterAReset) {
  ClickOrder order;
  order.Click(3, true);
  order.Reset();
  EXPECT_TRUE(order.Picked().empty());
  order.Click(1, true);
  EXPECT_EQ(order.Picked(), (Entries{1}));
}

TEST(ClickOrder, FollowsEntriesFarDownTheList) {
  ClickOrder order;
  for (const std::size_t entry : {5000U, 200U, 201U}) order.Click(entry, true);
  EXPECT_EQ(order.Picked(), (Entries{5000, 200, 201}));
}

RC_GTEST_PROP(ClickOrder, IsAPlainQueueWhileEveryClickSwitchesOneEntry, ()) {
  ClickOrder order;
  std::list<std::size_t> queue;
  std::set<std::size_t> selected;
  for (const int click : *rc::gen::container<std::vector<int>>(500, rc::gen::inRange(0, 40))) {
    const auto entry = static_cast<std::size_t>(click);
    const bool now = selected.count(entry) == 0;
    if (now) {
      selected.insert(entry);
      queue.push_back(entry);
    } else {
      selected.erase(entry);
      queue.remove(entry);
    }
    order.Click(entry, now);
    RC_ASSERT(order.Picked() == Entries(queue.begin(), queue.end()));
  }
}

RC_GTEST_PROP(ClickOrder, FollowsThePlacesWhateverIsClicked, ()) {
  ClickOrder order;
  std::vector<int> places(201, 0);
  int count = 0;
  for (const int click : *rc::gen::container<std::vector<int>>(300, rc::gen::inRange(0, 402))) {
    const auto entry = static_cast<std::size_t>(click / 2);
    if (click % 2 == 0) {
      places[entry] = ++count;
    } else {
      const int old = places[entry];
      --count;
      places[entry] = 0;
      for (int& place : places) place -= place > old ? 1 : 0;
    }
    order.Click(entry, click % 2 == 0);
    Entries expected;
    for (int place = 1; place <= count; ++place) {
      for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] == place) expected.push_back(i);
      }
    }
    RC_ASSERT(order.Picked() == expected);
  }
}

}  // namespace
