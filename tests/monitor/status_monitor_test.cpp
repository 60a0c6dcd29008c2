#include "monitor/status_monitor.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/text_utilities.h"
#include "monitor_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::MonitorBench;
using test::Spoilt;

const std::string kModeFailure = "ﾀﾞｳﾝﾛｰﾄﾞ: ﾓﾆﾀﾓｰﾄﾞに変更できませんでした。";

/// A device of First with items 04 to 08 and no unit to look up.
struct FirstBench : MonitorBench {
  FirstBench() : MonitorBench(u"First", "QY.def", test::AllRows()) {}
};

TEST(StatusMonitorTest, TheFrameIsLockedButForTheButtonThatStops) {
  FirstBench bench;
  bool looked = false;
  bench.host.loop.After(1s, [&] {
    looked = true;
    const test::MonitorPage& page = *bench.page;
    EXPECT_TRUE(page.Shared().CommBusy);
    EXPECT_FALSE(page.Shared().DownloadBusy);
    EXPECT_TRUE(test::Part<StatusMonitor>(page).cmdMonitorOFF.Enabled());
    for (const Button* button : std::initializer_list<const Button*>{
             &page.cmdUpload, &page.cmdDownload, &page.cmdOpen, &page.cmdSave, &page.cmdNew, &page.cmdCheck,
             &page.cmdExit, &test::Part<OutputSetting>(page).cmdSet,
             &test::Part<OutputSetting>(page).cmdStatusMonOFF,
             &test::Part<StatusMonitor>(page).cmdMonitorON}) {
      EXPECT_FALSE(button->Enabled()) << button->FullName();
    }
    EXPECT_FALSE(page.Tabs.TabEnabled(0));
    EXPECT_FALSE(page.lbl_Waitfor.Visible());
  });
  bench.StopAfter(2s);
  bench.Start();
  EXPECT_TRUE(looked);
  EXPECT_TRUE(bench.AtRest());
  EXPECT_TRUE(test::Part<StatusMonitor>(*bench.page).cmdMonitorOFF.Enabled());
}

TEST(StatusMonitorTest, TabsThatWereLockedBeforeStayLocked) {
  FirstBench bench;
  bench.page->Tabs.SetTabEnabled(1, false);
  bench.RunCycle("04");
  EXPECT_TRUE(bench.page->Tabs.TabEnabled(0));
  EXPECT_FALSE(bench.page->Tabs.TabEnabled(1));
}

TEST(StatusMonitorTest, AStopAtTheStartOfACycleStillReadsAllItsItemsWithTheWaitTextShowing) {
  FirstBench bench;
  bench.StopAt("I04");
  std::vector<bool> waiting;
  bench.page->FindField(u"08")->Observe([&] { waiting.push_back(bench.page->lbl_Waitfor.Visible()); });
  bench.Start();
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D0 G01 I04 G01 I05 G01 I06 G01 I07 G01 I08");
  // To rest before the cycle; the highlight, the text and to rest again in it.
  EXPECT_EQ(waiting, (std::vector<bool>{false, true, true, true}));
  EXPECT_FALSE(bench.page->lbl_Waitfor.Visible());
  EXPECT_EQ(bench.page->Shared().CommBusy, false);
}

TEST(StatusMonitorTest, AStopWhenNoDeviceOperationRunsDoesNothing) {
  FirstBench bench;
  bench.Do([&] { test::Part<StatusMonitor>(*bench.page).cmdMonitorOFF.Click(); });
  EXPECT_FALSE(bench.page->MonitorStop);
  EXPECT_FALSE(bench.page->lbl_Waitfor.Visible());
  EXPECT_EQ(bench.line.Sent(), "");
}

TEST(StatusMonitorTest, ItStartsAgainAfterAStop) {
  FirstBench bench;
  bench.RunCycle("04");
  bench.line.ForgetCommands();
  bench.RunCycle("04");
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D0 G01 I04 G01 I05 G01 I06 G01 I07 G01 I08");
}

TEST(StatusMonitorTest, ASecondPressDuringTheModeChangeStartsNothing) {
  FirstBench bench;
  bench.StopAt("I04");
  bench.host.loop.After(15ms, [&] { bench.page->monitor.Start(); });
  bench.Start();
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D0 G01 I04 G01 I05 G01 I06 G01 I07 G01 I08");
}

