#pragma once

#include <functional>

#include <QToolButton>
#include <QWidget>

#include "interaction/scroll_bar.h"

/// What the scroll bar is made of. Everything is drawn from the palette, so that it looks right in a light
/// and in a dark theme and at any scale.
namespace bwp {

/// `VSUP` or `VSDW`: reports press and release of the left button wherever the pointer goes meanwhile.
class LineButton : public QToolButton {
 public:
  LineButton(Qt::ArrowType arrow, QWidget* parent);

  std::function<void()> onPress;
  std::function<void()> onRelease;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};

/// The track `VSBack`.
class ScrollTrack : public QWidget {
 public:
  explicit ScrollTrack(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// The thumb `VSB`.
class ThumbHandle : public QWidget {
 public:
  explicit ThumbHandle(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace bwp
