// The page of family Lite: what it shows of a model and of its set, and what a choice brings along.

#include "pages/z2_kv_config/z2_kv_config.h"

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "kv_config_v2_bench.h"
#include "support/page_parts.h"
#include "support/tabs.h"
#include "z2_kv_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

constexpr int kCelsius = 0;
constexpr int kFahrenheit = 1;

std::string ModelOf(const testing::TestParamInfo<String>& parameter) {
  return "Model_" + ToUtf8(parameter.param);
}

/// The cells of items of group 1.
Texts Items(Z2Bench& bench, std::initializer_list<int> items) {
  Texts texts;
  for (const int item : items) {
    texts.push_back(ToUtf8(bench.Page().Item(item)));
  }
  return texts;
}

TEST(Z2KvConfig, HasItsFifteenModelsInTheCatalogue) {
  EXPECT_EQ(ModelsOf(u"Lite"),
            (std::vector<String>{u"Z2WT", u"Z2WT2", u"Z2WR", u"Z2WR2", u"Z8WT", u"Z8WR", u"Z2WV", u"Z2WV2",
                                 u"Z2WF", u"Z2WF2", u"Z8WF", u"Z8WV", u"Z2WM", u"Z2WM2", u"Z8WM"}));
}

TEST(Z2KvConfig, HasSevenTabsInOrder) {
  Z2Bench bench(u"Z2WT");
  const std::vector<StringView> captions = {u"ﾌｧｲﾙ", u"入力", u"出力",    u"ﾘﾆｱﾗｲｻﾞ",
                                            u"CJM",  u"ﾎﾟｰﾄ", u"I/O ﾁｪｯｸ"};
  ASSERT_EQ(bench.Z2().Tabs.Count(), 7);
  EXPECT_EQ(bench.Z2().Tabs.Name(), "z2KvCfg_Tab");
  for (int tab = 0; tab < 7; ++tab) {
    EXPECT_EQ(bench.Z2().Tabs.TabCaption(tab), captions.at(static_cast<std::size_t>(tab)));
  }
}

TEST(Z2KvConfig, HasEveryControlThatADefinitionMayName) {
  Z2Bench bench(u"Z2WT");
  for (int index = 0; index <= 43; ++index) {
    for (const char* array : {"Text", "lbl_unit", "lbl_Item", "Label"}) {
      const std::string name = std::string(array) + "(" + std::to_string(index) + ")";
      const Control* control = bench.Z2().FindControl(name);
      ASSERT_NE(control, nullptr) << name;
      EXPECT_GE(bench.Z2().TabOf(*control), 0) << name << " stands on no tab";
    }
  }
}

// Choices.

TEST(Z2KvConfigChoices, OptionButtonsSetTheItemOfTheirFrame) {
  Z2Bench bench(u"Z2WT2");
  z2KvConfig& page = bench.Z2();
  bench.Press(page.Opt_FiltSW, 1);
  EXPECT_EQ(page.Item(16), u"ON");
  bench.Press(page.optBurn, 2);
  EXPECT_EQ(page.Item(24), u"DOWNSCALE");
  bench.Press(page.optTempUnit, kFahrenheit);
  EXPECT_EQ(page.Item(21), u"deg F");
  bench.Press(page.linearizer.Opt_Lnr, 1);
  EXPECT_EQ(page.Item(23), u"ON");
  EXPECT_EQ(page.optBurn[0].Container(), &page.Frames[3]);
  EXPECT_EQ(page.Opt_FiltSW[0].Container(), &page.Frames[1]);
}

TEST(Z2KvConfigChoices, TheBoxesOfItems10And11ListEveryRowWithACodeAndAreOpen) {
  Z2Bench bench(u"Z2WV");
  const ComboBox& types = bench.Z2().Combo[0];
  EXPECT_EQ(types.Entries(), (std::vector<String>{u"-10 - 10 V", u"-1 - 1 V", u"-500 - 500 mV",
                                                  u"-50 - 50 mV", u"-300 - 300 V"}))
      << "those that can't be set from here too";
  EXPECT_EQ(bench.Z2().Combo[1].Entries(), (std::vector<String>{u"4-20 mA", u"1-5 V", u"0-10 V"}));
  for (int box = 0; box < 2; ++box) {
    EXPECT_FALSE(bench.Z2().Combo[box].Locked());
    EXPECT_EQ(bench.Z2().Combo[box].ShownLook(), Look::Normal);
  }
}

