// The live values in large: what their tiles show, paint and tell, and that no question stops the monitor.

#include "app/watch_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <cmath>
#include <iostream>
#include <memory>

#include "app/digits_view.h"
#include "app/qt_record_place.h"
#include "app/trend_view.h"
#include "contrast.h"
#include "core/text_utilities.h"
#include "monitor/status_monitor.h"
#include "paint_count.h"
#include "support/page_parts.h"
#include "window_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;

// --- the window by itself

/// The window of a loop whose values a test tells.
struct WatchViewBench {
  explicit WatchViewBench(int count = 1) : count_of_values(count) {
    panel.LoopBegan(u"/", u"QHW.csv");
    panel.Open();
    view = std::make_unique<WatchView>(panel, host.loop.Gate(), nullptr);
    QCoreApplication::processEvents();
  }
  void Tell(int place, const String& text, bool answered = true) {
    panel.ValueRead({.row = place,
                     .item = u"0" + Ascii(std::to_string(4 + place)),
                     .caption = u"入力値",
                     .text = text,
                     .unit = u"deg C",
                     .answered = answered});
  }
  /// All values once, with half a second for each.
  void Turn(const String& text) {
    for (int place = 0; place < count_of_values; ++place) {
      Tell(place, text);
      host.loop.RunFor(500ms);
    }
    panel.TurnEnded();
    QCoreApplication::processEvents();
  }
  [[nodiscard]] TileView* Tile(int place) const {
    return view->findChildren<TileView*>(QStringLiteral("tile")).at(place);
  }
  template <typename T>
  [[nodiscard]] T* In(int place, const char* name = nullptr) const {
    for (QObject* child : Tile(place)->children()) {
      auto* found = dynamic_cast<T*>(child);
      if (found != nullptr && (name == nullptr || found->objectName() == QLatin1String(name))) {
        return found;
      }
    }
    qFatal("no such child");
  }
  [[nodiscard]] QString TextOf(int place, const char* label) const {
    return In<QLabel>(place, label)->text();
  }

  VirtualHost host;
  int count_of_values;
  Watch watch;
  WatchPanel panel{watch, host.platform};
  std::unique_ptr<WatchView> view;
};

void SetDark() {
  QPalette dark = QApplication::palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    dark.setColor(group, QPalette::Window, QColor(50, 50, 50));
    dark.setColor(group, QPalette::Button, QColor(50, 50, 50));
    dark.setColor(group, QPalette::Base, QColor(30, 30, 30));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
      dark.setColor(group, role, QColor(230, 230, 230));
    }
  }
  QApplication::setPalette(dark);
}

TEST(WatchViewTest, TilesStandAsTheirPlaceAllows) {
  const QSize wide(860, 500);
  EXPECT_EQ(ColumnsOf(1, wide), 1);
  EXPECT_EQ(ColumnsOf(2, wide), 2);
  EXPECT_EQ(ColumnsOf(4, wide), 2);
  EXPECT_EQ(ColumnsOf(6, wide), 3);
  EXPECT_EQ(ColumnsOf(4, QSize(400, 900)), 1);
  EXPECT_EQ(ColumnsOf(6, QSize(500, 900)), 2);
  EXPECT_EQ(ColumnsOf(4, QSize(1900, 300)), 4);
}

TEST(WatchViewTest, EachOfOneToSixValuesHasItsTileAndNoneCoversAnother) {
  for (int count = 1; count <= 6; ++count) {
    WatchViewBench bench(count);
    bench.Turn(u"12.50");
    for (const QSize size : {QSize(860, 560), QSize(640, 900), QSize(1600, 900)}) {
      bench.view->resize(size);
      QCoreApplication::processEvents();
      for (int place = 0; place < count; ++place) {
        const QRect area = bench.Tile(place)->geometry();
        EXPECT_TRUE(bench.Tile(place)->parentWidget()->rect().contains(area)) << count;
        EXPECT_GT(bench.In<TrendView>(place)->height(), 40) << count;
        for (int other = 0; other < place; ++other) {
          EXPECT_FALSE(area.intersects(bench.Tile(other)->geometry())) << count;
        }
      }
    }
  }
}

