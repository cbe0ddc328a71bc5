#pragma once

#include <QDialog>

#include "splitjoin/split_plan.h"

class QComboBox;
class QLineEdit;
class QPushButton;
class QSlider;

namespace bwp {

class DivisionView;
class UpDown;

/// The form `Divide`: lets the part size be set in any of seven ways and shows the resulting plan.
class Divide : public QDialog {
  Q_OBJECT

 public:
  Divide(SplitPlan& plan, QWidget* parent);

  /// Prepares for the open file and shows the form.
  void Start();

 Q_SIGNALS:
  /// `Split` was clicked: the base name of the parts is to be asked for.
  void SplitClicked();
  /// `Join` was clicked: the files to join are to be asked for.
  void JoinClicked();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeControls();
  void MakeNumberFields();
  void LayOut();
  void ConnectControls();
  void ConnectSizeFields();
  void MoveSlider(int position);
  void LetGoOfSlider();
  void Plan();
  void ShowPlan();
  void ShowFields();
  void ShowLimits();

  SplitPlan& plan_;
  bool sliderHeld_ = false;  ///< A key or the mouse button is down on the slider.
  DivisionView* division_;
  QSlider* Sly_;
  UpDown* UDCh_;
  QLineEdit* NChunk_;
  QLineEdit* DChsize_;
  QLineEdit* HCHsize_;
  QLineEdit* Dlast_;
  QLineEdit* Hlast_;
  QComboBox* Preset_;
  QPushButton* Split_;
  QPushButton* Join_;
  QPushButton* Cancel_;
};

}  // namespace bwp
