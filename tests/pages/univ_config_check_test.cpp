// The value check of the page of family QXI.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "univ_config_bench.h"

namespace korva {
namespace {

using test::Shown;
using test::UnivBench;

TEST(UnivCheck, PassesAWholeSetOfEachClass) {
  for (const char16_t* input : {u"Tc-2:K(CA)", u"RB-1:Pt100", u"POT:RATIO", u"mV-Z:USER mV", u"mV-1:1-5 V"}) {
    UnivBench bench;
    bench.Fill(input);
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone)) << ToUtf8(input);
  }
}

TEST(UnivCheck, WantsANumberInEachNumberField) {
  for (const char16_t* item :
       {u"14", u"15", u"26", u"29", u"27", u"30", u"12", u"13", u"19", u"20", u"80", u"81", u"82", u"83"}) {
    SCOPED_TRACE(ToUtf8(item));
    UnivBench bench;
    bench.Fill(u"Tc-2:K(CA)", u"mV-Z:USER V");
    const String good = bench.Field(item).Text();
    bench.Type(item, good + u"x");
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
    EXPECT_EQ(bench.LookOf(item), Look::Bad);
    bench.Type(item, u" " + good + u" ");
    EXPECT_TRUE(bench.Passes()) << "blanks around a number are no fault";
    EXPECT_EQ(bench.LookOf(item), Look::Normal);
    bench.Type(item, u"");
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank));
  }
}

TEST(UnivCheck, TestsNothingThatTheChoiceDoesNotSend) {
  UnivBench bench;
  bench.Fill(u"mV-1:1-5 V", u"mV-4:4-20 mA");
  for (const int item : {12, 13, 14, 15}) {
    bench.Show(item, u"x");  // as a file may bring it
  }
  EXPECT_TRUE(bench.Passes());
  bench.Show(14, u"");
  bench.Show(12, u"");
  EXPECT_TRUE(bench.Passes()) << "blank or not";
  for (const char16_t* item : {u"12", u"13", u"14", u"15"}) {
    EXPECT_EQ(bench.LookOf(item), Look::Grey);
  }
}

TEST(UnivCheck, AMarkGoesWithTheChoiceThatNeededTheValue) {
  UnivBench bench;
  bench.Fill(u"mV-Z:USER mV", u"mV-Z:USER V");
  bench.Type(u"12", u"x");
  EXPECT_FALSE(bench.Passes());
  EXPECT_EQ(bench.LookOf(u"12"), Look::Bad);
  bench.Show(11, u"mV-1:1-5 V");
  EXPECT_TRUE(bench.Passes());
  EXPECT_EQ(bench.LookOf(u"12"), Look::Grey);
}

TEST(UnivCheck, TestsNothingThatIsNeedless) {
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  for (const int item : {14, 15, 26, 80}) {
    bench.Show(item, u"NEEDLESS");
  }
  EXPECT_TRUE(bench.Passes());
}

TEST(UnivCheck, TestsNothingThatIsLocked) {
  UnivBench bench;
  String text = bench.TextOf(test::DefPath(u"QXI"));
  const String row = u"$in, ,       Item21, ,    ,   ,    Y,    , AL1SET REAL,";
  const std::size_t at = text.find(row);
  ASSERT_NE(at, String::npos);
  text.replace(at, row.size(), u"$in, ,       Item21, ,    ,   Y, Y,    , AL1SET REAL,");
  bench.files.Put(test::DefPath(u"QXI"), bench.code_page.Encode(text).value());
  bench.Choose(u"QXI2");
  bench.PickInput(u"Tc-2:K(CA)");
  bench.PickOutput(u"mV-1:1-5 V");
  for (const auto& [item, value] : {std::pair(19, u"0"),
                                    {20, u"100"},
                                    {27, u"5"},
                                    {29, u"20"},
                                    {30, u"5"},
                                    {80, u"0"},
                                    {81, u"0"},
                                    {82, u"0"},
                                    {83, u"0"},
                                    {26, u"x"}}) {
    bench.Show(item, value);
  }
  ASSERT_TRUE(bench.Field(u"26").Locked());
  EXPECT_TRUE(bench.Passes());
  bench.Show(27, u"x");
  EXPECT_FALSE(bench.Passes());
}

