// The linearizer's table on the screen: its head, its scrolling, and what keys and clicks do.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QWheelEvent>

#include "linearizer/linearizer.h"
#include "monitor/status_monitor.h"
#include "print/contrast.h"
#include "support/page_parts.h"
#include "window_bench.h"

namespace korva {

namespace {

using Cell = std::pair<int, int>;

/// The page of a model with 100 points, its table in front.
struct GridBench : test::WindowBench {
  GridBench() : WindowBench("QHW1") {
    Show(3);
    grid.OnCellClick = [this](int row, int column) { clicks.emplace_back(row, column); };
  }
  void Click(int row, int column) const {
    const QRect cell = table->visualRect(table->model()->index(row, column));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
  }
  [[nodiscard]] QBrush HeadBackground(int column) const {
    return table->model()->headerData(column, Qt::Horizontal, Qt::BackgroundRole).value<QBrush>();
  }
  [[nodiscard]] Cell Current() const { return {table->currentIndex().row(), table->currentIndex().column()}; }

  Grid& grid = test::Part<Linearizer>(Page()).LnrFlexGrid;
  QTableView* table = Find<QTableView>("LnrFlexGrid");
  std::vector<Cell> clicks;
};

TEST(GridViewTest, TheHeadStaysInViewAndTakesClicksAsRowZero) {
  GridBench bench;
  bench.table->verticalScrollBar()->setValue(40);
  QHeaderView* head = bench.table->horizontalHeader();
  EXPECT_TRUE(head->isVisible());
  EXPECT_EQ(bench.table->model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("X(k)"));
  const QPoint y_column(head->sectionViewportPosition(2) + 5, head->height() / 2);
  QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, y_column);
  EXPECT_EQ(bench.clicks, (std::vector<Cell>{{0, 2}}));
  EXPECT_EQ(bench.Current(), (Cell{-1, -1}));
}

TEST(GridViewTest, ASelectedHeadIsColoured) {
  GridBench bench;
  bench.grid.SetLook(0, 2, Look::Selected);
  EXPECT_EQ(bench.HeadBackground(2).color(),
            bench.table->palette().color(QPalette::Active, QPalette::Highlight));
  bench.grid.SetLook(0, 2, Look::Normal);
  EXPECT_EQ(bench.HeadBackground(2).style(), Qt::NoBrush);
}

TEST(GridViewTest, TheCellThatTheKeysGoToHasTheFrameOfTheKeyboard) {
  GridBench bench;
  ASSERT_TRUE(QTest::qWaitForWindowActive(&bench.window));
  bench.table->setFocus();
  bench.table->setCurrentIndex(bench.table->model()->index(3, 1));
  const QRect cell = bench.table->visualRect(bench.table->currentIndex());
  for (const Look look : {Look::Normal, Look::Grey, Look::Bad, Look::Highlight}) {
    bench.grid.SetLook(3, 1, look);
    const QImage picture = bench.table->viewport()->grab(cell).toImage();
    const QColor inside = picture.pixelColor(4, picture.height() / 2);
    for (const QPoint& edge : {QPoint(0, picture.height() / 2), QPoint(picture.width() / 2, 0),
                               QPoint(picture.width() - 1, picture.height() / 2),
                               QPoint(picture.width() / 2, picture.height() - 1)}) {
      EXPECT_GE(Contrast(picture.pixelColor(edge), inside), kMarkContrast)
          << static_cast<int>(look) << ": " << edge.x() << " " << edge.y();
    }
  }
}

TEST(GridViewTest, TheMarkOfAnOpenEditIsDrawnInItsCell) {
  GridBench bench;
  bench.grid.SetLook(3, 1, Look::Selected);
  const auto picture = [&] {
    const QRect cell = bench.table->visualRect(bench.table->model()->index(3, 1));
    return bench.table->viewport()->grab(cell).toImage();
  };
  const QImage plain = picture();
  bench.grid.SetMarked(3, 1, true);
  EXPECT_NE(picture(), plain);
  bench.grid.SetMarked(3, 1, false);
  EXPECT_EQ(picture(), plain);
}

TEST(GridViewTest, AClickCountsForItsOwnCell) {
  GridBench bench;
  bench.Click(3, 1);
  bench.Click(1, 0);
  EXPECT_EQ(bench.clicks, (std::vector<Cell>{{3, 1}, {1, 0}}));
}

TEST(GridViewTest, ScrollsToTheTopRow) {
  GridBench bench;
  bench.grid.SetTopRow(30);
  EXPECT_EQ(bench.table->rowAt(0), 30);
  bench.grid.SetTopRow(1);
  EXPECT_EQ(bench.table->rowAt(0), 1);
}

TEST(GridViewTest, ScrollingIsTheUsersByTheBarAndTheWheelAlone) {
  GridBench bench;
  int scrolls = 0;
  bench.grid.OnScroll = [&] { ++scrolls; };
  bench.grid.SetCurrentCell(90, 1);
  EXPECT_GT(bench.grid.TopRow(), 1) << "the cell is in view";
  bench.grid.SetTopRow(5);
  EXPECT_EQ(scrolls, 0);
  bench.window.resize(1180, 500);
  QCoreApplication::processEvents();
  EXPECT_EQ(scrolls, 0) << "a smaller table";
  bench.table->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(scrolls, 1);
  EXPECT_EQ(bench.grid.TopRow(), bench.table->rowAt(0));
  const QPointF middle = bench.table->viewport()->rect().center();
  QWheelEvent wheel(middle, bench.table->viewport()->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, {},
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(bench.table->viewport(), &wheel);
  EXPECT_EQ(scrolls, 2);
}

TEST(GridViewTest, OnLiteFifthArrowKeysGoFromFieldToFieldAndTheTableScrollsAlong) {
  test::WindowBench bench("Z2WPL");
  const Linearizer& linearizer = test::Part<Linearizer>(bench.Page());
  bench.device.loop.Gate().Enter([&] { test::Part<Linearizer>(bench.Page()).Opt_Lnr[1].Click(); });
  bench.Show(3);
  const QWidget* page = bench.window.Current();  // behind it is that of the start
  auto* table = page->findChild<QTableView*>(QStringLiteral("LnrFlexGrid"));
  const QRect cell = table->visualRect(table->model()->index(1, 2));
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
  auto* field = page->findChild<QLineEdit*>(QStringLiteral("txtLnrNewValue"));
  for (int row = 1; row <= 40; ++row) {
    QTest::keyClicks(field, QString::number(row));
    QTest::keyClick(field, Qt::Key_Down);
    ASSERT_TRUE(field->isVisible()) << row;
  }
  QTest::keyClick(field, Qt::Key_Left);
  EXPECT_EQ(linearizer.LnrFlexGrid.At(40, 2).text, u"40");
  EXPECT_EQ(linearizer.LnrFlexGrid.CurrentCell(), (Cell{41, 1}));
  EXPECT_GT(linearizer.LnrFlexGrid.TopRow(), 10);
}

TEST(GridViewTest, TheUsersScrollingIsTheTopRow) {
  GridBench bench;
  bench.table->verticalScrollBar()->setValue(10);
  EXPECT_EQ(bench.grid.TopRow(), bench.table->rowAt(0));
  EXPECT_GT(bench.grid.TopRow(), 1);
  bench.grid.SetTopRow(1);
  EXPECT_EQ(bench.table->rowAt(0), 1);
}

TEST(GridViewTest, ATopRowThatTheEndOfTheTableForbidsIsKept) {
  GridBench bench;
  bench.grid.SetTopRow(100);
  EXPECT_EQ(bench.grid.TopRow(), 100);
  EXPECT_TRUE(bench.table->visualRect(bench.table->model()->index(100, 1)).isValid());
  EXPECT_TRUE(
      bench.table->viewport()->rect().contains(bench.table->visualRect(bench.table->model()->index(100, 1))));
}

TEST(GridViewTest, ASelectedCellComesIntoViewAndHasTheFrameOfTheKeyboard) {
  GridBench bench;
  bench.grid.SetLook(77, 2, Look::Selected);
  EXPECT_EQ(bench.Current(), (Cell{77, 2}));
  EXPECT_TRUE(
      bench.table->viewport()->rect().contains(bench.table->visualRect(bench.table->model()->index(77, 2))));
}

TEST(GridViewTest, AnotherChangeLeavesTheUsersScrollingAlone) {
  GridBench bench;
  bench.grid.SetLook(77, 2, Look::Selected);
  bench.table->verticalScrollBar()->setValue(0);
  bench.grid.SetEnabled(false);
  bench.grid.SetText(77, 2, u"1");
  EXPECT_EQ(bench.table->rowAt(0), 1);
}

TEST(GridViewTest, ArrowKeysSelectNothingUntilEnterOrSpace) {
  GridBench bench;
  bench.Click(3, 1);
  bench.clicks.clear();
  QTest::keyClick(bench.table, Qt::Key_Down);
  QTest::keyClick(bench.table, Qt::Key_Right);
  EXPECT_TRUE(bench.clicks.empty());
  EXPECT_TRUE(bench.table->selectionModel()->selectedIndexes().isEmpty());
  QTest::keyClick(bench.table, Qt::Key_Return);
  QTest::keyClick(bench.table, Qt::Key_Space);
  EXPECT_EQ(bench.clicks, (std::vector<Cell>{{4, 2}, {4, 2}}));
}

TEST(GridViewTest, AfterTheArrowKeysTheFrameGoesToTheNextSelectedCell) {
  GridBench bench;
  bench.Click(3, 1);
  QTest::keyClick(bench.table, Qt::Key_Down);
  bench.grid.SetLook(9, 2, Look::Selected);
  EXPECT_EQ(bench.Current(), (Cell{9, 2}));
}

TEST(GridViewTest, DigitsSearchForNoCell) {
  GridBench bench;
  bench.grid.SetText(8, 1, u"7");
  bench.Click(3, 1);
  QTest::keyClicks(bench.table, QStringLiteral("7"));
  EXPECT_EQ(bench.Current(), (Cell{3, 1}));
}

TEST(GridViewTest, TabLeavesTheTable) {
  GridBench bench;
  EXPECT_TRUE(QTest::qWaitForWindowActive(&bench.window));
  bench.Click(3, 1);
  EXPECT_TRUE(bench.table->hasFocus());
  QTest::keyClick(bench.table, Qt::Key_Tab);
  EXPECT_FALSE(bench.table->hasFocus());
}

/// Counts the cells that are drawn.
class CellCount final : public QStyledItemDelegate {
 public:
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    ++drawn;
  }
  mutable int drawn = 0;
};

TEST(GridViewTest, OfATableOfAThousandRowsOnlyWhatIsSeenIsDrawn) {
  GridBench bench;
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&bench.window));
  CellCount cells;
  bench.table->setItemDelegate(&cells);
  const int in_view = bench.table->viewport()->height() / bench.table->rowHeight(1) + 1;
  ASSERT_LT(in_view, 60);
  const auto drawn_by = [&](auto change) {
    QCoreApplication::processEvents();
    cells.drawn = 0;
    change();
    QCoreApplication::processEvents();
    return cells.drawn;
  };
  EXPECT_LE(drawn_by([&] { bench.grid.Resize(1001, 3); }), 3 * in_view);
  EXPECT_LE(drawn_by([&] {
              for (int row = 1; row <= 1000; ++row) {
                bench.grid.SetText(row, 1, u"12.5");
              }
            }),
            3 * in_view);
  EXPECT_EQ(drawn_by([&] { bench.grid.SetText(900, 1, u"13"); }), 0);
  EXPECT_EQ(drawn_by([&] { bench.grid.SetText(2, 1, u"13"); }), 1);
  EXPECT_EQ(drawn_by([&] { bench.grid.SetLook(3, 2, Look::Bad); }), 1);
  bench.table->setItemDelegate(nullptr);
}

