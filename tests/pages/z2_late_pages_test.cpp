// The pages of families LiteForth and LiteFifth with simulated devices behind them.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "support/page_parts.h"
#include "support/tabs.h"
#include "z2_late_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

const std::string kMatches = "ｱｯﾌﾟﾛｰﾄﾞ: 選択された機種名は、接続された変換器と一致していますか。";
const std::string kStart = "ｱｯﾌﾟﾛｰﾄﾞ: ｱｯﾌﾟﾛｰﾄﾞを開始します。";
const std::string kOutOfRange = "設定値ﾁｪｯｸ: ｼｷｲ値の設定は、0.1V から 5V の範囲です。";

struct LatePagesTest : testing::TestWithParam<String> {
  LateBench bench{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Model, LatePagesTest, testing::Values(u"Z2WPR", u"Z2WPL"),
                         [](const auto& one) { return ToUtf8(one.param); });

// --- the page

TEST_P(LatePagesTest, HasItsSixTabsAndItsSpeed) {
  Texts captions;
  for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
    captions.push_back(ToUtf8(bench.Page().Tabs.TabCaption(tab)));
  }
  EXPECT_EQ(captions, (Texts{"ﾌｧｲﾙ", "入力", "出力", "ﾘﾆｱﾗｲｻﾞ", "I/O ﾁｪｯｸ", "ﾎﾟｰﾄ"}));
  EXPECT_EQ(bench.Page().Tabs.Name(), "z2KvCfg_Tab");
  EXPECT_EQ(bench.app.link.line.Settings(), u"9600,n,8,1");
}

TEST_P(LatePagesTest, EveryControlOfItsOwnStandsOnATab) {
  for (const char* name :
       {"cmdThresholdStart", "cmdThresholdP001", "cmdThresholdP01",   "cmdThresholdP1", "cmdThresholdM001",
        "cmdThresholdM01",   "cmdThresholdM1",   "lblThreshold",      "txtMeasFreq",    "unitMeasFreq",
        "cmdReadOutTable",   "cmdWriteInTable",  "Table_ProgressBar", "lblLnrLimits",   "cmd_csvFileOpen",
        "cmd_csvFileSave",   "cmdSet",           "cmdStatusMonOFF",   "Frame(0)",       "Frame(1)",
        "Combo(2)",          "Combo(3)",         "Combo(5)",          "Opt_Lnr(1)"}) {
    const Control* control = bench.Page().FindControl(name);
    ASSERT_NE(control, nullptr) << name;
    EXPECT_GE(bench.Page().TabOf(*control), 0) << name;
  }
  for (int index = 0; index < 44; ++index) {
    EXPECT_GE(bench.Page().TabOf(bench.Page().Text[index]), 0) << index;
    EXPECT_GE(bench.Page().TabOf(bench.Page().lbl_unit[index]), 0) << index;
    EXPECT_GE(bench.Page().TabOf(bench.Page().lbl_Item[index]), 0) << index;
    EXPECT_GE(bench.Page().TabOf(bench.Page().CaptionLabels[index]), 0) << index;
  }
  EXPECT_EQ(bench.Page().FindControl("txtSize"), nullptr) << "the size is LiteSecond's";
  EXPECT_EQ(bench.Page().FindControl("Lnr_OK") != nullptr, GetParam() == u"Z2WPL");
}

TEST_P(LatePagesTest, TheFrameStandsAroundTheThreshold) {
  for (const char* name :
       {"Text(10)", "lbl_unit(10)", "cmdThresholdStart", "cmdThresholdP1", "lblThreshold", "txtMeasFreq"}) {
    EXPECT_EQ(bench.Page().FindControl(name)->Container(), bench.Page().FindControl("Frame(1)")) << name;
  }
}

TEST_P(LatePagesTest, TheTableHasItsPointsAndTheLineOfItsLimits) {
  EXPECT_EQ(bench.Late().linearizer.LnrFlexGrid.Rows(), GetParam() == u"Z2WPR" ? 17 : 101);
  EXPECT_EQ(bench.Late().linearizer.lblLnrLimits.Caption(), u"-15.00% =< X(k),Y(k) =< 115.00%");
}

