#include "app/forms/main_menu.h"

#include <QMenu>
#include <QMenuBar>

namespace bwp {
namespace {

QAction* AddEntry(QMenu& menu, const QString& name, const QString& text, const QKeySequence& shortcut = {}) {
  QAction* const entry = menu.addAction(text);
  entry->setObjectName(name);
  entry->setShortcut(shortcut);
  // A held key is one press: cutting again and again would lose all but the last piece.
  entry->setAutoRepeat(false);
  return entry;
}

QMenu& AddMenu(QMenuBar& bar, const QString& name, const QString& title) {
  QMenu* const menu = bar.addMenu(title);
  menu->setObjectName(name);
  return *menu;
}

}  // namespace

MainMenu::MainMenu(QMenuBar& bar) {
  QMenu& file = AddMenu(bar, QStringLiteral("menufile"), QStringLiteral("&File"));
  open = AddEntry(file, QStringLiteral("menuopen"), QStringLiteral("Open..."), QKeySequence::Open);
  sav = AddEntry(file, QStringLiteral("sav"), QStringLiteral("Save As"),
                 QKeySequence(QStringLiteral("Ctrl+Shift+S")));
  sachnk = AddEntry(file, QStringLiteral("sachnk"), QStringLiteral("Save Chunk"));
  file.addSeparator();
  MenuExit = AddEntry(file, QStringLiteral("MenuExit"), QStringLiteral("Exit"),
                      QKeySequence(QStringLiteral("Ctrl+Q")));

  QMenu& chunk = AddMenu(bar, QStringLiteral("chnksel"), QStringLiteral("&Chunk"));
  menucopy = AddEntry(chunk, QStringLiteral("menucopy"), QStringLiteral("Copy"), QKeySequence::Copy);
  menucut = AddEntry(chunk, QStringLiteral("menucut"), QStringLiteral("Cut"), QKeySequence::Cut);
  chunk.addSeparator();
  menupasteBMS = AddEntry(chunk, QStringLiteral("menupasteBMS"), QStringLiteral("Insert Before Mark Start"));
  menupasteAMS = AddEntry(chunk, QStringLiteral("menupasteAMS"), QStringLiteral("Insert after Mark Start"));
  menuappend = AddEntry(chunk, QStringLiteral("menuappend"), QStringLiteral("Append"));
  chunk.addSeparator();
  sachnk2 = AddEntry(chunk, QStringLiteral("sachnk2"), QStringLiteral("Save Chunk"));

  QMenu& search = AddMenu(bar, QStringLiteral("menusearch"), QStringLiteral("Sea&rch"));
  find = AddEntry(search, QStringLiteral("menufind"), QStringLiteral("Find..."), QKeySequence::Find);
  findNext =
      AddEntry(search, QStringLiteral("menufindnext"), QStringLiteral("Find Next"), QKeySequence(Qt::Key_F3));

  QMenu& options = AddMenu(bar, QStringLiteral("menuscroll"), QStringLiteral("&Scroll Options"));
  // "Acelerated" is the entry's established spelling.
  acceleration = {AddEntry(options, QStringLiteral("MenuNAcc"), QStringLiteral("Not Accelerated")),
                  AddEntry(options, QStringLiteral("MenuA2X"), QStringLiteral("Acelerated up to 2X")),
                  AddEntry(options, QStringLiteral("MenuA4X"), QStringLiteral("Accelerated up to 4X")),
                  AddEntry(options, QStringLiteral("MenuA8X"), QStringLiteral("Accelerated up to 8X")),
                  AddEntry(options, QStringLiteral("MenuA16X"), QStringLiteral("Accelerated up to 16X"))};
  for (QAction* const entry : acceleration) entry->setCheckable(true);

  QMenu& tools = AddMenu(bar, QStringLiteral("menutools"), QStringLiteral("&Tools"));
  splitAndJoin = AddEntry(tools, QStringLiteral("menusplitjoin"), QStringLiteral("Split&&Join"));

  QMenu& help = AddMenu(bar, QStringLiteral("menuhelp"), QStringLiteral("&Help"));
  Menuabout = AddEntry(help, QStringLiteral("Menuabout"), QStringLiteral("About"));

  needFile = {sav,          sachnk,     menucopy, menucut, menupasteBMS,
              menupasteAMS, menuappend, sachnk2,  find,    findNext};
}

}  // namespace bwp
