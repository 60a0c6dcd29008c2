// What the choice of input and output brings along on the page of family QXI, for each of the 25 inputs.

#include <gtest/gtest.h>

#include <set>

#include "core/text_utilities.h"
#include "support/tabs.h"
#include "univ_config_bench.h"

namespace korva {
namespace {

using test::UnivBench;
using Texts = std::vector<std::string>;

/// An input: its number, range, unit, kind of table, and which of the items that depend on it are sent.
struct InputRow {
  String number;
  String low;
  String high;
  String unit;  ///< with deg C chosen
  String kind;
  bool range = false;        ///< 14, 15
  bool temperature = false;  ///< 21, 24
  bool linearizer = false;   ///< 23
};

void PrintTo(const InputRow& row, std::ostream* out) { *out << ToUtf8(row.number); }

constexpr bool kSent = true;
constexpr bool kNot = false;

const std::vector<InputRow> kInputs = {
    {u"0", u"0", u"1760", u"deg C", u"N", kSent, kSent, kNot},
    {u"1", u"-270", u"1370", u"deg C", u"N", kSent, kSent, kNot},
    {u"2", u"-270", u"1000", u"deg C", u"N", kSent, kSent, kNot},
    {u"3", u"-210", u"1200", u"deg C", u"N", kSent, kSent, kNot},
    {u"4", u"-270", u"400", u"deg C", u"N", kSent, kSent, kNot},
    {u"5", u"100", u"1820", u"deg C", u"N", kSent, kSent, kNot},
    {u"6", u"-50", u"1760", u"deg C", u"N", kSent, kSent, kNot},
    {u"7", u"-50", u"1760", u"deg C", u"N", kSent, kSent, kNot},
    {u"8", u"0", u"2315", u"deg C", u"N", kSent, kSent, kNot},
    {u"9", u"-270", u"1300", u"deg C", u"N", kSent, kSent, kNot},
    {u"99", u"-273", u"3000", u"deg C", u"T", kSent, kSent, kNot},
    {u"31", u"-200", u"850", u"deg C", u"N", kSent, kSent, kNot},
    {u"32", u"-200", u"510", u"deg C", u"N", kSent, kSent, kNot},
    {u"98", u"-200", u"850", u"deg C", u"R", kSent, kSent, kNot},
    {u"51", u"-200", u"850", u"deg C", u"N", kSent, kSent, kNot},
    {u"97", u"-200", u"850", u"deg C", u"R", kSent, kSent, kNot},
    {u"41", u"0", u"100", u"%", u"L", kSent, kNot, kSent},
    {u"11", u"-10000", u"10000", u"mV", u"L", kSent, kNot, kSent},
    {u"12", u"1", u"5", u"V", u"L", kNot, kNot, kSent},
    {u"13", u"0", u"10", u"V", u"L", kNot, kNot, kSent},
    {u"14", u"0", u"5", u"V", u"L", kNot, kNot, kSent},
    {u"15", u"0", u"50", u"mA", u"L", kSent, kNot, kSent},
    {u"16", u"4", u"20", u"mA", u"L", kNot, kNot, kSent},
    {u"17", u"0", u"20", u"mA", u"L", kNot, kNot, kSent},
    {u"18", u"0", u"10", u"mA", u"L", kNot, kNot, kSent},
};

struct UnivInputTest : testing::TestWithParam<InputRow> {};

INSTANTIATE_TEST_SUITE_P(Number, UnivInputTest, testing::ValuesIn(kInputs),
                         [](const auto& one) { return "T" + ToUtf8(one.param.number); });

TEST(UnivInputs, AreTheseTwentyFiveInTheirOrder) {
  UnivBench bench;
  const ChoiceList types = bench.Page().Def.ListOf(u"$I10");
  ASSERT_EQ(static_cast<std::size_t>(types.Rows()), kInputs.size());
  ASSERT_EQ(bench.Input().Entries().size(), kInputs.size());
  for (int row = 0; row < types.Rows(); ++row) {
    EXPECT_EQ(types.Code(row), kInputs[static_cast<std::size_t>(row)].number);
    EXPECT_TRUE(types.Settable(row));
  }
}

TEST_P(UnivInputTest, BringsItsUnitAndItsRange) {
  const InputRow& row = GetParam();
  UnivBench bench;
  bench.PickInput(bench.InputText(row.number));
  EXPECT_EQ(bench.Page().Item(10), bench.InputText(row.number));
  EXPECT_EQ(bench.Field(u"14").Text(), row.low);
  EXPECT_EQ(bench.Field(u"15").Text(), row.high);
  EXPECT_EQ(bench.Page().Item(14), row.low);
  EXPECT_EQ(bench.Page().Item(15), row.high);
  for (const char16_t* item : {u"14", u"15", u"26", u"27", u"29", u"30", u"04"}) {
    EXPECT_EQ(bench.UnitOf(item), row.unit) << ToUtf8(item);
  }
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST_P(UnivInputTest, SettlesTheKindOfItsTable) {
  const InputRow& row = GetParam();
  UnivBench bench;
  bench.PickInput(bench.InputText(row.number));
  const Linearizer& linearizer = bench.Univ().linearizer;
  const bool users = row.kind == u"T" || row.kind == u"R";
  EXPECT_EQ(bench.Univ().rules.TableKind(), row.kind);
  EXPECT_EQ(linearizer.Quantity() == nullptr ? u"N" : linearizer.Quantity()->kind, StringView(row.kind));
  EXPECT_EQ(linearizer.LnrActive(), users);
  EXPECT_EQ(linearizer.Opt_Lnr[0].Enabled(), !users);
  EXPECT_EQ(bench.Univ().rules.lbl_Tc99User.Visible(), users);
  EXPECT_EQ(test::TabOpen(bench.Page(), TextKey::Linearizer), users);
}

TEST_P(UnivInputTest, SendsTheItemsThatItsDeviceHasAUseForAndNoOther) {
  const InputRow& row = GetParam();
  UnivBench bench;
  bench.Fill(bench.InputText(row.number));
  const bool asks = row.kind == u"T" || row.kind == u"R";
  if (asks) {
    bench.Do([&] {
      bench.Univ().linearizer.Table().Store(1, 1, u"0");
      bench.Univ().linearizer.Table().Store(1, 2, u"0");
      bench.Univ().linearizer.Table().Store(2, 1, u"100");
      bench.Univ().linearizer.Table().Store(2, 2, u"50");
    });
  }
  const Texts boxes = bench.BoxesOfDownload(asks ? std::vector{Answer::No} : std::vector<Answer>());
  EXPECT_EQ(boxes.back(), test::Shown(BoxKey::DownloadDone));
  EXPECT_EQ(bench.Wrote("01/14"), row.range);
  EXPECT_EQ(bench.Wrote("01/15"), row.range);
  EXPECT_EQ(bench.Wrote("01/21"), row.temperature);
  EXPECT_EQ(bench.Wrote("01/24"), row.temperature);
  EXPECT_EQ(bench.Wrote("01/23"), row.linearizer);
  EXPECT_FALSE(bench.Wrote("01/12") || bench.Wrote("01/13"));
  for (const char* item :
       {"01/10", "01/11", "01/19", "01/20", "01/25", "01/26", "01/27", "01/28", "01/29", "01/30", "01/31",
        "01/38", "01/39", "01/80", "01/81", "01/82", "01/83", "01/84", "01/85"}) {
    EXPECT_TRUE(bench.Wrote(item)) << item;
  }
  EXPECT_EQ(bench.device.Value("01", "10"), ToUtf8(bench.InputText(row.number)));
}

TEST_P(UnivInputTest, ShowsTheRangeThatIsNotTheUsersAsAFixedOne) {
  const InputRow& row = GetParam();
  UnivBench bench;
  bench.PickInput(bench.InputText(row.number));
  for (const auto& [item, text] : {std::pair(u"14", row.low), std::pair(u"15", row.high)}) {
    EXPECT_EQ(bench.Page().WhyRefused(bench.Field(item)), row.range ? "" : "locked");
    EXPECT_EQ(bench.LookOf(item), row.range ? Look::Normal : Look::Grey);
    EXPECT_EQ(bench.Field(item).Text(), text) << "shown either way";
  }
}

TEST_P(UnivInputTest, ClosesTheOptionsThatItsDeviceHasNoUseForAndNoOther) {
  const InputRow& row = GetParam();
  UnivBench bench;
  bench.PickInput(bench.InputText(row.number));
  const UnivConfig& page = bench.Univ();
  const auto why = [&](const OptionGroup& options) { return page.WhyRefused(options[0]); };
  EXPECT_EQ(why(page.optTempUnit), row.temperature ? "" : "disabled");
  EXPECT_EQ(why(page.optBurn), row.temperature ? "" : "disabled");
  EXPECT_EQ(why(page.linearizer.Opt_Lnr), row.linearizer ? "" : "disabled");
  for (const OptionGroup* options :
       {&page.optRelay_1, &page.optRelay_2, &page.optDirect, &page.setpoints.optSetpointUnit_1,
        &page.setpoints.optSetpointUnit_2, &page.optExcitation_1, &page.optExcitation_2}) {
    EXPECT_EQ(why(*options), "");
  }
}

// --- outputs

struct OutputRow {
  String number;
  String low;
  String high;
  String unit;
  bool sent = false;  ///< 12, 13
};
void PrintTo(const OutputRow& row, std::ostream* out) { *out << ToUtf8(row.number); }

struct UnivOutputTest : testing::TestWithParam<OutputRow> {};

INSTANTIATE_TEST_SUITE_P(
    Number, UnivOutputTest,
    testing::Values(OutputRow{u"11", u"-10", u"10", u"V", kSent}, OutputRow{u"12", u"1", u"5", u"V", kNot},
                    OutputRow{u"13", u"0", u"10", u"V", kNot}, OutputRow{u"14", u"0", u"5", u"V", kNot},
                    OutputRow{u"15", u"0", u"20", u"mA", kSent}, OutputRow{u"16", u"4", u"20", u"mA", kNot},
                    OutputRow{u"17", u"0", u"20", u"mA", kNot}, OutputRow{u"18", u"0", u"10", u"mA", kNot}),
    [](const auto& one) { return "U" + ToUtf8(one.param.number); });

TEST_P(UnivOutputTest, BringsItsUnitAndItsRangeAndIsSentWithItWhereThatIsTheUsers) {
  const OutputRow& row = GetParam();
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)", bench.OutputText(row.number));
  EXPECT_EQ(bench.Field(u"12").Text(), row.low);
  EXPECT_EQ(bench.Field(u"13").Text(), row.high);
  EXPECT_EQ(bench.UnitOf(u"12"), row.unit);
  EXPECT_EQ(bench.UnitOf(u"13"), row.unit);
  for (const char16_t* item : {u"12", u"13"}) {
    EXPECT_EQ(bench.Page().WhyRefused(bench.Field(item)), row.sent ? "" : "locked");
    EXPECT_EQ(bench.LookOf(item), row.sent ? Look::Normal : Look::Grey);
  }
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{test::Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.Wrote("01/12"), row.sent);
  EXPECT_EQ(bench.Wrote("01/13"), row.sent);
  EXPECT_EQ(bench.device.Value("01", "12"), ToUtf8(row.low));
}

// --- the kinds of tables

TEST(UnivTableKind, NoneClosesTheTabWhateverTheSwitchSays) {
  UnivBench bench;
  bench.PickInput(u"Tc-2:K(CA)");
  EXPECT_FALSE(test::TabOpen(bench.Page(), TextKey::Linearizer));
  bench.Show(23, u"1");
  EXPECT_EQ(bench.Univ().linearizer.Opt_Lnr.Selected(), 1);
  EXPECT_FALSE(test::TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_FALSE(bench.Univ().rules.lbl_Tc99User.Visible());
}

TEST(UnivTableKind, WithoutAnInputTheTabIsClosed) {
  UnivBench bench;
  EXPECT_FALSE(test::TabOpen(bench.Page(), TextKey::Linearizer));
}

TEST(UnivTableKind, LinearIsTheUsersChoiceByTheSwitch) {
  UnivBench bench;
  bench.PickInput(u"POT:RATIO");
  OptionGroup& options = bench.Univ().linearizer.Opt_Lnr;
  EXPECT_FALSE(test::TabOpen(bench.Page(), TextKey::Linearizer)) << "the switch stands at none";
  bench.Press(options, 1);
  EXPECT_TRUE(test::TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_EQ(bench.Page().Item(23), u"1");
  const Grid& grid = bench.Univ().linearizer.LnrFlexGrid;
  EXPECT_EQ(grid.Rows(), 101);
  EXPECT_EQ(grid.At(0, 0).text, u"  k");
  EXPECT_EQ(grid.At(0, 1).text, u"  X(k)     %");
  EXPECT_EQ(grid.At(0, 2).text, u"  Y(k)     %");
  bench.Press(options, 0);
  EXPECT_FALSE(test::TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_FALSE(bench.Univ().rules.lbl_Tc99User.Visible());
}

/// An input whose table is its own curve.
struct CurveRow {
  String input;
  String y_head;
  String hint;
};
const std::vector<CurveRow> kCurves = {
    {u"Tc-99:USER", u"  Y(k)    uV", u"「ﾘﾆｱﾗｲｻﾞ」ﾀﾌﾞを選択し、熱電対のﾃｰﾌﾞﾙを作成して下さい。"},
    {u"RB-98:USER", u"  Y(k)   Ohm", u"「ﾘﾆｱﾗｲｻﾞ」ﾀﾌﾞを選択し、測温体のﾃｰﾌﾞﾙを作成して下さい。"},
    {u"RB-97:USER 2W", u"  Y(k)   Ohm", u"「ﾘﾆｱﾗｲｻﾞ」ﾀﾌﾞを選択し、測温体のﾃｰﾌﾞﾙを作成して下さい。"}};

TEST(UnivTableKind, OfAUsersSensorTheTableIsInUseAndTheSwitchNoChoice) {
  for (const CurveRow& curve : kCurves) {
    SCOPED_TRACE(ToUtf8(curve.input));
    UnivBench bench;
    bench.PickInput(curve.input);
    const Linearizer& linearizer = bench.Univ().linearizer;
    EXPECT_TRUE(test::TabOpen(bench.Page(), TextKey::Linearizer));
    EXPECT_TRUE(linearizer.LnrActive());
    EXPECT_EQ(linearizer.Opt_Lnr.Selected(), 1);
    EXPECT_FALSE(linearizer.Opt_Lnr[0].Enabled());
    EXPECT_FALSE(linearizer.Opt_Lnr[1].Enabled());
    EXPECT_EQ(bench.Page().Item(23), u"0") << "the cell is left alone";
    EXPECT_EQ(linearizer.LnrFlexGrid.At(0, 1).text, u"  X(k)    ｰC");
    EXPECT_EQ(linearizer.LnrFlexGrid.At(0, 2).text, curve.y_head);
    EXPECT_TRUE(bench.Univ().rules.lbl_Tc99User.Visible());
    EXPECT_EQ(bench.Univ().rules.lbl_Tc99User.Caption(), curve.hint);
    bench.PickInput(u"POT:RATIO");
    EXPECT_EQ(linearizer.Opt_Lnr.Selected(), 0) << "what the cell says";
    EXPECT_TRUE(linearizer.Opt_Lnr[0].Enabled());
    EXPECT_TRUE(linearizer.Opt_Lnr[1].Enabled());
    EXPECT_FALSE(bench.Univ().rules.lbl_Tc99User.Visible());
  }
}

TEST(UnivTableKind, AChangeOfKindKeepsThePoints) {
  UnivBench bench;
  bench.PickInput(u"Tc-99:USER");
  bench.Do([&] { bench.Univ().linearizer.Table().Store(1, 2, u"-12.5"); });
  bench.PickInput(u"Tc-2:K(CA)");
  bench.PickInput(u"RB-98:USER");
  EXPECT_EQ(bench.Univ().linearizer.LnrFlexGrid.At(1, 2).text, u"-12.5");
  EXPECT_EQ(bench.Page().GroupItem.At(2, 1), u"-12.5");
}

// --- what follows a choice

/// Which of the options of items 21, 24 and 23 are open, a letter each.
std::string OpenOptions(UnivBench& bench) {
  UnivConfig& page = bench.Univ();
  std::string open;
  for (const auto& [letter, options] :
       {std::pair('U', &page.optTempUnit), {'B', &page.optBurn}, {'L', &page.linearizer.Opt_Lnr}}) {
    open += page.WhyRefused((*options)[0]).empty() ? letter : '-';
  }
  return open;
}

TEST(UnivChoice, OpensAndClosesTheOptionsFromClassToClassAndTheyKeepWhatTheyHold) {
  UnivBench bench;
  EXPECT_EQ(OpenOptions(bench), "UBL") << "nothing is decided while no input is chosen";
  bench.Press(bench.Page().optTempUnit, 1);
  bench.Press(bench.Univ().linearizer.Opt_Lnr, 1);
  bench.PickInput(u"mV-1:1-5 V");
  EXPECT_EQ(OpenOptions(bench), "--L");
  EXPECT_EQ(bench.Page().optTempUnit.Selected(), 1);
  EXPECT_EQ(bench.Page().Item(21), u"1");
  bench.PickInput(u"RB-98:USER");
  EXPECT_EQ(OpenOptions(bench), "UB-");
  EXPECT_EQ(bench.Page().optTempUnit.Selected(), 1);
  bench.PickInput(u"POT:RATIO");
  EXPECT_EQ(OpenOptions(bench), "--L");
  EXPECT_EQ(bench.Page().Item(23), u"1");
  bench.PickInput(u"Tc-99:USER");
  EXPECT_EQ(OpenOptions(bench), "UB-");
}

TEST(UnivChoice, ThatAFileBringsOpensAndClosesTheOptionsToo) {
  UnivBench bench;
  bench.Show(10, u"POT:RATIO");
  EXPECT_EQ(OpenOptions(bench), "--L");
  bench.Show(10, u"Tc-2:K(CA)");
  EXPECT_EQ(OpenOptions(bench), "UB-");
  bench.Show(21, u"NEEDLESS");
  EXPECT_EQ(OpenOptions(bench), "-B-") << "whatever the input, the device has none";
  bench.Show(10, u"STRANGE");
  EXPECT_EQ(OpenOptions(bench), "-BL");
}

TEST(UnivChoice, OfARangeThatIsTheUsersOpensItsFieldsAgain) {
  UnivBench bench;
  EXPECT_EQ(bench.Page().WhyRefused(bench.Field(u"12")), "") << "no output is chosen";
  EXPECT_EQ(bench.Page().WhyRefused(bench.Field(u"14")), "") << "no input is chosen";
  bench.Fill(u"mV-4:4-20 mA", u"mV-4:4-20 mA");
  for (const char16_t* item : {u"12", u"13", u"14", u"15"}) {
    EXPECT_EQ(bench.Page().WhyRefused(bench.Field(item)), "locked") << ToUtf8(item);
  }
  bench.PickInput(u"mV-0:USER mA");
  bench.PickOutput(u"mV-0:USER mA");
  for (const char16_t* item : {u"12", u"13", u"14", u"15"}) {
    EXPECT_EQ(bench.Page().WhyRefused(bench.Field(item)), "") << ToUtf8(item);
    EXPECT_EQ(bench.LookOf(item), Look::Normal);
  }
}

// --- defaults

struct ShownUnitRow {
  int option = 0;
  String input;
  String low;
  String high;
};

TEST(UnivDefaults, OfATemperatureComeInTheShownUnitInsideTheLimits) {
  // -270 deg C is -454 deg F and 3.2 K; 1370 deg C is 2498 deg F and 1643.2 K; -273 deg C is -459.4 deg F.
  for (const ShownUnitRow& row :
       {ShownUnitRow{1, u"Tc-2:K(CA)", u"-454", u"2498"}, ShownUnitRow{2, u"Tc-2:K(CA)", u"4", u"1643"},
        ShownUnitRow{1, u"Tc-99:USER", u"-459", u"5432"}, ShownUnitRow{2, u"RB-1:Pt100", u"74", u"1123"}}) {
    SCOPED_TRACE(ToUtf8(row.input));
    UnivBench bench;
    bench.Press(bench.Page().optTempUnit, row.option);
    bench.PickInput(row.input);
    EXPECT_EQ(bench.Field(u"14").Text(), row.low);
    EXPECT_EQ(bench.Field(u"15").Text(), row.high);
    EXPECT_EQ(bench.UnitOf(u"14"), bench.Page().optTempUnit[row.option].Caption());
  }
}

TEST(UnivDefaults, OfAnyOtherInputAreThoseOfItsRow) {
  UnivBench bench;
  bench.Press(bench.Page().optTempUnit, 1);
  bench.PickInput(u"mV-4:4-20 mA");
  EXPECT_EQ(bench.Field(u"14").Text(), u"4");
  EXPECT_EQ(bench.Field(u"15").Text(), u"20");
  EXPECT_EQ(bench.UnitOf(u"15"), u"mA");
}

TEST(UnivDefaults, OpenWhatTheDeviceHadNoUseFor) {
  UnivBench bench;
  bench.Read(u"mV-1:1-5 V");
  EXPECT_EQ(bench.Page().Item(21), u"NEEDLESS");
  EXPECT_EQ(bench.Page().Item(24), u"NEEDLESS");
  EXPECT_EQ(bench.Page().optTempUnit.Selected(), -1);
  EXPECT_EQ(bench.Page().WhyRefused(bench.Page().optTempUnit[1]), "disabled");
  EXPECT_EQ(bench.Page().WhyRefused(bench.Univ().optBurn[1]), "disabled");
  EXPECT_EQ(bench.Page().WhyRefused(bench.Univ().linearizer.Opt_Lnr[1]), "");
  bench.PickInput(u"RB-1:Pt100");
  EXPECT_EQ(bench.Page().WhyRefused(bench.Page().optTempUnit[1]), "");
  EXPECT_EQ(bench.Page().WhyRefused(bench.Univ().optBurn[1]), "");
  EXPECT_EQ(bench.Page().Item(21), u"0");
  EXPECT_EQ(bench.Page().optTempUnit.Selected(), 0);
  EXPECT_EQ(bench.Page().Item(24), u"1");
  EXPECT_EQ(bench.UnitOf(u"14"), u"deg C");
  EXPECT_EQ(bench.Field(u"14").Text(), u"-200");
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST(UnivOptions, HoldTheCodeOfTheirRowAndMarkThePageAsChanged) {
  UnivBench bench;
  struct OptionItem {
    OptionGroup* options;
    int place;
    int item;
    String code;
  };
  UnivConfig& page = bench.Univ();
  for (const OptionItem& one : {OptionItem{&page.optTempUnit, 2, 21, u"2"},
                                {&page.linearizer.Opt_Lnr, 1, 23, u"1"},
                                {&page.optBurn, 2, 24, u"2"},
                                {&page.optRelay_1, 1, 25, u"1"},
                                {&page.optRelay_2, 2, 28, u"2"},
                                {&page.optDirect, 1, 31, u"1"},
                                {&page.setpoints.optSetpointUnit_1, 1, 38, u"1"},
                                {&page.setpoints.optSetpointUnit_2, 1, 39, u"1"},
                                {&page.optExcitation_1, 1, 84, u"1"},
                                {&page.optExcitation_2, 1, 85, u"1"}}) {
    page.DataChanged = false;
    bench.Press(*one.options, one.place);
    EXPECT_EQ(page.Item(one.item), one.code) << one.item;
    EXPECT_TRUE(page.DataChanged) << one.item;
  }
}

TEST(UnivOptions, ATextOfTheDeviceOrAFileBecomesTheCode) {
  UnivBench bench;
  bench.Show(24, u"DOWNSCALE");
  EXPECT_EQ(bench.Page().Item(24), u"2");
  EXPECT_EQ(bench.Univ().optBurn.Selected(), 2);
  bench.Show(24, u"1");
  EXPECT_EQ(bench.Page().Item(24), u"1");
  EXPECT_EQ(bench.Univ().optBurn.Selected(), 1);
  bench.Show(24, u"SIDEWAYS");
  EXPECT_EQ(bench.Page().Item(24), u"SIDEWAYS") << "what stands in no row stays as it is";
  EXPECT_EQ(bench.Univ().optBurn.Selected(), -1);
}

TEST(UnivBoxes, AreLockedWhereTheDefinitionSaysSo) {
  for (const auto& [row, box] : {std::pair(u"01, 10,     11,", 0), {u"01, 11,     14,", 1}}) {
    UnivBench bench;
    String text = bench.TextOf(test::DefPath(u"QXI"));
    const String open = u",   ,    Y,";  // the rule of change, and that it is written
    text.replace(text.find(open, text.find(row)), open.size(), u",   Y, Y,");
    bench.files.Put(test::DefPath(u"QXI"), bench.code_page.Encode(text).value());
    bench.Choose(u"QXI2");
    for (const int one : {0, 1}) {
      EXPECT_EQ(bench.Page().Combo[one].Locked(), one == box) << one;
      EXPECT_EQ(bench.Page().Combo[one].ShownLook(), one == box ? Look::Grey : Look::Normal) << one;
    }
  }
}

TEST(UnivBoxes, ListEveryRowWithATextAndAreOpenUnlessTheRowIsFixed) {
  UnivBench bench;
  String text = bench.TextOf(test::DefPath(u"QXI"));
  const auto replace = [&](const String& from, const String& to) {
    const std::size_t at = text.find(from);
    ASSERT_NE(at, String::npos);
    text.replace(at, from.size(), to);
  };
  replace(u"12, mV-1:1-5 V,    1, ", u",   mV-1:1-5 V,    1, ");
  replace(u"18, mV-6:0-10 mA,", u"18, ,");
  bench.files.Put(test::DefPath(u"QXI"), bench.code_page.Encode(text).value());
  bench.Choose(u"QXI2");
  EXPECT_EQ(bench.Input().Entries().size(), 24U);
  EXPECT_FALSE(bench.Input().Locked());
  EXPECT_FALSE(bench.Output().Locked());
  bench.Fill(u"mV-1:1-5 V");
  EXPECT_EQ(bench.CheckResult(), test::Shown(BoxKey::ValueBad)) << "it has no code to be sent";
  EXPECT_EQ(bench.Input().ShownLook(), Look::Bad);
  bench.PickInput(u"mV-2:0-10 V");
  EXPECT_TRUE(bench.Passes());
}

}  // namespace
}  // namespace korva