TEST_P(LatePagesTest, TheOptionOfItem10SetsItAndOpensTheTableTabUnlessItIsNone) {
  bench.Press(bench.Late().linearizer.Opt_Lnr, 1);
  EXPECT_EQ(bench.Page().Item(10), u"ON");
  EXPECT_TRUE(TabOpen(bench.Page(), TextKey::Linearizer));
  bench.Press(bench.Late().linearizer.Opt_Lnr, 0);
  EXPECT_EQ(bench.Page().Item(10), u"OFF");
  EXPECT_FALSE(TabOpen(bench.Page(), TextKey::Linearizer));
}

TEST_P(LatePagesTest, AnInputBringsItsUnitToTheRangeAndAQuantityToTheLiveValue) {
  bench.Pick(bench.Page().Combo[3], u"VOLTAGE 100kHz");
  EXPECT_EQ(bench.UnitOf(u"14"), u"kHz");
  EXPECT_EQ(bench.UnitOf(u"06"), u"kHz");
  bench.Pick(bench.Page().Combo[2], u"SPEED");
  EXPECT_EQ(bench.UnitOf(u"04"), u"rpm");
  EXPECT_EQ(bench.UnitOf(u"14"), u"kHz");
}

// --- upload

TEST_P(LatePagesTest, AnUploadAsksItsTwoQuestionsAndReadsTheRowsInTheDialectOfTheFirstLine) {
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes, Answer::Ok}),
            (Texts{kMatches, kStart, Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(bench.line.accesses.front(), "00/99") << "the link test reads the value, not a title";
  EXPECT_EQ(bench.Page().Item(9), u"2.50");
  EXPECT_EQ(bench.Page().Item(11), u"OPEN COL 100Hz");
  EXPECT_EQ(bench.Accesses("02/"), Texts{});
  EXPECT_EQ(bench.Accesses("01/60"), Texts{}) << "neither asks for the table nor moves it";
}

TEST_P(LatePagesTest, AnEmptyAnswerEmptiesTheCellAndTheUploadGoesOn) {
  bench.ReadLate();
  bench.line.replies["01/12"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes, Answer::Ok}).back(), Shown(BoxKey::UploadDone));
  EXPECT_EQ(bench.Page().Item(12), u"");
  EXPECT_EQ(bench.Page().Item(17), u"0.00");
}

TEST_P(LatePagesTest, AnUploadKeepsTheTableThatThePageHad) {
  bench.Press(bench.Late().linearizer.Opt_Lnr, 1);
  bench.FillTable({{u"0", u"0"}, {u"50", u"60"}});
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes, Answer::Ok}).size(), 3U);
  EXPECT_EQ(bench.Late().linearizer.Table().Value(2, 2), u"60");
}

// --- check and download

TEST_P(LatePagesTest, ADownloadComparesNoTypeAndNeitherAsksAboutTheTableNorMovesIt) {
  bench.ReadLate();
  bench.Type(u"02", u"P-1");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  const auto reads = [&](const std::string& access) {
    return std::count(bench.line.accesses.begin(), bench.line.accesses.end(), access);
  };
  // Each is read once before its write, and selected for it.
  EXPECT_EQ(reads("01/10"), 2);
  EXPECT_EQ(reads("01/11"), 2);
  EXPECT_EQ(bench.Accesses("02/"), Texts{});
  EXPECT_EQ(bench.Accesses("01/60"), Texts{});
  EXPECT_EQ(bench.device.Value("01", "02"), "P-1");
  EXPECT_EQ(bench.device.Mode(), '0');
}

TEST_P(LatePagesTest, TimesGoOutOnTheGridOf5MsecWithABoxForEachThatChanges) {
  bench.ReadLate();
  bench.Type(u"25", u"107");
  EXPECT_EQ(bench.BoxesOfDownload().front(),
            "設定値ﾁｪｯｸ: Item25 の値は、5msec単位に切り捨てました｡\n\r107msec -----> 105msec");
  EXPECT_EQ(bench.device.Value("01", "25"), "105");
}

struct BadField {
  String item;
  String text;
};
TEST_P(LatePagesTest, ACheckMarksEveryOpenFieldThatIsNoNumber) {
  bench.ReadLate();
  for (const BadField& bad : std::vector<BadField>{{u"14", u"1,5"}, {u"12", u"abc"}, {u"25", u"1x"}}) {
    const String before = bench.Field(bad.item).Text();
    bench.Type(bad.item, bad.text);
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad)) << ToUtf8(bad.item);
    EXPECT_EQ(bench.LookOf(bad.item), Look::Bad) << ToUtf8(bad.item);
    bench.Type(bad.item, before);
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone)) << ToUtf8(bad.item);
    EXPECT_EQ(bench.LookOf(bad.item), Look::Normal) << ToUtf8(bad.item);
  }
}

