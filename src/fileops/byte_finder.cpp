#include "fileops/byte_finder.h"

#include <algorithm>
#include <cstring>

#include "viewer/code_page.h"

namespace FileSystem {
namespace {

// How much of a text is looked at to learn which bytes are rare in it, and after how many texts it is done
// again. The distance is prime, so that records of a usual length do not show the same of their bytes each
// time.
constexpr std::size_t kSamples = 512;
constexpr std::size_t kSampleDistance = 1021;
constexpr unsigned kTextsPerLook = 16;

// So many of the rarest bytes are tried in pairs, each on so much of the text.
constexpr std::size_t kRarest = 8;
constexpr std::size_t kTrialLength = 65'536;

// Comparing a candidate costs its equal bytes and this much. Altogether it may cost so many times the bytes
// that were passed, after a start that is free.
constexpr std::size_t kCandidateCost = 16;
constexpr std::size_t kCostPerByte = 2;
constexpr std::size_t kFreeCost = 16'384;

// How many of the first count bytes are left when the equal ones at their end are taken away.
std::size_t WithoutEqualEnd(const char* one, const char* two, std::size_t count) {
  for (std::uint64_t left = 0, right = 0; count >= sizeof left; count -= sizeof left) {
    std::memcpy(&left, one + count - sizeof left, sizeof left);
    std::memcpy(&right, two + count - sizeof right, sizeof right);
    if (left != right) break;
  }
  while (count > 0 && one[count - 1] == two[count - 1]) --count;
  return count;
}

// How often the pair fits before `end`; no more than limit.
std::size_t CountFits(const BytePair& pair, const unsigned char* text, std::size_t end, std::size_t limit) {
  std::size_t fits = 0;
  std::size_t place = 0;
  while (fits < limit && (place = ScanForPair(pair, text, place, end)) < end) {
    ++fits;
    ++place;
  }
  return fits;
}

}  // namespace

ByteFinder::ByteFinder(std::string_view pattern, bool ignoreCase) : pattern_(pattern) {
  for (std::size_t byte = 0; byte < fold_.size(); ++byte) {
    const auto value = static_cast<unsigned char>(byte);
    fold_[byte] = ignoreCase ? code_page::Fold(value) : value;
    mask_[byte] = ignoreCase ? static_cast<unsigned char>(value ^ code_page::Upper(value)) : 0;
  }
  for (std::size_t i = 0; i < pattern_.size(); ++i) {
    const unsigned char byte = Folded(pattern_[i]);
    pattern_[i] = static_cast<char>(byte);
    last_[byte] = i + 1;
  }
  for (const std::size_t last : last_) {
    if (last > 0) places_.push_back(last - 1);
  }
}

std::size_t ByteFinder::Find(std::string_view text, std::size_t from) {
  if (text.size() < pattern_.size()) return kNone;
  const std::size_t end = text.size() - pattern_.size() + 1;
  if (from >= end) return kNone;
  if (searched_++ % kTextsPerLook == 0) pair_ = RarePair(text);
  const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
  std::size_t cost = 0;
  for (std::size_t place = from; (place = ScanForPair(pair_, bytes, place, end)) < end;) {
    const std::size_t mismatch = LastMismatch(text.data() + place);
    if (mismatch == kNone) return place;
    cost += kCandidateCost + pattern_.size() - mismatch;
    // The byte that does not match cannot do so before it has come to its last place in the pattern.
    const std::size_t last = last_[Folded(text[place + mismatch])];
    place += last <= mismatch ? mismatch + 1 - last : 1;
    if (cost > kFreeCost + kCostPerByte * (place - from)) return FindByTable(text, place);
  }
  return kNone;
}

// The places of those bytes of the pattern that are rarest in the text, the rarest first.
std::vector<std::size_t> ByteFinder::RarePlaces(std::string_view text) const {
  std::array<std::size_t, 256> count{};
  for (std::size_t i = 0, n = 0; i < text.size() && n < kSamples; i += kSampleDistance, ++n) {
    ++count[Folded(text[i])];
  }
  std::vector<std::size_t> rarest(std::min(places_.size(), kRarest));
  std::partial_sort_copy(places_.begin(), places_.end(), rarest.begin(), rarest.end(),
                         [&](std::size_t one, std::size_t two) {
                           return count[Folded(pattern_[one])] < count[Folded(pattern_[two])];
                         });
  return rarest;
}

BytePair ByteFinder::PairAt(std::size_t first, std::size_t second) const {
  const auto partAt = [this](std::size_t position) {
    const auto byte = static_cast<unsigned char>(pattern_[position]);
    return BytePair::Part{position, static_cast<unsigned char>(byte | mask_[byte]), mask_[byte]};
  };
  return {partAt(first), partAt(second)};
}

// Bytes that are rare each for itself may still come together, as those of a usual word do; so the pairs are
// tried. Of a pattern with one byte only, the ends are taken.
BytePair ByteFinder::RarePair(std::string_view text) const {
  const std::vector<std::size_t> places = RarePlaces(text);
  if (places.size() == 1) return PairAt(0, pattern_.size() - 1);
  const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
  const std::size_t end = std::min(text.size() - pattern_.size() + 1, kTrialLength);
  BytePair rarest{};
  std::size_t fewest = kNone;
  for (std::size_t second = 1; second < places.size() && fewest > 0; ++second) {
    for (std::size_t first = 0; first < second && fewest > 0; ++first) {
      const BytePair pair = PairAt(places[first], places[second]);
      const std::size_t fits = CountFits(pair, bytes, end, fewest);
      if (fits < fewest) rarest = pair;
      fewest = std::min(fits, fewest);
    }
  }
  return rarest;
}

// The last place where the pattern and the text differ; kNone where they do not.
std::size_t ByteFinder::LastMismatch(const char* text) const {
  std::size_t left = WithoutEqualEnd(text, pattern_.data(), pattern_.size());
  while (left > 0 && Folded(text[left - 1]) == static_cast<unsigned char>(pattern_[left - 1])) --left;
  return left == 0 ? kNone : left - 1;
}

// The failure table says, for a number of matching bytes, how many of them match when the pattern is moved on
// as little as possible; so no byte of the text is looked at twice.
std::size_t ByteFinder::FindByTable(std::string_view text, std::size_t from) {
  const auto advance = [this](std::size_t matching, unsigned char byte) {
    while (matching > 0 && static_cast<unsigned char>(pattern_[matching]) != byte) {
      matching = failure_[matching - 1];
    }
    return static_cast<unsigned char>(pattern_[matching]) == byte ? matching + 1 : 0;
  };
  if (failure_.empty()) {
    failure_.assign(pattern_.size(), 0);
    for (std::size_t i = 1; i < pattern_.size(); ++i) {
      failure_[i] =
          static_cast<std::uint32_t>(advance(failure_[i - 1], static_cast<unsigned char>(pattern_[i])));
    }
  }
  std::size_t matching = 0;
  for (std::size_t i = from; i < text.size(); ++i) {
    matching = advance(matching, Folded(text[i]));
    if (matching == pattern_.size()) return i + 1 - matching;
  }
  return kNone;
}

}  // namespace FileSystem
