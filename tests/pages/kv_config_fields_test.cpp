// What the page of family First shows in its fields beyond the common rules, from made-up definitions of its
// models.

#include <gtest/gtest.h>

#include "page_bench.h"
#include "support/def_text.h"

namespace korva::test {
namespace {

using Entries = std::vector<String>;

class KvConfigFields : public testing::Test {
 protected:
  KvConfig& Page() { return bench.First(); }
  /// Chooses a model with that definition; what the set holds was put there before.
  void Choose(const String& model, StringView definition) {
    bench.PutText(DefPath(model), definition);
    bench.Choose(model);
  }
  /// Puts a value into the set and shows it.
  void Show(int item, const String& value) {
    Page().SetItem(item, value);
    Page().BuildPage();
  }
  void ShowWith(int item, const String& value, StringView definition, const String& model) {
    Choose(model, definition);
    Show(item, value);
  }
  void Pick(int box, const String& entry) { bench.Pick(Page().Combo[box], entry); }

  PageBench bench;
};

// The fields of the filter.

constexpr StringView kAllTabs = u"$SSTab\nTrue,True,True,True,True,True,True\n";
constexpr StringView kFilters = u"$I23\n0,0:NO FILTER\n1,1:MOVING AVERAGE\n";
const DataRow kFilter = {.item = u"23", .combo = u"2", .key = u"$I23"};
const DataRow kConstant = {.item = u"24", .text = u"30"};
const DataRow kCount = {.item = u"25", .text = u"31"};

/// A model with a filter; `constant` is the row of its first field.
String Filtered(const DataRow& constant = kConstant) {
  return DefText({constant, kCount, kFilter}, String(kFilters) + String(kAllTabs));
}

TEST_F(KvConfigFields, WithoutAFilterItsFieldsAreEmptiedAndClosedAndTheSetKeepsThem) {
  Page().SetItem(24, u"0.5");
  ShowWith(23, u"0:NO FILTER", Filtered(), u"QHN1");
  for (const int field : {30, 31}) {
    EXPECT_EQ(Page().Text[field].Text(), u"");
    EXPECT_TRUE(Page().Text[field].Locked());
    EXPECT_EQ(Page().Text[field].ShownLook(), Look::Grey);
  }
  EXPECT_EQ(Page().Item(24), u"0.5");
  EXPECT_FALSE(Page().DataChanged);
}

TEST_F(KvConfigFields, WithAFilterItsFieldsAreOpen) {
  Page().SetItem(24, u"0.5");
  ShowWith(23, u"1:MOVING AVERAGE", Filtered(), u"QHN1");
  EXPECT_EQ(Page().Text[30].Text(), u"0.5");
  EXPECT_FALSE(Page().Text[30].Locked());
  EXPECT_EQ(Page().Text[31].ShownLook(), Look::Normal);
}

TEST_F(KvConfigFields, AFixedFieldStaysClosedWithAFilter) {
  DataRow fixed = kConstant;
  fixed.rule = u"Y";
  ShowWith(23, u"1:MOVING AVERAGE", Filtered(fixed), u"QHN1");
  EXPECT_TRUE(Page().Text[30].Locked());
  EXPECT_FALSE(Page().Text[31].Locked());
}

TEST_F(KvConfigFields, OtherModelsKnowNoFilterRule) {
  Page().SetItem(24, u"0.5");
  ShowWith(23, u"0:NO FILTER", Filtered(), u"QC");
  EXPECT_EQ(Page().Text[30].Text(), u"0.5");
  EXPECT_FALSE(Page().Text[30].Locked());
  Pick(2, u"1:MOVING AVERAGE");
  Pick(2, u"0:NO FILTER");
  EXPECT_EQ(Page().Text[30].Text(), u"0.5");
  EXPECT_FALSE(Page().Text[30].Locked());
}

TEST_F(KvConfigFields, ChoosingNoFilterEmptiesItsFieldsInTheSetToo) {
  Choose(u"QHN1", Filtered());
  Page().Text[30].UserTypes(u"5");
  Pick(2, u"0:NO FILTER");
  EXPECT_EQ(Page().Text[30].Text(), u"");
  EXPECT_TRUE(Page().Text[30].Locked());
  EXPECT_EQ(Page().Item(24), u"");
  Pick(2, u"1:MOVING AVERAGE");
  EXPECT_FALSE(Page().Text[30].Locked());
  EXPECT_EQ(Page().Text[30].ShownLook(), Look::Normal);
}

// A fixed input type.

TEST_F(KvConfigFields, AFixedInputTypeOfTheHundredPointModelsShowsItsFirstRow) {
  for (const String model : {u"QHNY1", u"QHNY2", u"QHW1"}) {
    ShowWith(10, u"Type B", DefText({TypeRow(u"Y")}, kTypes), model);
    EXPECT_EQ(Page().Combo[0].Entries(), Entries{u"Type A"});
    EXPECT_EQ(Page().Combo[0].Text(), u"Type A");
    EXPECT_TRUE(Page().Combo[0].Locked());
    EXPECT_EQ(Page().Combo[0].ShownLook(), Look::Grey);
    EXPECT_EQ(Page().Item(10), u"Type B");
  }
}

const DataRow kZero = {.item = u"14", .text = u"9", .unit_label = u"9", .unit_key = u"$I10"};

TEST_F(KvConfigFields, ThatFirstRowBringsItsUnit) {
  ShowWith(10, u"Type B", DefText({kZero, TypeRow(u"Y")}, kTypes), u"QHW1");
  EXPECT_EQ(bench.UnitOf(u"14"), u"deg C");
}

TEST_F(KvConfigFields, AFixedInputTypeOfOtherModelsHasNoList) {
  ShowWith(10, u"Type B", DefText({TypeRow(u"Y")}, kTypes), u"QC");
  EXPECT_TRUE(Page().Combo[0].Entries().empty());
  EXPECT_EQ(Page().Combo[0].Text(), u"Type B");
}

// Ranges of voltages, one of which is told in mV.

TEST_F(KvConfigFields, RangesInMillivoltsTurnTheUnitOfTheInputTypeIntoVoltsButForTheLast) {
  ShowWith(10, u"Millivolts", DefText({kZero, TypeRow(u"$I10"), kRangeRow}, kRanges), u"QC");
  Show(11, u"m5");
  EXPECT_EQ(bench.UnitOf(u"14"), u"mV");
  Show(11, u"m2");
  EXPECT_EQ(bench.UnitOf(u"14"), u"V");
  Page().SetItem(10, u"Volts");
  Show(11, u"v5");
  EXPECT_EQ(bench.UnitOf(u"14"), u"V");
}

TEST_F(KvConfigFields, OneDifferentRangeLeavesTheUnitOfTheInputType) {
  ShowWith(10, u"Volts",
           DefText({kZero, TypeRow(u"$I10"), kRangeRow},
                   u"$I10\n2,Volts,0,5,1,N,Y,DCV,mA\n$I11\n$I11Title\nNONE,DCV,DCMV\n"
                   u"$I11Body\n1,a,a\n2,b,b\n3,c,c\n4,d,x\n5,e,e\n"),
           u"QC");
  Show(11, u"e");
  EXPECT_EQ(bench.UnitOf(u"14"), u"mA");
}

/// A page that shows the ranges in millivolts, and sensors.
String WithSensors() {
  return DefText({kZero,
                  {.item = u"18", .text = u"8", .unit_label = u"8", .unit_key = u"$I11QEI"},
                  TypeRow(u"$I10"),
                  kRangeRow,
                  {.item = u"11", .combo = u"3", .key = u"$I11QEI"}},
                 String(kRanges) + u"$I11QEI\n0,S0,ppm\n1,S1,pH\n" + String(kAllTabs));
}

TEST_F(KvConfigFields, AChoiceOfARangeInMillivoltsSetsTheUnit) {
  ShowWith(10, u"Millivolts", WithSensors(), u"QD");
  Pick(1, u"m2");
  EXPECT_EQ(Page().Item(11), u"m2");
  EXPECT_EQ(bench.UnitOf(u"14"), u"V");
  Pick(1, u"m5");
  EXPECT_EQ(bench.UnitOf(u"14"), u"mV");
}

TEST_F(KvConfigFields, AChoiceOfASensorSetsItsUnitAndLeavesThatOfTheInputType) {
  ShowWith(10, u"Millivolts", WithSensors(), u"QD");
  Pick(1, u"m5");
  Pick(3, u"S1");
  EXPECT_EQ(Page().Item(11), u"S1");
  EXPECT_EQ(bench.UnitOf(u"18"), u"pH");
  EXPECT_EQ(bench.UnitOf(u"14"), u"mV");
}

}  // namespace
}  // namespace korva::test