TEST(WatchViewTest, DigitsAreAtLeastThreeTimesAsLargeAsTextAndGrowWithTheWindow) {
  WatchViewBench bench(6);
  bench.Turn(u"-12.50");
  const int usual = QFontInfo(bench.view->font()).pixelSize();
  EXPECT_GE(bench.In<DigitsView>(0)->PixelSize(), 3 * usual);
  bench.view->resize(bench.view->minimumSizeHint());
  QCoreApplication::processEvents();
  EXPECT_GE(bench.In<DigitsView>(0)->PixelSize(), 3 * usual) << "also in the smallest window";
  const int before = bench.In<DigitsView>(0)->PixelSize();
  bench.view->resize(1800, 1000);
  QCoreApplication::processEvents();
  EXPECT_GT(bench.In<DigitsView>(0)->PixelSize(), 2 * before);
}

TEST(WatchViewTest, DigitsKeepTheirSizeWhileTheValueMovesAndShrinkToFitALongText) {
  WatchViewBench bench;
  bench.Turn(u"9.99");
  const int size = bench.In<DigitsView>(0)->PixelSize();
  bench.Turn(u"11.11");
  EXPECT_EQ(bench.In<DigitsView>(0)->PixelSize(), size);
  bench.Turn(u"-123456789.125");
  EXPECT_LT(bench.In<DigitsView>(0)->PixelSize(), size);
}

TEST(WatchViewTest, ATileTellsCaptionValueLeastAndMost) {
  WatchViewBench bench;
  bench.Turn(u"12.50");
  bench.Turn(u"9.00");
  EXPECT_EQ(bench.TextOf(0, "caption"), QStringLiteral("04  入力値"));
  EXPECT_EQ(bench.TextOf(0, "numbers").simplified(), QStringLiteral("最小 9.00 最大 12.50"));
  EXPECT_EQ(bench.TextOf(0, "age"), QString());
  EXPECT_EQ(bench.Tile(0)->accessibleName(), QStringLiteral("04  入力値"));
  EXPECT_EQ(bench.Tile(0)->accessibleDescription(), QStringLiteral("9.00 deg C, 最小 9.00, 最大 12.50"));
}

TEST(WatchViewTest, ASilentValueIsDimmedAndItsAgeCountsEachSecond) {
  WatchViewBench bench;
  bench.Turn(u"12.50");
  const QColor present = bench.In<DigitsView>(0)->Colour();
  bench.Tell(0, {}, false);
  bench.host.loop.RunFor(3s);
  EXPECT_NE(bench.In<DigitsView>(0)->Colour(), present);
  EXPECT_EQ(bench.TextOf(0, "age"), QStringLiteral("応答なし 3 秒"));
  bench.host.loop.RunFor(1s);
  EXPECT_EQ(bench.TextOf(0, "age"), QStringLiteral("応答なし 4 秒"));
  bench.Turn(u"12.60");
  EXPECT_EQ(bench.In<DigitsView>(0)->Colour(), present);
  EXPECT_EQ(bench.TextOf(0, "age"), QString());
}

TEST(WatchViewTest, AReadingPaintsWhatChangedAndNoOtherTile) {
  WatchViewBench bench(2);
  bench.Turn(u"12.50");
  bench.Turn(u"12.50");
  ASSERT_TRUE(QTest::qWaitForWindowExposed(bench.view.get()));
  PaintCount digits(bench.In<DigitsView>(0));
  PaintCount trend(bench.In<TrendView>(0));
  PaintCount caption(bench.In<QLabel>(0, "caption"));
  PaintCount other_tile(bench.Tile(1));
  PaintCount other_trend(bench.In<TrendView>(1));
  bench.Tell(0, u"12.50");
  QCoreApplication::processEvents();
  EXPECT_EQ(digits.count, 0) << "the value is the same";
  EXPECT_EQ(trend.count, 1);
  bench.Tell(0, u"12.60");
  QCoreApplication::processEvents();
  EXPECT_EQ(digits.count, 1);
  bench.host.loop.RunFor(5s);
  QCoreApplication::processEvents();
  EXPECT_EQ(trend.count, 2) << "time alone paints nothing";
  EXPECT_EQ(digits.count, 1);
  EXPECT_EQ(caption.count, 0);
  EXPECT_EQ(other_tile.count, 0);
  EXPECT_EQ(other_trend.count, 0);
}

