#include "companions/watch_panel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "monitor/output_trim.h"
#include "monitor/status_monitor.h"
#include "monitor/threshold.h"
#include "pages/page_bench.h"
#include "support/memory_records.h"
#include "support/page_parts.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Fault = MemoryRecords::Fault;
using Texts = std::vector<std::string>;

const String kRecord = u"/korva/record.csv";

/// A device of a model, and a program that shows its values in large. Its live values stand still.
class WatchBench : public PageBench {
 public:
  explicit WatchBench(const String& model) : device(Connect(model)) {
    Choose(model);
    Upload();
    TakeBoxes();
    panel.RecordTo(records);
  }
  /// The user's action, so long after the present.
  void At(Clock delay, std::function<void()> action) { loop.After(delay, std::move(action)); }
  void StopAt(Clock delay) {
    At(delay, [this] { Part<StatusMonitor>(Page()).cmdMonitorOFF.Click(); });
  }
  void Monitor() { Click(Part<StatusMonitor>(Page()).cmdMonitorON); }
  [[nodiscard]] WatchPanel::Tile Tile(std::size_t place) const {
    return panel.TileOf(panel.Values().at(place));
  }
  /// The lines of the record.
  [[nodiscard]] Texts Recorded() const {
    Texts lines;
    String text = code_page.Decode(records.Bytes(kRecord));
    for (std::size_t end = 0; (end = text.find(u"\r\n")) != String::npos; text.erase(0, end + 2)) {
      lines.push_back(ToUtf8(text.substr(0, end)));
    }
    EXPECT_EQ(text, u"");
    return lines;
  }

  sim::Device& device;
  MemoryRecords records{loop};
  WatchPanel& panel = app.companions.ValuesInLarge();
};

/// QHW reads the items 05 to 08.
class WatchPanelTest : public testing::Test {
 protected:
  WatchPanelTest() {
    for (const char* item : {"05", "06", "07", "08"}) {
      EXPECT_TRUE(bench.device.Set("01", item, "12.5"));
    }
  }
  void Press(Button& button) {
    ASSERT_EQ(button.Refused(), Refusal::None);
    bench.Do([&] { button.Click(); });
  }

  WatchBench bench{u"QHW"};
  WatchPanel& panel = bench.panel;
  MemoryRecords& records = bench.records;
};

TEST_F(WatchPanelTest, SaysWhatToDoUntilThereAreValues) {
  EXPECT_EQ(panel.Title(), u"現在値ﾓﾆﾀ");
  EXPECT_EQ(panel.Heading(), u"I/Oﾁｪｯｸの測定を開始すると、現在の値を表示します。");
  EXPECT_EQ(panel.cmdWatchAnew.Refused(), Refusal::Disabled);
  EXPECT_EQ(panel.cmdRecord.Refused(), Refusal::Disabled);
  bench.Click(ButtonOf(bench.Page(), "cmdWatch"));
  EXPECT_TRUE(panel.Visible());
}

TEST_F(WatchPanelTest, ShowsTheValuesWithLeastAndMostAsTheMonitorReadsThem) {
  bench.At(8s, [this] { EXPECT_TRUE(bench.device.Set("01", "05", "-3.75")); });
  bench.StopAt(16s);
  bench.Monitor();
  ASSERT_EQ(panel.Values().size(), 4U);
  EXPECT_EQ(bench.Tile(0).caption, u"05  入力値");
  EXPECT_EQ(bench.Tile(0).text, u"-3.75");
  EXPECT_EQ(bench.Tile(0).unit, u"%");
  EXPECT_EQ(bench.Tile(0).least, u"最小 -3.75");
  EXPECT_EQ(bench.Tile(0).most, u"最大 12.50");
}

TEST_F(WatchPanelTest, AnItemThatDoesNotAnswerIsDimmedAndTellsForHowLong) {
  bench.At(6s, [this] { bench.device.AddFault(sim::ParseFault("silent=I06")); });
  std::vector<String> ages;
  bench.At(30s, [this, &ages] { ages.push_back(bench.Tile(1).age); });
  bench.At(31s, [this, &ages] { ages.push_back(bench.Tile(1).age); });
  bench.At(30s, [this] {
    EXPECT_EQ(bench.Tile(1).text, u"12.50");
    EXPECT_TRUE(bench.Tile(1).old);
    EXPECT_EQ(bench.Tile(0).age, u"");
    EXPECT_FALSE(bench.Tile(0).old);
    EXPECT_EQ(bench.Page().FindField(u"06")->Text(), u"") << "the page's field stays the monitor's";
  });
  bench.StopAt(32s);
  bench.Monitor();
  ASSERT_EQ(ages.size(), 2U);
  const auto seconds = [](const String& age) { return LeadingInteger(age.substr(5)); };
  EXPECT_TRUE(ages[0].starts_with(u"応答なし ")) << ToUtf8(ages[0]);
  EXPECT_EQ(seconds(ages[1]), seconds(ages[0]) + 1);
  EXPECT_GT(seconds(ages[0]), 20);
}

