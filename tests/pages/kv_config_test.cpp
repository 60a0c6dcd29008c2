// What the page of family First shows of each of its models: tabs, linearizer grid, options, monitor
// controls, units and captions.

#include "pages/kv_config/kv_config.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "page_bench.h"
#include "pages/kv_config/design.h"
#include "support/page_parts.h"
#include "support/tabs.h"

namespace korva {
namespace {

using test::kFile;

/// What switches a model's linearizer table.
enum class Switch { None, Always, Table, Lnr, InputType };

struct KnownModel {
  String name;
  Switch lnr = Switch::None;
  int points = 16;
  bool filter_tab = false;
  std::string options = {};        ///< groups that show, in the order of the page's list
  std::string fixed_options = {};  ///< the one of them that can't be changed
  bool monitor = true;
};

const std::vector<KnownModel>& KnownModels() {
  static const std::vector<KnownModel> models = {
      {.name = u"QHW", .lnr = Switch::Always},
      {.name = u"QL"},
      {.name = u"QHN", .filter_tab = true},
      {.name = u"QHN1", .filter_tab = true},
      {.name = u"QHN2", .filter_tab = true},
      {.name = u"QHN3", .filter_tab = true},
      {.name = u"QHN4", .filter_tab = true},
      {.name = u"QHN6", .filter_tab = true},
      {.name = u"QHNY1", .lnr = Switch::Lnr, .points = 100, .filter_tab = true, .options = "Opt_Lnr"},
      {.name = u"QHNY2", .lnr = Switch::Lnr, .points = 100, .filter_tab = true, .options = "Opt_Lnr"},
      {.name = u"QHW1", .lnr = Switch::Lnr, .points = 100, .options = "Opt_Lnr"},
      {.name = u"QC", .options = "optTempUnit"},
      {.name = u"QN", .options = "optTempUnit"},
      {.name = u"QUO", .lnr = Switch::InputType, .options = "optTempUnit"},
      {.name = u"QH", .options = "Opt_Root"},
      {.name = u"QHG", .options = "Opt_Root"},
      {.name = u"QD", .options = "Opt_Backup Opt_Updown Opt_Alarm Opt_Recovery", .monitor = false},
      {.name = u"QD2", .options = "Opt_Backup Opt_Updown Opt_Alarm Opt_Recovery", .monitor = false},
      {.name = u"QD2I",
       .options = "Opt_Backup Opt_Updown Opt_Alarm Opt_Recovery",
       .fixed_options = "Opt_Recovery",
       .monitor = false},
      {.name = u"QY", .lnr = Switch::Table, .options = "Opt_Table"},
      {.name = u"QEI", .lnr = Switch::Table, .options = "Opt_Table"},
      {.name = u"QZ", .lnr = Switch::Table, .options = "Opt_Table optTempUnit"},
      {.name = u"10QCE", .lnr = Switch::Table, .options = "Opt_Table"},
  };
  return models;
}

void PrintTo(const KnownModel& model, std::ostream* out) { *out << ToUtf8(model.name); }

class ModelTest : public testing::TestWithParam<KnownModel> {
 protected:
  static const KnownModel& Model() { return GetParam(); }
  static bool Switched() { return Model().lnr == Switch::Table || Model().lnr == Switch::Lnr; }
  KvConfig& Page() { return bench_.First(); }
  bool LnrTab() { return test::TabOpen(Page(), TextKey::Linearizer); }
  OptionGroup& LnrSwitch() {
    return Model().lnr == Switch::Table ? test::Part<Linearizer>(Page()).Opt_Table
                                        : test::Part<Linearizer>(Page()).Opt_Lnr;
  }
  /// The linearizer of the device, on or off, where the model has a switch.
  static void SwitchDevice(sim::Device& device, bool on) {
    if (Switched()) {
      ASSERT_TRUE(device.Set("01", Model().lnr == Switch::Table ? "10" : "11", on ? "1" : "0"));
    } else if (Model().lnr == Switch::InputType) {
      ASSERT_TRUE(device.Set("01", "10", on ? "21" : "2"));
    }
  }
  /// Whether the tab is open with the linearizer on or off.
  static bool Expected(bool on) {
    return Model().lnr == Switch::Always || (Model().lnr != Switch::None && on);
  }

