// The page of family Nano with a simulated device behind it.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <tuple>
#include <utility>

#include "core/text_utilities.h"
#include "support/tabs.h"
#include "z8_kv_config_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

const std::string kBadValue = Shown(BoxKey::ValueBad);

// The page.

TEST(Z8KvConfig, HasItsEightTabsAndItsSpeed) {
  Z8Bench bench(u"Z8WT2");
  Texts captions;
  for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
    captions.push_back(ToUtf8(bench.Page().Tabs.TabCaption(tab)));
  }
  captions.erase(captions.begin() + 4);  // the table
  EXPECT_EQ(captions, (Texts{"ﾌｧｲﾙ", "入力", "出力(1)", "出力(2)", "CJM", "ﾎﾟｰﾄ", "I/O ﾁｪｯｸ"}));
  EXPECT_EQ(bench.Page().Tabs.Name(), "KvCfg_Tab");
  EXPECT_EQ(bench.app.link.line.Settings(), u"9600,n,8,1");
}

TEST(Z8KvConfig, EveryControlStandsOnATab) {
  Z8Bench bench(u"Z8WT2");
  Texts names = {
      "lblInputScale0",  "lblInputScale100", "lblInputPropMin", "lblInputPropMax", "lblOut1Scale0",
      "lblOut1Scale100", "lblOut1PropMin",   "lblOut1PropMax",  "lblOut2Scale0",   "lblOut2Scale100",
      "lblOut2PropMin",  "lblOut2PropMax",   "IO_lblShowOut1",  "IO_lblShowOut2",  "fraZeroSpan",
      "IO_lblOut1",      "IO_lblOut2",       "lblCompX",        "txtCompX",        "lbl_unitX",
      "lblCompY",        "txtCompY",         "lbl_unitY",       "lblComp",         "cmdLineSet",
      "cmdLineReset",    "cmd0Per",          "cmd100Per",       "cmdCalReset",     "cmdReadOutComp",
      "cmdSet",          "cmdStatusMonOFF",  "cmdMonitorON",    "cmdMonitorOFF",   "fraCJM",
      "Combo(0)",        "Combo(1)",         "Combo(2)",        "Frame(0)",        "Frame(1)",
      "Frame(2)",        "Frame(3)"};
  for (const std::string end : {"Out1Zero", "Out1Span", "Out2Zero", "Out2Span"}) {
    for (const std::string button : {"Start", "P001", "P01", "M001", "M01", "Reset"}) {
      names.push_back(std::string("cmd").append(end).append(button));
    }
    names.insert(names.end(), {"txt" + end, "lbl" + end + "Unit", "IO_lbl" + end});
  }
  for (const std::string& name : names) {
    const Control* control = bench.Page().FindControl(name);
    ASSERT_NE(control, nullptr) << name;
    EXPECT_GE(bench.Page().TabOf(*control), 0) << name << " stands on no tab";
  }
  for (int index = 0; index < 44; ++index) {
    EXPECT_GE(bench.Page().TabOf(bench.Page().Text[index]), 0) << index;
    EXPECT_GE(bench.Page().TabOf(bench.Page().lbl_unit[index]), 0) << index;
    EXPECT_GE(bench.Page().TabOf(bench.Page().lbl_Item[index]), 0) << index;
    EXPECT_GE(bench.Page().TabOf(bench.Page().CaptionLabels[index]), 0) << index;
  }
  for (const int index : {13, 14}) {
    EXPECT_EQ(bench.Page().Text[index].Container(), &bench.Z8().cold_junction.fraCJM) << index;
  }
  for (int index = 20; index <= 26; ++index) {
    EXPECT_EQ(bench.Page().TabOf(bench.Page().Text[index]), bench.Page().TabWith(TextKey::IoCheck)) << index;
  }
}

TEST(Z8KvConfig, HasItsCaptionsInTheOtherSetOfTextsToo) {
  Z8Bench bench(u"Z8WV2");
  bench.Do([&] { bench.Page().SetCaptions(Language::English); });
  Texts captions;
  for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
    captions.push_back(ToUtf8(bench.Page().Tabs.TabCaption(tab)));
  }
  EXPECT_EQ(captions,
            (Texts{"File", "Input", "Output(1)", "Output(2)", "Linearizer", "CJM", "Port", "I/O check"}));
  const auto caption = [&](const char* name) { return ToUtf8(bench.Page().FindControl(name)->ShownText()); };
  EXPECT_EQ(caption("IO_lblShowOut1"), "Monitor");
  EXPECT_EQ(caption("IO_lblShowOut2"), "Monitor");
  EXPECT_EQ(caption("cmdUpload"), "UPLOAD");
  EXPECT_EQ(caption("cmdChangeCJM"), "Change CJM");
  EXPECT_EQ(caption("cmd_csvFileSave"), "Save *.csv");
}

