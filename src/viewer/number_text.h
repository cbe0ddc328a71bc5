#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

/// Conversions between numbers and texts. Typed texts are in the program's own character set, one byte per
/// character.
namespace funzioni {

/// Upper-case hexadecimal text, with one "0" in front of a single digit; values of 256 and more are not cut.
/// Throws error 6 outside the signed 32-bit range; a negative value is shown in two's complement.
std::string HexByte(std::int64_t value);

/// Upper-case hexadecimal text of eight digits. Throws as HexByte does.
std::string HexOffset(std::int64_t value);

/// The value of a hexadecimal text after StripEdgeJunk, up to the first character that is not a digit; 0 if
/// there are no digits. Up to four digits are read as a signed 16-bit integer and up to eight as a signed
/// 32-bit one (FFFF is -1, 0FFFF is 65535); more digits are read as a plain number that stops at kTypedLimit.
std::int64_t ParseHex(std::string_view text);

/// The value of a decimal text: leading spaces, then digits up to the first other character; 0 if there are
/// no digits. Stops at kTypedLimit.
std::int64_t ParseDecimal(std::string_view text);

/// The largest value that a typed number can have: far above every file's length, far below overflow in a
/// sum.
inline constexpr std::int64_t kTypedLimit = std::int64_t{1} << 53;

/// True when the text, after StripEdgeJunk, is a non-empty run of digits (with hexAllowed also of the letters
/// A to F in either case).
bool IsNumberText(std::string_view text, bool hexAllowed = false);

/// The text without junk at its ends: characters below 38 or above 165. A single character stays, whatever it
/// is.
std::string StripEdgeJunk(std::string_view text);

/// A size in a readable unit: up to two decimals with the locale's separator, and " GB", " MB", " KB" or
/// " Bytes". A unit begins above its size: 1024 is "1024 Bytes", 1025 is "1 KB".
std::string SizeText(std::int64_t count);

/// The number's decimal text with "." between groups of three digits. Empty when the flag is set.
std::string GroupThousands(std::int64_t number, bool empty = false);

/// Decimal text with a leading space if the number is not negative, as captions show numbers.
std::string SignPadded(std::int64_t number);

/// The largest of the values; the first of equal ones.
std::int64_t MaxOf(std::initializer_list<std::int64_t> values);

/// The smallest of the values; the first of equal ones.
std::int64_t MinOf(std::initializer_list<std::int64_t> values);

/// The text without one such quote at its start and one at its end, where there is one; a text of fewer than
/// two characters stays as it is.
std::string StripQuotes(const std::string& text, char quote = '"');

}  // namespace funzioni
