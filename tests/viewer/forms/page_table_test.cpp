#include "viewer/forms/page_table.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "viewer/forms/ruler.h"

namespace {

using bwp::PageTable;

void FillHex(bwp::PageGrid& grid) {
  for (int row = 0; row < bwp::kRows; ++row) grid.SetText(row, 0, "000000" + std::to_string(10 + row));
  for (int position = 0; position < bwp::kPageBytes; ++position) {
    grid.WriteByte(position, static_cast<std::uint8_t>(position), true);
  }
}

QVariant Data(const PageTable& table, int row, int column, int role = Qt::DisplayRole) {
  return table.model()->index(row, column).data(role);
}

// A window that records which mouse events reach it.
class Form : public QWidget {
 public:
  int presses = 0;
  int doubles = 0;
  QPoint last;

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    ++presses;
    last = event->globalPosition().toPoint();
  }
  void mouseDoubleClickEvent(QMouseEvent* /*event*/) override { ++doubles; }
};

TEST(PageTable, HasItsNameAndThirtyTwoRowsOfThirtyThreeColumns) {
  const bwp::PageGrid grid;
  const PageTable table(grid);
  EXPECT_EQ(table.objectName(), QStringLiteral("tabe"));
  EXPECT_EQ(table.model()->rowCount(), 32);
  EXPECT_EQ(table.model()->columnCount(), 33);
}

TEST(PageTable, ShowsTextsOfTheProgramsCharacterSet) {
  bwp::PageGrid grid;
  FillHex(grid);
  const PageTable table(grid);
  EXPECT_EQ(Data(table, 0, 0).toString(), QStringLiteral("00000010"));
  EXPECT_EQ(Data(table, 4, 2).toString(), QStringLiteral("41"));
  EXPECT_EQ(Data(table, 4, 18).toString(), QStringLiteral("A"));
  EXPECT_EQ(Data(table, 8, 17).toString(), QStringLiteral(u"\u20AC"));
  EXPECT_EQ(Data(table, 0, 17).toString(), QString(QChar(0)));
  EXPECT_EQ(Data(table, 0, 24).toString(), QString(QChar(7)));
}

TEST(PageTable, ColoursAreBlueGreenRed) {
  bwp::PageGrid grid;
  grid.cellcol(1, 1, 65535);
  grid.cellcol(1, 2, 16711935);
  grid.cellcol(1, 3, 16776960);
  const PageTable table(grid);
  EXPECT_EQ(Data(table, 1, 1, Qt::BackgroundRole).value<QColor>(), QColor(255, 255, 0));
  EXPECT_EQ(Data(table, 1, 2, Qt::BackgroundRole).value<QColor>(), QColor(255, 0, 255));
  EXPECT_EQ(Data(table, 1, 3, Qt::BackgroundRole).value<QColor>(), QColor(0, 255, 255));
  EXPECT_EQ(Data(table, 1, 4, Qt::BackgroundRole).value<QColor>(), QColor(255, 255, 255));
  EXPECT_EQ(Data(table, 31, 32, Qt::BackgroundRole).value<QColor>(), QColor(0, 255, 0));
}

