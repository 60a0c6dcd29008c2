// What a script can ask of the showing page.
#include "cli/page_report.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "script_bench.h"

namespace korva::cli {
namespace {

using test::Lines;
using test::ScriptBench;

TEST(Show, PrintsTheStatesOfControlsInTheOrderOfTheirNames) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Text[0].SetText(u"12.5");
  bench.Page().Text[1].SetVisible(false);
  bench.Page().Text[1].SetEnabled(false);
  bench.Page().Text[1].SetLocked(true);
  bench.Page().Text[1].SetText(u"a\r\n\"b\"");
  EXPECT_EQ(bench.Run("show Text(1) Text(0) cmdUpload"),
            (Lines{R"(Text(1) hidden disabled locked normal "a\n\"b\"")",
                   R"(Text(0) shown enabled unlocked normal "12.5")",
                   R"(cmdUpload shown enabled unlocked normal "アップロード")"}));
}

TEST(Show, NamesEachLook) {
  ScriptBench bench;
  bench.Run("start");
  for (const auto& [look, word] : std::vector<std::pair<Look, std::string>>{{Look::Normal, "normal"},
                                                                            {Look::Grey, "grey"},
                                                                            {Look::Bad, "bad"},
                                                                            {Look::Highlight, "highlight"},
                                                                            {Look::Selected, "selected"}}) {
    bench.Page().Text[0].SetLook(look);
    EXPECT_EQ(bench.Run("show Text(0)"), Lines{"Text(0) shown enabled unlocked " + word + " \"\""});
  }
}

TEST(Show, TellsOfAnOptionButtonWhetherItIsOn) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Opt_Table[1].SetCaption(u"有");
  EXPECT_EQ(bench.Run("click Opt_Table(1)\nshow Opt_Table(0) Opt_Table(1)"),
            (Lines{R"(Opt_Table(0) shown enabled unlocked normal "" off)",
                   R"(Opt_Table(1) shown enabled unlocked normal "有" on)"}));
}

TEST(Show, TellsOfABarItsValue) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().TransferBar.SetValue(39.6F);
  bench.Page().LnrProgressBar.SetVisible(false);
  bench.Run("");
  EXPECT_EQ(bench.Run("show ProgressBar LnrProgressBar"),
            (Lines{"ProgressBar shown 40", "LnrProgressBar hidden 0"}));
}

TEST(Show, TellsOfAPictureTheNameOfItsFile) {
  ScriptBench bench;
  bench.Run("start");
  EXPECT_EQ(bench.Run("show ImgInput"), Lines{R"(ImgInput shown "")"});
  bench.Page().ImgInput.Show(u"In_tc.bmp", {});
  EXPECT_EQ(bench.Run("show ImgInput"), Lines{R"(ImgInput shown "In_tc.bmp")"});
  bench.Page().ImgInput.SetVisible(false);
  bench.Page().ImgInput.Clear();
  bench.Run("");
  EXPECT_EQ(bench.Run("show ImgInput"), Lines{R"(ImgInput hidden "")"});
}

TEST(Show, TellsOfATabWhetherItCanBeReachedAndItsCaption) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Tabs.SetTabEnabled(1, false);
  EXPECT_EQ(bench.Run("show KvCfg_Tab(1) KvCfg_Tab(0)"),
            (Lines{R"(KvCfg_Tab(1) shown disabled "ﾘﾆｱﾗｲｻﾞ")", R"(KvCfg_Tab(0) shown enabled "入力")"}));
  bench.Page().Tabs.SetTabEnabled(1, true);
  EXPECT_EQ(bench.Run("show KvCfg_Tab(1)"), Lines{R"(KvCfg_Tab(1) shown enabled "ﾘﾆｱﾗｲｻﾞ")"});
}

TEST(Show, TellsThatNoTabOfADisabledOrHiddenTabControlCanBeReached) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Tabs.SetEnabled(false);
  EXPECT_EQ(bench.Run("show KvCfg_Tab(0)"), Lines{R"(KvCfg_Tab(0) shown disabled "入力")"});
  bench.Page().Tabs.SetVisible(false);
  EXPECT_EQ(bench.Run("show KvCfg_Tab(0)"), Lines{R"(KvCfg_Tab(0) hidden disabled "入力")"});
}

TEST(Show, TellsOfAGridItsStateAndItsHeads) {
  ScriptBench bench;
  bench.Run("start");
  Grid& grid = bench.Page().LnrFlexGrid;
  grid.SetText(0, 0, u"  k");
  grid.SetText(0, 1, u"  \"X\" %");
  grid.SetText(1, 1, u"10");
  EXPECT_EQ(bench.Run("show LnrFlexGrid"), Lines{R"(LnrFlexGrid shown enabled "  k" "  \"X\" %" "")"});
  grid.SetVisible(false);
  grid.SetEnabled(false);
  EXPECT_EQ(bench.Run("show LnrFlexGrid"), Lines{R"(LnrFlexGrid hidden disabled "  k" "  \"X\" %" "")"});
}

TEST(Show, TellsOfAGridWithoutRowsItsStateAlone) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().LnrFlexGrid.Resize(0, 0);
  EXPECT_EQ(bench.Run("show LnrFlexGrid"), Lines{"LnrFlexGrid shown enabled"});
}

TEST(Show, PrintsNothingWhenThePageLacksOneOfTheNames) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("show KvCfg_Tab(0) KvCfg_Tab(7)"), Lines{});
  EXPECT_EQ(bench.runner.Status(), 2);
}

TEST(Show, TellsAControlsOwnStateWhateverTabOrFrameItIsIn) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Tabs.SetTabEnabled(1, false);
  bench.Page().Frames[0].SetVisible(false);
  EXPECT_EQ(bench.Run("show Text(1) Opt_Table(0)"),
            (Lines{R"(Text(1) shown enabled unlocked normal "")",
                   R"(Opt_Table(0) shown enabled unlocked normal "" off)"}));
}

TEST(Dump, PrintsAGridsCellsWithATextByRowThenColumnWithoutItsHead) {
  ScriptBench bench;
  bench.Run("start");
  Grid& grid = bench.Page().LnrFlexGrid;
  grid.SetText(0, 1, u"X");
  grid.SetText(1, 0, u"1");
  grid.SetText(2, 1, u"30");
  grid.SetText(1, 2, u"0.5");
  grid.SetText(1, 1, u"10");
  grid.SetLook(1, 1, Look::Bad);
  EXPECT_EQ(bench.Run("dump LnrFlexGrid"),
            (Lines{R"(LnrFlexGrid 1 1 bad "10")", R"(LnrFlexGrid 1 2 normal "0.5")",
                   R"(LnrFlexGrid 2 1 normal "30")"}));
}

TEST(Dump, PrintsAGridsEmptyCellsThatAreMarked) {
  ScriptBench bench;
  bench.Run("start");
  Grid& grid = bench.Page().LnrFlexGrid;
  grid.SetLook(0, 1, Look::Selected);
  grid.SetLook(2, 2, Look::Bad);
  grid.SetLook(1, 1, Look::Selected);
  grid.SetText(1, 2, u"0.5");
  EXPECT_EQ(bench.Run("dump LnrFlexGrid"),
            (Lines{R"(LnrFlexGrid 1 1 selected "")", R"(LnrFlexGrid 1 2 normal "0.5")",
                   R"(LnrFlexGrid 2 2 bad "")"}));
}

}  // namespace
}  // namespace korva::cli
