#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "files/page_host.h"
#include "pages/kv_config/family.h"

namespace korva::test {
namespace {

constexpr int kTab = 3;

/// What the device, the definition and the user say, and what the tab of the linearizer then is.
struct TabCase {
  String model;
  bool flag = false;
  int table = -1;    ///< button of Opt_Table that is on
  int lnr = -1;      ///< button of Opt_Lnr that is on
  String type = {};  ///< item 10
  bool enabled = false;
  int points = 16;  ///< of the table that is set up
};

std::string NameOf(const TabCase& one) {
  return ToUtf8(one.model) + (one.flag ? " flag" : " no flag") + " table " + std::to_string(one.table) +
         " lnr " + std::to_string(one.lnr) + " " + ToUtf8(one.type);
}

class LnrTab : public testing::Test {
 protected:
  /// A page of the model, in the state of the case and with tab and table in the other state than expected.
  TestPage& Prepare(const TabCase& one) {
    const String flag = one.flag ? u"True" : u"False";
    TestPage& page = host.Choose(
        one.model, DefText({{.item = u"02", .text = u"0"}},
                           u"$I10\n0,off\n1,on\n$SSTab\nTrue,True,True," + flag + u",True,True,True\n"));
    for (OptionGroup* options : {&page.linearizer.Opt_Table, &page.linearizer.Opt_Lnr}) {
      options->Clear();
      const int place = options == &page.linearizer.Opt_Table ? one.table : one.lnr;
      if (place >= 0) {
        options->Mark(place);
      }
    }
    page.SetItem(10, one.type);
    page.Tabs.SetTabEnabled(kTab, !one.enabled);
    page.linearizer.SetUp(one.points == 16 ? 100 : 16);
    return page;
  }
  void Check(TabMoment moment, const std::vector<TabCase>& cases) {
    for (const TabCase& one : cases) {
      TestPage& page = Prepare(one);
      page.SettleTabs(moment);
      EXPECT_EQ(page.Tabs.TabEnabled(kTab), one.enabled) << NameOf(one);
      EXPECT_EQ(page.linearizer.LnrFlexGrid.Rows(), one.points + 1) << NameOf(one);
    }
  }

