#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "require.h"
#include "viewer/number_text.h"

namespace {

void RequireRoundTrips(std::int64_t value) {
  Require(funzioni::ParseDecimal(std::to_string(value)) == value);
  if (value > std::numeric_limits<std::int32_t>::max()) return;
  const std::string offset = funzioni::HexOffset(value);
  Require(offset.size() == 8 && funzioni::IsNumberText(offset, true));
  Require(funzioni::ParseHex(offset) == value);
}

}  // namespace

// Any text may be typed where a number is asked for. It is read as a number within the typed limit, and what
// was read comes back from the texts that are made of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);

  const std::string kept = funzioni::StripEdgeJunk(text);
  Require(kept.size() <= text.size());
  Require(text.empty() || text.find(kept) != std::string_view::npos);
  Require(!funzioni::IsNumberText(text) || funzioni::IsNumberText(text, true));

  const std::int64_t decimal = funzioni::ParseDecimal(text);
  Require(decimal >= 0 && decimal <= funzioni::kTypedLimit);
  RequireRoundTrips(decimal);

  const std::int64_t hex = funzioni::ParseHex(text);
  Require(hex >= std::numeric_limits<std::int32_t>::min() && hex <= funzioni::kTypedLimit);
  if (hex >= 0) RequireRoundTrips(hex);

  std::string grouped = funzioni::GroupThousands(decimal);
  std::erase(grouped, '.');
  Require(grouped == std::to_string(decimal));
  Require(funzioni::SizeText(decimal).find(' ') != std::string::npos);
  Require(funzioni::StripQuotes(std::string(text)).size() + 2 >= text.size());
  return 0;
}
