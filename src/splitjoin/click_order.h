#pragma once

#include <cstddef>
#include <vector>

namespace bwp {

/// In which order the entries of a list were picked, as far as clicks tell: one click speaks of one entry, so
/// what Shift selects along with it gets no place, and what a plain click unselects beside it keeps its own.
class ClickOrder {
 public:
  /// Forgets every place: the list was filled anew.
  void Reset();

  /// The entry was clicked and is now selected or not. Selected, it is the last one from now on. Unselected,
  /// it gives up its place and those behind it move up; an entry that never had one stands before all others
  /// in this, so that the first one drops out.
  void Click(std::size_t entry, bool selected);

  /// The placed entries, the first pick first.
  std::vector<std::size_t> Picked() const;

 private:
  std::vector<int> places_;  ///< Place of every entry, from 1; 0 or less for none.
  int count_ = 0;
};

}  // namespace bwp
