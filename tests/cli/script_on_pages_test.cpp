// Scripts on the real pages, with a simulated device at the true speed of its line, in virtual time.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "cli/script_dialogs.h"
#include "cli/script_runner.h"
#include "pages/application.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_event_loop.h"
#include "platform/virtual/virtual_port.h"
#include "script_bench.h"
#include "sim/device.h"
#include "support/device_line.h"
#include "support/kept_paper.h"
#include "support/memory_files.h"

namespace korva::cli {
namespace {

using test::Lines;
using test::TakeLines;

/// Reads the build's catalogue and definitions; what is written lies in memory.
class BuildFiles final : public FileStore {
 public:
  [[nodiscard]] bool Exists(const String& path) const override {
    return written_.Exists(path) || disk_.Exists(path);
  }
  std::optional<std::string> Read(const String& path, std::size_t most, SystemReason& reason) const override {
    return written_.Exists(path) ? written_.Read(path, most, reason) : disk_.Read(path, most, reason);
  }
  using FileStore::Replace;
  bool Replace(const String& path, std::string_view bytes, SystemReason& reason,
               const Review& review) override {
    return written_.Replace(path, bytes, reason, review);
  }
  [[nodiscard]] char16_t Separator() const override { return disk_.Separator(); }

 private:
  NativeFileStore disk_;
  korva::test::MemoryFiles written_;
};

/// A device with tag BOILER-7 on COM 1, its model chosen on the root page.
struct PagesBench {
  explicit PagesBench(ScriptRunner::Options options = {}, const std::string& model = "QHN")
      : device(sim::Device::ForModel(KORVA_HOME, model)),
        runner(application.program, application.link.line, application.companions, dialogs, transcript,
               options) {
    application.companions.UsePaper(paper);
    device.Set("01", "02", "BOILER-7");
    port.Connect(1, &line);
    Run("choose " + model);
  }

  Lines Run(const std::string& script) {
    std::istringstream lines(script);
    for (std::string text; std::getline(lines, text);) {
      runner.Carry(text);
    }
    return TakeLines(printed);
  }

