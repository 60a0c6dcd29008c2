// The value checks of the models of family First: each limit just inside and just outside.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "page_bench.h"

namespace korva {
namespace {

/// A field of a model and its limits, with the nearest values on both sides of them.
struct Limit {
  String model;
  String item;
  String below;
  String low;
  String high;
  String above;
};

void PrintTo(const Limit& limit, std::ostream* out) {
  *out << ToUtf8(limit.model) << " item " << ToUtf8(limit.item);
}

class LimitTest : public testing::TestWithParam<Limit> {
 protected:
  void SetUp() override {
    device_ = &bench_.Connect(GetParam().model);
    bench_.Choose(GetParam().model);
    bench_.Upload();
    bench_.TakeBoxes();
  }
  /// Types the value, checks, and tells whether the check passed.
  bool Passes(const String& value) {
    bench_.Type(GetParam().item, value);
    bench_.Check();
    const std::vector<std::string> boxes = bench_.TakeBoxes();
    const bool good = boxes == std::vector{test::Shown(BoxKey::CheckDone)};
    EXPECT_TRUE(good || boxes == std::vector{test::Shown(BoxKey::ValueBad)});
    EXPECT_EQ(bench_.LookOf(GetParam().item), good ? Look::Normal : Look::Bad) << ToUtf8(value);
    return good;
  }

