// A port that breaks in the middle of an operation, and one that is back for the next.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/text_utilities.h"
#include "page_bench.h"
#include "support/page_parts.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// A program with a device of the model, on a port that can be unplugged.
struct UnpluggedBench : PageBench {
  explicit UnpluggedBench(String its_model) : model(std::move(its_model)) {
    Connect(model);
    Choose(model);
  }
  void Unplug() { port.Remove(1); }
  void UnplugAfter(int commands) {
    app.link.line.OnTraffic = [this, commands](const SerialLink::Traffic& traffic) {
      sent += traffic.sent ? 1 : 0;
      if (traffic.sent && sent == commands) {
        Unplug();
      }
    };
  }
  void PlugIn() { Connect(model); }

  String model;
  int sent = 0;
};

struct BrokenPortTest : testing::TestWithParam<const char16_t*> {};
INSTANTIATE_TEST_SUITE_P(Model, BrokenPortTest, testing::Values(u"QHW", u"QEY", u"QNA2"),
                         [](const auto& one) { return ToUtf8(one.param); });

TEST_P(BrokenPortTest, AnUploadWhosePortGoesAwayIsOverInSeconds) {
  UnpluggedBench bench(GetParam());
  bench.UnplugAfter(20);
  const Clock begin = bench.loop.Now();
  bench.Upload();
  EXPECT_LT(bench.loop.Now() - begin, Clock(std::chrono::seconds(10)));
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::UploadDone));
}

TEST_P(BrokenPortTest, ADownloadWhosePortGoesAwayIsOverInSecondsAndTellsIt) {
  UnpluggedBench bench(GetParam());
  bench.Upload();
  bench.TakeBoxes();
  bench.UnplugAfter(20);
  const Clock begin = bench.loop.Now();
  bench.Download();
  EXPECT_LT(bench.loop.Now() - begin, Clock(std::chrono::seconds(15)));
  const Texts boxes = bench.TakeBoxes();
  EXPECT_EQ(std::count(boxes.begin(), boxes.end(), Shown(BoxKey::DownloadDone)), 0);
}

TEST_P(BrokenPortTest, TheNextUploadOpensAPortThatIsBackWithoutAClickOnIt) {
  UnpluggedBench bench(GetParam());
  bench.Unplug();
  bench.Upload();
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::CommFailure)});
  bench.PlugIn();
  bench.Click(bench.Page().cmdUpload);
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::UploadDone));
}

TEST_P(BrokenPortTest, SoDoesEachOtherOperation) {
  UnpluggedBench bench(GetParam());
  bench.Upload();
  bench.Page().DataChanged = false;
  const auto replug = [&bench] {
    bench.Unplug();
    bench.PlugIn();
    bench.TakeBoxes();
  };
  replug();
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  replug();
  bench.loop.After(std::chrono::seconds(2),
                   [&bench] { Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
  bench.Click(Part<StatusMonitor>(bench.Page()).cmdMonitorON);
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
  replug();
  bench.ForceOutput(u"50");
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
}

TEST_P(BrokenPortTest, OffReleasesAnOutputThoughThePortBrokeMeanwhile) {
  UnpluggedBench bench(GetParam());
  bench.Upload();
  bench.TakeBoxes();
  bench.ForceOutput(u"50");
  bench.Unplug();
  bench.PlugIn();
  bench.Click(Part<OutputSetting>(bench.Page()).cmdStatusMonOFF);
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
  EXPECT_EQ(bench.app.link.line.PortOpen(), true);
}

TEST(MonitorOfABrokenPortTest, KeepsItsPaceAndShowsValuesNoMore) {
  UnpluggedBench bench(u"QHW");
  bench.Upload();
  bench.TakeBoxes();
  bench.loop.After(std::chrono::seconds(5), [&bench] { bench.Unplug(); });
  bench.loop.After(std::chrono::seconds(20),
                   [&bench] { Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
  const Clock begin = bench.loop.Now();
  bench.Click(Part<StatusMonitor>(bench.Page()).cmdMonitorON);
  EXPECT_GE(bench.loop.Now() - begin, Clock(std::chrono::seconds(20)));
  EXPECT_EQ(bench.Field(u"05").Text(), u"");
}

}  // namespace
}  // namespace korva::test
