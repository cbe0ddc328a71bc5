#include "splitjoin/part_names.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "require.h"
#include "viewer/run_time_error.h"

namespace {

void RequireParts(const bwp::PartNames& parts, std::size_t baseLength) {
  Require(parts.first >= 0 && parts.first <= 999);
  Require(parts.prefix.size() + parts.suffix.size() <= baseLength);
  for (const std::int64_t number : {parts.first, std::int64_t{0}, std::int64_t{999}}) {
    const std::string name = parts.Name(number);
    Require(name.size() == parts.prefix.size() + 3 + parts.suffix.size());
    Require(name.compare(0, parts.prefix.size(), parts.prefix) == 0);
    Require(std::stoi(name.substr(parts.prefix.size(), 3)) == number);
  }
  bool refused = false;
  try {
    parts.Name(1000);
  } catch (const bwp::RunTimeError& error) {
    refused = error.number == bwp::kInvalidProcedureCall;
  }
  Require(refused);
}

template <typename Cut>
void RequirePartsOrRefusal(Cut cut, const std::string& base) {
  try {
    RequireParts(cut(base), base.size());
  } catch (const bwp::RunTimeError& error) {
    Require(error.number == bwp::kInvalidProcedureCall);
  }
}

}  // namespace

// Any name may be the base name of parts: a split always finds their names, a deletion and a join either find
// them or refuse the name, and every number has three digits.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string base(reinterpret_cast<const char*>(data), size);
  RequireParts(bwp::SplitNames(base), base.size() + 4);
  RequirePartsOrRefusal(bwp::DeletionNames, base);
  RequirePartsOrRefusal(bwp::JoinNames, base);
  return 0;
}