TEST_F(WatchPanelTest, KeepsTheValuesWithTheirAgeUntilThePageShowsSomethingElse) {
  bench.StopAt(5s);
  bench.Monitor();
  EXPECT_EQ(bench.Tile(0).text, u"12.50");
  bench.loop.RunFor(60s);
  EXPECT_TRUE(bench.Tile(0).old);
  EXPECT_TRUE(bench.Tile(0).age.ends_with(u" 秒前")) << ToUtf8(bench.Tile(0).age);
  bench.Page().DataChanged = false;  // by the live values, which stand in the set
  bench.Upload();
  EXPECT_TRUE(panel.Values().empty());
  bench.StopAt(5s);
  bench.Monitor();
  EXPECT_FALSE(panel.Values().empty());
  bench.Page().DataChanged = false;
  bench.Choose(u"QEY");
  EXPECT_TRUE(panel.Values().empty()) << "also by a model of another page";
}

TEST_F(WatchPanelTest, AModelWhoseDefinitionIsMissingLeavesNoValuesOfAnother) {
  bench.StopAt(5s);
  bench.Monitor();
  bench.Page().DataChanged = false;
  bench.files.Remove(DefPath(u"QL"));
  bench.Choose(u"QL");
  EXPECT_TRUE(panel.Values().empty());
}

TEST_F(WatchPanelTest, CountsAgesEachSecondWhileItIsOpenOnly) {
  bench.StopAt(5s);
  bench.Monitor();
  int told = 0;
  panel.Observe([&told] { ++told; });
  bench.loop.RunFor(10s);
  EXPECT_EQ(told, 0);
  panel.Open();
  told = 0;
  bench.loop.RunFor(10s);
  EXPECT_EQ(told, 10);
  panel.Close();
  told = 0;
  bench.loop.RunFor(10s);
  EXPECT_EQ(told, 0);
}

TEST_F(WatchPanelTest, ClearsLeastAndMostWhenTheUserWantsIt) {
  bench.At(5s, [this] { EXPECT_TRUE(bench.device.Set("01", "05", "20.00")); });
  bench.At(10s, [this] { panel.cmdWatchAnew.Click(); });
  bench.At(10s, [this] { EXPECT_EQ(bench.Tile(0).least, u""); });
  bench.StopAt(15s);
  bench.Monitor();
  EXPECT_EQ(bench.Tile(0).least, u"最小 20.00");
}

// --- the pace

/// What went over the line, and when.
using Traffic = std::vector<std::pair<Clock, String>>;

/// The traffic of half a minute of the monitor, in which an item falls silent for a while. `during` is called
/// with the bench before the monitor begins.
Traffic TrafficOf(const std::function<void(WatchBench&)>& during) {
  WatchBench bench(u"QHW");
  Traffic traffic;
  bench.app.link.line.OnTraffic = [&](const SerialLink::Traffic& one) {
    traffic.emplace_back(bench.loop.Now(), one.text);
  };
  bench.At(8s, [&bench] { bench.device.AddFault(sim::ParseFault("silent=I06")); });
  bench.StopAt(30s);
  during(bench);
  bench.Monitor();
  traffic.emplace_back(bench.loop.Now(), u"end");
  EXPECT_EQ(bench.Page().Shared().CommBusy, false);
  return traffic;
}

