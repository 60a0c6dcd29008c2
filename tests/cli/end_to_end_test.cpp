// The real korva-cli, and the real korva-sim behind a real pseudo-terminal.
#include "end_to_end.h"

#include <gtest/gtest.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): kill is POSIX

#include <QCoreApplication>
#include <algorithm>
#include <iterator>
#include <set>

namespace korva::cli {
namespace {

namespace fs = std::filesystem;
using test::ChildProgram;
using test::EndToEnd;
using test::Holds;
using test::Lines;
using test::Of;

const Lines kStart = {R"(port 1 "1200,n,8,1" open)", "page KvConfig", R"(port 1 "1200,n,8,1" open)"};
const std::string kModelMatches =
    R"(box question "ｱｯﾌﾟﾛｰﾄﾞ" "選択された機種名は、接続された変換器と一致していますか。" yes,no -> yes)";
const std::string kStartUpload = R"(box question "ｱｯﾌﾟﾛｰﾄﾞ" "ｱｯﾌﾟﾛｰﾄﾞを開始します。" ok,cancel -> ok)";
const std::string kUploadDone = R"(box plain "ｱｯﾌﾟﾛｰﾄﾞ" "ｱｯﾌﾟﾛｰﾄﾞ完了。" ok -> ok)";
/// The boxes of a device that is read, checked, saved and written.
const Lines kMainJob = {kModelMatches,
                        kStartUpload,
                        kUploadDone,
                        R"(box plain "設定値ﾁｪｯｸ" "設定値ﾁｪｯｸ完了。" ok -> ok)",
                        R"(box plain "ﾌｧｲﾙに保存" "ファイルの保存が終了しました。" ok -> ok)",
                        R"(box question "ﾀﾞｳﾝﾛｰﾄﾞ" "ﾀﾞｳﾝﾛｰﾄﾞを開始します。" ok,cancel -> ok)",
                        R"(box plain "ﾀﾞｳﾝﾛｰﾄﾞ" "ﾀﾞｳﾝﾛｰﾄﾞ完了。" ok -> ok)"};
const std::string kUpload = "choose QHN\nanswer yes ok\nclick cmdUpload\n";

TEST_F(EndToEnd, ReadsEditsChecksSavesOpensAndWritesADevice) {
  StartSim();
  const QString script =
      Write("script.txt", kUpload +
                              "type Text(0) BOILER-8\ntype txtMemo \"one\\ntwo\"\n"
                              "click cmdCheck\nfile 保存.cfg\nclick cmdSave\nclick cmdNew\ndump\n"
                              "file 保存.cfg\nclick cmdOpen\nshow Text(0) txtMemo txtFileTitle\n"
                              "answer ok\nclick cmdDownload\nclose\n");
  ChildProgram cli("korva-cli", At({"--line", script}));
  const Lines printed = cli.ReadToEnd();
  EXPECT_EQ(cli.Status(), 0);
  EXPECT_EQ(cli.Complaints(), "");
  EXPECT_EQ(Of(printed, "box "), kMainJob);
  EXPECT_EQ(Of(printed, "Text(0)"), Lines{R"(Text(0) shown enabled unlocked normal "BOILER-8")"});
  EXPECT_TRUE(Holds(printed, R"(txtMemo shown enabled unlocked normal "one\ntwo")"));
  EXPECT_TRUE(Holds(printed, R"(< "DTG:BOILER-7  ")"));
  EXPECT_TRUE(Holds(printed, R"(> "DBOILER-8")"));
  EXPECT_TRUE(Holds(printed, R"(< "DTG:BOILER-8  ")"));
  EXPECT_EQ(Of(printed, "1 "), Lines{});
  EXPECT_EQ(printed.back(), "end");
  const std::string saved = Bytes("data/保存.cfg");
  EXPECT_TRUE(saved.starts_with("$DefFile\r\n\"QHN.def\"\r\n$Data\r\n\"1\",\"2\",\"BOILER-8\"\r\n"));
  EXPECT_TRUE(saved.ends_with("$Memo\r\n\"0\",\"\"\r\n\"1\",\"one\r\ntwo\"\r\n$End\r\n"));

  ChildProgram again("korva-cli", At({Write("again.txt", kUpload + "dump\n")}));
  EXPECT_TRUE(Holds(again.ReadToEnd(), R"(1 2 "BOILER-8")"));
}

/// A model and its page.
struct OnPage {
  const char* model;
  const char* page;
};

struct EndToEndOnPage : EndToEnd, testing::WithParamInterface<OnPage> {};

INSTANTIATE_TEST_SUITE_P(Model, EndToEndOnPage,
                         testing::Values(OnPage{.model = "QIC", .page = "KvConfig_V2"},
                                         OnPage{.model = "QNA2", .page = "KvConfig_V3"},
                                         OnPage{.model = "QEC2", .page = "KvConfig_V3"}),
                         [](const auto& one) { return std::string(one.param.model); });

TEST_P(EndToEndOnPage, ReadsEditsChecksSavesOpensFromAnotherPageAndWritesADevice) {
  const std::string model = GetParam().model;
  StartSim({"--fast"}, GetParam().model);
  const QString script =
      Write("script.txt", "choose " + model +
                              "\nanswer yes ok\nclick cmdUpload\ntype Text(0) BOILER-8\nclick cmdCheck\n"
                              "file kept.cfg\nclick cmdSave\nchoose QHN\nshow Text(0)\n"
                              "file kept.cfg\nclick cmdOpen\nshow Text(0) txtFileTitle\n"
                              "answer ok\nclick cmdDownload\nclose\n");
  ChildProgram cli("korva-cli", At({script}));
  const Lines printed = cli.ReadToEnd();
  EXPECT_EQ(cli.Status(), 0);
  EXPECT_EQ(cli.Complaints(), "");
  EXPECT_EQ(Of(printed, "box "), kMainJob);
  const std::string page = std::string("page ") + GetParam().page;
  EXPECT_EQ(Of(printed, "page "), (Lines{"page KvConfig", page, "page KvConfig", page}));
  EXPECT_EQ(Of(printed, "Text(0)"), (Lines{R"(Text(0) shown enabled unlocked normal "")",
                                           R"(Text(0) shown enabled unlocked normal "BOILER-8")"}));
  EXPECT_EQ(Of(printed, "txtFileTitle"), Lines{R"(txtFileTitle shown enabled locked grey "kept.cfg")"});
  EXPECT_NE(Ask({"G01", "I02", "D"})[page.ends_with("V2") ? 2 : 1].find("BOILER-8"), std::string::npos);
}

TEST_F(EndToEnd, PutsTheSettingsOfADeviceIntoAPdfFile) {
  StartSim();
  const std::string path = (home / "data" / "報告 7.pdf").string();
  const QString script = Write("script.txt", kUpload +
                                                 "pdf 報告 7.pdf\npdf /no/such/folder/a.pdf\n"
                                                 "pdf \"" +
                                                 home.string() + "\"\n");
  ChildProgram cli("korva-cli", At({"--strict", script}));
  const Lines printed = cli.ReadToEnd();
  EXPECT_EQ(Of(printed, "pdf "), Lines{"pdf \"" + path + "\""});
  EXPECT_EQ(Of(printed, "refused "),
            (Lines{"refused pdf /no/such/folder/a.pdf: ﾌｧｲﾙまたはﾌｫﾙﾀﾞが見つかりません。",
                   "refused pdf \"" + home.string() + "\": ﾌｧｲﾙではなくﾌｫﾙﾀﾞです。"}));
  EXPECT_EQ(cli.Status(), 4);
  EXPECT_EQ(cli.Complaints(), "");
  const std::string pdf = Bytes("data/報告 7.pdf");
  EXPECT_TRUE(pdf.starts_with("%PDF-1."));
  EXPECT_NE(pdf.find("%%EOF", pdf.size() - 8), std::string::npos);
  EXPECT_NE(pdf.find("/Type /Page\n"), std::string::npos);
  EXPECT_NE(pdf.find("/FontFile"), std::string::npos);
}

/// What draws is another program: when that fails, breaks off or is not there, the former file stays whole.
TEST_F(EndToEnd, TellsWhyNoPdfFileWasDrawnAndKeepsTheFormerOne) {
  std::filesystem::create_directory(home / "bin");
  std::filesystem::copy_file(std::filesystem::path(KORVA_HOME) / "korva-cli", home / "bin" / "korva-cli");
  const std::filesystem::path drawer = home / "bin" / "korva-pdf";
  const auto refusal = [&] {
    Write("data/a.pdf", "former");
    ChildProgram cli(home / "bin" / "korva-cli", At({Write("script.txt", "pdf a.pdf\n")}));
    const Lines printed = cli.ReadToEnd();
    EXPECT_EQ(Bytes("data/a.pdf"), "former");
    EXPECT_EQ(Of(printed, "pdf "), Lines());
    const Lines refused = Of(printed, "refused ");
    return refused.size() == 1 ? refused.front() : std::string();
  };
  const std::string words = "refused pdf a.pdf: ";
  EXPECT_TRUE(refusal().starts_with(words + home.string() + "/libexec/korva/korva-pdf: ")) << "none";
  for (const char* end : {"exit 1", "kill -KILL $$"}) {
    Write("bin/korva-pdf", std::string("#!/bin/sh\ncat >/dev/null\nprintf half\n") + end + "\n");
    std::filesystem::permissions(drawer, std::filesystem::perms::owner_all);
    EXPECT_TRUE(refusal().starts_with(words + drawer.string() + ": ")) << end;
  }
  Write("bin/korva-pdf", "#!/bin/sh\ncat >/dev/null\nprintf half\necho no font >&2\nexit 1\n");
  EXPECT_EQ(refusal(), words + "no font");
}

TEST_F(EndToEnd, WhatIsNoDocumentBecomesNoPdfFile) {
  for (const char* text : {"", "title\ta\n", "no document\nend\n"}) {
    ChildProgram pdf("korva-pdf", {});
    pdf.Send(text);
    EXPECT_EQ(pdf.ReadToEnd(), Lines()) << text;
    EXPECT_EQ(pdf.Status(), 1) << text;
    EXPECT_EQ(pdf.Complaints(), "korva-pdf: standard input holds no document\n") << text;
  }
}

TEST_F(EndToEnd, WritesTheCurveOfAnotherSensorIntoATransmitter) {
  StartSim({"--fast"}, "Z2WT");
  const QString script = Write("script.txt",
                               "choose Z2WT\nclick cmdUpload\npick Combo(0) \"TC B (RH)\"\n"
                               "answer ok\nclick cmdDownload\n");
  ChildProgram cli("korva-cli", At({script}));
  EXPECT_EQ(Of(cli.ReadToEnd(), "box "), (Lines{kUploadDone, kMainJob.at(5), kMainJob.at(6)}));
  EXPECT_EQ(cli.Status(), 0);

  // The curve's first two points, and the type that says that it is whole.
  std::string expected = "D";
  const std::string file = Bytes("system/z2Kv/TC_TypeB_05.tct");
  for (const std::size_t at : {0U, 1U, 2U, 4U, 5U, 6U}) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(file.at(at));
    expected += {digits[byte >> 4U], digits[byte & 0xFU]};
  }
  const Lines replies = Ask({"G01", "I10", "D", "G99", "I10", "DS09C2-6", "D", "DS0201-1", "D"});
  EXPECT_TRUE(replies.at(2).ends_with(" TC B (RH)")) << replies.at(2);
  EXPECT_EQ(replies.at(6), expected);
  EXPECT_EQ(replies.at(8), "D05");
}

// The transmitters with two outputs.

TEST_F(EndToEnd, ReadsEditsAndWritesATransmitterWithTwoOutputsItsCurveAndATrim) {
  StartSim({"--fast", "--set", "01/10=13 User's TC"}, "Z8WT2");
  const QString script = Write("script.txt",
                               "choose Z8WT2\nclick cmdUpload\nshow Text(1) Text(2) txtSize\n"
                               // one of two numbers
                               "type Text(2) 500\nanswer ok\nclick cmdDownload\n"
                               // the user's curve
                               "cell TCFlexGrid 3 1\ntype txtLnrNewValue 1.25\nclick cmdLnrChangeOK\n"
                               "type txtSize 4\nclick cmdWriteInTable\nclick cmdReadOutTable\n"
                               "dump TCFlexGrid\n"
                               // a step of a trim
                               "after 1000 click cmdOut1ZeroP001\nafter 2500 click cmdOut1ZeroStart\n"
                               "click cmdOut1ZeroStart\nshow txtOut1Zero\nclose\n");
  ChildProgram cli("korva-cli", At({"--strict", script}));
  const Lines printed = cli.ReadToEnd();
  EXPECT_EQ(Of(printed, "refused "), Lines{});
  EXPECT_EQ(cli.Complaints(), "");
  EXPECT_EQ(Of(printed, "port ").back(), R"(port 1 "9600,n,8,1" open)");
  EXPECT_EQ(
      Of(printed, "box "),
      (Lines{
          kUploadDone, kMainJob.at(5), kMainJob.at(6),
          R"(box plain "ﾃｰﾌﾞﾙ ﾁｪｯｸ" "Tableの値を書き込みました。" ok -> ok)",
          R"(box plain "ﾃｰﾌﾞﾙ ﾁｪｯｸ" "Tableの値を読み出しました。" ok -> ok)",
          R"(box question "ﾌｧｲﾙに保存" "データは変更されています。保存しますか。" yes,no,cancel -> cancel)"}));
  EXPECT_EQ(Of(printed, "Text("), (Lines{R"(Text(1) shown enabled unlocked normal "0.0")",
                                         R"(Text(2) shown enabled unlocked normal "1000.0")"}));
  EXPECT_EQ(Of(printed, "txtSize"), Lines{R"(txtSize shown enabled unlocked normal "11")"});
  EXPECT_EQ(Of(printed, "TCFlexGrid "),
            (Lines{R"(TCFlexGrid 1 1 normal "0.000")", R"(TCFlexGrid 2 1 normal "0.500")",
                   R"(TCFlexGrid 3 1 normal "1.250")", R"(TCFlexGrid 4 1 normal "1.500")"}));
  EXPECT_EQ(Of(printed, "txtOut1Zero"), Lines{R"(txtOut1Zero shown enabled locked grey "0.01")"});
  const Lines held = Ask({"G01", "I14", "D", "G01", "I19", "D", "G01", "I01", "D"});
  EXPECT_TRUE(held.at(2).ends_with(" 0.000 500.000")) << held.at(2);
  EXPECT_TRUE(held.at(5).ends_with(" 0.010 %")) << held.at(5);
  EXPECT_TRUE(held.at(8).ends_with(" 0")) << "in monitor mode: " << held.at(8);
}

TEST_F(EndToEnd, LetsATransmitterCorrectTheCircuitOfItsSensorInThreeSeconds) {
  const auto boxes_of = [this](const char* model, const std::string& actions) {
    StartSim({"--fast", "--set", "01/04=85"}, model);
    const QString script =
        Write("script.txt", std::string("choose ") + model + "\nafter 2900 show cmdReadOutComp\n" + actions +
                                "\nshow txtCompX txtCompY cmdReadOutComp\n");
    ChildProgram cli("korva-cli", At({"--strict", script}));
    const Lines printed = cli.ReadToEnd();
    EXPECT_EQ(Of(printed, "box "), Lines{}) << model;
    EXPECT_EQ(Of(printed, "cmdReadOutComp "),
              (Lines{R"(cmdReadOutComp shown disabled unlocked normal "読み出し")",
                     R"(cmdReadOutComp shown enabled unlocked normal "読み出し")"}))
        << model;
    return Of(printed, "txtComp");
  };
  EXPECT_EQ(boxes_of("Z8WR2", "click cmdLineSet"), (Lines{R"(txtCompX shown enabled locked grey "0.850")",
                                                          R"(txtCompY hidden enabled locked grey "0.000")"}));
  // 85 % is now 100 %: 15 / 85 of it more.
  EXPECT_EQ(boxes_of("Z8WM2", "click cmd100Per"), (Lines{R"(txtCompX shown enabled locked grey "0.000")",
                                                         R"(txtCompY shown enabled locked grey "17.647")"}));
}

TEST_F(EndToEnd, ReadsADeviceThatEndsItsRepliesWithTwoCarriageReturnsAt1200Baud) {
  StartSim();
  const QStringList upload = At({"--line", Write("script.txt", kUpload + "dump\n")});
  const Lines with_one = ChildProgram("korva-cli", upload).ReadToEnd();
  EXPECT_TRUE(Holds(with_one, kUploadDone));
  for (const char* fault : {"two-line-ends", "late-second-line-end"}) {
    StartSim({"--fault", fault});
    EXPECT_EQ(ChildProgram("korva-cli", upload).ReadToEnd(), with_one) << fault;
  }
}

TEST_F(EndToEnd, HoldsAConversationThroughPipes) {
  StartSim();
  ChildProgram cli("korva-cli", At({"-"}));
  cli.Send("start");
  for (const std::string& line : kStart) {
    EXPECT_EQ(cli.ReadLine(), line);
  }
  cli.Send("show ProgressBar");
  EXPECT_EQ(cli.ReadLine(), "ProgressBar shown 0");
  cli.Send("type txtAuthor 山田\nshow txtAuthor");
  EXPECT_EQ(cli.ReadLine(), R"(txtAuthor shown enabled unlocked normal "山田")");
  EXPECT_EQ(cli.ReadToEnd(), Lines{});
  EXPECT_EQ(cli.Status(), 0);
}

TEST_F(EndToEnd, StaysAliveBetweenTheLinesOfAConversation) {
  StartSim();
  ChildProgram cli("korva-cli", At());
  cli.Send("after 100 show ProgressBar\nstart");
  EXPECT_EQ(cli.ReadUntil("ProgressBar").back(), "ProgressBar shown 0");
  cli.Send("after 100 close\nstart");
  EXPECT_EQ(cli.ReadLine(), "end");
  EXPECT_EQ(cli.Status(), 0);  // its input is still open
}

TEST_F(EndToEnd, EndsWithinOneExchangeWhenItIsClosedAfterTheDeviceVanished) {
  StartSim({"--fast", "--latency", "50"});
  ChildProgram cli("korva-cli", At({"--line"}));
  cli.Send("choose QHN\nanswer yes ok\nafter 3000 close\nclick cmdUpload");
  cli.ReadUntil(R"(> "I02")");
  sim->Terminate();
  EXPECT_FALSE(fs::exists(fs::symlink_status(home / "ports" / "COM1")));
  const Lines rest = cli.ReadUntil("end");
  EXPECT_TRUE(Holds(rest, "< none"));
  EXPECT_EQ(cli.Status(), 0);
}

TEST_F(EndToEnd, TellsOfAVanishedDeviceAndReadsItWhenItIsBack) {
  StartSim();
  ChildProgram cli("korva-cli", At());
  cli.Send(kUpload);
  cli.ReadUntil(kUploadDone);
  sim->Terminate();
  cli.Send("answer no\nclick cmdUpload\nshow cmdUpload");  // no: the set need not be saved
  const Lines failed = cli.ReadUntil("cmdUpload");
  EXPECT_EQ(Of(failed, R"(box warning "通信ﾃｽﾄ" )").size(), 1U);
  EXPECT_EQ(failed.back(), R"(cmdUpload shown enabled unlocked normal "アップロード")");
  StartSim();
  cli.Send("click OptCom1");
  EXPECT_EQ(cli.ReadLine(), R"(port 1 "1200,n,8,1" open)");
  cli.Send("answer yes ok\nclick cmdUpload\ndump");
  EXPECT_TRUE(Holds(cli.ReadUntil("1 24"), kUploadDone));
}

// Live values and the forced output.

TEST_F(EndToEnd, MonitorsValuesThatMoveUntilItIsStopped) {
  StartSim({"--fast"}, "QN");
  std::string script = "choose QN\n";
  for (int ms = 300; ms <= 3000; ms += 300) {
    script += "after " + std::to_string(ms) + " show Text(4)\n";
  }
  script += "after 2900 show cmdMonitorON\nafter 3100 click cmdMonitorOFF\n";
  script += "after 3150 show lbl_Waitfor\nclick cmdMonitorON\nshow Text(4) cmdMonitorON lbl_Waitfor\n";
  ChildProgram cli("korva-cli", At({"--line", Write("script.txt", script)}));
  const Lines printed = cli.ReadToEnd();
  EXPECT_EQ(cli.Status(), 0);
  Lines values = Of(printed, "Text(4) ");
  ASSERT_EQ(values.size(), 11U);
  EXPECT_TRUE(values.back().starts_with(R"(Text(4) shown enabled locked grey ")")) << values.back();
  std::set<std::string> moving;
  for (const std::string& value : values) {
    moving.insert(value.substr(value.find('"')));
  }
  moving.erase(R"("")");
  EXPECT_GE(moving.size(), 2U);
  EXPECT_EQ(Of(printed, "cmdMonitorON "), (Lines{R"(cmdMonitorON shown disabled unlocked normal "ON")",
                                                 R"(cmdMonitorON shown enabled unlocked normal "ON")"}));
  EXPECT_EQ(Of(printed, "lbl_Waitfor "),
            (Lines{R"(lbl_Waitfor shown enabled unlocked normal "お待ち下さい")",
                   R"(lbl_Waitfor hidden enabled unlocked normal "お待ち下さい")"}));
  EXPECT_EQ(Of(printed, "box "), Lines{});
}

TEST_F(EndToEnd, ForcesAnOutputThatTheInputValuesFollowUntilOff) {
  StartSim({"--fast"}, "QN");
  const std::string force = "choose QN\ntype Text(1) 75.5\nclick cmdSet\n";
  const std::string forced = force + "show Text(1) Text(2) cmdSet cmdStatusMonOFF\nclick cmdMonitorON\n";
  ChildProgram cli("korva-cli", At({Write("forced.txt", forced)}));
  Lines expected = kStart;
  for (const char* line :
       {R"(Text(1) shown disabled unlocked normal "75.5")", R"(Text(2) shown enabled locked grey "75.50")",
        R"(cmdSet shown disabled unlocked normal "OUTPUT")",
        R"(cmdStatusMonOFF shown enabled unlocked normal "OFF")", "refused click cmdMonitorON: disabled"}) {
    expected.emplace_back(line);
  }
  EXPECT_EQ(cli.ReadToEnd(), expected);
  // The script left the output forced: the device's values are looked at past the program.
  EXPECT_EQ(Ask({"G01", "I03", "G01", "I05", "G01", "I07"}),
            (Lines{"COK", "DOUTSET   75.50", "COK", "DINPPCT   75.50", "COK", "DOUTPCT   75.50"}));

  ChildProgram released(
      "korva-cli",
      At({"--line",
          Write("released.txt", force + "after 300 click cmdStatusMonOFF\nwait 2000\nshow cmdSet\n")}));
  const Lines printed = released.ReadToEnd();
  EXPECT_EQ(Of(printed, "> \"D"), (Lines{R"(> "D1")", R"(> "D75.5")", R"(> "D0")"}));
  EXPECT_EQ(printed.back(), R"(cmdSet shown enabled unlocked normal "OUTPUT")");
  EXPECT_NE(Ask({"G01", "I05"}).back(), "DINPPCT   75.50");
}

TEST_F(EndToEnd, ReleasesAForcedOutputBeforeACloseEndsIt) {
  StartSim({"--fast"}, "QN");
  ChildProgram cli("korva-cli", At({"--line", Write("script.txt",
                                                    "choose QN\ntype Text(1) 75.5\nclick cmdSet\nclose\n"
                                                    "wait 200\nclick cmdStatusMonOFF\n")}));
  const Lines printed = cli.ReadToEnd();
  ASSERT_GE(printed.size(), 3U);
  EXPECT_EQ(Lines(printed.end() - 3, printed.end()), (Lines{R"(> "D0")", R"(< "D0")", "end"}));
  EXPECT_EQ(cli.Status(), 0);
  EXPECT_EQ(Ask({"G01", "I01"}).back(), "D0");
}

TEST_F(EndToEnd, RefusesAnOutputOutOfRangeAndSendsNothing) {
  StartSim({"--fast"}, "QN");
  ChildProgram cli("korva-cli", At({"--line", Write("script.txt",
                                                    "choose QN\ntype Text(1) 115.01\nclick cmdSet\n"
                                                    "show Text(1) Text(2)\n")}));
  Lines expected = kStart;
  expected.emplace_back(
      R"(box warning "設定値ﾁｪｯｸ" "出力設定値は、-15.00% から 115.00% の範囲です。" ok -> ok)");
  expected.emplace_back(R"(Text(1) shown enabled unlocked normal "115.01")");
  expected.emplace_back(R"(Text(2) shown enabled locked grey "")");
  EXPECT_EQ(cli.ReadToEnd(), expected);
}

// Scripts and exit statuses.

TEST_F(EndToEnd, ReadsAScriptWithAByteOrderMarkAndCrLf) {
  StartSim();
  ChildProgram cli(
      "korva-cli",
      At({Write("script.txt", "\xEF\xBB\xBFtype txtAuthor 山田\r\n\r\n# 注\r\nshow txtAuthor")}));
  Lines expected = kStart;
  expected.emplace_back(R"(txtAuthor shown enabled unlocked normal "山田")");
  EXPECT_EQ(cli.ReadToEnd(), expected);
  EXPECT_EQ(cli.Status(), 0);
}

TEST_F(EndToEnd, ReadsItsOwnFolderByDefault) {
  StartSim();
  fs::copy_file(fs::path(KORVA_HOME) / "korva-cli", home / "korva-cli");
  ChildProgram cli(home / "korva-cli", {});
  cli.Send("show txtDirName");
  EXPECT_EQ(cli.ReadUntil("txtDirName").back(),
            "txtDirName shown enabled unlocked normal \"" + (home / "data").string() + "\"");
}

TEST_F(EndToEnd, EndsWithStatus2BehindAWrongLineThatItNames) {
  StartSim();
  const QString script = Write("script.txt", "start\n\nclik cmdUpload\nshow ProgressBar\n");
  ChildProgram cli("korva-cli", At({script}));
  EXPECT_EQ(Of(cli.ReadToEnd(), "ProgressBar"), Lines{});
  EXPECT_EQ(cli.Status(), 2);
  EXPECT_EQ(cli.Complaints(), "korva-cli: line 3: \"clik cmdUpload\": no action\n");

  ChildProgram on("korva-cli", At({"--keep-going", script}));
  EXPECT_EQ(Of(on.ReadToEnd(), "ProgressBar"), Lines{"ProgressBar shown 0"});
  EXPECT_EQ(on.Status(), 2);
}

TEST_F(EndToEnd, EndsWithStatus4WhenItIsStrictAndSomethingWasRefused) {
  StartSim();
  const QString refused = Write("refused.txt", "choose NONE\nshow KvCfg_Tab(0)\nclose\n");
  ChildProgram strict("korva-cli", At({"--strict", refused}));
  const Lines printed = strict.ReadToEnd();
  EXPECT_EQ(Of(printed, "refused"), Lines{"refused choose NONE: no such entry"});
  EXPECT_EQ(Of(printed, "KvCfg_Tab"), Lines{R"(KvCfg_Tab(0) shown enabled "ﾌｧｲﾙ")"});
  EXPECT_EQ(printed.back(), "end");
  EXPECT_EQ(strict.Status(), 4);

  ChildProgram lenient("korva-cli", At({refused}));
  EXPECT_EQ(lenient.Status(), 0);
  ChildProgram clean("korva-cli", At({"--strict", Write("clean.txt", "choose QHN\nclose\n")}));
  EXPECT_EQ(clean.Status(), 0);
}

TEST_F(EndToEnd, TellsOfAnAnswerThatABoxDoesNotOffer) {
  StartSim();
  ChildProgram cli("korva-cli",
                   At({"--strict", Write("script.txt", "choose QHN\nanswer ok\nclick cmdUpload\n")}));
  const Lines printed = cli.ReadToEnd();
  const std::string declined = kModelMatches.substr(0, kModelMatches.size() - 3) + "no";
  const auto refusal = std::find(printed.begin(), printed.end(), "refused answer ok: not offered");
  ASSERT_NE(refusal, printed.end());
  EXPECT_EQ(*std::next(refusal), declined);
  EXPECT_EQ(cli.Status(), 4);
  EXPECT_EQ(cli.Complaints(), "");
}

TEST_F(EndToEnd, EndsWithStatus2WithoutAScriptOrWithAWrongArgument) {
  ChildProgram missing("korva-cli", At({"/no/such/script"}));
  EXPECT_EQ(missing.Status(), 2);
  EXPECT_EQ(missing.Complaints(),
            "korva-cli: can't read the script /no/such/script: No such file or directory\n");
  ChildProgram a_folder("korva-cli", At({folder.path()}));
  EXPECT_EQ(a_folder.Status(), 2);
  EXPECT_EQ(a_folder.Complaints(), "korva-cli: can't read the script: Is a directory\n");
  ChildProgram unknown("korva-cli", At({"--lime"}));
  EXPECT_EQ(unknown.Status(), 2);
  EXPECT_EQ(unknown.Complaints(), "korva-cli: unknown option \"--lime\"; --help tells the choices\n");
}

TEST_F(EndToEnd, EndsWithStatus3WhenHomeIsNoFolder) {
  for (const QString& no_folder : {folder.path() + "/none", Write("file", "")}) {
    ChildProgram cli("korva-cli", {"--home", no_folder});
    EXPECT_EQ(cli.Status(), 3);
    EXPECT_EQ(cli.Complaints(), "korva-cli: --home: there is no folder " + no_folder.toStdString() + "\n");
  }
}

TEST_F(EndToEnd, EndsWithStatus1WhenTheProgramFails) {
  fs::remove(home / "system");
  ChildProgram cli("korva-cli", At());
  cli.Send("start");
  const std::string failure = cli.ReadLine();
  EXPECT_TRUE(failure.starts_with("failure \"")) << failure;
  EXPECT_NE(failure.find("MdlVTRMFx.jpn"), std::string::npos) << failure;
  EXPECT_EQ(cli.Status(), 1);
  EXPECT_EQ(cli.ReadToEnd(), Lines{});
}

// The end from outside, and output that nobody takes.

/// The program of this build through a shell, which closes or leads its standard streams elsewhere.
QStringList InShell(const std::string& redirected, const QStringList& arguments) {
  const QString program = QString::fromUtf8(KORVA_HOME "/korva-cli");
  return QStringList{"-c", QString::fromStdString(R"("$0" "$@" )" + redirected), program} + arguments;
}

TEST_F(EndToEnd, FinishesADownloadBeforeASignalEndsIt) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    StartSim({"--fast", "--latency", "5"});
    const QString script = Write("script.txt", kUpload + "answer ok\nclick cmdDownload\nshow Text(0)\n");
    ChildProgram cli("korva-cli", At({"--line", script}));
    cli.ReadUntil(R"(> "D1")");
    kill(cli.Process(), signal);
    const Lines rest = cli.ReadUntil("end");
    EXPECT_TRUE(Holds(rest, kMainJob.back())) << signal;
    EXPECT_EQ(Of(rest, "> \"D").back(), R"(> "D0")");
    EXPECT_EQ(Of(rest, "Text(0)"), Lines{}) << "the script is over";
    EXPECT_EQ(cli.Status(), 0);
    EXPECT_EQ(Ask({"G01", "I01"}).back(), "D0");
  }
}

