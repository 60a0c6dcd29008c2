// What goes with the writes of a download: the page's parts, a close request.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "download_fixture.h"

namespace korva::test {
namespace {

// The page's parts.

TEST_F(DownloadTest, PartsFollowTheItemsBeforeTheReport) {
  bench.page->table.on_download = [&] {
    EXPECT_TRUE(Wrote("01/23=1")) << "the last item";
    EXPECT_EQ(bench.line.writes.back(), "01/01=0") << "the device is back in monitor mode";
    EXPECT_EQ(bench.page->TransferBar.Value(), 0.0F);
    EXPECT_EQ(BoxesAfterStart(), Texts{});
    EXPECT_TRUE(bench.page->Shared().DownloadBusy);
    EXPECT_FALSE(bench.page->cmdDownload.Enabled());
  };
  bench.Download();
  EXPECT_EQ(bench.page->notes, (Texts{"round", "check table", "download table"}));
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(DownloadTest, APartThatFailsEndsItWithoutTheReport) {
  bench.page->table.written = false;
  bench.page->AddPart("second");
  bench.Download();
  EXPECT_EQ(bench.page->notes, (Texts{"round", "check table", "check second", "download table"}));
  EXPECT_EQ(BoxesAfterStart(), Texts{});
  EXPECT_TRUE(bench.line.Sent().ends_with("G01 I01 D0 G01 I01 D0"));
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(DownloadTest, PartsAreAskedInTheirOrder) {
  bench.page->AddPart("second");
  bench.Download();
  EXPECT_EQ(bench.page->notes,
            (Texts{"round", "check table", "check second", "download table", "download second"}));
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(DownloadTest, APartThatIsNotGoodStopsItBeforeProgrammingMode) {
  for (const auto& [finding, box] :
       {std::pair{Finding::Blank, BoxKey::FieldBlank}, std::pair{Finding::Bad, BoxKey::ValueBad}}) {
    bench.page->table.finding = finding;
    bench.Download();
    EXPECT_EQ(bench.Boxes().back(), Shown(box));
    EXPECT_EQ(bench.page->notes, (Texts{"round", "check table"}));
    EXPECT_FALSE(Wrote("01/01=1"));
    EXPECT_TRUE(bench.AtRest());
  }
}

TEST_F(DownloadTest, WhereAnItemFailsNoPartIsWritten) {
  bench.line.echoes["01/16"] = {"CNG"};
  bench.Download();
  EXPECT_EQ(bench.page->notes, (Texts{"round", "check table"}));
}

// Closing.

TEST_F(DownloadTest, ACloseRequestIsHeldOffUntilTheEndAndTheFrameTellsSo) {
  bool pressed = false;
  bool shown = false;
  bench.host.loop.OnPump([&] {
    if (!pressed && bench.line.Commands().size() == 12) {
      pressed = true;
      bench.program.PressClose();
      shown = bench.page->flaMsg_CannotEnd.Visible();
      bench.program.PressClose();
      EXPECT_TRUE(bench.page->flaMsg_CannotEnd.Visible());
    }
  });
  bench.Download();
  EXPECT_TRUE(shown);
  EXPECT_TRUE(bench.ended);
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_TRUE(bench.line.Sent().ends_with("G01 I01 D0 G01 I01 D0"));
}

TEST_F(DownloadTest, ACloseRequestDuringADownloadThatFailsKeepsTheWindowWithItsMessage) {
  bench.line.echoes["01/16"] = {"CNG"};
  bool pressed = false;
  bench.host.loop.OnPump([&] {
    if (!pressed) {
      pressed = true;
      bench.program.PressClose();
    }
  });
  bench.Download();
  EXPECT_FALSE(bench.ended);
  EXPECT_TRUE(bench.AtRest());
  EXPECT_FALSE(bench.page->flaMsg_CannotEnd.Visible());
}

}  // namespace
}  // namespace korva::test