TEST(WatchPaceTest, TrafficAndTimesAreTheSameOpenClosedAskingRecordingAndFailing) {
  const Traffic unwatched =
      TrafficOf([](WatchBench& bench) { Part<StatusMonitor>(bench.Page()).Watcher = nullptr; });
  const Traffic closed = TrafficOf([](WatchBench&) {});
  ASSERT_GT(closed.size(), 80U);
  EXPECT_EQ(closed, unwatched);
  EXPECT_EQ(TrafficOf([](WatchBench& bench) { bench.panel.Open(); }), closed);
  EXPECT_EQ(TrafficOf([](WatchBench& bench) {
              bench.At(2s, [&bench] { bench.panel.Open(); });
              bench.At(3s, [&bench] { bench.panel.cmdRecord.Click(); });
              bench.At(20s, [&bench] { bench.panel.Close(); });
            }),
            closed)
      << "the dialog stays open to the end";
  EXPECT_EQ(TrafficOf([](WatchBench& bench) {
              bench.At(2s, [&bench] { bench.panel.Open(); });
              bench.At(3s, [&bench] { bench.panel.cmdRecord.Click(); });
              bench.At(7s, [&bench] { bench.records.Choose(kRecord); });
              bench.At(25s, [&bench] {
                EXPECT_GT(bench.Recorded().size(), 2U);
                bench.panel.cmdRecord.Click();
              });
            }),
            closed);
  EXPECT_EQ(TrafficOf([](WatchBench& bench) {
              bench.At(3s, [&bench] { bench.panel.cmdRecord.Click(); });
              bench.At(7s, [&bench] { bench.records.Choose(kRecord); });
              bench.At(12s, [&bench] { bench.records.FailWrites(Fault::DiskFull); });
              bench.At(29s, [&bench] { EXPECT_NE(bench.panel.Problem(), u""); });
            }),
            closed);
}

// --- the record

TEST_F(WatchPanelTest, RecordsFromTheChoiceOfAFileToThePressThatStops) {
  bench.At(3s, [this] { Press(panel.cmdRecord); });
  bench.At(4s, [this] {
    EXPECT_TRUE(records.Asks());
    EXPECT_EQ(panel.cmdRecord.Refused(), Refusal::Disabled) << "one dialog at a time";
    EXPECT_EQ(records.Asked().back().save, true);
    EXPECT_EQ(records.Asked().back().filter, CsvFilter());
    EXPECT_EQ(records.Asked().back().name, bench.Page().ProposedName(u".csv"));
    EXPECT_EQ(records.Asked().back().start_folder, u"/korva/data");
    records.Choose(kRecord);
    EXPECT_EQ(panel.Heading(), u"記録中: " + kRecord);
    EXPECT_EQ(panel.cmdRecord.Caption(), u"記録停止");
  });
  std::size_t lines = 0;
  bench.At(20s, [this, &lines] {
    Press(panel.cmdRecord);
    EXPECT_EQ(records.Open(), 0);
    EXPECT_EQ(panel.Heading(), u"");
    EXPECT_EQ(panel.cmdRecord.Caption(), u"CSVに記録");
    lines = bench.Recorded().size();
  });
  bench.StopAt(30s);
  bench.Monitor();
  const Texts recorded = bench.Recorded();
  ASSERT_GT(lines, 3U);
  EXPECT_EQ(recorded.size(), lines);
  EXPECT_TRUE(recorded[0].starts_with("日付,時間 (秒),05 入力値,単位,06 入力信号,単位,")) << recorded[0];
  EXPECT_TRUE(recorded[1].starts_with("2024-02-29 09:")) << recorded[1];
  EXPECT_TRUE(recorded[1].find(",12.50,%,12.50,") != std::string::npos) << recorded[1];
}

TEST_F(WatchPanelTest, ACancelledDialogRecordsNothingAndMayBeOpenedAgain) {
  bench.At(3s, [this] { Press(panel.cmdRecord); });
  bench.At(4s, [this] { records.Choose(std::nullopt); });
  bench.At(5s, [this] {
    EXPECT_EQ(panel.Heading(), u"");
    Press(panel.cmdRecord);
    EXPECT_TRUE(records.Asks());
  });
  bench.StopAt(8s);
  bench.Monitor();
  EXPECT_FALSE(records.Has(kRecord));
}

TEST_F(WatchPanelTest, TheRecordEndsWithTheMonitor) {
  bench.At(3s, [this] { Press(panel.cmdRecord); });
  bench.At(4s, [this] { records.Choose(kRecord); });
  bench.StopAt(12s);
  bench.Monitor();
  EXPECT_EQ(records.Open(), 0);
  EXPECT_EQ(panel.cmdRecord.Caption(), u"CSVに記録");
  EXPECT_EQ(panel.cmdRecord.Refused(), Refusal::Disabled);
  EXPECT_GT(bench.Recorded().size(), 2U);
}

