#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "page_host.h"

namespace korva::test {
namespace {

constexpr StringView kTypes =
    u"$I10\n"
    u"1,Type A,0,100,10,N,Y,,deg C\n"
    u"2,Type B,0,5,1,N,Y,,V\n"
    u"3,Type C,0,10,1,Y,N,,mA\n"
    u",Type D,0,10,1,,N,,Ohm\n";

constexpr StringView kRanges =
    u"$I10\n"
    u"1,Plain,0,100,10,N,Y,NONE,V\n"
    u"2,Volts,0,5,1,N,Y,DCV,V\n"
    u"3,Millivolts,0,10,1,N,Y,DCMV,mV\n"
    u"4,Untitled,0,10,1,N,Y,,V\n"
    u"5,Lost,0,10,1,N,Y,MISSING,V\n"
    u"6,Beyond,0,10,1,N,Y,FOURTH,V\n"
    u"$I11\n$I11Title\nNONE,DCV,DCMV,THIRD,FOURTH\n"
    u"$I11Body\n1,v1,m1,t1\n2,v2,m2,t2\n3,v3,m3,t3\n4,v4,m4,t4\n5,v5,m5,t5\n";

const DataRow kTypeRow = {.item = u"10", .combo = u"0", .key = u"$I10"};
const DataRow kRangeRow = {.item = u"11", .combo = u"1", .key = u"$I11"};

class PageBuilder : public testing::Test {
 protected:
  /// Chooses a model with the definition; what the set holds of items of group 1 was put there before.
  TestPage& Show(StringView definition, const String& model = u"OTHER") {
    TestPage& page = host.Choose(model, definition);
    page.BuildPage();
    return page;
  }
  TestPage& ShowWith(int item, const String& value, StringView definition, const String& model = u"OTHER") {
    host.Choose(model, definition);
    host.Page().SetItem(item, value);
    host.Page().BuildPage();
    return host.Page();
  }
  static DataRow TypeRow(const String& rule) {
    DataRow row = kTypeRow;
    row.rule = rule;
    return row;
  }

