// The value check of the page of family Lite.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "z2_kv_config_bench.h"

namespace korva::test {
namespace {

struct Z2Check : testing::Test {
  explicit Z2Check(const String& model = u"Z2WT") : bench(model) { bench.Read(); }
  bool Passes() { return bench.CheckResult() == Shown(BoxKey::CheckDone); }
  Look LookOf(const String& item) { return bench.LookOf(item); }

  Z2Bench bench;
};

TEST_F(Z2Check, AnUploadedSetPasses) { EXPECT_TRUE(Passes()); }

TEST_F(Z2Check, TheTagHasTenCharactersAtMost) {
  bench.Type(u"02", u"0123456789");
  EXPECT_TRUE(Passes());
  bench.Type(u"02", u"0123456789A");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(LookOf(u"02"), Look::Bad);
}

TEST_F(Z2Check, InputZeroAndSpanGoByTheInputTypesLimits) {
  bench.Pick(bench.Z2().Combo[0], u"TC K (CA)");
  bench.Type(u"14", u"-270.1");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(LookOf(u"14"), Look::Bad);
  bench.Type(u"14", u"-270");
  bench.Type(u"15", u"1370.1");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(LookOf(u"14"), Look::Normal);
  EXPECT_EQ(LookOf(u"15"), Look::Bad);
  bench.Type(u"14", u"0");
  bench.Type(u"15", u"74.9");
  EXPECT_FALSE(Passes()) << "the least span is 75";
  EXPECT_EQ(LookOf(u"14"), Look::Bad);
  EXPECT_EQ(LookOf(u"15"), Look::Bad);
  bench.Type(u"15", u"75");
  EXPECT_TRUE(Passes());
  EXPECT_EQ(LookOf(u"14"), Look::Normal);
}

TEST_F(Z2Check, InputLimitsFollowTheTemperatureUnit) {
  bench.Pick(bench.Z2().Combo[0], u"TC B (RH)");  // 100 to 1820 deg C
  bench.Press(bench.Z2().optTempUnit, 1);
  bench.Type(u"15", u"3308");
  bench.Type(u"14", u"212");
  EXPECT_TRUE(Passes());
  bench.Type(u"14", u"211");
  EXPECT_FALSE(Passes());
}

TEST_F(Z2Check, OutputZeroAndSpanGoByTheOutputTypesLimitsAndAreMarkedAlike) {
  bench.Pick(bench.Z2().Combo[1], u"4-20 mA");
  bench.Type(u"12", u"3.99");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(LookOf(u"12"), Look::Bad);
  bench.Type(u"12", u"4");
  bench.Type(u"13", u"20.01");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(LookOf(u"12"), Look::Normal);
  EXPECT_EQ(LookOf(u"13"), Look::Bad);
  bench.Type(u"12", u"10");
  bench.Type(u"13", u"13.99");
  EXPECT_FALSE(Passes()) << "the least span is 4";
  EXPECT_EQ(LookOf(u"12"), Look::Bad);
  EXPECT_EQ(LookOf(u"13"), Look::Bad);
  bench.Type(u"13", u"14");
  EXPECT_TRUE(Passes());
  EXPECT_EQ(LookOf(u"12"), Look::Normal);
  EXPECT_EQ(LookOf(u"13"), Look::Normal);
}

TEST_F(Z2Check, TheTemperatureUnitDoesNotMoveTheOutputsLimits) {
  bench.Pick(bench.Z2().Combo[1], u"0-10 V");
  bench.Press(bench.Z2().optTempUnit, 1);
  bench.Type(u"12", u"0");
  bench.Type(u"13", u"10");
  EXPECT_TRUE(Passes());
}

TEST_F(Z2Check, AnEmptyInputOrOutputTypeIsABlankFieldAndComesToTheFront) {
  for (const int item : {10, 11}) {
    const String kept = bench.Page().Item(item);
    bench.Show(item, u"");
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank));
    EXPECT_EQ(bench.Page().Tabs.Current(), bench.Page().TabOf(bench.Page().Combo[item - 10]));
    bench.Show(item, kept);
  }
  EXPECT_TRUE(Passes());
}

TEST_F(Z2Check, AnUnknownInputOrOutputTypePasses) {
  bench.Show(10, u"TC of another maker");
  bench.Show(11, u"0-1 A");
  bench.Type(u"13", u"1000");
  EXPECT_TRUE(Passes());
}

TEST_F(Z2Check, TheFieldsOfTheColdJunctionMayBeBlank) {
  bench.Do([&] {
    bench.Field(u"34").SetText(u"");
    bench.Field(u"35").SetText(u"");
  });
  EXPECT_TRUE(Passes());
  bench.Do([&] { bench.Field(u"14").SetText(u""); });
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank));
}

struct Z2ScaleCheck : Z2Check {
  Z2ScaleCheck() : Z2Check(u"Z2WF") {}
};

TEST_F(Z2ScaleCheck, TheScaleRisesAndStaysWithinItsLimits) {
  bench.Type(u"19", u"50");
  bench.Type(u"20", u"50");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(LookOf(u"19"), Look::Bad);
  bench.Type(u"20", u"300");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(LookOf(u"19"), Look::Normal);
  EXPECT_EQ(LookOf(u"20"), Look::Bad);
}

struct Z2TableCheck : Z2Check {
  Z2TableCheck() : Z2Check(u"Z2WV") {}
  [[nodiscard]] Look Cell(int row, int column) {
    return bench.Z2().linearizer.LnrFlexGrid.At(row, column).look;
  }
};

TEST_F(Z2TableCheck, ATableCountsWhileItsSwitchIsOn) {
  bench.FillTable({{u"0", u"0"}});
  EXPECT_TRUE(Passes());
  bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad)) << "a table has two points at the least";
  bench.FillTable({{u"0", u"0"}, {u"100", u"100"}});
  EXPECT_TRUE(Passes());
}

TEST_F(Z2TableCheck, ABlankCellInsideTheTableIsMarkedAsBad) {
  bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
  bench.FillTable({{u"0", u"0"}, {u"50", u""}, {u"100", u"100"}});
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(Cell(2, 2), Look::Bad);
  EXPECT_EQ(Cell(2, 1), Look::Normal);
}

TEST_F(Z2TableCheck, AnEmptyTableIsMarkedAsBadInItsFirstTwoPoints) {
  bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
  bench.FillTable({});
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad)) << "and is no blank field";
  for (const int column : {1, 2}) {
    EXPECT_EQ(Cell(1, column), Look::Bad);
    EXPECT_EQ(Cell(2, column), Look::Bad);
    EXPECT_EQ(Cell(4, column), Look::Normal);
  }
}

TEST_F(Z2TableCheck, XRisesStrictlyAndBothLieWithinTheirLimits) {
  bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
  bench.FillTable({{u"-15", u"115"}, {u"10", u"-15"}, {u"10", u"5"}, {u"115.01", u"-15.01"}});
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(Cell(1, 1), Look::Normal);
  EXPECT_EQ(Cell(1, 2), Look::Normal);
  EXPECT_EQ(Cell(3, 1), Look::Bad);
  EXPECT_EQ(Cell(3, 2), Look::Normal) << "Y may fall";
  EXPECT_EQ(Cell(4, 1), Look::Bad);
  EXPECT_EQ(Cell(4, 2), Look::Bad);
}

}  // namespace
}  // namespace korva::test
