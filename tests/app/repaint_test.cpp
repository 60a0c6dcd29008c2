// The window redraws nothing that did not change: what is painted while the device is monitored, and when a
// table or a page is told again what it holds.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPaintEvent>
#include <QTableView>
#include <iostream>
#include <map>
#include <set>

#include "linearizer/linearizer.h"
#include "linearizer/lnr_table.h"
#include "monitor/status_monitor.h"
#include "support/page_parts.h"
#include "window_bench.h"

namespace korva {

namespace {

using test::WindowBench;

/// The area of a widget in its window.
QRect AreaOf(const QWidget* widget) { return {widget->mapTo(widget->window(), QPoint()), widget->size()}; }

/// Counts what is painted in a window. What stands behind a widget with round corners is painted with it, but
/// only within its area: `beyond` names the widgets that were painted outside `allowed`.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& window) : window_(window) {
    QCoreApplication::processEvents();
    QApplication::instance()->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::LayoutRequest && widget != nullptr && widget->layout() != nullptr) {
      ++layouts;
    }
    if (event->type() == QEvent::Paint && widget != nullptr && window_.isAncestorOf(widget)) {
      const QRegion region =
          static_cast<QPaintEvent*>(event)->region().translated(widget->mapTo(&window_, QPoint()));
      const std::string name = widget->objectName().toStdString();
      ++of[name];
      if (!region.subtracted(allowed).isEmpty()) {
        beyond.insert(name + " " + widget->metaObject()->className());
      }
    }
    return false;
  }
  void Reset() {
    layouts = 0;
    of.clear();
    beyond.clear();
  }
  /// Paints the window if anything of it waits for that; how many widgets were painted.
  std::size_t Painted() {
    Reset();
    QCoreApplication::processEvents();
    return of.size();
  }

  QRegion allowed;
  int layouts = 0;  ///< how often something was laid out anew
  std::map<std::string, int> of;
  std::set<std::string> beyond;

 private:
  QWidget& window_;
};

/// A monitored device of model QN with the tab in front and painted all the time. Its live values stand
/// still.
struct MonitorBench : WindowBench {
  MonitorBench() : WindowBench("QN") {
    for (const char* item : {"04", "05", "06", "07"}) {
      EXPECT_TRUE(device.device.Set("01", item, "12.5"));
    }
    Upload();
    window.Current()->ShowTab(Page().TabOf(test::Part<StatusMonitor>(Page()).cmdMonitorON));
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    PaintOnAndOn();
  }
  void PaintOnAndOn() {
    device.loop.After(std::chrono::milliseconds(20), [this] {
      QCoreApplication::processEvents();
      PaintOnAndOn();
    });
  }
  [[nodiscard]] TextField& Field(const char16_t* item) const { return *Page().FindField(item); }
  [[nodiscard]] std::string NameOf(const char16_t* item) const { return Field(item).FullName(); }
  /// Calls `action` with the number of each cycle of the monitor at its start, from 1.
  void AtEachCycle(const std::function<void(int cycle)>& action) const {
    TextField& first = Field(u"04");
    first.Observe([&first, action, cycle = 0, was = first.ShownLook()]() mutable {
      const Look before = std::exchange(was, first.ShownLook());
      if (was == Look::Highlight && before != Look::Highlight) {
        action(++cycle);
      }
    });
  }
};

/// What was painted in the third cycle, which `change` precedes.
std::map<std::string, int> PaintsOfACycle(MonitorBench& bench, Paints& paints,
                                          const std::function<void()>& change) {
  for (const char16_t* item : {u"04", u"05", u"06", u"07"}) {
    paints.allowed += AreaOf(bench.Find<QLineEdit>(bench.NameOf(item).c_str()));
  }
  std::map<std::string, int> painted;
  std::set<std::string> beyond;
  bench.AtEachCycle([&](int cycle) {
    if (cycle == 3) {
      change();
      paints.Reset();
    } else if (cycle == 4) {
      painted = paints.of;
      beyond = paints.beyond;
      test::Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click();
    }
  });
  bench.Press("cmdMonitorON");
  EXPECT_EQ(beyond, std::set<std::string>{});
  int all = 0;
  for (const auto& [name, count] : painted) {
    std::cout << (name.empty() ? "(behind)" : name) << ' ' << count << "; ";
    all += count;
  }
  std::cout << "in all " << all << " paint events of one cycle\n";
  return painted;
}