/// Item 14 and 15 of an input.
struct RangeCase {
  String input;
  String zero;
  String span;
  bool good = false;
  int unit = 0;
};

TEST(UnivCheck, HoldsTheRangeToTheLimitsOfItsInput) {
  for (const RangeCase& one : std::vector<RangeCase>{
           // thermocouple K: -270 to 1370 deg C, at least 75 wide
           {u"Tc-2:K(CA)", u"-270", u"1370", true},
           {u"Tc-2:K(CA)", u"-270.1", u"1370", false},
           {u"Tc-2:K(CA)", u"-270", u"1370.1", false},
           {u"Tc-2:K(CA)", u"0", u"75", true},
           {u"Tc-2:K(CA)", u"0", u"74.9", false},
           {u"Tc-2:K(CA)", u"100", u"0", false},
           // the same in deg F: -454 to 2498, at least 135 wide; in K 3.2 and 1643.2 are 4 and 1643
           {u"Tc-2:K(CA)", u"-454", u"2498", true, 1},
           {u"Tc-2:K(CA)", u"0", u"135", true, 1},
           {u"Tc-2:K(CA)", u"0", u"134.9", false, 1},
           {u"Tc-2:K(CA)", u"4", u"1643", true, 2},
           {u"Tc-2:K(CA)", u"3.9", u"1643", false, 2},
           {u"Tc-2:K(CA)", u"4", u"1643.1", false, 2},
           {u"RB-2:JPt100", u"-200", u"510", true},
           {u"RB-2:JPt100", u"-200", u"511", false},
           // a potentiometer has the limits and the span of its row
           {u"POT:RATIO", u"0", u"100", true},
           {u"POT:RATIO", u"-0.1", u"100", false},
           {u"POT:RATIO", u"45", u"55", true},
           {u"POT:RATIO", u"45", u"54.9", false},
           // what the user defines has that of its row, whatever the temperature unit
           {u"mV-Z:USER mV", u"-10000", u"10000", true, 1},
           {u"mV-Z:USER mV", u"-10000", u"10001", false},
           {u"mV-Z:USER mV", u"0", u"9.9", false},
           {u"mV-0:USER mA", u"4", u"20", true},
           {u"mV-0:USER mA", u"-1", u"20", false},
           // any other voltage or current passes
           {u"mV-1:1-5 V", u"-99", u"-100", true}}) {
    SCOPED_TRACE(ToUtf8(one.input + u" " + one.zero + u" " + one.span));
    UnivBench bench;
    bench.Press(bench.Page().optTempUnit, one.unit);  // open while no input is chosen
    bench.Fill(one.input);
    bench.Show(14, one.zero);
    bench.Show(15, one.span);
    EXPECT_EQ(bench.Passes(), one.good);
  }
}

TEST(UnivCheck, HoldsTheOutputToTheLimitsOfItsRowWhereTheUserSetsIt) {
  struct OutputCase {
    String output;
    String zero;
    String span;
    bool good;
  };
  for (const OutputCase& one : std::vector<OutputCase>{{u"mV-Z:USER V", u"-10", u"10", true},
                                                       {u"mV-Z:USER V", u"-10.1", u"10", false},
                                                       {u"mV-Z:USER V", u"-10", u"10.1", false},
                                                       {u"mV-Z:USER V", u"1", u"2", true},
                                                       {u"mV-Z:USER V", u"1", u"1.9", false},
                                                       {u"mV-0:USER mA", u"0", u"20", true},
                                                       {u"mV-0:USER mA", u"0", u"20.1", false},
                                                       {u"mV-2:0-10 V", u"99", u"98", true}}) {
    SCOPED_TRACE(ToUtf8(one.output + u" " + one.zero + u" " + one.span));
    UnivBench bench;
    bench.Fill(u"Tc-2:K(CA)", one.output);
    bench.Show(12, one.zero);
    bench.Show(13, one.span);
    EXPECT_EQ(bench.Passes(), one.good);
  }
}

