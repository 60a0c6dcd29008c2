#include "transfer/value_check.h"

#include <gtest/gtest.h>

#include <array>

#include "core/text_utilities.h"
#include "transfer_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kSections =
    "$I10\r\n"
    "1, 1:RTD, 0, 1000, 50, N, Y, DC V, deg C\r\n"
    "2, 2:TC, -200.4, 600.4, 20, N, Y, , deg C\r\n"
    "3, 3:DC, -10, 10, 0.1, N, Y, DC mA, V\r\n"
    "4, 4:STRAIGHT, , , , N, Y, NONE, mV\r\n"
    "5, 5:ODD, 0, 10, 1, N, Y, NO SUCH TITLE, mV\r\n"
    "$I11\r\n"
    "$I11Title\r\nNONE, DC V, DC mA\r\n"
    "$I11Body\r\n0, 0-10 V, 0-20 mA, , 0, 10, 0, 20\r\n1, 0-5 V, 4-20 mA, , 0, 5, 4, 20\r\n"
    "$I11QEI\r\n0, A, Hz, 100\r\n5, B, Hz, 2\r\n6, C, Hz, 2\r\n7, D, Hz, 2\r\n"
    "$I21\r\n0, deg C\r\n1, deg F\r\n2, K\r\n"
    "$SSTab\r\nTrue, True, True, True, True, True, True\r\n";

const std::vector<DataRow> kRows = {
    {.item = "02", .text = "0", .prefix = "TG:"},
    {.item = "03_set", .text = "20"},
    {.item = "03_mon", .text = "21"},
    {.item = "04", .text = "22"},
    {.item = "08", .text = "23"},
    {.item = "14", .text = "2", .unit_label = "2", .unit = "$in", .temperature = true},
    {.item = "15", .text = "3", .unit_label = "3", .unit = "$in", .temperature = true},
    {.item = "18", .text = "4"},
    {.item = "19", .text = "5"},
    {.item = "20", .text = "6"},
    {.item = "21", .list = "$I21", .frame = "3"},
    {.item = "22", .text = "7"},
    {.item = "24", .text = "8"},
};

struct ValueCheckTest : testing::Test {
  explicit ValueCheckTest(const ModelTraits& traits = {.def_file = kModel})
      : bench(DataSection(kRows) + kSections, traits) {
    for (const auto& [item, value] : std::vector<std::pair<int, String>>{{2, u"PUMP 1"},
                                                                         {10, u"1:RTD"},
                                                                         {14, u"0"},
                                                                         {15, u"100"},
                                                                         {18, u"1"},
                                                                         {19, u"0"},
                                                                         {20, u"100"},
                                                                         {21, u"deg C"},
                                                                         {22, u"1"},
                                                                         {24, u"1"}}) {
      bench.page->SetItem(item, value);
    }
    bench.page->BuildPage();
    bench.page->DataChanged = false;
  }

  /// Shows the set with another input type, unit, zero and span, and checks it.
  bool ZeroSpanGood(const String& type, const String& unit, const String& zero, const String& span) {
    bench.page->SetItem(10, type);
    bench.page->SetItem(21, unit);
    bench.page->SetItem(14, zero);
    bench.page->SetItem(15, span);
    bench.page->optTempUnit.Clear();
    bench.page->BuildPage();
    return Passes();
  }
  bool Passes() {
    const std::size_t before = bench.host.dialogs.Boxes().size();
    bench.Check();
    const bool passes = bench.Boxes().at(before) == Shown(BoxKey::CheckDone);
    if (!passes) {
      EXPECT_EQ(bench.Boxes().at(before), Shown(BoxKey::ValueBad));
    }
    EXPECT_TRUE(bench.AtRest());
    return passes;
  }
  void ExpectLooks(Look zero, Look span) const {
    EXPECT_EQ(bench.LookOf(u"14"), zero);
    EXPECT_EQ(bench.LookOf(u"15"), span);
  }

