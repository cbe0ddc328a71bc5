#include "viewer/number_text.h"

#include <algorithm>
#include <clocale>
#include <limits>

#include "viewer/run_time_error.h"

namespace funzioni {
namespace {

// Everything below "&" and above "¥" counts as junk at the ends of a typed text.
constexpr std::uint8_t kFirstKept = 38;
constexpr std::uint8_t kLastKept = 165;

bool IsJunk(char character) {
  const auto code = static_cast<std::uint8_t>(character);
  return code < kFirstKept || code > kLastKept;
}

int HexDigit(char character) {
  if (character >= '0' && character <= '9') return character - '0';
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  if (character >= 'a' && character <= 'f') return character - 'a' + 10;
  return -1;
}

std::string HexText(std::int64_t value, std::size_t width) {
  if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
    throw bwp::MakeRunTimeError(bwp::kOverflow);
  }
  auto rest = static_cast<std::uint32_t>(value);
  std::string text;
  do {
    text.insert(text.begin(), "0123456789ABCDEF"[rest % 16]);
    rest /= 16;
  } while (rest != 0);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

// Hundredths of a unit, ties to the even neighbour.
std::int64_t RoundedHundredths(std::int64_t count, std::int64_t unit) {
  // Whole units are converted separately: a hundred times the largest file size would overflow.
  const std::int64_t scaled = count % unit * 100;
  const std::int64_t whole = count / unit * 100 + scaled / unit;
  const std::int64_t twiceRest = (scaled % unit) * 2;
  return whole + (twiceRest > unit || (twiceRest == unit && whole % 2 != 0) ? 1 : 0);
}

std::string HundredthsText(std::int64_t hundredths) {
  std::string text = std::to_string(hundredths / 100);
  const std::int64_t rest = hundredths % 100;
  if (rest == 0) return text;
  text += std::localeconv()->decimal_point;
  text += static_cast<char>('0' + rest / 10);
  if (rest % 10 != 0) text += static_cast<char>('0' + rest % 10);
  return text;
}

}  // namespace

std::string HexByte(std::int64_t value) {
  return HexText(value, 2);
}

std::string HexOffset(std::int64_t value) {
  return HexText(value, 8);
}

std::int64_t ParseHex(std::string_view text) {
  std::int64_t value = 0;
  int digits = 0;
  for (const char character : StripEdgeJunk(text)) {
    const int digit = HexDigit(character);
    if (digit < 0) break;
    value = std::min(value * 16 + digit, kTypedLimit);
    ++digits;
  }
  if (digits <= 4) return static_cast<std::int16_t>(value);
  if (digits <= 8) return static_cast<std::int32_t>(value);
  return value;
}

std::int64_t ParseDecimal(std::string_view text) {
  std::int64_t value = 0;
  for (const char character : text.substr(std::min(text.find_first_not_of(' '), text.size()))) {
    if (character < '0' || character > '9') break;
    value = std::min(value * 10 + (character - '0'), kTypedLimit);
  }
  return value;
}

bool IsNumberText(std::string_view text, bool hexAllowed) {
  const std::string kept = StripEdgeJunk(text);
  return !kept.empty() && std::all_of(kept.begin(), kept.end(), [hexAllowed](char character) {
    const int digit = HexDigit(character);
    return digit >= 0 && (digit < 10 || hexAllowed);
  });
}

std::string StripEdgeJunk(std::string_view text) {
  while (text.size() > 1) {
    const bool firstIsJunk = IsJunk(text.front());
    const bool lastIsJunk = IsJunk(text.back());
    if (!firstIsJunk && !lastIsJunk) break;
    if (firstIsJunk) text.remove_prefix(1);
    if (lastIsJunk) text.remove_suffix(1);
  }
  return std::string(text);
}

std::string SizeText(std::int64_t count) {
  constexpr std::int64_t kKilo = 1024;
  constexpr std::int64_t kMega = kKilo * kKilo;
  constexpr std::int64_t kGiga = kMega * kKilo;
  if (count > kGiga) return HundredthsText(RoundedHundredths(count, kGiga)) + " GB";
  if (count > kMega) return HundredthsText(RoundedHundredths(count, kMega)) + " MB";
  if (count > kKilo) return HundredthsText(RoundedHundredths(count, kKilo)) + " KB";
  return std::to_string(count) + " Bytes";
}

std::string GroupThousands(std::int64_t number, bool empty) {
  if (empty) return {};
  std::string text = std::to_string(number);
  for (std::size_t i = 3 * (text.size() / 3 + 1); i >= 3; i -= 3) {
    if (text.size() > i) text.insert(text.size() - i, 1, '.');
  }
  return text;
}

std::string SignPadded(std::int64_t number) {
  return (number < 0 ? "" : " ") + std::to_string(number);
}

std::int64_t MaxOf(std::initializer_list<std::int64_t> values) {
  return std::max(values);
}

std::int64_t MinOf(std::initializer_list<std::int64_t> values) {
  return std::min(values);
}

std::string StripQuotes(const std::string& text, char quote) {
  if (text.size() < 2) return text;
  const std::size_t first = text.front() == quote ? 1 : 0;
  const std::size_t last = text.back() == quote ? 1 : 0;
  return text.substr(first, text.size() - first - last);
}

}  // namespace funzioni
