// Checks that a model's tables make up.

#include <gtest/gtest.h>

#include <array>

#include "core/text_utilities.h"
#include "transfer/field_checks.h"
#include "value_check_fixture.h"

namespace korva::test {
namespace {

// Ranges by the range chosen.

struct RangeOfTypeTest : ValueCheckTest {
  bool Good(const String& type, const String& range, const String& zero, const String& span) {
    bench.page->SetItem(10, type);
    bench.page->SetItem(11, range);
    bench.page->SetItem(14, zero);
    bench.page->SetItem(15, span);
    bench.page->BuildPage();
    return bench.page->fields.CheckRangeOfType();
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
    EXPECT_TRUE(bench.page->fields.CheckRanges(kRanges, condition));
    Set(u"200", u"125");
    EXPECT_TRUE(bench.page->fields.CheckRanges(kRanges, condition));
    Set(u"200", u"125.1");
    EXPECT_FALSE(bench.page->fields.CheckRanges(kRanges, condition));
    ExpectLooks(Look::Normal, Look::Bad);
    Set(u"-0.1", u"0");
    EXPECT_FALSE(bench.page->fields.CheckRanges(kRanges, condition));
    ExpectLooks(Look::Bad, Look::Normal);
  }
}

TEST_F(RangesTest, EveryBadFieldIsMarkedAndAnEmptyCellIsNotHeldToItsRange) {
  Set(u"-1", u"999");
  EXPECT_FALSE(bench.page->fields.CheckRanges(kRanges, RangeCondition::AllOpen));
  ExpectLooks(Look::Bad, Look::Bad);
  constexpr std::array kAboveZero = {ItemRange{.item = 22, .low = 1, .high = 200}};
  Set(u"", u"0");
  EXPECT_TRUE(bench.page->fields.CheckRanges(kAboveZero, RangeCondition::AllOpen));
}

TEST_F(RangesTest, AMissingFieldPassesTheWholeCheckUnlessItIsToBePassedOver) {
  Set(u"-1", u"999");
  EXPECT_TRUE(bench.page->fields.CheckRanges(kRangesWithMissing, RangeCondition::AllOpen));
  ExpectLooks(Look::Normal, Look::Normal);
  EXPECT_FALSE(bench.page->fields.CheckRanges(kRangesWithMissing, RangeCondition::NoneLocked));
  ExpectLooks(Look::Bad, Look::Bad);
}

TEST_F(RangesTest, ALockedFieldPassesTheWholeCheck) {
  Set(u"-1", u"999");
  bench.page->Text[8].SetLocked(true);
  for (const auto condition : {RangeCondition::AllOpen, RangeCondition::NoneLocked}) {
    EXPECT_TRUE(bench.page->fields.CheckRanges(kRanges, condition));
    ExpectLooks(Look::Normal, Look::Normal);
  }
}

TEST_F(RangesTest, InOrderTheFirstBadFieldEndsTheCheck) {
  Set(u"-1", u"999");
  EXPECT_FALSE(bench.page->fields.CheckRanges(kRanges, RangeCondition::OpenInOrder));
  ExpectLooks(Look::Bad, Look::Normal);
}

TEST_F(RangesTest, InOrderTheFirstMissingOrLockedFieldEndsTheCheckWell) {
  Set(u"1", u"999");
  EXPECT_TRUE(bench.page->fields.CheckRanges(kRangesWithMissing, RangeCondition::OpenInOrder));
  bench.page->Text[7].SetLocked(true);
  EXPECT_TRUE(bench.page->fields.CheckRanges(kRanges, RangeCondition::OpenInOrder));
  ExpectLooks(Look::Normal, Look::Normal);
}

TEST_F(RangesTest, ARowOfAnotherModelIsPassedOver) {
  constexpr std::array kByModel = {ItemRange{.item = 22, .low = 0, .high = 1, .def_file = u"Other.def"},
                                   ItemRange{.item = 22, .low = 0, .high = 5, .def_file = kModel},
                                   ItemRange{.item = 24, .low = 0, .high = 1, .def_file = u"Other.def"}};
  for (const auto condition : {RangeCondition::AllOpen, RangeCondition::OpenInOrder}) {
    Set(u"5", u"99");
    EXPECT_TRUE(bench.page->fields.CheckRanges(kByModel, condition));
    Set(u"6", u"99");
    EXPECT_FALSE(bench.page->fields.CheckRanges(kByModel, condition));
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
    return bench.page->fields.CheckSensor(
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

TEST_F(SensorTest, AModelsRangesAreJudgedBesideItsSensor) {
  static constexpr std::array ranges = {ItemRange{.item = 24, .low = 0, .high = 10}};
  static constexpr SensorCheck sensor = {
      .table = u"$I11QEI", .code_ranges = kCodes, .percent = {.item = 22, .low = 0, .high = 100}};
  const ModelCheck check = {.def_file = u"M", .ranges = ranges, .sensor = &sensor};
  const auto passes = [&](const String& percent, const String& ranged) {
    bench.page->SetItem(24, ranged);
    Good(u"A", u"1", u"1", percent);
    return bench.page->fields.CheckByModel(check);
  };
  EXPECT_TRUE(passes(u"100", u"10"));
  EXPECT_FALSE(passes(u"100", u"10.1"));
  EXPECT_EQ(bench.LookOf(u"24"), Look::Bad);
  EXPECT_EQ(bench.LookOf(u"22"), Look::Normal);
  EXPECT_FALSE(passes(u"100.1", u"10"));
  EXPECT_FALSE(passes(u"100.1", u"10.1"));
  EXPECT_EQ(bench.LookOf(u"24"), Look::Bad) << "both are judged";
  EXPECT_EQ(bench.LookOf(u"22"), Look::Bad);
}

TEST(SensorFieldsTest, WithoutOneOfItsFieldsItPasses) {
  TransferBench bench(DataSection({{.item = "18", .text = "0"}, {.item = "15", .text = "1"}}) +
                      kCheckSections);
  bench.page->SetItem(11, u"A");
  bench.page->SetItem(15, u"999");
  bench.page->SetItem(18, u"999");
  bench.page->BuildPage();
  EXPECT_TRUE(bench.page->fields.CheckSensor({.table = u"$I11QEI", .code_ranges = kCodes}));
}

}  // namespace
}  // namespace korva::test