TEST(Z8KvConfig, ListsOfADefinitionThatTheModelsDoNotHaveAreReadAndMeanNothing) {
  test::PageBench bench;
  const String text = bench.TextOf(DefPath(u"Z8WV2"));
  const std::size_t tabs = text.find(u"\n$SSTab") + 1;
  const String lists =
      u"$I00\r\n0, DC, $I10\r\n$I82\r\n0, NONE\r\n1, ODD\r\n$I83\r\n0, 1\r\n$I84\r\n0, 9600\r\n";
  bench.files.Put(DefPath(u"Z8WV2"),
                  bench.code_page.Encode(text.substr(0, tabs) + lists + text.substr(tabs)).value());
  bench.Choose(u"Z8WV2");
  EXPECT_EQ(bench.TakeBoxes(), Texts());
  EXPECT_EQ(bench.Page().Def[u"$I82"].At(1, 1), u"ODD");
  EXPECT_EQ(bench.Page().Def[u"$I00"].At(0, 2), u"$I10");
  EXPECT_EQ(bench.Page().Combo[0].Entries().size(), 4U);
  EXPECT_EQ(bench.Page().Combo[2].Entries().size(), 3U);
  EXPECT_TRUE(bench.Page().Tabs.TabEnabled(7)) << "the list of the tabs stands behind them";
}

TEST(Z8KvConfig, TheLimitsReadMaximumAndMinimum) {
  Z8Bench bench(u"Z8WV2");
  const auto caption = [&](const char* name) { return ToUtf8(bench.Page().FindControl(name)->ShownText()); };
  EXPECT_EQ(caption("lblInputPropMin"), "最小");
  EXPECT_EQ(caption("lblOut2PropMax"), "最大");
  EXPECT_EQ(caption("lblOut1Scale0"), "0%");
  EXPECT_EQ(caption("IO_lblShowOut1"), "第1出力表示");
  EXPECT_EQ(caption("IO_lblShowOut2"), "第2出力表示");
  EXPECT_EQ(caption("fraZeroSpan"), "ｾﾞﾛ/ｽﾊﾟﾝ調整");
  EXPECT_EQ(caption("IO_lblOut2"), "第2出力");
  EXPECT_EQ(caption("IO_lblOut1Zero"), "ｾﾞﾛ点微調整");
  EXPECT_EQ(caption("IO_lblOut2Span"), "ｽﾊﾟﾝ微調整");
}

TEST(Z8KvConfig, TheCjmTabIsOpenOnThermocouplesAlone) {
  for (const char16_t* model : {u"Z8WV2", u"Z8WM2", u"Z8WT2", u"Z8WR2"}) {
    Z8Bench bench(model);
    EXPECT_EQ(TabOpen(bench.Page(), TextKey::Cjm), String(model) == u"Z8WT2") << ToUtf8(model);
  }
}

TEST(Z8KvConfig, TheBoxOfTheSecondOutputIsReadOnlyAndOutsideTheBlankCheck) {
  Z8Bench bench(u"Z8WV2");
  bench.Read();
  TextField& box = bench.Page().Text[22];
  EXPECT_TRUE(box.Visible() && box.Locked());
  EXPECT_EQ(box.Text(), u"");
  EXPECT_EQ(bench.Page().lbl_unit[22].Caption(), u"%");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  bench.ForceOutput(u"60");
  EXPECT_EQ(bench.Field(u"03_mon").Text(), u"60.00");
  EXPECT_EQ(box.Text(), u"60.00");
}

// Two numbers in one item.

TEST(Z8KvConfigPairs, AreSplitIntoTheirFieldsAndJoinedWithOneBlank) {
  Z8Bench bench(u"Z8WV2");
  const std::vector<std::array<String, 3>> rows = {
      {u"14_0", u"14_100", u"14"},   {u"15_Min", u"15_Max", u"15"}, {u"12_0", u"12_100", u"12"},
      {u"13_Min", u"13_Max", u"13"}, {u"42_0", u"42_100", u"42"},   {u"43_Min", u"43_Max", u"43"}};
  int low = 1;
  for (const auto& [first, second, item] : rows) {
    EXPECT_TRUE(bench.device.Set("01", ToUtf8(item), std::to_string(low) + " " + std::to_string(low + 10)));
    ++low;
  }
  bench.Read();
  low = 1;
  for (const auto& [first, second, item] : rows) {
    const String mask = item == u"14" ? u".00" : u".000";
    EXPECT_EQ(bench.Field(first).Text(), Ascii(std::to_string(low)) + mask);
    EXPECT_EQ(bench.Field(second).Text(), Ascii(std::to_string(low + 10)) + mask);
    EXPECT_EQ(bench.Page().GroupItem.At(u"01", item),
              Ascii(std::to_string(low) + ".000 " + std::to_string(low + 10) + ".000"));
    bench.Type(second, u"3");
    EXPECT_EQ(bench.Page().GroupItem.At(u"01", item), Ascii(std::to_string(low)) + u".000 3");
    ++low;
  }
}

