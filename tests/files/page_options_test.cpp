#include "page_builder_fixture.h"

namespace korva::test {
namespace {

class PageOptions : public PageBuilder {};

TEST_F(PageOptions, TheRowsTextPutsItsButtonOn) {
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

TEST_F(PageOptions, SelectingTheUnitConvertsNothingAndLeavesTheFlagClear) {
  TestPage& page = ShowWith(21, u"deg F", DefText({kUnitRow}, kUnits));
  page.BuildPage();
  EXPECT_FALSE(page.UploadBusy);
  EXPECT_TRUE(page.probe.units_chosen.empty());
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(PageOptions, TheUploadFlagIsSetWhileTheUnitIsSelectedAndClearAfterIt) {
  TestPage& page = ShowWith(21, u"deg F", DefText({kUnitRow}, kUnits));
  std::vector<bool> seen;
  page.optTempUnit[2].Observe([&] { seen.push_back(page.UploadBusy); });
  page.SetItem(21, u"K");
  page.UploadBusy = true;
  page.BuildPage();
  EXPECT_EQ(seen, std::vector<bool>{true});
  EXPECT_FALSE(page.UploadBusy);
  seen.clear();
  page.SetItem(21, u"deg F");
  page.BuildPage();
  EXPECT_EQ(seen, std::vector<bool>{true});
}

TEST_F(PageOptions, SelectingAnOptionTellsThePageNothing) {
  TestPage& page = ShowWith(
      10, u"on",
      DefText({{.item = u"10", .key = u"$I10", .frame = u"0", .last = u"1"}}, u"$I10\n0,off\n1,on\n2,on\n"));
  page.SetItem(10, u"off");
  page.BuildPage();
  EXPECT_EQ(page.linearizer.Opt_Table.Selected(), 0);
  EXPECT_TRUE(page.probe.options_set.empty());
}

TEST_F(PageOptions, AValueInNoListSelectsNoOption) {
  TestPage& page = ShowWith(21, u"deg F", DefText({kUnitRow}, kUnits));
  for (const String value : {u"rankine", u"NEEDLESS", u""}) {
    page.SetItem(21, u"deg F");
    page.BuildPage();
    page.SetItem(21, value);
    page.BuildPage();
    EXPECT_EQ(page.optTempUnit.Selected(), -1);
  }
}

TEST_F(PageOptions, ARowWithoutACodeSelectsNoOption) {
  TestPage& page = ShowWith(21, u"deg F", DefText({kUnitRow}, u"$I21\n0,deg C\n,deg F\n2,K\n"));
  EXPECT_EQ(page.optTempUnit.Selected(), -1);
}

TEST_F(PageOptions, ATextWithoutAButtonSelectsNoOption) {
  TestPage& page = ShowWith(10, u"Type D",
                            DefText({{.item = u"10", .key = u"$I10", .frame = u"0", .last = u"1"}},
                                    u"$I10\n0,Type A\n1,Type B\n2,Type C\n3,Type D\n"));
  EXPECT_EQ(page.linearizer.Opt_Table.Selected(), -1);
}

TEST_F(PageOptions, ButtonsWithoutARowStayHiddenWhereTheTableCaptionsThem) {
  TestPage& page = ShowWith(21, u"0:HOLD",
                            DefText({{.item = u"21", .key = u"$I21QD", .frame = u"4", .last = u"2"}},
                                    u"$I21QD\n0,0:HOLD\n1,1:PRESET\n"));
  EXPECT_TRUE(page.Opt_Backup[0].Visible());
  EXPECT_TRUE(page.Opt_Backup[1].Visible());
  EXPECT_EQ(page.Opt_Backup[1].Caption(), u"1:PRESET");
  EXPECT_FALSE(page.Opt_Backup[2].Visible());
}

TEST_F(PageOptions, CaptionsOfThePageStay) {
  host.Start();
  host.Page().linearizer.Opt_Table[0].SetCaption(u"無");
  TestPage& page = ShowWith(
      10, u"B", DefText({{.item = u"10", .key = u"$I10", .frame = u"0", .last = u"1"}}, u"$I10\n0,A\n1,B\n"));
  EXPECT_EQ(page.linearizer.Opt_Table[0].Caption(), u"無");
  EXPECT_TRUE(page.linearizer.Opt_Table[0].Visible());
  EXPECT_EQ(page.linearizer.Opt_Table.Selected(), 1);
}

TEST_F(PageOptions, OfAFixedGroupOnlyTheSelectedButtonStaysEnabled) {
  DataRow fixed = kUnitRow;
  fixed.rule = u"Y";
  TestPage& page = ShowWith(21, u"deg F", DefText({fixed}, kUnits));
  EXPECT_FALSE(page.optTempUnit[0].Enabled());
  EXPECT_TRUE(page.optTempUnit[1].Enabled());
  EXPECT_FALSE(page.optTempUnit[2].Enabled());
}

TEST_F(PageOptions, AFixedGroupLeavesTheButtonsBehindItsLastOneAlone) {
  DataRow fixed = kUnitRow;
  fixed.rule = u"Y";
  fixed.last = u"1";
  TestPage& page = ShowWith(21, u"deg F", DefText({fixed}, kUnits));
  EXPECT_FALSE(page.optTempUnit[0].Enabled());
  EXPECT_TRUE(page.optTempUnit[2].Enabled());
}

TEST_F(PageOptions, TheRangeIsSetByTheRootOptionsOnTheModelsThatHaveThem) {
  const String definition = DefText({{.item = u"11", .key = u"$I11", .frame = u"1", .last = u"1"}},
                                    u"$I11\n$I11Body\n0,OFF\n1,ON\n");
  TestPage& lnr = ShowWith(11, u"ON", definition);
  EXPECT_EQ(lnr.linearizer.Opt_Lnr.Selected(), 1);
  EXPECT_EQ(lnr.Opt_Root.Selected(), -1);
  TestPage& root = ShowWith(11, u"ON", definition, u"QH");
  EXPECT_EQ(root.Opt_Root.Selected(), 1);
  EXPECT_EQ(root.linearizer.Opt_Lnr.Selected(), -1);
  EXPECT_FALSE(root.linearizer.Opt_Lnr[0].Visible());
}

DataRow UnitRowWithDefault(const String& place) {
  DataRow row = kUnitRow;
  row.preset = place;
  return row;
}

TEST_F(PageOptions, AnEmptyCellTakesItsDefaultOption) {
  TestPage& page = host.Choose(u"OTHER", DefText({UnitRowWithDefault(u"2")}, kUnits));
  EXPECT_EQ(page.optTempUnit.Selected(), 2);
  EXPECT_EQ(page.Item(21), u"K");
  EXPECT_EQ(page.probe.units_chosen, std::vector<int>{2});
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(PageOptions, ACellWithAValueKeepsIt) {
  for (const String value : {u"deg F", u"rankine", u"NEEDLESS"}) {
    host.Start().SetItem(21, value);
    TestPage& page = host.Choose(u"OTHER", DefText({UnitRowWithDefault(u"2")}, kUnits));
    EXPECT_EQ(page.Item(21), value);
    EXPECT_TRUE(page.probe.units_chosen.empty());
  }
}

TEST_F(PageOptions, ADefaultOfAFixedGroupFixesIt) {
  DataRow row = UnitRowWithDefault(u"1");
  row.rule = u"Y";
  TestPage& page = host.Choose(u"OTHER", DefText({row}, kUnits));
  EXPECT_EQ(page.Item(21), u"deg F");
  EXPECT_FALSE(page.optTempUnit[0].Enabled());
  EXPECT_TRUE(page.optTempUnit[1].Enabled());
}

TEST_F(PageOptions, ADefaultWithoutAButtonEndsTheProgram) {
  host.Start();
  host.PutText(u"/bad.def", DefText({UnitRowWithDefault(u"3")}, kUnits));
  ReadDefFile(host.program.Lines(), host.program.Box(), u"/bad.def", host.Page().Def);
  EXPECT_THROW(host.Page().ApplyDefaults(), RuntimeFailure);
}

}  // namespace
}  // namespace korva::test