TEST(RepaintTest, AMonitorCycleOfUnchangedValuesPaintsEachFieldOnAndOffTheHighlightOnly) {
  MonitorBench bench;
  Paints paints(bench.window);
  auto painted = PaintsOfACycle(bench, paints, [] {});
  EXPECT_EQ(painted[bench.NameOf(u"04")], 2);
  EXPECT_EQ(painted[bench.NameOf(u"05")], 2);
  EXPECT_EQ(painted[bench.NameOf(u"06")], 2);
  EXPECT_EQ(painted[bench.NameOf(u"07")], 2);
}

TEST(RepaintTest, AChangedValueIsPaintedWithItsHighlight) {
  MonitorBench bench;
  Paints paints(bench.window);
  auto painted =
      PaintsOfACycle(bench, paints, [&] { EXPECT_TRUE(bench.device.device.Set("01", "06", "13.0")); });
  EXPECT_EQ(bench.Find<QLineEdit>(bench.NameOf(u"06").c_str())->text(), QStringLiteral("13.00"));
  EXPECT_EQ(painted[bench.NameOf(u"06")], 2);
  EXPECT_EQ(painted[bench.NameOf(u"07")], 2);
}

TEST(RepaintTest, ATableThatIsBuiltAgainWithTheSameValuesIsNotPainted) {
  WindowBench bench("QHW");
  bench.Show(3);
  Grid& grid = test::Part<Linearizer>(bench.Page()).LnrFlexGrid;
  ParameterSet& set = bench.Page().GroupItem;
  for (int row = 1; row <= 16; ++row) {
    for (int column = 1; column <= 2; ++column) {
      const auto place = PointItem(16, row, column);
      set.Set(place->group, place->item, u"12.5");
    }
  }
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&bench.window));
  Paints paints(bench.window);
  LnrTable table(set, grid, {u"k", u"X(k)", u"Y(k)"});
  table.ShowLnrTable();
  EXPECT_GT(paints.Painted(), 0U);
  table.ShowLnrTable();
  grid.Resize(17, 3);
  grid.SetTopRow(1);
  EXPECT_EQ(paints.Painted(), 0U);
}

TEST(RepaintTest, AMarkedCellPaintsItselfAndItsCurveOnly) {
  WindowBench bench("QHW");
  bench.Show(3);
  Grid& grid = test::Part<Linearizer>(bench.Page()).LnrFlexGrid;
  grid.SetLook(7, 1, Look::Bad);  // the first one marks the tab as well
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&bench.window));
  Paints paints(bench.window);
  const auto* table = bench.Find<QTableView>("LnrFlexGrid");
  const QRect cell =
      table->visualRect(table->model()->index(5, 2)).translated(AreaOf(table->viewport()).topLeft());
  paints.allowed += cell.adjusted(-1, -1, 1, 1);
  paints.allowed += AreaOf(bench.Find<QWidget>("LnrFlexGrid curve"));
  grid.SetLook(5, 2, Look::Bad);
  EXPECT_GT(paints.Painted(), 0U);
  EXPECT_EQ(paints.beyond, std::set<std::string>{});
}

TEST(RepaintTest, WhatIsWaitedForPaintsItselfAndLaysNothingOut) {
  WindowBench bench("QN");
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&bench.window));
  Label& text = bench.Page().lblWaiting;
  text.SetVisible(true);
  Paints paints(bench.window);
  while (paints.Painted() > 0 || paints.layouts > 0) {
  }
  const auto* widget = bench.Find<QLabel>("lblWaiting");
  paints.allowed = AreaOf(widget->parentWidget());
  EXPECT_GT(paints.allowed.boundingRect().width(), 300);
  for (const char16_t* shown : {u"1 s", u"2 s", u"a longer text of 3 s", u""}) {
    text.SetCaption(shown);
    text.SetVisible(!text.Caption().empty());
    EXPECT_GT(paints.Painted(), 0U);
    EXPECT_EQ(paints.beyond, std::set<std::string>{});
    EXPECT_EQ(paints.layouts, 0);
  }
}

TEST(RepaintTest, ALockedListIsNotPaintedForAChangeThatItDoesNotShow) {
  WindowBench bench("QN");
  ComboBox& combo = bench.Page().Combo[0];
  combo.SetLocked(true);
  bench.Show(1);
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&bench.window));
  EXPECT_TRUE(bench.Find<QWidget>("Combo(0)")->isVisible());
  EXPECT_FALSE(bench.Find<QWidget>("Combo(0)")->isEnabled());
  Paints paints(bench.window);
  combo.SetEnabled(false);
  combo.SetEnabled(true);
  EXPECT_EQ(paints.Painted(), 0U);
  combo.SetLocked(false);
  EXPECT_TRUE(bench.Find<QWidget>("Combo(0)")->isEnabled());
  EXPECT_GT(paints.Painted(), 0U);
}

}  // namespace
}  // namespace korva
