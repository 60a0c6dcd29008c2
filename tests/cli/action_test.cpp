#include "cli/action.h"

#include <gtest/gtest.h>

#include "cli/transcript.h"
#include "core/text_utilities.h"

namespace korva::cli {
namespace {

template <typename T>
T Parsed(StringView line) {
  const std::optional<Statement> statement = ParseStatement(1, line);
  if (!statement || !std::holds_alternative<T>(statement->action)) {
    ADD_FAILURE() << ToUtf8(line) << " is not this action";
    return {};
  }
  return std::get<T>(statement->action);
}

String Typed(StringView line) { return Parsed<TypeText>(line).text; }

TEST(ScriptLine, SaysNothingWhenItIsBlankOrAComment) {
  for (const StringView line : {u"", u"   ", u"\t", u"# start", u"#", u"#start", u"  # start"}) {
    EXPECT_TRUE(SaysNothing(line)) << ToUtf8(line);
  }
  EXPECT_FALSE(SaysNothing(u"start # now"));
}

TEST(ScriptLine, KeepsItsNumberAndItsTextLessTheBlanksAround) {
  const Statement statement = ParseStatement(7, u"  click cmdUpload\t").value();
  EXPECT_EQ(statement.line, 7);
  EXPECT_EQ(statement.source, u"click cmdUpload");
}

TEST(ScriptLine, ThatIsNoActionGivesNothing) {
  for (const StringView line : {u"clik cmdUpload",
                                u"Start",
                                u"start now",
                                u"close it",
                                u"click",
                                u"choose",
                                u"type",
                                u"pick",
                                u"pick Combo(0)",
                                u"cell",
                                u"cell LnrFlexGrid",
                                u"cell LnrFlexGrid 1",
                                u"cell LnrFlexGrid 1 x",
                                u"cell LnrFlexGrid 1 2 3",
                                u"cell LnrFlexGrid -1 2",
                                u"key",
                                u"key Text(0)",
                                u"key Text(0) Tab",
                                u"key Text(0) enter",
                                u"key Text(0) Up Up",
                                u"tab",
                                u"tab x",
                                u"tab -1",
                                u"tab 1 2",
                                u"answer",
                                u"answer maybe",
                                u"answer ok maybe",
                                u"answer OK",
                                u"file",
                                u"file \"\"",
                                u"after",
                                u"after 5",
                                u"after start",
                                u"after 5 clik",
                                u"after -5 start",
                                u"after x start",
                                u"wait",
                                u"pdf",
                                u"pdf \"\"",
                                u"wait x",
                                u"wait -1",
                                u"wait 1.5",
                                u"wait 99999999999",
                                u"wait 5 6",
                                u"show"}) {
    EXPECT_FALSE(ParseStatement(1, line)) << ToUtf8(line);
  }
}

TEST(ScriptText, NamesTheFileOfAReport) {
  const auto path = [](StringView line) { return std::get<MakePdf>(ParseStatement(1, line)->action).path; };
  EXPECT_EQ(path(u"pdf a b.pdf "), u"a b.pdf");
  EXPECT_EQ(path(u"pdf \" a.pdf\""), u" a.pdf");
}

TEST(ScriptText, IsTheRestOfTheLineLessBlanksAroundIt) {
  EXPECT_EQ(Typed(u"type Text(3) 12.5"), u"12.5");
  EXPECT_EQ(Typed(u"type   Text(3)  \t a b  c  "), u"a b  c");
}

TEST(ScriptText, MayBeEmptyWhereAFieldIsEmptied) {
  EXPECT_EQ(Typed(u"type Text(3)"), u"");
  EXPECT_EQ(Typed(u"type Text(3) \"\""), u"");
}

TEST(ScriptText, ThatBeginsAndEndsWithAQuoteLosesTheTwo) {
  EXPECT_EQ(Typed(u"type Text(3) \"  a  \""), u"  a  ");
  EXPECT_EQ(Typed(u"type Text(3) \"a\"b\""), u"a\"b");
}

TEST(ScriptText, KeepsAQuoteAtOneEndOnly) {
  EXPECT_EQ(Typed(u"type Text(3) \"a"), u"\"a");
  EXPECT_EQ(Typed(u"type Text(3) a\""), u"a\"");
  EXPECT_EQ(Typed(u"type Text(3) \""), u"\"");
}

TEST(ScriptText, HasEscapesWithinQuotes) {
  EXPECT_EQ(Typed(u"type txtMemo \"a\\nb\""), u"a\r\nb");
  EXPECT_EQ(Typed(u"type Text(3) \"say \\\"a\\\"\""), u"say \"a\"");
  EXPECT_EQ(Typed(u"type Text(3) \"C:\\\\new\""), u"C:\\new");
  EXPECT_EQ(Typed(u"type Text(3) \"\\\\n\""), u"\\n");
}

TEST(ScriptText, HasNoEscapesWithoutQuotes) {
  EXPECT_EQ(Typed(u"type Text(3) a\\nb"), u"a\\nb");
  EXPECT_EQ(Typed(u"type Text(3) C:\\\\new"), u"C:\\\\new");
}

TEST(ScriptText, KeepsABackslashThatBeginsNoEscape) {
  EXPECT_EQ(Typed(u"type Text(3) \"a\\db\""), u"a\\db");
  EXPECT_EQ(Typed(u"type Text(3) \"C:\\data\\\""), u"C:\\data\\");
}

TEST(ScriptText, ReadsBackWhatIsPrinted) {
  for (const StringView text : {u"  a ", u"a\"b", u"C:\\new", u"a\r\nb\r\n\r\nc", u"\\\"\\n\"", u"有 ｱ"}) {
    EXPECT_EQ(Typed(u"type Text(3) " + FromUtf8(Quoted(text))), text);
  }
}

TEST(Choose, TakesATextOrAPositionFrom0) {
  EXPECT_EQ(Parsed<ChooseModel>(u"choose QHN 2").entry, u"QHN 2");
  EXPECT_EQ(Parsed<ChooseModel>(u"choose QHN 2").position, std::nullopt);
  EXPECT_EQ(Parsed<ChooseModel>(u"choose #0").position, 0);
  EXPECT_EQ(Parsed<ChooseModel>(u"choose #68").position, 68);
  EXPECT_EQ(Parsed<ChooseModel>(u"choose \"\"").entry, u"");
}

TEST(Choose, TakesWhatIsNoPositionForAText) {
  for (const StringView text : {u"#", u"#x", u"#1x", u"#-1", u"# 1"}) {
    const auto choose = Parsed<ChooseModel>(u"choose " + String(text));
    EXPECT_EQ(choose.position, std::nullopt) << ToUtf8(text);
    EXPECT_EQ(choose.entry, text);
  }
  EXPECT_EQ(Parsed<ChooseModel>(u"choose \"#1\"").position, std::nullopt);
  EXPECT_EQ(Parsed<ChooseModel>(u"choose \"#1\"").entry, u"#1");
}

TEST(Actions, NameTheirControlsCellsKeysAndTabs) {
  EXPECT_EQ(Parsed<ClickButton>(u"click Opt_Table(1)").control, "Opt_Table(1)");
  EXPECT_EQ(Parsed<PickEntry>(u"pick Combo(0) Tc-2: K (CA)").control, "Combo(0)");
  EXPECT_EQ(Parsed<PickEntry>(u"pick Combo(0) Tc-2: K (CA)").entry, u"Tc-2: K (CA)");
  const auto cell = Parsed<ClickCell>(u"cell LnrFlexGrid 3 1");
  EXPECT_EQ(cell.grid, "LnrFlexGrid");
  EXPECT_EQ(cell.row, 3);
  EXPECT_EQ(cell.column, 1);
  EXPECT_EQ(Parsed<ClickTab>(u"tab 4").tab, 4);
  EXPECT_EQ(Parsed<ShowControls>(u"show Text(0)  Text(1)").controls,
            (std::vector<std::string>{"Text(0)", "Text(1)"}));
  EXPECT_EQ(Parsed<DumpGrid>(u"dump LnrFlexGrid").grid, "LnrFlexGrid");
  Parsed<DumpItems>(u"dump");
  Parsed<StartProgram>(u"start");
  Parsed<PressClose>(u"close");
}

TEST(Key, IsOneOfFive) {
  EXPECT_EQ(Parsed<PressKey>(u"key txtLnrNewValue Enter").key, Key::Enter);
  EXPECT_EQ(Parsed<PressKey>(u"key txtLnrNewValue Up").key, Key::Up);
  EXPECT_EQ(Parsed<PressKey>(u"key txtLnrNewValue Down").key, Key::Down);
  EXPECT_EQ(Parsed<PressKey>(u"key txtLnrNewValue Left").key, Key::Left);
  EXPECT_EQ(Parsed<PressKey>(u"key txtLnrNewValue Right").key, Key::Right);
}

TEST(AnswerAction, QueuesSeveralAnswers) {
  EXPECT_EQ(Parsed<QueueAnswers>(u"answer ok cancel yes no").answers,
            (std::vector{Answer::Ok, Answer::Cancel, Answer::Yes, Answer::No}));
}

TEST(FileAction, TakesAPathOrACancel) {
  EXPECT_EQ(Parsed<QueueFile>(u"file /tmp/a b.cfg").path, u"/tmp/a b.cfg");
  EXPECT_EQ(Parsed<QueueFile>(u"file \"/tmp/ a.cfg\"").path, u"/tmp/ a.cfg");
  EXPECT_EQ(Parsed<QueueFile>(u"file cancel").path, std::nullopt);
  EXPECT_EQ(Parsed<QueueFile>(u"file \"cancel\"").path, u"cancel");
}

TEST(After, HoldsTheActionThatIsToCome) {
  const auto delay = Parsed<Delay>(u"after 150  type Text(0)  \"a \" ");
  EXPECT_EQ(delay.delay, Milliseconds(150));
  EXPECT_EQ(delay.statement->line, 1);
  EXPECT_EQ(delay.statement->source, u"type Text(0)  \"a \"");
  EXPECT_EQ(std::get<TypeText>(delay.statement->action).text, u"a ");
}

/// "after 1 " so many times, then an action.
String Nested(int depth) {
  String text;
  for (int count = 0; count < depth; ++count) {
    text += u"after 1 ";
  }
  return text + u"close";
}

TEST(After, NestsSixteenDeepAtMost) {
  Parsed<Delay>(Nested(16));
  EXPECT_EQ(ParseStatement(1, Nested(17)), std::nullopt);
  EXPECT_EQ(ParseStatement(1, Nested(100000)), std::nullopt);
}

TEST(WaitAction, TakesMilliseconds) {
  EXPECT_EQ(Parsed<Wait>(u"wait 0").duration, Milliseconds(0));
  EXPECT_EQ(Parsed<Wait>(u"wait 30000").duration, Milliseconds(30000));
}

}  // namespace
}  // namespace korva::cli