TEST(StatusMonitorTest, AValueIsHighlightedForHalfASecondAndThenAtRest) {
  FirstBench bench;
  std::vector<std::pair<Clock, Look>> looks;
  TextField& box = bench.Box(u"05");
  box.Observe([&] { looks.emplace_back(bench.host.loop.Now(), box.ShownLook()); });
  bench.RunCycle("04");
  // 30 ms of mode change, 520 ms of item 04, 20 ms of exchange.
  const std::vector<std::pair<Clock, Look>> expected = {
      {30ms, Look::Grey}, {570ms, Look::Highlight}, {570ms, Look::Highlight}, {1070ms, Look::Grey}};
  EXPECT_EQ(looks, expected) << "to rest, highlight, the text, to rest";
}

TEST(StatusMonitorTest, ABoxThatKeepsItsValueIsNotRedrawnMoreOftenThanItBlinks) {
  FirstBench bench;
  int changes = 0;
  bench.Box(u"05").Observe([&] { ++changes; });
  bench.StopAfter(12s);
  bench.Start();
  const auto cycles = static_cast<int>((bench.line.Commands().size() - 3) / 10);
  EXPECT_EQ(changes, 1 + 1 + 2 * cycles) << "to rest once, the text once, highlight and rest in each cycle";
}

TEST(StatusMonitorTest, TheFrameIsLockedBeforeTheModeChangeAndFreedWhenItFails) {
  for (const StringView word : {u"First", u"Second", u"Third", u"QXI", u"Lite", u"Nano"}) {
    MonitorBench bench(word, "M.def", test::AllRows() + (word == u"Third" ? "" : test::TemperatureSection()));
    bool upload_enabled = true;
    bench.host.loop.After(15ms, [&] { upload_enabled = bench.page->cmdUpload.Enabled(); });
    bench.line.silent_from = 1;
    bench.Start();
    EXPECT_FALSE(upload_enabled) << ToUtf8(word);
    EXPECT_TRUE(bench.page->cmdUpload.Enabled()) << ToUtf8(word);
    EXPECT_FALSE(bench.page->Shared().CommBusy) << ToUtf8(word);
  }
}

TEST(StatusMonitorTest, OnlyThirdGivesTheStopButtonTheFocus) {
  for (const auto& [word, focused] : {std::pair{u"Third", 1}, std::pair{u"Second", 0}}) {
    MonitorBench bench(word, "M.def", test::AllRows());
    int focus = 0;
    test::Part<StatusMonitor>(*bench.page).cmdMonitorOFF.ObserveFocus([&] { ++focus; });
    bench.StopAfter(1s);
    bench.Start();
    EXPECT_EQ(focus, focused);
  }
}

TEST(StatusMonitorTest, ThirdSkipsARowWithNInItsWriteCondition) {
  MonitorBench bench(u"Third", "M.def",
                     test::RowsOf({{.item = "03_mon", .index = 1, .condition = "N"},
                                   {.item = "04_mon", .index = 2, .condition = "Y"},
                                   {.item = "05", .index = 3, .condition = "N"},
                                   {.item = "06", .index = 4}}));
  bench.RunCycle("04");
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D0 G01 I04 G01 I06");
}

TEST(StatusMonitorTest, TheOtherFamiliesTakeNoNoticeOfTheWriteCondition) {
  MonitorBench bench(u"First", "QY.def", test::RowsOf({{.item = "05", .index = 3, .condition = "N"}}));
  bench.RunCycle("05");
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D0 G01 I05");
}

TEST(StatusMonitorTest, AnItemWithoutARowOrAFieldOrAShownFieldIsPassedOver) {
  MonitorBench bench(u"First", "QY.def",
                     test::RowsOf({{.item = "04"}, {.item = "05", .index = 4}, {.item = "06", .index = 5}}));
  bench.Box(u"05").SetVisible(false);
  bench.RunCycle("06");
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D0 G01 I06");
}

TEST(StatusMonitorTest, ARowThatADownloadWritesHoldsAParameterAndIsLeftAlone) {
  MonitorBench bench(
      u"Third", "M.def",
      test::RowsOf({{.item = "05", .index = 5}, {.item = "06", .index = 6, .unit = "Hz", .position = "0"}}));
  bench.Box(u"06").SetText(u"1000");
  bench.RunCycle("05");
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D0 G01 I05");
  EXPECT_EQ(bench.Value(u"05"), "12.5");
  EXPECT_EQ(bench.Value(u"06"), "1000");
  EXPECT_EQ(bench.Unit(u"06"), "Hz");
  EXPECT_EQ(bench.Box(u"06").ShownLook(), Look::Normal);
  EXPECT_EQ(bench.Box(u"05").ShownLook(), Look::Grey);
}