TEST(PageTable, ColumnsHaveTheirGivenWidthsAndAllRowsAreSeen) {
  const bwp::PageGrid grid;
  PageTable table(grid);
  table.show();
  EXPECT_EQ(table.columnWidth(0), 83);  // 1240 units of 1/15 pixel
  for (int column = 1; column <= 16; ++column) EXPECT_EQ(table.columnWidth(column), 33);
  for (int column = 17; column <= 32; ++column) {
    EXPECT_LT(table.columnWidth(column), 33);
    EXPECT_GT(table.columnWidth(column), 7);
  }
  EXPECT_EQ(table.visualRect(table.model()->index(31, 32)).bottomRight() + QPoint(1, 1),
            table.viewport()->rect().bottomRight());
  EXPECT_FALSE(table.verticalScrollBar()->isVisible());
  EXPECT_EQ(table.verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(table.horizontalScrollBar()->maximum(), 0);
}

TEST(PageTable, TenDigitsFitTheOffsetColumn) {
  EXPECT_LE(QFontMetricsF(bwp::CellFont()).horizontalAdvance(QStringLiteral("2147483647")), 80);
}

TEST(PageTable, APageIsOneChangeNotice) {
  const bwp::PageGrid grid;
  PageTable table(grid);
  QSignalSpy changes(table.model(), &QAbstractItemModel::dataChanged);
  table.ShowPage();
  ASSERT_EQ(changes.size(), 1);
  EXPECT_EQ(changes.front().at(0).toModelIndex(), table.model()->index(0, 0));
  EXPECT_EQ(changes.front().at(1).toModelIndex(), table.model()->index(31, 32));
}

TEST(PageTable, DisabledItLeavesTheMouseToTheForm) {
  const bwp::PageGrid grid;
  Form form;
  auto* const layout = new QVBoxLayout(&form);
  auto* const table = new PageTable(grid);
  layout->addWidget(table);
  form.show();
  const QPoint place = table->visualRect(table->model()->index(3, 20)).center();
  QTest::mouseClick(table->viewport(), Qt::RightButton, {}, place);
  EXPECT_EQ(form.presses, 1);
  EXPECT_EQ(table->CellAt(form.last), (bwp::GridCell{3, 20}));
  QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(form.doubles, 1);
  EXPECT_EQ(table->CurrentCell(), std::nullopt);
}

TEST(PageTable, EnabledItTakesAClickAndTheArrowKeys) {
  const bwp::PageGrid grid;
  Form form;
  auto* const table = new PageTable(grid, &form);
  form.show();
  table->setEnabled(true);
  table->setFocus();
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                    table->visualRect(table->model()->index(3, 5)).center());
  EXPECT_EQ(form.presses, 0);
  EXPECT_EQ(table->CurrentCell(), (bwp::GridCell{3, 5}));
  QTest::keyClick(table, Qt::Key_Down);
  QTest::keyClick(table, Qt::Key_Left);
  EXPECT_EQ(table->CurrentCell(), (bwp::GridCell{4, 4}));
}

TEST(PageTable, TheOffsetColumnIsNeverCurrent) {
  const bwp::PageGrid grid;
  PageTable table(grid);
  table.show();
  table.setEnabled(true);
  table.SetCurrentCell({2, 1});
  QTest::keyClick(&table, Qt::Key_Left);
  EXPECT_EQ(table.CurrentCell(), (bwp::GridCell{2, 1}));
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                    table.visualRect(table.model()->index(3, 0)).center());
  EXPECT_EQ(table.CurrentCell(), (bwp::GridCell{2, 1}));
}

TEST(PageTable, OutsideTheCellsThereIsNoCell) {
  const bwp::PageGrid grid;
  PageTable table(grid);
  table.show();
  EXPECT_EQ(table.CellAt(table.viewport()->mapToGlobal(QPoint(-5, 5))), std::nullopt);
  EXPECT_EQ(table.CellAt(table.viewport()->mapToGlobal(QPoint(5, table.viewport()->height()))), std::nullopt);
  EXPECT_EQ(table.CellAt(table.viewport()->mapToGlobal(QPoint(0, 0))), (bwp::GridCell{0, 0}));
}

// The cell's pixels inside its grid lines.
QImage CellPicture(PageTable& table, const QImage& picture, int row, int column) {
  return picture.copy(table.visualRect(table.model()->index(row, column)));
}

int Count(const QImage& picture, const QColor& colour) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == colour ? 1 : 0;
  }
  return count;
}

QImage Picture(PageTable& table) {
  table.show();
  return table.viewport()->grab().toImage();
}

TEST(PageTable, PaintsItsColoursWithDarkTextAlsoInADarkTheme) {
  bwp::PageGrid grid;
  FillHex(grid);
  grid.cellcol(4, 2, 65535);
  PageTable table(grid);
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  dark.setColor(QPalette::Button, QColor(40, 40, 40));
  dark.setColor(QPalette::ButtonText, Qt::white);
  table.setPalette(dark);
  const QImage picture = Picture(table);
  const QImage marked = CellPicture(table, picture, 4, 2);
  EXPECT_GT(Count(marked, QColor(255, 255, 0)), marked.width() * marked.height() / 2);
  EXPECT_GT(Count(marked, Qt::black), 4);
  const QImage value = CellPicture(table, picture, 4, 3);
  EXPECT_GT(Count(value, Qt::white), value.width() * value.height() / 2);
  const QImage character = CellPicture(table, picture, 4, 18);
  EXPECT_GT(Count(character, QColor(0, 255, 0)), character.width() * character.height() / 2);
  EXPECT_LT(Count(character, QColor(0, 255, 0)), character.width() * character.height());
  const QImage offset = CellPicture(table, picture, 4, 0);
  EXPECT_GT(Count(offset, QColor(40, 40, 40)), offset.width() * offset.height() / 2);
  EXPECT_GT(Count(offset, Qt::white), 4);
}