TEST(Z2KvConfigChoices, AFixedRowLocksAndGreysItsBoxAndKeepsItsText) {
  Z2Bench bench(u"Z2WT");
  const String text = WithDataField(bench.TextOf(DefPath(u"Z2WT")), u"11", 19, u"Y");
  bench.files.Put(DefPath(u"Z2WT"), bench.code_page.Encode(text).value());
  bench.Choose(u"Z2WR");
  bench.Choose(u"Z2WT");
  bench.Show(11, u"1-5 V");
  EXPECT_TRUE(bench.Z2().Combo[1].Locked());
  EXPECT_EQ(bench.Z2().Combo[1].ShownLook(), Look::Grey);
  EXPECT_EQ(bench.Z2().Combo[1].Text(), u"1-5 V");
  EXPECT_FALSE(bench.Z2().Combo[0].Locked());
}

TEST(Z2KvConfigChoices, PickingItem10PutsTheRowsDefaultsInto14And15ByTheMask) {
  Z2Bench bench(u"Z2WT");
  bench.Pick(bench.Z2().Combo[0], u"TC K (CA)");
  EXPECT_EQ(Items(bench, {10, 14, 15}), (Texts{"TC K (CA)", "-270.00", "1370.00"}));
  EXPECT_EQ(bench.Field(u"14").Text(), u"-270.00");
  EXPECT_EQ(bench.Field(u"15").Text(), u"1370.00");
  EXPECT_TRUE(bench.Z2().DataChanged);
}

TEST(Z2KvConfigChoices, PickingItem11PutsTheRowsDefaultsInto12And13ByTheMask) {
  Z2Bench bench(u"Z2WT");
  bench.Type(u"14", u"7");
  bench.Pick(bench.Z2().Combo[1], u"0-10 V");
  EXPECT_EQ(Items(bench, {11, 12, 13, 14}), (Texts{"0-10 V", "0.00", "10.00", "7"}));
  EXPECT_EQ(bench.Field(u"13").Text(), u"10.00");
}

TEST(Z2KvConfigChoices, AnUploadAndAnOpenedFileBringNoDefaults) {
  Z2Bench bench(u"Z2WT");
  ASSERT_TRUE(bench.device.Set("01", "14", "100"));
  ASSERT_TRUE(bench.device.Set("01", "12", "5"));
  bench.Read();
  EXPECT_EQ(bench.Z2().Item(14), u"100.00");
  EXPECT_EQ(bench.Z2().Item(12), u"5.00");
  bench.Type(u"14", u"101.5");
  bench.Save(kFile);
  bench.New();
  bench.Open(kFile);
  EXPECT_EQ(bench.Z2().Item(14), u"101.5");
  EXPECT_EQ(bench.Z2().Item(12), u"5.00");
}

// The range of the input.

struct RangeCase {
  String model;
  String type;
  String range;
};