  PageHost host;
};

using Entries = std::vector<String>;

TEST_F(PageBuilder, ShowsTheLabelsOfARow) {
  TestPage& page = Show(DefText(
      {{.item = u"02", .number_label = u"3", .number = u"Item 02", .label = u"7", .caption = u"ﾀｸﾞ名"}}));
  EXPECT_TRUE(page.lbl_Item[3].Visible());
  EXPECT_EQ(page.lbl_Item[3].Caption(), u"Item 02");
  EXPECT_TRUE(page.CaptionLabels[7].Visible());
  EXPECT_EQ(page.CaptionLabels[7].Caption(), u"ﾀｸﾞ名");
  EXPECT_FALSE(page.lbl_Item[4].Visible());
  EXPECT_FALSE(page.CaptionLabels[0].Visible());
}

TEST_F(PageBuilder, ShowsTheValueOfAField) {
  TestPage& page = ShowWith(2, u"TAG-1", DefText({{.item = u"02", .text = u"5"}}));
  EXPECT_TRUE(page.Text[5].Visible());
  EXPECT_EQ(page.Text[5].Text(), u"TAG-1");
  EXPECT_FALSE(page.Text[5].Locked());
  EXPECT_EQ(page.Text[5].ShownLook(), Look::Normal);
  EXPECT_FALSE(page.Text[0].Visible());
}

TEST_F(PageBuilder, AFieldWithoutAKnownValueIsEmptyAndOpen) {
  TestPage& page = Show(DefText({{.item = u"14", .text = u"5"}}));
  EXPECT_EQ(page.Text[5].Text(), u"");
  EXPECT_FALSE(page.Text[5].Locked());
}

TEST_F(PageBuilder, ANeedlessFieldIsEmptyLockedAndGreyAndStaysNeedlessInTheSet) {
  host.Choose(u"OTHER", DefText({{.item = u"14", .text = u"5"}}));
  host.Page().SetItem(14, u"12");
  host.Page().BuildPage();
  host.Page().SetItem(14, u"NEEDLESS");
  host.Page().BuildPage();
  TestPage& page = host.Page();
  EXPECT_EQ(page.Text[5].Text(), u"");
  EXPECT_TRUE(page.Text[5].Locked());
  EXPECT_EQ(page.Text[5].ShownLook(), Look::Grey);
  EXPECT_EQ(page.Item(14), u"NEEDLESS");
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(PageBuilder, ANeedlessFieldOpensAgainWithAValue) {
  TestPage& page = ShowWith(14, u"NEEDLESS", DefText({{.item = u"14", .text = u"5"}}));
  page.SetItem(14, u"3");
  page.BuildPage();
  EXPECT_EQ(page.Text[5].Text(), u"3");
  EXPECT_FALSE(page.Text[5].Locked());
  EXPECT_EQ(page.Text[5].ShownLook(), Look::Normal);
}

TEST_F(PageBuilder, AFixedFieldShowsItsValueLockedAndGrey) {
  TestPage& page = ShowWith(5, u"55", DefText({{.item = u"05", .text = u"4", .rule = u"Y"}}));
  EXPECT_EQ(page.Text[4].Text(), u"55");
  EXPECT_TRUE(page.Text[4].Locked());
  EXPECT_EQ(page.Text[4].ShownLook(), Look::Grey);
}

TEST_F(PageBuilder, ARowThatIsNotOnThePageBuildsNothing) {
  TestPage& page = ShowWith(2, u"TAG",
                            DefText({{.item = u"02",
                                      .number_label = u"3",
                                      .on_page = u"N",
                                      .label = u"3",
                                      .text = u"5",
                                      .combo = u"1",
                                      .frame = u"2",
                                      .unit_label = u"4",
                                      .unit = u"V"}}));
  EXPECT_FALSE(page.lbl_Item[3].Visible());
  EXPECT_FALSE(page.CaptionLabels[3].Visible());
  EXPECT_FALSE(page.Text[5].Visible());
  EXPECT_FALSE(page.Combo[1].Visible());
  EXPECT_FALSE(page.Frames[2].Visible());
  EXPECT_FALSE(page.lbl_unit[4].Visible());
  EXPECT_EQ(page.Item(2), u"TAG");
}

TEST_F(PageBuilder, ShowsAuthorAndMemoOfTheSet) {
  TestPage& page = Show(DefText({{.item = u"02", .text = u"5"}}));
  page.GroupItem.Author = u"a";
  page.GroupItem.Memo = u"one\r\ntwo";
  page.BuildPage();
  EXPECT_EQ(page.txtAuthor.Text(), u"a");
  EXPECT_EQ(page.txtMemo.Text(), u"one\r\ntwo");
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(PageBuilder, EndsWithTheModelsOwnControls) {
  TestPage& page = Show(DefText({{.item = u"02", .text = u"5"}}));
  const int before = page.model_controls_shown;
  page.BuildPage();
  EXPECT_EQ(page.model_controls_shown, before + 1);
  EXPECT_FALSE(page.Building());
}

TEST_F(PageBuilder, ClearPageHidesEverythingAndEmptiesUnitsAndOptions) {
  TestPage& page = ShowWith(21, u"K",
                            DefText({{.item = u"21",
                                      .number_label = u"1",
                                      .label = u"1",
                                      .text = u"1",
                                      .combo = u"1",
                                      .key = u"$I21",
                                      .frame = u"1",
                                      .unit_label = u"1",
                                      .unit = u"V"}},
                                    u"$I21\n0,deg C\n2,K\n"));
  page.Frames[1].SetEnabled(false);
  ASSERT_TRUE(page.optTempUnit[1].Value());
  page.ClearPage();
  EXPECT_FALSE(page.lbl_Item[1].Visible());
  EXPECT_FALSE(page.CaptionLabels[1].Visible());
  EXPECT_FALSE(page.Text[1].Visible());
  EXPECT_FALSE(page.Combo[1].Visible());
  EXPECT_FALSE(page.Frames[1].Visible());
  EXPECT_TRUE(page.Frames[1].Enabled());
  EXPECT_FALSE(page.lbl_unit[1].Visible());
  EXPECT_EQ(page.lbl_unit[1].Caption(), u"");
  EXPECT_FALSE(page.optTempUnit[0].Visible());
  EXPECT_EQ(page.optTempUnit.Selected(), -1);
  EXPECT_EQ(page.Item(21), u"K");
}

TEST_F(PageBuilder, AnIndexWithoutAControlEndsTheProgramNamingFileRowAndColumn) {
  const std::vector<DataRow> rows = {{.item = u"02", .text = u"44"},
                                     {.item = u"02", .text = u"-1"},
                                     {.item = u"02", .combo = u"4"},
                                     {.item = u"02", .frame = u"10"},
                                     {.item = u"02", .unit_label = u"41", .unit = u"V"},
                                     {.item = u"02", .number_label = u"55"},
                                     {.item = u"02", .label = u"45"}};
  host.Start();
  host.Page().DefFile = u"BAD.def";
  for (const DataRow& row : rows) {
    host.PutText(u"/bad.def", DefText({{.item = u"03", .text = u"1"}, row}));
    ReadDefFile(host.program.Lines(), host.program.Box(), u"/bad.def", host.Page().Def);
    try {
      host.Page().BuildPage();
      ADD_FAILURE() << "built";
    } catch (const RuntimeFailure& failure) {
      EXPECT_NE(failure.Text().find(u"BAD.def"), String::npos);
      EXPECT_NE(failure.Text().find(u"2行目"), String::npos);
    }
    EXPECT_FALSE(host.Page().Building());
  }
}

TEST_F(PageBuilder, AnItemOutsideTheSetEndsTheProgram) {
  host.Start();
  host.PutText(u"/bad.def", DefText({{.item = u"500", .text = u"1"}}));
  ReadDefFile(host.program.Lines(), host.program.Box(), u"/bad.def", host.Page().Def);
  EXPECT_THROW(host.Page().BuildPage(), RuntimeFailure);
}

// The list of a combo box.

TEST_F(PageBuilder, AFixedInputTypeHasNoListAndIsLocked) {
  TestPage& page = ShowWith(10, u"Type B", DefText({TypeRow(u"Y")}, kTypes));
  EXPECT_TRUE(page.Combo[0].Visible());
  EXPECT_TRUE(page.Combo[0].Entries().empty());
  EXPECT_EQ(page.Combo[0].Text(), u"Type B");
  EXPECT_TRUE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].ShownLook(), Look::Grey);
}

TEST_F(PageBuilder, AFixedInputTypeOfTheHundredPointModelsShowsItsFirstRow) {
  for (const String model : {u"QHNY1", u"QHNY2", u"QHW1"}) {
    TestPage& page = ShowWith(10, u"Type B", DefText({TypeRow(u"Y")}, kTypes), model);
    EXPECT_EQ(page.Combo[0].Entries(), Entries{u"Type A"});
    EXPECT_EQ(page.Combo[0].Text(), u"Type A");
    EXPECT_TRUE(page.Combo[0].Locked());
    EXPECT_EQ(page.Combo[0].ShownLook(), Look::Grey);
    EXPECT_EQ(page.Item(10), u"Type B");
  }
}

TEST_F(PageBuilder, TheRuleNListsAllInputTypesLocked) {
  TestPage& page = ShowWith(10, u"Type B", DefText({TypeRow(u"N")}, kTypes));
  EXPECT_EQ(page.Combo[0].Entries().size(), 17U);
  EXPECT_EQ(page.Combo[0].Entries()[3], u"Type D");
  EXPECT_TRUE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].Text(), u"Type B");
}

