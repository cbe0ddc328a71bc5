#pragma once

#include <cstdint>
#include <string>

namespace bwp {

/// How the parts of one file are named: a three-digit number between a prefix and a suffix.
struct PartNames {
  std::string prefix;
  std::int64_t first = 0;  ///< The number that the base name itself holds.
  std::string suffix;

  /// The name of the part with that number. Throws error 5 from 1000 on: it has no three digits.
  std::string Name(std::int64_t number) const;
};

/// The part names of a split, from the base name with its folder; ".000" is appended to a name without a
/// number. The first digit anywhere but in the last place begins the number, and exactly three characters are
/// taken, whatever they are: also in a folder's name, and of a longer or shorter run of digits.
PartNames SplitNames(const std::string& path);

/// The part names whose files a new split clears away. Throws error 5 for a name without a number: ".00" is
/// what this step would append, and that is one digit short.
PartNames DeletionNames(const std::string& path);

/// The part names of a consecutive join, from the base file's name without folder; here the last place
/// counts too. Throws error 5 for a name without a digit.
PartNames JoinNames(const std::string& name);

}  // namespace bwp
