#pragma once

#include <vector>

#include <QWidget>

#include "splitjoin/division_boxes.h"

namespace bwp {

/// The framed picture of how a file is divided into parts.
class DivisionView : public QWidget {
 public:
  explicit DivisionView(QWidget* parent);

  /// The frame in the widget's own coordinates; the boxes are computed for it.
  FrameShape Frame() const;
  void ShowBoxes(std::vector<DivisionBox> boxes);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<DivisionBox> boxes_;
};

}  // namespace bwp
