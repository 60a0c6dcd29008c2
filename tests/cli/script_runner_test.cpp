// What a script can do, and what is printed of it.
#include "cli/script_runner.h"

#include <gtest/gtest.h>

#include "script_bench.h"

namespace korva::cli {
namespace {

using test::Lines;
using test::ScriptBench;

const Lines kStart = {R"(port 1 "1200,n,8,1" open)", "page KvConfig", R"(port 1 "1200,n,8,1" open)"};

TEST(Script, StartsTheProgram) {
  ScriptBench bench;
  EXPECT_EQ(bench.Run("start"), kStart);
  EXPECT_EQ(bench.runner.Status(), 0);
}

TEST(Script, StartsTheProgramOnceOnly) {
  ScriptBench bench;
  EXPECT_EQ(bench.Run("start\nstart"), kStart);
}

TEST(Script, StartsTheProgramWithAnyOtherAction) {
  for (const char* action : {"choose A1", "click cmdNew", "type Text(0) 1", "answer ok", "file cancel",
                             "wait 5", "after 5 close", "dump", "key Text(0) Up", "tab 0"}) {
    ScriptBench bench;
    EXPECT_EQ(bench.Run(action), kStart) << action;
  }
}

TEST(Script, OfBlankLinesAndCommentsDoesNothing) {
  ScriptBench bench;
  EXPECT_EQ(bench.Run("\n   \n# start\n#close\n"), Lines{});
  EXPECT_FALSE(bench.runner.Over());
  EXPECT_EQ(bench.runner.Status(), 0);
}

TEST(Script, ThatEndsWithAPageShowingAsksAndPrintsNothing) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("type txtAuthor me"), Lines{});
  bench.Page().DataChanged = true;
  EXPECT_FALSE(bench.runner.Over());
  EXPECT_EQ(bench.runner.Status(), 0);
}

// Pages and ports.

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

TEST(Port, ThatCannotBeOpenedIsPrintedAsFailed) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("click OptCom2\nclick OptCom1"),
            (Lines{R"(port 2 "1200,n,8,1" failed)", R"(port 1 "1200,n,8,1" open)"}));
}

TEST(Port, ChosenAgainIsOpenedAgain) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("click OptCom1"), Lines{R"(port 1 "1200,n,8,1" open)"});
}

TEST(Port, PrintsNothingWhenItIsClosed) {
  ScriptBench bench;
  bench.Run("start");
  bench.link.Close();
  EXPECT_EQ(bench.Run("wait 1"), Lines{});
}

// Controls.

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
  bench.Page().Text[0].OnKey = [&](korva::Key key) { keys.push_back(key); };
  bench.Run("key Text(0) Enter\nkey Text(0) Left");
  EXPECT_EQ(keys, (std::vector{korva::Key::Enter, korva::Key::Left}));
}

TEST(Tab, ComesToTheFront) {
  ScriptBench bench;
  bench.RunStarted("tab 1");
  EXPECT_EQ(bench.Page().Tabs.Current(), 1);
}

TEST(Tab, ThatIsDisabledOrMissingIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().Tabs.SetTabEnabled(1, false);
  EXPECT_EQ(bench.Run("tab 1\ntab 2"), (Lines{"refused tab 1: disabled", "refused tab 2: no such tab"}));
  EXPECT_EQ(bench.Page().Tabs.Current(), 0);
}

// Wrong lines.

/// The complaint about a script's second line.
std::string Complaint(const std::string& action, const std::string& reason) {
  std::string complaint = "korva-cli: line 2: \"";
  return complaint.append(action).append("\": ").append(reason);
}

TEST(WrongLine, EndsTheScriptWithStatus2AndIsNamed) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("\ntype Text(0) 1\nclik \"cmdUpload\"\ntype Text(0) 2"), Lines{});
  EXPECT_TRUE(bench.runner.Over());
  EXPECT_EQ(bench.runner.Status(), 2);
  EXPECT_EQ(bench.Complaints(), Lines{R"(korva-cli: line 4: "clik \"cmdUpload\"": no action)"});
  EXPECT_EQ(bench.Page().Text[0].Text(), u"1");
}

