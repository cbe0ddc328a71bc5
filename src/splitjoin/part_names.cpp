#include "splitjoin/part_names.h"

#include <string_view>

#include "viewer/number_text.h"
#include "viewer/run_time_error.h"

namespace bwp {
namespace {

constexpr std::size_t kNumberLength = 3;
constexpr std::string_view kDigits = "0123456789";

// Cuts where the number starts. A name that ends before three characters has no suffix.
PartNames CutAt(const std::string& name, std::size_t start) {
  const std::string number = name.substr(start, kNumberLength);
  return {name.substr(0, start), funzioni::ParseDecimal(number), name.substr(start + number.size())};
}

// The search for the first digit of a split's base name never looks at the last character.
std::size_t NumberStart(const std::string& path) {
  return std::string_view(path).substr(0, path.empty() ? 0 : path.size() - 1).find_first_of(kDigits);
}

}  // namespace

std::string PartNames::Name(std::int64_t number) const {
  const std::string digits = std::to_string(number);
  if (digits.size() > kNumberLength) throw MakeRunTimeError(kInvalidProcedureCall);
  return prefix + std::string(kNumberLength - digits.size(), '0') + digits + suffix;
}

PartNames SplitNames(const std::string& path) {
  const std::size_t start = NumberStart(path);
  if (start == std::string::npos) return CutAt(path + ".000", path.size() + 1);
  return CutAt(path, start);
}

PartNames DeletionNames(const std::string& path) {
  const std::size_t start = NumberStart(path);
  if (start == std::string::npos) throw MakeRunTimeError(kInvalidProcedureCall, path);
  return CutAt(path, start);
}

PartNames JoinNames(const std::string& name) {
  const std::size_t start = name.find_first_of(kDigits);
  if (start == std::string::npos) throw MakeRunTimeError(kInvalidProcedureCall, name);
  return CutAt(name, start);
}

}  // namespace bwp