  test::PageBench bench_;
};

TEST_P(ModelTest, HasItsLinearizerTabClosedWhenChosenUnlessTheTableIsAlwaysInUse) {
  bench_.Choose(Model().name);
  EXPECT_EQ(LnrTab(), Model().lnr == Switch::Always);
}

TEST_P(ModelTest, HasAGridOfItsTablesSizeAndShape) {
  bench_.Choose(Model().name);
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.Rows(), Model().points + 1);
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.Columns(), 3);
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(0, 1).text, u"X(k)");
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(Model().points, 0).text,
            Model().points == 16 ? u"16" : u"100");
}

TEST_P(ModelTest, HasItsFilterTabOpenExactlyWithAFilter) {
  bench_.Choose(Model().name);
  EXPECT_EQ(test::TabOpen(Page(), TextKey::Filter), Model().filter_tab);
  for (const TextKey tab : {TextKey::File, TextKey::Input, TextKey::Output, TextKey::Port}) {
    EXPECT_TRUE(test::TabOpen(Page(), tab)) << ToUtf8(CaptionText(tab));
  }
}

TEST_P(ModelTest, HasItsIoCheckOpenExactlyWithAMonitorBeforeAndAfterAnOperation) {
  bench_.Choose(Model().name);
  EXPECT_EQ(test::TabOpen(Page(), TextKey::IoCheck), Model().monitor);
  bench_.Check();
  EXPECT_EQ(test::TabOpen(Page(), TextKey::IoCheck), Model().monitor);
}

TEST_P(ModelTest, ShowsItsOptionGroupsAndNoOther) {
  bench_.Choose(Model().name);
  std::string shown;
  for (const std::string name : {"Opt_Table", "Opt_Lnr", "Opt_Root", "Opt_Backup", "Opt_Updown", "Opt_Alarm",
                                 "Opt_Recovery", "optTempUnit"}) {
    const OptionGroup& options = *Page().FindOptions(name);
    if (options[0].Visible()) {
      shown += (shown.empty() ? "" : " ") + name;
      EXPECT_EQ(options.Selected(), 0) << name;  // the default of a new set
      EXPECT_TRUE(options[0].Enabled());
      EXPECT_EQ(options[1].Enabled(), name != Model().fixed_options) << name;
      EXPECT_TRUE(options[0].Container()->Visible());
    }
  }
  EXPECT_EQ(shown, Model().options);
}

TEST_P(ModelTest, ShowsTheControlsOfTheStatusMonitorUnlessItIsABackupStation) {
  bench_.Choose(u"QL");
  bench_.Choose(Model().name);
  for (const Control* control :
       {static_cast<const Control*>(&test::Part<StatusMonitor>(Page()).fraMonitoring),
        static_cast<const Control*>(&test::Part<StatusMonitor>(Page()).cmdMonitorON),
        static_cast<const Control*>(&test::Part<StatusMonitor>(Page()).cmdMonitorOFF)}) {
    EXPECT_EQ(control->Visible(), Model().monitor) << control->FullName();
  }
}

TEST_P(ModelTest, OpensAndClosesItsLinearizerTabWithItsSwitch) {
  bench_.Choose(Model().name);
  if (!Switched()) {
    EXPECT_FALSE(LnrSwitch()[1].Visible());
    return;
  }
  bench_.Press(LnrSwitch(), 1);
  EXPECT_TRUE(LnrTab());
  EXPECT_TRUE(test::Part<Linearizer>(Page()).LnrActive());
  EXPECT_FALSE(Page().DataChanged);  // a press of an option button is no edit
  bench_.Press(LnrSwitch(), 0);
  EXPECT_FALSE(LnrTab());
  EXPECT_FALSE(test::Part<Linearizer>(Page()).LnrActive());
}

TEST_P(ModelTest, HasItsLinearizerTabAsTheDevicesSwitchSaysAfterAnUpload) {
  for (const bool on : {true, false}) {
    test::PageBench bench;
    sim::Device& device = bench.Connect(Model().name, {.system_text = "SYSVER   2.00"});
    SwitchDevice(device, on);
    bench.Choose(Model().name);
    bench.Upload();
    EXPECT_EQ(test::TabOpen(bench.Page(), TextKey::Linearizer), Expected(on)) << on;
    EXPECT_EQ(test::Part<Linearizer>(bench.Page()).LnrActive(), Expected(on)) << on;
    // The state outlasts the lock of a further operation.
    bench.Check();
    EXPECT_EQ(test::TabOpen(bench.Page(), TextKey::Linearizer), Expected(on)) << on;
  }
}