TEST(Z8KvConfigPairs, AreTakenWholeEachNumberLosingItsOwnUnit) {
  for (const auto& [answer, first, second] :
       {std::array<std::string, 3>{"D0.5 mV 7.25 mV", "0.50", "7.25"},
        std::array<std::string, 3>{"D0.5mV 7.25mV", "0.50", "7.25"},
        std::array<std::string, 3>{"D   0.5     7.25 deg C", "0.50", "7.25"},
        std::array<std::string, 3>{"D-1", "-1.00", ""}}) {
    Z8Bench bench(u"Z8WV2");
    bench.line.replies["01/14 D"] = answer;
    bench.Read();
    EXPECT_EQ(ToUtf8(bench.Field(u"14_0").Text()), first) << answer;
    EXPECT_EQ(ToUtf8(bench.Field(u"14_100").Text()), second) << answer;
  }
}

class Z8PairUnitsTest : public testing::TestWithParam<const char16_t*> {};
INSTANTIATE_TEST_SUITE_P(Model, Z8PairUnitsTest, testing::Values(u"Z8WV2", u"Z8WM2", u"Z8WT2", u"Z8WR2"),
                         [](const auto& parameter) { return ToUtf8(parameter.param); });

TEST_P(Z8PairUnitsTest, OfADeviceThatTellsAUnitBehindEachNumberArePassedOn) {
  Z8Bench plain(GetParam());
  plain.Read();
  Z8Bench bench(GetParam());
  bench.device.AddFault(sim::ParseFault("pair-units"));
  EXPECT_EQ(bench.BoxesOfUpload().back(), Shown(BoxKey::UploadDone));
  for (const int item : {12, 13, 14, 15, 42, 43}) {
    EXPECT_EQ(bench.Page().Item(item), plain.Page().Item(item)) << item;
    EXPECT_NE(bench.Page().Item(item), u"") << item;
  }
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "14"), plain.device.Value("01", "14"));
}

class Z8PairSideTest : public testing::TestWithParam<const char16_t*> {};
INSTANTIATE_TEST_SUITE_P(Key, Z8PairSideTest,
                         testing::Values(u"14_0", u"14_100", u"15_Min", u"15_Max", u"12_0", u"12_100",
                                         u"13_Min", u"13_Max", u"42_0", u"42_100", u"43_Min", u"43_Max"),
                         [](const auto& parameter) { return "Item" + ToUtf8(parameter.param); });

TEST_P(Z8PairSideTest, ThatIsEmptyIsBlankInTheCheckAndNothingIsSent) {
  Z8Bench bench(u"Z8WM2");
  bench.Read();
  const String item = String(GetParam()).substr(0, 2);
  const String before = bench.Page().GroupItem.At(u"01", item);
  bench.Type(GetParam(), u"");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank));
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::FieldBlank)});
  EXPECT_EQ(bench.Accesses("01/01 D1"), Texts()) << "programming mode was not entered";
  bench.Type(GetParam(), u"7");
  const std::size_t blank = before.find(u' ');
  const bool first = String(GetParam()).ends_with(u"_0") || String(GetParam()).ends_with(u"_Min");
  EXPECT_EQ(bench.Page().GroupItem.At(u"01", item),
            first ? u"7" + before.substr(blank) : before.substr(0, blank) + u" 7")
      << "the other number stayed at its place";
}

TEST(Z8KvConfigPairs, ABlankThatWasTypedIntoANumberLeavesTheOtherOneAlone) {
  Z8Bench bench(u"Z8WV2");
  bench.Read();
  for (const auto& [key, mended] : {std::pair(u"14_0", u"5 100.000"), std::pair(u"14_100", u"-100.000 5")}) {
    bench.Read();
    bench.Type(key, u"5 6");
    EXPECT_EQ(bench.CheckResult(), kBadValue) << "it is no number";
    EXPECT_EQ(bench.LookOf(key), Look::Bad);
    EXPECT_EQ(bench.LookOf(String(key) == u"14_0" ? u"14_100" : u"14_0"), Look::Normal);
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{kBadValue});
    bench.Type(key, u"5");
    EXPECT_EQ(bench.Page().Item(14), mended);
  }
}

TEST(Z8KvConfigPairs, AreOneRecordOfAFile) {
  Z8Bench bench(u"Z8WV2");
  bench.Read();
  bench.Type(u"14_0", u"-50.5");
  bench.Save(kFile);
  const std::string text = ToUtf8(bench.TextOf(kFile));
  for (const char* record :
       {R"("1","12","4.000 20.000")", R"("1","13","0.000 24.000")", R"("1","14","-50.5 100.000")",
        R"("1","15","-115.000 115.000")", R"("1","42","4.000 20.000")", R"("1","43","0.000 24.000")"}) {
    EXPECT_NE(text.find(std::string(record) + "\r\n"), std::string::npos) << record;
  }
  EXPECT_EQ(text.find("_0"), std::string::npos) << "the parts have no records of their own";
  bench.New();
  bench.Open(kFile);
  EXPECT_EQ(bench.Field(u"14_0").Text(), u"-50.50");
  EXPECT_EQ(bench.Field(u"14_100").Text(), u"100.00");
}

