#pragma once

#include <string>
#include <string_view>

#include <QString>

/// Conversions between the engine's texts and the toolkit's.
namespace bwp {

/// A typed text in the program's character set; a character that has no byte becomes "?".
std::string ToCodePage(const QString& text);
/// A text of the program's character set.
QString FromCodePage(std::string_view text);

/// A path or a text that contains one. Bytes that are not UTF-8 survive the conversion and back, each as a
/// lone surrogate (U+DC80 to U+DCFF).
QString FromPath(std::string_view path);
std::string ToPath(const QString& path);

/// A path, or a text that contains one, as a window's title, in which the toolkit would otherwise interpret
/// "[*]".
QString TitleOf(std::string_view text);

}  // namespace bwp
