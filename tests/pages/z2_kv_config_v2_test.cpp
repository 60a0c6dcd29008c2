// The page of family LiteSecond with a simulated device behind it.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "support/page_parts.h"
#include "support/tabs.h"
#include "z2_kv_config_v2_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

const std::string kModelQuestion = "ｱｯﾌﾟﾛｰﾄﾞ: 選択された機種名は、接続された変換器と一致していますか。";
const std::string kStartQuestion = "ｱｯﾌﾟﾛｰﾄﾞ: ｱｯﾌﾟﾛｰﾄﾞを開始します。";

// The page.

TEST(Z2KvConfigV2, HasItsSixTabsAndItsSpeed) {
  Z2V2Bench bench;
  std::vector<std::string> captions;
  captions.reserve(6);
  for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
    captions.push_back(ToUtf8(bench.Page().Tabs.TabCaption(tab)));
  }
  EXPECT_EQ(captions, (Texts{"ﾌｧｲﾙ", "入力", "出力", "ﾘﾆｱﾗｲｻﾞ", "I/O ﾁｪｯｸ", "ﾎﾟｰﾄ"}));
  EXPECT_EQ(bench.Page().Tabs.Name(), "z2KvCfg_Tab");
  EXPECT_EQ(bench.app.link.line.Settings(), u"9600,n,8,1");
}

TEST(Z2KvConfigV2, EveryControlOfItsOwnStandsOnATabAndNoneOfThemInTheDetails) {
  Z2V2Bench bench;
  for (const char* name :
       {"cmdDetailInfo",     "cmdCloseInfo",    "cmdSetCutOut",    "cmdDisableCutOut", "cmdThresholdStart",
        "cmdThresholdP001",  "cmdThresholdM1",  "lblThreshold",    "txtMeasFreq",      "unitMeasFreq",
        "cmdOutZeroStart",   "cmdOutZeroP001",  "cmdOutZeroP01",   "cmdOutZeroM001",   "cmdOutZeroM01",
        "cmdOutZeroReset",   "cmdOutSpanStart", "cmdOutSpanP001",  "cmdOutSpanP01",    "cmdOutSpanM001",
        "cmdOutSpanM01",     "cmdOutSpanReset", "txtSize",         "cmdReadOutTable",  "cmdWriteInTable",
        "Table_ProgressBar", "lblLnrLimits",    "cmd_csvFileOpen", "cmd_csvFileSave",  "cmdSet",
        "cmdStatusMonOFF",   "Text(3)",         "Text(4)",         "Text(13)",         "Text(14)",
        "Combo(0)",          "Combo(1)",        "Combo(2)",        "Frame(0)",         "LnrFlexGrid"}) {
    const Control* control = bench.Page().FindControl(name);
    ASSERT_NE(control, nullptr) << name;
    EXPECT_GE(bench.Page().TabOf(*control), 0) << name << " stands on no tab";
    EXPECT_NE(control->Container(), &bench.V2().details.fraDetailInfo) << name;
  }
  for (int index = 0; index < 44; ++index) {
    EXPECT_GE(bench.Page().TabOf(bench.Page().Text[index]), 0) << index;
    EXPECT_GE(bench.Page().TabOf(bench.Page().lbl_unit[index]), 0) << index;
    EXPECT_GE(bench.Page().TabOf(bench.Page().lbl_Item[index]), 0) << index;
    EXPECT_GE(bench.Page().TabOf(bench.Page().CaptionLabels[index]), 0) << index;
  }
}

TEST(Z2KvConfigV2, TheOptionOfItem61SetsItAndOpensTheTableTabUnlessItIsNone) {
  Z2V2Bench bench;
  bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
  EXPECT_EQ(bench.Page().Item(61), u"ON");
  EXPECT_TRUE(TabOpen(bench.Page(), TextKey::Linearizer));
  bench.Press(bench.V2().linearizer.Opt_Lnr, 0);
  EXPECT_EQ(bench.Page().Item(61), u"OFF");
  EXPECT_FALSE(TabOpen(bench.Page(), TextKey::Linearizer));
}

