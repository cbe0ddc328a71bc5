#include "viewer/forms/glyph_cache.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include "viewer/code_page.h"

namespace bwp {
namespace {

// Control characters have no glyph of their own, and spaces draw nothing.
bool LeavesNoTrace(char16_t character) {
  return character <= u' ' || (character >= 0x7F && character <= 0xA0) || character == 0xAD;
}

}  // namespace

GlyphCache::GlyphCache(const QFont& font) : font_(QRawFont::fromFont(font)), advance_(0) {
  std::array<QChar, 256> characters;
  for (std::size_t byte = 0; byte < characters.size(); ++byte) {
    characters[byte] = QChar(code_page::ToUnicode(static_cast<std::uint8_t>(byte)));
  }
  int count = static_cast<int>(glyphs_.size());
  font_.glyphIndexesForChars(characters.data(), static_cast<int>(characters.size()), glyphs_.data(), &count);
  for (std::size_t byte = 0; byte < characters.size(); ++byte) {
    if (LeavesNoTrace(characters[byte].unicode())) glyphs_[byte] = kNothing;
  }
  advance_ = QFontMetricsF(font).horizontalAdvance(QLatin1Char('0'));
}

QFont FixedFontFitting(int characters, int pixels) {
  constexpr double kSmallest = 5;
  constexpr double kStep = 0.5;
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  // One byte is one glyph of this font: no fallback fonts and no shaping.
  font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::NoFontMerging | QFont::PreferNoShaping));
  double size = font.pointSizeF();
  while (size > kSmallest && QFontMetricsF(font).horizontalAdvance(QLatin1Char('0')) * characters > pixels) {
    size -= kStep;
    font.setPointSizeF(size);
  }
  return font;
}

}  // namespace bwp