TEST(Z8KvConfigPairs, TheFirstRowTellsForBothWhetherAndWhereTheItemIsReadAndWritten) {
  Z8Bench bench(u"Z8WT2");
  EXPECT_TRUE(bench.device.Set("01", "02", "PUMP 1") && bench.device.Set("01", "23", "ON") &&
              bench.device.Set("01", "24", "DOWNSCALE"));
  bench.BoxesOfUpload();
  for (const char* item : {"12", "13", "14", "15", "42", "43"}) {
    EXPECT_EQ(bench.Accesses(std::string("01/") + item + " D").size(), 1U) << item << " is read once";
  }
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  Texts written;
  for (const std::string& access : bench.Accesses("01/")) {
    if (access.size() > 7 && access.substr(3, 2) != "01") {
      written.push_back(access.substr(3));
    }
  }
  EXPECT_EQ(written, (Texts{"02 DPUMP 1", "10 D0", "21 D0", "23 D1", "24 D2", "14 D0.000 1760.000",
                            "15 D0.000 1760.000", "11 D0", "12 D4.000 20.000", "13 D0.000 24.000", "41 D0",
                            "42 D4.000 20.000", "43 D0.000 24.000"}));
}

TEST(Z8KvConfigPairs, ShowAsManyDecimalsAsTheStepOfTheInputTypeAndThreeOtherwise) {
  Z8Bench bench(u"Z8WV2");
  bench.Read();
  bench.Show(14, u"1.23456 2");
  EXPECT_EQ(bench.Field(u"14_0").Text(), u"1.23");
  bench.Show(10, u"-1-1 V");
  EXPECT_EQ(bench.Field(u"14_0").Text(), u"1.235");
  bench.Show(12, u"4.5 20");
  EXPECT_EQ(bench.Field(u"12_0").Text(), u"4.500");
  Z8Bench thermocouple(u"Z8WT2");
  thermocouple.Read();
  EXPECT_EQ(thermocouple.Field(u"14_100").Text(), u"1760.0");
  EXPECT_EQ(thermocouple.Field(u"15_Max").Text(), u"1760.000");
}

TEST(Z8KvConfigPairs, KeepTheDevicesDigitsBehindTheMaskAndThoseOfTheOtherNumberInAnEdit) {
  Z8Bench bench(u"Z8WT2");
  bench.Read();
  bench.Show(14, u"12.345 456.789");
  EXPECT_EQ(bench.Field(u"14_0").Text(), u"12.3");
  bench.Type(u"14_100", u"500");
  EXPECT_EQ(bench.Page().Item(14), u"12.345 500");
  bench.Show(14, u"12.345 456.789");
  bench.Type(u"14_0", u"");
  EXPECT_EQ(bench.Page().Item(14), u" 456.789");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank));
  bench.Type(u"14_0", u"1");
  EXPECT_EQ(bench.Page().Item(14), u"1 456.789");
}

TEST(Z8KvConfigPairs, GoOutAsOneItemThatWasNotEditedAsItWasReadAndAnEditByTheDevicesMask) {
  Z8Bench bench(u"Z8WV2");
  bench.line.replies["01/14 D"] = "D -5.1 5.20 mV";
  bench.Read();
  bench.line.replies.clear();
  bench.Type(u"12_0", u"5.5");
  bench.Type(u"43_Max", u"22");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.Accesses("01/14 D-"), Texts{"01/14 D-5.1 5.20"});
  EXPECT_EQ(bench.Accesses("01/12 D5"), Texts{"01/12 D5.500 20.000"});
  EXPECT_EQ(bench.device.Value("01", "43"), "0.000 22.000");
  EXPECT_EQ(bench.Accesses("01/42 D4"), Texts{"01/42 D4.000 20.000"});
}

// Temperatures.

TEST(Z8KvConfigTemperatures, AreInDegCOnTheWireWhateverThePageShows) {
  Z8Bench bench(u"Z8WT2");
  EXPECT_TRUE(bench.device.Set("01", "21", "deg F") && bench.device.Set("01", "14", "12.345 100"));
  bench.Read();
  EXPECT_EQ(bench.UnitOf(u"14_0"), u"deg F");
  EXPECT_EQ(bench.Field(u"14_0").Text(), u"54.2");
  EXPECT_EQ(bench.Field(u"14_100").Text(), u"212.0");
  EXPECT_EQ(bench.Field(u"15_Max").Text(), u"3200.000");
  bench.Type(u"14_100", u"392");
  EXPECT_EQ(bench.BoxesOfDownload().back(), kBadValue) << "less than 370 degrees wide";
  bench.Type(u"14_100", u"1472");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "14"), "12.345 800.000") << "1472 F x 5 / 9 - 17.8 is 800.0";
  EXPECT_EQ(bench.device.Value("01", "15"), "0.000 1760.000");
}

TEST(Z8KvConfigTemperatures, AreInTheUnitThatStandsBesideThemThoughTheUploadEndsEarly) {
  Z8Bench bench(u"Z8WT2");
  EXPECT_TRUE(bench.device.Set("01", "21", "deg F") && bench.device.Set("01", "14", "0 100"));
  bench.line.replies["01/24 D"] = "CNG";  // behind the range and the unit
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadAgain)});
  EXPECT_EQ(bench.UnitOf(u"14_100"), u"deg F");
  EXPECT_EQ(bench.Field(u"14_0").Text(), u"32.0");
  EXPECT_EQ(bench.Field(u"14_100").Text(), u"212.0");
  EXPECT_EQ(bench.Field(u"15_Max").Text(), u"3200.000");
}