// The details.

TEST(Z2KvConfigV2Details, TheButtonShowsTheFrameAndIsDisabledWhileItShowsAndNothingIsSent) {
  Z2V2Bench bench;
  DetailFrame& details = bench.V2().details;
  EXPECT_FALSE(details.fraDetailInfo.Visible());
  EXPECT_EQ(details.cmdDetailInfo.Caption(), u"詳細設定");
  EXPECT_EQ(details.cmdCloseInfo.Caption(), u"閉じる");
  bench.Click(details.cmdDetailInfo);
  EXPECT_TRUE(details.fraDetailInfo.Visible());
  EXPECT_FALSE(details.cmdDetailInfo.Enabled()) << "a second press can't happen";
  bench.Click(details.cmdCloseInfo);
  EXPECT_FALSE(details.fraDetailInfo.Visible());
  EXPECT_TRUE(details.cmdDetailInfo.Enabled());
  EXPECT_EQ(bench.line.accesses, Texts());
  EXPECT_FALSE(bench.Page().DataChanged);
}

TEST(Z2KvConfigV2Details, AFaultInsideOpensTheFrame) {
  Z2V2Bench bench;
  bench.ReadV2();
  DetailFrame& details = bench.V2().details;
  bench.Click(details.cmdDetailInfo);
  for (const char16_t* text : {u"x", u""}) {
    bench.Type(u"16", text);
    bench.Click(details.cmdCloseInfo);
    bench.CheckResult();
    EXPECT_TRUE(details.fraDetailInfo.Visible()) << ToUtf8(text);
  }
}

// The cut-out.

TEST(Z2KvConfigV2CutOut, DisableAndThenADownloadWritesMinus10AndTheBoxReadsDisable) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Click(bench.V2().cut_out.cmdDisableCutOut);
  EXPECT_EQ(bench.Field(u"11").Text(), u"Disable");
  EXPECT_TRUE(bench.Field(u"11").Locked());
  EXPECT_EQ(bench.LookOf(u"11"), Look::Grey);
  EXPECT_EQ(bench.Page().Item(11), u"-10");
  EXPECT_TRUE(bench.Page().DataChanged);
  EXPECT_EQ(bench.line.accesses, Texts()) << "neither button talks to the device";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.Accesses("01/11 D-"), Texts{"01/11 D-10"});
  EXPECT_EQ(bench.device.Value("01", "11"), "-10");
  EXPECT_EQ(bench.Field(u"11").Text(), u"Disable");
}

TEST(Z2KvConfigV2CutOut, SetOpensTheBoxWith0) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Click(bench.V2().cut_out.cmdDisableCutOut);
  bench.Click(bench.V2().cut_out.cmdSetCutOut);
  EXPECT_EQ(bench.Field(u"11").Text(), u"0");
  EXPECT_FALSE(bench.Field(u"11").Locked());
  EXPECT_EQ(bench.LookOf(u"11"), Look::Normal);
  EXPECT_EQ(bench.Page().Item(11), u"0");
  bench.Type(u"11", u"2.5");
  EXPECT_EQ(bench.Page().Item(11), u"2.5");
}

TEST(Z2KvConfigV2CutOut, AnUploadOrAFileWithMinus10ShowsDisable) {
  for (const char* value : {"-10", "-10.0"}) {
    Z2V2Bench bench;
    ASSERT_TRUE(bench.device.Set("01", "11", value));
    bench.ReadV2();
    EXPECT_EQ(bench.Field(u"11").Text(), u"Disable");
    EXPECT_TRUE(bench.Field(u"11").Locked());
    EXPECT_EQ(ToUtf8(bench.Page().Item(11)), value);
    bench.Save(kFile);
    bench.Click(bench.V2().cut_out.cmdSetCutOut);
    bench.dialogs.QueueAnswer(Answer::No);
    bench.Open(kFile);
    EXPECT_EQ(bench.Field(u"11").Text(), u"Disable");
  }
}