TEST_F(PageBuilder, TheRuleOfTheTableListsTheOpenInputTypes) {
  TestPage& page = ShowWith(10, u"Type B", DefText({TypeRow(u"$I10")}, kTypes));
  EXPECT_EQ(page.Combo[0].Entries(), (Entries{u"Type A", u"Type B"}));
  EXPECT_FALSE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].ShownLook(), Look::Normal);
}

TEST_F(PageBuilder, TheRuleOfTheTableLocksAFixedInputType) {
  TestPage& page = ShowWith(10, u"Type C", DefText({TypeRow(u"$I10")}, kTypes));
  EXPECT_TRUE(page.Combo[0].Entries().empty());
  EXPECT_TRUE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].Text(), u"Type C");
}

TEST_F(PageBuilder, AnUnknownInputTypeStaysAsTextOverTheOpenOnes) {
  TestPage& page = ShowWith(10, u"Strange", DefText({TypeRow(u"$I10")}, kTypes));
  EXPECT_EQ(page.Combo[0].Text(), u"Strange");
  EXPECT_EQ(page.Combo[0].Entries().size(), 2U);
  EXPECT_FALSE(page.Combo[0].Locked());
}

TEST_F(PageBuilder, AnyOtherRuleListsNothingAndStaysOpen) {
  TestPage& page = ShowWith(10, u"Type A", DefText({TypeRow(u"")}, kTypes));
  EXPECT_TRUE(page.Combo[0].Entries().empty());
  EXPECT_FALSE(page.Combo[0].Locked());
}