TEST_F(EndToEnd, EndsOnASignalWhileItWaitsForTheNextLine) {
  StartSim();
  ChildProgram cli("korva-cli", At());
  cli.Send("start\nshow ProgressBar");
  cli.ReadUntil("ProgressBar");
  kill(cli.Process(), SIGTERM);
  EXPECT_EQ(cli.ReadLine(), "end");
  EXPECT_EQ(cli.Status(), 0);
}

TEST_F(EndToEnd, EndsOnASignalAlthoughTheSetIsNotSaved) {
  StartSim();
  ChildProgram cli("korva-cli", At());
  cli.Send("choose QHN\ntype Text(0) X\nshow Text(0)\nwait 60000");
  cli.ReadUntil("Text(0)");
  kill(cli.Process(), SIGTERM);
  EXPECT_EQ(
      cli.ReadLine(),
      R"(box question "ﾌｧｲﾙに保存" "データは変更されています。保存しますか。" yes,no,cancel -> cancel)");
  EXPECT_EQ(cli.Status(), 0);
  EXPECT_EQ(cli.ReadToEnd(), Lines{});
}

TEST_F(EndToEnd, EndsWithStatus5WhenWhatItPrintsCantBeWritten) {
  const QString script = Write("script.txt", "start\nwait 60000\n");
  for (const char* redirected : {">/dev/full", ">&-", "| head -n 0; exit ${PIPESTATUS[0]}"}) {
    ChildProgram shell("/bin/bash", InShell(redirected, At({script})));
    EXPECT_EQ(shell.Status(), 5) << redirected;
    EXPECT_TRUE(shell.Complaints().starts_with("korva-cli: can't print: ")) << redirected;
  }
  ChildProgram help("/bin/bash", InShell(">/dev/full", {"--help"}));
  EXPECT_EQ(help.Status(), 5);
}