TEST(WrongLine, DoesNotStartTheProgram) {
  ScriptBench bench;
  EXPECT_EQ(bench.Run("begin"), Lines{});
  EXPECT_EQ(bench.runner.Status(), 2);
}

TEST(WrongLine, IsOneThatNamesNoControlOfTheShowingPage) {
  const std::string names_none = "the showing page has no control ";
  for (const auto& [action, name] :
       std::vector<std::pair<std::string, std::string>>{{"click cmdNone", "cmdNone"},
                                                        {"click cmdNew cmdOpen", "cmdNew cmdOpen"},
                                                        {"type Text(2) 1", "Text(2)"},
                                                        {"type Text 1", "Text"},
                                                        {"pick Combo(1) a", "Combo(1)"},
                                                        {"cell TCFlexGrid 1 1", "TCFlexGrid"},
                                                        {"key Text(2) Up", "Text(2)"},
                                                        {"show Text(0) Text(2)", "Text(2)"},
                                                        {"dump TCFlexGrid", "TCFlexGrid"}}) {
    ScriptBench bench;
    EXPECT_EQ(bench.RunStarted(action), Lines{}) << action;
    EXPECT_EQ(bench.runner.Status(), 2) << action;
    EXPECT_EQ(bench.Complaints(), Lines{Complaint(action, names_none + name)});
  }
}

TEST(WrongLine, IsOneWhoseActionIsNotForTheControl) {
  for (const auto& [action, reason] :
       std::vector<std::pair<std::string, std::string>>{{"click Text(0)", "Text(0) is no button"},
                                                        {"type Combo(0) 1", "Combo(0) is no text field"},
                                                        {"pick Text(0) 1", "Text(0) is no combo box"},
                                                        {"cell Text(0) 1 1", "Text(0) is no grid"},
                                                        {"key Combo(0) Up", "Combo(0) is no text field"},
                                                        {"dump Text(0)", "Text(0) is no grid"}}) {
    ScriptBench bench;
    EXPECT_EQ(bench.RunStarted(action), Lines{}) << action;
    EXPECT_EQ(bench.runner.Status(), 2) << action;
    EXPECT_EQ(bench.Complaints(), Lines{Complaint(action, reason)});
  }
}

TEST(WrongLine, DoesNotEndTheScriptThatKeepsGoing) {
  ScriptBench bench({.keep_going = true});
  bench.RunStarted("clik\nclick cmdNone\ntype Text(0) 2");
  EXPECT_FALSE(bench.runner.Over());
  EXPECT_EQ(bench.runner.Status(), 2);
  EXPECT_EQ(bench.Complaints().size(), 2U);
  EXPECT_EQ(bench.Page().Text[0].Text(), u"2");
}

TEST(WrongLine, LeavesStatus1ToAProgramThatFailedLater) {
  ScriptBench bench({.keep_going = true});
  bench.Run("clik\nstart");
  ScriptBench::Let(bench.Page().cmdUpload, [] { throw RuntimeFailure(u"gone"); });
  bench.Run("click cmdUpload");
  EXPECT_EQ(bench.runner.Status(), 1);
}

// The end.

TEST(Close, EndsTheProgramAndTheScript) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("close\nshow Text(0)\nclik"), Lines{"end"});
  EXPECT_TRUE(bench.runner.Over());
  EXPECT_EQ(bench.runner.Status(), 0);
  EXPECT_EQ(bench.Complaints(), Lines{});
}

TEST(Close, BeforeTheStartStartsAndEndsTheProgram) {
  ScriptBench bench;
  Lines expected = kStart;
  expected.emplace_back("end");
  EXPECT_EQ(bench.Run("close"), expected);
}