TEST_P(ModelTest, HasItsLinearizerTabAsTheFilesSwitchSaysAfterOpening) {
  for (const bool on : {true, false}) {
    test::PageBench bench;
    sim::Device& device = bench.Connect(Model().name, {.system_text = "SYSVER   2.00"});
    SwitchDevice(device, on);
    bench.Choose(Model().name);
    bench.Upload();
    bench.Save(kFile);
    bench.Choose(u"QL");
    bench.Open(kFile);
    EXPECT_EQ(bench.Page().DefFile, Model().name + u".def");
    EXPECT_EQ(test::TabOpen(bench.Page(), TextKey::Linearizer), Expected(on)) << on;
    EXPECT_EQ(test::Part<Linearizer>(bench.Page()).LnrFlexGrid.Rows(), Model().points + 1);
  }
}

TEST_P(ModelTest, HasItsLinearizerTabAsWhenChosenAfterNew) {
  bench_.Choose(Model().name);
  if (Switched()) {
    bench_.Press(LnrSwitch(), 1);
  }
  bench_.New();
  EXPECT_EQ(LnrTab(), Model().lnr == Switch::Always);
}

TEST_P(ModelTest, ShowsThePointsOfAFileInItsGrid) {
  bench_.Choose(Model().name);
  const bool is_short = Model().points == 16;
  bench_.PutText(kFile, u"$DefFile\n\"" + Model().name + u".def\"\n$Data\n" +
                            (is_short ? u"\"1\",\"60\",\"1.5\"\n\"1\",\"91\",\"99\"\n"
                                      : u"\"2\",\"0\",\"1.5\"\n\"3\",\"99\",\"99\"\n") +
                            u"$End\n");
  bench_.Open(kFile);
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(1, 1).text, u"1.5");
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(Model().points, 2).text, u"99");
  bench_.New();
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(1, 1).text, u"");
}

INSTANTIATE_TEST_SUITE_P(FamilyFirst, ModelTest, testing::ValuesIn(KnownModels()),
                         [](const testing::TestParamInfo<KnownModel>& parameter) {
                           return "Model_" + ToUtf8(parameter.param.name);
                         });

TEST(FamilyFirst, IsKnownHereModelByModel) {
  std::vector<String> names;
  for (const KnownModel& model : KnownModels()) {
    names.push_back(model.name);
  }
  EXPECT_EQ(names, test::FirstModels());
}

class KvConfigTest : public testing::Test {
 protected:
  KvConfig& Page() { return bench_.First(); }
  test::PageBench bench_;
};

// Options and their texts.

TEST_F(KvConfigTest, CallsTheSwitchesOfTheTableAbsentAndPresent) {
  EXPECT_EQ(test::Part<Linearizer>(Page()).Opt_Table[0].Caption(), u"無");
  EXPECT_EQ(test::Part<Linearizer>(Page()).Opt_Table[1].Caption(), u"有");
  EXPECT_EQ(test::Part<Linearizer>(Page()).Opt_Lnr[0].Caption(), u"無");
  EXPECT_EQ(test::Part<Linearizer>(Page()).Opt_Lnr[1].Caption(), u"有");
}

TEST_F(KvConfigTest, CallsTheTemperatureUnitsAsTheDevicesDo) {
  EXPECT_EQ(Page().optTempUnit[0].Caption(), u"deg C");
  EXPECT_EQ(Page().optTempUnit[1].Caption(), u"deg F");
  EXPECT_EQ(Page().optTempUnit[2].Caption(), u"K");
}

struct OptionTarget {
  String model;
  std::string options;
  int place;
  int item;
  String text;
};

void PrintTo(const OptionTarget& target, std::ostream* out) { *out << target.options; }

class OptionTargetTest : public testing::TestWithParam<OptionTarget> {};

TEST_P(OptionTargetTest, APressPutsTheTextOfItsRowIntoItsItemAndIsNoEdit) {
  const OptionTarget& target = GetParam();
  test::PageBench bench;
  bench.Choose(target.model);
  bench.Press(*bench.Page().FindOptions(target.options), target.place);
  EXPECT_EQ(ToUtf8(bench.Page().Item(target.item)), ToUtf8(target.text));
  EXPECT_FALSE(bench.Page().DataChanged);
}

