// The picture of the linearizer's table: which points it draws, what it makes of odd values, and how it
// looks.

#include "app/curve_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QImage>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <iostream>

#include "linearizer/linearizer.h"
#include "monitor/status_monitor.h"
#include "paint_count.h"
#include "support/page_parts.h"
#include "window_bench.h"

namespace korva {

namespace {

using Points = std::vector<CurveView::Point>;

/// A table of 16 points with its picture, without a page around.
struct DrawnCurve {
  DrawnCurve() {
    grid.Resize(17, 3);
    view.resize(400, 300);
  }
  void Set(int row, const char16_t* x, const char16_t* y) {
    grid.SetText(row, 1, x);
    grid.SetText(row, 2, y);
  }
  /// The picture as it is painted now.
  [[nodiscard]] QImage Painted() {
    QImage image(view.size(), QImage::Format_RGB32);
    view.render(&image);
    return image;
  }

  Grid grid{"LnrFlexGrid"};
  CurveView view{grid, nullptr};
};

/// Pixels in the colour of the text, which lines and labels have only here and there.
int DarkPixels(const QImage& image, const QWidget& widget) {
  const QRgb text = widget.palette().color(QPalette::Text).rgb();
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      count += image.pixel(x, y) == text ? 1 : 0;
    }
  }
  return count;
}

TEST(CurveViewTest, DrawsTheRowsInTheOrderOfTheTable) {
  DrawnCurve curve;
  curve.Set(1, u"50", u"0");
  curve.Set(2, u"-1.5", u" 1E1 ");
  EXPECT_EQ(curve.view.Points(), (Points{{.row = 1, .x = 50, .y = 0}, {.row = 2, .x = -1.5, .y = 10}}));
}

TEST(CurveViewTest, ARowWithAnEmptyCellOrNoNumberIsNoPoint) {
  DrawnCurve curve;
  curve.Set(1, u"0", u"0");
  curve.Set(2, u"", u"5");
  curve.Set(3, u"5", u"");
  curve.Set(4, u"abc", u"5");
  curve.Set(5, u"5", u"NaN");
  curve.Set(6, u"inf", u"5");
  curve.Set(7, u"1.5.2", u"5");
  curve.Set(8, u"100", u"100");
  EXPECT_EQ(curve.view.Points(), (Points{{.row = 1, .x = 0, .y = 0}, {.row = 8, .x = 100, .y = 100}}));
}

TEST(CurveViewTest, AMissingPointInterruptsTheLine) {
  DrawnCurve whole;
  whole.Set(1, u"0", u"0");
  whole.Set(2, u"100", u"100");
  DrawnCurve gap;
  gap.Set(1, u"0", u"0");
  gap.Set(3, u"100", u"100");
  // Between the two points of a straight line; grid lines stand elsewhere.
  const auto line_in_the_middle = [](DrawnCurve& curve) {
    const QImage image = curve.Painted();
    const QRgb base = curve.view.palette().color(QPalette::Base).rgb();
    int darkest = 255;
    for (int y = 100; y < 200; ++y) {
      darkest = std::min(darkest, qGray(image.pixel(215, y)));
    }
    return qGray(base) - darkest;
  };
  EXPECT_GT(line_in_the_middle(whole), line_in_the_middle(gap) + 50);
}

TEST(CurveViewTest, KnowsBadPointsAndTheOneUnderEditByEitherCell) {
  DrawnCurve curve;
  curve.Set(1, u"0", u"0");
  curve.Set(2, u"1", u"1");
  curve.Set(3, u"2", u"2");
  curve.grid.SetLook(1, 2, Look::Bad);
  curve.grid.SetLook(2, 1, Look::Bad);
  curve.grid.SetLook(2, 2, Look::Selected);
  const Points points = curve.view.Points();
  ASSERT_EQ(points.size(), 3U);
  EXPECT_TRUE(points[0].bad && !points[0].selected);
  EXPECT_TRUE(points[1].bad && points[1].selected);
  EXPECT_TRUE(!points[2].bad && !points[2].selected);
}