TEST_P(LatePagesTest, ABlankFieldIsToldAndATagOfElevenCharactersIsBad) {
  bench.ReadLate();
  bench.Type(u"12", u"");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank));
  bench.Type(u"12", u"1");
  bench.Type(u"02", u"12345678901");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.LookOf(u"02"), Look::Bad);
}

TEST_P(LatePagesTest, TheThresholdMustLieWithinTheLimitsOfItsRowInEveryCheck) {
  bench.ReadLate();
  for (const auto& [text, good] : std::vector<std::pair<String, bool>>{
           {u"0.1", true}, {u"5", true}, {u"0.09", false}, {u"5.01", false}, {u"-1", false}}) {
    bench.Type(u"09", text);
    EXPECT_EQ(bench.CheckResult(), Shown(good ? BoxKey::CheckDone : BoxKey::ValueBad)) << ToUtf8(text);
    EXPECT_EQ(bench.LookOf(u"09"), good ? Look::Normal : Look::Bad) << ToUtf8(text);
    EXPECT_EQ(bench.BoxesOfDownload().back(), Shown(good ? BoxKey::DownloadDone : BoxKey::ValueBad));
  }
  EXPECT_EQ(bench.device.Value("01", "09"), "5") << "what was refused was not sent";
}

TEST_P(LatePagesTest, ATableInUseIsPartOfTheCheck) {
  bench.ReadLate();
  bench.ReadTable();
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  bench.FillTable({{u"0", u"0"}, {u"0", u"10"}});
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad)) << "X(2) doesn't rise";
}

// --- the table by its buttons

TEST_P(LatePagesTest, ATableGoesOutByItsItemsAndComesBackTheSame) {
  bench.ReadLate();
  bench.Press(bench.Late().linearizer.Opt_Lnr, 1);
  bench.FillTable({{u"0", u"1"}, {u"50.5", u"60"}, {u"100", u"99.25"}});
  bench.Click(bench.Late().table_buttons.cmdWriteInTable);
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::TableWritten)});
  const bool short_table = GetParam() == u"Z2WPR";
  const std::string group = short_table ? "01" : "02";
  const std::string first = short_table ? "60" : "00";
  EXPECT_EQ(bench.Accesses(group + "/" + first + " D"), Texts{group + "/" + first + " D0"});
  EXPECT_EQ(bench.device.Value(group, short_table ? "65" : "05"), "99.25");
  EXPECT_EQ(bench.device.Mode(), '0');
  bench.FillTable({});
  bench.Click(bench.Late().table_buttons.cmdReadOutTable);
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::TableRead)});
  EXPECT_EQ(bench.Late().linearizer.Table().Value(2, 1), u"50.50");
  EXPECT_EQ(bench.Late().linearizer.Table().Value(3, 2), u"99.25");
  bench.ExpectAtRest();
}

// --- the threshold

TEST_P(LatePagesTest, TheThresholdIsSetWhileTheFrequencyIsWatched) {
  bench.ReadLate();
  EXPECT_TRUE(bench.device.Set("01", "06", "42.125"));
  bench.PressAt(1500ms, bench.Late().threshold.cmdThresholdP01);
  bench.loop.After(2500ms, [&] {
    EXPECT_EQ(bench.Page().WhyRefused(bench.Page().cmdUpload), "disabled");
    EXPECT_EQ(bench.Page().WhyRefused(bench.Page().lst_TypeSelect), "disabled");
    EXPECT_EQ(bench.Page().WhyRefused(bench.Late().table_buttons.cmdReadOutTable), "disabled");
    EXPECT_EQ(bench.Page().WhyRefused(bench.Page().cmdSave), "");
    EXPECT_EQ(bench.Page().WhyRefused(bench.Late().threshold.cmdThresholdM1), "");
  });
  bench.RunThreshold(3500ms);
  EXPECT_EQ(bench.device.Value("01", "09"), "2.6");
  EXPECT_EQ(bench.Page().Item(9), u"2.6") << "the set follows the device";
  EXPECT_EQ(bench.Late().threshold.txtMeasFreq.Text(), u"42.13");
  EXPECT_EQ(bench.Late().threshold.unitMeasFreq.Caption(), u"Hz");
  EXPECT_EQ(bench.Late().threshold.lblThreshold.Caption(), u"0.1V <= X <= 5V");
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
  bench.ExpectAtRest();
}

