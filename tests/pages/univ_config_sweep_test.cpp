// Whole operations of family QXI that no other page has in this form, broken at their exchanges and closed at
// their pumps: the download of a user's curve, and the exchange of the cold junction, which is silent.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/univ_config/univ_config.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

struct UnivSweep : SweepBench {
  UnivSweep() : SweepBench(u"QXI") { TakeTables(); }
  UnivConfig& Univ() { return dynamic_cast<UnivConfig&>(Page()); }

  /// A thermocouple with a curve of its own, of three points.
  void MakeCurve() {
    Pick(Page().Combo[0], u"Tc-99:USER");
    Do([this] {
      LnrTable& table = Univ().linearizer.Table();
      for (int row = 1; row <= 3; ++row) {
        table.Store(row, 1, FormatMask(row * 100.0, u"#0"));
        table.Store(row, 2, FormatMask(row * 4095.0, u"#0"));
      }
    });
    TakeBoxes();
    commands.clear();
  }
  /// Opens the frame of the cold junction with the data of a new module.
  void OpenJunction() {
    dialogs.QueueAnswer(Answer::Yes);
    Click(Univ().cold_junction.cmdChangeCJM);
    Type(u"34", u"25.5");
    Type(u"35", u"600");
    Page().DataChanged = false;
    TakeBoxes();
    commands.clear();
  }
  void WriteJunction() {
    dialogs.QueueAnswer(Answer::Yes);
    Click(Univ().cold_junction.cmdWriteInCJM);
  }
};

/// Of the many exchanges of a table all of the first values, and one in 37 behind them.
std::vector<Break> BreaksOfTable(std::size_t first_of_table, std::size_t exchanges) {
  constexpr std::size_t whole = 20;
  constexpr std::size_t one_in = 37;
  std::vector<Break> breaks = BreaksOf(exchanges);
  std::erase_if(breaks, [&](const Break& one) {
    return one.at < first_of_table || (one.at >= first_of_table + whole && one.at % one_in != 0);
  });
  return breaks;
}

TEST(UnivCurveSweep, ADownloadBrokenAtAnyExchangeOfTheCurveLeavesAPageThatCanBeUsed) {
  UnivSweep good;
  good.MakeCurve();
  good.Download();
  ASSERT_EQ(good.TakeBoxes(), (Texts{Shown(BoxKey::StartDownload), Shown(BoxKey::DownloadLinearizer),
                                     Shown(BoxKey::DownloadDone)}));
  const auto table = std::find(good.commands.begin(), good.commands.end(), "G02");
  ASSERT_NE(table, good.commands.end());
  const std::vector<Break> breaks =
      BreaksOfTable(static_cast<std::size_t>(table - good.commands.begin()), good.commands.size());
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    UnivSweep bench;
    bench.MakeCurve();
    bench.StartBreak(line_break);
    const Clock begin = bench.loop.Now();
    bench.Download();
    EXPECT_LT(bench.loop.Now() - begin, kLongestRun);
    bench.ExpectUsable();
    const Texts boxes = bench.TakeBoxes();
    if (boxes.back() == Shown(BoxKey::DownloadDone)) {
      EXPECT_EQ(bench.device.Value("02", "03"), "8190.00");
      EXPECT_EQ(bench.device.Value("02", "04"), "300.00");
    }
    EXPECT_EQ(bench.Univ().linearizer.LnrFlexGrid.At(2, 2).text, u"8190") << "the page keeps its points";
    ASSERT_FALSE(HasFailure());
  }
  TellShare("QXI: curves with a broken exchange", breaks.size(), 9 * good.commands.size());
}

TEST(UnivJunctionSweep, BrokenAtAnyExchangeTheReportIsTrueAndThePageCanBeUsed) {
  UnivSweep good;
  good.OpenJunction();
  good.WriteJunction();
  ASSERT_EQ(good.TakeBoxes(), (Texts{Shown(BoxKey::ChangeCjm), Shown(BoxKey::CjmChanged)}));
  const std::vector<Break> breaks = BreaksOf(good.commands.size());
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    UnivSweep bench;
    bench.OpenJunction();
    bench.StartBreak(line_break);
    bench.WriteJunction();
    bench.ExpectUsable();
    const Texts boxes = bench.TakeBoxes();
    // Behind a report of success the closing may still find the device gone.
    if (std::find(boxes.begin(), boxes.end(), Shown(BoxKey::CjmChanged)) != boxes.end()) {
      EXPECT_EQ(bench.device.Value("01", "34"), "25.5");
      EXPECT_EQ(bench.device.Value("01", "35"), "600");
    } else {
      const bool told = boxes.size() == 1 || boxes[1] == Shown(BoxKey::CommFailure) ||
                        boxes[1] == Shown(BoxKey::NotProgrammingMode) ||
                        boxes[1] == Shown(BoxKey::NotMonitorMode);
      EXPECT_TRUE(told) << testing::PrintToString(boxes);
    }
    if (!line_break.for_good) {
      EXPECT_EQ(bench.device.Mode(), '0');
    }
    bench.ExpectUploadWorks();
    ASSERT_FALSE(HasFailure());
  }
  TellShare("QXI: cold junctions with a broken exchange", breaks.size(), 9 * good.commands.size());
}

TEST(UnivJunctionSweep, ClosedAtAnyPumpTheProgramEndsWhenTheDeviceIsBackInMonitorMode) {
  UnivSweep whole;
  whole.OpenJunction();
  const std::size_t before = whole.loop.PumpCount();
  whole.WriteJunction();
  const std::size_t pumps = whole.loop.PumpCount() - before;
  for (const std::size_t at : SampledPumps(pumps)) {
    SCOPED_TRACE(at);
    UnivSweep bench;
    bench.OpenJunction();
    bench.loop.OnPump([&, first = bench.loop.PumpCount() + 1, at] {
      if (bench.loop.PumpCount() == first + at) {
        bench.app.program.PressClose();
      }
    });
    bench.WriteJunction();
    EXPECT_EQ(bench.status, 0);
    EXPECT_EQ(bench.device.Mode(), '0');
    EXPECT_EQ(bench.device.Value("01", "34"), "25.5");
    EXPECT_EQ(bench.device.Value("01", "35"), "600");
    ASSERT_FALSE(HasFailure());
  }
  TellShare("QXI: cold junctions closed", SampledPumps(pumps).size(), pumps);
}

}  // namespace
}  // namespace korva::test
