// Each exchange of a transfer of family Second is broken in turn. Whatever happens, the page can be used
// again and has lost nothing, and a download that reports success has been taken by the device to the letter.

#include <gtest/gtest.h>

#include "kv_config_v2_bench.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// A device that holds the maker's values behind a page whose values are others.
struct SweptBench : V2Bench {
  SweptBench() : V2Bench(u"QIC") {
    BoxesOfUpload();
    Type(u"02", u"SWEEP");
    Type(u"10", u"12.5");
    Pick(V2().units.cbo_unit[0], u"kHz");
    Type(u"08", u"25");
    Type(u"30", u"1.00");
    Pick(V2().Combo[0], u"3:CURRENT PULSE");
    Pick(V2().Combo[2], u"2:HOLD");
    V2().DataChanged = false;
  }
  void StartBreak(const Break& line_break) {
    const int first = device.Exchanges() + 1 + static_cast<int>(line_break.at);
    device.AddFault({.fault = line_break.fault,
                     .first = first,
                     .last = line_break.for_good ? sim::FaultRule::kForGood : first,
                     .command = {}});
  }
};

TEST(V2SweepTest, ADownloadReportsSuccessOnlyWhenTheDeviceHoldsTheSet) {
  SweptBench good;
  ASSERT_EQ(good.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  int succeeded = 0;
  int failed = 0;
  for (const Break& line_break : BreaksOf(good.line.Commands().size())) {
    SCOPED_TRACE(line_break.Name());
    SweptBench bench;
    const Texts kept = bench.SetOf();
    bench.StartBreak(line_break);
    const Texts boxes = bench.BoxesOfDownload();
    bench.ExpectAtRest();
    EXPECT_EQ(bench.SetOf(), kept);
    ASSERT_FALSE(boxes.empty());
    if (std::find(boxes.begin(), boxes.end(), Shown(BoxKey::DownloadDone)) != boxes.end()) {
      ++succeeded;
      bench.ExpectDeviceHoldsTheSet();
    } else {
      ++failed;
    }
    if (::testing::Test::HasFailure()) {
      return;
    }
  }
  EXPECT_GT(succeeded, 0);
  EXPECT_GT(failed, 0);
}

}  // namespace
}  // namespace korva::test
