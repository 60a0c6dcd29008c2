#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "transfer/grid_rounding.h"
#include "transfer_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kSections =
    "$I10\r\n"
    "1, 1:RTD, -200, 600.4, 50, N, Y, , deg C\r\n"
    "2, 2:TC, -100.3, 1000, 20, N, Y, , deg C\r\n"
    "$I21\r\n0, deg C\r\n1, deg F\r\n2, K\r\n"
    "$SSTab\r\nTrue, True, True, True, True, True, True\r\n";

const std::vector<TransferRow> kRows = {
    {.item = "14", .text = "2", .unit_label = "2", .unit = "$in", .temperature = true},
    {.item = "15", .text = "3", .unit_label = "3", .unit = "$in", .temperature = true},
    {.item = "16", .text = "4", .unit_label = "4", .unit = "%"},
    {.item = "19", .text = "5", .unit_label = "5", .unit = "$in", .temperature = true},
    {.item = "21", .list = "$I21", .frame = "3"},
};

enum Place : int { kCelsius = 0, kFahrenheit = 1, kKelvins = 2 };

struct UnitChangeTest : testing::Test {
  explicit UnitChangeTest(const BenchModel& model = {}) : bench(DataSection(kRows) + kSections, model) {
    bench.page->SetItem(16, u"0.5");
  }
  void Show(const String& type, const String& unit, const String& zero, const String& span) const {
    bench.page->SetItem(10, type);
    bench.page->SetItem(21, unit);
    bench.page->SetItem(14, zero);
    bench.page->SetItem(15, span);
    bench.page->SetItem(19, u"10");
    bench.page->BuildPage();
    bench.page->DataChanged = false;
  }
  void Press(int place) {
    bench.host.loop.Gate().Enter([&] { bench.page->optTempUnit[place].Click(); });
  }
  TransferBench bench;
};

TEST_F(UnitChangeTest, EveryTemperatureIsConvertedShownInWholeNumbersAndKeptInTheSet) {
  Show(u"1:RTD", u"deg C", u"10.4", u"100");
  Press(kFahrenheit);
  EXPECT_EQ(bench.page->Text[2].Text(), u"51");  // 50.7
  EXPECT_EQ(bench.page->Text[3].Text(), u"212");
  EXPECT_EQ(bench.page->Text[5].Text(), u"50");
  EXPECT_EQ(bench.page->Item(14), u"51");
  EXPECT_EQ(bench.page->Item(15), u"212");
  EXPECT_EQ(bench.page->Item(21), u"deg F");
  for (const int label : {2, 3, 5}) {
    EXPECT_EQ(bench.page->lbl_unit[label].Caption(), u"deg F");
  }
}

TEST_F(UnitChangeTest, AValueThatIsNoTemperatureStays) {
  Show(u"1:RTD", u"deg C", u"10", u"100");
  Press(kKelvins);
  EXPECT_EQ(bench.page->Text[4].Text(), u"0.5");
  EXPECT_EQ(bench.page->lbl_unit[4].Caption(), u"%");
}

TEST_F(UnitChangeTest, ThereAndBackTheTextInTheFieldIsTheNewTruth) {
  Show(u"1:RTD", u"deg C", u"10.4", u"100");
  Press(kFahrenheit);
  Press(kCelsius);
  EXPECT_EQ(bench.page->Text[2].Text(), u"11");  // 51 deg F is 10.53, 10.5 to one decimal
  Press(kKelvins);
  EXPECT_EQ(bench.page->Text[2].Text(), u"284");  // 284.2
}

TEST_F(UnitChangeTest, AnEmptyFieldTakesZeroAndIsConverted) {
  Show(u"1:RTD", u"deg C", u"", u"100");
  Press(kFahrenheit);
  EXPECT_EQ(bench.page->Text[2].Text(), u"32");
}

TEST_F(UnitChangeTest, AnItemOfNoUseStaysSo) {
  Show(u"1:RTD", u"deg C", u"NEEDLESS", u"100");
  Press(kFahrenheit);
  EXPECT_EQ(bench.page->Item(14), u"NEEDLESS");
  EXPECT_EQ(bench.page->Text[2].Text(), u"");
  EXPECT_EQ(bench.page->Text[3].Text(), u"212");
}

TEST_F(UnitChangeTest, WithoutAFormerUnitNothingIsConverted) {
  Show(u"1:RTD", u"", u"10.4", u"");
  ASSERT_EQ(bench.page->lbl_unit[2].Caption(), u"");
  Press(kFahrenheit);
  EXPECT_EQ(bench.page->Text[2].Text(), u"10.4");
  EXPECT_EQ(bench.page->Text[3].Text(), u"0") << "an empty field takes zero all the same";
  EXPECT_EQ(bench.page->lbl_unit[2].Caption(), u"deg F");
}

TEST_F(UnitChangeTest, ZeroAtTheLowestValueNeverFallsBelowIt) {
  // -200 deg C is 73.2 K: by the mask 73, which the lowest value is too; the whole number above is 74.
  Show(u"1:RTD", u"deg C", u"-200", u"100");
  Press(kKelvins);
  EXPECT_EQ(bench.page->Text[2].Text(), u"74");
  // -100.3 deg C is -148.54 deg F, to one decimal -148.5; the whole number above is -148.
  Show(u"2:TC", u"deg C", u"-100.3", u"100");
  Press(kFahrenheit);
  EXPECT_EQ(bench.page->Text[2].Text(), u"-148");
}

