// The value checks of the models of family Third: each limit just inside and just outside, and their order.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "kv_config_v3_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using test::V3Bench;
using Settings = std::vector<std::pair<std::string, std::string>>;

/// A field and its limits, with the nearest values on both sides of them.
struct V3Limit {
  String model;
  String item;
  String below;  ///< empty: there is no lower limit
  String low;
  String high;
  String above;
};

void PrintTo(const V3Limit& limit, std::ostream* out) {
  *out << ToUtf8(limit.model) << " item " << ToUtf8(limit.item);
}

/// A device whose alarms are in use, where it has any to choose.
Settings SettingsOf(const String& model) {
  return model == u"QNA2" ? Settings{{"25", "1"}, {"27", "1"}} : Settings{};
}

struct V3LimitTest : testing::TestWithParam<V3Limit> {
  V3LimitTest() { bench.Read(); }
  bool Passes(const String& value) {
    bench.Type(GetParam().item, value);
    const std::string result = bench.CheckResult();
    const bool good = result == test::Shown(BoxKey::CheckDone);
    EXPECT_TRUE(good || result == test::Shown(BoxKey::ValueBad)) << result;
    EXPECT_EQ(bench.LookOf(GetParam().item), good ? Look::Normal : Look::Bad) << ToUtf8(value);
    return good;
  }
  V3Bench bench{GetParam().model, SettingsOf(GetParam().model)};
};

TEST_P(V3LimitTest, HoldsOnBothSides) {
  const V3Limit& limit = GetParam();
  if (!limit.below.empty()) {
    EXPECT_FALSE(Passes(limit.below));
  }
  EXPECT_TRUE(Passes(limit.low));
  EXPECT_FALSE(Passes(limit.above));
  EXPECT_TRUE(Passes(limit.high));
}

V3Limit Of(const String& model, const String& item, const String& below, const String& low,
           const String& high, const String& above) {
  return {.model = model, .item = item, .below = below, .low = low, .high = high, .above = above};
}

// Power-up of QCE2, QEI2 and QICE2: 0-100 mHz, of QIEU2: 0-10 Hz. A span may be 1.5 times the rated one.
INSTANTIATE_TEST_SUITE_P(PulseInputs, V3LimitTest,
                         testing::Values(Of(u"QCE2", u"13", u"-0.1", u"0", u"100", u"100.1"),
                                         Of(u"QCE2", u"15", {}, u"0", u"150", u"150.1"),
                                         Of(u"QCE2", u"18", u"0.9", u"1", u"255", u"255.1"),
                                         Of(u"QEI2", u"13", u"-0.1", u"0", u"100", u"100.1"),
                                         Of(u"QEI2", u"15", {}, u"0", u"150", u"150.1"),
                                         Of(u"QEI2", u"18", u"0.9", u"1", u"255", u"255.1"),
                                         Of(u"QIEU2", u"13", u"-0.1", u"0", u"100", u"100.1"),
                                         Of(u"QIEU2", u"15", {}, u"0", u"15", u"15.1"),
                                         Of(u"QIEU2", u"18", u"0.9", u"1", u"100", u"100.1"),
                                         Of(u"QICE2", u"13", u"-0.1", u"0", u"100", u"100.1"),
                                         Of(u"QICE2", u"15", {}, u"0", u"150", u"150.1"),
                                         Of(u"QICE2", u"18", u"0.9", u"1", u"100", u"100.1")));

INSTANTIATE_TEST_SUITE_P(Counters, V3LimitTest,
                         testing::Values(Of(u"QCB2", u"31", u"0.9", u"1", u"99999999", u"100000000"),
                                         Of(u"QCB2", u"32", u"-1", u"0", u"99999999", u"100000000"),
                                         Of(u"QEC2", u"06", u"-1", u"0", u"100000", u"100000.1"),
                                         Of(u"QEC2", u"07", u"-0.1", u"0", u"115", u"115.1"),
                                         Of(u"QEC2", u"09", u"-1", u"0", u"99999999", u"100000000"),
                                         Of(u"QEC2", u"31", u"0.9", u"1", u"10000", u"10000.1"),
                                         Of(u"QEY3", u"07", u"-1", u"0", u"100000", u"100000.1"),
                                         Of(u"QEY3", u"09", u"-0.1", u"0", u"115", u"115.1"),
                                         Of(u"QEY3", u"31", u"0.9", u"1", u"10000", u"10000.1")));