  TransferBench bench;
};

// The command.

TEST_F(ValueCheckTest, AGoodSetIsReportedWithTheBarAtItsEndAndThenZero) {
  bench.Check();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::CheckDone)});
  EXPECT_EQ(bench.progress, (std::vector<int>{5, 10, 100, 0}));
  EXPECT_EQ(bench.line.Sent(), "");
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(ValueCheckTest, ABadValueEndsTheBarAtZeroWithTheBox) {
  bench.Type(u"20", u"-1");
  bench.Check();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::ValueBad)});
  EXPECT_EQ(bench.progress, (std::vector<int>{5, 0}));
}

TEST_F(ValueCheckTest, TheFrameIsLockedWhileTheBoxShowsAndTabsKeepTheirState) {
  bench.page->Tabs.SetTabEnabled(4, false);
  bool locked = false;
  bench.host.dialogs.OnBox(
      [&](const Box&) { locked = !bench.page->cmdUpload.Enabled() && !bench.page->Tabs.TabEnabled(0); });
  bench.Check();
  EXPECT_TRUE(locked);
  EXPECT_TRUE(bench.page->Tabs.TabEnabled(3));
  EXPECT_FALSE(bench.page->Tabs.TabEnabled(4));
}

// Blank fields.

TEST_F(ValueCheckTest, ABlankFieldIsToldBeforeAnyValueIsChecked) {
  bench.Type(u"22", u"");
  bench.Type(u"20", u"-1");
  bench.Check();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::FieldBlank)});
  EXPECT_EQ(bench.LookOf(u"20"), Look::Normal);
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(ValueCheckTest, ABlankTagPassesAndBecomesTenBlanksInTheSet) {
  bench.Type(u"02", u"");
  EXPECT_TRUE(Passes());
  EXPECT_EQ(bench.page->Item(2), u"          ");
  EXPECT_EQ(bench.page->Text[0].Text(), u"");
}

TEST_F(ValueCheckTest, BlankLiveValuesLockedFieldsAndHiddenOnesAreLeftAlone) {
  EXPECT_TRUE(Passes()) << "the fields of 03_set, 03_mon, 04 and 08 are blank";
  bench.page->Text[7].SetText(u"");
  bench.page->Text[7].SetLocked(true);
  EXPECT_TRUE(Passes());
  bench.page->Text[7].SetLocked(false);
  bench.page->Text[7].SetVisible(false);
  EXPECT_TRUE(Passes());
}

// The tag.

TEST_F(ValueCheckTest, ATagHasAtMostTenCharactersOfOneByteUpTo225) {
  struct Case {
    String tag;
    bool good;
  };
  for (const auto& [tag, good] : {
           Case{u"ABCDEFGHIJ", true}, Case{u"  ABCDEFGHIJ  ", true}, Case{u"ABCDEFGHIJK", false},
           Case{u"ﾀｸﾞ", true}, Case{u"\uFF9F", true},  // the last half-width character, byte 223
           Case{u"タグ", false}, Case{u"A漢", false},
           Case{u"\u20AC", false},  // the code page has no such character
       }) {
    bench.Type(u"02", tag);
    EXPECT_EQ(Passes(), good) << ToUtf8(tag);
    EXPECT_EQ(bench.LookOf(u"02"), good ? Look::Normal : Look::Bad) << ToUtf8(tag);
  }
}

TEST_F(ValueCheckTest, ACorrectedFieldLosesItsInvertedColoursOnlyWhenTheCheckRunsAgain) {
  bench.Type(u"02", u"ABCDEFGHIJK");
  EXPECT_FALSE(Passes());
  bench.Type(u"02", u"ABC");
  EXPECT_EQ(bench.LookOf(u"02"), Look::Bad);
  EXPECT_TRUE(Passes());
  EXPECT_EQ(bench.LookOf(u"02"), Look::Normal);
}