TEST(Z2KvConfigV2CutOut, ABoxThatReadsDisableIsGoodAndCarriesNoMark) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Type(u"11", u"Disable");
  EXPECT_EQ(bench.Page().Item(11), u"-10");
  EXPECT_FALSE(bench.Field(u"11").Marked());
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  bench.Type(u"11", u"disabled");
  EXPECT_TRUE(bench.Field(u"11").Marked());
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.LookOf(u"11"), Look::Bad);
}

// Upload.

TEST(Z2KvConfigV2Upload, AsksLikeFirstTakesItem22ToMonitorModeAndReadsEachItemOnce) {
  Z2V2Bench bench;
  EXPECT_EQ(bench.BoxesOfV2Upload(), (Texts{kModelQuestion, kStartQuestion, Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(bench.line.accesses.front(), "00/99") << "the system text is the title";
  EXPECT_EQ(bench.Accesses("01/22 "), Texts{"01/22 D0"});
  EXPECT_EQ(bench.Accesses("01/28 "), Texts{"01/28 D"});
  EXPECT_EQ(bench.Accesses("01/10"), Texts()) << "nothing is collated";
  EXPECT_TRUE(bench.Page().DataChanged);
  bench.ExpectAtRest();
}

TEST(Z2KvConfigV2Upload, ANoOrACancelReadsNothing) {
  Z2V2Bench bench;
  EXPECT_EQ(bench.BoxesOfUpload({Answer::No}), Texts{kModelQuestion});
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes, Answer::Cancel}), (Texts{kModelQuestion, kStartQuestion}));
  EXPECT_EQ(bench.Accesses("01/"), Texts());
}

TEST(Z2KvConfigV2Upload, Item28IsReadOnceAndFillsBothBoxes) {
  Z2V2Bench bench;
  ASSERT_TRUE(bench.device.Set("01", "28", "0.0150 0.9875"));
  bench.ReadV2();
  EXPECT_EQ(bench.Field(u"28_zero").Text(), u"1.50");
  EXPECT_EQ(bench.Field(u"28_span").Text(), u"98.75");
  EXPECT_EQ(bench.Page().Item(28), u"0.0150 0.9875");
  bench.Save(kFile);
  bench.New();
  EXPECT_EQ(bench.Field(u"28_zero").Text(), u"");
  bench.Open(kFile);
  EXPECT_EQ(bench.Field(u"28_zero").Text(), u"1.50");
  EXPECT_EQ(bench.Field(u"28_span").Text(), u"98.75");
}

TEST(Z2KvConfigV2Upload, WithoutAValueForItem28TheBoxesAre0And100) {
  for (const auto& reply : {std::optional<std::string>(), std::optional<std::string>("CNG")}) {
    Z2V2Bench bench;
    bench.line.replies["01/28 D"] = reply;
    bench.ReadV2();
    EXPECT_EQ(bench.Field(u"28_zero").Text(), u"0");
    EXPECT_EQ(bench.Field(u"28_span").Text(), u"100");
  }
}

TEST(Z2KvConfigV2Upload, DropsTheUnitBehindAValueAndEmptiesTheCellOfAnItemWithoutAnswer) {
  Z2V2Bench bench;
  bench.line.replies["01/30 D"] = "D          0.07 V";
  bench.line.replies["01/15 D"] = "D       12.50 kHz";
  bench.line.replies["01/08 D"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfV2Upload(), (Texts{kModelQuestion, kStartQuestion, Shown(BoxKey::UploadDone)}))
      << "it goes on";
  EXPECT_EQ(bench.Page().Item(30), u"0.07");
  EXPECT_EQ(bench.Page().Item(15), u"12.50");
  EXPECT_EQ(bench.Page().Item(8), u"");
  EXPECT_EQ(bench.Page().Item(9), u"50");
}

