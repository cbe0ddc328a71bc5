#pragma once

#include <string>
#include <string_view>

#include <QString>

/// Between the engine's texts and the toolkit's.
namespace bwp {

/// A typed text in the program's character set; a character that has no byte becomes "?".
std::string ToCodePage(const QString& text);
/// A text of the program's character set.
QString FromCodePage(std::string_view text);

/// A path or a text that holds one. Bytes that are not UTF-8 survive the way there and back, each as a lone
/// surrogate (U+DC80 to U+DCFF).
QString FromPath(std::string_view path);
std::string ToPath(const QString& path);

/// A path or a text that holds one as a window's title: the toolkit would take a "[*]" in it for a mark of
/// its own.
QString TitleOf(std::string_view text);

}  // namespace bwp