// Zero and span.

TEST_F(ValueCheckTest, ZeroMustBeAtLeastTheLowestValueAndSpanIsThenLeftAlone) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"0", u"50"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"-0.1", u"2000"));
  ExpectLooks(Look::Bad, Look::Normal);
}

TEST_F(ValueCheckTest, SpanMustBeAtMostTheHighestValueAndZeroIsThenGood) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"0", u"1000"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"0", u"1000.1"));
  ExpectLooks(Look::Normal, Look::Bad);
}

TEST_F(ValueCheckTest, ZeroAndSpanMustBeTheSmallestSpanApartOrBothAreBad) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"100", u"150"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"100", u"149.9"));
  ExpectLooks(Look::Bad, Look::Bad);
  EXPECT_TRUE(ZeroSpanGood(u"3:DC", u"", u"0.2", u"0.3")) << "0.1 apart as the user reads it";
}

TEST_F(ValueCheckTest, LimitsOfZeroAndAThousandGoTo32And1832InFahrenheit) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg F", u"32", u"1832"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg F", u"31.9", u"1832"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg F", u"32", u"1832.1"));
  // The smallest span of 50 deg C is 90 deg F.
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg F", u"100", u"190"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg F", u"100", u"189.9"));
}

TEST_F(ValueCheckTest, InKelvinTheLowLimitIsRoundedUpTheHighOneDownAndTheSpanStays) {
  // 0 + 273.2 goes up to 274, 1000 + 273.2 down to 1273.
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"K", u"274", u"1273"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"K", u"273.9", u"1273"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"K", u"274", u"1273.1"));
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"K", u"300", u"350"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"K", u"300", u"349.9"));
  // -200.4 deg C is -328.72 deg F and goes up to -328; 600.4 is 1112.72 and goes down to 1112.
  EXPECT_TRUE(ZeroSpanGood(u"2:TC", u"deg F", u"-328", u"1112"));
  EXPECT_FALSE(ZeroSpanGood(u"2:TC", u"deg F", u"-328.1", u"1112"));
  EXPECT_FALSE(ZeroSpanGood(u"2:TC", u"deg F", u"-328", u"1112.1"));
}

TEST_F(ValueCheckTest, LimitsInVoltAreTakenAsTheyStandWhateverTheTemperatureUnit) {
  EXPECT_TRUE(ZeroSpanGood(u"3:DC", u"deg F", u"-10", u"10"));
  EXPECT_FALSE(ZeroSpanGood(u"3:DC", u"K", u"-10", u"10.1"));
}

TEST_F(ValueCheckTest, AnInputTypeOutsideTheTableLeavesZeroAndSpanUncheckedAndUncoloured) {
  for (const String type : {u"9:OTHER", u""}) {
    EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"100", u"101"));
    bench.page->SetItem(10, type);
    EXPECT_TRUE(Passes());
    ExpectLooks(Look::Bad, Look::Bad);
  }
}

TEST_F(ValueCheckTest, NEEDLESSZeroAndSpanPass) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"NEEDLESS", u"NEEDLESS"));
}

TEST_F(ValueCheckTest, ATextReadsAsItsLeadingNumberAndAsZeroWithoutOne) {
  EXPECT_TRUE(ZeroSpanGood(u"3:DC", u"", u"1.5.2", u"1.6")) << "1.5.2 reads as 1.5";
  EXPECT_FALSE(ZeroSpanGood(u"3:DC", u"", u"1.5.2", u"1.59"));
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"abc", u"50"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"abc", u"49"));
}

TEST_F(ValueCheckTest, WithoutARangeInTheListZeroAndSpanPass) {
  EXPECT_TRUE(ZeroSpanGood(u"4:STRAIGHT", u"", u"-500", u"500"));
}

struct WholeNumberCheckTest : ValueCheckTest {
  WholeNumberCheckTest() : ValueCheckTest({.def_file = kModel, .whole_number_limits = true}) {}
};