TEST(Close, OfAPageWithUnsavedDataAsks) {
  ScriptBench bench;
  bench.Run("start");
  bench.Page().DataChanged = true;
  const std::string question =
      R"(box question "ﾌｧｲﾙに保存" "データは変更されています。保存しますか。" yes,no,cancel -> )";
  EXPECT_EQ(bench.Run("close"), Lines{question + "cancel"});
  EXPECT_FALSE(bench.runner.Over());
  EXPECT_EQ(bench.Run("answer no\nclose"), (Lines{question + "no", "end"}));
}

TEST(ExitButton, EndsTheProgramLikeTheCloseBox) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("click cmdExit"), Lines{"end"});
  EXPECT_EQ(bench.runner.Status(), 0);
}

TEST(Failure, EndsTheProgramWithStatus1) {
  ScriptBench bench;
  bench.Run("start");
  ScriptBench::Let(bench.Page().cmdUpload, [] { throw RuntimeFailure(u"no reply to \"G01\"\n\rsorry"); });
  EXPECT_EQ(bench.Run("click cmdUpload\nshow Text(0)"), Lines{R"(failure "no reply to \"G01\"\nsorry")"});
  EXPECT_TRUE(bench.runner.Over());
  EXPECT_EQ(bench.runner.Status(), 1);
}

TEST(Failure, AtTheStartLeavesTheActionUndone) {
  ScriptBench bench;
  bench.files.Remove(u"/k/system/MdlVTRMFx.jpn");
  const Lines printed = bench.Run("click cmdUpload");
  ASSERT_EQ(printed.size(), 1U);
  EXPECT_EQ(printed.front().substr(0, 9), "failure \"");
  EXPECT_EQ(bench.runner.Status(), 1);
  EXPECT_EQ(bench.Complaints(), Lines{});
}

// Progress bars and traffic.

TEST(Progress, IsPrintedInWholePercentWhenItChanges) {
  ScriptBench bench;
  bench.Run("start");
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    for (const float value : {0.4F, 0.6F, 1.2F, 39.5F, 100.0F, 0.0F}) {
      bench.Page().TransferBar.SetValue(value);
    }
  });
  EXPECT_EQ(bench.Run("click cmdUpload"), (Lines{"progress ProgressBar 1", "progress ProgressBar 40",
                                                 "progress ProgressBar 100", "progress ProgressBar 0"}));
}

TEST(Progress, OfEachBarIsPrintedUnderItsName) {
  ScriptBench bench;
  bench.Run("start");
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Page().TransferBar.SetValue(10);
    bench.Page().LnrProgressBar.SetValue(10);
    bench.Page().TransferBar.SetValue(10);
  });
  EXPECT_EQ(bench.Run("click cmdUpload"), (Lines{"progress ProgressBar 10", "progress LnrProgressBar 10"}));
}

TEST(Progress, IsPrintedOnceAfterAPageCameToTheFrontAgain) {
  ScriptBench bench;
  bench.RunStarted("choose N1\nchoose A1");
  bench.Page().TransferBar.SetValue(10);
  EXPECT_EQ(bench.Run(""), Lines{"progress ProgressBar 10"});
}

TEST(Progress, IsPrintedForAPageThatWasUnloadedAndCameAgain) {
  ScriptBench bench;
  bench.RunStarted("choose N1\nchoose A1");
  bench.Page().DataChanged = true;
  bench.Run("close");  // the question is cancelled: this page stays, the other goes
  bench.Page().DataChanged = false;
  bench.Run("choose N1");
  bench.Page().TransferBar.SetValue(10);
  EXPECT_EQ(bench.Run(""), Lines{"progress ProgressBar 10"});
}