TEST(Z8KvConfigTemperatures, AreInTheUnitThatTheDeviceTellsByItsCode) {
  Z8Bench bench(u"Z8WT2");
  EXPECT_TRUE(bench.device.Set("01", "14", "0 100"));
  bench.line.replies["01/21 D"] = "D               2";
  bench.Read();
  EXPECT_EQ(bench.Page().Item(21), u"K");
  EXPECT_EQ(bench.UnitOf(u"14_100"), u"K");
  EXPECT_EQ(bench.Field(u"14_100").Text(), u"373.2");
}

TEST(Z8KvConfigTemperatures, AnotherUnitAndBackLeavesWhatWasReadAsItWas) {
  Z8Bench bench(u"Z8WR2");
  EXPECT_TRUE(bench.device.Set("01", "14", "12.345 99.96"));
  bench.Read();
  bench.Press(bench.Page().optTempUnit, 2);
  EXPECT_EQ(bench.UnitOf(u"14_0"), u"K");
  EXPECT_EQ(bench.Page().Item(14), u"285.5 373.2");
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_EQ(bench.Page().Item(14), u"54.2 211.9");
  bench.Press(bench.Page().optTempUnit, 0);
  EXPECT_EQ(bench.Page().Item(14), u"12.345 99.960");
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "14"), "12.345 99.960");
  EXPECT_EQ(bench.device.Value("01", "21"), "deg F");
}

TEST(Z8KvConfigTemperatures, AnEditedOneIsConvertedFromWhatTheFieldShows) {
  Z8Bench bench(u"Z8WR2");
  bench.Read();
  bench.Type(u"14_100", u"212.25");
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_EQ(bench.Page().Item(14), u"-328 414");
  bench.Press(bench.Page().optTempUnit, 0);
  EXPECT_EQ(bench.Page().Item(14), u"-200.000 212.2") << "rounded twice";
}

TEST(Z8KvConfigTemperatures, OfAFileAreThoseOfItsUnit) {
  Z8Bench bench(u"Z8WT2");
  bench.Read();
  bench.Press(bench.Page().optTempUnit, 1);
  bench.Save(kFile);
  bench.New();
  bench.Open(kFile);
  EXPECT_EQ(bench.UnitOf(u"14_100"), u"deg F");
  EXPECT_EQ(bench.Page().Item(14), u"32 3200");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "14"), "0.000 1760.000") << "(32 - 32) and 3200 F x 5 / 9 - 17.8";
}

TEST(Z8KvConfigTemperatures, ConvertTheLiveBoxesOfItems04And07WithThem) {
  Z8Bench bench(u"Z8WT2");
  bench.Read();
  bench.PressAt(2s, bench.Z8().monitor.cmdMonitorOFF);
  EXPECT_TRUE(bench.device.Set("01", "04", "100") && bench.device.Set("01", "06", "4.1"));
  bench.Click(bench.Z8().monitor.cmdMonitorON);
  EXPECT_EQ(bench.Field(u"04").Text(), u"100.00");
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_EQ(bench.Field(u"04").Text(), u"212.00");
  EXPECT_EQ(bench.Field(u"07").Text(), u"77.00");
  EXPECT_EQ(bench.Field(u"06").Text(), u"4.10");
}

TEST(Z8KvConfigTemperatures, MonitoringOfANanoZ8WT2InDegFItem04Of100Point0Shows74Point4Item06ShowsUnchanged) {
  Z8Bench bench(u"Z8WT2");
  EXPECT_TRUE(bench.device.Set("01", "21", "deg F") && bench.device.Set("01", "04", "100") &&
              bench.device.Set("01", "06", "100") && bench.device.Set("01", "07", "102.6"));
  bench.PressAt(2s, bench.Z8().monitor.cmdMonitorOFF);
  bench.Click(bench.Z8().monitor.cmdMonitorON);
  EXPECT_EQ(bench.Field(u"04").Text(), u"74.4");
  EXPECT_EQ(bench.Field(u"06").Text(), u"100.00");
  EXPECT_EQ(bench.Field(u"07").Text(), u"77");
  EXPECT_EQ(bench.UnitOf(u"04"), u"deg F");
  EXPECT_EQ(bench.UnitOf(u"06"), u"mV");
}

TEST(Z8KvConfigMonitor, ReadsAnItemThenTheUnitAnewOnTheTwoModelsWithTemperatures) {
  for (const char16_t* model : {u"Z8WT2", u"Z8WR2", u"Z8WV2", u"Z8WM2"}) {
    Z8Bench bench(model);
    bench.Read();
    bench.PressAt(2s, bench.Z8().monitor.cmdMonitorOFF);
    bench.Click(bench.Z8().monitor.cmdMonitorON);
    const auto first = std::find(bench.line.accesses.begin(), bench.line.accesses.end(), "01/04 D");
    const Texts cycle(first, bench.line.accesses.end());
    const bool temperatures = String(model) == u"Z8WT2" || String(model) == u"Z8WR2";
    EXPECT_EQ(cycle,
              temperatures
                  ? (Texts{"01/04 D", "01/21", "01/21 D", "01/05", "01/05 D", "01/21", "01/21 D", "01/06",
                           "01/06 D", "01/21", "01/21 D", "01/07", "01/07 D", "01/21", "01/21 D"})
                  : (Texts{"01/04 D", "01/05", "01/05 D", "01/06", "01/06 D", "01/07", "01/07 D"}))
        << ToUtf8(model);
  }
}

