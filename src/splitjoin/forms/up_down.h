#pragma once

#include <QSpinBox>

namespace bwp {

/// Two arrows for a number that another field shows: a spin box without its text.
class UpDown : public QSpinBox {
  Q_OBJECT

 public:
  explicit UpDown(QWidget* parent);

  void stepBy(int steps) override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
  /// The lower arrow was clicked, by mouse or by key. The value changes after this.
  void DownClicked();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace bwp