TEST(CurveViewTest, ABadPointAndTheOneUnderEditHaveShapesOfTheirOwn) {
  DrawnCurve curve;
  curve.Set(1, u"0", u"0");
  curve.Set(2, u"50", u"60");
  curve.Set(3, u"100", u"100");
  const QImage plain = curve.Painted();
  curve.grid.SetLook(2, 2, Look::Bad);
  const QImage bad = curve.Painted();
  curve.grid.SetLook(2, 2, Look::Selected);
  const QImage selected = curve.Painted();
  // A filled square and a ring are larger than a dot.
  EXPECT_GT(DarkPixels(bad, curve.view), DarkPixels(plain, curve.view) + 20);
  EXPECT_GT(DarkPixels(selected, curve.view), DarkPixels(plain, curve.view) + 20);
  EXPECT_NE(bad, selected);
}

TEST(CurveViewTest, TellsAScreenReaderHowManyPointsThereAreAndHowManyBadRows) {
  DrawnCurve curve;
  curve.Set(1, u"0", u"0");
  curve.Set(2, u"1", u"");
  curve.grid.SetLook(2, 2, Look::Bad);
  (void)curve.Painted();
  EXPECT_EQ(curve.view.accessibleName(), QStringLiteral("曲線"));
  EXPECT_EQ(curve.view.accessibleDescription(), QStringLiteral("1 点、不適当 1 点"));
}

TEST(CurveViewTest, TheTipTellsThePointUnderTheMouse) {
  DrawnCurve curve;
  curve.grid.SetText(2, 0, u"02");
  curve.Set(1, u"0", u"0");
  curve.Set(2, u"5.50", u"60");
  const auto tip_over = [&curve](const QPoint& place) {
    QHelpEvent help(QEvent::ToolTip, place, place);
    QApplication::sendEvent(&curve.view, &help);
    return QToolTip::text();
  };
  curve.view.show();
  bool found = false;
  for (int x = 200; x < 400 && !found; x += 4) {
    for (int y = 0; y < 100 && !found; y += 4) {
      found = tip_over({x, y}) == QStringLiteral("02: X = 5.50, Y = 60");
    }
  }
  EXPECT_TRUE(found);
}

/// A table with three points and a gap, whose picture has the keyboard.
struct WalkedCurve : DrawnCurve {
  WalkedCurve() {
    for (int row = 1; row <= 16; ++row) {
      grid.SetText(row, 0, FromQt(QStringLiteral("%1").arg(row, 2, 10, QLatin1Char('0'))));
    }
    Set(1, u"0", u"1");
    Set(2, u"5.50", u"60");
    Set(4, u"9", u"70");
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    view.setFocus();
  }
  ~WalkedCurve() { QToolTip::hideText(); }
  WalkedCurve(const WalkedCurve&) = delete;
  WalkedCurve& operator=(const WalkedCurve&) = delete;
  std::string TipAfter(Qt::Key key) {
    QTest::keyClick(&view, key);
    return QToolTip::text().toStdString();
  }
};

TEST(CurveViewTest, TheKeyboardWalksThePointsAndShowsTheirTips) {
  WalkedCurve curve;
  EXPECT_EQ(curve.TipAfter(Qt::Key_Right), "01: X = 0, Y = 1");
  EXPECT_EQ(curve.TipAfter(Qt::Key_Right), "02: X = 5.50, Y = 60");
  EXPECT_EQ(curve.TipAfter(Qt::Key_Right), "04: X = 9, Y = 70");
  EXPECT_EQ(curve.TipAfter(Qt::Key_Right), "04: X = 9, Y = 70");
  EXPECT_EQ(curve.TipAfter(Qt::Key_Left), "02: X = 5.50, Y = 60");
  EXPECT_EQ(curve.TipAfter(Qt::Key_Home), "01: X = 0, Y = 1");
  EXPECT_EQ(curve.TipAfter(Qt::Key_Left), "01: X = 0, Y = 1");
  EXPECT_EQ(curve.TipAfter(Qt::Key_End), "04: X = 9, Y = 70");
}

TEST(CurveViewTest, PageDownGoesOverTenPoints) {
  WalkedCurve curve;
  for (int row = 1; row <= 15; ++row) {
    curve.Set(row, FromQt(QString::number(row)).c_str(), u"5");
  }
  curve.TipAfter(Qt::Key_Right);
  EXPECT_EQ(curve.TipAfter(Qt::Key_PageDown), "11: X = 11, Y = 5");
  EXPECT_EQ(curve.TipAfter(Qt::Key_PageDown), "15: X = 15, Y = 5");
  EXPECT_EQ(curve.TipAfter(Qt::Key_PageUp), "05: X = 5, Y = 5");
}

