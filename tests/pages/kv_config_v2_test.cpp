// What the page of family Second shows of each of its models: tabs, captions, fields and choices.

#include "pages/kv_config_v2/kv_config_v2.h"

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "kv_config_v2_bench.h"
#include "support/page_parts.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

std::string TabsOf(const Page& page) {
  std::string tabs;
  for (int tab = 0; tab < page.Tabs.Count(); ++tab) {
    tabs += page.Tabs.TabEnabled(tab) ? 'Y' : 'N';
  }
  return tabs;
}

TEST(FamilySecond, HasItsSixModelsInTheCatalogue) {
  EXPECT_EQ(ModelsOf(u"Second"), (std::vector<String>{u"QEY", u"QEYD", u"QEYZ", u"QIC", u"QICD", u"QICE"}));
}

class V2ModelTest : public testing::TestWithParam<String> {
 protected:
  V2Bench bench_{GetParam()};
};

TEST_P(V2ModelTest, ShowsEachItemOfThePageWithItsCaptionsOnATabThatIsOpen) {
  const KvConfig_V2& page = bench_.V2();
  EXPECT_EQ(page.DefFile, GetParam() + u".def");
  EXPECT_FALSE(page.DataChanged);
  EXPECT_TRUE(bench_.dialogs.Boxes().empty());
  const auto expect_shown = [&](const Control& control, bool captioned) {
    EXPECT_TRUE(control.Visible()) << control.FullName();
    EXPECT_GE(page.TabOf(control), 0) << control.FullName();
    EXPECT_TRUE(page.TabOf(control) < 0 || page.Tabs.TabEnabled(page.TabOf(control))) << control.FullName();
    EXPECT_TRUE(!captioned || !control.ShownText().empty()) << control.FullName();
  };
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (page.DataCell(row, kOnPage) != u"Y") {
      continue;
    }
    const auto place = [&](DataColumn column) { return LeadingInteger(page.DataCell(row, column)); };
    const auto has = [&](DataColumn column) { return !page.DataCell(row, column).empty(); };
    EXPECT_TRUE(has(kTextIndex) || has(kComboIndex) || has(kFrameIndex));
    expect_shown(page.lbl_Item[place(kNumberLabel)], true);
    if (has(kLabel)) {
      expect_shown(page.CaptionLabels[place(kLabel)], true);
    }
    if (has(kTextIndex)) {
      expect_shown(page.Text[place(kTextIndex)], false);
    }
    if (has(kUnitBox)) {
      expect_shown(page.units.cbo_unit[place(kUnitBox)], true);
      EXPECT_EQ(page.units.cbo_unit[place(kUnitBox)].Entries(), (std::vector<String>{u"Hz", u"kHz", u"mHz"}));
    }
    if (has(kUnitLabel)) {
      expect_shown(page.lbl_unit[place(kUnitLabel)], true);
    }
    if (has(kComboIndex)) {
      expect_shown(page.Combo[place(kComboIndex)], false);
      EXPECT_FALSE(page.Combo[place(kComboIndex)].Entries().empty());
    }
    if (has(kFrameIndex)) {
      expect_shown(page.Frames[place(kFrameIndex)], true);
      expect_shown(page.optAlarm[0], true);
      EXPECT_EQ(page.optAlarm[0].Container(), &page.Frames[place(kFrameIndex)]);
    }
  }
}

TEST_P(V2ModelTest, HasTheControlsOfTheMonitorAndNoneOfALinearizer) {
  const KvConfig_V2& page = bench_.V2();
  EXPECT_TRUE(Part<StatusMonitor>(page).fraMonitoring.Visible() &&
              Part<StatusMonitor>(page).cmdMonitorON.Visible() && Part<OutputSetting>(page).cmdSet.Visible());
  EXPECT_EQ(page.TabOf(Part<StatusMonitor>(page).cmdMonitorON), 5);
  EXPECT_EQ(page.FindControl("LnrFlexGrid"), nullptr);
  EXPECT_EQ(page.FindControl("LnrProgressBar"), nullptr);
  EXPECT_EQ(page.TabWith(TextKey::Linearizer), -1);
}

TEST_P(V2ModelTest, LeavesNothingOfTheModelBefore) {
  PageBench used;
  for (const String& other : ModelsOf(u"Second")) {
    used.Choose(other);
  }
  used.Choose(GetParam());
  const auto& expected = bench_.V2().Controls();
  const auto& found = used.Page().Controls();
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t place = 0; place < found.size(); ++place) {
    EXPECT_EQ(found[place]->Visible(), expected[place]->Visible()) << found[place]->FullName();
    if (found[place]->Visible()) {
      EXPECT_EQ(found[place]->Locked(), expected[place]->Locked()) << found[place]->FullName();
      EXPECT_EQ(found[place]->ShownLook(), expected[place]->ShownLook()) << found[place]->FullName();
      EXPECT_EQ(found[place]->ShownText(), expected[place]->ShownText()) << found[place]->FullName();
    }
  }
  EXPECT_EQ(TabsOf(used.Page()), TabsOf(bench_.V2()));
}