TEST(WatchViewTest, AClosedWindowAsksAndPaintsNothing) {
  WatchViewBench bench;
  bench.Turn(u"12.50");
  QTest::keyClick(bench.view.get(), Qt::Key_Escape);
  EXPECT_FALSE(bench.panel.Visible());
  bench.Turn(u"13.00");
  EXPECT_EQ(bench.TextOf(0, "numbers").simplified(), QStringLiteral("最小 12.50 最大 12.50"));
  bench.panel.Open();
  EXPECT_EQ(bench.TextOf(0, "numbers").simplified(), QStringLiteral("最小 12.50 最大 13.00"));
}

TEST(WatchViewTest, ATrendIsInterruptedWhereNothingWasTold) {
  WatchViewBench bench;
  for (const char16_t* text : {u"1", u"2", u"3"}) {
    bench.Turn(text);
  }
  bench.Tell(0, {}, false);
  bench.host.loop.RunFor(500ms);
  bench.Turn(u"2");
  bench.Turn(u"1");
  const std::vector<QPolygonF> pieces = bench.In<TrendView>(0)->Pieces();
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(pieces[0].size(), 3);
  EXPECT_EQ(pieces[1].size(), 2);
  EXPECT_LT(pieces[0][2].y(), pieces[0][0].y()) << "a greater value stands higher";
  EXPECT_EQ(pieces[0][0].y(), pieces[1][1].y());
  EXPECT_LT(pieces[0][2].x(), pieces[1][0].x());
  for (const QPolygonF& piece : pieces) {
    EXPECT_TRUE(QRectF(bench.In<TrendView>(0)->rect()).contains(piece.boundingRect()));
  }
}

TEST(WatchViewTest, AFullTrendIsPaintedInAFewMilliseconds) {
  WatchViewBench bench;
  for (int reading = 0; reading < 1200; ++reading) {
    bench.Tell(0, FromQt(QString::number(std::sin(reading * 12.9898) * 100, 'f', 2)));
    bench.host.loop.RunFor(500ms);
  }
  bench.view->resize(1600, 900);
  QCoreApplication::processEvents();
  auto* trend = bench.In<TrendView>(0);
  QImage picture(trend->size(), QImage::Format_RGB32);
  QElapsedTimer clock;
  clock.start();
  constexpr int kPaints = 10;
  for (int paint = 0; paint < kPaints; ++paint) {
    trend->render(&picture);
  }
  const double each = static_cast<double>(clock.nsecsElapsed()) / kPaints / 1e6;
  std::cout << "1200 readings in " << trend->width() << 'x' << trend->height() << ": " << each
            << " ms a paint\n";
  EXPECT_LT(each, 100) << "a fifth of the monitor's pace, on a busy machine";
}

TEST(WatchViewTest, TheAxisOfTimeGrowsWithTheTrendToTenMinutes) {
  WatchViewBench bench;
  bench.Turn(u"1");
  EXPECT_EQ(bench.In<TrendView>(0)->Span(), 60s);
  bench.host.loop.RunFor(60s);
  bench.Turn(u"2");
  EXPECT_EQ(bench.In<TrendView>(0)->Span(), 120s);
  bench.host.loop.RunFor(200s);
  bench.Turn(u"2");
  EXPECT_EQ(bench.In<TrendView>(0)->Span(), 300s);
  bench.host.loop.RunFor(300s);
  bench.Turn(u"2");
  EXPECT_EQ(bench.In<TrendView>(0)->Span(), 600s);
  bench.host.loop.RunFor(900s);
  bench.Turn(u"2");
  EXPECT_EQ(bench.In<TrendView>(0)->Span(), 60s) << "what is older is gone";
}

/// Pictures of one to six tiles after ten minutes, in the present colours, for somebody to look at.
void TakePictures(const QString& folder, const QString& colours) {
  for (const int count : {1, 2, 4, 6}) {
    WatchViewBench bench(count);
    for (int turn = 0; turn < 1200 / count; ++turn) {
      for (int place = 0; place < count; ++place) {
        const double value = 20 * (place + 1) + 5 * std::sin(turn * 0.02 * (place + 1)) + place * 100;
        const bool silent = (place == 1 && turn > 1100 / count) || (place == 0 && turn % 200 > 180);
        bench.Tell(place, silent ? String() : FromQt(QString::number(value, 'f', 2)), !silent);
        bench.host.loop.RunFor(500ms);
      }
    }
    QCoreApplication::processEvents();
    bench.view->grab().save(QStringLiteral("%1/watch-%2-%3.png").arg(folder, colours).arg(count));
  }
}