INSTANTIATE_TEST_SUITE_P(EachGroup, OptionTargetTest,
                         testing::Values(OptionTarget{u"QY", "Opt_Table", 1, 10, u"1:TABLE ON"},
                                         OptionTarget{u"QHNY1", "Opt_Lnr", 1, 11, u"1:LINEARIZER ON"},
                                         OptionTarget{u"QH", "Opt_Root", 1, 11, u"1:ROOT ON"},
                                         OptionTarget{u"QHG", "Opt_Root", 1, 11, u"1:ROOT ON"},
                                         OptionTarget{u"QD", "Opt_Backup", 2, 21, u"2:MANUAL"},
                                         OptionTarget{u"QD2", "Opt_Updown", 2, 23, u"2:FAST"},
                                         OptionTarget{u"QD2I", "Opt_Alarm", 3, 25, u"3:HIGH AND LOW"},
                                         OptionTarget{u"QD", "Opt_Recovery", 1, 31, u"1:MANUAL"}));

// Units.

TEST_F(KvConfigTest, ConvertsZeroAndSpanToTheUnitThatIsPressed) {
  bench_.Choose(u"QC");
  bench_.Pick(Page().Combo[0], u"Tc-2:K(CA)");
  EXPECT_EQ(bench_.Field(u"14").Text(), u"-270");
  EXPECT_EQ(bench_.Field(u"15").Text(), u"1370");
  EXPECT_EQ(bench_.UnitOf(u"14"), u"deg C");
  bench_.Press(Page().optTempUnit, 1);
  EXPECT_EQ(bench_.Field(u"14").Text(), u"-454");  // -270 x 9 / 5 + 32
  EXPECT_EQ(bench_.Field(u"15").Text(), u"2498");  // 1370 x 9 / 5 + 32
  EXPECT_EQ(bench_.UnitOf(u"14"), u"deg F");
  EXPECT_EQ(bench_.UnitOf(u"15"), u"deg F");
  EXPECT_EQ(bench_.UnitOf(u"04"), u"deg F");
  EXPECT_EQ(Page().Item(14), u"-454");
  EXPECT_EQ(Page().Item(21), u"deg F");
}

TEST_F(KvConfigTest, CountsThePressOfAUnitAsAnEditOnceItConvertsAValue) {
  bench_.Choose(u"QC");
  EXPECT_EQ(Page().optTempUnit.Selected(), 0);
  bench_.Press(Page().optTempUnit, 0);
  EXPECT_FALSE(Page().DataChanged);
  bench_.Press(Page().optTempUnit, 1);
  EXPECT_TRUE(Page().DataChanged);
}

TEST_F(KvConfigTest, KeepsConvertedLimitsInsideTheRangeOfTheInputType) {
  bench_.Choose(u"QZ");
  bench_.Type(u"14", u"-200");
  bench_.Type(u"15", u"850");
  bench_.Press(Page().optTempUnit, 2);
  EXPECT_EQ(bench_.Field(u"14").Text(), u"74");    // 73.2 K is the lowest: up to the whole number
  EXPECT_EQ(bench_.Field(u"15").Text(), u"1123");  // 1123.2 K is the highest: down
}

TEST_F(KvConfigTest, LeavesTheValuesOfAnUploadInTheUnitOfTheDevice) {
  sim::Device& device = bench_.Connect(u"QZ");
  ASSERT_TRUE(device.Set("01", "21", "deg F"));
  ASSERT_TRUE(device.Set("01", "14", "100"));
  bench_.Choose(u"QZ");
  bench_.Upload();
  EXPECT_EQ(Page().optTempUnit.Selected(), 1);
  EXPECT_EQ(bench_.Field(u"14").Text(), FromUtf8(device.Value("01", "14")));
  EXPECT_EQ(bench_.UnitOf(u"14"), u"deg F");
  bench_.Press(Page().optTempUnit, 0);
  EXPECT_EQ(bench_.Field(u"14").Text(), u"38");  // 100 x 5 / 9 - 17.8 = 37.8
}

TEST_F(KvConfigTest, ShowsTheUnitOfTheInputType) {
  bench_.Choose(u"QHW");
  bench_.Pick(Page().Combo[0], u"3:DC mA");
  EXPECT_EQ(bench_.UnitOf(u"14"), u"mA");
  EXPECT_EQ(bench_.UnitOf(u"06"), u"mA");
  bench_.Pick(Page().Combo[0], u"4:POTENTIOMETER");
  EXPECT_EQ(bench_.UnitOf(u"14"), u"%");
}