TEST(Z2KvConfigRange, IsLowHighAndUnitOfTheInputTypesRowOnTheModelsThatHaveIt) {
  for (const RangeCase& one : std::vector<RangeCase>{{u"Z2WT", u"TC K (CA)", u"-270 - 1370 deg C"},
                                                     {u"Z2WT2", u"TC B (RH)", u"100 - 1820 deg C"},
                                                     {u"Z8WT", u"TC T (CC)", u"-270 - 400 deg C"},
                                                     {u"Z2WR", u"Ni508.4", u"-50 - 280 deg C"},
                                                     {u"Z2WR2", u"Pt1000", u"-200 - 850 deg C"},
                                                     {u"Z8WR", u"Pt1000", u"-200 - 850 deg C"},
                                                     {u"Z2WV", u"-500 - 500 mV", u"-500 - 500 mV"},
                                                     {u"Z2WV2", u"-10 - 10 mV", u"-10 - 10 mV"},
                                                     {u"Z2WF", u"4 - 20 mA", u"4 - 20 mA"},
                                                     {u"Z2WF2", u"4 - 20 mA", u"4 - 20 mA"},
                                                     {u"Z8WF", u"4 - 20 mA", u"4 - 20 mA"},
                                                     {u"Z2WM", u"POT 2-10 kOhm", u"0 - 100 %"},
                                                     {u"Z2WM2", u"POT 2-10 kOhm", u"0 - 100 %"},
                                                     {u"Z8WM", u"POT 2-10 kOhm", u"0 - 100 %"}}) {
    Z2Bench bench(one.model);
    EXPECT_FALSE(bench.Z2().rules.lbl_Range.Visible()) << "no input type yet";
    bench.Pick(bench.Z2().Combo[0], one.type);
    EXPECT_EQ(bench.Z2().rules.lbl_Range.Caption(), one.range) << ToUtf8(one.model);
    EXPECT_TRUE(bench.Z2().rules.lbl_Range.Visible());
  }
}

TEST(Z2KvConfigRange, IsTheUsersToDefineOnAnyOtherModel) {
  Z2Bench bench(u"Z8WV");
  EXPECT_EQ(bench.Z2().rules.lbl_Range.Caption(), u"");
  bench.Show(10, u"whatever");
  EXPECT_EQ(bench.Z2().rules.lbl_Range.Caption(), u"User's Define");
}

TEST(Z2KvConfigRange, IsEmptyWithoutAnInputTypeAndAgainInANewSet) {
  Z2Bench bench(u"Z2WT");
  bench.Read();
  EXPECT_NE(bench.Z2().rules.lbl_Range.Caption(), u"");
  bench.Z2().DataChanged = false;
  bench.New();
  EXPECT_EQ(bench.Z2().rules.lbl_Range.Caption(), u"");
  bench.Show(10, u"TC of another maker");
  EXPECT_EQ(bench.Z2().rules.lbl_Range.Caption(), u"") << "nothing is known of its range";
}

// Temperature units.

TEST(Z2KvConfigUnits, AChangeShowsTwoDecimals) {
  Z2Bench bench(u"Z2WT");
  bench.Read();
  bench.Type(u"14", u"10.4");
  bench.Type(u"15", u"100");
  bench.Press(bench.Z2().optTempUnit, kFahrenheit);
  EXPECT_EQ(Items(bench, {14, 15, 21}), (Texts{"50.70", "212.00", "deg F"}));
  EXPECT_EQ(bench.UnitOf(u"14"), u"deg F");
}

TEST(Z2KvConfigUnits, AValueAtItsLimitIsNotMovedWithinIt) {
  Z2Bench bench(u"Z2WT");
  ASSERT_TRUE(bench.device.Set("01", "10", "TC K (CA)"));
  bench.Read();
  bench.Type(u"14", u"-269.8");  // -453.64 F, of a limit of -454 F: rounded to one decimal, -453.6
  bench.Press(bench.Z2().optTempUnit, kFahrenheit);
  EXPECT_EQ(bench.Z2().Item(14), u"-453.60");
  bench.Press(bench.Z2().optTempUnit, kCelsius);
  EXPECT_EQ(bench.Z2().Item(14), u"-269.80");
}

// Tabs.

TEST(Z2KvConfigTabs, TheColdJunctionsIsOpenOnThermocouplesOnly) {
  for (const String& model : ModelsOf(u"Lite")) {
    Z2Bench bench(model);
    EXPECT_EQ(TabOpen(bench.Z2(), TextKey::Cjm), model.at(3) == u'T') << ToUtf8(model);
  }
}

TEST(Z2KvConfigTabs, TheColdJunctionsIsClosedOnAModelWithoutItsRowsWhateverTheFlagSays) {
  Z2Bench bench(u"Z2WT");
  String text = bench.TextOf(DefPath(u"Z2WT"));
  const std::size_t at = text.find(u"01,  35,");
  ASSERT_NE(at, String::npos);
  text.replace(at, 8, u"01,  36,");
  bench.files.Put(DefPath(u"Z2WT"), bench.code_page.Encode(text).value());
  bench.Choose(u"Z2WR");
  bench.Choose(u"Z2WT");
  EXPECT_FALSE(TabOpen(bench.Z2(), TextKey::Cjm));
}

