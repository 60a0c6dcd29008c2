// Where the keyboard is: it comes back after operations and boxes, and each of its stops can be seen.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTabBar>
#include <QTableView>

#include "linearizer/linearizer.h"
#include "monitor/output_setting.h"
#include "monitor/status_monitor.h"
#include "support/page_parts.h"
#include "window_bench.h"

namespace korva {

namespace {

struct FocusBench : test::WindowBench {
  explicit FocusBench(const char* model) : WindowBench(model) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  [[nodiscard]] static std::string Focused() {
    const QWidget* widget = QApplication::focusWidget();
    return widget == nullptr ? "nothing" : widget->objectName().toStdString();
  }
  void Focus(const char* name) {
    Find<QWidget>(name)->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(Focused(), name);
  }
};

TEST(FocusTest, ReturnsToTheButtonOfAnOperation) {
  FocusBench bench("QN");
  bench.Upload();
  EXPECT_EQ(FocusBench::Focused(), "cmdUpload");
  bench.device.dialogs.QueueAnswer(Answer::Ok);
  bench.Press("cmdDownload");
  EXPECT_EQ(FocusBench::Focused(), "cmdDownload");
  bench.Press("cmdCheck");
  EXPECT_EQ(FocusBench::Focused(), "cmdCheck");
}

TEST(FocusTest, ReturnsToTheFieldFromWhichAnOperationWasStartedByItsKey) {
  FocusBench bench("QN");
  bench.Upload();
  bench.Show(1);
  bench.Focus("Text(9)");
  QTest::keyClick(&bench.window, Qt::Key_K, Qt::ControlModifier);
  EXPECT_EQ(FocusBench::Focused(), "Text(9)");
  EXPECT_EQ(bench.Page().Tabs.Current(), 1);
}

TEST(FocusTest, ReturnsToTheModelListWhenItsQuestionIsCancelled) {
  FocusBench bench("QN");
  QTest::keyClicks(bench.Find<QLineEdit>("Text(0)"), QStringLiteral("A"));
  bench.device.dialogs.QueueAnswer(Answer::Cancel);
  bench.Choose(QStringLiteral("QC"));
  EXPECT_EQ(FocusBench::Focused(), "lst_TypeSelect");
}

TEST(FocusTest, GoesToTheFirstBadFieldAndSelectsItsText) {
  FocusBench bench("QN");
  bench.Upload();
  auto* field = bench.Find<QLineEdit>("Text(10)");
  field->selectAll();
  QTest::keyClicks(field, QStringLiteral("99999"));
  bench.Show(5);
  bench.Press("cmdCheck");
  EXPECT_EQ(FocusBench::Focused(), "Text(10)");
  EXPECT_EQ(field->selectedText(), QStringLiteral("99999"));
  EXPECT_TRUE(field->isVisible());
}

TEST(FocusTest, ReturnsToTheMonitorsOnWhenItHasStopped) {
  FocusBench bench("QN");
  bench.Upload();
  bench.Show(6);
  bench.device.loop.After(std::chrono::seconds(5),
                          [&] { test::Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
  bench.Press("cmdMonitorON");
  EXPECT_EQ(FocusBench::Focused(), "cmdMonitorON");
}

TEST(FocusTest, IsOnTheMonitorsOffWhileItRuns) {
  FocusBench bench("QN");
  bench.Upload();
  bench.Show(6);
  std::string focused;
  bench.device.loop.After(std::chrono::seconds(5), [&] {
    QCoreApplication::processEvents();
    focused = FocusBench::Focused();
    test::Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click();
  });
  bench.Press("cmdMonitorON");
  EXPECT_EQ(focused, "cmdMonitorOFF");
  EXPECT_EQ(FocusBench::Focused(), "cmdMonitorON");
}

TEST(FocusTest, IsOnOffWhileTheOutputIsForcedAndThenInItsField) {
  FocusBench bench("QN");
  bench.Upload();
  bench.Show(6);
  QTest::keyClicks(bench.Find<QLineEdit>("Text(1)"), QStringLiteral("50"));
  bench.Press("cmdSet");
  EXPECT_EQ(FocusBench::Focused(), "cmdStatusMonOFF");
  bench.Press("cmdStatusMonOFF");
  EXPECT_EQ(FocusBench::Focused(), "Text(1)");
}

TEST(FocusTest, StaysOnTheSameControlWhenAnotherPageComes) {
  FocusBench bench("QN");
  bench.Focus("cmdOpen");
  const QWidget* former = bench.window.Current();
  const auto& entries = bench.Page().lst_TypeSelect.Entries();
  const auto other = std::find(entries.begin(), entries.end(), u"QNA2");
  bench.Page().lst_TypeSelect.UserPicks(static_cast<int>(other - entries.begin()));
  ASSERT_NE(bench.window.Current(), former);
  EXPECT_EQ(FocusBench::Focused(), "cmdOpen");
  EXPECT_TRUE(bench.window.Current()->isAncestorOf(QApplication::focusWidget()));
}

struct TabOrderTest : testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Model, TabOrderTest, testing::Values("QN", "QHG", "QEY", "QNA2"),
                         [](const auto& one) { return std::string(one.param); });

TEST_P(TabOrderTest, HasOnlyStopsThatCanBeSeen) {
  FocusBench bench(GetParam());
  bench.Upload();
  for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
    bench.Show(tab);
    std::set<std::string> stops;
    for (int step = 0; step < 60; ++step) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      const QWidget* widget = QApplication::focusWidget();
      ASSERT_NE(widget, nullptr);
      EXPECT_TRUE(widget->isVisible());
      EXPECT_TRUE(!FocusBench::Focused().empty() || qobject_cast<const QTabBar*>(widget) != nullptr)
          << widget->metaObject()->className() << " on tab " << tab;
      stops.insert(FocusBench::Focused());
    }
    EXPECT_TRUE(stops.contains("cmdUpload") && stops.contains("lst_TypeSelect")) << "tab " << tab;
  }
}

/// The cell editor of a table, by keyboard.
struct EditorBench : FocusBench {
  EditorBench() : FocusBench("QHW") {
    Show(3);
    grid.SetText(2, 1, u"12.5");
    table->setFocus();
    table->setCurrentIndex(table->model()->index(2, 1));
    QTest::keyClick(table, Qt::Key_Return);
  }
  Grid& grid = test::Part<Linearizer>(Page()).LnrFlexGrid;
  [[nodiscard]] std::pair<int, int> Current() const {
    return {table->currentIndex().row(), table->currentIndex().column()};
  }

