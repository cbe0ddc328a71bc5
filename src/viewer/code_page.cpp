#include "viewer/code_page.h"

#include <algorithm>
#include <array>

namespace code_page {
namespace {

// Bytes 0x80 to 0x9F; all others map to the character of the same number.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr std::uint8_t kHighControlsStart = 0x80;

constexpr std::array<std::uint8_t, 256> MakeFoldTable() {
  std::array<std::uint8_t, 256> table{};
  for (int byte = 0; byte < 256; ++byte) {
    const bool latin = byte >= 'A' && byte <= 'Z';
    const bool accented = byte >= 0xC0 && byte <= 0xDE && byte != 0xD7;
    table[static_cast<std::size_t>(byte)] = static_cast<std::uint8_t>(latin || accented ? byte + 0x20 : byte);
  }
  table[0x8A] = 0x9A;  // Š
  table[0x8C] = 0x9C;  // Œ
  table[0x8E] = 0x9E;  // Ž
  table[0x9F] = 0xFF;  // Ÿ
  return table;
}

constexpr std::array<std::uint8_t, 256> kFold = MakeFoldTable();

constexpr std::array<std::uint8_t, 256> MakeUpperTable() {
  std::array<std::uint8_t, 256> table{};
  for (std::size_t byte = 0; byte < 256; ++byte) table[byte] = static_cast<std::uint8_t>(byte);
  for (std::size_t byte = 0; byte < 256; ++byte) {
    if (kFold[byte] != byte) table[kFold[byte]] = static_cast<std::uint8_t>(byte);
  }
  return table;
}

constexpr std::array<std::uint8_t, 256> kUpper = MakeUpperTable();

}  // namespace

char16_t ToUnicode(std::uint8_t byte) {
  const std::size_t index = static_cast<std::size_t>(byte) - kHighControlsStart;
  return index < kHighControls.size() ? kHighControls[index] : static_cast<char16_t>(byte);
}

std::uint8_t FromUnicode(char32_t character) {
  const auto* const found =
      std::find_if(kHighControls.begin(), kHighControls.end(),
                   [character](char16_t candidate) { return static_cast<char32_t>(candidate) == character; });
  if (found != kHighControls.end()) {
    return static_cast<std::uint8_t>(kHighControlsStart + (found - kHighControls.begin()));
  }
  const bool sameNumber = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
  return sameNumber ? static_cast<std::uint8_t>(character) : std::uint8_t{'?'};
}

std::u16string ToUnicode(std::string_view text) {
  std::u16string result(text.size(), u'\0');
  std::transform(text.begin(), text.end(), result.begin(),
                 [](char byte) { return ToUnicode(static_cast<std::uint8_t>(byte)); });
  return result;
}

// No character of the set needs more than three bytes.
std::string ToUtf8(std::string_view text) {
  std::string result;
  for (const char16_t character : ToUnicode(text)) {
    const unsigned code = character;
    if (code < 0x80) {
      result += static_cast<char>(code);
    } else if (code < 0x800) {
      result += {static_cast<char>(0xC0U | code >> 6U), static_cast<char>(0x80U | (code & 0x3FU))};
    } else {
      result += {static_cast<char>(0xE0U | code >> 12U), static_cast<char>(0x80U | (code >> 6U & 0x3FU)),
                 static_cast<char>(0x80U | (code & 0x3FU))};
    }
  }
  return result;
}

std::string FromUnicode(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = i + 1 < text.size() && (text[i] & 0xFC00) == 0xD800 && (text[i + 1] & 0xFC00) == 0xDC00;
    result += pair ? '?' : static_cast<char>(FromUnicode(static_cast<char32_t>(text[i])));
    if (pair) ++i;
  }
  return result;
}

std::uint8_t Fold(std::uint8_t byte) {
  return kFold[byte];
}

std::uint8_t Upper(std::uint8_t byte) {
  return kUpper[byte];
}

}  // namespace code_page