TEST(StatusMonitorTest, WithNothingToReadItKeepsThePaceAndCanBeStopped) {
  MonitorBench bench(u"Third", "M.def", test::RowsOf({{.item = "07", .index = 7}}));
  bench.StopAfter(1200ms);
  bench.Start();
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D0");
  EXPECT_EQ(bench.host.loop.Now(), 1530ms) << "the mode change and three half seconds";
  EXPECT_TRUE(bench.AtRest());
}

TEST(StatusMonitorTest, AKeyWithARoleIsNotTheBarePresenceItem) {
  MonitorBench bench(u"First", "QY.def",
                     test::RowsOf({{.item = "03_set", .index = 1}, {.item = "03_mon", .index = 2}}));
  bench.Start();
  EXPECT_EQ(bench.line.Sent(), "");
}

// --- items with a refused or an empty unit

struct UnitFamilyTest : testing::TestWithParam<std::pair<StringView, std::string>> {
  const std::string rows = test::RowsOf({{.item = "04", .index = 3},
                                         {.item = "03", .index = 4},
                                         {.item = "05", .index = 5},
                                         {.item = "06", .index = 6},
                                         {.item = "07", .index = 7}}) +
                           test::TemperatureSection() + "$I10\r\n0,Tc-2\r\n";
  /// The page that the family's unit tables leave with a unit on every item.
  std::unique_ptr<MonitorBench> Make() const {
    std::string sections = rows;
    if (GetParam().first == u"LiteUniv") {
      sections.insert(sections.find("$I10\r") + 4, "PM");
    }
    auto bench = std::make_unique<MonitorBench>(GetParam().first, GetParam().second, sections);
    bench->line.items["21"] = "0:deg C";
    bench->line.items["10"] = "Tc-2";
    return bench;
  }
};
INSTANTIATE_TEST_SUITE_P(Family, UnitFamilyTest,
                         testing::Values(std::pair{u"QXI", "M.def"}, std::pair{u"Lite", "Z#WT2.def"},
                                         std::pair{u"LiteUniv", "M.def"}, std::pair{u"Nano", "Z8WM2.def"}),
                         [](const auto& one) { return ToUtf8(one.param.first); });

int Count(const std::string& text, const std::string& word) {
  int count = 0;
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
    ++count;
  }
  return count;
}

TEST_P(UnitFamilyTest, AnItemThatTheDeviceRefusesGoesEmptyAndIsSkippedFromTheNextCycleOn) {
  const auto bench = Make();
  bench->line.refused = {"07"};
  bench->StopAfter(10s);
  bench->Start();
  const std::string sent = bench->line.Sent();
  EXPECT_EQ(Count(sent, "I07"), 1) << sent;
  EXPECT_GE(Count(sent, "I06"), 4);
  EXPECT_EQ(bench->Value(u"07"), "");
  EXPECT_EQ(bench->Unit(u"07"), "");
  EXPECT_EQ(bench->Value(u"06"), "12.5");
  EXPECT_TRUE(bench->AtRest());
  bench->line.refused.clear();
  bench->line.ForgetCommands();
  bench->RunCycle("06");
  EXPECT_EQ(Count(bench->line.Sent(), "I07"), 1) << "the next start gives it its unit back";
}

TEST_P(UnitFamilyTest, AnItemWithAnEmptyUnitIsNotRead) {
  const auto bench = Make();
  const String item = GetParam().first == u"Lite" ? u"03" : u"05";
  bench->UnitLabel(item).SetCaption({});
  bench->RunCycle("06");
  EXPECT_EQ(Count(bench->line.Sent(), "I" + ToUtf8(item)), 0) << bench->line.Sent();
}

TEST_P(UnitFamilyTest, ASilentItemGoesEmptyAndKeepsItsUnit) {
  const auto bench = Make();
  bench->Box(u"07").SetText(u"old");
  bench->line.items.erase("07");
  bench->RunCycle("06");
  EXPECT_EQ(bench->Value(u"07"), "");
  EXPECT_NE(bench->Unit(u"07"), "");
  EXPECT_TRUE(bench->Boxes().empty());
}

TEST(StatusMonitorTest, TheOtherFamiliesGoOnAskingForARefusedItem) {
  FirstBench bench;
  bench.line.refused = {"05"};
  bench.StopAfter(10s);
  bench.Start();
  EXPECT_GE(Count(bench.line.Sent(), "I05"), 3);
  EXPECT_EQ(bench.Value(u"05"), "");
  EXPECT_EQ(bench.Unit(u"05"), "%");
  EXPECT_EQ(bench.Value(u"06"), "12.5");
}

TEST(StatusMonitorTest, AnEmptyUnitDoesNotStopTheOtherFamiliesReading) {
  FirstBench bench;
  bench.UnitLabel(u"05").SetCaption({});
  bench.RunCycle("04");
  EXPECT_EQ(Count(bench.line.Sent(), "I05"), 1);
}

