// What is special about the page of family Third: its lists and options, tabs, captions, table and files.

#include <gtest/gtest.h>

#include <set>

#include "core/text_utilities.h"
#include "kv_config_v3_bench.h"
#include "support/page_parts.h"
#include "support/tabs.h"

namespace korva {
namespace {

using test::V3Bench;
using Settings = std::vector<std::pair<std::string, std::string>>;

using test::kFile;
constexpr const char16_t* kCsv = u"/korva/data/third.csv";

struct V3ModelTest : testing::TestWithParam<String> {
  static const String& Model() { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(FamilyThird, V3ModelTest, testing::ValuesIn(test::ModelsOf(u"Third")),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

TEST(FamilyThird, HasItsTenModelsInTheCatalogue) {
  EXPECT_EQ(test::ModelsOf(u"Third"), (std::vector<String>{u"QCE2", u"QEI2", u"QIEU2", u"QICE2", u"QCB2",
                                                           u"QEB2", u"QNA2", u"QEC2", u"QEY3", u"QHC2"}));
}

// Choices.

/// A set that passes the check under every choice of the model.
void MakeRoom(V3Bench& bench) {
  for (const auto& [item, value] :
       std::vector<std::pair<String, String>>{{u"14", u"0"}, {u"15", u"1"}, {u"18", u"1"}}) {
    if (bench.Page().FindField(item) != nullptr) {
      bench.Type(item, value);
    }
  }
}

TEST_P(V3ModelTest, EveryChoiceOfItsListsGoesOutAsItsCodeAndComesBackAsItsText) {
  V3Bench bench(Model());
  bench.Read();
  MakeRoom(bench);
  for (int row = 0; row < bench.Page().Def.Data().Rows(); ++row) {
    const String key = bench.Page().DataCell(row, kChoiceKey);
    const String item = bench.Page().DataCell(row, kItem);
    const bool box = !bench.Page().DataCell(row, kComboIndex).empty();
    if (key.empty() || (!box && key == u"$I10") || (!box && key == u"$I11")) {
      continue;  // the switch of the table brings its transfer, which has tests of its own
    }
    const StringTable& table = bench.Page().Def[key];
    for (int entry = 0; entry < table.Rows(); ++entry) {
      if (table.At(entry, 1).empty()) {
        continue;
      }
      SCOPED_TRACE(ToUtf8(item + u" " + table.At(entry, 1)));
      if (box) {
        bench.Pick(bench.BoxOf(item), table.At(entry, 1));
      } else {
        OptionGroup& options = *bench.Page().FindOptionRule(key)->options;
        bench.Press(options, entry);
        EXPECT_EQ(options[entry].Caption(), table.At(entry, 1));
      }
      EXPECT_TRUE(bench.Downloads());
      const auto selected = std::find(bench.commands.begin(), bench.commands.end(), "I" + ToUtf8(item)) + 3;
      EXPECT_EQ(*(selected - 1), "I" + ToUtf8(item)) << "read, then selected again to be written";
      EXPECT_EQ(*selected, "D" + ToUtf8(table.At(entry, 0)));
      EXPECT_EQ(bench.device.Value("01", ToUtf8(item)), ToUtf8(table.At(entry, 1)));
    }
  }
}

TEST(KvConfigV3Test, TheSecondRangeOfTwoInputsBringsItsUnitToTheRowsThatFollowIt) {
  V3Bench bench(u"QHC2");
  String text = bench.TextOf(test::DefPath(u"QHC2"));
  const std::size_t row = text.find(u"01,  14,");
  text.replace(text.find(u"$I11QHC2", row), 8, u"$I13QHC2");
  bench.files.Put(test::DefPath(u"QHC2"), bench.code_page.Encode(text).value());
  bench.Choose(u"QHC2");
  bench.Read();
  EXPECT_EQ(bench.UnitOf(u"14"), u"Hz");
  bench.Pick(bench.BoxOf(u"13"), u"6:0-1000 rpm");
  EXPECT_EQ(bench.UnitOf(u"14"), u"rpm");
  EXPECT_EQ(bench.UnitOf(u"15"), u"Hz");
  bench.Pick(bench.BoxOf(u"11"), u"4:0-10 kHz");
  EXPECT_EQ(bench.UnitOf(u"14"), u"rpm");
  EXPECT_EQ(bench.UnitOf(u"15"), u"kHz");
  EXPECT_EQ(bench.UnitOf(u"06"), u"kHz");
}

// The input type in item 10.

/// A list of input types in item 10, of which the first is fixed in the device.
struct ListedTypes : V3Bench {
  explicit ListedTypes(const std::string& type) : V3Bench(u"QHC2") {
    String text = TextOf(test::DefPath(u"QHC2"));
    text.replace(
        text.find(u"$I11QHC2\r\n"), 10,
        u"01, 10, 11, Item 10, Y, Y, 11, Type, Type, , 1, $I10, , , , , , , , $I10, $I10, , , 13\r\n"
        u"$I10\r\n0, 0:FIXED, , , , N, N, ,\r\n1, 1:FREE, , , , N, Y, ,\r\n2, 2:FREE, , , , N, Y, ,\r\n"
        u"$I11QHC2\r\n");
    files.Put(test::DefPath(u"QHC2"), code_page.Encode(text).value());
    Connect(u"QHC2").Set("01", "10", type);
    Press(Page().OptCom, 0);
    Choose(u"QHC2");
  }
};

TEST(KvConfigV3Test, AListedInputTypeIsComparedWithTheDevicesBeforeADownload) {
  for (const String chosen : {u"0:FIXED", u"1:FREE", u"2:FREE"}) {
    ListedTypes bench(chosen == u"2:FREE" ? "1" : "0");
    bench.Read();
    bench.Pick(bench.Page().Combo[1], chosen);
    const bool mismatch = chosen == u"1:FREE";
    const Box box = BoxOf(BoxKey::InputTypeMismatch, {String()});
    EXPECT_EQ(bench.DownloadResult(),
              mismatch ? ToUtf8(box.title + u": " + box.text) : test::Shown(BoxKey::DownloadDone))
        << ToUtf8(chosen);
    EXPECT_EQ(bench.Sent("D1"), !mismatch);
  }
}

TEST(KvConfigV3Test, ASwitchOrADirectionInItem10IsNotReadBeforeADownload) {
  for (const String model : {u"QCE2", u"QEC2", u"QNA2", u"QEB2"}) {
    V3Bench bench(model);
    bench.Read();
    ASSERT_TRUE(bench.Downloads());
    // Link test and monitor mode, then programming mode at once.
    const std::vector<std::string> begin(bench.commands.begin(), bench.commands.begin() + 8);
    EXPECT_EQ(begin, (std::vector<std::string>{"G00", "I99", "G01", "I01", "D0", "G01", "I01", "D1"}))
        << ToUtf8(model);
  }
}

// Tabs and captions.

TEST_P(V3ModelTest, TheAlarmsTabOpensForModelsWithAlarms) {
  V3Bench bench(Model());
  const std::set<String> with_alarms = {u"QEC2", u"QEY3", u"QNA2"};
  EXPECT_EQ(test::TabOpen(bench.Page(), TextKey::Alarm), with_alarms.contains(Model()));
}

TEST_P(V3ModelTest, ATabOnWhichTheModelHasNothingIsClosed) {
  V3Bench bench(Model());
  const std::set<String> without_output_values = {u"QEC2", u"QEY3"};
  EXPECT_NE(test::TabOpen(bench.Page(), TextKey::Output), without_output_values.contains(Model()));
  bench.Upload();
  EXPECT_NE(test::TabOpen(bench.Page(), TextKey::Output), without_output_values.contains(Model()));
  bench.Page().DataChanged = false;
  bench.Choose(u"QCE2");
  EXPECT_TRUE(test::TabOpen(bench.Page(), TextKey::Output));
}

/// The switch of a model's table; nullptr when it has none.
OptionGroup* SwitchOf(V3Bench& bench, const String& model) {
  if (model == u"QEB2") {
    return &test::Part<Linearizer>(bench.Page()).Opt_Lnr;
  }
  const std::set<String> with_table = {u"QCE2", u"QEI2", u"QCB2", u"QNA2"};
  return with_table.contains(model) ? &test::Part<Linearizer>(bench.Page()).Opt_Table : nullptr;
}

TEST_P(V3ModelTest, TheLinearizersTabFollowsItsSwitchAndItsTableTheTransfer) {
  V3Bench bench(Model());
  OptionGroup* table_switch = SwitchOf(bench, Model());
  const auto open = [&] { return test::TabOpen(bench.Page(), TextKey::Linearizer); };
  EXPECT_FALSE(open());
  bench.Read();
  EXPECT_FALSE(open());
  EXPECT_EQ(bench.Page().Item(60), u"");
  if (table_switch == nullptr) {
    for (OptionGroup* options :
         {&test::Part<Linearizer>(bench.Page()).Opt_Table, &test::Part<Linearizer>(bench.Page()).Opt_Lnr}) {
      EXPECT_FALSE((*options)[0].Visible());
    }
    return;
  }
  bench.Press(*table_switch, 1);
  EXPECT_TRUE(open());
  for (int item = 60; item <= 91; ++item) {
    bench.Page().SetItem(item, Ascii(std::to_string(item - 59)));
  }
  test::Part<Linearizer>(bench.Page()).SetUp(16);
  EXPECT_TRUE(bench.Downloads());
  EXPECT_EQ(bench.device.Value("01", "91"), "32.00");
  bench.Save(kFile);
  bench.New();
  EXPECT_FALSE(open());
  bench.Open(kFile);
  EXPECT_TRUE(open());
  EXPECT_EQ(test::Part<Linearizer>(bench.Page()).LnrFlexGrid.At(16, 2).text, u"32");
  bench.Read();
  EXPECT_TRUE(open());
  EXPECT_EQ(bench.Page().Item(91), u"32.00");
  EXPECT_EQ(test::Part<Linearizer>(bench.Page()).LnrFlexGrid.Rows(), 17);
  bench.Press(*table_switch, 0);
  EXPECT_FALSE(open());
  EXPECT_TRUE(bench.Downloads());
  EXPECT_FALSE(bench.Sent("I60"));
  bench.Page().DataChanged = false;
  bench.Save(kFile);
  bench.New();
  bench.Open(kFile);
  EXPECT_FALSE(open());
  bench.Choose(u"QHC2");
  EXPECT_FALSE(open());
}

TEST(KvConfigV3Test, ATableIsSavedToAFileAndReadBackPointByPoint) {
  V3Bench bench(u"QNA2", {{"10", "1"}});
  for (int item = 60; item <= 91; ++item) {
    ASSERT_TRUE(bench.device.Set("01", std::to_string(item), std::to_string(item) + ".25"));
  }
  bench.Read();
  bench.dialogs.QueueFile(kCsv);
  bench.Click(test::Part<Linearizer>(bench.Page()).cmd_csvFileSave);
  const String text = bench.TextOf(kCsv);
  EXPECT_TRUE(text.starts_with(u"60.25,61.25\r\n62.25,63.25\r\n")) << ToUtf8(text);
  EXPECT_TRUE(text.ends_with(u"\r\n90.25,91.25\r\n")) << ToUtf8(text);
  for (int item = 60; item <= 91; ++item) {
    bench.Page().SetItem(item, u"");
  }
  test::Part<Linearizer>(bench.Page()).SetUp(16);
  bench.dialogs.QueueFile(kCsv);
  bench.Click(test::Part<Linearizer>(bench.Page()).cmd_csvFileOpen);
  for (int item = 60; item <= 91; ++item) {
    EXPECT_EQ(bench.Page().Item(item), Ascii(std::to_string(item) + ".25"));
  }
  EXPECT_EQ(test::Part<Linearizer>(bench.Page()).LnrFlexGrid.At(1, 1).text, u"60.25");
  EXPECT_EQ(test::Part<Linearizer>(bench.Page()).LnrFlexGrid.At(16, 2).text, u"91.25");
}

TEST(KvConfigV3Test, HasTheSevenTabsInBothLanguages) {
  V3Bench bench(u"QNA2");
  const auto captions = [&] {
    std::vector<std::string> all;
    all.reserve(static_cast<std::size_t>(bench.Page().Tabs.Count()));
    for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
      all.push_back(ToUtf8(bench.Page().Tabs.TabCaption(tab)));
    }
    return all;
  };
  EXPECT_EQ(captions(),
            (std::vector<std::string>{"ﾌｧｲﾙ", "入力", "出力", "ﾘﾆｱﾗｲｻﾞ", "警報", "ﾎﾟｰﾄ", "I/O ﾁｪｯｸ"}));
  bench.Page().SetCaptions(Language::English);
  EXPECT_EQ(captions(), (std::vector<std::string>{"File", "Input", "Output", "Linearizer", "Alarm", "Port",
                                                  "I/O check"}));
  EXPECT_EQ(bench.Page().Tabs.FullName(), "KvCfg_Tab");
}

TEST_P(V3ModelTest, CountersHeadTheirColumnsInWordsOfTheirOwn) {
  const std::set<String> counters = {u"QCB2", u"QEC2", u"QEY3"};
  V3Bench bench(Model());
  EXPECT_EQ(test::Part<OutputSetting>(bench.Page()).IO_lblSet.Caption(), u"設定");
  EXPECT_EQ(test::Part<StatusMonitor>(bench.Page()).IO_lblShow.Caption(), u"表示");
  const bool counter = counters.contains(Model());
  bench.Page().SetCaptions(Language::English);
  EXPECT_EQ(test::Part<OutputSetting>(bench.Page()).IO_lblSet.Caption(), counter ? u"COUNT SET" : u"Setting");
  EXPECT_EQ(test::Part<StatusMonitor>(bench.Page()).IO_lblShow.Caption(), counter ? u"MONITOR" : u"Monitor");
  EXPECT_EQ(test::ButtonOf(bench.Page(), "cmdSet2").Caption(), u"OUTPUT");
  EXPECT_EQ(test::ButtonOf(bench.Page(), "cmdSet3").Caption(), u"OUTPUT");
  EXPECT_EQ(test::ButtonOf(bench.Page(), "Command_I12").Caption(), u"RESET 1");
  EXPECT_EQ(test::ButtonOf(bench.Page(), "Command_I13").Caption(), u"RESET 2");
}

TEST(KvConfigV3Test, TheHeadsFollowTheModel) {
  V3Bench bench(u"QEC2");
  bench.Page().SetCaptions(Language::English);
  bench.Choose(u"QNA2");
  EXPECT_EQ(test::Part<OutputSetting>(bench.Page()).IO_lblSet.Caption(), u"Setting");
  bench.Choose(u"QEY3");
  EXPECT_EQ(test::Part<OutputSetting>(bench.Page()).IO_lblSet.Caption(), u"COUNT SET");
}

// Port, modes and files.

TEST(KvConfigV3Test, OpensThePortWhenItIsLoadedAndWheneverItComesToTheFront) {
  test::PageBench bench;
  bench.Start();
  std::vector<std::string> opened;
  bench.app.link.line.OnOpened = [&](int number, const String& settings, bool) {
    opened.push_back(std::to_string(number) + " " + ToUtf8(settings));
  };
  bench.Choose(u"QEC2");
  EXPECT_EQ(opened, (std::vector<std::string>{"1 1200,n,8,1", "1 1200,n,8,1"}));
  opened.clear();
  bench.Choose(u"QL");
  bench.Choose(u"QNA2");
  EXPECT_EQ(opened.size(), 2U) << "loaded once";
}

TEST(KvConfigV3Test, AModeCommandIsTriedTwice) {
  V3Bench bench(u"QCE2");
  bench.Read();
  bench.device.AddFault({.fault = sim::Fault::Refused, .command = "D0"});
  EXPECT_EQ(bench.CommandsOf(test::Part<StatusMonitor>(bench.Page()).cmdMonitorON), "G01 I01 D0 G01 I01 D0");
  EXPECT_EQ(bench.TakeBoxes(), std::vector{test::Shown(BoxKey::NotMonitorMode)});
}

TEST(KvConfigV3Test, AGroupAboveOneInAFileEndsTheProgramWithATextThatNamesIt) {
  for (const int group : {1, 2}) {
    V3Bench bench(u"QCE2");
    bench.PutText(kFile, u"$DefFile\n\"QNA2.def\"\n$Data\n\"" + Ascii(std::to_string(group)) +
                             u"\",\"0\",\"x\"\n$Memo\n\"0\",\"\"\n\"1\",\"\"\n$End\n");
    bench.Open(kFile);
    EXPECT_EQ(bench.status.has_value(), group == 2);
    if (group == 2) {
      EXPECT_EQ(bench.status, 1);
      EXPECT_NE(bench.dialogs.Failures().at(0).find(u"Group 2"), String::npos);
      EXPECT_NE(bench.dialogs.Failures().at(0).find(kFile), String::npos);
    }
  }
}

TEST(KvConfigV3Test, AFileOfTheFamilyOpensFromAnotherFamilysPage) {
  V3Bench bench(u"QCB2", {{"31", "123"}});
  bench.Read();
  bench.Save(kFile);
  bench.Choose(u"QL");
  bench.Open(kFile);
  EXPECT_EQ(bench.Page().DefFile, u"QCB2.def");
  EXPECT_EQ(bench.Field(u"31").Text(), u"123");
}

}  // namespace
}  // namespace korva