TEST_P(LatePagesTest, NothingIsReadForTheLimitsOfTheThreshold) {
  bench.ReadLate();
  bench.RunThreshold(500ms);
  EXPECT_EQ(bench.line.accesses,
            (Texts{"01/01", "01/01 D0", "01/21", "01/11", "01/09", "01/09 D2.50", "01/09", "01/06"}));
}

TEST_P(LatePagesTest, AStepBeyondTheLimitsIsToldOnceAndNotSent) {
  bench.ReadLate();
  bench.Type(u"09", u"4.95");
  bench.PressAt(1500ms, bench.Late().threshold.cmdThresholdP01);
  bench.RunThreshold(4s);
  EXPECT_EQ(bench.TakeBoxes(), Texts{kOutOfRange});
  EXPECT_EQ(bench.device.Value("01", "09"), "4.95");
  EXPECT_EQ(bench.LookOf(u"09"), Look::Bad);
}

TEST_P(LatePagesTest, ATurnOfTheLoopTakesWhatWireAndWaitsTake) {
  bench.ReadLate();
  std::vector<Clock> turns;
  bench.line.accesses.clear();
  bench.app.link.line.OnTraffic = [&](const SerialLink::Traffic& traffic) {
    if (traffic.sent && traffic.text == u"I09") {
      turns.push_back(bench.loop.Now());
    }
  };
  bench.RunThreshold(12s);
  ASSERT_GT(turns.size(), 8U);
  // At 9600 baud a character takes 10 / 9600 s. "G01" and "COK" are 4 characters each with their ends, "I09"
  // and "I06" 4; the answers are "DTHRSLD2.50" with 12 and "DPV:" with a number of 8 places, 13. Each of the
  // four replies comes 10 ms behind its command, and the two values are shown for half a second each.
  const double wire = (4.0 * 4 + 2 * 4 + 12 + 13) * 10 / 9600;
  const double expected = wire + 4 * 0.010 + 2 * 0.5;
  for (std::size_t at = 3; at < turns.size(); ++at) {
    const double turn = std::chrono::duration<double>(turns[at] - turns[at - 1]).count();
    EXPECT_NEAR(turn, expected, expected / 100) << at;
  }
}

// --- csv files

TEST(LatePagesCsv, AFileWith20PointsOnA16PointPageLoadsTheFirst16) {
  LateBench bench(u"Z2WPR");
  bench.Press(bench.Late().linearizer.Opt_Lnr, 1);
  String text;
  for (int point = 1; point <= 20; ++point) {
    const String number = FromUtf8(std::to_string(point));
    text.append(number).append(u",").append(number).append(u"0\n");
  }
  bench.PutText(u"/korva/data/t.csv", text);
  bench.dialogs.QueueFile(u"/korva/data/t.csv");
  bench.Click(bench.Late().linearizer.cmd_csvFileOpen);
  EXPECT_EQ(bench.Late().linearizer.Table().Value(16, 2), u"160");
  EXPECT_EQ(bench.Page().GroupItem.At(1, 91), u"160");
  EXPECT_EQ(bench.Page().GroupItem.At(1, 92), u"");
}

TEST(LatePagesCsv, AFileSavedByLiteSecondLoadsOnLiteFifthWithoutItsHeadLine) {
  LateBench bench(u"Z2WPL");
  bench.Press(bench.Late().linearizer.Opt_Lnr, 1);
  bench.PutText(u"/korva/data/t.csv", u"Size, 2 \n0.5,1\n99,100.00\n");
  bench.dialogs.QueueFile(u"/korva/data/t.csv");
  bench.Click(bench.Late().linearizer.cmd_csvFileOpen);
  EXPECT_EQ(bench.Late().linearizer.Table().Value(1, 1), u"0.5");
  EXPECT_EQ(bench.Late().linearizer.Table().Value(2, 2), u"100.00");
  EXPECT_EQ(bench.Late().linearizer.Table().Value(3, 1), u"");
}