TEST_F(PageBuilder, ALockedBoxOpensAgainUnderAnotherModel) {
  ShowWith(10, u"Type B", DefText({TypeRow(u"N")}, kTypes));
  TestPage& page = Show(DefText({TypeRow(u"$I10")}, kTypes), u"QD");
  EXPECT_FALSE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].Entries(), (Entries{u"Type A", u"Type B"}));
}

TEST_F(PageBuilder, TheRangeListsTheColumnUnderTheTitleOfTheInputType) {
  TestPage& page = ShowWith(10, u"Volts", DefText({TypeRow(u"$I10"), kRangeRow}, kRanges));
  page.SetItem(11, u"v3");
  page.BuildPage();
  EXPECT_EQ(page.Combo[1].Entries(), (Entries{u"v1", u"v2", u"v3", u"v4", u"v5"}));
  EXPECT_EQ(page.Combo[1].Text(), u"v3");
  EXPECT_FALSE(page.Combo[1].Locked());
}

TEST_F(PageBuilder, ARangeUnderNoChoiceIsEmptyLockedAndGrey) {
  for (const String type : {u"Plain", u"Untitled", u"Strange", u""}) {
    TestPage& page = ShowWith(10, type, DefText({TypeRow(u"$I10"), kRangeRow}, kRanges));
    page.SetItem(11, u"v3");
    page.BuildPage();
    EXPECT_TRUE(page.Combo[1].Entries().empty());
    EXPECT_EQ(page.Combo[1].Text(), u"");
    EXPECT_TRUE(page.Combo[1].Locked());
    EXPECT_EQ(page.Combo[1].ShownLook(), Look::Grey);
    EXPECT_EQ(page.Item(11), u"v3");
  }
}

TEST_F(PageBuilder, ARangeUnderAnUnknownTitleIsEmptyAndOpen) {
  for (const String type : {u"Lost", u"Beyond"}) {
    TestPage& page = ShowWith(10, type, DefText({TypeRow(u"$I10"), kRangeRow}, kRanges));
    EXPECT_TRUE(page.Combo[1].Entries().empty());
    EXPECT_EQ(page.Combo[1].Text(), u"");
    EXPECT_FALSE(page.Combo[1].Locked());
  }
}

TEST_F(PageBuilder, ANeedlessRangeIsBlankAndCanBeChosenOnceThereIsAChoice) {
  TestPage& page = ShowWith(10, u"Volts", DefText({TypeRow(u"$I10"), kRangeRow}, kRanges));
  page.SetItem(11, u"NEEDLESS");
  page.BuildPage();
  EXPECT_EQ(page.Combo[1].Text(), u"");
  EXPECT_EQ(page.Combo[1].Entries().size(), 5U);
  EXPECT_FALSE(page.Combo[1].Locked());
}

TEST_F(PageBuilder, FiltersAndSensorsAreListedWhole) {
  TestPage& page = ShowWith(
      23, u"1:DEVIATION",
      DefText(
          {{.item = u"23", .combo = u"2", .key = u"$I23"}, {.item = u"11", .combo = u"3", .key = u"$I11QEI"}},
          u"$I23\n0,0:NO FILTER\n1,1:DEVIATION\n$I11QEI\n0,S0,ppm\n1,S1,ppm\n2,S2\n3,S3\n4,S4\n5,S5\n6,S6\n"
          u"7,S7,pH\n"));
  EXPECT_EQ(page.Combo[2].Entries(), (Entries{u"0:NO FILTER", u"1:DEVIATION"}));
  EXPECT_EQ(page.Combo[2].Text(), u"1:DEVIATION");
  EXPECT_EQ(page.Combo[3].Entries().size(), 8U);
  EXPECT_EQ(page.Combo[3].Entries()[7], u"S7");
  EXPECT_FALSE(page.Combo[3].Locked());
}

TEST_F(PageBuilder, OfTwoRowsWithOneBoxTheFirstIsFoundAndTheLastIsSeen) {
  TestPage& page = ShowWith(23, u"b",
                            DefText({{.item = u"10", .combo = u"2", .key = u"$I10", .rule = u"N"},
                                     {.item = u"23", .combo = u"2", .key = u"$I23"}},
                                    u"$I23\n0,a\n1,b\n"));
  EXPECT_EQ(page.FindComboRow(2), 0);
  EXPECT_EQ(page.Combo[2].Entries(), (Entries{u"a", u"b"}));
  EXPECT_EQ(page.Combo[2].Text(), u"b");
}