// Where the text of a cell is: what differs from the colour of its corner, the grid lines left out.
QRect InkOf(QImage cell) {
  cell = cell.copy(cell.rect().adjusted(0, 0, -1, -1));
  QRect ink;
  for (int y = 0; y < cell.height(); ++y) {
    for (int x = 0; x < cell.width(); ++x) {
      if (cell.pixel(x, y) != cell.pixel(0, 0)) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

void ExpectAtTheRightAndInTheMiddle(const QImage& cell, const std::string& which) {
  const QRect ink = InkOf(cell);
  ASSERT_FALSE(ink.isEmpty()) << which;
  const int left = ink.left();
  const int right = cell.width() - 2 - ink.right();
  EXPECT_LE(right, 4) << which;
  EXPECT_GT(left, right) << which;
  // Digits have no part below the line: they are a little above the middle.
  EXPECT_LE(std::abs(ink.center().y() - cell.height() / 2), 2) << which;
}

TEST(PageTable, EveryColumnIsAlignedToTheRightAndCentredVertically) {
  bwp::PageGrid grid;
  FillHex(grid);
  grid.SetText(3, 1, "8");
  grid.SetText(3, 0, "8");
  PageTable table(grid);
  for (int column = 0; column < bwp::kColumns; ++column) {
    EXPECT_EQ(Data(table, 3, column, Qt::TextAlignmentRole).value<Qt::Alignment>(),
              Qt::AlignRight | Qt::AlignVCenter)
        << column;
  }
  table.show();
  const QImage picture = Picture(table);
  ExpectAtTheRightAndInTheMiddle(CellPicture(table, picture, 3, 0), "offset");
  ExpectAtTheRightAndInTheMiddle(CellPicture(table, picture, 3, 1), "value");
}

TEST(PageTable, AnEmptyValueCellFitsTheTheme) {
  const bwp::PageGrid grid;
  PageTable table(grid);
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  table.setPalette(dark);
  const QImage cell = CellPicture(table, Picture(table), 31, 16);
  EXPECT_EQ(Count(cell, QColor(20, 20, 20)), cell.width() * cell.height());
}

TEST(PageTable, AControlCharacterLeavesNoTrace) {
  bwp::PageGrid grid;
  for (const int byte : {0, 1, 7, 9, 10, 13, 27, 31, 127, 0x81, 0x9D}) {
    grid.WriteByte(byte, static_cast<std::uint8_t>(byte), true);
  }
  PageTable table(grid);
  const QImage picture = Picture(table);
  for (int position = 0; position < 32; ++position) {
    const QImage cell = CellPicture(table, picture, position / 16, position % 16 + 17);
    EXPECT_EQ(Count(cell, QColor(0, 255, 0)), cell.width() * cell.height()) << position;
  }
}

TEST(PageTable, LooksTheSameDisabledAndShowsTheCurrentCellEnabled) {
  bwp::PageGrid grid;
  FillHex(grid);
  PageTable table(grid);
  const QImage disabled = Picture(table);
  table.setEnabled(true);
  EXPECT_EQ(Picture(table), disabled);
  table.SetCurrentCell({5, 5});
  EXPECT_NE(Picture(table), disabled);
  table.setEnabled(false);
  EXPECT_EQ(Picture(table), disabled);
}

QImage PictureAt(PageTable& table, double ratio) {
  QImage picture((QSizeF(table.viewport()->size()) * ratio).toSize(), QImage::Format_RGB32);
  picture.setDevicePixelRatio(ratio);
  table.viewport()->render(&picture);
  return picture;
}

// After some pages the painter uses prepared pictures of cells; the page must look the same.
void EveryPageLooksTheSame(bool hex, double ratio) {
  bwp::PageGrid grid;
  for (int row = 0; row < 29; ++row) grid.SetText(row, 0, "0000ABC0");
  for (int position = 0; position < 460; ++position) {
    grid.WriteByte(position, static_cast<std::uint8_t>(position), hex);
  }
  grid.ColourByte(7, bwp::kMarkStartColour, bwp::kMarkStartColour);
  grid.SetText(3, 3, "A");
  grid.SetText(3, 4, "");
  PageTable table(grid);
  table.show();
  const QImage first = PictureAt(table, ratio);
  for (int page = 2; page <= 6; ++page) ASSERT_EQ(PictureAt(table, ratio), first) << page << " at " << ratio;
}

TEST(PageTable, EveryPageLooksLikeTheFirstOne) {
  for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
    EveryPageLooksTheSame(true, ratio);
    EveryPageLooksTheSame(false, ratio);
  }
}

TEST(PageTable, PicturesFollowTheDevicePixelRatio) {
  bwp::PageGrid grid;
  FillHex(grid);
  PageTable table(grid);
  table.show();
  const QImage single = PictureAt(table, 1);
  const QImage twofold = PictureAt(table, 2);
  for (int page = 0; page < 4; ++page) PictureAt(table, 1);
  EXPECT_EQ(PictureAt(table, 2), twofold);
  EXPECT_EQ(PictureAt(table, 1), single);
}

TEST(PageTable, CellsSayWhatTheyAreToAScreenReader) {
  bwp::PageGrid grid;
  FillHex(grid);
  const PageTable table(grid);
  EXPECT_EQ(Data(table, 4, 0, Qt::AccessibleTextRole).toString(), QStringLiteral("Offset 00000014"));
  EXPECT_EQ(Data(table, 4, 2, Qt::AccessibleTextRole).toString(),
            QStringLiteral("41, byte 1 of row 00000014"));
  EXPECT_EQ(Data(table, 4, 18, Qt::AccessibleTextRole).toString(),
            QStringLiteral("A, character 1 of row 00000014"));
  EXPECT_EQ(Data(table, 0, 17, Qt::AccessibleTextRole).toString(),
            QStringLiteral("no printable character, character 0 of row 00000010"));
}

TEST(Ruler, StandsOverThePagesColumns) {
  const bwp::PageGrid grid;
  const PageTable table(grid);
  const bwp::Ruler ruler;
  EXPECT_EQ(ruler.objectName(), QStringLiteral("Ruler"));
  EXPECT_EQ(ruler.model()->rowCount(), 1);
  ASSERT_EQ(ruler.model()->columnCount(), 33);
  for (int column = 0; column < 33; ++column) EXPECT_EQ(ruler.columnWidth(column), table.columnWidth(column));
  EXPECT_EQ(ruler.width(), table.width());
}

TEST(Ruler, IsAlignedAsThePageIs) {
  bwp::Ruler ruler;
  for (int column = 0; column < bwp::kColumns; ++column) {
    EXPECT_EQ(ruler.model()->index(0, column).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
              Qt::AlignRight | Qt::AlignVCenter)
        << column;
  }
  QImage picture(ruler.viewport()->size(), QImage::Format_RGB32);
  ruler.viewport()->render(&picture);
  const QRect nine = ruler.visualRect(ruler.model()->index(0, 10));
  ExpectAtTheRightAndInTheMiddle(picture.copy(nine), "ruler");
}

TEST(Ruler, LabelsBothHalvesInTheShownBase) {
  bwp::Ruler ruler;
  const auto label = [&ruler](int column) { return ruler.model()->index(0, column).data().toString(); };
  EXPECT_EQ(label(0), QStringLiteral("Offset"));
  EXPECT_EQ(label(1), QStringLiteral("0"));
  EXPECT_EQ(label(16), QStringLiteral("15"));
  EXPECT_EQ(label(17), QStringLiteral("0"));
  ruler.ShowLabels(true);
  EXPECT_EQ(label(0), QStringLiteral("Offset"));
  EXPECT_EQ(label(10), QStringLiteral("9"));
  EXPECT_EQ(label(11), QStringLiteral("A"));
  EXPECT_EQ(label(32), QStringLiteral("F"));
}

TEST(Ruler, SaysSoOnlyWhenItsLabelsChange) {
  bwp::Ruler ruler;
  QSignalSpy changes(ruler.model(), &QAbstractItemModel::dataChanged);
  ruler.ShowLabels(true);
  ruler.ShowLabels(true);
  EXPECT_EQ(changes.size(), 1);
}

}  // namespace
