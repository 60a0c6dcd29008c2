// A value that runs: what its line shows, and what the keyboard does there.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <utility>
#include <vector>

#include "app/looks.h"
#include "window_bench.h"

namespace korva {

namespace {

constexpr int kIoCheckTab = 4;

struct LoopBench : test::WindowBench {
  LoopBench() : WindowBench("Z2WQ") {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    Upload();
    Show(kIoCheckTab);
    QCoreApplication::processEvents();
  }
  [[nodiscard]] static std::string Focused() {
    const QWidget* widget = QApplication::focusWidget();
    return widget == nullptr ? "nothing" : widget->objectName().toStdString();
  }
  /// A widget of the page that shows; other pages have some of the same name.
  template <typename T>
  T* Shown(const char* name) {
    return window.Current()->findChild<T*>(QString::fromLatin1(name));
  }
  /// Has the user do something so many milliseconds after the loop has begun.
  void At(int after, std::function<void()> action) { actions.emplace_back(after, std::move(action)); }
  void KeyAt(int after, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    At(after, [key, modifiers] { QTest::keyClick(QApplication::focusWidget(), key, modifiers); });
  }
  /// Presses START and returns when the loop has ended.
  void Run(const char* start) {
    auto* button = dynamic_cast<Button*>(Page().FindControl(start));
    button->Observe([this, button] {
      if (button->Caption() == u"STOP") {
        for (auto& [after, action] : std::exchange(actions, {})) {
          device.loop.After(std::chrono::milliseconds(after), std::move(action));
        }
      }
    });
    Press(start);
  }
  bool Lit(const char* name) {
    const QPalette lit = PaletteOf(Look::Highlight, QApplication::palette());
    return Shown<QWidget>(name)->palette().color(QPalette::Base) == lit.color(QPalette::Base);
  }
  std::vector<std::pair<int, std::function<void()>>> actions;
  [[nodiscard]] std::string Trim() const { return device.device.Value("01", "28"); }
};

TEST(LiveLoop, ShowsValueUnitAndLimitsWithTheStepsBesideThem) {
  LoopBench bench;
  bool looked = false;
  bench.At(1200, [&] {
    looked = true;
    EXPECT_EQ(bench.Shown<QLineEdit>("Text(13)")->text(), QStringLiteral("0.00"));
    EXPECT_EQ(bench.Shown<QLabel>("lbl_unit(13)")->text(), QStringLiteral("%"));
    EXPECT_EQ(bench.Shown<QLabel>("lblOutZeroLimits")->text(), QStringLiteral("-6% <= X <= 6%"));
    const QRect field = QRect(bench.Shown<QWidget>("Text(13)")->mapTo(&bench.window, QPoint()),
                              bench.Shown<QWidget>("Text(13)")->size());
    for (const char* name : {"lbl_unit(13)", "cmdOutZeroStart", "cmdOutZeroM01", "cmdOutZeroM001",
                             "cmdOutZeroP001", "cmdOutZeroP01", "cmdOutZeroReset", "lblOutZeroLimits"}) {
      const QWidget* widget = bench.Shown<QWidget>(name);
      EXPECT_TRUE(widget->isVisible()) << name;
      const QRect place(widget->mapTo(&bench.window, QPoint()), widget->size());
      EXPECT_LT(std::abs(place.center().y() - field.center().y()), field.height()) << name << " in its line";
      EXPECT_GT(place.left(), field.right()) << name;
      EXPECT_LE(place.right(), bench.window.width()) << name << " in view";
    }
  });
  bench.KeyAt(1500, Qt::Key_Space);
  bench.Run("cmdOutZeroStart");
  EXPECT_TRUE(looked);
  EXPECT_EQ(bench.Shown<QPushButton>("cmdOutZeroStart")->text(), QStringLiteral("START"));
}

TEST(LiveLoop, TheKeyboardStaysInTheLineWhereArrowsAndPagesStepAndSpaceStops) {
  LoopBench bench;
  bench.At(500, [] { EXPECT_EQ(LoopBench::Focused(), "cmdOutZeroStart"); });
  bench.KeyAt(600, Qt::Key_Up);
  bench.KeyAt(1600, Qt::Key_PageUp);
  bench.KeyAt(2600, Qt::Key_Down);
  bench.KeyAt(3600, Qt::Key_Space);
  bench.Run("cmdOutZeroStart");
  EXPECT_EQ(bench.Trim(), "0.0010 1.0000") << "+0.01 +0.1 -0.01 percent";
  EXPECT_EQ(bench.Shown<QPushButton>("cmdOutZeroStart")->text(), QStringLiteral("START"));
}

TEST(LiveLoop, TheKeysWorkInTheFieldToo) {
  LoopBench bench;
  bench.At(500, [&] { bench.Shown<QLineEdit>("Text(14)")->setFocus(); });
  bench.KeyAt(600, Qt::Key_PageDown);
  bench.At(2000, [&] { bench.Press("cmdOutSpanStart"); });
  bench.Run("cmdOutSpanStart");
  EXPECT_EQ(bench.Trim(), "0.0000 0.9990");
}

TEST(LiveLoop, APressIsLitAtOnceAndUntilItHasGoneOut) {
  LoopBench bench;
  std::vector<bool> lit;
  bench.KeyAt(600, Qt::Key_Up);
  for (const int at : {601, 900, 1700}) {
    bench.At(at, [&] { lit.push_back(bench.Lit("cmdOutZeroP001")); });
  }
  bench.KeyAt(1800, Qt::Key_Space);
  bench.Run("cmdOutZeroStart");
  EXPECT_EQ(lit, (std::vector{true, true, false}));
}

TEST(LiveLoop, AThresholdHasTheSameKeysAndAWholeVoltWithShift) {
  LoopBench bench;
  ASSERT_TRUE(bench.device.device.Set("01", "33", "5 Vp-p") && bench.device.device.Set("01", "30", "2.00"));
  bench.Upload();
  bench.KeyAt(700, Qt::Key_PageUp, Qt::ShiftModifier);
  bench.KeyAt(1900, Qt::Key_Down);
  bench.KeyAt(3200, Qt::Key_Space);
  bench.Run("cmdThresholdStart");
  EXPECT_EQ(bench.device.device.Value("01", "30"), "2.99");
  EXPECT_EQ(bench.Shown<QLabel>("lblThreshold")->text(), QStringLiteral("0.50V <= X <= 5.00V"));
}

TEST(LiveLoop, ItsKeysDoNothingWhileItDoesNotRunAndStandInTheTooltips) {
  LoopBench bench;
  bench.Shown<QLineEdit>("Text(13)")->setFocus();
  QTest::keyClick(bench.Shown<QLineEdit>("Text(13)"), Qt::Key_Up);
  EXPECT_EQ(bench.Trim(), "0.0000 1.0000");
  EXPECT_EQ(bench.Shown<QPushButton>("cmdOutZeroP001")->toolTip(),
            QKeySequence(Qt::Key_Up).toString(QKeySequence::NativeText));
  EXPECT_EQ(bench.Shown<QPushButton>("cmdOutZeroReset")->toolTip(), QString())
      << "no key by chance puts both ends back";
}

}  // namespace
}  // namespace korva