TEST(WatchViewTest, EverythingCanBeReadInLightAndDark) {
  const QPalette light = QApplication::palette();
  for (const bool dark : {false, true}) {
    if (dark) {
      SetDark();
    }
    WatchViewBench bench;
    bench.Turn(u"12.50");
    const QColor base = bench.Tile(0)->palette().color(QPalette::Base);
    EXPECT_EQ(bench.Tile(0)->backgroundRole(), QPalette::Base);
    EXPECT_GE(test::ContrastOf(bench.In<DigitsView>(0)->Colour(), base), 4.5) << dark;
    EXPECT_GE(test::ContrastOf(bench.In<QLabel>(0, "age")->palette().color(QPalette::Text), base), 4.5)
        << dark;
    bench.Tell(0, {}, false);
    EXPECT_GE(test::ContrastOf(bench.In<DigitsView>(0)->Colour(), base), 4.5) << dark << " dimmed";
    if (const char* folder = std::getenv("PANEL_PICTURES")) {
      TakePictures(QString::fromUtf8(folder), QLatin1String(dark ? "dark" : "light"));
    }
    QApplication::setPalette(light);
  }
}

TEST(WatchViewTest, TheKeyboardReachesEachTileAndButton) {
  WatchViewBench bench(2);
  bench.Turn(u"12.50");
  ASSERT_TRUE(QTest::qWaitForWindowActive(bench.view.get()));
  bench.panel.Open();
  EXPECT_EQ(QApplication::focusWidget(), bench.Tile(0));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), bench.Tile(1));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("cmdWatchAnew"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(bench.TextOf(0, "numbers"), QString());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("close")) << "nothing can be recorded";
}

// --- with the monitor

/// A monitored device of model QN whose live values stand still, with the window of the values open.
struct MonitoredBench : WindowBench {
  MonitoredBench() : WindowBench("QN") {
    Upload();
    window.Current()->ShowTab(Page().TabOf(Part<StatusMonitor>(Page()).cmdMonitorON));
    records.SetParent(&window);
    panel.RecordTo(records);
    Press("cmdWatch");
    PumpOn();
  }
  /// Events of the screen are let in all the time.
  void PumpOn() {
    device.loop.After(20ms, [this] {
      QCoreApplication::processEvents();
      PumpOn();
    });
  }
  void At(Clock delay, std::function<void()> action) { device.loop.After(delay, std::move(action)); }
  void Monitor(Clock length) {
    At(length, [this] { Press("cmdMonitorOFF"); });
    Press("cmdMonitorON");
  }
  /// The last dialog that was opened; those before wait for their deletion.
  [[nodiscard]] QFileDialog* Chooser() {
    return window.findChildren<QFileDialog*>(QStringLiteral("recordFile")).constLast();
  }
  void Accept(const QString& path) {
    QFileDialog* chooser = Chooser();
    ASSERT_TRUE(chooser->isVisible());
    chooser->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
    QMetaObject::invokeMethod(chooser, "accept");
  }

  QtRecordPlace records{device.loop.Gate()};
  WatchPanel& panel = application.companions.ValuesInLarge();
  QTemporaryDir folder;
};

QByteArray ContentsOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

TEST(WatchMonitorTest, IsMadeWhenItsButtonIsPressedAndFollowsTheMonitor) {
  WindowBench bench("QN");
  EXPECT_EQ(bench.window.findChild<WatchView*>("pnlWatch"), nullptr);
  MonitoredBench monitored;
  auto* view = monitored.Find<WatchView>("pnlWatch");
  EXPECT_TRUE(view->isVisible());
  EXPECT_FALSE(view->isModal());
  EXPECT_EQ(view->accessibleName(), QStringLiteral("現在値ﾓﾆﾀ"));
  monitored.Monitor(5s);
  EXPECT_EQ(view->findChildren<QWidget*>(QStringLiteral("tile")).size(), 4);
}