TEST(GridViewTest, AModelWithFewerPointsHasAShorterTable) {
  GridBench bench;
  bench.grid.SetTopRow(60);
  bench.Choose(QStringLiteral("QHW"));
  EXPECT_EQ(bench.table->model()->rowCount(), 17);
  EXPECT_TRUE(bench.table->isRowHidden(0));
  EXPECT_EQ(bench.table->rowAt(0), 1);
  EXPECT_EQ(bench.grid.TopRow(), 1);
  bench.Choose(QStringLiteral("QHW1"));
  EXPECT_EQ(bench.table->model()->rowCount(), 101);
  EXPECT_EQ(bench.table->model()->index(100, 0).data().toString(), QStringLiteral("100"));
  EXPECT_EQ(bench.table->rowAt(0), 1);
}

TEST(GridViewTest, ThePasteKeyPutsTheClipboardFromTheFramedCellOn) {
  GridBench bench;
  int row = 0;
  int column = 0;
  TextBlock pasted;
  bench.grid.OnPaste = [&](int at_row, int at_column, const TextBlock& block) {
    row = at_row;
    column = at_column;
    pasted = block;
  };
  QApplication::clipboard()->setText("1\t2\n3\t4");
  bench.table->setFocus();
  bench.table->setCurrentIndex(bench.table->model()->index(5, 2));
  QTest::keySequence(bench.table, QKeySequence::Paste);
  EXPECT_EQ((Cell{row, column}), (Cell{5, 2}));
  EXPECT_EQ(pasted, (TextBlock{{u"1", u"2"}, {u"3", u"4"}}));
}

TEST(GridViewTest, ColumnsPastedIntoTheOpenEditGoIntoTheTable) {
  test::WindowBench bench("QHW1");
  bench.device.loop.Gate().Enter([&] { test::Part<Linearizer>(bench.Page()).Opt_Lnr[1].Click(); });
  bench.Show(3);
  const Grid& grid = test::Part<Linearizer>(bench.Page()).LnrFlexGrid;
  auto* table = bench.Find<QTableView>("LnrFlexGrid");
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                    table->visualRect(table->model()->index(2, 1)).center());
  QApplication::clipboard()->setText("1.5\t2.5\n3.5\t4.5\n");
  QTest::keySequence(bench.Find<QLineEdit>("txtLnrNewValue"), QKeySequence::Paste);
  EXPECT_EQ(grid.At(2, 1).text, u"1.5");
  EXPECT_EQ(grid.At(3, 2).text, u"4.5");
}

}  // namespace
}  // namespace korva
