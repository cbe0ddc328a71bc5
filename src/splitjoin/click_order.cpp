#include "splitjoin/click_order.h"

#include <algorithm>

namespace bwp {

void ClickOrder::Reset() {
  places_.clear();
  count_ = 0;
}

void ClickOrder::Click(std::size_t entry, bool selected) {
  if (entry >= places_.size()) places_.resize(entry + 1, 0);
  if (selected) {
    places_[entry] = ++count_;
    return;
  }
  --count_;
  const int left = places_[entry];
  places_[entry] = 0;
  for (int& place : places_) {
    if (place > left) --place;
  }
}

std::vector<std::size_t> ClickOrder::Picked() const {
  std::vector<std::size_t> picked;
  for (std::size_t entry = 0; entry < places_.size(); ++entry) {
    if (places_[entry] > 0) picked.push_back(entry);
  }
  std::sort(picked.begin(), picked.end(),
            [this](std::size_t one, std::size_t other) { return places_[one] < places_[other]; });
  return picked;
}

}  // namespace bwp
