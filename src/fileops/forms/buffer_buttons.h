#pragma once

#include <QWidget>

class QPushButton;

namespace bwp {

/// The three buttons that move bytes between the chunk and the Buffer. What they do is the main form's to
/// say.
class BufferButtons : public QWidget {
 public:
  explicit BufferButtons(QWidget* parent = nullptr);

  QPushButton* cop;
  QPushButton* Cut;
  QPushButton* Paste;
};

}  // namespace bwp