TEST(CurveViewTest, AScreenReaderIsToldThePointThatHasTheKeyboard) {
  WalkedCurve curve;
  curve.grid.SetLook(2, 2, Look::Bad);
  curve.TipAfter(Qt::Key_Right);
  curve.TipAfter(Qt::Key_Right);
  (void)curve.Painted();
  EXPECT_EQ(curve.view.accessibleDescription().toStdString(),
            "02: X = 5.50, Y = 60; 不適当な値; 3 点、不適当 1 点");
  curve.Set(2, u"5.75", u"60");
  (void)curve.Painted();
  EXPECT_TRUE(curve.view.accessibleDescription().startsWith(QStringLiteral("02: X = 5.75, Y = 60")));
  curve.view.clearFocus();
  (void)curve.Painted();
  EXPECT_EQ(curve.view.accessibleDescription().toStdString(), "3 点、不適当 1 点");
}

TEST(CurveViewTest, ThePointThatHasTheKeyboardIsFramedUntilItLeaves) {
  WalkedCurve curve;
  const QImage around = curve.Painted();
  curve.TipAfter(Qt::Key_Right);
  const QImage first = curve.Painted();
  curve.TipAfter(Qt::Key_Right);
  EXPECT_NE(first, around);
  EXPECT_NE(curve.Painted(), first);
  curve.view.clearFocus();
  EXPECT_TRUE(QToolTip::text().isEmpty() || !QToolTip::isVisible());
  curve.view.setFocus();
  EXPECT_EQ(curve.Painted(), around);
}

TEST(CurveViewTest, KeysMeanNothingWithoutAPointAndOtherKeysGoOn) {
  WalkedCurve curve;
  QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
  QCoreApplication::sendEvent(&curve.view, &down);
  EXPECT_FALSE(down.isAccepted());
  curve.grid.SetRowsInUse(0);
  QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
  QCoreApplication::sendEvent(&curve.view, &right);
  EXPECT_FALSE(right.isAccepted());
}

TEST(CurveViewTest, OddTablesAreDrawnQuicklyAndWithAllTheirPoints) {
  struct Case {
    const char* name;
    std::vector<std::pair<const char16_t*, const char16_t*>> points;
  };
  const std::vector<Case> cases = {
      {.name = "empty", .points = {}},
      {.name = "lone", .points = {{u"50", u"50"}}},
      {.name = "lone at zero", .points = {{u"0", u"0"}}},
      {.name = "all X equal", .points = {{u"5", u"0"}, {u"5", u"50"}, {u"5", u"100"}}},
      {.name = "negative", .points = {{u"-15", u"-300"}, {u"-1", u"-0.5"}}},
      {.name = "huge", .points = {{u"-1e308", u"1e300"}, {u"1e308", u"-1e300"}, {u"1e999", u"0"}}},
      {.name = "tiny", .points = {{u"1e-310", u"0"}, {u"2e-310", u"1e-300"}}},
      {.name = "close together", .points = {{u"100", u"1e15"}, {u"100.00000000000001", u"1000000000000001"}}},
  };
  for (const Case& odd : cases) {
    DrawnCurve curve;
    const QImage before = curve.Painted();
    for (std::size_t point = 0; point < odd.points.size(); ++point) {
      curve.Set(static_cast<int>(point) + 1, odd.points[point].first, odd.points[point].second);
    }
    QElapsedTimer timer;
    timer.start();
    const QImage after = curve.Painted();
    EXPECT_LT(timer.elapsed(), 1000) << odd.name;
    EXPECT_EQ(curve.view.Points().size(), odd.points.size()) << odd.name;
    EXPECT_EQ(before == after, odd.points.empty()) << odd.name;
    // Each point adds at least its dot, inside the picture.
    for (const CurveView::Point& point : curve.view.Points()) {
      curve.grid.SetLook(point.row, 1, Look::Bad);
      EXPECT_GT(DarkPixels(curve.Painted(), curve.view), DarkPixels(after, curve.view))
          << odd.name << point.row;
      curve.grid.SetLook(point.row, 1, Look::Normal);
    }
  }
}