class Z2LinearizerTab : public testing::TestWithParam<String> {};

TEST_P(Z2LinearizerTab, FollowsItsSwitchOnAModelThatHasOne) {
  Z2Bench bench(GetParam());
  const bool has_table = bench.Z2().FindDataRow(u"23") >= 0;
  EXPECT_EQ(bench.Z2().TabFlag(3) == u"True", has_table);
  EXPECT_FALSE(TabOpen(bench.Z2(), TextKey::Linearizer));
  if (!has_table) {
    bench.Read();
    EXPECT_FALSE(TabOpen(bench.Z2(), TextKey::Linearizer)) << "an upload opens no tab that the model has not";
    return;
  }
  bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
  EXPECT_TRUE(TabOpen(bench.Z2(), TextKey::Linearizer));
  EXPECT_EQ(bench.Z2().linearizer.LnrFlexGrid.Rows(), 101);
  EXPECT_EQ(bench.Z2().linearizer.LnrFlexGrid.At(0, 1).text, u"  X(k)        %");
  bench.Press(bench.Z2().linearizer.Opt_Lnr, 0);
  EXPECT_FALSE(TabOpen(bench.Z2(), TextKey::Linearizer));
}

INSTANTIATE_TEST_SUITE_P(FamilyLite, Z2LinearizerTab, testing::ValuesIn(ModelsOf(u"Lite")), ModelOf);

// Files of points.

TEST(Z2KvConfigCsv, AFileWithAHeadLineLoadsAndTheHeadIsSkipped) {
  Z2Bench bench(u"Z2WV");
  bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
  bench.PutText(u"/korva/data/points.csv", u"Size, 2 \n0,1.5\n50,99\n");
  bench.dialogs.QueueFile(u"/korva/data/points.csv");
  bench.Click(bench.Z2().linearizer.cmd_csvFileOpen);
  EXPECT_EQ(bench.Z2().GroupItem.At(2, 0), u"0");
  EXPECT_EQ(bench.Z2().GroupItem.At(2, 1), u"1.5");
  EXPECT_EQ(bench.Z2().GroupItem.At(2, 3), u"99");
  EXPECT_EQ(bench.Z2().GroupItem.At(2, 4), u"");
}

TEST(Z2KvConfigCsv, AllHundredPointsAreSavedWithoutAHeadLine) {
  Z2Bench bench(u"Z2WV");
  bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
  std::vector<std::pair<String, String>> points;
  points.reserve(100);
  for (int point = 0; point < 100; ++point) {
    points.emplace_back(Ascii(std::to_string(point)), Ascii(std::to_string(100 - point)));
  }
  bench.FillTable(points);
  bench.dialogs.QueueFile(u"/korva/data/out.csv");
  bench.Click(bench.Z2().linearizer.cmd_csvFileSave);
  const String text = bench.TextOf(u"/korva/data/out.csv");
  EXPECT_TRUE(text.starts_with(u"0,100\r\n1,99\r\n"));
  EXPECT_TRUE(text.ends_with(u"99,1\r\n"));
  EXPECT_EQ(std::count(text.begin(), text.end(), u'\n'), 100);
}

// Live values.

/// The units that stand beside items 04, 06 and 07 while the monitor runs on a model whose device tells
/// `answers`.
std::vector<String> LiveUnits(const String& model,
                              const std::map<std::string, std::optional<std::string>>& answers) {
  Z2Bench bench(model);
  bench.Read();
  bench.line.replies = answers;
  bench.loop.StartTimer(std::chrono::minutes(1), [&] { bench.Z2().monitor.RequestStop(); });
  bench.Click(bench.Z2().monitor.cmdMonitorON);
  return {bench.UnitOf(u"04"), bench.UnitOf(u"06"), bench.UnitOf(u"07")};
}

