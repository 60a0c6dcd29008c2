#include <gtest/gtest.h>

#include "page_host.h"

namespace korva::test {
namespace {

constexpr StringView kEventSections =
    u"$I10\n1,Type A,0,100,10,N,Y,NONE,deg C\n2,Type B,0,5,1,N,Y,DCMV,mV\n"
    u"$I11\n$I11Title\nNONE,DCV,DCMV\n$I11Body\n1,v1,m1\n2,v2,m2\n3,v3,m3\n4,v4,m4\n5,v5,m5\n"
    u"$I21\n0,deg C\n1,deg F\n2,K\n"
    u"$I23\n0,0:NO FILTER\n1,1:AVERAGE\n"
    u"$I11QEI\n0,S0,ppm\n1,S1,pH\n"
    u"$I21QD\n0,0:HOLD\n1,1:PRESET\n2,2:MANUAL\n"
    u"$SSTab\nTrue,True,True,True,True,True,True\n";

String EventDefinition() {
  return DefText(
      {{.item = u"02", .text = u"0"},
       {.item = u"14", .text = u"9", .unit_label = u"9", .unit_key = u"$I10"},
       {.item = u"18", .text = u"8", .unit_label = u"8", .unit_key = u"$I11QEI"},
       {.item = u"24", .text = u"30"},
       {.item = u"10", .combo = u"0", .key = u"$I10", .rule = u"$I10"},
       {.item = u"11", .combo = u"1", .key = u"$I11"},
       {.item = u"11", .combo = u"3", .key = u"$I11QEI"},
       {.item = u"23", .combo = u"2", .key = u"$I23"},
       {.item = u"21", .key = u"$I21", .frame = u"3", .unit_label = u"3", .unit = u"$in", .last = u"2"}},
      kEventSections);
}

class FieldEvents : public testing::Test {
 protected:
  FieldEvents() : page(host.Choose(u"OTHER", EventDefinition())) {
    page.probe.model_rules.clear();
    page.probe.units_chosen.clear();
  }
  void Pick(int box, const String& text) {
    const auto& entries = page.Combo[box].Entries();
    for (std::size_t place = 0; place < entries.size(); ++place) {
      if (entries[place] == text) {
        page.Combo[box].UserPicks(static_cast<int>(place));
        return;
      }
    }
    FAIL() << "no such entry";
  }