// --- the offset of two models

struct NanoBench : MonitorBench {
  NanoBench(const std::string& def_file, const std::string& unit)
      : MonitorBench(u"Nano", def_file, test::AllRows() + test::TemperatureSection()) {
    for (const char* item : {"04", "05", "06", "07"}) {
      line.items[item] = "100.0";
    }
    line.items["21"] = unit;
    RunCycle("04");
  }
};

TEST(StatusMonitorTest, Z8WT2InDegFShowsItems04And07LessTheirOffsetAndItem06Unchanged) {
  for (const char* model : {"Z8WT2.def", "Z8WR2.def"}) {
    NanoBench bench(model, "1:deg F");
    EXPECT_EQ(bench.Value(u"04"), "74.4");
    EXPECT_EQ(bench.Value(u"05"), "100.0");
    EXPECT_EQ(bench.Value(u"06"), "100.0");
    EXPECT_EQ(bench.Value(u"07"), "74.4");
  }
}

TEST(StatusMonitorTest, AnotherUnitOrAnotherModelHasNoOffset) {
  EXPECT_EQ(NanoBench("Z8WT2.def", "0:deg C").Value(u"04"), "100.0");
  EXPECT_EQ(NanoBench("Other.def", "1:deg F").Value(u"04"), "100.0");
}

TEST(StatusMonitorTest, TheUnitIsReadAgainWithEveryItemOfTheTwoModelsOnly) {
  // Two reads for the units of items 04 and 07, then one for each of the four items.
  EXPECT_EQ(Count(NanoBench("Z8WT2.def", "1:deg F").line.Sent(), "I21"), 6);
  EXPECT_EQ(Count(NanoBench("Z8WM2.def", "1:deg F").line.Sent(), "I21"), 0);
}

TEST(StatusMonitorTest, AnItemWithoutAnAnswerStaysEmptyInsteadOfShowingTheOffset) {
  MonitorBench bench(u"Nano", "Z8WT2.def", test::AllRows() + test::TemperatureSection());
  bench.line.items["21"] = "1:deg F";
  bench.line.items.erase("04");
  bench.RunCycle("05");
  EXPECT_EQ(bench.Value(u"04"), "");
}

// --- failures

struct ModeFailureTest : testing::TestWithParam<StringView> {};
INSTANTIATE_TEST_SUITE_P(Family, ModeFailureTest,
                         testing::Values(u"First", u"Third", u"QXI", u"Lite", u"LiteSecond"),
                         [](const auto& one) { return ToUtf8(one.param); });

TEST_P(ModeFailureTest, ADeviceThatDoesNotTakeMonitorModeLeavesThePageAsItWas) {
  MonitorBench bench(GetParam(), "M.def", test::AllRows());
  bench.line.silent_from = 1;
  bench.Box(u"05").SetText(u"1.0");
  bench.Start();
  EXPECT_EQ(bench.Boxes(), std::vector<std::string>{kModeFailure});
  EXPECT_EQ(bench.host.dialogs.Boxes()[0].box.icon, BoxIcon::Warning);
  EXPECT_TRUE(bench.AtRest());
  EXPECT_EQ(bench.Value(u"05"), "1.0");
}

TEST_P(ModeFailureTest, AStopPressedBeforeTheFailureLeavesNoWaitText) {
  MonitorBench bench(GetParam(), "M.def", test::AllRows());
  bench.line.silent_from = 1;
  bench.StopAfter(1s);
  bench.Start();
  EXPECT_TRUE(bench.AtRest());
}

TEST(StatusMonitorTest, QXIGoesOnAfterTheBoxWhenTheDeviceDoesNotTakeItsMonitorMode) {
  MonitorBench bench(u"QXI", "M.def", test::RowsOf({{.item = "05", .index = 4}}));
  // After the mode change each of the four tries of the next mode goes unanswered at its data.
  for (const std::size_t number : {6U, 9U, 12U, 15U}) {
    bench.line.spoilt[number] = Spoilt::Refused;
  }
  bench.RunCycle("05");
  EXPECT_EQ(bench.Boxes(), std::vector<std::string>{
                               "I/O ﾁｪｯｸ: ﾓｰﾄﾞ変更ができませんでした。ｹｰﾌﾞﾙ、変換器をﾁｪｯｸしてください。"});
  EXPECT_EQ(bench.Value(u"05"), "12.5");
  EXPECT_TRUE(bench.line.Sent().ends_with("DA G01 I05 G01 I01 D0")) << bench.line.Sent();
  EXPECT_TRUE(bench.AtRest());
}

