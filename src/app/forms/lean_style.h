#pragma once

#include <QProxyStyle>

namespace bwp {

/// The desktop's style without the two pictures that it would read from files at the start: to read the first
/// one, the toolkit loads every image format that it knows, which takes a large part of the start.
class LeanStyle : public QProxyStyle {
 public:
  /// Leaves out the arrow that a menu bar shows when its window is too narrow for it: the main form never is.
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;

  /// Draws frames itself in place of the toolkit's own style: a group's, for which that one uses a picture,
  /// and a line edit's, which is then as square as that of the text box beside it.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace bwp