INSTANTIATE_TEST_SUITE_P(Others, V3LimitTest,
                         testing::Values(Of(u"QEB2", u"15", u"0.9", u"1", u"100000", u"100000.1"),
                                         Of(u"QEB2", u"31", u"0.9", u"1", u"10000", u"10000.1"),
                                         Of(u"QHC2", u"14", u"-0.1", u"0", u"150000", u"150000.1"),
                                         Of(u"QHC2", u"15", u"-0.1", u"0", u"150000", u"150000.1"),
                                         Of(u"QHC2", u"31", u"-30", u"-29.999", u"29.999", u"30"),
                                         Of(u"QHC2", u"32", u"-300", u"-299.99", u"299.99", u"300"),
                                         Of(u"QNA2", u"22", u"-15.1", u"-15", u"115", u"115.1"),
                                         Of(u"QNA2", u"24", u"-1", u"0", u"999", u"999.1"),
                                         Of(u"QNA2", u"26", u"-0.1", u"0", u"10", u"10.1"),
                                         Of(u"QNA2", u"28", u"-15.1", u"-15", u"115", u"115.1"),
                                         Of(u"QNA2", u"30", u"-1", u"0", u"999", u"999.1")));

/// A frequency range with its highest pulse averaging and span, and the nearest values above them.
struct V3PulseRange {
  String model;
  String range;
  String averaging;
  String averaging_above;
  String span;
  String span_above;
};

void PrintTo(const V3PulseRange& range, std::ostream* out) {
  *out << ToUtf8(range.model) << ' ' << ToUtf8(range.range);
}

struct V3PulseRangeTest : testing::TestWithParam<V3PulseRange> {};

TEST_P(V3PulseRangeTest, LimitsTheAveragingAndTheSpanAndBringsTheUnit) {
  const V3PulseRange& range = GetParam();
  V3Bench bench(range.model);
  bench.Read();
  bench.Pick(bench.BoxOf(u"11"), range.range);
  const auto check = [&](const String& averaging, const String& span) {
    bench.Type(u"18", averaging);
    bench.Type(u"15", span);
    return bench.Passes();
  };
  EXPECT_TRUE(check(u"1", u"0"));
  EXPECT_FALSE(check(u"0.9", u"0"));
  EXPECT_TRUE(check(range.averaging, range.span));
  EXPECT_FALSE(check(range.averaging_above, range.span));
  EXPECT_EQ(bench.LookOf(u"18"), Look::Bad);
  EXPECT_EQ(bench.LookOf(u"15"), Look::Normal);
  EXPECT_FALSE(check(range.averaging, range.span_above));
  EXPECT_EQ(bench.LookOf(u"18"), Look::Normal);
  EXPECT_EQ(bench.LookOf(u"15"), Look::Bad);
  const String unit = range.range.substr(range.range.find(u' ') + 1);
  EXPECT_EQ(bench.UnitOf(u"15"), unit);
  EXPECT_EQ(bench.UnitOf(u"06"), unit);
}

INSTANTIATE_TEST_SUITE_P(
    EachRange, V3PulseRangeTest,
    testing::Values(V3PulseRange{u"QEI2", u"0:0-100 mHz", u"255", u"256", u"150", u"150.1"},
                    V3PulseRange{u"QEI2", u"1:0-1 Hz", u"255", u"256", u"1.5", u"1.51"},
                    V3PulseRange{u"QEI2", u"2:0-10 Hz", u"255", u"256", u"15", u"15.1"},
                    V3PulseRange{u"QEI2", u"3:0-100 Hz", u"255", u"256", u"150", u"150.1"},
                    V3PulseRange{u"QEI2", u"4:0-1 kHz", u"255", u"256", u"1.5", u"1.51"},
                    V3PulseRange{u"QEI2", u"5:0-10 kHz", u"25", u"26", u"15", u"15.1"},
                    V3PulseRange{u"QEI2", u"6:0-100 kHz", u"2", u"3", u"150", u"150.1"},
                    V3PulseRange{u"QCE2", u"1:0-1 Hz", u"255", u"256", u"1.5", u"1.51"},
                    V3PulseRange{u"QCE2", u"5:0-10 kHz", u"255", u"256", u"15", u"15.1"},
                    V3PulseRange{u"QCE2", u"6:0-100 kHz", u"255", u"256", u"150", u"150.1"},
                    V3PulseRange{u"QICE2", u"1:0-1 Hz", u"100", u"101", u"1.5", u"1.51"},
                    V3PulseRange{u"QICE2", u"4:0-1 kHz", u"100", u"101", u"1.5", u"1.51"},
                    V3PulseRange{u"QIEU2", u"1:0-100 Hz", u"100", u"101", u"150", u"150.1"},
                    V3PulseRange{u"QIEU2", u"4:0-100 kHz", u"100", u"101", u"150", u"150.1"}));

TEST(KvConfigV3CheckTest, WithoutAFrequencyRangeTheAveragingIsJudgedAllTheSame) {
  V3Bench bench(u"QCE2");
  bench.Read();
  bench.Page().SetItem(11, u"");
  bench.Page().BuildPage();
  bench.Type(u"18", u"256");
  EXPECT_FALSE(bench.Passes());
  bench.Type(u"18", u"255");
  EXPECT_TRUE(bench.Passes());
}

