#pragma once

#include <vector>

#include <QWidget>

#include "splitjoin/division_boxes.h"

namespace bwp {

/// The framed graphic that shows how a file is divided into parts.
class DivisionView : public QWidget {
 public:
  explicit DivisionView(QWidget* parent);

  /// The frame in its own coordinates, for which the boxes are computed.
  FrameShape Frame() const;
  void ShowBoxes(std::vector<DivisionBox> boxes);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<DivisionBox> boxes_;
};

}  // namespace bwp