TEST_F(WholeNumberCheckTest, LimitsAreRoundedByTheMask) {
  // -200.4 deg C is -328.72 deg F, by the mask -329; 600.4 is 1112.72, by the mask 1113.
  EXPECT_TRUE(ZeroSpanGood(u"2:TC", u"deg F", u"-329", u"1113"));
  EXPECT_FALSE(ZeroSpanGood(u"2:TC", u"deg F", u"-329.1", u"1113"));
  EXPECT_FALSE(ZeroSpanGood(u"2:TC", u"deg F", u"-329", u"1113.1"));
  // In K 0 is 273.2, by the mask 273.
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"K", u"273", u"1273"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"K", u"272.9", u"1273"));
}

TEST_F(WholeNumberCheckTest, WithoutARangeInTheListZeroAndSpanHaveARuleOfTheirOwn) {
  struct Case {
    String zero;
    String span;
    bool good;
  };
  for (const auto& [zero, span, good] : {
           Case{u"-10", u"10", true}, Case{u"-10.1", u"9", false}, Case{u"0", u"10.1", false},
           Case{u"0.001", u"0.004", true},                                                     // 0.003 apart
           Case{u"0.001", u"0.0039", false}, Case{u"5", u"1", false}, Case{u"6", u"8", true},  // 3 x 2 is 6
           Case{u"6", u"7.9", false},  // 3 x 1.9 is 5.7
       }) {
    EXPECT_EQ(ZeroSpanGood(u"4:STRAIGHT", u"", zero, span), good) << ToUtf8(zero + u" " + span);
    ExpectLooks(good ? Look::Normal : Look::Bad, good ? Look::Normal : Look::Bad);
  }
}

// The scale.

TEST_F(ValueCheckTest, TheScalesHighEndMustExceedItsLowEndAndBothLieWithin299Point99) {
  struct Case {
    String low;
    String high;
    Look low_look;
    Look high_look;
  };
  for (const auto& one : {
           Case{u"0", u"0.01", Look::Normal, Look::Normal},
           Case{u"50", u"50", Look::Bad, Look::Bad},
           Case{u"50", u"49", Look::Bad, Look::Bad},
           Case{u"-299.99", u"299.99", Look::Normal, Look::Normal},
           Case{u"-300", u"299.99", Look::Bad, Look::Normal},
           Case{u"0", u"300", Look::Normal, Look::Bad},
           Case{u"-300", u"300", Look::Bad, Look::Bad},
       }) {
    bench.Type(u"19", one.low);
    bench.Type(u"20", one.high);
    const bool good = one.low_look == Look::Normal && one.high_look == Look::Normal;
    EXPECT_EQ(Passes(), good) << ToUtf8(one.low + u" " + one.high);
    EXPECT_EQ(bench.LookOf(u"19"), one.low_look);
    EXPECT_EQ(bench.LookOf(u"20"), one.high_look);
  }
}

TEST_F(ValueCheckTest, AScaleOfWhichOneEndIsOfNoUsePasses) {
  bench.page->SetItem(19, u"NEEDLESS");
  bench.page->SetItem(20, u"999");
  bench.page->BuildPage();
  EXPECT_TRUE(Passes());
}

TEST(ValueCheckFieldsTest, MissingFieldsPass) {
  TransferBench bench(DataSection({{.item = "33", .text = "0"}}) + kSections);
  bench.page->SetItem(10, u"1:RTD");
  bench.page->SetItem(33, u"1");
  bench.page->BuildPage();
  bench.Check();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::CheckDone)});
  bench.page->SetItem(11, u"0-5 V");
  EXPECT_TRUE(bench.page->CheckRangeOfType());
}

// The order.

