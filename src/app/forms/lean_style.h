#pragma once

#include <QProxyStyle>

namespace bwp {

/// The desktop's style without the two pictures that it would read from files at the start: to read the first
/// one, the toolkit loads every image format that it knows, which takes a large part of the start.
class LeanStyle : public QProxyStyle {
 public:
  /// Leaves out the arrow that a menu bar shows when its window is too narrow for it: the main form never is.
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;

  /// Draws the frame of a group itself where the toolkit's own style would use a picture.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace bwp
