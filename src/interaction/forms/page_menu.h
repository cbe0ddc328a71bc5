#pragma once

#include <QMenu>
#include <QObject>

#include "interaction/chunk_selection.h"
#include "viewer/forms/page_table.h"

namespace bwp {

/// The grid's pop-up menu `popmark`: comes up where the right button is pressed on the form below the grid's
/// top edge, for the nearest byte, or by the keyboard's Menu key, for the page's first byte.
class PageMenu : public QObject {
  Q_OBJECT

 public:
  /// `window` is the form whose mouse is watched, and the owner; the grid lies in it.
  PageMenu(ViewState& state, Display& display, PageTable& tabe, QWidget& window);

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// `popedit` was chosen for the cell that was pointed at.
  void EditWanted(GridCell cell);

 private:
  QAction* AddEntry(const QString& name, const QString& text);
  bool MayOpen() const;
  bool MousePressed(const QPoint& global);
  bool IsOnAnotherControl(const QPoint& global) const;
  bool MenuKeyPressed();
  void PopUp(const QPoint& global);

  ViewState& state_;
  PageTable& tabe_;
  QWidget& window_;
  QMenu* popmark_;
  QAction* popedit_ = nullptr;
  GridCell cell_;
};

/// The cell of a byte that is nearest to a place on the screen.
GridCell ByteCellAt(const PageTable& tabe, const QPoint& global);

}  // namespace bwp
