#include "interaction/forms/page_menu.h"

#include <algorithm>

#include <QContextMenuEvent>
#include <QMouseEvent>

#include "interaction/edit_mode.h"
#include "interaction/forms/control_switch.h"
#include "viewer/forms/widgets.h"

namespace bwp {

PageMenu::PageMenu(ViewState& state, Display& display, PageTable& tabe, QWidget& window)
    : QObject(&window), state_(state), tabe_(tabe), window_(window), popmark_(new QMenu(&window)) {
  Name(*popmark_, QStringLiteral("popmark"), QStringLiteral("Marks"));
  connect(AddEntry(QStringLiteral("popmstart"), QStringLiteral("Mark Start")), &QAction::triggered, this,
          [this, &display] { MarkStartAt(state_, display, cell_); });
  connect(AddEntry(QStringLiteral("popmend"), QStringLiteral("Mark End")), &QAction::triggered, this,
          [this, &display] { MarkEndAt(state_, display, cell_); });
  connect(AddEntry(QStringLiteral("popmdefault"), QStringLiteral("Default Mark")), &QAction::triggered, this,
          [this, &display] { MarkWholeFile(state_, display); });
  popedit_ = AddEntry(QStringLiteral("popedit"), QStringLiteral("Edit"));
  connect(popedit_, &QAction::triggered, this, [this] { Q_EMIT EditWanted(cell_); });
  window.installEventFilter(this);
}

bool PageMenu::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) {
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    return mouse.button() == Qt::RightButton && MousePressed(mouse.globalPosition().toPoint());
  }
  if (event->type() == QEvent::ContextMenu) {
    const bool byKey = static_cast<const QContextMenuEvent&>(*event).reason() == QContextMenuEvent::Keyboard;
    return byKey && MenuKeyPressed();
  }
  return false;
}

QAction* PageMenu::AddEntry(const QString& name, const QString& text) {
  QAction* const entry = popmark_->addAction(text);
  entry->setObjectName(name);
  return entry;
}

// Edit mode switches the entries off one by one; a menu of nothing but dead entries helps nobody.
bool PageMenu::MayOpen() const {
  const QList<QAction*> entries = popmark_->actions();
  return !state_.OpenFile.empty() &&
         std::any_of(entries.begin(), entries.end(), [](const QAction* entry) { return entry->isEnabled(); });
}

bool PageMenu::MousePressed(const QPoint& global) {
  const bool belowTop = tabe_.mapFromGlobal(global).y() > 0;
  if (!MayOpen() || !belowTop || IsOnAnotherControl(global)) return false;
  cell_ = ByteCellAt(tabe_, global);
  PopUp(global);
  return true;
}

// Many controls leave the right mouse button to the form, but are no place to point at a byte.
bool PageMenu::IsOnAnotherControl(const QPoint& global) const {
  const QWidget* under = window_.childAt(window_.mapFromGlobal(global));
  for (; under != nullptr && under != &window_ && under != &tabe_; under = under->parentWidget()) {
    if (IsControl(window_, *under)) return true;
  }
  return false;
}

void PageMenu::PopUp(const QPoint& global) {
  popedit_->setEnabled(MayEdit(state_));
  popmark_->popup(global);
}

bool PageMenu::MenuKeyPressed() {
  if (!MayOpen()) return false;
  cell_ = {};
  const QRect cell = tabe_.visualRect(tabe_.model()->index(cell_.row, cell_.column));
  PopUp(tabe_.viewport()->mapToGlobal(cell.bottomLeft()));
  popmark_->setActiveAction(popmark_->actions().constFirst());
  return true;
}

GridCell ByteCellAt(const PageTable& tabe, const QPoint& global) {
  const QWidget& cells = *tabe.viewport();
  const QPoint place = cells.mapFromGlobal(global);
  const QPoint nearest(std::clamp(place.x(), 0, cells.width() - 1),
                       std::clamp(place.y(), 0, cells.height() - 1));
  const int row = tabe.rowAt(nearest.y());
  const int column = tabe.columnAt(nearest.x());
  return NearestByteCell({row < 0 ? kRows : row, column < 0 ? kColumns : column});
}

}  // namespace bwp
