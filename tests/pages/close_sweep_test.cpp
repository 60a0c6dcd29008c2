// The close box is pressed at each pump of an upload, of a download, of a monitor run and of a forced output
// in turn.

#include <gtest/gtest.h>

#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "page_bench.h"
#include "support/page_parts.h"
#include "support/sampled.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// A program with a device of the model, whose set has been uploaded and changed.
class CloseBench : public PageBench {
 public:
  explicit CloseBench(const String& model) : device(Connect(model)) {
    Choose(model);
    Upload();
    Type(u"02", u"PUMP 1");
    Page().DataChanged = false;
    TakeBoxes();
    app.link.line.OnTraffic = [this](const SerialLink::Traffic& traffic) { sent += traffic.sent ? 1 : 0; };
    first_pump = loop.PumpCount() + 1;
  }
  /// Presses the close box at pump `at` of what follows (from 0), `times` over.
  void CloseAt(std::size_t at, int times = 1) {
    loop.OnPump([this, at, times] {
      if (loop.PumpCount() == first_pump + at) {
        sent_at_close = sent;
        closed = loop.Now();
        for (int press = 0; press < times; ++press) {
          app.program.PressClose();
          told = told || Page().flaMsg_CannotEnd.Visible();
        }
      }
    });
  }
  [[nodiscard]] bool Blinks() {
    return Part<OutputSetting>(Page()).Item03_MonitorTimer.Running() ||
           Part<StatusMonitor>(Page()).Item04_lblUnitTimer.Running() ||
           Part<StatusMonitor>(Page()).Item06_lblUnitTimer.Running();
  }
  [[nodiscard]] std::size_t Pumps() const { return loop.PumpCount() + 1 - first_pump; }

  sim::Device& device;
  std::size_t first_pump = 0;
  int sent = 0;
  int sent_at_close = 0;
  Clock closed{0};
  bool told = false;  ///< the frame that tells that the program can't end was seen
};

/// A model of each page, one that is polled slowly, and all that have two outputs.
struct CloseSweepTest : testing::TestWithParam<String> {};
INSTANTIATE_TEST_SUITE_P(Model, CloseSweepTest,
                         testing::Values(u"QL", u"QXI", u"QEY", u"QICE", u"QNA2", u"Z2WT", u"Z2WQ", u"Z2WPA",
                                         u"Z2WPL", u"Z2WU", u"Z8WV2", u"Z8WM2", u"Z8WT2", u"Z8WR2"),
                         [](const auto& one) { return ToUtf8(one.param); });

TEST_P(CloseSweepTest, ClosedAtAnyPumpAnUploadEndsTheProgramWithinOneExchange) {
  CloseBench whole(GetParam());
  whole.Upload();
  const std::size_t pumps = whole.Pumps();
  ASSERT_GT(pumps, 20U);
  for (const std::size_t at : SampledPumps(pumps)) {
    SCOPED_TRACE(at);
    CloseBench bench(GetParam());
    bench.CloseAt(at);
    bench.Upload();
    EXPECT_EQ(bench.status, 0);
    EXPECT_LE(bench.sent, bench.sent_at_close) << "no exchange begins after the one under way";
    EXPECT_FALSE(bench.told);
    for (const std::string& box : bench.TakeBoxes()) {
      EXPECT_NE(box, Shown(BoxKey::UploadDone));
    }
  }
  TellShare(ToUtf8(GetParam()) + ": uploads closed", SampledPumps(pumps).size(), pumps);
}

TEST_P(CloseSweepTest, ClosedAtAnyPumpADownloadTellsThatItCannotEndGoesToItsEndAndThenEnds) {
  CloseBench whole(GetParam());
  whole.Download();
  const std::size_t pumps = whole.Pumps();
  const int exchanges = whole.sent;
  ASSERT_GT(pumps, 20U);
  for (const std::size_t at : SampledPumps(pumps)) {
    for (const int times : {1, 2}) {
      SCOPED_TRACE(at);
      CloseBench bench(GetParam());
      bench.CloseAt(at, times);
      bench.Download();
      EXPECT_TRUE(bench.told);
      EXPECT_EQ(bench.sent, exchanges);
      EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::StartDownload), Shown(BoxKey::DownloadDone)}));
      EXPECT_EQ(bench.status, 0);
      EXPECT_EQ(bench.device.Mode(), '0');
      EXPECT_EQ(Trimmed(FromUtf8(bench.device.Value("01", "02"))), u"PUMP 1");
    }
  }
  TellShare(ToUtf8(GetParam()) + ": downloads closed", 2 * SampledPumps(pumps).size(), 2 * pumps);
}