TEST_F(ValueCheckTest, TheFirstBadCheckEndsTheRun) {
  int model_checks = 0;
  bench.page->model_check = [&](BenchPage&) {
    ++model_checks;
    return true;
  };
  bench.Type(u"02", u"ABCDEFGHIJK");
  bench.Type(u"20", u"-1");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(bench.LookOf(u"20"), Look::Normal);
  EXPECT_EQ(model_checks, 0);
}

TEST_F(ValueCheckTest, TheModelsCheckAndTheTableInUseComeLast) {
  bench.page->Opt_Table[1].SetValue(true);
  bench.Check();
  EXPECT_EQ(bench.page->notes, Texts{"check table"});
  bench.page->table_good = false;
  EXPECT_FALSE(Passes());
  bench.page->model_good = false;
  EXPECT_FALSE(Passes());
  EXPECT_EQ(bench.page->notes, Texts{});
}

TEST_F(ValueCheckTest, ATableWhoseTabIsDisabledOrWhoseSwitchIsOffIsNotChecked) {
  bench.page->table_good = false;
  bench.page->Opt_Table[0].SetValue(true);
  EXPECT_TRUE(Passes());
  bench.page->Opt_Table[1].SetValue(true);
  bench.page->Tabs.SetTabEnabled(3, false);
  EXPECT_TRUE(Passes());
}

// Ranges by the range chosen.

struct RangeOfTypeTest : ValueCheckTest {
  bool Good(const String& type, const String& range, const String& zero, const String& span) {
    bench.page->SetItem(10, type);
    bench.page->SetItem(11, range);
    bench.page->SetItem(14, zero);
    bench.page->SetItem(15, span);
    bench.page->BuildPage();
    return bench.page->CheckRangeOfType();
  }
};

TEST_F(RangeOfTypeTest, TheTitleOfTheInputTypeSelectsTextAndLimits) {
  EXPECT_TRUE(Good(u"1:RTD", u"0-5 V", u"0", u"5"));
  EXPECT_FALSE(Good(u"1:RTD", u"0-5 V", u"0", u"5.1"));
  ExpectLooks(Look::Normal, Look::Bad);
  EXPECT_TRUE(Good(u"3:DC", u"4-20 mA", u"4", u"20"));
  EXPECT_FALSE(Good(u"3:DC", u"4-20 mA", u"3.9", u"20.1"));
  ExpectLooks(Look::Bad, Look::Bad);
}

TEST_F(RangeOfTypeTest, NoTitleAnUnknownTitleAndATextOutsideTheBodyPass) {
  EXPECT_TRUE(Good(u"2:TC", u"0-5 V", u"99", u"999")) << "title 0";
  EXPECT_TRUE(Good(u"4:STRAIGHT", u"0-5 V", u"99", u"999")) << "title 0 by its name";
  EXPECT_TRUE(Good(u"5:ODD", u"0-5 V", u"99", u"999"));
  EXPECT_TRUE(Good(u"9:OTHER", u"0-5 V", u"99", u"999"));
  EXPECT_TRUE(Good(u"1:RTD", u"4-20 mA", u"99", u"999")) << "a text of another title";
  EXPECT_TRUE(Good(u"1:RTD", u"", u"99", u"999"));
}

TEST_F(RangeOfTypeTest, EmptyCellsAndThoseOfNoUseAreNotHeldToIt) {
  EXPECT_TRUE(Good(u"3:DC", u"4-20 mA", u"", u"20"));
  EXPECT_FALSE(Good(u"3:DC", u"4-20 mA", u"", u"21"));
  EXPECT_TRUE(Good(u"3:DC", u"4-20 mA", u"NEEDLESS", u"20"));
}

// Tables of ranges.

constexpr std::array kRanges = {ItemRange{.item = 22, .low = 0, .high = 200},
                                ItemRange{.item = 24, .low = -25, .high = 125}};
constexpr std::array kRangesWithMissing = {ItemRange{.item = 22, .low = 0, .high = 200},
                                           ItemRange{.item = 23, .low = 0, .high = 1},
                                           ItemRange{.item = 24, .low = -25, .high = 125}};