/// A table of sixteen values of a sensor with its picture.
struct SensorCurve : DrawnCurve {
  SensorCurve() {
    grid.Resize(17, 2);
    for (int row = 1; row <= 16; ++row) {
      grid.SetText(row, 0, FromQt(QStringLiteral("%1").arg(row - 1, 2, 10, QLatin1Char('0'))));
    }
    grid.SetText(0, 0, u"  k");
    grid.SetText(0, 1, u"  X(k)       mV");
  }
};

TEST(CurveViewTest, OneColumnOfValuesIsDrawnOverTheNumbersOfItsRows) {
  SensorCurve curve;
  curve.grid.SetText(1, 1, u"-1.5");
  curve.grid.SetText(4, 1, u"7.9034");
  curve.grid.SetText(5, 1, u"abc");
  EXPECT_EQ(curve.view.Points(), (Points{{.row = 1, .x = 0, .y = -1.5}, {.row = 4, .x = 3, .y = 7.9034}}));
}

TEST(CurveViewTest, OneColumnOfValuesIsDrawnOverTheTemperaturesThatItsRowsStandFor) {
  SensorCurve curve;
  curve.grid.SetText(1, 1, u"-1.5");
  curve.grid.SetText(4, 1, u"7.9034");
  const QImage over_numbers = curve.Painted();
  curve.grid.SetRowScale(Grid::RowScale{.first = -50, .step = 10});
  EXPECT_EQ(curve.view.Points(),
            (Points{{.row = 1, .x = -50, .y = -1.5}, {.row = 4, .x = -20, .y = 7.9034}}));
  EXPECT_NE(curve.Painted(), over_numbers);
  curve.grid.SetRowScale(Grid::RowScale{.first = -50, .step = 0});
  EXPECT_EQ(curve.view.Points().size(), 2U);
  EXPECT_NE(curve.Painted(), over_numbers);
  curve.grid.SetRowScale(std::nullopt);
  EXPECT_EQ(curve.Painted(), over_numbers);
}

TEST(CurveViewTest, AScaleOfRowsMeansNothingWhereXHasAColumn) {
  DrawnCurve curve;
  curve.Set(1, u"5", u"6");
  curve.grid.SetRowScale(Grid::RowScale{.first = -50, .step = 10});
  EXPECT_EQ(curve.view.Points(), (Points{{.row = 1, .x = 5, .y = 6}}));
}

TEST(CurveViewTest, OneColumnOfValuesMarksItsBadPoints) {
  SensorCurve curve;
  curve.grid.SetText(1, 1, u"80");
  curve.grid.SetLook(1, 1, Look::Bad);
  curve.grid.SetText(2, 1, u"1");
  curve.grid.SetLook(2, 1, Look::Selected);
  ASSERT_EQ(curve.view.Points().size(), 2U);
  EXPECT_TRUE(curve.view.Points()[0].bad);
  EXPECT_TRUE(curve.view.Points()[1].selected);
}

TEST(CurveViewTest, TheTipTellsTheTemperatureOfARow) {
  SensorCurve curve;
  curve.grid.SetText(1, 1, u"0.39");
  const auto tells = [&curve](const char* tip) {
    for (int y = 0; y < 300; y += 4) {
      for (int x = 0; x < 400; x += 4) {
        QHelpEvent help(QEvent::ToolTip, {x, y}, {x, y});
        QApplication::sendEvent(&curve.view, &help);
        if (QToolTip::text() == QLatin1String(tip)) {
          return true;
        }
      }
    }
    return false;
  };
  curve.view.show();
  EXPECT_TRUE(tells("00: 0.39"));
  curve.grid.SetRowScale(Grid::RowScale{.first = 23.5, .step = 10});
  EXPECT_TRUE(tells("00: 23.5 deg C, 0.39"));
}

TEST(CurveViewTest, RowsThatAreNotInUseAreNoPoints) {
  DrawnCurve curve;
  curve.Set(1, u"0", u"0");
  curve.Set(2, u"50", u"60");
  curve.Set(3, u"0.00", u"0.00");
  curve.grid.SetRowsInUse(2);
  EXPECT_EQ(curve.view.Points().size(), 2U);
  curve.grid.SetRowsInUse(0);
  EXPECT_TRUE(curve.view.Points().empty());
  for (const int all : {-1, 16, 1000}) {
    curve.grid.SetRowsInUse(all);
    EXPECT_EQ(curve.view.Points().size(), 3U) << all;
  }
}