  std::ostringstream printed;
  std::ostringstream complaints;
  Transcript transcript{printed, complaints};
  VirtualEventLoop loop;
  VirtualPort port{loop};
  sim::Device device;
  korva::test::DeviceLine line{port, device};
  ScriptDialogs dialogs{transcript};
  BuildFiles files;
  NativeCodePage code_page;
  korva::test::KeptPaper paper;
  Application application{
      {.loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page},
      std::filesystem::path(KORVA_HOME).u16string()};
  ScriptRunner runner;
};

bool Holds(const Lines& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

/// Lines that begin so.
Lines Of(const Lines& lines, std::string_view beginning) {
  Lines found;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
               [&](const std::string& line) { return line.starts_with(beginning); });
  return found;
}

const std::string kModelMatches =
    R"(box question "ｱｯﾌﾟﾛｰﾄﾞ" "選択された機種名は、接続された変換器と一致していますか。" yes,no -> )";
const std::string kStartUpload = R"(box question "ｱｯﾌﾟﾛｰﾄﾞ" "ｱｯﾌﾟﾛｰﾄﾞを開始します。" ok,cancel -> )";
const std::string kUploadDone = R"(box plain "ｱｯﾌﾟﾛｰﾄﾞ" "ｱｯﾌﾟﾛｰﾄﾞ完了。" ok -> ok)";

TEST(ScriptOnPages, PutsTheSettingsIntoAFileBesideTheOthersOrWhereItsPathSays) {
  PagesBench bench;
  bench.Run("answer yes ok\nclick cmdUpload");
  const std::string folder = std::string(KORVA_HOME) + "/data/";
  EXPECT_EQ(bench.Run("pdf boiler 7.pdf"), Lines{"pdf \"" + folder + "boiler 7.pdf\""});
  EXPECT_EQ(bench.Run("pdf \"/korva/b.pdf\""), Lines{"pdf \"/korva/b.pdf\""});
  SystemReason reason;
  const std::string bytes = bench.files.Read(u"/korva/b.pdf", 1U << 20U, reason).value_or("");
  const std::optional<Document> document = DocumentOf(bytes);
  ASSERT_TRUE(document);
  EXPECT_EQ(document->header, u"QHN    BOILER-7");
  EXPECT_TRUE(bench.complaints.str().empty());
}

TEST(ScriptOnPages, TellsWhyThereIsNoFileOfTheSettings) {
  PagesBench bench({.strict = true});
  EXPECT_EQ(bench.runner.Status(), 0);
  bench.paper.fault = u"no ink";
  EXPECT_EQ(bench.Run("pdf a.pdf"), Lines{"refused pdf a.pdf: no ink"});
  EXPECT_EQ(bench.runner.Status(), ScriptRunner::kRefused);
  bench.paper.fault.clear();
  EXPECT_TRUE(
      Holds(bench.Run("after 500 pdf a.pdf\nanswer yes ok\nclick cmdUpload"), "refused pdf a.pdf: disabled"));
}

TEST(ScriptOnPages, HasNoSettingsToPutIntoAFileWithoutAModel) {
  PagesBench bench;
  bench.application.program.Showing()->lst_TypeSelect.SetListIndex(-1);
  EXPECT_EQ(bench.Run("pdf a.pdf"), Lines{"refused pdf a.pdf: no model"});
}

TEST(ScriptOnPages, ComparesThePageWithTheDeviceAndReportsTheLastTransfer) {
  PagesBench bench;
  bench.Run("answer yes ok\nclick cmdUpload");
  const Lines report = bench.Run("report");
  EXPECT_EQ(report.front(), "report upload \"QHN\" done");
  EXPECT_TRUE(Holds(report, "report 01/02 \"ﾀｸﾞ名\" sent \"\" answered \"TG:BOILER-7\" read"));
  bench.device.Set("01", "02", "BOILER-8");
  const Lines compared = Of(bench.Run("compare device"), "compare");
  EXPECT_EQ(compared, (Lines{"compare device \"QHN\" complete 1",
                             "compare 01/02 \"ﾀｸﾞ名\" page \"BOILER-7\" other \"BOILER-8\""}));
  EXPECT_TRUE(Holds(bench.Run("compare file /no/such.cfg"), "compare file \"QHN\" broken 0"));
  EXPECT_TRUE(Holds(bench.Run("file kept.cfg\nclick cmdSave\ncompare file kept.cfg"),
                    "compare file \"QHN\" complete 0"))
      << "the same path means the same file";
  EXPECT_EQ(bench.Run("report"), report);
}

TEST(ScriptOnPages, DumpsNothingOfAnEmptyParameterSet) {
  PagesBench bench;
  EXPECT_EQ(bench.Run("dump"), Lines{});
}

TEST(ScriptOnPages, DumpsTheParameterSetByGroupThenItem) {
  PagesBench bench;
  const Lines upload = bench.Run("answer yes ok\nclick cmdUpload");
  EXPECT_EQ(Of(upload, "box"), (Lines{kModelMatches + "yes", kStartUpload + "ok", kUploadDone}));
  const Lines dump = bench.Run("dump");
  ASSERT_EQ(dump.size(), 11U);
  EXPECT_EQ(dump[0], R"(1 2 "BOILER-7")");
  EXPECT_EQ(dump[1].substr(0, 5), "1 10 ");
  EXPECT_EQ(dump[2].substr(0, 5), "1 11 ");
  EXPECT_EQ(dump[3].substr(0, 5), "1 14 ");
  EXPECT_EQ(dump[10].substr(0, 5), "1 24 ");
}

TEST(ScriptOnPages, DumpsWhatWasTyped) {
  PagesBench bench;
  EXPECT_EQ(bench.Run("type Text(0) \"a \\\"b\\\"\"\ndump"), Lines{R"(1 2 "a \"b\"")"});
}

TEST(ScriptOnPages, PrintsTheTrafficOfAnUploadFromTheLinkTestOn) {
  PagesBench bench({.traffic = true});
  const Lines upload = bench.Run("click cmdUpload");
  EXPECT_EQ(upload, (Lines{"progress ProgressBar 5", R"(> "G00")", R"(< "COK")", R"(> "I99")",
                           R"(< "DSYSVER   1.00")", kModelMatches + "no", "progress ProgressBar 0"}));
}

TEST(ScriptOnPages, EndsTheProgramWhenItIsClosedDuringAnUpload) {
  PagesBench bench;
  const Lines upload = bench.Run("answer yes ok\nafter 1500 close\nclick cmdUpload\ndump");
  ASSERT_FALSE(upload.empty());
  EXPECT_EQ(upload.back(), "end");
  EXPECT_FALSE(Holds(upload, kUploadDone));
  EXPECT_EQ(bench.runner.Status(), 0);
}

TEST(ScriptOnPages, HoldsACloseDuringADownloadOffToItsEnd) {
  PagesBench bench;
  bench.Run("answer yes ok\nclick cmdUpload");
  const Lines download = bench.Run(
      "answer ok\nafter 3000 close\nafter 3001 show flaMsg_CannotEnd lblMsg_CannotEnd\nclick cmdDownload");
  EXPECT_TRUE(Holds(download, R"(flaMsg_CannotEnd shown enabled unlocked normal "")"));
  EXPECT_TRUE(Holds(download,
                    "lblMsg_CannotEnd shown enabled unlocked normal "
                    "\"ﾀﾞｳﾝﾛｰﾄﾞの途中でﾌﾟﾛｸﾞﾗﾑを終了することはできません。\""));
  EXPECT_EQ(download.back(), "end");
}

TEST(ScriptOnPages, RefusesWhatTheLockedFrameHoldsBackDuringAnUpload) {
  PagesBench bench;
  const Lines upload = bench.Run(
      "answer yes ok\nafter 1000 click cmdDownload\nafter 1000 choose QC\nafter 1000 type Text(9) 5\n"
      "after 1000 tab 1\nclick cmdUpload");
  EXPECT_EQ(Of(upload, "refused"),
            (Lines{"refused click cmdDownload: disabled", "refused choose QC: disabled",
                   "refused type Text(9) 5: tab disabled", "refused tab 1: disabled"}));
  EXPECT_TRUE(Holds(upload, kUploadDone));
}

TEST(ScriptOnPages, SavesASetAndOpensItAgain) {
  PagesBench bench;
  const std::string data = std::string(KORVA_HOME) + "/data";
  bench.Run("answer yes ok\nclick cmdUpload\ntype txtMemo \"one\\ntwo\"");
  const Lines dump = bench.Run("dump");
  EXPECT_EQ(bench.Run("file a.cfg\nclick cmdSave").front(),
            "dialog save \"" + data + "\" \"KORVAで作成されたテキストファイル (*.cfg)|*.cfg|\" 1 -> \"" +
                data + "/a.cfg\"");
  EXPECT_EQ(bench.Run("click cmdNew\ndump\nshow txtMemo"),
            Lines{R"(txtMemo shown enabled unlocked normal "")"});
  EXPECT_EQ(bench.Run("file a.cfg\nclick cmdOpen"),
            Lines{"dialog open \"" + data +
                  "\" \"プログラム管理ファイル (*.def)|*.def|KORVAで作成されたテキストファイル (*.cfg)|*.cfg|"
                  "すべてのファイル (*.*)|*.*|\" 2 -> \"" +
                  data + "/a.cfg\""});
  EXPECT_EQ(bench.Run("dump"), dump);
  EXPECT_EQ(bench.Run("show txtMemo"), Lines{R"(txtMemo shown enabled unlocked normal "one\ntwo")"});
}

/// A QZ whose table is in use, uploaded.
struct TableBench : PagesBench {
  TableBench() : PagesBench({}, "QZ") {
    device.Set("01", "10", "1");
    Run("answer yes ok\nclick cmdUpload");
  }
};

TEST(TableScript, EditsACellByClickAndKey) {
  TableBench bench;
  EXPECT_EQ(bench.Run("cell LnrFlexGrid 3 2\nshow fraLnrChange txtLnrRow txtLnrCol txtLnrNewValue"),
            (Lines{R"(fraLnrChange shown enabled unlocked normal "値の変更")",
                   R"(txtLnrRow shown enabled locked grey "3")", R"(txtLnrCol shown enabled locked grey "2")",
                   R"(txtLnrNewValue shown enabled unlocked normal "13.33")"}));
  EXPECT_EQ(bench.Run("type txtLnrNewValue 15.5\nkey txtLnrNewValue Left\nkey txtLnrNewValue Enter"),
            Lines{});
  EXPECT_TRUE(Holds(bench.Run("dump LnrFlexGrid"), R"(LnrFlexGrid 3 2 normal "15.5")"));
  EXPECT_TRUE(Holds(bench.Run("dump"), R"(1 65 "15.5")"));
  EXPECT_EQ(bench.Run("key txtLnrNewValue Enter"), Lines{"refused key txtLnrNewValue Enter: hidden"});
}

TEST(TableScript, PrintsTheQuestionAboutTheFormerCell) {
  TableBench bench;
  EXPECT_EQ(bench.Run("cell LnrFlexGrid 3 2\ntype txtLnrNewValue 15.5\nanswer yes\ncell LnrFlexGrid 4 1"),
            Lines{R"(box question "ﾘﾆｱﾗｲｻﾞ" "１つ前に選択したセルのﾃﾞｰﾀを変更しますか。" yes,no -> yes)"});
  const Lines grid = bench.Run("dump LnrFlexGrid");
  EXPECT_TRUE(Holds(grid, R"(LnrFlexGrid 3 2 normal "15.5")"));
  EXPECT_TRUE(Holds(grid, R"(LnrFlexGrid 4 1 selected "20.00")"));
}

TEST(TableScript, DumpsAMarkedCell) {
  TableBench bench;
  bench.Run("cell LnrFlexGrid 16 1\ntype txtLnrNewValue 300\nclick cmdLnrChangeOK\nclick cmdCheck");
  EXPECT_TRUE(Holds(bench.Run("dump LnrFlexGrid"), R"(LnrFlexGrid 16 1 bad "300")"));
}

TEST(TableScript, DumpsAnEmptyCellThatIsUnderEdit) {
  TableBench bench;
  SystemReason reason;
  bench.files.Replace(u"/t.csv", "0,0\r\n", reason);
  bench.Run("file /t.csv\nclick cmd_csvFileOpen\ncell LnrFlexGrid 5 1");
  EXPECT_EQ(bench.Run("dump LnrFlexGrid"),
            (Lines{R"(LnrFlexGrid 1 1 normal "0")", R"(LnrFlexGrid 1 2 normal "0")",
                   R"(LnrFlexGrid 5 1 selected "")"}));
}

TEST(TableScript, SelectsAHeadByAClickAndKeepsItsText) {
  TableBench bench;
  EXPECT_EQ(bench.Run("cell LnrFlexGrid 0 1\nshow txtLnrRow txtLnrCol txtLnrNewValue"),
            (Lines{R"(txtLnrRow shown enabled locked grey "0")", R"(txtLnrCol shown enabled locked grey "1")",
                   R"x(txtLnrNewValue shown enabled unlocked normal "X(k)")x"}));
  EXPECT_EQ(bench.Run("type txtLnrNewValue 5\nclick cmdLnrChangeOK\nshow LnrFlexGrid"),
            Lines{R"x(LnrFlexGrid shown enabled "k" "X(k)" "Y(k)")x"});
}

TEST(TableScript, TellsWhetherTheSwitchOpensTheTab) {
  TableBench bench;
  EXPECT_EQ(bench.Run("show KvCfg_Tab(3)\nclick Opt_Table(0)\nshow KvCfg_Tab(3)"),
            (Lines{R"(KvCfg_Tab(3) shown enabled "ﾘﾆｱﾗｲｻﾞ")", R"(KvCfg_Tab(3) shown disabled "ﾘﾆｱﾗｲｻﾞ")"}));
}

TEST(TableScript, OpensATableFileAndTellsThatItIsNotSaved) {
  TableBench bench;
  SystemReason reason;
  bench.files.Replace(u"/t.csv", "0,0\r\n50,75\r\n", reason);
  const Lines opened = bench.Run("file /t.csv\nclick cmd_csvFileOpen");
  ASSERT_EQ(opened.size(), 1U);
  EXPECT_TRUE(opened.front().ends_with(R"("カンマ区切りのファイル (*.csv)|*.csv|" 1 -> "/t.csv")"))
      << opened.front();
  EXPECT_EQ(bench.Run("dump LnrFlexGrid"),
            (Lines{R"(LnrFlexGrid 1 1 normal "0")", R"(LnrFlexGrid 1 2 normal "0")",
                   R"(LnrFlexGrid 2 1 normal "50")", R"(LnrFlexGrid 2 2 normal "75")"}));
  EXPECT_EQ(bench.Run("show lbl_LnrUnsaved").front().substr(0, 20), "lbl_LnrUnsaved shown");
  EXPECT_EQ(bench.Run("file t.cfg\nclick cmdSave\nshow lbl_LnrUnsaved").back().substr(0, 21),
            "lbl_LnrUnsaved hidden");
}

TEST(TableScript, RefusesWhatTheDisabledTabHoldsBack) {
  TableBench bench;
  bench.Run("click Opt_Table(0)");
  EXPECT_EQ(
      bench.Run("cell LnrFlexGrid 1 1\nclick cmd_csvFileOpen"),
      (Lines{"refused cell LnrFlexGrid 1 1: tab disabled", "refused click cmd_csvFileOpen: tab disabled"}));
}

TEST(TableScript, AnswersNoToTheLongTableByItself) {
  PagesBench bench({}, "QHNY1");
  bench.device.Set("01", "11", "1");
  const Lines printed = bench.Run("answer yes ok\nclick cmdUpload");
  EXPECT_TRUE(
      Holds(printed, R"(box question "ｱｯﾌﾟﾛｰﾄﾞ" "100点ﾘﾆｱﾗｲｻﾞのﾃﾞｰﾀをｱｯﾌﾟﾛｰﾄﾞしますか。" yes,no -> no)"));
  EXPECT_FALSE(Holds(printed, "progress LnrProgressBar 1"));
  EXPECT_EQ(bench.Run("dump LnrFlexGrid"), Lines{});
}

TEST(MonitorScript, StopsByADelayedClick) {
  PagesBench bench({}, "QN");
  const Lines printed = bench.Run(
      "after 3000 show cmdMonitorOFF cmdMonitorON\nafter 4000 click cmdMonitorOFF\n"
      "after 4100 show lbl_Waitfor\nclick cmdMonitorON\nshow cmdMonitorON");
  EXPECT_EQ(printed, (Lines{R"(cmdMonitorOFF shown enabled unlocked normal "OFF")",
                            R"(cmdMonitorON shown disabled unlocked normal "ON")",
                            R"(lbl_Waitfor shown enabled unlocked normal "お待ち下さい")",
                            R"(cmdMonitorON shown enabled unlocked normal "ON")"}));
}

TEST(MonitorScript, ForcesTheOutputUntilADelayedClick) {
  PagesBench bench({}, "QN");
  EXPECT_EQ(bench.Run("type Text(1) 115.01\nclick cmdSet"),
            Lines{R"(box warning "設定値ﾁｪｯｸ" "出力設定値は、-15.00% から 115.00% の範囲です。" ok -> ok)"});
  bench.Run("type Text(1) 40\nclick cmdSet");
  EXPECT_EQ(bench.device.Mode(), '1');
  EXPECT_EQ(bench.Run("show Text(2)\nclick cmdUpload"),
            (Lines{R"(Text(2) shown enabled locked grey "40.00")", "refused click cmdUpload: disabled"}));
  EXPECT_EQ(bench.Run("after 50 click cmdStatusMonOFF\nwait 2000"), Lines{});
  EXPECT_EQ(bench.device.Mode(), '0');
}

TEST(MonitorScript, TrimsTheOutputByAStepThatWaitsForItsTurn) {
  PagesBench bench({}, "Z2WQ");
  bench.Run("answer yes ok\nclick cmdUpload");
  EXPECT_EQ(
      bench.Run("type Text(13) 1.50\nafter 500 click cmdOutZeroP001\n"
                "after 600 show cmdOutZeroStart cmdOutZeroP001 cmdOutSpanStart Text(13)\n"
                "after 3000 click cmdOutZeroStart\nclick cmdOutZeroStart\nshow cmdOutZeroP001 Text(13)"),
      (Lines{R"(cmdOutZeroStart shown enabled unlocked normal "STOP")",
             R"(cmdOutZeroP001 shown enabled unlocked highlight "+0.01")",
             R"(cmdOutSpanStart shown disabled unlocked normal "START")",
             R"(Text(13) shown enabled locked highlight "1.50")",
             R"(cmdOutZeroP001 shown disabled unlocked normal "+0.01")",
             R"(Text(13) shown enabled unlocked highlight "1.51")"}));
  EXPECT_EQ(bench.device.Value("01", "28"), "0.0151 1.0000");
}

TEST(MonitorScript, DisablesACutOutAndOpensTheDetails) {
  PagesBench bench({}, "Z2WQ");
  EXPECT_EQ(bench.Run("click cmdDisableCutOut\nshow Text(3)\nclick cmdDetailInfo\nclick cmdDetailInfo\n"
                      "show fraDetailInfo"),
            (Lines{R"(Text(3) shown enabled locked grey "Disable")", "refused click cmdDetailInfo: disabled",
                   R"(fraDetailInfo shown enabled unlocked normal "詳細設定")"}));
  EXPECT_TRUE(Holds(bench.Run("dump"), R"(1 11 "-10")"));
}

TEST(TableScript, ReadsAndWritesATableByItsButtons) {
  PagesBench bench({}, "Z2WPR");
  bench.Run("click Opt_Lnr(1)");
  EXPECT_EQ(Of(bench.Run("click cmdReadOutTable"), "box"),
            Lines{R"(box plain "ﾃｰﾌﾞﾙ ﾁｪｯｸ" "Tableの値を読み出しました。" ok -> ok)"});
  bench.Run("cell LnrFlexGrid 16 2\ntype txtLnrNewValue 99.5\nclick cmdLnrChangeOK");
  EXPECT_EQ(Of(bench.Run("click cmdWriteInTable"), "box"),
            Lines{R"(box plain "ﾃｰﾌﾞﾙ ﾁｪｯｸ" "Tableの値を書き込みました。" ok -> ok)"});
  EXPECT_EQ(bench.device.Value("01", "91"), "99.50");
  EXPECT_EQ(bench.device.Mode(), '0');
  EXPECT_EQ(bench.Run("show lblLnrLimits"),
            Lines{R"(lblLnrLimits shown enabled unlocked normal "-15.00% =< X(k),Y(k) =< 115.00%")"});
}

TEST(TableScript, BringsATableThroughItsDialogueAndConvertsAFrequency) {
  PagesBench bench({}, "Z2WPA");
  bench.device.Set("01", "42", "1");
  const Lines printed = bench.Run("answer yes ok yes\nclick cmdUpload");
  EXPECT_EQ(Of(printed, "box").back(), kUploadDone);
  EXPECT_EQ(bench.Run("show LnrFlexGrid"),
            Lines{R"(LnrFlexGrid shown enabled "  k" "  X(k)        %" "  Y(k)        %")"});
  EXPECT_EQ(Of(bench.Run("dump LnrFlexGrid"), "LnrFlexGrid 2"),
            (Lines{R"(LnrFlexGrid 2 1 normal "25.00")", R"(LnrFlexGrid 2 2 normal "25.00")"}));
  EXPECT_EQ(bench.Run("pick cbo_unit(0) kHz\nshow Text(4)"),
            Lines{R"(Text(4) shown enabled unlocked normal "0.5")"});
}

TEST(ScriptOnPagesTest, KeysEditTheTableOfLiteFifthCellByCell) {
  PagesBench bench({}, "Z2WPL");
  bench.Run("click Opt_Lnr(1)\ncell LnrFlexGrid 1 1");
  EXPECT_EQ(bench.Run("type txtLnrNewValue 0\nkey txtLnrNewValue Right\ntype txtLnrNewValue 5\n"
                      "key txtLnrNewValue Down\nkey txtLnrNewValue Left\nshow txtLnrRow txtLnrCol\n"
                      "type txtLnrNewValue 100\nkey txtLnrNewValue Enter\ndump LnrFlexGrid"),
            (Lines{"txtLnrRow shown enabled locked grey \"2\"", "txtLnrCol shown enabled locked grey \"1\"",
                   "LnrFlexGrid 1 1 normal \"0\"", "LnrFlexGrid 1 2 normal \"5\"",
                   "LnrFlexGrid 2 1 normal \"100\""}));
}

// --- the universal converters

TEST(UniversalScript, ShowsTheWiringOfAnInputWithTheClickOnItsTab) {
  PagesBench bench({}, "QXI");
  bench.Run(
      "pick Combo(0) \"mV-Z:USER mV\"\npick Combo(1) \"mV-4:4-20 mA\"\ntype Text(1) 0\ntype Text(2) 1000");
  EXPECT_EQ(bench.Run("show ImgInput ImgOutput"), (Lines{R"(ImgInput shown "")", R"(ImgOutput shown "")"}));
  bench.Run("tab 5");
  EXPECT_EQ(bench.Run("show ImgInput ImgOutput"),
            (Lines{R"(ImgInput shown "In_dcvl.bmp")", R"(ImgOutput shown "Out_c.bmp")"}));
  bench.Run("type Text(2) 1000.5");
  EXPECT_EQ(bench.Run("show ImgInput"), Lines{R"(ImgInput shown "In_dcvl.bmp")"});
  bench.Run("tab 5");
  EXPECT_EQ(bench.Run("show ImgInput"), Lines{R"(ImgInput shown "In_dcvh.bmp")"});
}

TEST(UniversalScript, TellsWhatAnInputBringsAlong) {
  PagesBench bench({}, "QXI");
  bench.Run("pick Combo(0) Tc-99:USER");
  EXPECT_EQ(bench.Run("show Text(1) lbl_unit(1) Opt_Lnr(1) KvCfg_Tab(3)"),
            (Lines{R"(Text(1) shown enabled unlocked normal "-273")",
                   R"(lbl_unit(1) shown enabled unlocked normal "deg C")",
                   R"(Opt_Lnr(1) shown disabled unlocked normal "有" on)",
                   R"(KvCfg_Tab(3) shown enabled "ﾘﾆｱﾗｲｻﾞ")"}));
  EXPECT_EQ(bench.Run("click Opt_Lnr(0)"), Lines{"refused click Opt_Lnr(0): disabled"});
}

TEST(UniversalScript, TellsTheItemThatTheDeviceRefused) {
  PagesBench bench({}, "QXI");
  bench.Run("answer yes ok\nclick cmdUpload");
  bench.device.AddFault(sim::ParseFault("not-usable=D100.00"));
  const Lines boxes = Of(bench.Run("answer ok\nclick cmdDownload"), "box ");
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_NE(boxes[1].find("Group=01 Item=20で ﾀﾞｳﾝﾛｰﾄﾞｴﾗｰ : NU"), std::string::npos) << boxes[1];
}

TEST(ScriptOnPages, ResetsADeviceUnderItsWindowAndRefusesWhatIsDoneBehindIt) {
  PagesBench bench({}, "Z2WU");
  EXPECT_EQ(bench.Run("click cmdReadOutModbus\n"
                      "type Text(9) 7f\n"
                      "pick Combo(5) ODD\n"
                      "click cmdWriteInModbus"),
            (Lines{"progress Modbus_ProgressBar 20",
                   "progress Modbus_ProgressBar 30",
                   "progress Modbus_ProgressBar 50",
                   "progress Modbus_ProgressBar 70",
                   "progress Modbus_ProgressBar 90",
                   "progress Modbus_ProgressBar 100",
                   "progress Modbus_ProgressBar 0",
                   "progress Modbus_ProgressBar 20",
                   "progress Modbus_ProgressBar 30",
                   "progress Modbus_ProgressBar 50",
                   "progress Modbus_ProgressBar 70",
                   "progress Modbus_ProgressBar 90",
                   "progress Modbus_ProgressBar 100",
                   "box plain \"Modbus設定変更\" \"Modbus通信ﾌﾟﾛﾄｺﾙを変更しました。\" ok -> ok",
                   "progress Modbus_ProgressBar 0",
                   "progress Modbus_ProgressBar 20",
                   "progress Modbus_ProgressBar 30",
                   "progress Modbus_ProgressBar 50",
                   "progress Modbus_ProgressBar 70",
                   "progress Modbus_ProgressBar 90",
                   "progress Modbus_ProgressBar 100",
                   "progress Modbus_ProgressBar 0"}));
  EXPECT_EQ(bench.device.InForce("83"), "NONE");
  Lines lines = bench.Run(
      "after 2600 show lblResetMsg Reset_ProgressBar\n"
      "after 2700 click cmdUpload\n"
      "after 2800 type Text(9) 11\n"
      "after 2900 choose QHN\n"
      "click cmdResetModbus\n"
      "show Text(9) Combo(5)");
  const auto port = std::find(lines.begin(), lines.end(), "port 1 \"38400,n,8,1\" open");
  ASSERT_NE(port, lines.end());
  EXPECT_EQ(
      Lines(lines.begin(), port),
      (Lines{
          "window frmWaiting open", "progress Reset_ProgressBar 10", "progress Reset_ProgressBar 20",
          "progress Reset_ProgressBar 30", "progress Reset_ProgressBar 40", "progress Reset_ProgressBar 50",
          "lblResetMsg shown enabled unlocked normal \"ｼｽﾃﾑをﾘｾｯﾄしています。\\nしばらくお待ち下さい\"",
          "Reset_ProgressBar shown 50", "refused click cmdUpload: window open",
          "refused type Text(9) 11: window open", "refused choose QHN: window open",
          "progress Reset_ProgressBar 60", "progress Reset_ProgressBar 70", "progress Reset_ProgressBar 80",
          "progress Reset_ProgressBar 90", "progress Reset_ProgressBar 100", "window frmWaiting closed"}));
  EXPECT_EQ(Lines(lines.end() - 2, lines.end()), (Lines{"Text(9) shown enabled unlocked normal \"7F\"",
                                                        "Combo(5) shown enabled unlocked normal \"ODD\""}));
  EXPECT_EQ(bench.device.InForce("83"), "ODD");
}

// --- the transmitters with two outputs

TEST(TwoOutputsScript, TypesOneNumberOfAPairAndSendsBoth) {
  PagesBench bench({}, "Z8WV2");
  bench.Run("click cmdUpload\ntype Text(2) 50.5");
  EXPECT_TRUE(Holds(bench.Run("dump"), R"(1 14 "-100.000 50.5")"));
  EXPECT_EQ(bench.Run("show lblInputScale100 Text(2) lbl_unit(2)"),
            (Lines{R"(lblInputScale100 shown enabled unlocked normal "100%")",
                   R"(Text(2) shown enabled unlocked normal "50.5")",
                   R"(lbl_unit(2) shown enabled unlocked normal "mV")"}));
  EXPECT_EQ(Of(bench.Run("answer ok\nclick cmdDownload"), "box ").back(),
            R"(box plain "ﾀﾞｳﾝﾛｰﾄﾞ" "ﾀﾞｳﾝﾛｰﾄﾞ完了。" ok -> ok)");
  EXPECT_EQ(bench.device.Value("01", "14"), "-100.000 50.500");
}

TEST(TwoOutputsScript, TrimsAnOutputByPressesThatAllCount) {
  PagesBench bench({}, "Z8WV2");
  EXPECT_EQ(bench.Run("after 1000 click cmdOut2SpanM01\nafter 1010 click cmdOut2SpanM01\n"
                      "after 1020 show cmdOut2SpanStart cmdOut2SpanM01 cmdOut1ZeroStart cmdUpload\n"
                      "after 6000 click cmdOut2SpanStart\nclick cmdOut2SpanStart\nshow txtOut2Span"),
            (Lines{R"(cmdOut2SpanStart shown enabled unlocked normal "STOP")",
                   R"(cmdOut2SpanM01 shown enabled unlocked highlight "-0.1")",
                   R"(cmdOut1ZeroStart shown disabled unlocked normal "START")",
                   R"(cmdUpload shown disabled unlocked normal "アップロード")",
                   R"(txtOut2Span shown enabled locked grey "99.80")"}));
  EXPECT_EQ(bench.device.Value("01", "45"), "-0.200 %");
}

TEST(TwoOutputsScript, LetsADeviceMeasureItsLeads) {
  PagesBench bench({}, "Z8WR2");
  EXPECT_EQ(bench.Run("after 1000 show cmdLineSet\nclick cmdLineSet\nshow txtCompX lbl_unitX txtCompY"),
            (Lines{R"(cmdLineSet shown disabled unlocked normal "実行")",
                   R"(txtCompX shown enabled locked grey "0.850")",
                   R"(lbl_unitX shown enabled unlocked normal "Ohm")",
                   R"(txtCompY hidden enabled locked grey "0.000")"}));
}

}  // namespace
}  // namespace korva::cli