  test::PageBench bench_;
  sim::Device* device_ = nullptr;
};

TEST_P(LimitTest, HoldsOnBothSides) {
  const Limit& limit = GetParam();
  if (!limit.below.empty()) {
    EXPECT_FALSE(Passes(limit.below)) << ToUtf8(limit.below);
  }
  EXPECT_TRUE(Passes(limit.low)) << ToUtf8(limit.low);
  EXPECT_FALSE(Passes(limit.above)) << ToUtf8(limit.above);
  EXPECT_TRUE(Passes(limit.high)) << ToUtf8(limit.high);
}

Limit Both(const String& model, const String& item, const String& below, const String& low,
           const String& high, const String& above) {
  return {.model = model, .item = item, .below = below, .low = low, .high = high, .above = above};
}

INSTANTIATE_TEST_SUITE_P(Filters, LimitTest,
                         testing::Values(Both(u"QHN", u"24", u"0.09", u"0.1", u"100", u"100.1"),
                                         Both(u"QHN1", u"24", u"0.09", u"0.1", u"100", u"100.1"),
                                         Both(u"QHN1", u"25", u"0.9", u"1", u"8", u"8.1"),
                                         Both(u"QHN2", u"25", u"0.9", u"1", u"8", u"8.1"),
                                         Both(u"QHN2", u"26", u"-0.1", u"0", u"100", u"100.1"),
                                         Both(u"QHN3", u"26", u"-0.1", u"0", u"100", u"100.1"),
                                         Both(u"QHN4", u"26", u"-0.1", u"0", u"100", u"100.1"),
                                         Both(u"QHN4", u"27", u"-0.1", u"0", u"200", u"200.1"),
                                         Both(u"QHN4", u"28", u"-0.1", u"0", u"200", u"200.1"),
                                         Both(u"QHN6", u"25", u"1.9", u"2", u"8", u"8.1"),
                                         Both(u"QHN6", u"27", u"-0.1", u"0", u"200", u"200.1"),
                                         Both(u"QHN6", u"28", u"-0.1", u"0", u"200", u"200.1"),
                                         Both(u"QHN6", u"29", u"-0.1", u"0", u"7", u"7.1"),
                                         Both(u"QHN6", u"30", u"-0.1", u"0", u"7", u"7.1"),
                                         Both(u"QHNY1", u"24", u"0.09", u"0.1", u"100", u"100.1"),
                                         Both(u"QHNY1", u"25", u"0.9", u"1", u"100", u"100.1"),
                                         Both(u"QHNY2", u"25", u"0.9", u"1", u"100", u"100.1"),
                                         Both(u"QHNY2", u"26", u"0.09", u"0.1", u"100", u"100.1")));

INSTANTIATE_TEST_SUITE_P(BackupStations, LimitTest,
                         testing::Values(Both(u"QD", u"22", u"-0.1", u"0", u"200", u"200.1"),
                                         Both(u"QD", u"24", u"-0.1", u"0", u"200", u"200.1"),
                                         Both(u"QD", u"26", u"-25.1", u"-25", u"125", u"125.1"),
                                         Both(u"QD", u"27", u"-25.1", u"-25", u"125", u"125.1"),
                                         Both(u"QD", u"28", u"-0.1", u"0", u"10", u"10.1"),
                                         Both(u"QD2", u"28", u"-0.1", u"0", u"10", u"10.1"),
                                         Both(u"QD2", u"29", u"-25.1", u"-25", u"125", u"125.1"),
                                         Both(u"QD2I", u"22", u"-0.1", u"0", u"200", u"200.1"),
                                         Both(u"QD2I", u"30", u"-25.1", u"-25", u"125", u"125.1")));

INSTANTIATE_TEST_SUITE_P(ComputingUnits, LimitTest,
                         testing::Values(Both(u"QH", u"21", u"-30", u"-29.999", u"29.999", u"30"),
                                         Both(u"QH", u"22", u"-30", u"-29.999", u"29.999", u"30"),
                                         Both(u"QH", u"23", u"-30", u"-29.999", u"29.999", u"30"),
                                         Both(u"QH", u"24", u"-300", u"-299.99", u"299.99", u"300"),
                                         Both(u"QH", u"25", u"-300", u"-299.99", u"299.99", u"300"),
                                         Both(u"QH", u"26", u"-300", u"-299.99", u"299.99", u"300"),
                                         Both(u"QH", u"27", u"-25.1", u"-25", u"125", u"125.1"),
                                         Both(u"QH", u"28", u"-25.1", u"-25", u"125", u"125.1"),
                                         Both(u"QH", u"29", u"-25.1", u"-25", u"125", u"125.1"),
                                         Both(u"QH", u"30", u"-25.1", u"-25", u"125", u"125.1"),
                                         Both(u"QHG", u"21", u"-30", u"-29.999", u"29.999", u"30"),
                                         Both(u"QHG", u"24", u"-30", u"-29.999", u"29.999", u"30"),
                                         Both(u"QHG", u"25", u"-300", u"-299.99", u"299.99", u"300"),
                                         Both(u"QHG", u"28", u"-300", u"-299.99", u"299.99", u"300"),
                                         Both(u"QHG", u"29", u"-25.1", u"-25", u"125", u"125.1"),
                                         Both(u"QHG", u"34", u"-25.1", u"-25", u"125", u"125.1")));

// Power-up: 0-100 mHz with code 1. A span may be 1.5 times the range's base.
INSTANTIATE_TEST_SUITE_P(PulseInput, LimitTest,
                         testing::Values(Both(u"QEI", u"13", u"-0.1", u"0", u"100", u"100.1"),
                                         Both(u"QEI", u"15", {}, u"0", u"150", u"150.1"),
                                         Both(u"QEI", u"18", u"0.9", u"1", u"255", u"255.1")));

struct PulseRange {
  String range;
  String highest_code;
  String code_above;
  String highest_span;
  String span_above;
};

void PrintTo(const PulseRange& range, std::ostream* out) { *out << ToUtf8(range.range); }

class PulseRangeTest : public testing::TestWithParam<PulseRange> {};

TEST_P(PulseRangeTest, LimitsTheCodeAndTheSpan) {
  const PulseRange& range = GetParam();
  test::PageBench bench;
  bench.Connect(u"QEI");
  bench.Choose(u"QEI");
  bench.Upload();
  bench.Pick(bench.Page().Combo[3], range.range);
  const auto check = [&](const String& code, const String& span) {
    bench.Type(u"18", code);
    bench.Type(u"15", span);
    bench.TakeBoxes();
    bench.Check();
    return bench.TakeBoxes() == std::vector{test::Shown(BoxKey::CheckDone)};
  };
  EXPECT_TRUE(check(u"1", u"0"));
  EXPECT_FALSE(check(u"0.9", u"0"));
  EXPECT_TRUE(check(range.highest_code, range.highest_span));
  EXPECT_FALSE(check(range.code_above, range.highest_span));
  EXPECT_EQ(bench.LookOf(u"18"), Look::Bad);
  EXPECT_EQ(bench.LookOf(u"15"), Look::Normal);
  EXPECT_FALSE(check(range.highest_code, range.span_above));
  EXPECT_EQ(bench.LookOf(u"18"), Look::Normal);
  EXPECT_EQ(bench.LookOf(u"15"), Look::Bad);
}

INSTANTIATE_TEST_SUITE_P(EachRange, PulseRangeTest,
                         testing::Values(PulseRange{u"0:0-100 mHz", u"255", u"256", u"150", u"150.1"},
                                         PulseRange{u"1:0-1 Hz", u"255", u"256", u"1.5", u"1.51"},
                                         PulseRange{u"2:0-10 Hz", u"255", u"256", u"15", u"15.1"},
                                         PulseRange{u"3:0-100 Hz", u"255", u"256", u"150", u"150.1"},
                                         PulseRange{u"4:0-1 kHz", u"255", u"256", u"1.5", u"1.51"},
                                         PulseRange{u"5:0-10 kHz", u"25", u"26", u"15", u"15.1"},
                                         PulseRange{u"6:0-100 kHz", u"2", u"3", u"150", u"150.1"}));

class KvConfigCheckTest : public testing::Test {
 protected:
  void Upload(const String& model) {
    bench_.Connect(model);
    bench_.Choose(model);
    bench_.Upload();
    bench_.TakeBoxes();
  }
  bool Passes() {
    bench_.Check();
    return bench_.TakeBoxes() == std::vector{test::Shown(BoxKey::CheckDone)};
  }
  test::PageBench bench_;
};

// The range of the input type.

TEST_F(KvConfigCheckTest, HoldsZeroAndSpanInsideTheChosenRange) {
  Upload(u"QL");
  bench_.Pick(bench_.Page().Combo[0], u"1:DC mV");
  bench_.Pick(bench_.Page().Combo[1], u"10-50 mV");
  EXPECT_TRUE(Passes());
  bench_.Type(u"14", u"9.9");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(bench_.LookOf(u"14"), Look::Bad);
  EXPECT_EQ(bench_.LookOf(u"15"), Look::Normal);
  bench_.Type(u"14", u"10");
  bench_.Type(u"15", u"50.1");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(bench_.LookOf(u"14"), Look::Normal);
  EXPECT_EQ(bench_.LookOf(u"15"), Look::Bad);
  bench_.Type(u"15", u"50");
  EXPECT_TRUE(Passes());
}

TEST_F(KvConfigCheckTest, HoldsZeroAndSpanInsideTheChosenRangeOfQHWAndTheQHNModelsToo) {
  for (const StringView model : {u"QHW", u"QHN", u"QHN1"}) {
    test::PageBench bench;
    bench.Connect(String(model));
    bench.Choose(String(model));
    bench.Upload();
    bench.Pick(bench.Page().Combo[0], u"3:DC mA");
    bench.Pick(bench.Page().Combo[1], u"4-20 mA");
    bench.TakeBoxes();
    bench.Check();
    EXPECT_EQ(bench.TakeBoxes(), std::vector{test::Shown(BoxKey::CheckDone)}) << ToUtf8(model);
    bench.Type(u"14", u"3.9");
    bench.Check();
    EXPECT_EQ(bench.TakeBoxes(), std::vector{test::Shown(BoxKey::ValueBad)}) << ToUtf8(model);
  }
}

// Checks that a locked field switches off.

TEST_F(KvConfigCheckTest, PassesTheFiltersValuesWithoutAFilter) {
  Upload(u"QHN6");
  bench_.Type(u"25", u"99");
  EXPECT_FALSE(Passes());
  bench_.Pick(bench_.Page().Combo[2], u"0:NO FILTER");
  EXPECT_TRUE(Passes());
}

TEST_F(KvConfigCheckTest, PassesTheComputingUnitsValuesWhileSomeOfThemAreLocked) {
  Upload(u"QH");
  bench_.Type(u"22", u"30");
  EXPECT_FALSE(Passes());
  bench_.Pick(bench_.Page().Combo[0], u"1:MULTIPLY");
  EXPECT_TRUE(Passes());
}

TEST_F(KvConfigCheckTest, DoesNotCheckTheAveragingOfModelsThatHaveNoLimitForIt) {
  Upload(u"QHN3");
  bench_.Type(u"25", u"1000");
  EXPECT_TRUE(Passes());
}

// Temperature limits in whole numbers.

TEST_F(KvConfigCheckTest, HoldsTemperaturesInsideTheLimitsOfTheirUnit) {
  Upload(u"QC");
  bench_.Pick(bench_.Page().Combo[0], u"Tc-2:K(CA)");  // -270 to 1370 deg C, span 50
  EXPECT_TRUE(Passes());
  bench_.Type(u"14", u"-271");
  EXPECT_FALSE(Passes());
  bench_.Type(u"14", u"-270");
  bench_.Press(bench_.Page().optTempUnit, 1);  // -454 to 2498 deg F, span 90
  EXPECT_TRUE(Passes());
  bench_.Type(u"15", u"2499");
  EXPECT_FALSE(Passes());
  bench_.Type(u"15", u"-364");
  EXPECT_TRUE(Passes());
  bench_.Type(u"15", u"-365");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(bench_.LookOf(u"14"), Look::Bad);
  EXPECT_EQ(bench_.LookOf(u"15"), Look::Bad);
}

TEST_F(KvConfigCheckTest, HoldsAnInputWithoutARangeBetweenMinus10And10WithItsSpan) {
  Upload(u"QN");
  bench_.Pick(bench_.Page().Combo[0], u"DS:straight");
  const auto check = [&](const String& zero, const String& span) {
    bench_.Type(u"14", zero);
    bench_.Type(u"15", span);
    return Passes();
  };
  EXPECT_TRUE(check(u"-10", u"10"));
  EXPECT_FALSE(check(u"-10.1", u"10"));
  EXPECT_FALSE(check(u"-10", u"10.1"));
  EXPECT_TRUE(check(u"0", u"0.003"));
  EXPECT_FALSE(check(u"0", u"0.002"));
  EXPECT_TRUE(check(u"6", u"8"));     // 3 x 2 is 6
  EXPECT_FALSE(check(u"6.1", u"8"));  // 3 x 1.9 is below 6.1
}

TEST_F(KvConfigCheckTest, ABlankTagBecomesTenBlanksOnACheckAlone) {
  Upload(u"QY");
  bench_.Type(u"02", u"");
  EXPECT_TRUE(Passes());
  EXPECT_EQ(bench_.Page().Item(2), u"          ");
}

}  // namespace
}  // namespace korva