struct RangesTest : ValueCheckTest {
  void Set(const String& first, const String& second) {
    bench.page->SetItem(22, first);
    bench.page->SetItem(24, second);
    bench.page->BuildPage();
  }
  void ExpectLooks(Look first, Look second) const {
    EXPECT_EQ(bench.LookOf(u"22"), first);
    EXPECT_EQ(bench.LookOf(u"24"), second);
  }
};

TEST_F(RangesTest, BothEndsAreIncluded) {
  for (const auto condition :
       {RangeCondition::AllOpen, RangeCondition::NoneLocked, RangeCondition::OpenInOrder}) {
    Set(u"0", u"-25");
    EXPECT_TRUE(bench.page->CheckRanges(kRanges, condition));
    Set(u"200", u"125");
    EXPECT_TRUE(bench.page->CheckRanges(kRanges, condition));
    Set(u"200", u"125.1");
    EXPECT_FALSE(bench.page->CheckRanges(kRanges, condition));
    ExpectLooks(Look::Normal, Look::Bad);
    Set(u"-0.1", u"0");
    EXPECT_FALSE(bench.page->CheckRanges(kRanges, condition));
    ExpectLooks(Look::Bad, Look::Normal);
  }
}

TEST_F(RangesTest, EveryBadFieldIsMarkedAndAnEmptyCellIsNotHeldToItsRange) {
  Set(u"-1", u"999");
  EXPECT_FALSE(bench.page->CheckRanges(kRanges, RangeCondition::AllOpen));
  ExpectLooks(Look::Bad, Look::Bad);
  constexpr std::array kAboveZero = {ItemRange{.item = 22, .low = 1, .high = 200}};
  Set(u"", u"0");
  EXPECT_TRUE(bench.page->CheckRanges(kAboveZero, RangeCondition::AllOpen));
}

TEST_F(RangesTest, AMissingFieldPassesTheWholeCheckUnlessItIsToBePassedOver) {
  Set(u"-1", u"999");
  EXPECT_TRUE(bench.page->CheckRanges(kRangesWithMissing, RangeCondition::AllOpen));
  ExpectLooks(Look::Normal, Look::Normal);
  EXPECT_FALSE(bench.page->CheckRanges(kRangesWithMissing, RangeCondition::NoneLocked));
  ExpectLooks(Look::Bad, Look::Bad);
}

TEST_F(RangesTest, ALockedFieldPassesTheWholeCheck) {
  Set(u"-1", u"999");
  bench.page->Text[8].SetLocked(true);
  for (const auto condition : {RangeCondition::AllOpen, RangeCondition::NoneLocked}) {
    EXPECT_TRUE(bench.page->CheckRanges(kRanges, condition));
    ExpectLooks(Look::Normal, Look::Normal);
  }
}

TEST_F(RangesTest, InOrderTheFirstBadFieldEndsTheCheck) {
  Set(u"-1", u"999");
  EXPECT_FALSE(bench.page->CheckRanges(kRanges, RangeCondition::OpenInOrder));
  ExpectLooks(Look::Bad, Look::Normal);
}

TEST_F(RangesTest, InOrderTheFirstMissingOrLockedFieldEndsTheCheckWell) {
  Set(u"1", u"999");
  EXPECT_TRUE(bench.page->CheckRanges(kRangesWithMissing, RangeCondition::OpenInOrder));
  bench.page->Text[7].SetLocked(true);
  EXPECT_TRUE(bench.page->CheckRanges(kRanges, RangeCondition::OpenInOrder));
  ExpectLooks(Look::Normal, Look::Normal);
}

