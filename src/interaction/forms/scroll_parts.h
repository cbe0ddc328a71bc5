#pragma once

#include <QToolButton>
#include <QWidget>

/// What the scroll bar is made of. Everything is drawn from the palette, so that it looks right in a light
/// and in a dark theme and at any scale.
namespace bwp {

/// `VSUP` or `VSDW`, worked by the left mouse button; each press of a double click counts. The toolkit's own
/// signals will not do: a button that is disabled while it is down emits `released`, which would scroll.
class LineButton : public QToolButton {
  Q_OBJECT

 public:
  LineButton(Qt::ArrowType arrow, QWidget* parent);

 Q_SIGNALS:
  void Held();
  /// The mouse button came up, wherever the pointer is by then.
  void LetGo();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
};

/// The track `VSBack`: only its look; the scroll bar handles its mouse.
class ScrollTrack : public QWidget {
 public:
  explicit ScrollTrack(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// The thumb `VSB`: only its look. It gets mouse moves also while no button is down.
class ThumbHandle : public QWidget {
 public:
  explicit ThumbHandle(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace bwp
