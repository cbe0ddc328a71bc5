#pragma once

#include <cstdint>
#include <string>

namespace bwp {

/// How the parts of one file are named: a three-digit number between a prefix and a suffix.
struct PartNames {
  std::string prefix;
  std::int64_t first = 0;  ///< The number in the base name itself.
  std::string suffix;

  /// The name of the part with that number. Throws error 5 from 1000 on, which needs more than three digits.
  std::string Name(std::int64_t number) const;
};

/// The part names of a split, from the base name with its folder. The first digit of the whole path, except
/// at its very end, begins the number, and exactly three characters are taken, whatever they are. ".000" is
/// appended to a name without a number.
PartNames SplitNames(const std::string& path);

/// The part names whose files a new split deletes first. Throws error 5 for a name without a number: this
/// step would append ".00", which is one digit short.
PartNames DeletionNames(const std::string& path);

/// The part names of a consecutive join, from the base file's name without folder; here the last character
/// counts too. Throws error 5 for a name without a digit.
PartNames JoinNames(const std::string& name);

}  // namespace bwp