TEST(WatchMonitorTest, TheDialogStopsNothingAndItsFileTakesTheRecord) {
  MonitoredBench bench;
  const QString path = bench.folder.filePath(QStringLiteral("record.csv"));
  std::size_t before = 0;
  bench.At(4s, [&] {
    bench.Press("cmdRecord");
    EXPECT_FALSE(bench.Chooser()->isModal());
    EXPECT_TRUE(bench.Chooser()->isVisible());
    before = bench.device.line.Commands().size();
    if (const char* folder = std::getenv("PANEL_PICTURES")) {
      bench.Chooser()->grab().save(QString::fromUtf8(folder) + "/watch-chooser.png");
    }
  });
  bench.At(8s, [&] {
    EXPECT_GE(bench.device.line.Commands().size(), before + 10) << "the monitor goes on behind the dialog";
    bench.Accept(path);
  });
  bench.At(15s, [&] {
    if (const char* folder = std::getenv("PANEL_PICTURES")) {
      bench.Find<QWidget>("pnlWatch")->grab().save(QString::fromUtf8(folder) + "/watch-records.png");
      bench.window.grab().save(QString::fromUtf8(folder) + "/watch-window.png");
    }
    EXPECT_FALSE(bench.Chooser()->isVisible());
    EXPECT_EQ(bench.panel.Heading(), u"記録中: " + FromQt(path));
  });
  bench.Monitor(20s);
  EXPECT_GT(ContentsOf(path).count('\n'), 3);
}

TEST(WatchMonitorTest, AFileThatIsThereIsReplacedOnlyWhenTheUserSaysSo) {
  MonitoredBench bench;
  const QString path = bench.folder.filePath(QStringLiteral("record.csv"));
  QFile old(path);
  ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
  old.close();
  const auto answer = [&bench](QMessageBox::ButtonRole role) {
    const auto boxes = bench.window.findChildren<QMessageBox*>(QStringLiteral("replaceFile"));
    ASSERT_FALSE(boxes.isEmpty());
    QMessageBox* box = boxes.constLast();
    EXPECT_TRUE(box->isVisible());
    EXPECT_FALSE(box->isModal());
    for (QAbstractButton* button : box->buttons()) {
      if (box->buttonRole(button) == role) {
        button->click();
        return;
      }
    }
    FAIL() << "no such answer";
  };
  bench.At(3s, [&] { bench.Press("cmdRecord"); });
  bench.At(4s, [&] { bench.Accept(path); });
  bench.At(5s, [&] {
    EXPECT_FALSE(bench.Chooser()->isVisible());
    answer(QMessageBox::NoRole);
  });
  bench.At(6s, [&] {
    EXPECT_EQ(ContentsOf(path), QByteArray("old"));
    EXPECT_TRUE(bench.Chooser()->isVisible()) << "another file may be chosen";
    bench.Accept(path);
  });
  bench.At(7s, [&] { answer(QMessageBox::YesRole); });
  bench.At(8s, [&] { EXPECT_EQ(bench.panel.Heading(), u"記録中: " + FromQt(path)); });
  bench.Monitor(15s);
  EXPECT_FALSE(ContentsOf(path).contains("old"));
  EXPECT_GT(ContentsOf(path).count('\n'), 1);
}

TEST(WatchMonitorTest, ACancelledDialogAndOneWhoseMonitorHasEndedAreGone) {
  MonitoredBench bench;
  bench.At(3s, [&] { bench.Press("cmdRecord"); });
  bench.At(4s, [&] { QTest::keyClick(bench.Chooser(), Qt::Key_Escape); });
  bench.At(5s, [&] {
    EXPECT_FALSE(bench.Chooser()->isVisible());
    EXPECT_EQ(bench.panel.cmdRecord.Refused(), Refusal::None);
    bench.Press("cmdRecord");
    EXPECT_TRUE(bench.Chooser()->isVisible());
  });
  bench.Monitor(6s);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(bench.window.findChildren<QFileDialog*>().isEmpty());
}

TEST(WatchMonitorTest, TheCloseBoxEndsTheProgramThoughTheDialogIsOpen) {
  MonitoredBench bench;
  bench.At(3s, [&] { bench.Press("cmdRecord"); });
  bench.At(4s, [&] { bench.window.close(); });
  bench.Press("cmdMonitorON");
  EXPECT_TRUE(bench.device.loop.Gate().Ended());
}

TEST(WatchMonitorTest, AFolderThatCantBeWrittenIsToldInTheWindow) {
  MonitoredBench bench;
  bench.At(3s, [&] { bench.Press("cmdRecord"); });
  bench.At(4s, [&] { bench.Accept(bench.folder.filePath(QStringLiteral("none/record.csv"))); });
  bench.At(5s, [&] {
    EXPECT_TRUE(bench.panel.Heading().starts_with(u"記録できません: ")) << ToUtf8(bench.panel.Heading());
  });
  bench.Monitor(8s);
}

}  // namespace
}  // namespace korva::test