TEST(Z2KvConfigV2Upload, Item33IsToldByTheTextOfItsRowOrByItsIndex) {
  for (const char* reply : {"D       5 Vp-p", "D              3"}) {
    Z2V2Bench bench;
    bench.line.replies["01/33 D"] = reply;
    bench.ReadV2();
    EXPECT_EQ(bench.Page().Item(33), u"5 Vp-p") << reply;
    EXPECT_EQ(bench.V2().Combo[2].Text(), u"5 Vp-p");
  }
}

TEST(Z2KvConfigV2Upload, NeitherAsksAboutTheTableNorMovesIt) {
  Z2V2Bench bench;
  ASSERT_TRUE(bench.device.Set("01", "61", "ON"));
  bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
  bench.FillTable({{u"0", u"1"}, {u"50", u"60"}});
  EXPECT_EQ(bench.BoxesOfV2Upload(), (Texts{kModelQuestion, kStartQuestion, Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(bench.Accesses("01/62"), Texts());
  EXPECT_EQ(bench.V2().linearizer.LnrFlexGrid.At(2, 2).text, u"60");
  EXPECT_EQ(bench.Page().GroupItem.At(2, 2), u"50");
  EXPECT_TRUE(TabOpen(bench.Page(), TextKey::Linearizer));
}

// Download.

TEST(Z2KvConfigV2Download, GoesThroughItem22WritesEachParameterAndNoneOfTheLiveOnes) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Type(u"02", u"PUMP 1");
  bench.Type(u"15", u"250");
  bench.Pick(bench.V2().Combo[2], u"10 Vp-p");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.Accesses("01/22 "), (Texts{"01/22 D0", "01/22 D1", "01/22 D0", "01/22 D0"}))
      << "before the checks, for the writes, behind them and at the end";
  EXPECT_EQ(bench.Accesses("01/33 D4"), Texts{"01/33 D4"}) << "a choice goes as its code";
  for (const char* item : {"01/10", "01/24", "01/28", "01/29", "01/30", "01/62"}) {
    EXPECT_EQ(bench.Accesses(item), Texts()) << item;
  }
  EXPECT_EQ(Trimmed(FromUtf8(bench.device.Value("01", "02"))), u"PUMP 1");
  EXPECT_EQ(bench.device.Value("01", "15"), "250");
  EXPECT_EQ(bench.device.Value("01", "33"), "10 Vp-p");
  bench.ExpectAtRest();
}

TEST(Z2KvConfigV2Download, CutsTimesToTheGridOf5MsecWithABoxForEachThatChanges) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Click(bench.V2().details.cmdDetailInfo);
  bench.Type(u"08", u"7");
  bench.Type(u"09", u"104.6");
  bench.Type(u"16", u"7");
  EXPECT_EQ(bench.BoxesOfDownload(),
            (Texts{"設定値ﾁｪｯｸ: Item08 の値は、5msec単位に切り捨てました｡\n\r7msec -----> 5msec",
                   Shown(BoxKey::DownloadDone)}));
  EXPECT_EQ(bench.device.Value("01", "08"), "5");
  EXPECT_EQ(bench.device.Value("01", "09"), "105") << "a whole number first";
  EXPECT_EQ(bench.device.Value("01", "16"), "7") << "no time";
}

TEST(Z2KvConfigV2Download, AChoiceThatComesBackAsTheIndexOfItsRowIsProved) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Pick(bench.V2().Combo[2], u"1 Vp-p");
  bench.line.replies["01/33 D2"] = "D              2";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  bench.line.replies["01/33 D2"] = "D              3";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDataMismatch)});
}

TEST(Z2KvConfigV2Download, NeitherAsksAboutTheTableNorMovesIt) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
  bench.FillTable({{u"0", u"0"}, {u"100", u"100"}});
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.Accesses("01/62"), Texts());
}

// The check.

TEST(Z2KvConfigV2Check, LiveBoxesMayBeBlankAndAnyOtherFieldNot) {
  Z2V2Bench bench;
  bench.ReadV2();
  for (const char16_t* item : {u"24_set", u"28_zero", u"28_span", u"30"}) {
    bench.Type(item, u"");
  }
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  bench.Type(u"14", u"");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::FieldBlank));
}