TEST_F(RangesTest, ARowOfAnotherModelIsPassedOver) {
  constexpr std::array kByModel = {ItemRange{.item = 22, .low = 0, .high = 1, .def_file = u"Other.def"},
                                   ItemRange{.item = 22, .low = 0, .high = 5, .def_file = kModel},
                                   ItemRange{.item = 24, .low = 0, .high = 1, .def_file = u"Other.def"}};
  for (const auto condition : {RangeCondition::AllOpen, RangeCondition::OpenInOrder}) {
    Set(u"5", u"99");
    EXPECT_TRUE(bench.page->CheckRanges(kByModel, condition));
    Set(u"6", u"99");
    EXPECT_FALSE(bench.page->CheckRanges(kByModel, condition));
  }
}

// Limits by the sensor.

constexpr std::array kCodes = {CodeRange{.code = u"0", .low = 1, .high = 255},
                               CodeRange{.code = u"5", .low = 1, .high = 25},
                               CodeRange{.code = u"6", .low = 1, .high = 2}};

struct SensorTest : ValueCheckTest {
  bool Good(const String& sensor, const String& code, const String& span, const String& percent) {
    bench.page->SetItem(11, sensor);
    bench.page->SetItem(18, code);
    bench.page->SetItem(15, span);
    bench.page->SetItem(22, percent);
    bench.page->BuildPage();
    return bench.page->CheckSensor(
        {.table = u"$I11QEI", .code_ranges = kCodes, .percent = {.item = 22, .low = 0, .high = 100}});
  }
};

TEST_F(SensorTest, TheCodeItemHasTheLimitsOfTheSensorsCode) {
  EXPECT_TRUE(Good(u"A", u"255", u"1", u"0"));
  EXPECT_FALSE(Good(u"A", u"256", u"1", u"0"));
  EXPECT_FALSE(Good(u"A", u"0", u"1", u"0"));
  EXPECT_TRUE(Good(u"B", u"25", u"1", u"0"));
  EXPECT_FALSE(Good(u"B", u"26", u"1", u"0"));
  EXPECT_TRUE(Good(u"C", u"2", u"1", u"0"));
  EXPECT_FALSE(Good(u"C", u"3", u"1", u"0"));
  EXPECT_EQ(bench.LookOf(u"18"), Look::Bad);
  EXPECT_TRUE(Good(u"D", u"999", u"1", u"0")) << "a code without limits";
}

TEST_F(SensorTest, TheSpanIsAtMostOneAndAHalfTimesTheSensorsBase) {
  EXPECT_TRUE(Good(u"A", u"1", u"150", u"0"));
  EXPECT_FALSE(Good(u"A", u"1", u"150.1", u"0"));
  EXPECT_EQ(bench.LookOf(u"15"), Look::Bad);
  EXPECT_TRUE(Good(u"B", u"1", u"3", u"0"));
  EXPECT_FALSE(Good(u"B", u"1", u"3.1", u"0"));
}

TEST_F(SensorTest, ThePercentageLiesFromZeroToAHundredWhateverTheSensor) {
  EXPECT_TRUE(Good(u"A", u"1", u"1", u"100"));
  EXPECT_FALSE(Good(u"A", u"1", u"1", u"100.1"));
  EXPECT_FALSE(Good(u"no sensor", u"999", u"999", u"-1"));
  EXPECT_EQ(bench.LookOf(u"22"), Look::Bad);
  EXPECT_TRUE(Good(u"no sensor", u"999", u"999", u"1"));
}

TEST(SensorFieldsTest, WithoutOneOfItsFieldsItPasses) {
  TransferBench bench(DataSection({{.item = "18", .text = "0"}, {.item = "15", .text = "1"}}) + kSections);
  bench.page->SetItem(11, u"A");
  bench.page->SetItem(15, u"999");
  bench.page->SetItem(18, u"999");
  bench.page->BuildPage();
  EXPECT_TRUE(bench.page->CheckSensor({.table = u"$I11QEI", .code_ranges = kCodes}));
}

}  // namespace
}  // namespace korva::test