  PageHost host;
};

TEST_F(LnrTab, WithoutItsFlagStaysDisabledWhenAModelIsChosen) {
  Check(TabMoment::ModelChosen, {
                                    {.model = u"OTHER", .table = 1},
                                    {.model = u"QY", .table = 1},
                                    {.model = u"QHW"},
                                    {.model = u"QHNY1", .lnr = 1, .points = 100},
                                    {.model = u"QUO", .type = u"FX: Linearizer"},
                                });
}

TEST_F(LnrTab, WithItsFlagFollowsTheSwitchWhenAModelIsChosen) {
  Check(TabMoment::ModelChosen,
        {
            {.model = u"OTHER", .flag = true, .enabled = true},
            {.model = u"OTHER", .flag = true, .table = 1, .enabled = true},
            {.model = u"OTHER", .flag = true, .table = 0},
            {.model = u"OTHER", .flag = true, .table = 1, .lnr = 0, .enabled = true},
            {.model = u"QHW", .flag = true, .enabled = true},
            {.model = u"QHNY1", .flag = true, .lnr = 0, .points = 100},
            {.model = u"QHNY1", .flag = true, .lnr = 1, .enabled = true, .points = 100},
            {.model = u"QHNY2", .flag = true, .table = 0, .enabled = true, .points = 100},
            {.model = u"QHW1", .flag = true, .lnr = 0, .points = 100},
            {.model = u"QUO", .flag = true, .type = u"FX: Linearizer", .enabled = true},
            {.model = u"QUO", .flag = true, .type = u"Fx:linearizer", .enabled = true},
            {.model = u"QUO", .flag = true, .type = u"FX:Linearizer"},
            {.model = u"QUO", .flag = true, .table = 1, .type = u""},
        });
}

TEST_F(LnrTab, WithItsFlagFollowsTheSwitchWhenAFileIsOpened) {
  Check(TabMoment::FileOpened,
        {
            {.model = u"QHNY1", .flag = true, .lnr = 0, .points = 100},
            {.model = u"QHNY1", .flag = true, .lnr = 1, .enabled = true, .points = 100},
            {.model = u"QHW1", .flag = true, .enabled = true, .points = 100},
            {.model = u"QHNY2", .flag = true, .lnr = 0, .points = 100},
            {.model = u"QHW", .flag = true, .table = 0, .enabled = true},
            {.model = u"QZ", .flag = true, .table = 0},
            {.model = u"10QCE", .flag = true, .table = 1, .enabled = true},
            {.model = u"OTHER", .flag = true, .enabled = true},
            {.model = u"QUO", .flag = true, .type = u"Tc-2: K(CA)", .enabled = true},
            {.model = u"QUO", .flag = true, .table = 0, .type = u"FX: Linearizer"},
        });
}

TEST_F(LnrTab, WithoutItsFlagFollowsTheSwitchOfAFewModelsWhenAFileIsOpened) {
  Check(TabMoment::FileOpened, {
                                   {.model = u"QY", .enabled = true},
                                   {.model = u"QY", .table = 1, .enabled = true},
                                   {.model = u"QY", .table = 0},
                                   {.model = u"QEI", .table = 1, .enabled = true},
                                   {.model = u"QEI", .table = 0},
                                   {.model = u"QUO", .type = u"FX: Linearizer", .enabled = true},
                                   {.model = u"QUO", .type = u"Fx:linearizer", .enabled = true},
                                   {.model = u"QUO", .type = u"PS: Straight"},
                                   {.model = u"QZ", .table = 1},
                                   {.model = u"QHW"},
                                   {.model = u"OTHER", .table = 1},
                               });
}

TEST_F(LnrTab, FollowsTheSwitchOfTheModelsWithATableAfterAnUpload) {
  Check(TabMoment::Uploaded, {
                                 {.model = u"QHNY1", .lnr = 0, .points = 100},
                                 {.model = u"QHNY1", .lnr = 1, .enabled = true, .points = 100},
                                 {.model = u"QHW1", .flag = true, .lnr = 1, .enabled = true, .points = 100},
                                 {.model = u"QZ", .table = 0},
                                 {.model = u"QZ", .table = 1, .enabled = true},
                                 {.model = u"10QCE", .table = 1, .enabled = true},
                                 {.model = u"QEI", .table = 0},
                                 {.model = u"QY", .enabled = true},
                                 {.model = u"QUO", .type = u"FX: Linearizer", .enabled = true},
                                 {.model = u"QUO", .type = u"RB-1: Pt100"},
                                 {.model = u"OTHER", .flag = true, .table = 1},
                                 {.model = u"QH", .flag = true},
                             });
}

TEST_F(LnrTab, StaysAsItStandsAfterAnUploadOfTheModelWhoseTableIsAlwaysInUse) {
  for (const bool enabled : {true, false}) {
    TestPage& page = Prepare({.model = u"QHW", .flag = true});
    page.Tabs.SetTabEnabled(kTab, enabled);
    page.SettleTabs(TabMoment::Uploaded);
    EXPECT_EQ(page.Tabs.TabEnabled(kTab), enabled);
    EXPECT_EQ(page.linearizer.LnrFlexGrid.Rows(), 17);
  }
}

TEST_F(LnrTab, TheLinearizerIsInUseWithTheSecondButtonOrByItsModel) {
  struct Case {
    TabCase state;
    bool active;
  };
  for (const Case& one : std::vector<Case>{{{.model = u"QY"}, false},
                                           {{.model = u"QY", .table = 0}, false},
                                           {{.model = u"QY", .table = 1}, true},
                                           {{.model = u"QHNY1", .lnr = 1}, true},
                                           {{.model = u"QHNY1", .lnr = 0}, false},
                                           {{.model = u"QHNY1"}, false},
                                           {{.model = u"QHW"}, true},
                                           {{.model = u"QUO", .type = u"FX: Linearizer"}, true},
                                           {{.model = u"QUO", .type = u"Fx:linearizer"}, true},
                                           {{.model = u"QUO", .type = u"Sq-1:no drop"}, false},
                                           {{.model = u"QY", .type = u"FX: Linearizer"}, false}}) {
    EXPECT_EQ(Prepare(one.state).linearizer.LnrActive(), one.active) << NameOf(one.state);
  }
}

TEST(LnrModels, AModelThatIsNotListedHasAShortTableThatItsOptionSwitchesOn) {
  const LnrModel& model = ModelRow(kKvConfigRecord.table.Value().models, u"");
  EXPECT_EQ(model.points, 16);
  EXPECT_EQ(model.on_choice, TableSwitch::TableOption);
  EXPECT_EQ(model.after_upload, TableSwitch::None);
  EXPECT_FALSE(model.on_opening);
  EXPECT_EQ(model.without_flag, TableSwitch::None);
}

TEST_F(LnrTab, TheStateOfEachTabIsKeptBesideTheDefinitionDuringAnOperation) {
  TestPage& page = Prepare({.model = u"QY", .flag = true});
  page.Tabs.SetTabEnabled(kTab, false);
  page.Tabs.SetTabEnabled(4, true);
  page.LockFrame();
  EXPECT_EQ(page.TabFlag(kTab), u"True");
  EXPECT_FALSE(page.KeptTabEnabled(kTab));
  EXPECT_TRUE(page.KeptTabEnabled(4));
  for (int tab = 0; tab < page.Tabs.Count(); ++tab) {
    EXPECT_FALSE(page.Tabs.TabEnabled(tab)) << tab;
  }
  page.UnlockFrame();
  EXPECT_FALSE(page.Tabs.TabEnabled(kTab));
  EXPECT_TRUE(page.Tabs.TabEnabled(4));
}

TEST_F(LnrTab, OnlyTheExactWordFalseKeepsATabDisabledAfterAnOperationToo) {
  TestPage& page = host.Choose(
      u"QY", DefText({{.item = u"02", .text = u"0"}}, u"$SSTab\nfalse,,False,True,True,True,True\n"));
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(page.Tabs.TabEnabled(0));
    EXPECT_TRUE(page.Tabs.TabEnabled(1));
    EXPECT_FALSE(page.Tabs.TabEnabled(2));
    page.LockFrame();
    page.UnlockFrame();
  }
}

}  // namespace
}  // namespace korva::test
