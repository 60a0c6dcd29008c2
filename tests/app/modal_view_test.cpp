// The small window that stands over the page while a device restarts.

#include "app/modal_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QProgressBar>

#include "window_bench.h"

namespace korva {
namespace {

using namespace std::chrono_literals;

constexpr int kModbusTab = 5;

struct ModalViewTest : testing::Test {
  ModalViewTest() { bench.Show(kModbusTab); }

  /// Presses the reset; `look` is called while its window stands.
  void Reset(const std::function<void(ModalView& view)>& look) {
    bool looked = false;
    bench.device.loop.After(2600ms, [&] {
      look(*bench.Find<ModalView>("frmWaiting"));
      looked = true;
    });
    bench.Press("cmdResetModbus");
    EXPECT_TRUE(looked);
  }

  test::WindowBench bench{"Z2WU"};
};

TEST_F(ModalViewTest, ShowsItsTextAndItsBarOverThePage) {
  Reset([&](ModalView& view) {
    EXPECT_TRUE(view.isVisible());
    EXPECT_TRUE(view.isModal());
    EXPECT_EQ(view.findChild<QLabel*>("lblResetMsg")->text(),
              QStringLiteral("ｼｽﾃﾑをﾘｾｯﾄしています。\nしばらくお待ち下さい"));
    EXPECT_EQ(view.findChild<QProgressBar*>("Reset_ProgressBar")->value(), 50);
  });
  EXPECT_FALSE(bench.Find<ModalView>("frmWaiting")->isVisible());
}

TEST_F(ModalViewTest, StandsThereAgainAtTheNextReset) {
  Reset([](ModalView& /*view*/) {});
  Reset([&](ModalView& view) {
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(bench.window.findChildren<ModalView*>().size(), 1);
  });
}

TEST_F(ModalViewTest, TakesPressesAndKeysFromThePageAndIsClosedByNone) {
  Reset([&](ModalView& view) {
    EXPECT_EQ(QApplication::activeModalWidget(), &view);
    EXPECT_FALSE(bench.window.Current()->findChild<QWidget*>("cmdCheck")->isEnabled());
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_TRUE(view.isVisible());
  });
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(bench.window.Current()->findChild<QWidget*>("cmdCheck")->isEnabled());
}

TEST_F(ModalViewTest, AWishToCloseItIsOneThatTheProgramEnd) {
  std::optional<int> status;
  bench.application.program.OnEnded([&](int exit_status) { status = exit_status; });
  Reset([&](ModalView& view) {
    view.close();
    EXPECT_TRUE(view.isVisible()) << "it goes with the program";
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace korva
