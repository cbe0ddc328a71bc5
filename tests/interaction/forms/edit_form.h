#pragma once

#include <memory>
#include <string>

#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "interaction/forms/chunk_panel.h"
#include "interaction/forms/edit_controller.h"
#include "interaction/forms/keyboard_filter.h"
#include "interaction/forms/scroll_bar_widget.h"
#include "support/failing_disk.h"
#include "support/forms/interaction_window.h"
#include "support/recorders.h"
#include "viewer/forms/position_panel.h"
#include "viewer/number_text.h"
#include "viewer/refresh.h"

namespace bwp::test {

/// The parts of the main form that edit mode has to do with.
struct EditForm : FileWindow {
  explicit EditForm(std::size_t length, bool hex = true) : FileWindow(length) {
    state.HexMode = hex;
    window.setObjectName(QStringLiteral("f"));
    auto* const column = new QVBoxLayout(&window);
    table = new PageTable(state.tabe, &window);
    bar = new ScrollBarWidget(state, display, &window);
    menu = new PageMenu(state, display, *table, window);
    controller = new EditController(state, services, *table, *menu, window, &window);
    for (QWidget* const part :
         std::initializer_list<QWidget*>{table, bar, new ChunkPanel(state, display, &window),
                                         new PositionPanel(state, display, &window), controller}) {
      column->addWidget(part);
    }
    MenuExit = new QAction(&window);
    MenuExit->setObjectName(QStringLiteral("MenuExit"));
    filter = std::make_unique<KeyboardFilter>(state, display, *bar, window);
    display.onRedraw = [this] { table->ShowPage(); };
    display.onFocusGrid = [this] {
      if (table->isEnabled()) table->setFocus();
    };
    edit = Find<QPushButton>("edit");
    Cancel = Find<QPushButton>("Cancel");
    Show();
    Refresh(state, display);
  }

  void Click(QWidget* button) { QTest::mouseClick(button, Qt::LeftButton); }
  /// Keys go to whoever has the focus, as the keyboard's do.
  void Keys(const char* text) {
    for (const char* key = text; *key != '\0'; ++key) QTest::keyClick(QApplication::focusWidget(), *key);
  }
  void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
  std::string Text(int row, int column) { return std::string(state.tabe.Text(row, column)); }
  QPoint Place(int row, int column) const {
    return table->viewport()->mapTo(&window, table->visualRect(table->model()->index(row, column)).center());
  }
  /// The named controls that take input now.
  QStringList Enabled() {
    QStringList names;
    for (const char* name : {"tabe", "edit", "Cancel", "VSUP", "VSDW", "VSBack", "VSB", "MHStart", "mdend",
                             "Gstart", "HStart", "Dend", "hexop", "decop"}) {
      if (Find<QWidget>(name)->isEnabled()) names << QLatin1String(name);
    }
    for (const char* name : {"MenuExit", "popmstart", "popedit"}) {
      if (window.findChild<QAction*>(QLatin1String(name))->isEnabled()) names << QLatin1String(name);
    }
    return names;
  }

  static QStringList LiveInEditMode() {
    return {QStringLiteral("tabe"), QStringLiteral("edit"), QStringLiteral("Cancel")};
  }
  /// Runs something once, when events run for the given time (1 is the next).
  void InRound(int round, std::function<void()> action) {
    display.onEvents = [round, action = std::move(action), seen = 0]() mutable {
      if (++seen == round) action();
    };
  }

  Transcript transcript;
  RecordedNotices notices{transcript};
  RecordedProgress progress{transcript};
  FailingDisk disk;
  Services services{display, progress, notices, disk};
  PageTable* table;
  ScrollBarWidget* bar;
  PageMenu* menu;
  EditController* controller;
  QAction* MenuExit;
  std::unique_ptr<KeyboardFilter> filter;
  QPushButton* edit;
  QPushButton* Cancel;
};

/// Expects that the grid shows the file's bytes from the page's start on.
inline void ExpectPageOfFile(EditForm& f) {
  for (int position = 0; position < kPageBytes; ++position) {
    const auto byte =
        static_cast<unsigned char>(f.bytes[static_cast<std::size_t>(f.state.SWStart + position)]);
    ASSERT_EQ(f.Text(position / 16, position % 16 + 1), funzioni::HexByte(byte)) << position;
  }
}

}  // namespace bwp::test