TEST(Z2KvConfigV2Check, EveryOpenParameterFieldIsANumber) {
  for (const char16_t* item : {u"14", u"15", u"11", u"09"}) {
    Z2V2Bench bench;
    bench.ReadV2();
    bench.Type(item, u"1,5");
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
    EXPECT_EQ(bench.LookOf(item), Look::Bad);
    bench.Type(item, u"1.5");
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
    EXPECT_EQ(bench.LookOf(item), Look::Normal);
  }
}

TEST(Z2KvConfigV2Check, TheTagIsCheckedAndABlankOneBecomesTenBlanks) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Type(u"02", u"ABCDEFGHIJK");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::ValueBad));
  bench.Type(u"02", u"");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  EXPECT_EQ(bench.Page().Item(2), u"          ");
}

TEST(Z2KvConfigV2Check, TheTableInUseMustRiseStrictlyWithinItsLimits) {
  struct Case {
    std::vector<std::pair<String, String>> points;
    BoxKey box;
  };
  for (const Case& one :
       {Case{{{u"0", u"5"}, {u"100", u"1"}}, BoxKey::CheckDone},
        Case{{{u"0", u"0"}, {u"0", u"1"}}, BoxKey::ValueBad},
        Case{{{u"0", u"0"}, {u"115.01", u"1"}}, BoxKey::ValueBad}, Case{{{u"0", u"0"}}, BoxKey::ValueBad},
        Case{{{u"50", u"0"}, {u"200", u"1"}, {u"100", u"1"}}, BoxKey::ValueBad}}) {
    Z2V2Bench bench;
    bench.ReadV2();
    bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
    bench.FillTable(one.points);
    EXPECT_EQ(bench.CheckResult(), Shown(one.box));
    bench.Press(bench.V2().linearizer.Opt_Lnr, 0);
    EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone)) << "switched off";
  }
}

// Files.

TEST(Z2KvConfigV2Files, TheTableStandsAheadOfTheValuesAndItsSizeBehindThem) {
  Z2V2Bench bench;
  bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
  bench.Do([&] {
    bench.Page().SetItem(2, u"T");
    bench.Page().SetItem(16, u"4");
    bench.Page().BuildPage();
  });
  bench.FillTable({{u"0", u"1.50"}, {u"50", u"60"}});
  bench.Do([&] { bench.V2().linearizer.Table().Store(51, 1, u"99"); });
  bench.Type(bench.V2().table.txtSize, u"2");
  bench.Save(kFile);
  EXPECT_EQ(ToUtf8(bench.TextOf(kFile)),
            "$DefFile\r\n\"Z2WQ.def\"\r\n$Data\r\n\"2\",\"0\",\"0\"\r\n\"2\",\"1\",\"1.50\"\r\n"
            "\"2\",\"2\",\"50\"\r\n\"2\",\"3\",\"60\"\r\n\"3\",\"0\",\"99\"\r\n\"1\",\"2\",\"T\"\r\n"
            "\"1\",\"16\",\"4\"\r\n\"1\",\"61\",\"ON\"\r\n$TableSize\r\n\"5\",\"0\",\"2\"\r\n"
            "$Memo\r\n\"0\",\"\"\r\n\"1\",\"\"\r\n$End\r\n");
  bench.New();
  EXPECT_EQ(bench.V2().table.txtSize.Text(), u"");
  bench.Open(kFile);
  EXPECT_EQ(bench.V2().linearizer.LnrFlexGrid.At(1, 2).text, u"1.50");
  EXPECT_EQ(bench.V2().linearizer.LnrFlexGrid.At(51, 1).text, u"99");
  EXPECT_EQ(bench.V2().table.txtSize.Text(), u"2");
}

// The output.