// The option buttons.

constexpr StringView kUnits = u"$I21\n0,deg C,C\n1,deg F,F\n2,K,K\n";
const DataRow kUnitRow = {.item = u"21", .caption = u"単位", .key = u"$I21", .frame = u"3", .last = u"2"};

TEST_F(PageBuilder, TheRowsTextPutsItsButtonOn) {
  TestPage& page = ShowWith(21, u"deg F", DefText({kUnitRow}, kUnits));
  EXPECT_TRUE(page.Frames[3].Visible());
  EXPECT_EQ(page.Frames[3].Caption(), u"単位");
  EXPECT_EQ(page.optTempUnit.Selected(), 1);
  for (int place = 0; place < 3; ++place) {
    EXPECT_TRUE(page.optTempUnit[place].Visible());
    EXPECT_TRUE(page.optTempUnit[place].Enabled());
  }
  EXPECT_EQ(page.optTempUnit[2].Caption(), u"K");
}

TEST_F(PageBuilder, SelectingTheUnitConvertsNothingAndLeavesTheFlagClear) {
  TestPage& page = ShowWith(21, u"deg F", DefText({kUnitRow}, kUnits));
  page.BuildPage();
  EXPECT_FALSE(page.UploadBusy);
  EXPECT_TRUE(page.units_chosen.empty());
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(PageBuilder, AValueInNoListSelectsNoOption) {
  TestPage& page = ShowWith(21, u"deg F", DefText({kUnitRow}, kUnits));
  for (const String value : {u"rankine", u"NEEDLESS", u""}) {
    page.SetItem(21, u"deg F");
    page.BuildPage();
    page.SetItem(21, value);
    page.BuildPage();
    EXPECT_EQ(page.optTempUnit.Selected(), -1);
  }
}

TEST_F(PageBuilder, ARowWithoutACodeSelectsNoOption) {
  TestPage& page = ShowWith(21, u"deg F", DefText({kUnitRow}, u"$I21\n0,deg C\n,deg F\n2,K\n"));
  EXPECT_EQ(page.optTempUnit.Selected(), -1);
}

TEST_F(PageBuilder, ATextWithoutAButtonSelectsNoOption) {
  TestPage& page = ShowWith(10, u"Type D",
                            DefText({{.item = u"10", .key = u"$I10", .frame = u"0", .last = u"1"}},
                                    u"$I10\n0,Type A\n1,Type B\n2,Type C\n3,Type D\n"));
  EXPECT_EQ(page.Opt_Table.Selected(), -1);
}

TEST_F(PageBuilder, ButtonsWithoutARowStayHiddenWhereTheTableCaptionsThem) {
  TestPage& page = ShowWith(21, u"0:HOLD",
                            DefText({{.item = u"21", .key = u"$I21QD", .frame = u"4", .last = u"2"}},
                                    u"$I21QD\n0,0:HOLD\n1,1:PRESET\n"));
  EXPECT_TRUE(page.Opt_Backup[0].Visible());
  EXPECT_TRUE(page.Opt_Backup[1].Visible());
  EXPECT_EQ(page.Opt_Backup[1].Caption(), u"1:PRESET");
  EXPECT_FALSE(page.Opt_Backup[2].Visible());
}

TEST_F(PageBuilder, CaptionsOfThePageStay) {
  host.Start();
  host.Page().Opt_Table[0].SetCaption(u"無");
  TestPage& page = ShowWith(
      10, u"B", DefText({{.item = u"10", .key = u"$I10", .frame = u"0", .last = u"1"}}, u"$I10\n0,A\n1,B\n"));
  EXPECT_EQ(page.Opt_Table[0].Caption(), u"無");
  EXPECT_TRUE(page.Opt_Table[0].Visible());
  EXPECT_EQ(page.Opt_Table.Selected(), 1);
}

TEST_F(PageBuilder, OfAFixedGroupOnlyTheSelectedButtonStaysEnabled) {
  DataRow fixed = kUnitRow;
  fixed.rule = u"Y";
  TestPage& page = ShowWith(21, u"deg F", DefText({fixed}, kUnits));
  EXPECT_FALSE(page.optTempUnit[0].Enabled());
  EXPECT_TRUE(page.optTempUnit[1].Enabled());
  EXPECT_FALSE(page.optTempUnit[2].Enabled());
}

TEST_F(PageBuilder, AFixedGroupLeavesTheButtonsBehindItsLastOneAlone) {
  DataRow fixed = kUnitRow;
  fixed.rule = u"Y";
  fixed.last = u"1";
  TestPage& page = ShowWith(21, u"deg F", DefText({fixed}, kUnits));
  EXPECT_FALSE(page.optTempUnit[0].Enabled());
  EXPECT_TRUE(page.optTempUnit[2].Enabled());
}

TEST_F(PageBuilder, TheRangeIsSetByTheRootOptionsOnTheModelsThatHaveThem) {
  const String definition = DefText({{.item = u"11", .key = u"$I11", .frame = u"1", .last = u"1"}},
                                    u"$I11\n$I11Body\n0,OFF\n1,ON\n");
  TestPage& lnr = ShowWith(11, u"ON", definition);
  EXPECT_EQ(lnr.Opt_Lnr.Selected(), 1);
  EXPECT_EQ(lnr.Opt_Root.Selected(), -1);
  TestPage& root = ShowWith(11, u"ON", definition, u"QH");
  EXPECT_EQ(root.Opt_Root.Selected(), 1);
  EXPECT_EQ(root.Opt_Lnr.Selected(), -1);
  EXPECT_FALSE(root.Opt_Lnr[0].Visible());
}

// Defaults.

DataRow UnitRowWithDefault(const String& place) {
  DataRow row = kUnitRow;
  row.preset = place;
  return row;
}

TEST_F(PageBuilder, AnEmptyCellTakesItsDefaultOption) {
  TestPage& page = host.Choose(u"OTHER", DefText({UnitRowWithDefault(u"2")}, kUnits));
  EXPECT_EQ(page.optTempUnit.Selected(), 2);
  EXPECT_EQ(page.Item(21), u"K");
  EXPECT_EQ(page.units_chosen, std::vector<int>{2});
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(PageBuilder, ACellWithAValueKeepsIt) {
  for (const String value : {u"deg F", u"rankine", u"NEEDLESS"}) {
    host.Start().SetItem(21, value);
    TestPage& page = host.Choose(u"OTHER", DefText({UnitRowWithDefault(u"2")}, kUnits));
    EXPECT_EQ(page.Item(21), value);
    EXPECT_TRUE(page.units_chosen.empty());
  }
}

TEST_F(PageBuilder, ADefaultOfAFixedGroupFixesIt) {
  DataRow row = UnitRowWithDefault(u"1");
  row.rule = u"Y";
  TestPage& page = host.Choose(u"OTHER", DefText({row}, kUnits));
  EXPECT_EQ(page.Item(21), u"deg F");
  EXPECT_FALSE(page.optTempUnit[0].Enabled());
  EXPECT_TRUE(page.optTempUnit[1].Enabled());
}

TEST_F(PageBuilder, ADefaultWithoutAButtonEndsTheProgram) {
  host.Start();
  host.PutText(u"/bad.def", DefText({UnitRowWithDefault(u"3")}, kUnits));
  ReadDefFile(host.program.Lines(), host.program.Box(), u"/bad.def", host.Page().Def);
  EXPECT_THROW(host.Page().ApplyDefaults(), RuntimeFailure);
}

// Units.

TEST_F(PageBuilder, AFixedUnitStandsInItsLabel) {
  TestPage& page = Show(DefText({{.item = u"16", .text = u"1", .unit_label = u"11", .unit = u"%"}}));
  EXPECT_TRUE(page.lbl_unit[11].Visible());
  EXPECT_EQ(page.lbl_unit[11].Caption(), u"%");
  EXPECT_FALSE(page.lbl_unit[10].Visible());
}

TEST_F(PageBuilder, ATemperatureShowsTheUnitOfTheOptionEvenAheadOfIt) {
  const DataRow shown = {.item = u"04", .text = u"3", .unit_label = u"3", .unit = u"$in"};
  const DataRow follows = {
      .item = u"14", .text = u"9", .unit_label = u"9", .unit = u"$in", .temperature = u"Item21"};
  TestPage& page = ShowWith(21, u"deg F", DefText({shown, follows, kUnitRow}, kUnits));
  EXPECT_EQ(page.lbl_unit[3].Caption(), u"deg F");
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"deg F");
  page.SetItem(21, u"");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[3].Caption(), u"");
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"");
}