  QTableView* table = Find<QTableView>("LnrFlexGrid");
  QLineEdit* value = Find<QLineEdit>("txtLnrNewValue");
};

TEST(CellEditorTest, TypingReplacesTheOldText) {
  EditorBench bench;
  EXPECT_EQ(FocusBench::Focused(), "txtLnrNewValue");
  QTest::keyClicks(bench.value, QStringLiteral("7"));
  EXPECT_EQ(bench.value->text(), QStringLiteral("7"));
}

TEST(CellEditorTest, EnterGoesDownInTheTable) {
  EditorBench bench;
  QTest::keyClicks(bench.value, QStringLiteral("7"));
  QTest::keyClick(bench.value, Qt::Key_Return);
  EXPECT_EQ(ToQt(bench.grid.At(2, 1).text), QStringLiteral("7"));
  EXPECT_EQ(FocusBench::Focused(), "LnrFlexGrid");
  EXPECT_EQ(bench.Current(), std::pair(3, 1));
  EXPECT_FALSE(bench.value->isVisible());
  QTest::keyClick(bench.table, Qt::Key_Return);
  EXPECT_EQ(FocusBench::Focused(), "txtLnrNewValue");
  EXPECT_EQ(bench.Find<QLineEdit>("txtLnrRow")->text(), QStringLiteral("3"));
}

TEST(CellEditorTest, EnterInTheLastRowStaysThere) {
  EditorBench bench;
  QTest::keyClick(bench.value, Qt::Key_Escape);
  bench.table->setCurrentIndex(bench.table->model()->index(16, 2));
  QTest::keyClick(bench.table, Qt::Key_Return);
  QTest::keyClick(bench.value, Qt::Key_Return);
  EXPECT_EQ(FocusBench::Focused(), "LnrFlexGrid");
  EXPECT_EQ(bench.Current(), std::pair(16, 2));
}

TEST(CellEditorTest, EscapeLeavesTheCellAsItWas) {
  EditorBench bench;
  QTest::keyClicks(bench.value, QStringLiteral("7"));
  QTest::keyClick(bench.value, Qt::Key_Escape);
  EXPECT_EQ(ToQt(bench.grid.At(2, 1).text), QStringLiteral("12.5"));
  EXPECT_EQ(FocusBench::Focused(), "LnrFlexGrid");
  EXPECT_EQ(bench.Current(), std::pair(2, 1));
  EXPECT_FALSE(bench.value->isVisible());
}

TEST(CellEditorTest, ItsButtonsReturnToTheCell) {
  for (const char* button : {"cmdLnrChangeOK", "cmdLnrChangeCancel"}) {
    EditorBench bench;
    bench.Press(button);
    EXPECT_EQ(FocusBench::Focused(), "LnrFlexGrid");
    EXPECT_EQ(bench.Current(), std::pair(2, 1));
  }
}

}  // namespace

}  // namespace korva