TEST(Z2KvConfigV2Output, IsForcedByItem24InProgrammingModeOfItem22AndHeldUntilOff) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Type(u"24_set", u"62.5");
  bench.Click(bench.V2().output.cmdSet);
  EXPECT_EQ(bench.line.accesses, (Texts{"01/22", "01/22 D1", "01/24", "01/24 D62.5"}));
  EXPECT_EQ(bench.Field(u"24_mon").Text(), u"62.50");
  EXPECT_EQ(bench.LookOf(u"24_mon"), Look::Grey);
  EXPECT_EQ(bench.device.Value("01", "24"), "62.50");
  for (const char16_t* item : {u"24_set", u"30", u"28_zero", u"28_span"}) {
    EXPECT_TRUE(bench.Field(item).Locked()) << ToUtf8(item);
  }
  EXPECT_FALSE(bench.V2().zero_trim.StartButton.Enabled());
  EXPECT_FALSE(bench.V2().threshold.cmdThresholdStart.Enabled());
  bench.Click(bench.V2().output.cmdStatusMonOFF);
  EXPECT_EQ(bench.device.Mode(), '0');
  for (const char16_t* item : {u"24_set", u"30", u"28_zero", u"28_span"}) {
    EXPECT_FALSE(bench.Field(item).Locked()) << ToUtf8(item);
  }
  bench.ExpectAtRest();
}

TEST(Z2KvConfigV2Output, TakesMinus15To115) {
  struct Case {
    const char16_t* typed;
    bool good;
  };
  for (const Case& one :
       {Case{u"115.00", true}, Case{u"115.01", false}, Case{u"-15.00", true}, Case{u"-15.01", false}}) {
    Z2V2Bench bench;
    bench.Type(u"24_set", one.typed);
    bench.Click(bench.V2().output.cmdSet);
    EXPECT_EQ(bench.app.program.Shared().CommBusy, one.good) << ToUtf8(one.typed);
    EXPECT_EQ(bench.TakeBoxes(),
              one.good ? Texts{} : Texts{"設定値ﾁｪｯｸ: 出力設定値は、-15.00% から 115.00% の範囲です。"});
  }
}

// The monitor.

TEST(Z2KvConfigV2Monitor, ReadsItems06And07WithTwoDecimalsAndTheUnitThatItem03Tells) {
  struct Case {
    const char* code;
    const char16_t* unit;
  };
  for (const Case& one : {Case{"0", u"mHz"}, Case{"1", u"Hz"}, Case{"2", u"kHz"}, Case{"3", u""}}) {
    Z2V2Bench bench;
    ASSERT_TRUE(bench.device.Set("01", "03", one.code) && bench.device.Set("01", "06", "7.5") &&
                bench.device.Set("01", "07", "50"));
    bench.PressAt(1s, bench.V2().monitor.cmdMonitorOFF);
    bench.Click(bench.V2().monitor.cmdMonitorON);
    EXPECT_EQ(bench.Field(u"06").Text(), u"7.50");
    EXPECT_EQ(bench.Field(u"07").Text(), u"50.00");
    EXPECT_EQ(bench.UnitOf(u"06"), one.unit);
    EXPECT_EQ(bench.V2().threshold.unitMeasFreq.Caption(), one.unit);
    EXPECT_EQ(bench.Accesses("01/22 "), Texts{"01/22 D0"});
  }
}

// The live loops.

TEST(Z2KvConfigV2Trim, StartCarriesTheTypedValueAStepMovesItAndTheOutputFollows) {
  Z2V2Bench bench;
  ASSERT_TRUE(bench.device.Set("01", "28", "0.0100 1.0000"));
  bench.ReadV2();
  bench.Type(u"28_zero", u"1.50");
  bench.PressAt(500ms, bench.V2().zero_trim.M001Button);
  bench.PressAt(2s, bench.V2().zero_trim.StartButton);
  bench.Click(bench.V2().zero_trim.StartButton);
  EXPECT_EQ(bench.Accesses("01/29 "), (Texts{"01/29 DZ50", "01/29 DZ-1"}));
  EXPECT_EQ(bench.device.Value("01", "28"), "0.0149 1.0000");
  EXPECT_EQ(bench.Field(u"28_zero").Text(), u"1.49");
  EXPECT_TRUE(bench.Page().DataChanged) << "by the typing";
  bench.ExpectAtRest();
}