TEST_F(PageBuilder, RowsOfTheInputTypeTakeItsUnit) {
  const DataRow zero = {.item = u"14", .text = u"9", .unit_label = u"9", .unit_key = u"$I10"};
  TestPage& page = ShowWith(10, u"Type B", DefText({zero, TypeRow(u"$I10")}, kTypes));
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"V");
  for (const String type : {u"Type D", u"Strange"}) {
    page.SetItem(10, type);
    page.BuildPage();
    EXPECT_EQ(page.lbl_unit[9].Caption(), u"");
  }
}

TEST_F(PageBuilder, ATypeWithoutATemperatureKeepsItsUnitThoughTheRowFollowsTheOption) {
  const DataRow zero = {.item = u"14",
                        .text = u"9",
                        .unit_label = u"9",
                        .unit = u"$in",
                        .unit_key = u"$I10",
                        .temperature = u"Item21"};
  host.Choose(u"OTHER", DefText({zero, TypeRow(u"$I10"), kUnitRow}, String(kTypes) + String(kUnits)));
  TestPage& page = host.Page();
  page.SetItem(10, u"Type B");
  page.SetItem(21, u"NEEDLESS");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"V");
  page.SetItem(10, u"Type A");
  page.SetItem(21, u"K");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"K");
}

TEST_F(PageBuilder, RowsOfTheSensorTakeItsUnit) {
  const DataRow code = {.item = u"18", .text = u"8", .unit_label = u"8", .unit_key = u"$I11QEI"};
  const DataRow sensor = {.item = u"11", .combo = u"3", .key = u"$I11QEI"};
  TestPage& page = ShowWith(11, u"S1", DefText({code, sensor}, u"$I11QEI\n0,S0,ppm\n1,S1,pH\n"));
  EXPECT_EQ(page.lbl_unit[8].Caption(), u"pH");
  page.SetItem(11, u"S9");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[8].Caption(), u"");
}