TEST_F(WatchPanelTest, ADialogThatIsOpenWhenTheMonitorEndsIsWithdrawn) {
  bench.At(3s, [this] { Press(panel.cmdRecord); });
  bench.StopAt(4s);
  bench.Monitor();
  EXPECT_FALSE(records.Asks());
  EXPECT_EQ(bench.TakeBoxes(), Texts());
}

TEST_F(WatchPanelTest, TheRecordGoesOnWhileItsWindowIsClosed) {
  panel.Open();
  bench.At(3s, [this] { Press(panel.cmdRecord); });
  bench.At(4s, [this] { records.Choose(kRecord); });
  bench.At(5s, [this] { panel.Close(); });
  std::size_t lines = 0;
  bench.At(10s, [this, &lines] { lines = bench.Recorded().size(); });
  bench.At(20s, [this, &lines] { EXPECT_GT(bench.Recorded().size(), lines); });
  bench.StopAt(21s);
  bench.Monitor();
}

TEST_F(WatchPanelTest, AFullDiskEndsTheRecordAndShowsItWhileTheMonitorGoesOn) {
  bench.At(3s, [this] { Press(panel.cmdRecord); });
  bench.At(4s, [this] { records.Choose(kRecord); });
  bench.At(10s, [this] { records.FailWrites(Fault::DiskFull); });
  Texts kept;
  bench.At(10s, [this, &kept] { kept = bench.Recorded(); });
  bench.At(20s, [this] {
    EXPECT_TRUE(panel.Visible()) << "nobody may believe that it still records";
    EXPECT_EQ(panel.Heading(), u"記録できません: " + ReasonText(MemoryFiles::ReasonOf(Fault::DiskFull)));
    EXPECT_EQ(panel.cmdRecord.Caption(), u"CSVに記録");
    EXPECT_TRUE(bench.Page().Shared().CommBusy);
    EXPECT_EQ(bench.Tile(0).age, u"");
  });
  bench.StopAt(21s);
  bench.Monitor();
  EXPECT_EQ(bench.Recorded(), kept);
  EXPECT_EQ(bench.TakeBoxes(), Texts());
  bench.StopAt(2s);
  bench.Monitor();
  EXPECT_EQ(panel.Heading(), u"") << "of another run";
}

TEST_F(WatchPanelTest, AFileThatCantBeMadeIsTold) {
  records.FailCreation(Fault::NotPermitted);
  bench.At(3s, [this] { Press(panel.cmdRecord); });
  bench.At(4s, [this] { records.Choose(kRecord); });
  bench.At(5s, [this] {
    EXPECT_TRUE(panel.Heading().starts_with(u"記録できません: "));
    EXPECT_EQ(panel.cmdRecord.Refused(), Refusal::None);
  });
  bench.StopAt(6s);
  bench.Monitor();
  EXPECT_FALSE(records.Has(kRecord));
}

TEST_F(WatchPanelTest, AProgramThatEndsInTheMonitorKeepsWhatWasRecorded) {
  bench.At(3s, [this] { Press(panel.cmdRecord); });
  bench.At(4s, [this] { records.Choose(kRecord); });
  Texts kept;
  bench.At(20s, [this, &kept] {
    kept = bench.Recorded();
    bench.app.program.PressClose();
  });
  bench.Monitor();
  EXPECT_EQ(bench.status, 0);
  EXPECT_GT(kept.size(), 3U);
  EXPECT_EQ(bench.Recorded(), kept);
}

TEST_F(WatchPanelTest, AProgramThatEndsWithTheDialogOpenEnds) {
  bench.At(3s, [this] { Press(panel.cmdRecord); });
  bench.At(4s, [this] { bench.app.program.PressClose(); });
  bench.Monitor();
  EXPECT_EQ(bench.status, 0);
  if (records.Asks()) {
    records.Choose(kRecord);
  }
  EXPECT_FALSE(records.Has(kRecord)) << "nothing enters any more";
}

TEST_F(WatchPanelTest, WithoutAPlaceForRecordsNothingCanBeRecorded) {
  PageBench bare;
  bare.Connect(u"QHW");
  bare.Choose(u"QHW");
  bare.Upload();
  WatchPanel& other = bare.app.companions.ValuesInLarge();
  bare.loop.After(3s, [&] {
    EXPECT_EQ(other.cmdRecord.Refused(), Refusal::Disabled);
    other.cmdRecord.Click();
    Part<StatusMonitor>(bare.Page()).cmdMonitorOFF.Click();
  });
  bare.Click(Part<StatusMonitor>(bare.Page()).cmdMonitorON);
  EXPECT_EQ(other.Values().size(), 4U);
}