TEST_F(EndToEnd, FinishesADownloadWhoseReportNobodyTakes) {
  StartSim({"--fast", "--latency", "5"});
  std::string lines = kUpload + "answer ok\nclick cmdDownload\n";
  for (int i = 0; i < 100; ++i) {
    lines += "show ProgressBar\nwait 100\n";
  }
  const QString script = Write("script.txt", lines);
  ChildProgram shell("/bin/bash",
                     InShell(R"(| sed '/^> "D1"$/q' ; exit ${PIPESTATUS[0]})", At({"--line", script})));
  EXPECT_EQ(shell.Status(), 5);
  EXPECT_EQ(Ask({"G01", "I01"}).back(), "D0");
}

TEST_F(EndToEnd, AFileThatWouldGrowTooLargeIsToldAndTheProgramGoesOn) {
  StartSim();
  const QString script = Write("script.txt", "choose QHN\ntype txtMemo " + std::string(60000, 'x') +
                                                 "\nfile a.cfg\nclick cmdSave\nshow ProgressBar\n");
  ChildProgram shell("/bin/bash", QStringList{"-c", R"(ulimit -f 8; exec "$0" "$@")",
                                              QString::fromUtf8(KORVA_HOME "/korva-cli")} +
                                      At({script}));
  const Lines printed = shell.ReadToEnd();
  EXPECT_EQ(Of(printed, "box "), Lines{R"(box warning "ﾌｧｲﾙに保存" "ﾌｧｲﾙが大きすぎます。" ok -> ok)"});
  EXPECT_EQ(printed.back(), "ProgressBar shown 0");
  EXPECT_EQ(shell.Status(), 0);
}