TEST(KvConfigV3CheckTest, EveryBadValueOfAModelIsMarkedAtOnce) {
  V3Bench bench(u"QEC2");
  bench.Read();
  bench.Type(u"06", u"100001");
  bench.Type(u"07", u"116");
  bench.Type(u"31", u"0");
  EXPECT_EQ(bench.CheckResult(), test::Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.LookOf(u"06"), Look::Bad);
  EXPECT_EQ(bench.LookOf(u"07"), Look::Bad);
  EXPECT_EQ(bench.LookOf(u"09"), Look::Normal);
  EXPECT_EQ(bench.LookOf(u"31"), Look::Bad);
}

TEST(KvConfigV3CheckTest, AnItemOfNoUseDoesNotHideABadOne) {
  V3Bench bench(u"QEC2");
  bench.device.AddFault({.fault = sim::Fault::NotUsable, .command = "I31"});
  bench.Read();
  EXPECT_EQ(bench.Page().Item(31), kNeedless);
  EXPECT_TRUE(bench.Passes());
  bench.Type(u"06", u"100001");
  EXPECT_FALSE(bench.Passes());
}

TEST(KvConfigV3CheckTest, ZeroAndSpanAreHeldToTheModelsLimitsAndToNoInputTypes) {
  V3Bench bench(u"QHC2");
  bench.Read();
  StringTable& types = bench.Page().Def[u"$I10"];
  int column = 0;
  for (const StringView text : {u"0", u"0:TYPE", u"0", u"1", u"1"}) {
    types.Set(0, column++, String(text));
  }
  bench.Page().SetItem(10, u"0:TYPE");
  bench.Type(u"15", u"150000");
  EXPECT_TRUE(bench.Passes());
}

TEST(KvConfigV3CheckTest, RunsTheTagThenTheScaleThenTheModelThenTheTable) {
  V3Bench bench(u"QNA2", {{"10", "1"}, {"25", "1"}, {"27", "1"}});
  bench.Read();
  bench.Type(u"02", u"ABCDEFGHIJK");
  bench.Type(u"19", u"100");
  bench.Type(u"22", u"116");
  bench.Page().SetItem(60, u"300");
  test::Part<Linearizer>(bench.Page()).SetUp(16);
  const auto looks = [&] {
    EXPECT_EQ(bench.CheckResult(), test::Shown(BoxKey::ValueBad));
    return std::vector{bench.LookOf(u"02"), bench.LookOf(u"19"), bench.LookOf(u"22"),
                       test::Part<Linearizer>(bench.Page()).LnrFlexGrid.At(1, 1).look};
  };
  constexpr Look kGood = Look::Normal;
  constexpr Look kBad = Look::Bad;
  EXPECT_EQ(looks(), (std::vector{kBad, kGood, kGood, kGood}));
  bench.Type(u"02", u"ABC");
  EXPECT_EQ(looks(), (std::vector{kGood, kBad, kGood, kGood}));
  bench.Type(u"19", u"0");
  EXPECT_EQ(looks(), (std::vector{kGood, kGood, kBad, kGood}));
  bench.Type(u"22", u"115");
  EXPECT_EQ(looks(), (std::vector{kGood, kGood, kGood, kBad}));
  bench.Page().SetItem(60, u"299.9");
  test::Part<Linearizer>(bench.Page()).SetUp(16);
  EXPECT_TRUE(bench.Passes());
}

TEST(KvConfigV3CheckTest, TheScaleHasTheLimitsOfEveryPage) {
  V3Bench bench(u"QHC2");
  bench.Read();
  bench.Type(u"20", u"300");
  EXPECT_FALSE(bench.Passes());
  EXPECT_EQ(bench.LookOf(u"20"), Look::Bad);
  bench.Type(u"20", u"299.99");
  EXPECT_TRUE(bench.Passes());
}

TEST(KvConfigV3CheckTest, LiveValuesMayBeBlankButNoParameter) {
  for (const String& model : test::ModelsOf(u"Third")) {
    V3Bench bench(model, SettingsOf(model));
    bench.Read();
    for (int row = 0; row < bench.Page().Def.Data().Rows(); ++row) {
      const String& item = bench.Page().DataCell(row, kItem);
      TextField* field = item.empty() ? nullptr : bench.Page().FindField(item);
      if (field == nullptr || item == u"02") {
        continue;
      }
      const String before = field->Text();
      const bool parameter = !bench.Page().DataCell(row, kWritePosition).empty();
      field->SetLocked(false);
      field->SetText({});
      EXPECT_EQ(bench.CheckResult(), test::Shown(parameter ? BoxKey::FieldBlank : BoxKey::CheckDone))
          << ToUtf8(model) << ' ' << ToUtf8(item);
      field->SetText(before);
    }
  }
}

}  // namespace
}  // namespace korva
