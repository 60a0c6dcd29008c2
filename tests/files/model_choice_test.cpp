#include "core/text_utilities.h"
#include "file_commands_fixture.h"

namespace korva::test {
namespace {

class ModelChoice : public FileCommands {};

TEST_F(ModelChoice, AModelChoiceBuildsThePageWithItsDefaultsAndSettlesTheTabs) {
  Page().probe.cleared = 0;
  Page().linearizer.SetUp(100);
  host.Choose(u"OTHER");
  EXPECT_EQ(Page().DefFile, u"OTHER.def");
  EXPECT_EQ(Page().CaptionLabels[1].Caption(), u"other");
  EXPECT_EQ(Page().probe.cleared, 1);
  EXPECT_EQ(Page().linearizer.LnrFlexGrid.Rows(), 17);
  EXPECT_TRUE(Page().Tabs.TabEnabled(3));
  EXPECT_FALSE(Page().Tabs.TabEnabled(4));
  EXPECT_EQ(Page().Item(10), u"on");
  EXPECT_EQ(Page().Item(21), u"deg C");
  EXPECT_FALSE(Page().DataChanged);
}

TEST_F(ModelChoice, AModelWithAHundredPointsHasAGridForThem) {
  for (const String model : {u"QHNY1", u"QHNY2", u"QHW1"}) {
    host.Choose(model, Definition(u"hundred"));
    EXPECT_EQ(Page().linearizer.LnrFlexGrid.Rows(), 101) << ToUtf8(model);
    host.Choose(u"OTHER");
    EXPECT_EQ(Page().linearizer.LnrFlexGrid.Rows(), 17);
  }
}

TEST_F(ModelChoice, AModelChoiceKeepsTheSet) {
  Page().Text[0].UserTypes(u"TAG");
  Page().DataChanged = false;
  host.Choose(u"OTHER");
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_EQ(Page().Text[0].Text(), u"TAG");
}

TEST_F(ModelChoice, AModelChoiceHidesWhatTheFormerModelShowed) {
  host.Choose(u"QD", DefText({{.item = u"03", .text = u"7"}}));
  EXPECT_FALSE(Page().Text[0].Visible());
  EXPECT_TRUE(Page().Text[7].Visible());
  EXPECT_FALSE(Page().optTempUnit[0].Visible());
  EXPECT_EQ(Page().optTempUnit.Selected(), -1);
}

TEST_F(ModelChoice, AFaultyDefinitionIsReportedAndThePageShowsWhatWasRead) {
  host.Choose(u"OTHER", u"$Data\n01,02,,,Y,Y,,,,5\n$I99\n$End\n");
  EXPECT_EQ(LastBox(), String(kOpenTitle) + u"defﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。ﾌﾟﾛｸﾞﾗﾑを再ｲﾝｽﾄｰﾙしてください。");
  EXPECT_TRUE(Page().Text[5].Visible());
}

TEST_F(ModelChoice, AMissingDefinitionEndsTheProgram) { EXPECT_THROW(host.Choose(u"QZ"), RuntimeFailure); }

}  // namespace
}  // namespace korva::test
