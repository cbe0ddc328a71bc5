#pragma once

#include <array>
#include <cstdint>

#include <QFont>
#include <QRawFont>

namespace bwp {

/// The glyphs of a fixed-pitch font for the 256 bytes, looked up once, so that drawing a page only has to
/// place them. The toolkit caches their pictures for every device pixel ratio it draws at.
class GlyphCache {
 public:
  explicit GlyphCache(const QFont& font);

  const QRawFont& Font() const { return font_; }
  /// The width of every character, in logical pixels.
  double Advance() const { return advance_; }
  double Ascent() const { return font_.ascent(); }
  double Descent() const { return font_.descent(); }

  /// The glyph of the byte's character; kNothing for a character that draws nothing.
  std::uint32_t Glyph(std::uint8_t byte) const { return glyphs_[byte]; }
  static constexpr std::uint32_t kNothing = 0xFFFFFFFF;

 private:
  QRawFont font_;
  double advance_;
  std::array<std::uint32_t, 256> glyphs_{};
};

/// The desktop's fixed-pitch font, made smaller where the given number of characters would not fit the width.
QFont FixedFontFitting(int characters, int pixels);

}  // namespace bwp
