#include "interaction/forms/page_menu.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "support/forms/interaction_window.h"
#include "viewer/forms/offset_box.h"
#include "viewer/refresh.h"

namespace {

using bwp::PageMenu;
using bwp::PageTable;
using bwp::test::FileWindow;

struct Menu : FileWindow {
  explicit Menu(std::size_t length) : FileWindow(length) {
    auto* const column = new QVBoxLayout(&window);
    column->setContentsMargins(40, 40, 40, 40);
    table = new PageTable(state.tabe, &window);
    button = new QPushButton(QStringLiteral("Open"), &window);
    button->setObjectName(QStringLiteral("opn"));
    track = new QWidget(&window);
    track->setObjectName(QStringLiteral("VSBack"));
    box = new bwp::OffsetBox(QStringLiteral("MHStart"), QStringLiteral("Mark Start"), &window);
    column->addWidget(table);
    column->addWidget(button);
    column->addWidget(box);
    track->setGeometry(10, 60, 20, 300);
    menu = new PageMenu(state, display, *table, window);
    popmark = Find<QMenu>("popmark");
    Show();
    bwp::Refresh(state, display);
  }

  QPoint InWindow(int row, int column) const {
    return table->viewport()->mapTo(&window, table->visualRect(table->model()->index(row, column)).center());
  }
  /// Presses the right button where a person would, on whatever is there.
  void RightPress(const QPoint& inWindow) {
    QTest::mouseClick(window.windowHandle(), Qt::RightButton, {}, inWindow);
  }
  /// Chooses an entry of the menu that is up; false when none is.
  bool Choose(const char* name) {
    if (!popmark->isVisible()) return false;
    auto* const entry = popmark->findChild<QAction*>(QLatin1String(name));
    QTest::mouseClick(popmark, Qt::LeftButton, {}, popmark->actionGeometry(entry).center());
    return !popmark->isVisible();
  }

  PageTable* table;
  QPushButton* button;
  QWidget* track;
  bwp::OffsetBox* box;
  PageMenu* menu;
  QMenu* popmark;
};

TEST(PageMenu, HasItsFourEntries) {
  Menu m(1000);
  const char* const names[] = {"popmstart", "popmend", "popmdefault", "popedit"};
  const char* const texts[] = {"Mark Start", "Mark End", "Default Mark", "Edit"};
  ASSERT_EQ(m.popmark->actions().size(), 4);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(m.popmark->actions()[i]->objectName(), QLatin1String(names[i]));
    EXPECT_EQ(m.popmark->actions()[i]->text(), QLatin1String(texts[i]));
  }
}

TEST(PageMenu, MarksTheByteUnderTheRightButton) {
  Menu m(5000);
  m.state.SWStart = 512;
  bwp::Refresh(m.state, m.display);
  m.RightPress(m.InWindow(3, 20));
  ASSERT_TRUE(m.Choose("popmstart"));
  EXPECT_EQ(m.state.MarkStart, 563);
  m.RightPress(m.InWindow(4, 1));
  ASSERT_TRUE(m.Choose("popmend"));
  EXPECT_EQ(m.state.MarkEnd, 576);
  m.RightPress(m.InWindow(4, 1));
  ASSERT_TRUE(m.Choose("popmdefault"));
  EXPECT_EQ(m.state.MarkStart, 0);
  EXPECT_EQ(m.state.MarkEnd, 4999);
}

TEST(PageMenu, AnEmptyCellPastTheEndOfTheFileCanBeMarkEnd) {
  Menu m(100);
  m.RightPress(m.InWindow(6, 10));
  ASSERT_TRUE(m.Choose("popmend"));
  EXPECT_EQ(m.state.MarkEnd, 105);
}

