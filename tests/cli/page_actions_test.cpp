// What a script can do on the showing page.
#include "cli/page_actions.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "script_bench.h"

namespace korva::cli {
namespace {

using test::Lines;
using test::ScriptBench;

TEST(Choose, OfAModelOfAnotherFamilyBringsItsPageToTheFront) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("choose N1"),
            (Lines{R"(port 1 "9600,n,8,1" open)", "page z8KvConfig", R"(port 1 "9600,n,8,1" open)"}));
}

TEST(Choose, OfAModelOfTheSamePageChoosesItInTheList) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("choose A 2\nshow lst_TypeSelect"),
            Lines{R"(lst_TypeSelect shown enabled unlocked normal "A 2")"});
  EXPECT_EQ(bench.Page().DefFile, u"A2.def");
}

TEST(Choose, TakesAPositionFrom0) {
  ScriptBench bench;
  bench.RunStarted("choose #1");
  EXPECT_EQ(bench.Page().DefFile, u"A2.def");
  bench.Run("choose #0");
  EXPECT_EQ(bench.Page().DefFile, u"A1.def");
}

TEST(Choose, OfAnEntryThatTheListLacksIsRefused) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("choose A3\nchoose #69\nchoose \"A1 \"\nshow lst_TypeSelect"),
            (Lines{"refused choose A3: no such entry", "refused choose #69: no such entry",
                   "refused choose \"A1 \": no such entry",
                   R"(lst_TypeSelect shown enabled unlocked normal "A1")"}));
  EXPECT_EQ(bench.runner.Status(), 0);
}

TEST(Choose, WhileTheListIsDisabledIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().LockFrame();
  EXPECT_EQ(bench.Run("choose N1"), Lines{"refused choose N1: disabled"});
}

TEST(Click, PressesAButton) {
  ScriptBench bench;
  bench.Run("start");
  int presses = 0;
  ScriptBench::Let(bench.Page().cmdUpload, [&] { ++presses; });
  EXPECT_EQ(bench.Run("click cmdUpload"), Lines{});
  EXPECT_EQ(presses, 1);
}

TEST(Click, PressesAnOptionButton) {
  ScriptBench bench;
  bench.Run("start");
  int chosen = -1;
  bench.Page().Opt_Table.OnClick = [&](int place) { chosen = place; };
  bench.Run("click Opt_Table(1)");
  EXPECT_EQ(chosen, 1);
  EXPECT_TRUE(bench.Page().Opt_Table[1].Value());
}

TEST(Click, OnAHiddenDisabledOrUnreachableControlIsRefusedAndDoesNothing) {
  ScriptBench bench;
  bench.Run("start");
  int presses = 0;
  ScriptBench::Let(bench.Page().cmdUpload, [&] { ++presses; });
  bench.Page().cmdUpload.SetEnabled(false);
  EXPECT_EQ(bench.Run("click cmdUpload"), Lines{"refused click cmdUpload: disabled"});
  bench.Page().cmdUpload.SetVisible(false);
  EXPECT_EQ(bench.Run("click cmdUpload"), Lines{"refused click cmdUpload: hidden"});
  EXPECT_EQ(presses, 0);
}

TEST(Click, OnAControlInAHiddenOrDisabledFrameIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Frames[0].SetEnabled(false);
  EXPECT_EQ(bench.Run("click Opt_Table(1)"), Lines{"refused click Opt_Table(1): disabled"});
  bench.Page().Frames[0].SetVisible(false);
  EXPECT_EQ(bench.Run("click Opt_Table(1)"), Lines{"refused click Opt_Table(1): hidden"});
  EXPECT_EQ(bench.Page().Opt_Table.Selected(), -1);
}

TEST(Type, ReplacesTheTextOfAField) {
  ScriptBench bench;
  bench.Run("start");
  int changes = 0;
  bench.Page().Text[0].SetText(u"old");
  bench.Page().Text[0].OnChange = [&] { ++changes; };
  EXPECT_EQ(bench.Run("type Text(0) new"), Lines{});
  EXPECT_EQ(bench.Page().Text[0].Text(), u"new");
  EXPECT_EQ(changes, 1);
  bench.Run("type Text(0)");
  EXPECT_EQ(bench.Page().Text[0].Text(), u"");
}

TEST(Type, MakesLineBreaksInAFieldOfSeveralLinesOnly) {
  ScriptBench bench;
  bench.RunStarted("type txtMemo \"a\\nb\"\ntype txtAuthor \"a\\nb\"");
  EXPECT_EQ(bench.Page().txtMemo.Text(), u"a\r\nb");
  EXPECT_EQ(bench.Page().txtAuthor.Text(), u"ab");
}

TEST(Type, IntoALockedHiddenOrDisabledFieldIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  TextField& field = bench.Page().Text[0];
  field.SetLocked(true);
  EXPECT_EQ(bench.Run("type Text(0) 1"), Lines{"refused type Text(0) 1: locked"});
  field.SetEnabled(false);
  EXPECT_EQ(bench.Run("type Text(0) 1"), Lines{"refused type Text(0) 1: disabled"});
  field.SetVisible(false);
  EXPECT_EQ(bench.Run("type Text(0) 1"), Lines{"refused type Text(0) 1: hidden"});
  EXPECT_EQ(field.Text(), u"");
}

