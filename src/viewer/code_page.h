#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The program's one character set: Windows-1252, one byte per character. The five bytes that the code page
/// leaves unassigned map to the control characters of the same number, so that every byte is a character.
namespace code_page {

/// The Unicode character of a byte.
char16_t ToUnicode(std::uint8_t byte);

/// The byte of a Unicode character; '?' for a character that has none.
std::uint8_t FromUnicode(char32_t character);

/// Every byte of the text as its Unicode character.
std::u16string ToUnicode(std::string_view text);

/// Every byte of the text as its character in UTF-8.
std::string ToUtf8(std::string_view text);

/// The text with every character as its byte; a surrogate pair is one character and becomes one '?'.
std::string FromUnicode(std::u16string_view text);

/// The lower-case byte of a letter (A-Z, À-Þ without ×, Š Œ Ž Ÿ), every other byte as it is: two bytes are
/// equal in a case-insensitive comparison when their folded bytes are.
std::uint8_t Fold(std::uint8_t byte);

/// The upper-case byte of a letter, the inverse of Fold; a letter without one stays as it is.
std::uint8_t Upper(std::uint8_t byte);

}  // namespace code_page
