// The units of live values, family by family and model by model.

#include "monitor/unit_reader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "monitor_bench.h"

namespace korva {
namespace {

using test::MonitorBench;
using test::TemperatureSection;

/// Rows of items 04, 06 and 07 with the units that the definition gives them.
std::string RowsWithUnits(int unit_column) {
  return test::RowsOf({{.item = "04", .index = 3, .unit = "d04"},
                       {.item = "06", .index = 5, .unit = "d06"},
                       {.item = "07", .index = 6, .unit = "d07"},
                       {.item = "09", .index = 14, .unit = "d14"},
                       {.item = "12", .index = 2, .unit = "d02"}},
                      unit_column);
}
const std::string kRows = RowsWithUnits(kUsualLayout.unit_text);

/// Input types with their unit in `column`; row 0 is one, too.
std::string Types(const std::string& key, int column) {
  const std::string gap(static_cast<std::size_t>(column) - 1, ',');
  return key + "\r\n0,mV-0:zero" + gap + "u0\r\n1,mV-1:one" + gap + "u1\r\n2,POT:two" + gap + "u2\r\n";
}
const std::string kSensors = "\r\n0,0:a,u0\r\n1,1:b,u1\r\n";

struct UnitCase {
  const char* name;
  StringView word;
  std::string def_file;
  std::string sections;
  std::map<std::string, std::string> answers;
  std::string units;  ///< of 04, 06, 07, and of labels 14 and 2
  std::string reads;  ///< items that are read for them
  std::string measured = {};
};

const std::string kDefined = " d14 d02";

const std::vector<UnitCase> kCases = {
    {"FirstTemperatureAndType",
     u"First",
     "QHW.def",
     TemperatureSection() + Types("$I10", 8),
     {{"21", "1:deg F"}, {"10", "mV-1:one"}},
     "deg_F u1 d07" + kDefined,
     "21 10"},
    {"FirstTypeOfQL",
     u"First",
     "QL.def",
     TemperatureSection() + Types("$I10", 8),
     {{"21", "2:K"}, {"10", "POT:two"}},
     "K u2 d07" + kDefined,
     "21 10"},
    {"FirstTypeOfQHN",
     u"First",
     "QHN.def",
     TemperatureSection() + Types("$I10", 8),
     {{"21", "2:K"}, {"10", "POT:two"}},
     "K u2 d07" + kDefined,
     "21 10"},
    {"FirstRowZeroOfTheTypesHasNoUnit",
     u"First",
     "QHN.def",
     TemperatureSection() + Types("$I10", 8),
     {{"21", "2:K"}, {"10", "mV-0:zero"}},
     "K - d07" + kDefined,
     "21 10"},
    {"FirstOtherModelsOfTheFilterGroupHaveNone",
     u"First",
     "QHN1.def",
     TemperatureSection() + Types("$I10", 8),
     {{"21", "2:K"}, {"10", "POT:two"}},
     "K - d07" + kDefined,
     "21"},
    {"FirstRowOfQC",
     u"First",
     "QC.def",
     TemperatureSection(),
     {{"21", "0:deg C"}},
     "deg_C d06 d07" + kDefined,
     "21"},
    {"FirstRowOfQN",
     u"First",
     "QN.def",
     TemperatureSection(),
     {{"21", "0:deg C"}},
     "deg_C d06 d07" + kDefined,
     "21"},
    {"FirstSensor",
     u"First",
     "QEI.def",
     TemperatureSection() + "$I11QEI" + kSensors,
     {{"21", "0:deg C"}, {"11", "1:b"}},
     "deg_C u1 d07" + kDefined,
     "21 11"},
    {"FirstRowZeroOfTheSensorsHasNoUnit",
     u"First",
     "QEI.def",
     TemperatureSection() + "$I11QEI" + kSensors,
     {{"21", "0:deg C"}, {"11", "0:a"}},
     "deg_C - d07" + kDefined,
     "21 11"},
    {"FirstUnknownSensorHasNoUnit",
     u"First",
     "QEI.def",
     TemperatureSection() + "$I11QEI" + kSensors,
     {{"21", "0:deg C"}, {"11", "9:z"}},
     "deg_C - d07" + kDefined,
     "21 11"},
    {"FirstUnknownTemperatureUnitIsEmpty",
     u"First",
     "QC.def",
     TemperatureSection(),
     {{"21", "9:R"}},
     "- d06 d07" + kDefined,
     "21"},
    {"FirstOtherModels",
     u"First",
     "QZ.def",
     TemperatureSection(),
     {{"21", "1:deg F"}},
     "deg_F - d07" + kDefined,
     "21"},
    {"FirstNoneOnQHG", u"First", "QHG.def", TemperatureSection(), {}, "d04 d06 d07" + kDefined, ""},
    {"FirstNoneOnQH", u"First", "QH.def", TemperatureSection(), {}, "d04 d06 d07" + kDefined, ""},
    {"FirstNoneOnQD", u"First", "QD.def", TemperatureSection(), {}, "d04 d06 d07" + kDefined, ""},
    {"FirstNoneOnQD2", u"First", "QD2.def", TemperatureSection(), {}, "d04 d06 d07" + kDefined, ""},
    {"FirstNoneOnQD2I", u"First", "QD2I.def", TemperatureSection(), {}, "d04 d06 d07" + kDefined, ""},
    {"FirstNoneOnQY", u"First", "QY.def", TemperatureSection(), {}, "d04 d06 d07" + kDefined, ""},
    {"SecondHasNone", u"Second", "M.def", "", {}, "d04 d06 d07" + kDefined, ""},
    {"ThirdPercent", u"Third", "QNA2.def", "", {}, "d04 % d07" + kDefined, ""},
    {"ThirdSensorOfQCE2",
     u"Third",
     "QCE2.def",
     "$I11QEI" + kSensors,
     {{"11", "1:b"}},
     "d04 u1 d07" + kDefined,
     "11"},
    {"ThirdSensorOfQEI2",
     u"Third",
     "QEI2.def",
     "$I11QEI" + kSensors,
     {{"11", "1:b"}},
     "d04 u1 d07" + kDefined,
     "11"},
    {"ThirdRangeOfQHC2",
     u"Third",
     "QHC2.def",
     "$I11QHC2" + kSensors,
     {{"11", "1:b"}},
     "d04 u1 d07" + kDefined,
     "11"},
    {"ThirdUnknownRangeHasNoUnit",
     u"Third",
     "QHC2.def",
     "$I11QHC2" + kSensors,
     {{"11", "9:z"}},
     "d04 - d07" + kDefined,
     "11"},
    {"ThirdLabel14OfQICE2",
     u"Third",
     "QICE2.def",
     "$I11QIE" + kSensors,
     {{"11", "1:b"}},
     "d04 d06 d07 u1 d02",
     "11"},
    {"ThirdLabel14OfQIEU2",
     u"Third",
     "QIEU2.def",
     "$I11QIE" + kSensors,
     {{"11", "1:b"}},
     "d04 d06 d07 u1 d02",
     "11"},
    {"ThirdRowZeroForLabel14HasNoUnit",
     u"Third",
     "QICE2.def",
     "$I11QIE" + kSensors,
     {{"11", "0:a"}},
     "d04 d06 d07 - d02",
     "11"},
    {"ThirdOtherModels", u"Third", "QCB2.def", "", {}, "d04 - d07" + kDefined, ""},
    {"QXIVoltage",
     u"QXI",
     "M.def",
     TemperatureSection() + Types("$I10", 5),
     {{"21", "1:deg F"}, {"10", "mV-1:one"}},
     "deg_F u1 deg_F" + kDefined,
     "21 10 21"},
    {"QXIPotentiometer",
     u"QXI",
     "M.def",
     TemperatureSection() + Types("$I10", 5),
     {{"21", "1:deg F"}, {"10", "POT:two"}},
     "deg_F deg_F deg_F" + kDefined,
     "21 10 21 21"},
    {"QXIAnyOtherInput",
     u"QXI",
     "M.def",
     TemperatureSection() + Types("$I10", 5),
     {{"21", "1:deg F"}, {"10", "Tc-2:K"}},
     "deg_F % deg_F" + kDefined,
     "21 10 21"},
    {"LiteThermocouple",
     u"Lite",
     "Z2WT2.def",
     TemperatureSection(),
     {{"21", "2:K"}},
     "K d06 K" + kDefined,
     "21"},
    {"LiteThermocoupleOfThePlainLine",
     u"Lite",
     "Z8WT.def",
     TemperatureSection(),
     {{"21", "2:K"}},
     "K d06 K" + kDefined,
     "21"},
    {"LiteResistance",
     u"Lite",
     "Z2WR.def",
     TemperatureSection(),
     {{"21", "2:K"}},
     "K d06 K" + kDefined,
     "21"},
    {"LiteResistance2",
     u"Lite",
     "Z2WR2.def",
     TemperatureSection(),
     {{"21", "2:K"}},
     "K d06 K" + kDefined,
     "21"},
    {"LiteVoltage",
     u"Lite",
     "Z8WV.def",
     Types("$I10", 5),
     {{"10", "mV-1:one"}},
     "u1 u1 u1" + kDefined,
     "10 10"},
    {"LiteVoltage2",
     u"Lite",
     "Z2WV2.def",
     Types("$I10", 5),
     {{"10", "mV-1:one"}},
     "u1 u1 u1" + kDefined,
     "10 10"},
    {"LiteFrequency",
     u"Lite",
     "Z8WF.def",
     Types("$I10", 5),
     {{"10", "mV-1:one"}},
     "u1 u1 u1" + kDefined,
     "10 10"},
    {"LiteFrequency2",
     u"Lite",
     "Z2WF2.def",
     Types("$I10", 5),
     {{"10", "mV-1:one"}},
     "u1 u1 u1" + kDefined,
     "10 10"},
    {"LitePotentiometer",
     u"Lite",
     "Z8WM.def",
     Types("$I10", 5),
     {{"10", "POT:two"}},
     "u2 d06 u2" + kDefined,
     "10"},
    {"LitePotentiometer2",
     u"Lite",
     "Z2WM2.def",
     Types("$I10", 5),
     {{"10", "POT:two"}},
     "u2 d06 u2" + kDefined,
     "10"},
    {"LiteUnivThermocouple",
     u"LiteUniv",
     "M.def",
     TemperatureSection() + Types("$I10TC", 5),
     {{"10", "mV-1:one"}, {"21", "0:deg C"}},
     "deg_C mV deg_C" + kDefined,
     "10 21"},
    {"LiteUnivResistance",
     u"LiteUniv",
     "M.def",
     TemperatureSection() + Types("$I10RTD", 5),
     {{"10", "mV-1:one"}, {"21", "1:deg F"}},
     "deg_F Ohm deg_F" + kDefined,
     "10 21"},
    {"LiteUnivVoltage",
     u"LiteUniv",
     "M.def",
     Types("$I10DC", 5),
     {{"10", "mV-1:one"}},
     "u1 u1 u1" + kDefined,
     "10"},
    {"LiteUnivPotentiometer",
     u"LiteUniv",
     "M.def",
     Types("$I10PM", 5),
     {{"10", "POT:two"}},
     "% % %" + kDefined,
     "10"},
    {"LiteUnivUnknownInput",
     u"LiteUniv",
     "M.def",
     Types("$I10DC", 5),
     {{"10", "none of it"}},
     "- - -" + kDefined,
     "10"},
    {"NanoVoltage", u"Nano", "Z8WV2.def", "", {}, "d02 d02 d02" + kDefined, ""},
    {"NanoPotentiometer", u"Nano", "Z8WM2.def", "", {}, "% % %" + kDefined, ""},
    {"NanoThermocouple",
     u"Nano",
     "Z8WT2.def",
     TemperatureSection(),
     {{"21", "0:deg C"}},
     "deg_C mV deg_C" + kDefined,
     "21 21"},
    {"NanoResistance",
     u"Nano",
     "Z8WR2.def",
     TemperatureSection(),
     {{"21", "0:deg C"}},
     "deg_C Ohm deg_C" + kDefined,
     "21 21"},
    {"NanoOther",
     u"Nano",
     "M.def",
     TemperatureSection(),
     {{"21", "0:deg C"}},
     "deg_C deg_C deg_C" + kDefined,
     "21 21 21"},
    {"LiteSecondMillihertz",
     u"LiteSecond",
     "M.def",
     "",
     {{"03", "0"}},
     "d04 mHz d07" + kDefined,
     "03",
     "mHz"},
    {"LiteSecondHertz", u"LiteSecond", "M.def", "", {{"03", "1"}}, "d04 Hz d07" + kDefined, "03", "Hz"},
    {"LiteSecondKilohertz", u"LiteSecond", "M.def", "", {{"03", "2"}}, "d04 kHz d07" + kDefined, "03", "kHz"},
    {"LiteSecondUnknownCode", u"LiteSecond", "M.def", "", {{"03", "3"}}, "d04 - d07" + kDefined, "03"},
    {"LiteThirdHasNone", u"LiteThird", "M.def", "", {}, "d04 d06 d07" + kDefined, ""},
    {"LiteForthInAndOut",
     u"LiteForth",
     "M.def",
     TemperatureSection(6) + "$I11\r\n0,0:a,,,,,V\r\n",
     {{"21", "1:deg F"}, {"11", "0:a"}},
     "deg_F V d07" + kDefined,
     "21 11",
     "V"},
    {"LiteFifthInAndOut",
     u"LiteFifth",
     "M.def",
     TemperatureSection(6) + "$I11\r\n0,0:a,,,,,V\r\n",
     {{"21", "1:deg F"}, {"11", "0:a"}},
     "deg_F V d07" + kDefined,
     "21 11",
     "V"},
};

std::string Shown(const Label& label) {
  std::string text = ToUtf8(label.Caption());
  std::replace(text.begin(), text.end(), ' ', '_');
  return text.empty() ? "-" : text;
}

/// Starts the monitor and stops it before its first cycle.
void ShowUnits(MonitorBench& bench) {
  bench.StopAt(bench.page->ItsFamily().word == u"LiteSecond" ? "I22" : "I01");
  bench.Start();
}

/// Items that were selected behind the mode change, with blanks between.
std::string ItemsRead(const MonitorBench& bench) {
  std::string items;
  for (const auto& command : bench.line.Commands()) {
    if (command.text[0] == 'I' && command.text != "I01" && command.text != "I22") {
      items += (items.empty() ? "" : " ") + command.text.substr(1);
    }
  }
  return items;
}

struct UnitTest : testing::TestWithParam<UnitCase> {};
INSTANTIATE_TEST_SUITE_P(Unit, UnitTest, testing::ValuesIn(kCases),
                         [](const auto& one) { return one.param.name; });

TEST_P(UnitTest, IsFoundWhereTheModelHasIt) {
  const UnitCase& one = GetParam();
  const bool has_boxes = one.word == u"Second" || one.word == u"LiteThird";  // of units, in the column before
  const std::string rows = has_boxes ? RowsWithUnits(15) : kRows;
  MonitorBench bench(one.word, one.def_file, rows + one.sections);
  for (const auto& [item, answer] : one.answers) {
    bench.line.items[item] = answer;
  }
  ShowUnits(bench);
  std::string units;
  for (const int label : {3, 5, 6, 14, 2}) {
    units += (units.empty() ? "" : " ") + Shown(bench.page->lbl_unit[label]);
  }
  EXPECT_EQ(units, one.units);
  EXPECT_EQ(ItemsRead(bench), one.reads);
  EXPECT_EQ(ToUtf8(bench.page->unitMeasFreq.Caption()), one.measured);
  EXPECT_TRUE(bench.AtRest());
}

struct RepeatCase {
  StringView word;
  std::string def_file;
  std::string sections;
  int tries;
};
struct UnitRepeatTest : testing::TestWithParam<RepeatCase> {};
INSTANTIATE_TEST_SUITE_P(Family, UnitRepeatTest,
                         testing::Values(RepeatCase{u"First", "QZ.def", TemperatureSection(), 6},
                                         RepeatCase{u"Third", "QCE2.def", "$I11QEI" + kSensors, 4},
                                         RepeatCase{u"Nano", "Z8WT2.def", TemperatureSection(), 12},
                                         RepeatCase{u"LiteSecond", "M.def", "", 1},
                                         RepeatCase{u"LiteForth", "M.def",
                                                    TemperatureSection(6) + "$I11\r\n0,0:a,,,,,V\r\n", 2}),
                         [](const auto& one) { return ToUtf8(one.param.word); });

TEST_P(UnitRepeatTest, ASilentDeviceIsAskedAsOftenAsTheFamilySaysAndTheUnitIsEmpty) {
  const RepeatCase& one = GetParam();
  MonitorBench bench(one.word, one.def_file, kRows + one.sections);
  bench.line.silent_from = 4;
  ShowUnits(bench);
  EXPECT_EQ(static_cast<int>(bench.line.Commands().size()) - 3, one.tries);
  EXPECT_TRUE(bench.Boxes().empty());
  EXPECT_TRUE(bench.AtRest());
}

TEST(UnitReaderTest, NoUnitIsReadForAnItemWithoutARow) {
  MonitorBench bench(u"First", "QHW.def",
                     test::RowsOf({{.item = "05", .index = 4}}) + TemperatureSection() + Types("$I10", 8));
  ShowUnits(bench);
  EXPECT_EQ(ItemsRead(bench), "");
}

TEST(UnitReaderTest, NoUnitIsReadForAnItemWhoseLabelIsHidden) {
  MonitorBench bench(u"First", "QHW.def", kRows + TemperatureSection() + Types("$I10", 8));
  bench.UnitLabel(u"04").SetVisible(false);
  bench.line.items["10"] = "mV-1:one";
  ShowUnits(bench);
  EXPECT_EQ(ItemsRead(bench), "10");
  EXPECT_EQ(bench.Unit(u"04"), "d04");
}

TEST(UnitReaderTest, AnItemOfTheFirstFamilyThatIsNotOnThePageKeepsItsUnit) {
  MonitorBench bench(
      u"First", "QC.def",
      test::RowsOf({{.item = "04", .index = 3, .on_page = "N"}, {.item = "05", .index = 3, .unit = "d"}}) +
          TemperatureSection());
  ShowUnits(bench);
  EXPECT_EQ(ItemsRead(bench), "");
  EXPECT_EQ(bench.Unit(u"04"), "d");
}

TEST(UnitReaderTest, ADeviceThatDoesNotAnswerHasNotTheUnitOfARowWithoutAText) {
  MonitorBench bench(u"Third", "QCE2.def", kRows + "$I11QEI\r\n0,,none\r\n1,1:b,u1\r\n");
  ShowUnits(bench);
  EXPECT_EQ(ItemsRead(bench), "11 11 11 11");
  EXPECT_EQ(bench.Unit(u"06"), "");
}

TEST(UnitReaderTest, ALabelBlinksWhileItsLookupRuns) {
  MonitorBench bench(u"First", "QC.def", kRows + TemperatureSection());
  bench.line.silent_from = 4;
  Label& label = bench.UnitLabel(u"04");
  std::vector<std::pair<Clock, Look>> looks;
  label.Observe([&] { looks.emplace_back(bench.host.loop.Now(), label.ShownLook()); });
  ShowUnits(bench);
  // Monitor mode took three replies of 10 ms; six tries of 3000 ms follow, with a tick each 200 ms.
  ASSERT_GE(looks.size(), 3U);
  for (std::size_t at = 0; at < 5; ++at) {
    EXPECT_EQ(looks[at].first, Milliseconds(30 + 200 * static_cast<int>(at)));
    EXPECT_EQ(looks[at].second, at % 2 == 0 ? Look::Highlight : Look::Normal);
  }
  EXPECT_EQ(label.ShownLook(), Look::Normal);
  EXPECT_TRUE(bench.TimersStopped());
}

}  // namespace
}  // namespace korva