TEST(Type, IntoAFieldOnAnotherTabIsCarriedOutWhenTheTabIsEnabled) {
  ScriptBench bench;
  bench.Run("start");
  EXPECT_EQ(bench.Page().Tabs.Current(), 0);
  EXPECT_EQ(bench.Run("type Text(1) 1"), Lines{});
  EXPECT_EQ(bench.Page().Text[1].Text(), u"1");
  EXPECT_EQ(bench.Page().Tabs.Current(), 0);
}

TEST(Type, IntoAFieldOnADisabledTabIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Tabs.SetTabEnabled(1, false);
  EXPECT_EQ(bench.Run("type Text(1) 1"), Lines{"refused type Text(1) 1: tab disabled"});
  EXPECT_EQ(bench.Page().Text[1].Text(), u"");
}

TEST(Pick, ChoosesAnEntryOfAComboBox) {
  ScriptBench bench;
  bench.Run("start");
  ComboBox& box = bench.Page().Combo[0];
  box.AddEntry(u"有");
  box.AddEntry(u"b c");
  int clicks = 0;
  box.OnClick = [&] { ++clicks; };
  EXPECT_EQ(bench.Run("pick Combo(0) b c\nshow Combo(0)"),
            Lines{R"(Combo(0) shown enabled unlocked normal "b c")"});
  EXPECT_EQ(clicks, 1);
}

TEST(Pick, OfAnEntryThatTheBoxLacksIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Combo[0].AddEntry(u"有");
  EXPECT_EQ(bench.Run("pick Combo(0) 無"), Lines{"refused pick Combo(0) 無: no such entry"});
  EXPECT_EQ(bench.Page().Combo[0].Text(), u"");
}

TEST(Pick, InALockedBoxIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Combo[0].AddEntry(u"有");
  bench.Page().Combo[0].SetLocked(true);
  EXPECT_EQ(bench.Run("pick Combo(0) 有"), Lines{"refused pick Combo(0) 有: locked"});
}

TEST(Cell, IsClicked) {
  ScriptBench bench;
  bench.Run("start");
  std::pair<int, int> clicked;
  bench.Page().LnrFlexGrid.OnCellClick = [&](int row, int column) { clicked = {row, column}; };
  EXPECT_EQ(bench.Run("cell LnrFlexGrid 3 1"), Lines{});
  EXPECT_EQ(clicked, std::pair(3, 1));
}

TEST(Cell, OfTheHeadRowAndTheHeadColumnIsClickedToo) {
  ScriptBench bench;
  bench.Run("start");
  std::vector<std::pair<int, int>> clicked;
  bench.Page().LnrFlexGrid.OnCellClick = [&](int row, int column) { clicked.emplace_back(row, column); };
  EXPECT_EQ(bench.Run("cell LnrFlexGrid 0 1\ncell LnrFlexGrid 2 0\ncell LnrFlexGrid 0 0"), Lines{});
  EXPECT_EQ(clicked, (std::vector<std::pair<int, int>>{{0, 1}, {2, 0}, {0, 0}}));
}

TEST(Cell, OutsideTheGridIsRefused) {
  ScriptBench bench;
  EXPECT_EQ(
      bench.RunStarted("cell LnrFlexGrid 17 1\ncell LnrFlexGrid 1 3"),
      (Lines{"refused cell LnrFlexGrid 17 1: no such cell", "refused cell LnrFlexGrid 1 3: no such cell"}));
}

TEST(Key, IsPressedInAField) {
  ScriptBench bench;
  bench.Run("start");
  std::vector<korva::Key> keys;
  bench.Page().Text[0].OnKey = [&](korva::Key key) {
    keys.push_back(key);
    return true;
  };
  bench.Run("key Text(0) Enter\nkey Text(0) Left");
  EXPECT_EQ(keys, (std::vector{korva::Key::Enter, korva::Key::Left}));
}

TEST(Tab, ComesToTheFront) {
  ScriptBench bench;
  bench.RunStarted("tab 1");
  EXPECT_EQ(bench.Page().Tabs.Current(), 1);
}

TEST(Tab, CountsAlsoOnTheTabInFront) {
  ScriptBench bench;
  std::vector<int> clicks;
  bench.Run("start");
  bench.Page().Tabs.OnClicked = [&](int tab) { clicks.push_back(tab); };
  bench.Run("tab 1\ntab 1");
  EXPECT_EQ(clicks, (std::vector{1, 1}));
}

TEST(Tab, ThatIsDisabledOrMissingIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Tabs.SetTabEnabled(1, false);
  EXPECT_EQ(bench.Run("tab 1\ntab 2"), (Lines{"refused tab 1: disabled", "refused tab 2: no such tab"}));
  EXPECT_EQ(bench.Page().Tabs.Current(), 0);
}

}  // namespace
}  // namespace korva::cli
