#pragma once

#include <string_view>
#include <vector>

#include <QPainter>

#include "viewer/forms/glyph_cache.h"

namespace bwp {

/// Texts of one colour that are drawn in one call. It keeps its buffers, so that the next page needs no
/// allocation.
class GlyphRun {
 public:
  explicit GlyphRun(const GlyphCache& glyphs) : glyphs_(glyphs) {}

  /// Adds a text that ends at `right` on the given baseline, in logical pixels.
  void Add(std::string_view text, int right, int baseline);

  /// Draws all texts and forgets them.
  void Draw(QPainter& painter, const QColor& colour);

 private:
  const GlyphCache& glyphs_;
  std::vector<quint32> indexes_;
  std::vector<QPointF> places_;
};

}  // namespace bwp
