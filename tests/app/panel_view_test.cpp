#include "app/panel_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include "window_bench.h"

namespace korva::test {
namespace {

QString CellOf(const QTableView& table, int row, int column) {
  return table.model()->index(row, column).data().toString();
}

TEST(PanelViewTest, IsMadeWhenItsButtonIsPressedAndShowsTheReportAsItGrows) {
  WindowBench bench("QHW");
  EXPECT_EQ(bench.window.findChild<PanelView*>(), nullptr);
  bench.Press("cmdReport");
  auto* panel = bench.Find<PanelView>("pnlReport");
  auto* table = panel->findChild<QTableView*>("table");
  EXPECT_TRUE(panel->isVisible());
  EXPECT_FALSE(panel->isModal());
  EXPECT_EQ(table->model()->rowCount(), 0);
  bench.device.device.AddFault(sim::ParseFault("silent=I14"));
  bench.Upload();
  const auto& rows = bench.application.companions.Report.Rows();
  ASSERT_EQ(table->model()->rowCount(), static_cast<int>(rows.size()));
  EXPECT_EQ(CellOf(*table, 3, 0), QStringLiteral("01/14"));
  EXPECT_EQ(CellOf(*table, 3, 1), QStringLiteral("入力ｾﾞﾛ (0%)"));
  EXPECT_EQ(CellOf(*table, 3, 4), QStringLiteral("応答なし"));
  EXPECT_TRUE(table->model()->index(3, 0).data(Qt::BackgroundRole).isValid());
  EXPECT_FALSE(table->model()->index(4, 0).data(Qt::BackgroundRole).isValid());
}

TEST(PanelViewTest, CopiesTheSelectedRowsAndAllOfThemWithoutASelection) {
  WindowBench bench("QHW");
  bench.Upload();
  bench.Press("cmdReport");
  auto* panel = bench.Find<PanelView>("pnlReport");
  auto* table = panel->findChild<QTableView*>("table");
  table->selectRow(1);
  QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("01/01\tﾓｰﾄﾞ\t0\t0\t応答あり\n"));
  table->clearSelection();
  QTest::mouseClick(panel->findChild<QPushButton*>("copy"), Qt::LeftButton);
  EXPECT_EQ(QApplication::clipboard()->text().count(QLatin1Char('\n')), table->model()->rowCount());
}

TEST(PanelViewTest, ItsHeadingIsSelectedAndCopiedByKeys) {
  WindowBench bench("QHW");
  bench.Upload();
  bench.Press("cmdReport");
  auto* heading = bench.Find<PanelView>("pnlReport")->findChild<QLabel*>("heading");
  ASSERT_TRUE(heading->isVisible());
  heading->setFocus(Qt::TabFocusReason);
  QTest::keyClick(heading, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(heading->selectedText().toStdString(), heading->text().toStdString());
  QTest::keyClick(heading, Qt::Key_Home, Qt::ControlModifier);
  for (int letter = 0; letter < 2; ++letter) {
    QTest::keyClick(heading, Qt::Key_Right, Qt::ShiftModifier);
  }
  QTest::keyClick(heading, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), heading->text().left(2));
}

TEST(PanelViewTest, ItsColumnsBecomeAsWideAsTheirTextsByAKeyAndNarrowAgain) {
  WindowBench bench("QHW");
  bench.Press("cmdReport");
  bench.Upload();
  auto* table = bench.Find<PanelView>("pnlReport")->findChild<QTableView*>("table");
  const auto widths = [table] {
    std::vector<int> columns;
    for (int column = 0; column < table->model()->columnCount(); ++column) {
      columns.push_back(table->columnWidth(column));
    }
    return columns;
  };
  table->setColumnWidth(1, 20);
  const std::vector<int> cut = widths();
  QTest::keyClick(table, Qt::Key_Plus, Qt::ControlModifier);
  const std::vector<int> wide = widths();
  for (int column = 0; column < table->model()->columnCount(); ++column) {
    for (int row = 0; row < table->model()->rowCount(); ++row) {
      const QString text = CellOf(*table, row, column);
      EXPECT_GE(wide.at(static_cast<std::size_t>(column)), table->fontMetrics().horizontalAdvance(text));
    }
  }
  EXPECT_NE(wide, cut);
  QTest::keyClick(table, Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
  QCoreApplication::processEvents();
  EXPECT_EQ(table->horizontalHeader()->length(), table->viewport()->width());
}

TEST(PanelViewTest, LetsTheLastColumnFillTheWindowWhetherItOpensWithRowsOrGetsThem) {
  WindowBench bench("QHW");
  bench.Upload();
  bench.Press("cmdReport");
  auto* table = bench.Find<PanelView>("pnlReport")->findChild<QTableView*>("table");
  const auto expect_filled = [table] {
    QCoreApplication::processEvents();
    const int last = table->model()->columnCount() - 1;
    EXPECT_EQ(table->columnViewportPosition(last) + table->columnWidth(last), table->viewport()->width());
  };
  ASSERT_GT(table->model()->rowCount(), 0);
  expect_filled();
  if (const char* folder = std::getenv("PANEL_PICTURES")) {
    bench.Find<PanelView>("pnlReport")->grab().save(QString::fromUtf8(folder) + "/opened.png");
  }
  bench.Page().DataChanged = false;
  bench.Upload();
  expect_filled();
  bench.Find<PanelView>("pnlReport")->resize(1100, 500);
  expect_filled();
}

TEST(PanelViewTest, HasItsButtonsInTheLanguageOfThePage) {
  WindowBench bench("QHW");
  bench.Press("cmdReport");
  auto* panel = bench.Find<PanelView>("pnlReport");
  EXPECT_EQ(panel->findChild<QPushButton*>("copy")->text(), QStringLiteral("ｺﾋﾟｰ"));
  EXPECT_EQ(panel->findChild<QPushButton*>("close")->text(), QStringLiteral("閉じる"));
  bench.Page().SetCaptions(Language::English);
  EXPECT_EQ(panel->findChild<QPushButton*>("copy")->text(), QStringLiteral("COPY"));
  EXPECT_EQ(panel->findChild<QPushButton*>("close")->text(), QStringLiteral("CLOSE"));
}

TEST(PanelViewTest, ClosesByEscapeAndItsButtonAndOpensAgain) {
  WindowBench bench("QHW");
  bench.Press("cmdReport");
  auto* panel = bench.Find<PanelView>("pnlReport");
  QTest::keyClick(panel, Qt::Key_Escape);
  EXPECT_FALSE(panel->isVisible());
  EXPECT_TRUE(bench.window.isVisible());
  bench.Upload();
  bench.Press("cmdReport");
  EXPECT_TRUE(panel->isVisible());
  EXPECT_GT(panel->findChild<QTableView*>("table")->model()->rowCount(), 0);
  QTest::mouseClick(panel->findChild<QPushButton*>("close"), Qt::LeftButton);
  EXPECT_FALSE(panel->isVisible());
  EXPECT_EQ(bench.window.findChildren<PanelView*>().size(), 1);
}

TEST(PanelViewTest, TellsItsNameToThoseWhoCantSeeIt) {
  WindowBench bench("QHW");
  bench.Press("cmdReport");
  auto* panel = bench.Find<PanelView>("pnlReport");
  EXPECT_EQ(panel->accessibleName(), QStringLiteral("転送ﾚﾎﾟｰﾄ"));
  EXPECT_EQ(panel->findChild<QTableView*>("table")->accessibleName(), QStringLiteral("転送ﾚﾎﾟｰﾄ"));
  if (const char* folder = std::getenv("PANEL_PICTURES")) {
    bench.device.device.AddFault(sim::ParseFault("silent=I14"));
    bench.Upload();
    QCoreApplication::processEvents();
    panel->grab().save(QString::fromUtf8(folder) + "/panel.png");
    bench.window.grab().save(QString::fromUtf8(folder) + "/window.png");
  }
}

TEST(PanelViewTest, TheTrafficThatWasThereBeforeFillsItsWindow) {
  WindowBench bench("QHW");
  bench.Upload();
  bench.Press("cmdLine");
  QCoreApplication::processEvents();
  const auto* table = bench.Find<PanelView>("pnlLine")->findChild<QTableView*>("table");
  EXPECT_EQ(table->columnViewportPosition(2) + table->columnWidth(2), table->viewport()->width());
  // Hours later the times are longer.
  EXPECT_GE(table->columnWidth(0), table->fontMetrics().horizontalAdvance(QStringLiteral("10000.123")) + 8);
}

TEST(PanelViewTest, ShowsTheTrafficBeforeAndAfterItOpensAndDropsWhatIsTooOld) {
  WindowBench bench("QHW");
  bench.Upload();
  bench.Press("cmdLine");
  auto* table = bench.Find<PanelView>("pnlLine")->findChild<QTableView*>("table");
  const int before = table->model()->rowCount();
  EXPECT_GT(before, 20);
  EXPECT_EQ(CellOf(*table, 0, 2), QStringLiteral("G00"));
  bench.application.program.Loop().Gate().Enter([&] {
    for (int i = 0; i < 1300; ++i) {
      bench.Page().LinkTest();
    }
  });
  QCoreApplication::processEvents();
  EXPECT_EQ(table->model()->rowCount(), 5000);
  EXPECT_EQ(CellOf(*table, 4998, 2), QStringLiteral("I99"));
  EXPECT_EQ(table->indexAt({0, table->viewport()->height() - 2}).row(), 4999);
  if (const char* folder = std::getenv("PANEL_PICTURES")) {
    bench.Find<PanelView>("pnlLine")->grab().save(QString::fromUtf8(folder) + "/line.png");
  }
}

TEST(PanelViewTest, ListsWhatDiffersAndMarksItsFieldUntilTheNextEdit) {
  WindowBench bench("QHW");
  QAccessible::setActive(true);  // nothing is told before a screen reader asks
  bench.Upload();
  bench.device.device.Set("01", "14", "2.5");
  bench.Press("cmdCompare");
  auto* panel = bench.Find<PanelView>("pnlCompare");
  auto* table = panel->findChild<QTableView*>("table");
  ASSERT_EQ(table->model()->rowCount(), 1);
  EXPECT_EQ(CellOf(*table, 0, 2), QStringLiteral("0 V"));
  EXPECT_EQ(CellOf(*table, 0, 3), QStringLiteral("2.5 V"));
  bench.Show(1);
  auto* field = bench.Find<QWidget>("Text(9)");
  auto* mark = field->findChild<QWidget*>("difference");
  ASSERT_NE(mark, nullptr);
  EXPECT_TRUE(mark->isVisible());
  EXPECT_EQ(mark->height(), field->height());
  QCoreApplication::processEvents();
  EXPECT_TRUE(field->accessibleDescription().contains(QStringLiteral("比較したものと異なります")));
  EXPECT_EQ(bench.Find<QWidget>("Text(10)")->findChild<QWidget*>("difference"), nullptr);
  if (const char* folder = std::getenv("PANEL_PICTURES")) {
    panel->grab().save(QString::fromUtf8(folder) + "/compare.png");
    bench.window.grab().save(QString::fromUtf8(folder) + "/marked.png");
  }
  bench.application.program.Loop().Gate().Enter([&] { bench.Page().Text[10].UserTypes(u"9"); });
  EXPECT_FALSE(mark->isVisible());
  QCoreApplication::processEvents();
  EXPECT_FALSE(field->accessibleDescription().contains(QStringLiteral("異なります")));
  QAccessible::setActive(false);
}

TEST(PanelViewTest, ACellThatDiffersHasABarAtItsLeftEdge) {
  WindowBench bench("QHW");
  bench.Upload();
  bench.Show(3);
  auto* table = bench.Find<QTableView>("LnrFlexGrid");
  const auto cell = [&](int row, int column) { return table->model()->index(row, column); };
  const auto left_edge = [&](int row, int column) {
    QCoreApplication::processEvents();
    const QRect place = table->visualRect(cell(row, column));
    return table->viewport()->grab().toImage().pixelColor(place.left() + 1, place.center().y());
  };
  const QColor plain = left_edge(1, 1);
  bench.device.device.Set("01", "60", "12.5");
  bench.Press("cmdCompare");
  EXPECT_NE(left_edge(1, 1), plain);
  EXPECT_EQ(left_edge(2, 1), plain);
  EXPECT_FALSE(cell(1, 1).data(Qt::AccessibleDescriptionRole).toString().isEmpty());
  bench.application.program.Loop().Gate().Enter([&] { bench.Page().Text[10].UserTypes(u"9"); });
  EXPECT_EQ(left_edge(1, 1), plain);
  EXPECT_TRUE(cell(1, 1).data(Qt::AccessibleDescriptionRole).toString().isEmpty());
  if (const char* folder = std::getenv("PANEL_PICTURES")) {
    bench.Press("cmdCompare");
    QCoreApplication::processEvents();
    bench.window.grab().save(QString::fromUtf8(folder) + "/cells.png");
  }
}

}  // namespace
}  // namespace korva::test