TEST(Z8KvConfigMonitor, TellsTheUnitsOfEachModel) {
  const std::vector<std::array<String, 3>> expected = {{u"Z8WV2", u"mV", u"mV"},
                                                       {u"Z8WM2", u"%", u"%"},
                                                       {u"Z8WT2", u"deg C", u"mV"},
                                                       {u"Z8WR2", u"deg C", u"Ohm"}};
  for (const auto& [model, input, signal] : expected) {
    Z8Bench bench(model);
    bench.Read();
    bench.PressAt(2s, bench.Z8().monitor.cmdMonitorOFF);
    bench.Click(bench.Z8().monitor.cmdMonitorON);
    EXPECT_EQ(bench.UnitOf(u"04"), input) << ToUtf8(model);
    EXPECT_EQ(bench.UnitOf(u"06"), signal) << ToUtf8(model);
    EXPECT_EQ(bench.UnitOf(u"07"), input) << ToUtf8(model);
    EXPECT_EQ(bench.UnitOf(u"05"), u"%") << ToUtf8(model);
    bench.ExpectAtRest();
  }
}

TEST(Z8KvConfigMonitor, TheUnitOfItem07IsLitWhileItIsLookedUpAndDoesNotBlink) {
  Z8Bench bench(u"Z8WT2");
  bench.Read();
  bench.line.replies["01/21 D"] = std::nullopt;  // each lookup waits in vain
  const auto looks_of = [&](const char16_t* item) {
    auto looks = std::make_shared<int>(0);
    Label* label = bench.Page().UnitLabelOf(bench.Page().FindDataRow(item));
    label->Observe([looks, label, last = Look::Normal]() mutable {
      *looks += std::exchange(last, label->ShownLook()) != label->ShownLook() ? 1 : 0;
    });
    return looks;
  };
  const auto blinking = looks_of(u"04");
  const auto lit = looks_of(u"07");
  bench.PressAt(120s, bench.Z8().monitor.cmdMonitorOFF);
  bench.Click(bench.Z8().monitor.cmdMonitorON);
  EXPECT_GT(*blinking, 20);
  EXPECT_EQ(*lit, 2) << "lit, and at rest again";
}

// What a choice brings along.

TEST(Z8KvConfigChoices, ListEveryRowThatHasATextAndAreOpen) {
  Z8Bench bench(u"Z8WT2");
  bench.Read();
  EXPECT_EQ(bench.Page().Combo[0].Entries().size(), 14U);
  EXPECT_EQ(bench.Page().Combo[0].Entries().back(), u"13 User's TC");
  for (const int box : {1, 2}) {
    EXPECT_EQ(bench.Page().Combo[box].Entries(), (std::vector<String>{u"4-20 mA", u"0-10 V", u"-10-10 V"}));
  }
  for (const int box : {0, 1, 2}) {
    EXPECT_EQ(bench.Page().WhyRefused(bench.Page().Combo[box]), "") << box;
  }
}

TEST(Z8KvConfigChoices, OfAnOptionHoldTheTextAndMeanItsRowByTheCodeToo) {
  const std::vector<std::tuple<int, String, String>> options = {
      {21, u"1", u"deg F"}, {23, u"0", u"OFF"}, {24, u"2", u"DOWNSCALE"}};
  for (const auto& [item, code, text] : options) {
    Z8Bench bench(u"Z8WT2");
    bench.Read();
    bench.Show(item, code);
    EXPECT_EQ(bench.Page().Item(item), text);
    bench.device.ClearFaults();
    bench.Page().DataChanged = false;
  }
  Z8Bench bench(u"Z8WT2");
  bench.Read();
  bench.Show(23, u"0");
  bench.Show(24, u"2");
  EXPECT_TRUE(bench.Z8().Opt_Cjc[0].Value());
  EXPECT_TRUE(bench.Z8().optBurn[2].Value());
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "23"), "OFF");
  EXPECT_EQ(bench.device.Value("01", "24"), "DOWNSCALE");
}

TEST(Z8KvConfigChoices, OfAnInputBringsItsRange) {
  Z8Bench bench(u"Z8WV2");
  bench.Read();
  bench.Pick(bench.Page().Combo[0], u"0-20 mA");
  EXPECT_EQ(bench.Page().Item(14), u"4 20");
  EXPECT_EQ(bench.Field(u"14_0").Text(), u"4.00");
  EXPECT_EQ(bench.UnitOf(u"14_100"), u"mA");
  EXPECT_EQ(bench.Page().Item(12), u"4.000 20.000") << "an output keeps its own";
}

