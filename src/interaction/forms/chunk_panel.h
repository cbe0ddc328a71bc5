#pragma once

#include <array>

#include <QGroupBox>

#include "interaction/chunk_selection.h"

class QKeyEvent;
class QPushButton;

namespace bwp {

class DecimalBox;
class OffsetBox;

/// The chunk's start, end and size in both bases, to read and to type, and the buttons that go to its marks.
class ChunkPanel : public QGroupBox {
 public:
  ChunkPanel(ViewState& state, Display& display, QWidget* parent = nullptr);

  void ShowChunkTexts(const ChunkTexts& texts);

  /// Puts what is done with the chunk below its boxes.
  void AddBelow(QWidget& commands);

  /// For the main form to enable: going to a mark needs a file.
  QPushButton* Gstart;
  QPushButton* Gend;

  /// The boxes' events pass through here before the boxes see them.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // One row: the box in hexadecimal and the one in decimal.
  struct Row {
    OffsetBox* hex;
    DecimalBox* decimal;
    ChunkField hexField;
    ChunkField decimalField;
  };

  void LayOut();
  bool KeyPressed(const QObject* box, const QKeyEvent& key);
  void Commit(const QObject* box);
  bool IsHexBox(const QObject* box) const;

  ViewState& state_;
  Display& display_;
  std::array<Row, 3> rows_;
};

}  // namespace bwp