TEST_F(KvConfigTest, ShowsMillivoltsForTheMillivoltRangeOfAVoltageInput) {
  bench_.Choose(u"QHW");
  bench_.Pick(Page().Combo[0], u"1:DC V");
  for (const auto& [range, unit] :
       {std::pair{u"0-10 mV", u"mV"}, std::pair{u"0-5 V", u"V"}, std::pair{u"0-1 V", u"V"}}) {
    bench_.Pick(Page().Combo[1], range);
    EXPECT_EQ(bench_.UnitOf(u"14"), unit) << ToUtf8(range);
    EXPECT_EQ(bench_.UnitOf(u"15"), unit) << ToUtf8(range);
  }
}

TEST_F(KvConfigTest, LeavesTheUnitOfACurrentInputWhateverItsRange) {
  bench_.Choose(u"QHW");
  bench_.Pick(Page().Combo[0], u"3:DC mA");
  bench_.Pick(Page().Combo[1], u"2-10 mA");  // the row in which a voltage input has its millivolts
  EXPECT_EQ(bench_.UnitOf(u"14"), u"mA");
}

TEST_F(KvConfigTest, ShowsTheUnitOfThePulseInputsRange) {
  bench_.Choose(u"QEI");
  for (const auto& [range, unit] : {std::pair{u"0:0-100 mHz", u"mHz"}, std::pair{u"3:0-100 Hz", u"Hz"},
                                    std::pair{u"6:0-100 kHz", u"kHz"}}) {
    bench_.Pick(Page().Combo[3], range);
    EXPECT_EQ(bench_.UnitOf(u"15"), unit) << ToUtf8(range);
    EXPECT_EQ(bench_.UnitOf(u"06"), unit) << ToUtf8(range);
  }
}

// The filter.

TEST_F(KvConfigTest, ClosesTheFiltersFieldsWithoutAFilterAndOpensThemWithOne) {
  bench_.Choose(u"QHN6");
  for (const StringView item : {u"24", u"25", u"26", u"27", u"28", u"29", u"30"}) {
    bench_.Type(String(item), u"3");
  }
  bench_.Pick(Page().Combo[2], u"0:NO FILTER");
  for (const StringView item : {u"24", u"25", u"26", u"27", u"28", u"29", u"30"}) {
    const TextField& field = bench_.Field(String(item));
    EXPECT_TRUE(field.Locked()) << ToUtf8(item);
    EXPECT_EQ(field.ShownLook(), Look::Grey);
    EXPECT_EQ(field.Text(), u"");
  }
  bench_.Pick(Page().Combo[2], u"1:REJECTION");
  for (const StringView item : {u"24", u"25", u"26", u"27", u"28", u"29", u"30"}) {
    const TextField& field = bench_.Field(String(item));
    EXPECT_FALSE(field.Locked()) << ToUtf8(item);
    EXPECT_EQ(field.ShownLook(), Look::Normal);
  }
  EXPECT_EQ(Page().Item(23), u"1:REJECTION");
  EXPECT_TRUE(Page().DataChanged);
}

TEST_F(KvConfigTest, LeavesAFixedInputTypeInItsLockedBox) {
  bench_.Choose(u"QHW1");
  EXPECT_TRUE(Page().Combo[0].Locked());
  EXPECT_EQ(Page().Combo[0].ShownLook(), Look::Grey);
  EXPECT_EQ(Page().Combo[0].Text(), u"1:DC 1-5 V");
  EXPECT_EQ(Page().Combo[0].Entries(), std::vector<String>{u"1:DC 1-5 V"});
}

TEST_F(KvConfigTest, ListsTheInputTypesThatCanBeSetAndLocksThemUnderOneThatIsFixed) {
  sim::Device& device = bench_.Connect(u"QHW");
  bench_.Choose(u"QHW");
  EXPECT_EQ(Page().Combo[0].Entries(),
            (std::vector<String>{u"1:DC V", u"2:DC V BI", u"3:DC mA", u"4:POTENTIOMETER"}));
  ASSERT_TRUE(device.Set("01", "10", "5:mA SHUNT"));
  bench_.Upload();
  EXPECT_EQ(Page().Combo[0].Text(), u"5:mA SHUNT");
  EXPECT_TRUE(Page().Combo[0].Locked());
  EXPECT_TRUE(Page().Combo[0].Entries().empty());
}

}  // namespace
}  // namespace korva
