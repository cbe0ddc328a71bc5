#include "viewer/forms/glyph_run.h"

#include <cmath>

#include <QGlyphRun>

namespace bwp {

void GlyphRun::Add(std::string_view text, int right, int baseline) {
  double x = right - std::ceil(glyphs_.Advance() * static_cast<double>(text.size()));
  for (const char character : text) {
    const quint32 glyph = glyphs_.Glyph(static_cast<std::uint8_t>(character));
    if (glyph != GlyphCache::kNothing) {
      indexes_.push_back(glyph);
      places_.emplace_back(x, baseline);
    }
    x += glyphs_.Advance();
  }
}

void GlyphRun::Draw(QPainter& painter, const QColor& colour) {
  if (!indexes_.empty()) {
    QGlyphRun run;
    run.setRawFont(glyphs_.Font());
    run.setRawData(indexes_.data(), places_.data(), static_cast<int>(indexes_.size()));
    painter.setPen(colour);
    painter.drawGlyphRun({}, run);
  }
  indexes_.clear();
  places_.clear();
}

}  // namespace bwp