/// Instants at which item 28 was selected.
struct Selections {
  explicit Selections(Z2V2Bench& bench) {
    bench.app.link.line.OnTraffic = [this, &bench](const SerialLink::Traffic& traffic) {
      if (traffic.sent && traffic.text == u"I28") {
        at.push_back(bench.loop.Now());
      }
    };
  }
  std::vector<Clock> at;
};

TEST(Z2KvConfigV2Trim, ATurnOn9600BaudTakesWhatWireAndWaitsTake) {
  Z2V2Bench bench;
  bench.ReadV2();
  Selections selections(bench);
  bench.PressAt(20s, bench.V2().span_trim.StartButton);
  bench.Click(bench.V2().span_trim.StartButton);
  ASSERT_GT(selections.at.size(), 15U);
  // "G01" "I28" "D" and their replies of 17 characters, each with its line end; 10 bits a character; and the
  // device's 10 ms to each of the three.
  const double wire = (4 + 4 + 2 + 3 * 18) * 10.0 / 9600;
  const double expected = wire + 3 * 0.010 + 0.700 + 0.200;
  // The first selection is that of the value in the box, which the device holds already.
  for (std::size_t turn = 2; turn < selections.at.size(); ++turn) {
    const std::chrono::duration<double> taken = selections.at[turn] - selections.at[turn - 1];
    EXPECT_NEAR(taken.count(), expected, 0.01 * expected) << turn;
  }
}

TEST(Z2KvConfigV2Threshold, TakesItsLimitsFromTheRangeThatTheDeviceTells) {
  Z2V2Bench bench;
  ASSERT_TRUE(bench.device.Set("01", "33", "5 Vp-p") && bench.device.Set("01", "30", "4.95"));
  bench.ReadV2();
  bench.PressAt(800ms, bench.V2().threshold.cmdThresholdP01);
  bench.PressAt(2500ms, bench.V2().threshold.cmdThresholdM1);
  bench.PressAt(4500ms, bench.V2().threshold.cmdThresholdStart);
  bench.Click(bench.V2().threshold.cmdThresholdStart);
  EXPECT_EQ(bench.TakeBoxes(), Texts{"設定値ﾁｪｯｸ: ｼｷｲ値の設定は、0.50V から 5.00V の範囲です。"});
  EXPECT_EQ(bench.V2().threshold.lblThreshold.Caption(), u"0.50V <= X <= 5.00V");
  EXPECT_EQ(bench.device.Value("01", "30"), "3.95");
  EXPECT_EQ(bench.Field(u"30").Text(), u"3.95");
  bench.ExpectAtRest();
}

TEST(Z2KvConfigV2Threshold, BarsTheTrimsTheTableButtonsAndTheModelListWhileItRuns) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
  bool looked = false;
  bench.loop.After(1s, [&] {
    looked = true;
    for (const Button* button :
         {&bench.V2().zero_trim.StartButton, &bench.V2().span_trim.StartButton, &bench.V2().output.cmdSet,
          &bench.V2().monitor.cmdMonitorON, &bench.V2().table.cmdReadOutTable,
          &bench.V2().table.cmdWriteInTable, &bench.Page().cmdUpload, &bench.Page().cmdDownload}) {
      EXPECT_FALSE(button->Enabled()) << button->Name();
    }
    EXPECT_FALSE(bench.Page().lst_TypeSelect.Enabled());
  });
  bench.PressAt(1500ms, bench.V2().threshold.cmdThresholdStart);
  bench.Click(bench.V2().threshold.cmdThresholdStart);
  EXPECT_TRUE(looked);
  bench.ExpectAtRest();
}

// The table by its buttons.

