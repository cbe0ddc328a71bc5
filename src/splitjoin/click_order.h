#pragma once

#include <cstddef>
#include <vector>

namespace bwp {

/// The order in which the entries of a list were clicked. A click concerns one entry only: entries that Shift
/// selects along with it get no place, and entries that a plain click unselects keep theirs.
class ClickOrder {
 public:
  /// Forgets every place; to be called when the list is refilled.
  void Reset();

  /// The entry was clicked and is now selected or not. If selected, it becomes the last one. If unselected,
  /// it gives up its place and those after it move up. An entry that has no place counts as being before all
  /// others here, so the first one drops out.
  void Click(std::size_t entry, bool selected);

  /// The entries that have a place, in order.
  std::vector<std::size_t> Picked() const;

 private:
  std::vector<int> places_;  ///< Place of every entry, from 1; 0 or less for none.
  int count_ = 0;
};

}  // namespace bwp