TEST_F(EndToEnd, NeverGivesAClosedStandardStreamToAFileOrThePort) {
  StartSim();
  const QString script = Write("script.txt", "start\nwait 60000\n");
  ChildProgram shell("/bin/bash", QStringList{"-c", R"(exec "$0" "$@" <&- 2>&-)",
                                              QString::fromUtf8(KORVA_HOME "/korva-cli")} +
                                      At({script}));
  shell.ReadUntil(kStart.back());
  const fs::path streams = "/proc/" + std::to_string(shell.Process()) + "/fd";
  EXPECT_EQ(fs::read_symlink(streams / "0"), "/dev/null");
  EXPECT_EQ(fs::read_symlink(streams / "2"), "/dev/null");

  ChildProgram no_input("/bin/bash", InShell("<&-", At()));
  EXPECT_EQ(no_input.Status(), 2);
  EXPECT_EQ(no_input.Complaints(), "korva-cli: can't read the script: Bad file descriptor\n");
}

TEST_F(EndToEnd, ASimulatedDeviceGivesNoClosedStandardStreamToItsTerminal) {
  ChildProgram shell("/bin/bash", QStringList{"-c", R"(exec "$0" "$@" <&- 2>&-)",
                                              QString::fromUtf8(KORVA_HOME "/korva-sim")} +
                                      At({"--fast"}));
  EXPECT_TRUE(shell.ReadLine().starts_with("korva-sim: "));
  const fs::path streams = "/proc/" + std::to_string(shell.Process()) + "/fd";
  EXPECT_EQ(fs::read_symlink(streams / "0"), "/dev/null");
  EXPECT_EQ(fs::read_symlink(streams / "2"), "/dev/null");
}

TEST_F(EndToEnd, ExplainsItself) {
  ChildProgram cli("korva-cli", {"--help"});
  EXPECT_EQ(cli.ReadLine(), "korva-cli: the configurator without a window");
  EXPECT_EQ(cli.Status(), 0);
}

}  // namespace
}  // namespace korva::cli

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