TEST(StatusMonitorTest, WithTheCablePulledTheBoxesGoEmptyAndTheLoopGoesOnAtThePaceOfTheTimeOuts) {
  FirstBench bench;
  bench.line.silent_from = 14;  // after one cycle of five items
  bench.StopAfter(30s);
  bench.Start();
  for (const char16_t* item : {u"04", u"05", u"06", u"07", u"08"}) {
    EXPECT_EQ(bench.Value(item), "") << ToUtf8(item);
  }
  const auto& commands = bench.line.Commands();
  ASSERT_GT(commands.size(), 18U);
  for (std::size_t at = 14; at < commands.size(); ++at) {
    EXPECT_EQ(commands[at].text, "G01");
    EXPECT_EQ(commands[at].received - commands[at - 1].received, 3500ms);
  }
  EXPECT_TRUE(bench.Boxes().empty());
  EXPECT_TRUE(bench.AtRest());
}

struct SweepCase {
  StringView word;
  std::string def_file;
  std::string sections;
};
struct MonitorSweepTest : testing::TestWithParam<SweepCase> {};
INSTANTIATE_TEST_SUITE_P(Family, MonitorSweepTest,
                         testing::Values(SweepCase{u"First", "QZ.def", test::TemperatureSection()},
                                         SweepCase{u"Third", "QNA2.def", ""},
                                         SweepCase{u"QXI", "M.def",
                                                   test::TemperatureSection() + "$I10\r\n0,POT\r\n"},
                                         SweepCase{u"Nano", "Z8WT2.def", test::TemperatureSection()},
                                         SweepCase{u"LiteSecond", "M.def", ""}),
                         [](const auto& one) { return ToUtf8(one.param.word); });

std::unique_ptr<MonitorBench> SweepBench(const SweepCase& one) {
  auto bench = std::make_unique<MonitorBench>(one.word, one.def_file, test::AllRows() + one.sections);
  bench->line.items["21"] = "1:deg F";
  bench->line.items["10"] = "POT";
  bench->StopAfter(3s);
  return bench;
}

TEST_P(MonitorSweepTest, EachReplySilentRefusedGarbledOrLateLeavesThePageFreeAndShowsNoBox) {
  const auto good = SweepBench(GetParam());
  good->Start();
  const std::size_t commands = good->line.Commands().size();
  ASSERT_GT(commands, 10U);
  for (const Spoilt spoilt : test::kAllSpoilt) {
    for (std::size_t number = 1; number <= commands; ++number) {
      const auto bench = SweepBench(GetParam());
      bench->line.spoilt[number] = spoilt;
      bench->Start();
      const std::string place = std::to_string(number) + " " + std::to_string(static_cast<int>(spoilt));
      EXPECT_TRUE(bench->AtRest()) << place;
      EXPECT_TRUE(bench->Boxes().empty()) << place;
      EXPECT_FALSE(bench->ended) << place;
    }
  }
}

TEST_P(MonitorSweepTest, TheCloseBoxAtAnyPumpEndsTheProgramSoon) {
  const auto good = SweepBench(GetParam());
  const std::size_t before = good->host.loop.PumpCount();
  good->Start();
  const std::size_t pumps = good->host.loop.PumpCount() - before;
  ASSERT_GT(pumps, 10U);
  for (std::size_t at = 1; at <= pumps; ++at) {
    const auto bench = SweepBench(GetParam());
    const std::size_t first = bench->host.loop.PumpCount();
    Clock pressed{0};
    bench->host.loop.OnPump([&] {
      if (bench->host.loop.PumpCount() == first + at) {
        pressed = bench->host.loop.Now();
        bench->program.PressClose();
      }
    });
    bench->Start();
    EXPECT_TRUE(bench->ended) << at;
    EXPECT_LE(bench->host.loop.Now() - pressed, 510ms) << at;
    EXPECT_TRUE(bench->TimersStopped()) << at;
    EXPECT_TRUE(bench->host.dialogs.Failures().empty()) << at;
  }
}

TEST(StatusMonitorTest, AFieldThatThePageLacksEndsTheProgramWithATextThatNamesIt) {
  MonitorBench bench(u"First", "QY.def",
                     test::RowsOf({{.item = "05", .index = 99, .on_page = "N"}, {.item = "06", .index = 5}}));
  bench.Start();
  EXPECT_TRUE(bench.ended);
  ASSERT_EQ(bench.host.dialogs.Failures().size(), 1U);
  EXPECT_NE(bench.host.dialogs.Failures()[0].find(u"QY.def"), String::npos);
}

}  // namespace
}  // namespace korva