TEST(Z2KvConfigV2Table, GoesToTheDeviceAndComesBack) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
  bench.FillTable({{u"-15", u"0.5"}, {u"50", u"60"}, {u"115", u"115"}});
  bench.Type(bench.V2().table.txtSize, u"3");
  bench.Click(bench.V2().table.cmdWriteInTable);
  EXPECT_EQ(bench.TakeBoxes(), Texts{"ﾃｰﾌﾞﾙ ﾁｪｯｸ: Tableの値を書き込みました。"});
  EXPECT_EQ(bench.device.Value("01", "62"), "3 -0.1500 0.0050 0.5000 0.6000 1.1500 1.1500");
  EXPECT_EQ(bench.Accesses("01/62 "),
            (Texts{"01/62 DP3", "01/62 DT0 -0.1500 0.0050", "01/62 DT1 0.5000 0.6000",
                   "01/62 DT2 1.1500 1.1500", "01/62 DF"}));
  EXPECT_EQ(bench.device.Mode(), '0');
  bench.FillTable({});
  bench.Click(bench.V2().table.cmdReadOutTable);
  EXPECT_EQ(bench.TakeBoxes(), Texts{"ﾃｰﾌﾞﾙ ﾁｪｯｸ: Tableの値を読み出しました。"});
  EXPECT_EQ(bench.V2().linearizer.LnrFlexGrid.At(1, 1).text, u"-15.00");
  EXPECT_EQ(bench.V2().linearizer.LnrFlexGrid.At(3, 2).text, u"115.00");
  EXPECT_EQ(bench.V2().table.txtSize.Text(), u"3");
  bench.ExpectAtRest();
}

TEST(Z2KvConfigV2Table, ATableOfSize0SendsPAndFAndNoPoint) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
  bench.FillTable({{u"0", u"0"}, {u"100", u"100"}});
  bench.Type(bench.V2().table.txtSize, u"0");
  bench.Click(bench.V2().table.cmdWriteInTable);
  EXPECT_EQ(bench.Accesses("01/62 "), (Texts{"01/62 DP0", "01/62 DF"}));
  EXPECT_EQ(bench.device.Value("01", "62"), "0");
}

TEST(Z2KvConfigV2Table, ADeviceThatTellsMoreThan100PointsOrHalfAPointIsAnErrorOfTheTable) {
  for (const char* fault : {"oversized-table", "one-value"}) {
    Z2V2Bench bench;
    bench.ReadV2();
    bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
    bench.device.AddFault(sim::ParseFault(fault));
    bench.Click(bench.V2().table.cmdReadOutTable);
    EXPECT_EQ(bench.TakeBoxes(), Texts{"ﾃｰﾌﾞﾙﾁｪｯｸ: ﾃｰﾌﾞﾙﾃﾞｰﾀのRead/Writeｴﾗｰが発生しました。"}) << fault;
    bench.ExpectAtRest();
  }
}

TEST(Z2KvConfigV2Table, AFilesFirstPointKeepsItsDigitsTheOthersGetTwoDecimalsAndItsHeadLineTheSize) {
  Z2V2Bench bench;
  bench.ReadV2();
  bench.Press(bench.V2().linearizer.Opt_Lnr, 1);
  bench.PutText(u"/korva/data/t.csv", u"Size, 3 \n0,1.5\n50,60\n100,x\n");
  bench.dialogs.QueueFile(u"/korva/data/t.csv");
  bench.Click(bench.V2().linearizer.cmd_csvFileOpen);
  const Grid& grid = bench.V2().linearizer.LnrFlexGrid;
  EXPECT_EQ(grid.At(1, 2).text, u"1.5");
  EXPECT_EQ(grid.At(2, 1).text, u"50.00");
  EXPECT_EQ(grid.At(3, 2).text, u"x") << "a field that is no number stays as in the file";
  EXPECT_EQ(bench.V2().table.txtSize.Text(), u"3");
  bench.dialogs.QueueFile(u"/korva/data/s.csv");
  bench.Click(bench.V2().linearizer.cmd_csvFileSave);
  EXPECT_EQ(bench.TextOf(u"/korva/data/s.csv"), u"Size, 3 \r\n0,1.5\r\n50.00,60.00\r\n100.00,x\r\n");
}

}  // namespace
}  // namespace korva::test
