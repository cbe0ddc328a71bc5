#include "interaction/forms/edit_controller.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QScopedValueRollback>

#include "fileops/shown_file.h"
#include "interaction/forms/control_switch.h"
#include "interaction/write_back.h"
#include "viewer/forms/keys.h"
#include "viewer/forms/text_conversion.h"
#include "viewer/forms/widgets.h"
#include "viewer/refresh.h"

namespace bwp {
namespace {

// The character that a key types, Enter being one; 0 for a key that types none, or is a command.
std::uint8_t CharacterOf(const QKeyEvent& event) {
  if (IsEnter(event)) return kEnterCharacter;
  if (event.modifiers().testFlag(Qt::AltModifier) || event.modifiers().testFlag(Qt::ControlModifier))
    return 0;
  const std::string text = ToCodePage(event.text());
  const auto code = text.size() == 1 ? static_cast<std::uint8_t>(text.front()) : std::uint8_t{0};
  return code >= ' ' ? code : std::uint8_t{0};
}

QPushButton* MakeButton(const QString& name, const QString& caption, const QString& spoken, QWidget* parent) {
  auto* const button = new QPushButton(caption, parent);
  Name(*button, name, spoken);
  return button;
}

}  // namespace

EditController::EditController(ViewState& state, const Services& services, PageTable& tabe, PageMenu& menu,
                               QWidget& form, QWidget* parent)
    : QWidget(parent),
      edit(MakeButton(QStringLiteral("edit"), QStringLiteral("Edit"), QStringLiteral("Edit the page's bytes"),
                      this)),
      state_(state),
      services_(services),
      tabe_(tabe),
      form_(form),
      edit_(state),
      Cancel_(MakeButton(QStringLiteral("Cancel"), QStringLiteral("Cancel"),
                         QStringLiteral("Discard what was typed"), this)) {
  Cancel_->setEnabled(false);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(edit);
  row->addWidget(Cancel_);

  connect(edit, &QPushButton::clicked, this, [this] { EditClicked(); });
  connect(Cancel_, &QPushButton::clicked, this, [this] { CancelClicked(); });
  connect(&menu, &PageMenu::EditWanted, this, [this](GridCell cell) { Enter(cell); });
  connect(tabe.selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            if (!edit_.On() || !current.isValid()) return;
            edit_.MoveTo({current.row(), current.column()});
            ShowCurrentCell();
          });
  edit->installEventFilter(this);
  tabe.installEventFilter(this);
  form.installEventFilter(this);
}

bool EditController::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (watched == &tabe_) return GridKey(key);
    if (watched == edit) return ButtonKey(key);
  }
  if (event->type() == QEvent::MouseButtonDblClick && watched == &form_) {
    return DoubleClicked(static_cast<const QMouseEvent&>(*event));
  }
  return false;
}

void EditController::EditClicked() {
  if (switching_) return;
  if (edit_.On()) {
    Save();
  } else {
    Enter({});
  }
}

// Whatever is typed, searched or scrolled when the mode is entered ends, a scrolling that waits for the
// screen further out in the call included: none of it may move the page, or show it again, under the edits.
void EditController::StandStill() {
  state_.FieldTyping = false;
  state_.ForceRefresh = false;
  state_.AutoScroll = false;
  state_.ScrollStep = 0;
}

void EditController::Enter(GridCell cell) {
  if (switching_ || edit_.On() || !MayEdit(state_) || !mayEnter()) return;
  const QScopedValueRollback switching(switching_, true);
  StandStill();
  Refresh(state_, services_.display);
  DisableControls(form_, services_.display);
  // A key may have been handled meanwhile; what is edited is what the grid shows.
  StandStill();
  state_.SWStart = state_.SWPrev;
  edit_.Enter(cell);
  if (!edit_.On()) return EnableAll();  // a file without a byte was opened meanwhile
  Q_EMIT Entered();
  edit->setText(QStringLiteral("Save"));
  tabe_.setEnabled(true);
  edit->setEnabled(true);
  Cancel_->setEnabled(true);
  services_.display.LetEventsRun();
  tabe_.setFocus();
  ShowCurrentCell();
}

void EditController::Save() {
  const QScopedValueRollback switching(switching_, true);
  const bool save = services_.notices.Ask("Are you sure you want to save changes ?");
  const bool changedMeanwhile = save && !(edit_.PageIsOfOpenFile() && WriteBackPage(state_, services_.disk));
  tabe_.setEnabled(false);
  edit_.Leave();
  if (changedMeanwhile) {
    TellChanged(state_, services_);
  } else {
    Refresh(state_, services_.display);
  }
  EnableAll();
  edit->setText(QStringLiteral("Edit"));
}

void EditController::CancelClicked() {
  if (switching_) return;
  const QScopedValueRollback switching(switching_, true);
  edit_.Leave();
  DisableControls(form_, services_.display);
  EnableAll();
  Refresh(state_, services_.display);
  edit->setText(QStringLiteral("Edit"));
}

// Outside the mode the grid leaves the mouse to the form, and there is nothing to discard.
void EditController::EnableAll() {
  EnableControls(form_, services_.display);
  tabe_.setEnabled(false);
  Cancel_->setEnabled(false);
  Q_EMIT ControlsEnabled();
  edit->setFocus();
}

void EditController::ShowCurrentCell() {
  tabe_.SetCurrentCell(edit_.Current());
  tabe_.ShowPage();
}

// Characters and Enter are typed into the cell; all other keys move the grid's current cell, or do nothing.
bool EditController::GridKey(const QKeyEvent& event) {
  const std::uint8_t character = CharacterOf(event);
  if (!edit_.On() || character == 0) return false;
  edit_.TypeKey(character);
  ShowCurrentCell();
  return true;
}

bool EditController::ButtonKey(const QKeyEvent& event) {
  if (!edit_.ButtonKey(CharacterOf(event))) return false;
  ShowCurrentCell();
  return true;
}

bool EditController::DoubleClicked(const QMouseEvent& event) {
  const QPoint global = event.globalPosition().toPoint();
  if (event.button() != Qt::LeftButton || edit_.On()) return false;
  if (!tabe_.rect().contains(tabe_.mapFromGlobal(global))) return false;
  Enter(ByteCellAt(tabe_, global));
  return true;
}

}  // namespace bwp
