#pragma once

#include <functional>

#include <QWidget>

#include "fileops/services.h"
#include "interaction/edit_mode.h"
#include "interaction/forms/page_menu.h"

class QKeyEvent;
class QMouseEvent;
class QPushButton;

namespace bwp {

/// The buttons `edit` and `Cancel`, and everything that direct edit mode has to do with the form: it is
/// entered by the button, the grid's pop-up menu and a double click on the grid, switches the form's other
/// controls off meanwhile, and hands the grid's keys to the engine.
class EditController : public QWidget {
  Q_OBJECT

 public:
  /// `form` is the window whose controls are switched.
  EditController(ViewState& state, const Services& services, PageTable& tabe, PageMenu& menu, QWidget& form,
                 QWidget* parent = nullptr);

  bool IsOn() const { return edit_.On(); }
  /// The mode is on, or being entered or left: nothing else may work on the file.
  bool Busy() const { return switching_ || edit_.On(); }

  /// Whether the mode may begin now. It may not while something works on the file.
  std::function<bool()> mayEnter = [] { return true; };

  QPushButton* edit;

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// The mode has begun: what could open another file must not be at hand while it is on.
  void Entered();
  /// Every control has been enabled again, those that make no sense now among them.
  void ControlsEnabled();

 private:
  void EditClicked();
  void CancelClicked();
  void Enter(GridCell cell);
  void Save();
  void StandStill();
  void EnableAll();
  void ShowCurrentCell();
  bool GridKey(const QKeyEvent& event);
  bool ButtonKey(const QKeyEvent& event);
  bool DoubleClicked(const QMouseEvent& event);

  ViewState& state_;
  const Services& services_;
  PageTable& tabe_;
  QWidget& form_;
  EditMode edit_;
  QPushButton* Cancel_;
  bool switching_ = false;  // events run halfway; another click must not begin or end the mode in between
};

}  // namespace bwp
