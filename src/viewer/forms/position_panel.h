#pragma once

#include <QGroupBox>

#include "viewer/display.h"
#include "viewer/view_state.h"

class QKeyEvent;
class QRadioButton;

namespace bwp {

class DecimalBox;
class OffsetBox;

/// Boxes that show and take the Show Window's start and end in both bases, and the choice of the base in
/// which the page is shown.
class PositionPanel : public QGroupBox {
  Q_OBJECT
 public:
  PositionPanel(ViewState& state, Display& display, QWidget* parent = nullptr);

  void ShowWindowTexts(const WindowTexts& texts);
  /// Checks the option button of the view state's base.
  void ShowBase();

  /// Gets the boxes' events before the boxes do.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LayOut();
  bool KeyPressed(const QObject* box, const QKeyEvent& key);
  void Commit(const QObject* box);
  bool IsHexBox(const QObject* box) const;
  void SetHexMode(bool hex);

  ViewState& state_;
  Display& display_;
  OffsetBox* HStart_;
  OffsetBox* HEnd_;
  DecimalBox* Dstart_;
  DecimalBox* Dend_;
  QRadioButton* hexop_;
  QRadioButton* decop_;
};

}  // namespace bwp