  PageHost host;
  TestPage& page;
};

TEST_F(FieldEvents, TypingPutsTheTrimmedTextIntoTheSetAndMarksTheEdit) {
  page.Text[0].UserTypes(u"  TAG 1 ");
  EXPECT_EQ(page.Item(2), u"TAG 1");
  EXPECT_EQ(page.Text[0].Text(), u"  TAG 1 ");
  EXPECT_TRUE(page.DataChanged);
}

TEST_F(FieldEvents, TypingIntoAFieldWithoutARowDoesNothing) {
  page.Text[43].UserTypes(u"x");
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(FieldEvents, TheProgramsTextIsAnEventToo) {
  page.Text[9].SetText(u"12");
  EXPECT_EQ(page.Item(14), u"12");
  EXPECT_TRUE(page.DataChanged);
}

TEST_F(FieldEvents, WhatAnUploadPutsIntoFieldsIsNoEdit) {
  page.UploadBusy = true;
  page.txtAuthor.SetText(u"x");
  page.txtAuthor.SetText(u"");
  EXPECT_FALSE(page.DataChanged);
  EXPECT_EQ(page.GroupItem.Author, u"");
}

TEST_F(FieldEvents, AuthorAndMemoGoIntoTheSet) {
  page.txtAuthor.UserTypes(u" a b ");
  EXPECT_EQ(page.GroupItem.Author, u" a b ");
  EXPECT_TRUE(page.DataChanged);
  page.DataChanged = false;
  page.txtMemo.UserTypes(u"one\r\ntwo");
  EXPECT_EQ(page.GroupItem.Memo, u"one\r\ntwo");
  EXPECT_TRUE(page.DataChanged);
}

TEST_F(FieldEvents, AnInputTypeGoesIntoTheSetWithItsUnitAndItsRules) {
  Pick(0, u"Type A");
  EXPECT_EQ(page.Item(10), u"Type A");
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"deg C");
  EXPECT_EQ(page.probe.model_rules, std::vector<String>{u"10"});
  EXPECT_TRUE(page.DataChanged);
}

TEST_F(FieldEvents, TheModelsRulesSeeTheNewValueAndItsUnitBeforeTheEditIsMarked) {
  bool changed = true;
  String unit;
  String value;
  page.probe.on_model_rules = [&] {
    changed = page.DataChanged;
    unit = page.lbl_unit[9].Caption();
    value = page.Item(10);
  };
  Pick(0, u"Type B");
  EXPECT_FALSE(changed);
  EXPECT_EQ(unit, u"mV");
  EXPECT_EQ(value, u"Type B");
}

TEST_F(FieldEvents, ARangeGoesIntoTheSetAndThePageIsTold) {
  Pick(0, u"Type B");
  page.BuildPage();
  Pick(1, u"m2");
  EXPECT_EQ(page.Item(11), u"m2");
  Pick(1, u"m5");
  EXPECT_EQ(page.Item(11), u"m5");
  EXPECT_EQ(page.probe.model_rules, (std::vector<String>{u"10", u"11", u"11"}));
}

TEST_F(FieldEvents, ASensorSetsItsUnitAndLeavesThatOfTheInputType) {
  Pick(0, u"Type B");
  page.BuildPage();
  const String unit = page.lbl_unit[9].Caption();
  Pick(3, u"S1");
  EXPECT_EQ(page.Item(11), u"S1");
  EXPECT_EQ(page.lbl_unit[8].Caption(), u"pH");
  EXPECT_EQ(page.lbl_unit[9].Caption(), unit);
}

TEST_F(FieldEvents, ABoxWithoutARowDoesNothing) {
  host.Choose(u"QD", DefText({{.item = u"02", .text = u"0"}}));
  page.Combo[2].AddEntry(u"x");
  page.Combo[2].UserPicks(0);
  EXPECT_FALSE(page.DataChanged);
  EXPECT_TRUE(page.probe.model_rules.empty());
}

TEST_F(FieldEvents, ATemperatureUnitGoesIntoTheSetAndConvertsButIsNoEdit) {
  page.optTempUnit[1].Click();
  EXPECT_EQ(page.Item(21), u"deg F");
  EXPECT_EQ(page.probe.units_chosen, std::vector<int>{1});
  EXPECT_EQ(page.lbl_unit[3].Caption(), u"deg F");
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(FieldEvents, TheUnitStandsInTheSetBeforeTheValuesAreConverted) {
  String unit;
  page.probe.on_unit = [&] { unit = page.Item(21); };
  page.optTempUnit[2].Click();
  EXPECT_EQ(unit, u"K");
}

TEST_F(FieldEvents, WithTheUploadFlagAUnitOnlyClearsTheFlag) {
  page.UploadBusy = true;
  page.optTempUnit[1].Click();
  EXPECT_FALSE(page.UploadBusy);
  EXPECT_EQ(page.Item(21), u"");
  EXPECT_TRUE(page.probe.units_chosen.empty());
}

TEST_F(FieldEvents, APressOfTheButtonThatIsOnDoesNothing) {
  page.optTempUnit[1].Click();
  page.optTempUnit[1].Click();
  EXPECT_EQ(page.probe.units_chosen.size(), 1U);
}

TEST_F(FieldEvents, AnOptionGoesIntoTheSetThenThePageIsToldAndItIsNoEdit) {
  page.Opt_Backup[2].Click();
  EXPECT_EQ(page.Item(21), u"2:MANUAL");
  EXPECT_EQ(page.probe.options_set, std::vector<String>{u"$I21QD"});
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(FieldEvents, TheTableSwitchSetsTheInputTypeAndTheLinearizersRange) {
  page.linearizer.Opt_Table[1].Click();
  EXPECT_EQ(page.Item(10), u"Type B");
  page.linearizer.Opt_Lnr[0].Click();
  EXPECT_EQ(page.Item(11), u"v1");
  EXPECT_EQ(page.probe.options_set, (std::vector<String>{u"$I10", u"$I11"}));
}

TEST_F(FieldEvents, AGroupThatTheModelDoesNotUseSetsNothing) {
  page.Opt_Root[1].Click();
  EXPECT_EQ(page.Item(11), u"");
  EXPECT_TRUE(page.probe.options_set.empty());
}

TEST_F(FieldEvents, NothingThatBuildingPutsIntoFieldsIsWrittenOrAnEdit) {
  page.SetItem(2, u" padded ");
  page.SetItem(14, u"NEEDLESS");
  page.SetItem(21, u"K");
  page.SetItem(10, u"Type A");
  page.BuildPage();
  EXPECT_EQ(page.Item(2), u" padded ");
  EXPECT_EQ(page.Item(14), u"NEEDLESS");
  EXPECT_EQ(page.Item(21), u"K");
  EXPECT_TRUE(page.probe.units_chosen.empty());
  EXPECT_TRUE(page.probe.options_set.empty());
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(FieldEvents, EmptyingANeedlessFieldByAnEventEmptiesItsCell) {
  page.SetItem(14, u"5");
  page.BuildPage();
  ParameterPage::CloseField(page.Text[9]);
  EXPECT_EQ(page.Item(14), u"");
  EXPECT_TRUE(page.DataChanged);
}

}  // namespace
}  // namespace korva::test
