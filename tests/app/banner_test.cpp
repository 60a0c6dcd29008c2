// What stands over the page: a forced output, and a close request that is held.

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>

#include "window_bench.h"

namespace korva {

namespace {

struct BannerBench : test::WindowBench {
  BannerBench() : WindowBench("QN") {
    Upload();
    Show(6);
    QTest::keyClicks(Find<QLineEdit>("Text(1)"), QStringLiteral("50"));
    Press("cmdSet");
  }
  [[nodiscard]] QColor TextColour(const char* name) {
    return Find<QWidget>(name)->palette().color(QPalette::Active, QPalette::Text);
  }
};

TEST(BannerTest, AForcedOutputStandsOverThePage) {
  BannerBench bench;
  const auto* banner = bench.Find<QLabel>("lblForced");
  EXPECT_TRUE(banner->isVisible());
  EXPECT_TRUE(banner->text().startsWith(QStringLiteral("出力を強制中  50")));
  bench.Press("cmdStatusMonOFF");
  EXPECT_FALSE(banner->isVisible());
}

TEST(BannerTest, ADimmedValueHasTheColourOfADisabledOne) {
  BannerBench bench;
  const QColor dimmed = QApplication::palette().color(QPalette::Disabled, QPalette::Text);
  EXPECT_EQ(bench.TextColour("Text(3)"), dimmed);
  EXPECT_NE(bench.TextColour("Text(2)"), dimmed);
  bench.Press("cmdStatusMonOFF");
  EXPECT_NE(bench.TextColour("Text(3)"), dimmed);
}

TEST(BannerTest, AHeldCloseRequestStandsOverThePage) {
  BannerBench bench;
  bench.window.close();
  EXPECT_TRUE(bench.window.isVisible());
  EXPECT_TRUE(bench.Find<QLabel>("lblHeldClose")->isVisible());
  bench.Press("cmdStatusMonOFF");
  EXPECT_TRUE(bench.device.loop.Gate().Ended());
}

TEST(BannerTest, StaysOnAnotherPageWhenTheOutputMayStillBeForced) {
  BannerBench bench;
  Page& former = bench.Page();
  bench.Choose(QStringLiteral("QHW"));  // locked
  EXPECT_EQ(&bench.Page(), &former);
  former.UnlockFrame();
  former.Shared().CommBusy = false;
  bench.device.dialogs.QueueAnswer(Answer::No);
  bench.Choose(QStringLiteral("QNA2"));
  ASSERT_NE(&bench.Page(), &former);
  EXPECT_TRUE(bench.Page().lblForced.Visible());
}

}  // namespace

}  // namespace korva