TEST(CurveViewTest, AmongAThousandPointsABadOneAndOneThatStandsAloneCanBeSeen) {
  DrawnCurve curve;
  curve.grid.Resize(1001, 3);
  for (int row = 1; row <= 1000; ++row) {
    curve.Set(row, FromQt(QString::number(row)).c_str(), u"5");
  }
  curve.Set(1000, u"1000", u"10");
  const QImage line = curve.Painted();
  curve.grid.SetLook(500, 2, Look::Bad);
  EXPECT_GT(DarkPixels(curve.Painted(), curve.view), DarkPixels(line, curve.view) + 20);
  curve.grid.SetLook(500, 2, Look::Normal);
  curve.Set(999, u"", u"");
  curve.Set(1000, u"", u"");
  const QImage without = curve.Painted();
  curve.Set(1000, u"1000", u"5");
  EXPECT_NE(curve.Painted(), without) << "the last one stands alone";
}

TEST(CurveViewTest, AGridWithoutRowsOrColumnsHasNoPoints) {
  Grid grid("LnrFlexGrid");
  CurveView view(grid, nullptr);
  view.resize(60, 40);
  QImage image(view.size(), QImage::Format_RGB32);
  view.render(&image);
  EXPECT_TRUE(view.Points().empty());
  EXPECT_EQ(view.accessibleDescription(), QStringLiteral("0 点、不適当 0 点"));
  grid.Resize(3, 1);
  grid.SetText(1, 0, u"01");
  view.render(&image);
  EXPECT_TRUE(view.Points().empty()) << "the points' numbers alone";
}

TEST(CurveViewTest, TheAxesAreNamedByTheHeadWithItsUnit) {
  DrawnCurve curve;
  curve.grid.SetText(0, 2, u"Y(k)");
  const QImage percent = curve.Painted();
  curve.grid.SetText(0, 2, u"  Y(k)        %");
  EXPECT_EQ(curve.Painted(), percent);
  curve.grid.SetText(0, 2, u"  Y(k)    uV");
  EXPECT_NE(curve.Painted(), percent);
}

TEST(CurveViewTest, ANewTableIsPaintedOnceAndAPointsNumberOrTheScrollingNot) {
  DrawnCurve curve;
  curve.view.show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&curve.view));
  QCoreApplication::processEvents();
  PaintCount paints(&curve.view);
  const auto painted = [&paints] {
    QCoreApplication::processEvents();
    return std::exchange(paints.count, 0);
  };
  for (int row = 1; row <= 16; ++row) {
    curve.Set(row, u"12.5", u"34");
    curve.grid.SetLook(row, 1, Look::Bad);
  }
  EXPECT_EQ(painted(), 1);
  for (int row = 1; row <= 16; ++row) {
    curve.Set(row, u"12.5", u"34");
  }
  EXPECT_EQ(painted(), 0);
  curve.grid.SetTopRow(5);
  curve.grid.SetEnabled(false);
  EXPECT_EQ(painted(), 0);
  curve.grid.SetText(3, 0, u"03");
  EXPECT_EQ(painted(), 0);
  curve.grid.SetText(3, 2, u"35");
  EXPECT_EQ(painted(), 1);
}

TEST(CurveViewTest, OnThePageItFollowsEachCell) {
  test::WindowBench bench("QHW");
  auto* curve = bench.Find<CurveView>("LnrFlexGrid curve");
  EXPECT_TRUE(curve->Points().empty());
  Grid& grid = test::Part<Linearizer>(bench.Page()).LnrFlexGrid;
  grid.SetText(1, 1, u"0");
  grid.SetText(1, 2, u"0");
  grid.SetText(16, 1, u"100");
  grid.SetText(16, 2, u"99.5");
  bench.Show(3);
  EXPECT_EQ(curve->accessibleDescription(), QStringLiteral("2 点、不適当 0 点"));
  grid.SetLook(16, 2, Look::Bad);
  QCoreApplication::processEvents();
  EXPECT_EQ(curve->accessibleDescription(), QStringLiteral("2 点、不適当 1 点"));
  grid.SetText(16, 2, u"");
  grid.SetLook(16, 2, Look::Normal);
  QCoreApplication::processEvents();
  EXPECT_EQ(curve->accessibleDescription(), QStringLiteral("1 点、不適当 0 点"));
}