TEST(LatePagesCsv, OpeningAFileCancelsAnOpenEditAndOnLiteFifthHidesItsField) {
  for (const char16_t* model : {u"Z2WPR", u"Z2WPL"}) {
    LateBench bench(model);
    bench.Press(bench.Late().linearizer.Opt_Lnr, 1);
    bench.Do([&] { bench.Late().linearizer.LnrFlexGrid.UserClicks(1, 1); });
    LnrEditor& editor = bench.Late().linearizer.Editor();
    bench.Type(editor.txtLnrNewValue, u"7");
    bench.Click(bench.Late().linearizer.cmd_csvFileOpen);  // and cancel its dialog
    EXPECT_FALSE(editor.IsOpen());
    EXPECT_EQ(editor.txtLnrNewValue.Visible(), String(model) == u"Z2WPR");
    EXPECT_EQ(bench.Late().linearizer.Table().Value(1, 1), u"");
  }
}

// --- LiteFifth: the keyboard in the editor

struct ArrowBench : LateBench {
  ArrowBench() : LateBench(u"Z2WPL") { Press(Late().linearizer.Opt_Lnr, 1); }
  LnrEditor& Editor() { return Late().linearizer.Editor(); }
  Grid& Table() { return Late().linearizer.LnrFlexGrid; }
  void Open(int row, int column) {
    Do([&] { Table().UserClicks(row, column); });
  }
  /// Types into the open cell and presses a key, which must be swallowed.
  void TypeAndPress(const String& text, Key key) {
    Type(Editor().txtLnrNewValue, text);
    Do([&] { EXPECT_TRUE(Editor().txtLnrNewValue.UserPresses(key)); });
  }
  /// The open cell, "row,column"; empty when none is.
  std::string Cell() {
    return Editor().IsOpen() ? ToUtf8(Editor().txtLnrRow.Text() + u"," + Editor().txtLnrCol.Text()) : "";
  }
};