TEST(Traffic, IsPrintedOnDemand) {
  ScriptBench bench({.traffic = true});
  bench.Run("start");
  ScriptBench::Let(bench.Page().cmdUpload, [&] { bench.link.SendCommandTrimmed(u"G01\r"); });
  bench.line.AnswerNext("COK");
  EXPECT_EQ(bench.Run("click cmdUpload"), (Lines{R"(> "G01")", R"(< "COK")"}));
  EXPECT_EQ(bench.Run("click cmdUpload"), (Lines{R"(> "G01")", "< none"}));
}

TEST(Traffic, OnAPortThatIsNotOpenFails) {
  ScriptBench bench({.traffic = true});
  bench.Run("click OptCom2");
  ScriptBench::Let(bench.Page().cmdUpload, [&] { bench.link.SendCommandTrimmed(u"G01\r"); });
  EXPECT_EQ(bench.Run("click cmdUpload"), Lines{R"(> "G01" failed)"});
}

TEST(Traffic, IsNotPrintedWithoutDemand) {
  ScriptBench bench;
  bench.Run("start");
  ScriptBench::Let(bench.Page().cmdUpload, [&] { bench.link.SendCommandTrimmed(u"G01\r"); });
  bench.line.AnswerNext("COK");
  EXPECT_EQ(bench.Run("click cmdUpload"), Lines{});
}

// Questions.

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

// Time.

TEST(WaitAction, LetsTheProgramRunForThatLong) {
  ScriptBench bench;
  bench.Run("start");
  const Clock before = bench.loop.Now();
  bench.Run("wait 250");
  EXPECT_EQ(bench.loop.Now() - before, Milliseconds(250));
}

TEST(WaitAction, LetsThePortDrain) {
  ScriptBench bench;
  bench.Run("start");
  bench.line.AnswerNext(
      {{.after = Milliseconds(10), .bytes = "COK\r"}, {.after = Milliseconds(100), .bytes = "X\r"}});
  bench.line.AnswerNext("DTG");
  String second;
  ScriptBench::Let(bench.Page().cmdUpload, [&] { second = bench.link.SendCommandTrimmed(u"G01\r"); });
  bench.Run("click cmdUpload\nwait 200\nclick cmdUpload");
  EXPECT_EQ(second, u"DTG");
}

TEST(After, CarriesTheActionOutInsideWhatRunsThen) {
  ScriptBench bench;
  bench.Run("start");
  Lines order;
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Pause(1000);
    order.emplace_back("over");
  });
  Clock pressed{0};
  ScriptBench::Let(bench.Page().cmdCheck, [&] {
    pressed = bench.loop.Now();
    order.emplace_back("inside");
  });
  const Clock before = bench.loop.Now();
  bench.Run("after 300 click cmdCheck\nclick cmdUpload");
  EXPECT_EQ(order, (Lines{"inside", "over"}));
  EXPECT_EQ(pressed - before, Milliseconds(300));
}

TEST(After, CountsFromTheNextStartClickChooseOrWaitAndFromNothingElse) {
  for (const char* begins : {"start", "click cmdCheck", "choose A1", "wait 1"}) {
    ScriptBench bench;
    bench.Run("start");
    Clock pressed{0};
    ScriptBench::Let(bench.Page().cmdUpload, [&] { pressed = bench.loop.Now(); });
    bench.Run("after 100 click cmdUpload\ntype Text(0) 1\nshow Text(0)\ndump\ntab 0\nkey Text(0) Up");
    bench.loop.RunFor(Milliseconds(1000));
    EXPECT_EQ(pressed, Clock(0)) << begins;
    const Clock before = bench.loop.Now();
    bench.Run(begins);
    bench.loop.RunFor(Milliseconds(50));
    bench.Run("wait 500");
    EXPECT_EQ(pressed - before, Milliseconds(100)) << begins;
  }
}

TEST(After, WaitsForSeveralActionsAtOnce) {
  ScriptBench bench;
  bench.RunStarted("after 20 type Text(0) b\nafter 10 type Text(0) a\nafter 30 show Text(0)\nwait 15");
  EXPECT_EQ(bench.Page().Text[0].Text(), u"a");
  EXPECT_EQ(bench.Run("wait 20"), Lines{R"(Text(0) shown enabled unlocked normal "b")"});
}