TEST(Z8KvConfigChoices, OfAnOutputRefreshesItsOwnPair) {
  Z8Bench bench(u"Z8WV2");
  bench.Read();
  bench.Pick(bench.Page().Combo[1], u"0-10 V");
  EXPECT_EQ(bench.Page().Item(12), u"0 10");
  EXPECT_EQ(bench.Page().Item(42), u"4.000 20.000");
  bench.Pick(bench.Page().Combo[2], u"-10-10 V");
  EXPECT_EQ(bench.Page().Item(42), u"-10 10");
  EXPECT_EQ(bench.Page().Item(12), u"0 10");
  EXPECT_EQ(bench.Page().Item(14), u"-100.000 100.000");
}

TEST(Z8KvConfigChoices, InAnotherUnitBringARangeThatPassesTheCheck) {
  for (const auto& [unit, range] : {std::pair(1, u"-454 2498"), std::pair(2, u"4 1643")}) {
    Z8Bench bench(u"Z8WT2");
    bench.Read();
    bench.Press(bench.Page().optTempUnit, unit);
    bench.Pick(bench.Page().Combo[0], u"1 K (CA)");
    EXPECT_EQ(bench.Page().Item(14), range);
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  }
}

// The check of pairs.

struct PairCase {
  String model;
  String low_key;
  String high_key;
  String low;
  String high;
  bool low_bad;
  bool high_bad;
};

class Z8PairCheckTest : public testing::TestWithParam<PairCase> {};
INSTANTIATE_TEST_SUITE_P(
    Limits, Z8PairCheckTest,
    testing::Values(PairCase{u"Z8WV2", u"14_0", u"14_100", u"-115", u"115", false, false},
                    PairCase{u"Z8WV2", u"14_0", u"14_100", u"-115.01", u"115", true, false},
                    PairCase{u"Z8WV2", u"14_0", u"14_100", u"-115", u"115.01", false, true},
                    PairCase{u"Z8WV2", u"14_0", u"14_100", u"1", u"5", false, false},
                    PairCase{u"Z8WV2", u"14_0", u"14_100", u"1", u"4.999", true, true},
                    PairCase{u"Z8WV2", u"14_0", u"14_100", u"1", u"4.9996", false, false},
                    PairCase{u"Z8WV2", u"14_0", u"14_100", u"5", u"1", true, true},
                    PairCase{u"Z8WV2", u"12_0", u"12_100", u"0", u"24", false, false},
                    PairCase{u"Z8WV2", u"12_0", u"12_100", u"-0.01", u"24.01", true, true},
                    PairCase{u"Z8WV2", u"12_0", u"12_100", u"4", u"4.999", true, true},
                    PairCase{u"Z8WV2", u"42_0", u"42_100", u"4", u"5", false, false},
                    PairCase{u"Z8WV2", u"42_0", u"42_100", u"4", u"24.5", false, true},
                    PairCase{u"Z8WT2", u"14_0", u"14_100", u"0", u"370", false, false},
                    PairCase{u"Z8WT2", u"14_0", u"14_100", u"0", u"369.9", true, true},
                    PairCase{u"Z8WT2", u"14_0", u"14_100", u"x", u"370", true, false}),
    [](const auto& parameter) { return "Case" + std::to_string(parameter.index); });

TEST_P(Z8PairCheckTest, HoldsEachNumberToTheLimitsOfItsChoiceAndBothToTheirWidth) {
  const PairCase& one = GetParam();
  Z8Bench bench(one.model);
  bench.Read();
  bench.Type(one.low_key, one.low);
  bench.Type(one.high_key, one.high);
  const bool good = !one.low_bad && !one.high_bad;
  EXPECT_EQ(bench.CheckResult(), good ? Shown(BoxKey::CheckDone) : kBadValue);
  EXPECT_EQ(bench.LookOf(one.low_key), one.low_bad ? Look::Bad : Look::Normal);
  EXPECT_EQ(bench.LookOf(one.high_key), one.high_bad ? Look::Bad : Look::Normal);
}

TEST(Z8PairCheck, LimitsAndWidthsOfTemperaturesAreConvertedToTheUnitOfThePage) {
  Z8Bench bench(u"Z8WR2");  // JPt100: -200 to 510, 20 wide
  bench.Read();
  bench.Press(bench.Page().optTempUnit, 1);
  const auto result = [&](const String& low, const String& high) {
    bench.Type(u"14_0", low);
    bench.Type(u"14_100", high);
    return bench.CheckResult() == Shown(BoxKey::CheckDone);
  };
  EXPECT_TRUE(result(u"-328", u"950"));
  EXPECT_FALSE(result(u"-328.1", u"950"));
  EXPECT_FALSE(result(u"-328", u"950.1"));
  EXPECT_TRUE(result(u"100", u"136"));
  EXPECT_FALSE(result(u"100", u"135.9"));
  bench.Press(bench.Page().optTempUnit, 2);
  EXPECT_TRUE(result(u"74", u"783")) << "73.2 and 783.2 K, rounded inwards";
  EXPECT_FALSE(result(u"73.9", u"783"));
  EXPECT_FALSE(result(u"74", u"783.1"));
  EXPECT_TRUE(result(u"300", u"320"));
}