TEST(PageMenu, BesideTheGridTheNearestCellCounts) {
  Menu m(5000);
  m.RightPress(QPoint(35, m.InWindow(2, 1).y()));
  ASSERT_TRUE(m.Choose("popmstart"));
  EXPECT_EQ(m.state.MarkStart, 32);
  m.RightPress(m.InWindow(2, 0));
  ASSERT_TRUE(m.Choose("popmend"));
  EXPECT_EQ(m.state.MarkEnd, 33);
  m.RightPress(QPoint(5, m.window.height() - 5));
  ASSERT_TRUE(m.Choose("popmend"));
  EXPECT_EQ(m.state.MarkEnd, 496);
}

TEST(PageMenu, DoesNotComeUpAboveTheGridOrOnAnotherControl) {
  Menu m(5000);
  m.RightPress(QPoint(60, m.table->y() - 2));
  EXPECT_FALSE(m.popmark->isVisible());
  for (QWidget* const control : std::initializer_list<QWidget*>{m.button, m.track, m.box}) {
    for (const bool enabled : {true, false}) {
      control->setEnabled(enabled);
      m.RightPress(control->geometry().center());
      EXPECT_FALSE(m.popmark->isVisible()) << control->objectName().toStdString();
      if (QWidget* const own = QApplication::activePopupWidget()) own->close();
    }
  }
}

TEST(PageMenu, DoesNotComeUpWithoutAFile) {
  Menu m(5000);
  m.state.OpenFile.clear();
  m.RightPress(m.InWindow(3, 20));
  EXPECT_FALSE(m.popmark->isVisible());
}

TEST(PageMenu, TheLeftButtonDoesNotBringItUp) {
  Menu m(5000);
  QTest::mouseClick(m.window.windowHandle(), Qt::LeftButton, {}, m.InWindow(3, 3));
  EXPECT_FALSE(m.popmark->isVisible());
}

TEST(PageMenu, TheMenuKeyPointsAtThePagesFirstByte) {
  Menu m(5000);
  m.state.SWStart = 1000;
  bwp::Refresh(m.state, m.display);
  QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(1, 1), m.button->mapToGlobal(QPoint(1, 1)));
  QCoreApplication::sendEvent(m.button, &key);
  ASSERT_TRUE(m.popmark->isVisible());
  QTest::keyClick(m.popmark, Qt::Key_Return);
  EXPECT_EQ(m.state.MarkStart, 1000);
}

TEST(PageMenu, EditIsHandedTheCell) {
  Menu m(5000);
  bwp::GridCell seen;
  QObject::connect(m.menu, &PageMenu::EditWanted, [&](bwp::GridCell cell) { seen = cell; });
  m.RightPress(m.InWindow(7, 21));
  ASSERT_TRUE(m.Choose("popedit"));
  EXPECT_EQ(seen, (bwp::GridCell{7, 21}));
}

TEST(PageMenu, StaysAwayWhenAllItsEntriesAreDisabled) {
  Menu m(5000);
  for (QAction* const entry : m.popmark->actions()) entry->setEnabled(false);
  m.RightPress(m.InWindow(3, 20));
  EXPECT_FALSE(m.popmark->isVisible());
}

TEST(PageMenu, RightOfTheGridTheRowsLastCharacterCounts) {
  Menu m(5000);
  m.RightPress(QPoint(m.table->geometry().right() + 2, m.InWindow(2, 1).y()));
  ASSERT_TRUE(m.Choose("popmstart"));
  EXPECT_EQ(m.state.MarkStart, 47);
}

TEST(PageMenu, AnEmptyFileIsNotToBeEdited) {
  Menu m(0);
  m.RightPress(m.InWindow(3, 3));
  ASSERT_TRUE(m.popmark->isVisible());
  EXPECT_FALSE(m.popmark->findChild<QAction*>(QStringLiteral("popedit"))->isEnabled());
}

TEST(PageMenu, AChosenMarkEndsTyping) {
  for (const char* entry : {"popmstart", "popmend", "popmdefault"}) {
    Menu m(5000);
    m.state.FieldTyping = true;
    m.RightPress(m.InWindow(3, 3));
    ASSERT_TRUE(m.Choose(entry));
    EXPECT_FALSE(m.state.FieldTyping) << entry;
  }
}

}  // namespace
