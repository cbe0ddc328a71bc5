#pragma once

#include <array>
#include <optional>
#include <string_view>

#include <QImage>

#include "viewer/forms/cell_geometry.h"
#include "viewer/forms/glyph_cache.h"

namespace bwp {

/// Prepared pictures of nearly all cells that a page can show: the bytes as hexadecimal pairs, as decimal
/// numbers and as characters, dark on the cell's own colour. Blitting one is several times cheaper than
/// drawing its glyphs.
class CellPictures {
 public:
  /// A picture inside the image that holds all of its kind, in device pixels.
  struct Picture {
    const QImage* image;
    QRect source;
  };

  CellPictures(const GlyphCache& glyphs, const CellGeometry& geometry)
      : glyphs_(glyphs), geometry_(geometry) {}

  /// Sets the device pixel ratio of the pictures; there are none at fractional ratios.
  void SetRatio(double ratio);
  /// The ratio of the pictures, 0 if there are none.
  int Ratio() const { return ratio_; }

  /// The picture of a whole value or character cell that shows the text on its own colour; none for a text
  /// that is not a byte. All of a kind are made when the first one is needed.
  std::optional<Picture> Find(std::string_view text, bool character);

 private:
  enum Kind : std::size_t { kPair, kDecimal, kCharacter, kKinds };

  QImage Make(Kind kind) const;

  const GlyphCache& glyphs_;
  const CellGeometry& geometry_;
  int ratio_ = 0;
  std::array<QImage, kKinds> images_;
};

}  // namespace bwp