TEST_F(PageBuilder, AUnitThatOthersSetStaysOnBuildingAgain) {
  TestPage& page = Show(DefText({{.item = u"06", .text = u"5", .unit_label = u"5"}}));
  page.lbl_unit[5].SetCaption(u"kHz");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[5].Caption(), u"kHz");
}

TEST_F(PageBuilder, RangesInMillivoltsTurnTheUnitOfTheInputTypeIntoVoltsButForTheLast) {
  const DataRow zero = {.item = u"14", .text = u"9", .unit_label = u"9", .unit_key = u"$I10"};
  TestPage& page = ShowWith(10, u"Millivolts", DefText({zero, TypeRow(u"$I10"), kRangeRow}, kRanges));
  page.SetItem(11, u"m5");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"mV");
  page.SetItem(11, u"m2");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"V");
  page.SetItem(10, u"Volts");
  page.SetItem(11, u"v5");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"V");
}

TEST_F(PageBuilder, OneDifferentRangeLeavesTheUnitOfTheInputType) {
  const DataRow zero = {.item = u"14", .text = u"9", .unit_label = u"9", .unit_key = u"$I10"};
  TestPage& page = ShowWith(10, u"Volts",
                            DefText({zero, TypeRow(u"$I10"), kRangeRow},
                                    u"$I10\n2,Volts,0,5,1,N,Y,DCV,mA\n$I11\n$I11Title\nNONE,DCV,DCMV\n"
                                    u"$I11Body\n1,a,a\n2,b,b\n3,c,c\n4,d,x\n5,e,e\n"));
  page.SetItem(11, u"e");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"mA");
}

// Filters.

const DataRow kFilter = {.item = u"23", .combo = u"2", .key = u"$I23"};
const DataRow kConstant = {.item = u"24", .text = u"30"};
const DataRow kCount = {.item = u"25", .text = u"31"};
constexpr StringView kFilters = u"$I23\n0,0:NO FILTER\n1,1:MOVING AVERAGE\n";