TEST_F(UnitChangeTest, ZeroAtTheLowestValueWithoutAFractionStaysThere) {
  Show(u"1:RTD", u"deg C", u"-200", u"100");
  Press(kFahrenheit);
  EXPECT_EQ(bench.page->Text[2].Text(), u"-328");
}

TEST_F(UnitChangeTest, SpanAtTheHighestValueNeverExceedsIt) {
  // 600.4 deg C is 1112.72 deg F, to one decimal 1112.7: by the mask 1113, which the highest value is too.
  Show(u"1:RTD", u"deg C", u"0", u"600.4");
  Press(kFahrenheit);
  EXPECT_EQ(bench.page->Text[3].Text(), u"1112");
  // 600.4 deg C is 873.6 K.
  Show(u"1:RTD", u"deg C", u"0", u"600.4");
  Press(kKelvins);
  EXPECT_EQ(bench.page->Text[3].Text(), u"873");
}

TEST_F(UnitChangeTest, TowardsCelsiusTheLimitsAreTheTablesOwn) {
  // -328 deg F is -200.02 deg C; -327.5 deg F is -199.7, by the mask -200, the lowest value: one above is
  // -199.
  Show(u"1:RTD", u"deg F", u"-328", u"100");
  Press(kCelsius);
  EXPECT_EQ(bench.page->Text[2].Text(), u"-200");
  Show(u"1:RTD", u"deg F", u"-327.5", u"100");
  Press(kCelsius);
  EXPECT_EQ(bench.page->Text[2].Text(), u"-199");
  // -147.2 deg F is -99.6, by the mask -100: not the lowest value of the second type, which is -100.3.
  Show(u"2:TC", u"deg F", u"-147.2", u"100");
  Press(kCelsius);
  EXPECT_EQ(bench.page->Text[2].Text(), u"-100");
  // 1832.6 deg F is 1000.3 deg C: the highest value of the second type.
  Show(u"2:TC", u"deg F", u"0", u"1832.6");
  Press(kCelsius);
  EXPECT_EQ(bench.page->Text[3].Text(), u"1000");
}

TEST_F(UnitChangeTest, AnInputTypeOutsideTheTableEndsTheChangeAtTheFirstValue) {
  for (const String type : {u"", u"9:OTHER"}) {
    Show(type, u"deg C", u"10.4", u"100");
    Press(kFahrenheit);
    EXPECT_EQ(bench.page->Text[2].Text(), u"10.4");
    EXPECT_EQ(bench.page->Text[3].Text(), u"100");
    Show(type, u"deg C", u"10.4", u"");
    Press(kFahrenheit);
    EXPECT_EQ(bench.page->Text[3].Text(), u"") << "the rows behind it stay as they are";
  }
}

struct WholeNumberChangeTest : UnitChangeTest {
  WholeNumberChangeTest() : UnitChangeTest({.whole_number_limits = true}) {}
};

TEST_F(WholeNumberChangeTest, ValuesFollowTheMaskWhateverLimitOrInputType) {
  Show(u"", u"deg C", u"-200", u"600.4");
  Press(kKelvins);
  EXPECT_EQ(bench.page->Text[2].Text(), u"73");   // 73.2
  EXPECT_EQ(bench.page->Text[3].Text(), u"874");  // 873.6
  EXPECT_EQ(bench.page->Text[5].Text(), u"283");  // 283.2
}

// Values on the grid of the device.

constexpr std::array<StringView, 3> kTimes = {u"14", u"16", u"25"};

TEST_F(UnitChangeTest, TimesAreCutToFiveMillisecondsWithABoxForEachThatChanges) {
  bench.page->SetItem(14, u"7");
  bench.page->SetItem(16, u"12.5");
  bench.page->SetItem(25, u"");
  bench.page->BuildPage();
  Round5ms(*bench.page, kTimes);
  EXPECT_EQ(bench.Boxes(), (Texts{Shown(BoxKey::RoundedTo5Msec, {u"14", u"7", u"5"}),
                                  Shown(BoxKey::RoundedTo5Msec, {u"16", u"12", u"10"})}));
  EXPECT_EQ(bench.page->Item(14), u"5");
  EXPECT_EQ(bench.page->Text[2].Text(), u"5");
  EXPECT_EQ(bench.page->Item(16), u"10");
  EXPECT_EQ(bench.page->Item(25), u"") << "an empty cell is skipped";
}

TEST_F(UnitChangeTest, ATimeOnTheGridGivesNoBox) {
  bench.page->SetItem(14, u"10");
  bench.page->SetItem(16, u"NEEDLESS");
  bench.page->BuildPage();
  Round5ms(*bench.page, kTimes);
  EXPECT_EQ(bench.Boxes(), Texts{});
  EXPECT_EQ(bench.page->Item(14), u"10");
  EXPECT_EQ(bench.page->Item(16), u"NEEDLESS");
}

TEST_F(UnitChangeTest, VoltagesAreRaisedToFiveHundredthsWithABoxForEachThatChanges) {
  bench.page->SetItem(14, u"1.21");
  bench.page->SetItem(16, u"2.5");
  bench.page->BuildPage();
  Round005V(*bench.page, kTimes);
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::RoundedTo005V, {u"14", u"1.21", u"1.25"})});
  EXPECT_EQ(bench.page->Item(14), u"1.25");
  EXPECT_EQ(bench.page->Item(16), u"2.50");
}

}  // namespace
}  // namespace korva::test
