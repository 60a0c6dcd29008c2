// The course of a script: start, wrong lines, end, and what is printed of what happens.
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

// Ports.

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
                                                        {"show KvCfg_Tab(2)", "KvCfg_Tab(2)"},
                                                        {"show KvCfg_Tab(-1)", "KvCfg_Tab(-1)"},
                                                        {"show KvCfg_Tab(01)", "KvCfg_Tab(01)"},
                                                        {"show SSTab(0)", "SSTab(0)"},
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

TEST(WrongLine, IsOneOfMoreThan64KiB) {
  ScriptBench bench;
  const std::string type = "type Text(0) ";
  EXPECT_EQ(bench.RunStarted(type + std::string(65536 - type.size(), 'x')), Lines{});
  EXPECT_EQ(bench.runner.Status(), 0);
  EXPECT_EQ(bench.Page().Text[0].Text().size(), 65536 - type.size());
  EXPECT_EQ(bench.Run(std::string(65537, '#')), Lines{});
  EXPECT_EQ(bench.runner.Status(), 2);
  EXPECT_EQ(bench.Complaints(), Lines{"korva-cli: line 3: longer than 64 KiB"});
}

TEST(WrongLine, IsOneThatIsNotUtf8) {
  for (const std::string broken : {"\xFF", "\xE3\x81", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80"}) {
    for (const std::string beginning : {"type Text(0) ", "# "}) {
      ScriptBench bench;
      EXPECT_EQ(bench.RunStarted(beginning + broken), Lines{});
      EXPECT_EQ(bench.runner.Status(), 2);
      EXPECT_TRUE(bench.Complaints().at(0).ends_with(": not UTF-8"));
      EXPECT_EQ(bench.Page().Text[0].Text(), u"");
    }
  }
}

TEST(WrongLine, IsNotOneWithTheReplacementCharacterItself) {
  ScriptBench bench;
  bench.RunStarted("type Text(0) \xEF\xBF\xBD");
  EXPECT_EQ(bench.runner.Status(), 0);
  EXPECT_EQ(bench.Page().Text[0].Text(), u"\uFFFD");
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

// Refusals.

TEST(Refusal, LeavesStatus0WithoutStrict) {
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("choose A3\ntype Text(0) 1"), Lines{"refused choose A3: no such entry"});
  EXPECT_EQ(bench.runner.Status(), 0);
}

TEST(Refusal, OfAnActionGivesStatus4WithStrictAndEndsNothing) {
  ScriptBench bench({.strict = true});
  EXPECT_EQ(bench.RunStarted("choose A3\ntype Text(0) 1"), Lines{"refused choose A3: no such entry"});
  EXPECT_FALSE(bench.runner.Over());
  EXPECT_EQ(bench.runner.Status(), 4);
  EXPECT_EQ(bench.Page().Text[0].Text(), u"1");
}

TEST(Refusal, OfADelayedActionGivesStatus4WithStrict) {
  ScriptBench bench({.strict = true});
  EXPECT_EQ(bench.RunStarted("after 10 tab 9\nwait 20"), Lines{"refused tab 9: no such tab"});
  EXPECT_EQ(bench.runner.Status(), 4);
}

TEST(Refusal, OfAnAnswerGivesStatus4WithStrict) {
  ScriptBench bench({.strict = true});
  bench.Run("start");
  bench.Page().DataChanged = true;
  EXPECT_EQ(bench.Run("answer ok\nclose").front(), "refused answer ok: not offered");
  EXPECT_EQ(bench.runner.Status(), 4);
}

TEST(Refusal, GivesStatus4WithStrictWhenTheProgramEndedToo) {
  ScriptBench bench({.strict = true});
  EXPECT_EQ(bench.RunStarted("choose A3\nclose"), (Lines{"refused choose A3: no such entry", "end"}));
  EXPECT_EQ(bench.runner.Status(), 4);
}

TEST(Refusal, LeavesStatus2ToAWrongLineAndStatus1ToAFailure) {
  ScriptBench bench({.keep_going = true, .strict = true});
  bench.RunStarted("choose A3\nclik");
  EXPECT_EQ(bench.runner.Status(), 2);
  ScriptBench::Let(bench.Page().cmdUpload, [] { throw RuntimeFailure(u"gone"); });
  bench.Run("click cmdUpload");
  EXPECT_EQ(bench.runner.Status(), 1);
}

TEST(Strict, LeavesStatus0ToAScriptOfWhichNothingWasRefused) {
  ScriptBench bench({.strict = true});
  bench.RunStarted("choose A 2\nclose");
  EXPECT_EQ(bench.runner.Status(), 0);
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

}  // namespace
}  // namespace korva::cli