TEST(Z2KvConfigMonitor, ALiveTemperatureHasTheUnitThatTheDeviceTellsNotThePages) {
  for (const char16_t* model : {u"Z2WT", u"Z2WT2", u"Z8WT"}) {
    EXPECT_EQ(LiveUnits(model, {{"01/21 D", "Ddeg F"}}), (std::vector<String>{u"deg F", u"mV", u"deg F"}))
        << ToUtf8(model);
  }
  for (const char16_t* model : {u"Z2WR", u"Z2WR2", u"Z8WR"}) {
    EXPECT_EQ(LiveUnits(model, {{"01/21 D", "DK"}}), (std::vector<String>{u"K", u"Ohm", u"K"}))
        << ToUtf8(model);
  }
}

TEST(Z2KvConfigMonitor, ALiveVoltageHasTheUnitOfTheTypeThatTheDeviceTells) {
  for (const char16_t* model : {u"Z2WV", u"Z2WV2", u"Z8WV"}) {
    EXPECT_EQ(LiveUnits(model, {{"01/10 D", "D-50 - 50 mV"}}), (std::vector<String>{u"mV", u"mV", u"mV"}))
        << ToUtf8(model);
  }
}

TEST(Z2KvConfigMonitor, ALivePositionHasTheUnitOfItsTypeAndTheRatioThatOfItsRow) {
  for (const char16_t* model : {u"Z2WM", u"Z2WM2", u"Z8WM"}) {
    Z2Bench bench(model);
    bench.Read();
    bench.loop.StartTimer(std::chrono::seconds(30), [&] { bench.Z2().monitor.RequestStop(); });
    bench.Click(bench.Z2().monitor.cmdMonitorON);
    EXPECT_EQ((std::vector<String>{bench.UnitOf(u"04"), bench.UnitOf(u"06"), bench.UnitOf(u"07")}),
              (std::vector<String>{u"%", u"%", u"%"}))
        << ToUtf8(model);
    EXPECT_EQ(bench.Accesses("01/10 D"), Texts{"01/10 D"}) << "once, for item 04; item 06 has its row's";
  }
}

TEST(Z2KvConfigMonitor, ACurrentHasTheUnitOfItsTypeInAllThree) {
  for (const char16_t* model : {u"Z2WF", u"Z2WF2", u"Z8WF"}) {
    EXPECT_EQ(LiveUnits(model, {{"01/10 D", "D4 - 20 mA"}}), (std::vector<String>{u"mA", u"mA", u"mA"}))
        << ToUtf8(model);
  }
}

/// What is read of the live items while the monitor runs, one after the other: "04 03".
std::string LiveReads(const Z2Bench& bench) {
  std::string reads;
  for (const std::string& access : bench.line.accesses) {
    for (const char* item : {"03", "04", "05", "06", "07"}) {
      if (access == std::string("01/") + item + " D") {
        reads += (reads.empty() ? "" : " ") + std::string(item);
      }
    }
  }
  return reads;
}

TEST(Z2KvConfigMonitor, ItsCycleIs04Then03WhereItsSistersRead05Then06And07WithHalfASecondEach) {
  for (const String& model : ModelsOf(u"Lite")) {
    Z2Bench bench(model);
    bench.Read();
    std::vector<Clock> first;
    std::size_t reads = 0;
    bench.loop.OnPump([&] {
      if (const std::size_t now = bench.Accesses("01/04 D").size(); now != reads) {
        reads = now;
        first.push_back(bench.loop.Now());
        if (reads == 2) {
          bench.Z2().monitor.RequestStop();
        }
      }
    });
    bench.Click(bench.Z2().monitor.cmdMonitorON);
    EXPECT_EQ(LiveReads(bench), "04 03 06 07 04 03 06 07") << ToUtf8(model);
    ASSERT_EQ(first.size(), 2U);
    EXPECT_GE(first[1] - first[0], Milliseconds(4 * 500));
    EXPECT_EQ(bench.device.Mode(), '0');
    bench.ExpectAtRest();
  }
}

