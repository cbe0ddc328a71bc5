#pragma once

#include <array>
#include <vector>

#include <QAction>

class QMenuBar;

namespace bwp {

/// The entries of the main form's menu bar. They are only created here; the main form connects them.
struct MainMenu {
  explicit MainMenu(QMenuBar& bar);

  QAction* open;
  QAction* sav;
  QAction* sachnk;
  QAction* MenuExit;

  QAction* menucopy;
  QAction* menucut;
  QAction* menupasteBMS;
  QAction* menupasteAMS;
  QAction* menuappend;
  QAction* sachnk2;

  QAction* find;
  QAction* findNext;

  std::array<QAction*, 5> acceleration;  ///< In the order of ViewState::AccelMode.

  QAction* splitAndJoin;
  QAction* Menuabout;

  /// The entries that make no sense without an open file.
  std::vector<QAction*> needFile;
};

}  // namespace bwp