struct ArrowCase {
  Key key;
  int row;
  int column;
  std::string then;  ///< the cell that is open then
  const char* name = "";
};
struct ArrowTest : testing::TestWithParam<ArrowCase> {};
INSTANTIATE_TEST_SUITE_P(Key, ArrowTest,
                         testing::Values(ArrowCase{Key::Enter, 5, 1, "", "EnterTakesTheText"},
                                         ArrowCase{Key::Down, 5, 1, "6,1", "DownGoesARowDown"},
                                         ArrowCase{Key::Down, 100, 2, "100,2",
                                                   "DownAtRow100CommitsTheEditAndStays"},
                                         ArrowCase{Key::Up, 5, 2, "4,2", "UpGoesARowUp"},
                                         ArrowCase{Key::Up, 1, 1, "1,1", "UpAtRow1CommitsAndStays"},
                                         ArrowCase{Key::Right, 5, 1, "5,2", "RightGoesToY"},
                                         ArrowCase{Key::Right, 5, 2, "5,2", "RightInYCommitsAndStays"},
                                         ArrowCase{Key::Left, 5, 2, "5,1", "LeftGoesToX"},
                                         ArrowCase{Key::Left, 5, 1, "5,1", "LeftInXCommitsAndStays"}),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(ArrowTest, InTheFieldOfAnEdit) {
  const ArrowCase& one = GetParam();
  ArrowBench bench;
  bench.Open(one.row, one.column);
  bench.TypeAndPress(u"12.5", one.key);
  EXPECT_EQ(bench.Late().linearizer.Table().Value(one.row, one.column), u"12.5");
  EXPECT_EQ(bench.Cell(), one.then);
  EXPECT_TRUE(bench.Page().DataChanged);
  EXPECT_EQ(bench.TakeBoxes(), Texts{}) << "nothing is asked about a text that was taken";
}

TEST(LiteFifthEditor, UpLetsTheTopRowOfTheGridFollow) {
  ArrowBench bench;
  bench.Do([&] { bench.Table().UserScrolls(5); });
  bench.Open(5, 1);
  bench.TypeAndPress(u"1", Key::Up);
  EXPECT_EQ(bench.Table().TopRow(), 4);
  EXPECT_TRUE(bench.Editor().txtLnrNewValue.Visible()) << "the page scrolled, not the user";
}

TEST(LiteFifthEditor, EscapeLeavesTheCellAsItWas) {
  ArrowBench bench;
  bench.Open(5, 1);
  bench.TypeAndPress(u"1", Key::Escape);
  EXPECT_EQ(bench.Late().linearizer.Table().Value(5, 1), u"");
  EXPECT_EQ(bench.Cell(), "");
}

TEST(LiteFifthEditor, LnrOkTakesTheTextAndHidesTheField) {
  ArrowBench bench;
  bench.Open(5, 2);
  bench.Type(bench.Editor().txtLnrNewValue, u"33");
  bench.Click(bench.Late().linearizer.Lnr_OK);
  EXPECT_EQ(bench.Late().linearizer.Table().Value(5, 2), u"33");
  EXPECT_FALSE(bench.Editor().txtLnrNewValue.Visible());
  EXPECT_EQ(bench.Page().WhyRefused(bench.Late().linearizer.Lnr_OK), "hidden") << "nothing is open to take";
  bench.Open(6, 2);
  EXPECT_TRUE(bench.Editor().txtLnrNewValue.Visible());
}

TEST(LiteFifthEditor, AScrollOfTheGridAndAnotherTabHideTheField) {
  ArrowBench bench;
  bench.Open(5, 2);
  bench.Do([&] { bench.Table().UserScrolls(3); });
  EXPECT_FALSE(bench.Editor().txtLnrNewValue.Visible());
  EXPECT_FALSE(bench.Editor().lblLnrNewValue.Visible()) << "with its caption";
  bench.Open(5, 2);
  EXPECT_TRUE(bench.Editor().txtLnrNewValue.Visible());
  bench.Do([&] { bench.Page().Tabs.SetCurrent(1); });
  EXPECT_FALSE(bench.Editor().txtLnrNewValue.Visible());
}

TEST(LiteForthEditor, KeepsItsFieldAndGoesDownByEnterAlone) {
  LateBench bench(u"Z2WPR");
  bench.Press(bench.Late().linearizer.Opt_Lnr, 1);
  LnrEditor& editor = bench.Late().linearizer.Editor();
  bench.Do([&] { bench.Late().linearizer.LnrFlexGrid.UserClicks(5, 1); });
  bench.Do([&] {
    EXPECT_FALSE(editor.txtLnrNewValue.UserPresses(Key::Down));
    bench.Late().linearizer.LnrFlexGrid.UserScrolls(3);
    bench.Page().Tabs.SetCurrent(1);
  });
  EXPECT_TRUE(editor.txtLnrNewValue.Visible());
  EXPECT_TRUE(editor.IsOpen());
}

// --- LiteFifth: the class of the input

struct ClassBench : LateBench {
  ClassBench() : LateBench(u"Z2WPL") {}
  void ExpectClosed() {
    EXPECT_EQ(Page().Combo[5].Text(), u"");
    EXPECT_TRUE(Page().Combo[5].Entries().empty());
    EXPECT_TRUE(Page().Combo[5].Locked());
    EXPECT_EQ(Page().Combo[5].ShownLook(), Look::Grey);
    EXPECT_EQ(Page().Text[10].Text(), u"");
    EXPECT_TRUE(Page().Text[10].Locked());
    EXPECT_EQ(Page().Text[10].ShownLook(), Look::Grey);
    EXPECT_FALSE(Page().Frames[1].Enabled());
    EXPECT_FALSE(Late().threshold.cmdThresholdStart.Enabled());
    EXPECT_EQ(Page().Item(8), u"OFF");
    EXPECT_EQ(Page().Item(9), u"0");
  }
  void ExpectOpen(const String& supply, const String& threshold) {
    EXPECT_EQ(Page().Combo[5].Text(), supply);
    EXPECT_EQ(Page().Combo[5].Entries().size(), 7U);
    EXPECT_FALSE(Page().Combo[5].Locked());
    EXPECT_EQ(Page().Text[10].Text(), threshold);
    EXPECT_FALSE(Page().Text[10].Locked());
    EXPECT_TRUE(Page().Frames[1].Enabled());
    EXPECT_TRUE(Late().threshold.cmdThresholdStart.Enabled());
  }
};

TEST(InputClasses, AnUploadFromALineReceiverClosesItsSupplyAndItsThreshold) {
  ClassBench bench;
  ASSERT_TRUE(bench.device.Set("01", "11", "RS-422 100kHz"));
  ASSERT_TRUE(bench.device.Set("01", "08", "12 V"));
  bench.ReadLate();
  bench.ExpectClosed();
}

TEST(InputClasses, AChoiceOfALineReceiverClosesThemAndOfAnyOtherInputOpensThemAgain) {
  ClassBench bench;
  bench.ReadLate();
  bench.Pick(bench.Page().Combo[5], u"12 V");
  bench.ExpectOpen(u"12 V", u"2.50");
  bench.Pick(bench.Page().Combo[3], u"RS-422 1000Hz");
  bench.ExpectClosed();
  EXPECT_EQ(bench.Page().WhyRefused(bench.Late().threshold.cmdThresholdStart), "disabled");
  for (const char16_t* other : {u"OPEN COL 10kHz", u"VOLTAGE 100Hz", u"MAGNET 500mHz"}) {
    bench.Pick(bench.Page().Combo[3], other);
    bench.ExpectOpen(u"OFF", u"0");
    bench.Pick(bench.Page().Combo[3], u"RS-422 100kHz");
    bench.ExpectClosed();
  }
}

TEST(InputClasses, AFileANewSetAndAModelChoiceFollowTheInputToo) {
  ClassBench bench;
  bench.ReadLate();
  bench.Save(u"/korva/data/open.cfg");
  bench.Pick(bench.Page().Combo[3], u"RS-422 100kHz");
  bench.Save(kFile);
  bench.New();
  bench.ExpectOpen(u"", u"");
  bench.Open(kFile);
  bench.ExpectClosed();
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.Open(u"/korva/data/open.cfg");
  bench.ExpectOpen(u"OFF", u"2.50");
  bench.Open(kFile);
  bench.Choose(u"Z2WPL");
  bench.ExpectClosed();
}

TEST(InputClasses, TheTabOfTheThresholdIsRefreshedWhenItIsEntered) {
  ClassBench bench;
  bench.ReadLate();
  bench.Pick(bench.Page().Combo[3], u"RS-422 100kHz");
  bench.Do([&] { bench.Late().threshold.cmdThresholdStart.SetEnabled(true); });
  bench.Do([&] { bench.Page().Tabs.SetCurrent(4); });
  bench.ExpectClosed();
}

TEST(InputClasses, ADownloadSendsZeroAndTheFirstTextAndPassesItsCheck) {
  ClassBench bench;
  ASSERT_TRUE(bench.device.Set("01", "08", "12 V"));
  bench.ReadLate();
  bench.Pick(bench.Page().Combo[3], u"RS-422 100kHz");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "11"), "RS-422 100kHz");
  EXPECT_EQ(bench.device.Value("01", "08"), "OFF");
  EXPECT_EQ(bench.device.Value("01", "09"), "0");
  EXPECT_EQ(bench.Accesses("01/09 D"), Texts{"01/09 D0"});
  EXPECT_EQ(bench.Accesses("01/08 D"), Texts{"01/08 D0"});
}