TEST_P(CloseSweepTest, ClosedAtAnyPumpADownloadThatFailsKeepsTheWindowAndTheNextUploadRuns) {
  CloseBench whole(GetParam());
  whole.device.AddFault({.fault = sim::Fault::WrongEcho, .command = "DPUMP 1"});
  whole.Download();
  const std::size_t pumps = whole.Pumps();
  for (const std::size_t at : SampledPumps(pumps)) {
    SCOPED_TRACE(at);
    CloseBench bench(GetParam());
    bench.device.AddFault({.fault = sim::Fault::WrongEcho, .command = "DPUMP 1"});
    bench.CloseAt(at);
    bench.Download();
    EXPECT_TRUE(bench.told);
    EXPECT_FALSE(bench.status.has_value());
    EXPECT_FALSE(bench.Page().flaMsg_CannotEnd.Visible());
    const Texts boxes = bench.TakeBoxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_NE(boxes.back().find("ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"), std::string::npos) << boxes.back();
    bench.Upload();
    EXPECT_FALSE(bench.status.has_value());
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::UploadDone));
  }
  TellShare(ToUtf8(GetParam()) + ": failing downloads closed", SampledPumps(pumps).size(), pumps);
}

// --- the I/O check tab

TEST_P(CloseSweepTest, ClosedAtAnyPumpTheMonitorEndsTheProgramWithinHalfASecond) {
  const auto monitor = [](CloseBench& bench) {
    bench.loop.After(std::chrono::seconds(5),
                     [&bench] { Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
    bench.Click(Part<StatusMonitor>(bench.Page()).cmdMonitorON);
  };
  CloseBench whole(GetParam());
  monitor(whole);
  EXPECT_FALSE(whole.status.has_value());
  const std::size_t pumps = whole.Pumps();
  ASSERT_GT(pumps, 20U);
  for (const std::size_t at : SampledPumps(pumps)) {
    SCOPED_TRACE(at);
    CloseBench bench(GetParam());
    bench.CloseAt(at);
    monitor(bench);
    EXPECT_EQ(bench.status, 0);
    EXPECT_LE(bench.sent, bench.sent_at_close) << "no exchange begins after the one under way";
    EXPECT_LE(bench.loop.Now() - bench.closed, std::chrono::milliseconds(510));
    EXPECT_FALSE(bench.told);
    EXPECT_EQ(bench.TakeBoxes(), Texts{});
    EXPECT_FALSE(bench.Blinks());
  }
  TellShare(ToUtf8(GetParam()) + ": monitor runs closed", SampledPumps(pumps).size(), pumps);
}

TEST_P(CloseSweepTest, ClosedAtAnyPumpBeforeTheOutputIsHeldTheProgramEndsWithinOneExchange) {
  CloseBench whole(GetParam());
  whole.ForceOutput(u"50");
  const std::size_t pumps = whole.Pumps();
  ASSERT_GE(pumps, 6U) << "one for each exchange, and those of a slow line besides";
  for (const std::size_t at : SampledPumps(pumps)) {
    SCOPED_TRACE(at);
    CloseBench bench(GetParam());
    bench.CloseAt(at);
    bench.ForceOutput(u"50");
    EXPECT_EQ(bench.status, 0);
    EXPECT_LE(bench.sent, bench.sent_at_close) << "no exchange begins after the one under way";
    EXPECT_FALSE(bench.told);
    EXPECT_EQ(bench.TakeBoxes(), Texts{});
    EXPECT_FALSE(bench.Blinks());
  }
  TellShare(ToUtf8(GetParam()) + ": output settings closed", SampledPumps(pumps).size(), pumps);
}

/// An output is forced, and the pumps of its end are counted.
struct ForcedBench : CloseBench {
  explicit ForcedBench(const String& model, std::optional<sim::FaultRule> fault = std::nullopt)
      : CloseBench(model) {
    ForceOutput(u"50");
    sent = 0;
    first_pump = loop.PumpCount() + 1;
    if (fault) {
      fault->first += device.Exchanges();
      fault->last = fault->last == sim::FaultRule::kForGood ? fault->last : fault->last + device.Exchanges();
      device.AddFault(*fault);
    }
  }
  void Off() { Click(Part<OutputSetting>(Page()).cmdStatusMonOFF); }
};

TEST_P(CloseSweepTest, ClosedWhileTheOutputIsHeldTheProgramEndsWhenOffHasReleasedIt) {
  for (const int times : {1, 2}) {
    ForcedBench bench(GetParam());
    for (int press = 0; press < times; ++press) {
      bench.app.program.PressClose();
    }
    bench.loop.RunFor(std::chrono::seconds(60));
    EXPECT_FALSE(bench.status.has_value());
    EXPECT_EQ(bench.sent, 0);
    EXPECT_EQ(bench.device.Value("01", bench.device.GetFamily().output_item), "50.00");
    bench.Off();
    EXPECT_EQ(bench.status, 0);
    EXPECT_EQ(bench.sent, 3);
    EXPECT_EQ(bench.device.Mode(), '0');
    EXPECT_EQ(bench.TakeBoxes(), Texts{});
  }
}

/// True when the break of one exchange of Off is mended by a repeat. In the dialect of titles a refusal of
/// the data is taken for the device's answer. Family Third repeats a mode command once only, which a late
/// reply uses up.
bool IsMended(const Family& family, sim::Fault fault, int exchange) {
  if (family.dialect == Dialect::EnterItem) {
    return fault != sim::Fault::Refused || exchange < 3;
  }
  return family.word != u"Third" || fault != sim::Fault::Late;
}

TEST_P(CloseSweepTest, ClosedAtAnyPumpOfOffTheOutputIsReleasedBeforeTheProgramEnds) {
  int runs = 0;
  for (const sim::Fault fault : {sim::Fault::ByteByByte, sim::Fault::Silent, sim::Fault::Refused,
                                 sim::Fault::Garbled, sim::Fault::Late, sim::Fault::Doubled}) {
    for (int exchange = 1; exchange <= 3; ++exchange) {
      if (!IsMended(FamilyOf(GetParam()), fault, exchange)) {
        continue;
      }
      const sim::FaultRule rule{.fault = fault, .first = exchange, .last = exchange, .command = {}};
      ForcedBench whole(GetParam(), rule);
      whole.Off();
      EXPECT_FALSE(whole.status.has_value());
      const std::size_t pumps = whole.Pumps();
      for (const std::size_t at : SampledPumps(pumps)) {
        SCOPED_TRACE(std::to_string(static_cast<int>(fault)) + " in " + std::to_string(exchange) +
                     ", closed at " + std::to_string(at));
        ForcedBench bench(GetParam(), rule);
        bench.CloseAt(at);
        bench.Off();
        ++runs;
        EXPECT_TRUE(bench.told);
        EXPECT_EQ(bench.sent, whole.sent);
        EXPECT_EQ(bench.device.Mode(), '0');
        EXPECT_EQ(bench.status, 0);
        EXPECT_EQ(bench.TakeBoxes(), Texts{});
      }
    }
  }
  std::cout << ToUtf8(GetParam()) << ": releases closed: " << runs << '\n';
}

TEST_P(CloseSweepTest, ClosedAtAnyPumpOfAnOffThatFailsTheWindowStaysAndOffCanBePressedAgain) {
  const sim::FaultRule cable_pulled{.fault = sim::Fault::Silent, .command = {}};
  ForcedBench whole(GetParam(), cable_pulled);
  whole.Off();
  const std::size_t pumps = whole.Pumps();
  ASSERT_GT(pumps, 1U);
  for (const std::size_t at : SampledPumps(pumps)) {
    SCOPED_TRACE(at);
    ForcedBench bench(GetParam(), cable_pulled);
    bench.CloseAt(at);
    bench.Off();
    EXPECT_TRUE(bench.told);
    EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::NotMonitorMode)});
    EXPECT_FALSE(bench.status.has_value());
    EXPECT_FALSE(bench.Page().flaMsg_CannotEnd.Visible());
    EXPECT_EQ(bench.device.Mode(), '1');
    bench.device.ClearFaults();
    bench.Off();
    EXPECT_EQ(bench.device.Mode(), '0');
    EXPECT_FALSE(bench.status.has_value()) << "the request went with the failure that the user was told of";
    bench.Page().DataChanged = false;
    bench.app.program.PressClose();
    EXPECT_EQ(bench.status, 0);
  }
  TellShare(ToUtf8(GetParam()) + ": failing releases closed", SampledPumps(pumps).size(), pumps);
}

}  // namespace
}  // namespace korva::test