INSTANTIATE_TEST_SUITE_P(FamilySecond, V2ModelTest, testing::ValuesIn(ModelsOf(u"Second")),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

TEST(KvConfigV2Test, OpensTheTabsThatTheModelHas) {
  PageBench bench;
  for (const auto& [model, tabs] :
       {std::pair{u"QEY", "YYYNYY"}, std::pair{u"QEYZ", "YYYYYY"}, std::pair{u"QIC", "YYYNYY"},
        std::pair{u"QICE", "YYYYYY"}, std::pair{u"QEY", "YYYNYY"}}) {
    bench.Choose(model);
    EXPECT_EQ(TabsOf(bench.Page()), tabs) << ToUtf8(model);
  }
}

TEST(KvConfigV2Test, HasItsTabsAsBeforeAfterAnOperation) {
  V2Bench bench(u"QEY");
  bench.Upload();
  bench.Check();
  EXPECT_EQ(TabsOf(bench.V2()), "YYYNYY");
}

TEST(KvConfigV2Test, HasCaptionsInBothLanguages) {
  V2Bench bench(u"QEYZ");
  KvConfig_V2& page = bench.V2();
  const auto captions = [&] {
    Texts texts;
    for (int tab = 0; tab < page.Tabs.Count(); ++tab) {
      texts.push_back(ToUtf8(page.Tabs.TabCaption(tab)));
    }
    for (const CaptionedControl* control : std::initializer_list<CaptionedControl*>{
             &page.cmdUpload, &page.cmdDownload, &page.lblMemo, &Part<StatusMonitor>(page).fraMonitoring,
             &Part<StatusMonitor>(page).IO_lblShow, &Part<OutputSetting>(page).IO_lblSet, &page.lbl_Waitfor,
             &Part<OutputSetting>(page).cmdSet}) {
      texts.push_back(ToUtf8(control->Caption()));
    }
    return texts;
  };
  EXPECT_EQ(captions(), (Texts{"ﾌｧｲﾙ", "入力", "出力(1)", "出力(2)", "ﾎﾟｰﾄ", "I/O ﾁｪｯｸ", "アップロード",
                               "ダウンロード", "メモ", "表示", "表示", "設定", "お待ち下さい", "OUTPUT"}));
  static_cast<Page&>(page).SetCaptions(Language::English);
  EXPECT_EQ(captions(),
            (Texts{"File", "Input", "Output(1)", "Output(2)", "Port", "I/O check", "UPLOAD", "DOWNLOAD",
                   "Notes", "Monitoring", "Monitor", "Setting", "Reading Data.", "OUTPUT"}));
}

TEST(KvConfigV2Test, ShowsAtItsSpeedWhenAModelOfItsFamilyIsChosenAndGivesTheListBack) {
  PageBench bench;
  bench.Choose(u"QIC");
  EXPECT_NE(dynamic_cast<KvConfig_V2*>(&bench.Page()), nullptr);
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"QIC");
  EXPECT_EQ(bench.port.Settings().baud, 1200);
  bench.Choose(u"QL");
  EXPECT_EQ(bench.First().DefFile, u"QL.def");
}

// Choices.

TEST(KvConfigV2Test, CallsTheActionsOfTheAlarmAsTheDeviceDoesAndStartsWithTheDefault) {
  V2Bench bench(u"QEYZ");
  KvConfig_V2& page = bench.V2();
  EXPECT_EQ(page.optAlarm[0].Caption(), u"0:HIGH ALARM");
  EXPECT_EQ(page.optAlarm[1].Caption(), u"1:LOW ALARM");
  EXPECT_EQ(page.Frames[0].Caption(), u"警報動作");
  EXPECT_EQ(page.Item(26), u"0:HIGH ALARM");
  bench.Press(page.optAlarm, 1);
  EXPECT_EQ(page.Item(26), u"1:LOW ALARM");
  EXPECT_FALSE(page.DataChanged) << "a press of an option button is no edit";
}

TEST(KvConfigV2Test, ListsTheTextsOfTheDeviceAndTakesThePickedOne) {
  V2Bench bench(u"QEYZ");
  KvConfig_V2& page = bench.V2();
  EXPECT_EQ(page.Combo[0].Entries().size(), 8U);
  EXPECT_EQ(page.Combo[1].Entries(), (std::vector<String>{u"0:POSITIVE", u"1:NEGATIVE"}));
  EXPECT_EQ(page.Combo[2].Entries(), (std::vector<String>{u"0:DIRECT", u"1:REVERSE", u"2:HOLD"}));
  EXPECT_EQ(page.Combo[3].Entries().size(), 5U);
  bench.Pick(page.Combo[3], u"2:LATCH");
  EXPECT_EQ(page.Item(29), u"2:LATCH");
  EXPECT_TRUE(page.DataChanged);
}

}  // namespace
}  // namespace korva::test