TEST_F(PageBuilder, WithoutAFilterItsFieldsAreEmptiedAndClosedAndTheSetKeepsThem) {
  host.Start().SetItem(24, u"0.5");
  TestPage& page = ShowWith(23, u"0:NO FILTER", DefText({kConstant, kCount, kFilter}, kFilters), u"QHN1");
  for (const int field : {30, 31}) {
    EXPECT_EQ(page.Text[field].Text(), u"");
    EXPECT_TRUE(page.Text[field].Locked());
    EXPECT_EQ(page.Text[field].ShownLook(), Look::Grey);
  }
  EXPECT_EQ(page.Item(24), u"0.5");
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(PageBuilder, WithAFilterItsFieldsAreOpen) {
  host.Start().SetItem(24, u"0.5");
  TestPage& page =
      ShowWith(23, u"1:MOVING AVERAGE", DefText({kConstant, kCount, kFilter}, kFilters), u"QHN1");
  EXPECT_EQ(page.Text[30].Text(), u"0.5");
  EXPECT_FALSE(page.Text[30].Locked());
  EXPECT_EQ(page.Text[31].ShownLook(), Look::Normal);
}

TEST_F(PageBuilder, AFixedFieldStaysClosedWithAFilter) {
  DataRow fixed = kConstant;
  fixed.rule = u"Y";
  TestPage& page = ShowWith(23, u"1:MOVING AVERAGE", DefText({fixed, kCount, kFilter}, kFilters), u"QHN1");
  EXPECT_TRUE(page.Text[30].Locked());
  EXPECT_FALSE(page.Text[31].Locked());
}

TEST_F(PageBuilder, OtherModelsKnowNoFilterRuleWhenTheyAreBuilt) {
  host.Start().SetItem(24, u"0.5");
  TestPage& page = ShowWith(23, u"0:NO FILTER", DefText({kConstant, kFilter}, kFilters), u"QD");
  EXPECT_EQ(page.Text[30].Text(), u"0.5");
  EXPECT_FALSE(page.Text[30].Locked());
}

// Finding.

TEST_F(PageBuilder, FindsTheFieldOfAnItem) {
  TestPage& page = Show(DefText({{.group = u"00", .item = u"02", .text = u"9"},
                                 {.item = u"02", .text = u"5"},
                                 {.item = u"03_set", .text = u"6"},
                                 {.item = u"10", .combo = u"0"}}));
  EXPECT_EQ(page.FindTextIndex(u"01", u"02"), 5);
  EXPECT_EQ(page.FindTextIndex(u"1", u"2"), 5);
  EXPECT_EQ(page.FindTextIndex(u"0", u"2"), 9);
  EXPECT_EQ(page.FindTextIndex(u"01", u"03_set"), 6);
  EXPECT_EQ(page.FindTextIndex(u"01", u"03"), -1);
  EXPECT_EQ(page.FindTextIndex(u"01", u"10"), -1);
  EXPECT_EQ(page.FindTextIndex(u"02", u"02"), -1);
  EXPECT_EQ(page.FindField(u"02"), &page.Text[5]);
  EXPECT_EQ(page.FindField(u"10"), nullptr);
}

TEST_F(PageBuilder, FindsTheRowOfABoxAndTellsWhenThereIsNone) {
  TestPage& page = Show(DefText({{.item = u"02", .text = u"5"}, {.item = u"10", .combo = u"0"}}));
  EXPECT_EQ(page.FindComboRow(0), 1);
  EXPECT_EQ(page.FindComboRow(1), 32);
}

TEST_F(PageBuilder, FindsAnInputTypeByItsText) {
  TestPage& page = ShowWith(10, u"Type C", DefText({TypeRow(u"N")}, kTypes));
  EXPECT_EQ(page.FindI10Row(u"Type B"), 1);
  EXPECT_EQ(page.FindI10Row(u"type b"), -1);
  EXPECT_EQ(page.FindI10Row(u""), -1);
  EXPECT_EQ(page.InputTypeRow(), 2);
}

TEST_F(PageBuilder, TellsTheTitleOfAnInputType) {
  TestPage& page = Show(DefText({TypeRow(u"N")}, kRanges));
  EXPECT_EQ(page.TitleIndex(0), 0);
  EXPECT_EQ(page.TitleIndex(1), 1);
  EXPECT_EQ(page.TitleIndex(2), 2);
  EXPECT_EQ(page.TitleIndex(3), 0);
  EXPECT_EQ(page.TitleIndex(4), -1);
  EXPECT_EQ(page.TitleIndex(5), 4);
  EXPECT_EQ(page.TitleIndex(-1), 0);
}

TEST_F(PageBuilder, ColoursTheFieldOfAnItem) {
  TestPage& page = Show(DefText({{.item = u"14", .text = u"9"}}));
  page.SetFieldColor(u"01", u"14", Look::Bad);
  page.SetFieldColor(u"01", u"15", Look::Bad);
  EXPECT_EQ(page.Text[9].ShownLook(), Look::Bad);
}

}  // namespace
}  // namespace korva::test