// --- the other loops

/// Lines of a record that the user begins in the first second of a loop, without the one that names the
/// values, and cells of that one.
std::pair<std::size_t, std::ptrdiff_t> RecordOf(WatchBench& bench, Button& start) {
  bench.At(1s, [&bench] { bench.panel.cmdRecord.Click(); });
  bench.At(1500ms, [&bench] { bench.records.Choose(kRecord); });
  bench.At(20s, [&start] { start.Click(); });
  bench.Click(start);
  const Texts lines = bench.Recorded();
  const std::string head = lines.empty() ? std::string() : lines.front();
  return {lines.empty() ? 0 : lines.size() - 1, 1 + std::count(head.begin(), head.end(), ',')};
}

TEST(WatchLoopsTest, EachLoopIsRecordedTurnByTurn) {
  struct Loop {
    String model;
    const char* start;
    std::ptrdiff_t cells;  // day, seconds, and two for each value
  };
  for (const Loop& loop : {Loop{u"Z2WQ", "cmdThresholdStart", 6}, Loop{u"Z2WQ", "cmdOutZeroStart", 4},
                           Loop{u"Z8WV2", "cmdOut1ZeroStart", 4}}) {
    SCOPED_TRACE(loop.start);
    WatchBench bench(loop.model);
    const auto [lines, cells] = RecordOf(bench, ButtonOf(bench.Page(), loop.start));
    EXPECT_GT(lines, 8U);
    EXPECT_LT(lines, 40U);
    EXPECT_EQ(cells, loop.cells);
  }
}

TEST(WatchLoopsTest, AThresholdIsWatchedWithTheFrequencyMeasured) {
  WatchBench bench(u"Z2WQ");
  ASSERT_TRUE(bench.device.Set("01", "30", "2.00"));
  ASSERT_TRUE(bench.device.Set("01", "06", "50"));
  auto& threshold = Part<Threshold>(bench.Page());
  bench.At(6s, [&threshold] { threshold.cmdThresholdStart.Click(); });
  bench.Click(threshold.cmdThresholdStart);
  ASSERT_EQ(bench.panel.Values().size(), 2U);
  EXPECT_EQ(bench.Tile(0).text, bench.Page().FindField(u"30")->Text());
  EXPECT_EQ(bench.Tile(1).text, threshold.txtMeasFreq.Text());
  EXPECT_EQ(bench.Tile(1).unit, threshold.unitMeasFreq.Caption());
  EXPECT_EQ(bench.Tile(0).caption, u"30  ｼｷｲ値");
  EXPECT_EQ(bench.Tile(1).caption, u"06  入力周波数");
}

TEST(WatchLoopsTest, ATrimByDifferencesIsWatched) {
  WatchBench bench(u"Z2WQ");
  Button& start = ButtonOf(bench.Page(), "cmdOutZeroStart");
  bench.At(2500ms, [&bench] { ButtonOf(bench.Page(), "cmdOutZeroP01").Click(); });
  bench.At(6s, [&start] { start.Click(); });
  bench.Click(start);
  ASSERT_EQ(bench.panel.Values().size(), 1U);
  EXPECT_EQ(bench.Tile(0).text, u"0.10");
  EXPECT_EQ(bench.Tile(0).unit, u"%");
  EXPECT_EQ(bench.Tile(0).least, u"最小 0.00");
  EXPECT_EQ(bench.Tile(0).most, u"最大 0.10");
}

TEST(WatchLoopsTest, ATrimByValuesIsWatchedAndASpanThatIsNotToldIsNone) {
  WatchBench bench(u"Z8WV2");
  Button& start = ButtonOf(bench.Page(), "cmdOut1SpanStart");
  bench.At(4s, [&bench] { bench.device.AddFault(sim::ParseFault("silent")); });
  bench.At(5s, [&start] { start.Click(); });
  bench.Click(start);
  ASSERT_EQ(bench.panel.Values().size(), 1U);
  EXPECT_EQ(bench.Tile(0).caption, u"20  " + bench.Page().FindControl("IO_lblOut1Span")->ShownText());
  EXPECT_EQ(bench.Tile(0).text, u"100.00");
  EXPECT_EQ(bench.Tile(0).unit, u"%");
}

}  // namespace
}  // namespace korva::test