TEST(Z2KvConfigMonitor,
     AnItemThatTheDeviceAnswersWithCngGoesEmptyLosesItsUnitAndIsSkippedFromTheNextCycleOn) {
  for (const char16_t* item : {u"04", u"03", u"06", u"07"}) {
    Z2Bench bench(u"Z2WT");
    bench.Read();
    bench.line.replies["01/" + ToUtf8(item) + " D"] = "CNG";
    bench.loop.StartTimer(std::chrono::seconds(20), [&] { bench.Z2().monitor.RequestStop(); });
    bench.Click(bench.Z2().monitor.cmdMonitorON);
    EXPECT_EQ(bench.Field(item).Text(), u"") << ToUtf8(item);
    EXPECT_EQ(bench.UnitOf(item), u"");
    EXPECT_EQ(bench.Accesses("01/" + ToUtf8(item) + " D").size(), 1U);
    for (const char16_t* other : {u"04", u"03", u"06", u"07"}) {
      if (StringView(other) != item) {
        EXPECT_GE(bench.Accesses("01/" + ToUtf8(other) + " D").size(), 3U) << ToUtf8(other);
      }
    }
    EXPECT_EQ(bench.TakeBoxes(), Texts());
  }
}

// Forced output.

TEST(Z2KvConfigOutput, From1500BelowTo11500IsTakenAndShownLessItsUnitAndWhatLiesBeyondIsRefused) {
  for (const String& model : ModelsOf(u"Lite")) {
    for (const char16_t* good : {u"-15.00", u"115.00", u"62.5 %"}) {
      Z2Bench bench(model);
      bench.Read();
      bench.ForceOutput(good);
      EXPECT_EQ(bench.TakeBoxes(), Texts());
      EXPECT_EQ(bench.device.Mode(), '1');
      const double sent = LeadingNumber(good);
      EXPECT_EQ(LeadingNumber(FromUtf8(bench.device.Value("01", "03"))), sent);
      EXPECT_TRUE(IsNumeric(bench.Field(u"03_mon").Text())) << ToUtf8(bench.Field(u"03_mon").Text());
      EXPECT_EQ(LeadingNumber(bench.Field(u"03_mon").Text()), sent);
      bench.Click(Part<OutputSetting>(bench.Page()).cmdStatusMonOFF);
      EXPECT_EQ(bench.device.Mode(), '0');
      bench.ExpectAtRest();
    }
    for (const char16_t* bad : {u"-15.01", u"115.01"}) {
      Z2Bench bench(model);
      bench.Read();
      bench.ForceOutput(bad);
      EXPECT_EQ(bench.TakeBoxes(), Texts{"設定値ﾁｪｯｸ: 出力設定値は、-15.00% から 115.00% の範囲です。"});
      EXPECT_EQ(bench.line.accesses, Texts()) << "nothing is sent";
    }
  }
}

TEST(Z2KvConfigOutput, OffWithTheCablePulledShowsTheFailureAndUnlocksAllTheSame) {
  Z2Bench bench(u"Z2WR");
  bench.Read();
  bench.ForceOutput(u"50");
  bench.device.AddFault(sim::ParseFault("silent"));
  bench.Click(Part<OutputSetting>(bench.Page()).cmdStatusMonOFF);
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::NotMonitorMode)});
  bench.ExpectAtRest();
}

TEST(Z2KvConfigMonitor, ACycleInWhichNothingIsReadWaitsHalfASecondWithEvents) {
  Z2Bench bench(u"Z2WV");
  bench.line.replies["01/10 D"] = std::nullopt;  // no unit of items 04, 06 and 07
  bench.Do([&] { bench.Z2().UnitLabelOf(bench.Z2().FindDataRow(u"03"))->SetCaption({}); });
  const Clock begun = bench.loop.Now();
  bench.loop.StartTimer(std::chrono::minutes(3), [&] { bench.Z2().monitor.RequestStop(); });
  bench.Click(bench.Z2().monitor.cmdMonitorON);
  EXPECT_GE(bench.loop.Now() - begun, std::chrono::minutes(3));
  EXPECT_LT(bench.loop.Now() - begun, std::chrono::minutes(3) + Milliseconds(600));
  EXPECT_EQ(bench.Accesses("01/04 D"), Texts());
  bench.ExpectAtRest();
}

}  // namespace
}  // namespace korva::test