TEST(Z8PairCheck, ACorrectedNumberLosesItsMark) {
  Z8Bench bench(u"Z8WV2");
  bench.Read();
  bench.Type(u"14_0", u"-200");
  bench.CheckResult();
  bench.Type(u"14_0", u"-100");
  EXPECT_EQ(bench.LookOf(u"14_0"), Look::Bad) << "until the check runs again";
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  EXPECT_EQ(bench.LookOf(u"14_0"), Look::Normal);
}

// Whether the device is of the model.

TEST(Z8KvConfigModel, GuardsUploadsAndDownloads) {
  Z8Bench bench(u"Z8WT2", u"Z8WR2");
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::ModelMismatch)});
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::ModelMismatch)});
  EXPECT_EQ(bench.Accesses("01/"), Texts()) << "nothing was read or written";
  bench.ExpectAtRest();
}

TEST(Z8KvConfigModel, ATextShorterThanFiveCharactersDiffers) {
  Z8Bench bench(u"Z8WT2");
  for (const char* text : {"DZ8WT", "DZ8", "DZ8WT-2"}) {
    bench.line.replies["00/01"] = text;
    EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::ModelMismatch)}) << text;
  }
  bench.line.replies["00/01"] = "DZ8WT2";
  EXPECT_EQ(bench.BoxesOfUpload().front(), Shown(BoxKey::UploadDone));
}

TEST(Z8KvConfigUpload, AnItemThatDoesNotAnswerOrIsRefusedEndsIt) {
  Z8Bench bench(u"Z8WV2");
  bench.line.replies["01/12 D"] = "CNG";
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadAgain)});
  bench.line.replies["01/12 D"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::CommFailure)});
  EXPECT_EQ(bench.Field(u"14_0").Text(), u"-100.000") << "what was read is shown";
  EXPECT_EQ(bench.Field(u"12_0").Text(), u"");
  bench.ExpectAtRest();
}

TEST(Z8KvConfigDownload, CanChangeTheOutputsTypeSinceNothingIsFixedThere) {
  Z8Bench bench(u"Z8WV2");
  bench.Read();
  bench.Pick(bench.Page().Combo[1], u"0-10 V");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "11"), "0-10 V");
  EXPECT_EQ(bench.device.Value("01", "12"), "0.000 10.000");
}

TEST(Z8KvConfigDownload, AnOutputTypeThatTheModelHasNotStopsIt) {
  Z8Bench bench(u"Z8WV2");
  bench.Read();
  bench.line.replies["01/11 D"] = "D   other";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::OutputTypeUnknown)});
}

// The cold junction.

TEST(Z8KvConfigCjm, OnZ8KvConfigWriting25And574WritesTheText25000Blank574000) {
  Z8Bench bench(u"Z8WT2");
  EXPECT_TRUE(bench.device.Set("01", "34", "24.5 600"));
  bench.Read();
  EXPECT_EQ(bench.Field(u"34").Text(), u"24.500");
  EXPECT_EQ(bench.Field(u"35").Text(), u"600.000");
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(bench.Z8().cold_junction.cmdChangeCJM);
  EXPECT_EQ(bench.Field(u"34").Text(), u"24.500") << "they show what the last upload left";
  bench.Type(u"34", u"25.000");
  bench.Type(u"35", u"574.000");
  bench.line.accesses.clear();
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(bench.Z8().cold_junction.cmdWriteInCJM);
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::CjmChanged));
  EXPECT_EQ(bench.line.accesses, (Texts{"00/01", "01/01", "01/01 D1", "01/34", "01/34 D25.000 574.000",
                                        "01/34", "01/34 D", "01/01", "01/01 D0", "01/01", "01/01 D0"}));
  EXPECT_EQ(bench.device.Value("01", "34"), "25.000 574.000");
  bench.ExpectAtRest();
}

TEST(Z8KvConfigCjm, TheDefaultsAreThoseOfANewModuleAndPassTheCheckAsTheLimitsDo) {
  Z8Bench bench(u"Z8WT2");
  EXPECT_TRUE(bench.device.Set("01", "34", "24.5 600"));
  bench.Read();
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(bench.Z8().cold_junction.cmdChangeCJM);
  const auto check = [&](const String& first, const String& second) {
    bench.Type(u"34", first);
    bench.Type(u"35", second);
    bench.TakeBoxes();
    bench.Click(bench.Z8().cold_junction.cmdCJMcheck);
    return bench.TakeBoxes().back() == Shown(BoxKey::CheckDone);
  };
  EXPECT_TRUE(check(u"29.99999", u"500"));
  EXPECT_FALSE(check(u"30", u"574"));
  EXPECT_TRUE(check(u"20", u"699.99999"));
  EXPECT_FALSE(check(u"19.99", u"574"));
  EXPECT_FALSE(check(u"-999.9", u"574")) << "the default of the other pages";
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(bench.Z8().cold_junction.cmdDefaultCJM);
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::CjmSetToDefault));
  EXPECT_EQ(bench.device.Value("01", "34"), "25.000 574.000");
}

}  // namespace
}  // namespace korva::test