TEST(CurveViewTest, OnThePageTheCurveOfASensorsTableFollowsBasePitchSizeAndEachCell) {
  test::WindowBench bench("Z2WU");
  const auto pick = [&](int box, StringView entry) {
    const auto& entries = bench.Page().Combo[box].Entries();
    const auto at = std::find(entries.begin(), entries.end(), entry) - entries.begin();
    bench.device.loop.Gate().Enter([&] { bench.Page().Combo[box].UserPicks(static_cast<int>(at)); });
  };
  pick(0, u"熱電対");
  pick(1, u"User's TC");
  const auto type = [&](const char* name, const char16_t* text) {
    dynamic_cast<TextField&>(*bench.Page().FindControl(name)).UserTypes(text);
  };
  auto& grid = dynamic_cast<Grid&>(*bench.Page().FindControl("TCFlexGrid"));
  const auto* curve = bench.window.Current()->findChild<CurveView*>(QStringLiteral("TCFlexGrid curve"));
  ASSERT_GT(grid.Rows(), 1000);
  type("txtSize", u"3");
  grid.SetText(2, 1, u"0.4");
  grid.SetText(3, 1, u"0.9");
  EXPECT_EQ(curve->Points(),
            (Points{{.row = 1, .x = 0, .y = 0}, {.row = 2, .x = 1, .y = 0.4}, {.row = 3, .x = 2, .y = 0.9}}));
  type("txtBase", u"-50");
  type("txtStep", u"10");
  EXPECT_EQ(
      curve->Points(),
      (Points{{.row = 1, .x = -50, .y = 0}, {.row = 2, .x = -40, .y = 0.4}, {.row = 3, .x = -30, .y = 0.9}}));
  type("txtSize", u"2");
  EXPECT_EQ(curve->Points().size(), 2U);
  bench.Show(bench.Page().TabOf(grid));
  EXPECT_TRUE(curve->isVisible());
  EXPECT_FALSE(
      bench.window.Current()->findChild<CurveView*>(QStringLiteral("RTDFlexGrid curve"))->isVisible());
}

TEST(CurveViewTest, OnThePageAHundredPointsAreDrawnFasterThanASingleFrame) {
  test::WindowBench bench("QHW1");
  auto* curve = bench.Find<CurveView>("LnrFlexGrid curve");
  Grid& grid = test::Part<Linearizer>(bench.Page()).LnrFlexGrid;
  ASSERT_EQ(grid.Rows(), 101);
  for (int row = 1; row <= 100; ++row) {
    grid.SetText(row, 1, FromQt(QString::number(row)));
    grid.SetText(row, 2, FromQt(QString::number(row * row / 100.0)));
  }
  bench.Show(3);
  ASSERT_EQ(curve->Points().size(), 100U);
  QImage image(curve->size(), QImage::Format_RGB32);
  constexpr int kTimes = 20;
  QElapsedTimer timer;
  timer.start();
  for (int time = 0; time < kTimes; ++time) {
    curve->render(&image);
  }
  const double each = static_cast<double>(timer.nsecsElapsed()) / 1e6 / kTimes;
  std::cout << "100 points in " << image.width() << "x" << image.height() << ": " << each << " ms a paint\n";
  EXPECT_LT(each, 200);  // generous: sanitized builds on a busy machine are many times slower
}

TEST(CurveViewTest, TheOpeningOfTheCellEditorMovesNeitherTableNorCurve) {
  test::WindowBench bench("QHW");
  bench.Show(3);
  const auto* curve = bench.Find<CurveView>("LnrFlexGrid curve");
  const auto* table = bench.Find<QWidget>("LnrFlexGrid");
  const auto places = [&] {
    QCoreApplication::processEvents();
    return std::pair(QRect(curve->mapTo(&bench.window, QPoint()), curve->size()),
                     QRect(table->mapTo(&bench.window, QPoint()), table->size()));
  };
  test::Part<Linearizer>(bench.Page()).Editor().fraLnrChange.SetVisible(false);
  const auto closed = places();
  test::Part<Linearizer>(bench.Page()).Editor().fraLnrChange.SetVisible(true);
  EXPECT_EQ(places(), closed);
  EXPECT_TRUE(bench.Find<QWidget>("cmdLnrChangeOK")->isVisible());
}

}  // namespace
}  // namespace korva