TEST(UnivCheck, HoldsTheScaleAsThePagesOfTheFirstLineDo) {
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  bench.Type(u"20", u"300");
  EXPECT_FALSE(bench.Passes());
  EXPECT_EQ(bench.LookOf(u"20"), Look::Bad);
}

TEST(UnivCheck, LeavesTheDataOfTheColdJunctionBlank) {
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  EXPECT_EQ(bench.Page().Item(34), u"");
  EXPECT_TRUE(bench.Passes());
}

TEST(UnivCheck, WantsAnInputAndAnOutput) {
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  bench.Show(11, {});
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank));
}

// --- the table

/// A cell of a point of each kind, and whether it may stand there.
struct CellCase {
  String input;
  String x;
  String y;
  bool good = false;
};

TEST(UnivTableCheck, HoldsEachKindToItsLimits) {
  for (const CellCase& one : std::vector<CellCase>{{u"POT:RATIO", u"115", u"-15", true},
                                                   {u"POT:RATIO", u"115.1", u"0", false},
                                                   {u"POT:RATIO", u"100", u"-15.1", false},
                                                   {u"Tc-99:USER", u"3000", u"69000", true},
                                                   {u"Tc-99:USER", u"3000.1", u"0", false},
                                                   {u"Tc-99:USER", u"100", u"69000.1", false},
                                                   {u"RB-98:USER", u"850", u"-69000", true},
                                                   {u"RB-98:USER", u"850.1", u"0", false},
                                                   {u"RB-97:USER 2W", u"100", u"-69000.1", false}}) {
    SCOPED_TRACE(ToUtf8(one.input + u" " + one.x + u" " + one.y));
    UnivBench bench;
    bench.Fill(one.input);
    if (one.input == u"POT:RATIO") {
      bench.Press(bench.Univ().linearizer.Opt_Lnr, 1);
    }
    bench.Do([&] {
      LnrTable& table = bench.Univ().linearizer.Table();
      table.Store(1, 1, u"0");
      table.Store(1, 2, u"0");
      table.Store(2, 1, one.x);
      table.Store(2, 2, one.y);
    });
    EXPECT_EQ(bench.Passes(), one.good);
  }
}

TEST(UnivTableCheck, TheLowestXOfEachKind) {
  for (const CellCase& one : std::vector<CellCase>{{u"Tc-99:USER", u"-273", {}, true},
                                                   {u"Tc-99:USER", u"-273.1", {}, false},
                                                   {u"RB-98:USER", u"-200", {}, true},
                                                   {u"RB-98:USER", u"-200.1", {}, false}}) {
    SCOPED_TRACE(ToUtf8(one.input + u" " + one.x));
    UnivBench bench;
    bench.Fill(one.input);
    bench.Do([&] {
      LnrTable& table = bench.Univ().linearizer.Table();
      table.Store(1, 1, one.x);
      table.Store(1, 2, u"0");
      table.Store(2, 1, u"1");
      table.Store(2, 2, u"1");
    });
    EXPECT_EQ(bench.Passes(), one.good);
  }
}

TEST(UnivTableCheck, LooksAtNoTableThatIsNotInUse) {
  UnivBench bench;
  bench.Fill(u"POT:RATIO");
  EXPECT_TRUE(bench.Passes()) << "the switch stands at none";
  bench.Press(bench.Univ().linearizer.Opt_Lnr, 1);
  EXPECT_FALSE(bench.Passes()) << "the table is blank";
  bench.PickInput(u"Tc-2:K(CA)");
  EXPECT_TRUE(bench.Passes()) << "the input has none";
}

}  // namespace
}  // namespace korva