TEST(After, IsCarriedOutOnceOnly) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("after 10 show ProgressBar\nwait 100\nwait 100"), Lines{"ProgressBar shown 0"});
}

TEST(After, OfTheLengthOfAWaitIsCarriedOutInsideIt) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("after 100 show ProgressBar\nwait 100"), Lines{"ProgressBar shown 0"});
  EXPECT_EQ(bench.Run("after 0 show ProgressBar\nwait 0"), Lines{"ProgressBar shown 0"});
}

TEST(After, PrintsTheActionItselfWhenItIsRefused) {
  ScriptBench bench;
  bench.Run("start");
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Page().LockFrame();
    bench.Pause(1000);
    bench.Page().UnlockFrame();
  });
  EXPECT_EQ(bench.Run("after 300 click cmdDownload\nclick cmdUpload\nclick cmdDownload"),
            Lines{"refused click cmdDownload: disabled"});
}

TEST(After, QueuesAnswersForBoxesThatShowLater) {
  ScriptBench bench;
  bench.Run("start");
  bool yes = false;
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Pause(1000);
    yes = bench.program.Box().Ask(BoxKey::ModelMatches);
  });
  bench.Run("after 300 answer yes\nclick cmdUpload");
  EXPECT_TRUE(yes);
}

TEST(After, ClosesThePageWhileAnOperationRuns) {
  ScriptBench bench;
  bench.Run("start");
  bool over = false;
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Page().BeginOperation();
    bench.Pause(1000);
    over = true;
  });
  EXPECT_EQ(bench.Run("after 300 close\nclick cmdUpload\nshow Text(0)"), Lines{"end"});
  EXPECT_FALSE(over);
  EXPECT_EQ(bench.runner.Status(), 0);
}

TEST(After, EndsAWaitTogetherWithTheProgram) {
  ScriptBench bench;
  bench.Run("start");
  const Clock before = bench.loop.Now();
  EXPECT_EQ(bench.Run("after 300 close\nafter 400 show ProgressBar\nwait 1000"), Lines{"end"});
  EXPECT_EQ(bench.loop.Now() - before, Milliseconds(300));
}

TEST(After, WithAWrongActionEndsTheScriptWhenTheRunningActionIsDone) {
  ScriptBench bench;
  bench.Run("start");
  bool over = false;
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Pause(1000);
    over = true;
  });
  EXPECT_EQ(bench.Run("after 300 click cmdNone\nafter 400 show Text(0)\nclick cmdUpload\nshow Text(0)"),
            Lines{});
  EXPECT_TRUE(over);
  EXPECT_EQ(bench.runner.Status(), 2);
  EXPECT_EQ(bench.Complaints(),
            Lines{R"(korva-cli: line 2: "click cmdNone": the showing page has no control cmdNone)"});
}

TEST(After, LetsAnOperationBeginInsideAWait) {
  ScriptBench bench;
  bench.Run("start");
  Clock over{0};
  ScriptBench::Let(bench.Page().cmdUpload, [&] {
    bench.Pause(1000);
    over = bench.loop.Now();
  });
  const Clock before = bench.loop.Now();
  bench.Run("after 100 click cmdUpload\nwait 300");
  EXPECT_EQ(over - before, Milliseconds(1100));
}

TEST(After, MayItselfBeCarriedOutLater) {
  ScriptBench bench;
  bench.Run("start");
  EXPECT_EQ(bench.Run("after 10 after 20 show ProgressBar\nwait 100"), Lines{});
  EXPECT_EQ(bench.Run("wait 10"), Lines{});
  EXPECT_EQ(bench.Run("wait 10"), Lines{"ProgressBar shown 0"});
}

}  // namespace
}  // namespace korva::cli