TEST(InputClasses, ALineReceiverThatIsChosenAtAnyPumpOfTheLoopEndsItAndStaysClosed) {
  ClassBench whole;
  whole.ReadLate();
  const std::size_t before = whole.loop.PumpCount();
  whole.RunThreshold(1500ms);
  const std::size_t pumps = whole.loop.PumpCount() - before;
  ASSERT_GT(pumps, 20U);
  for (std::size_t at = 0; at < pumps; ++at) {
    SCOPED_TRACE(at);
    ClassBench bench;
    bench.ReadLate();
    bench.loop.OnPump([&, first = bench.loop.PumpCount() + 1, at] {
      if (bench.loop.PumpCount() == first + at) {
        bench.Pick(bench.Page().Combo[3], u"RS-422 100kHz");
      }
    });
    bench.RunThreshold(1500ms);
    bench.loop.OnPump(nullptr);
    bench.ExpectClosed();
    EXPECT_TRUE(bench.Page().cmdUpload.Enabled());
    ASSERT_FALSE(HasFailure());
  }
}

TEST(InputClasses, TheOtherPageHasNone) {
  LateBench bench(u"Z2WPR");
  bench.ReadLate();
  EXPECT_TRUE(bench.Late().threshold.Usable());
  for (const String& input : bench.Page().Combo[3].Entries()) {
    bench.Pick(bench.Page().Combo[3], input);
    EXPECT_FALSE(bench.Page().Combo[5].Locked()) << ToUtf8(input);
  }
}

}  // namespace
}  // namespace korva::test
