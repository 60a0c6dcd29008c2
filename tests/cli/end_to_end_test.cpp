// The real korva-cli, and the real korva-sim behind a real pseudo-terminal.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "child_program.h"

namespace korva::cli {
namespace {

namespace fs = std::filesystem;
using test::ChildProgram;
using test::Lines;

/// A program's folder of its own, with the build's data, for the programs and their line.
struct EndToEnd : testing::Test {
  EndToEnd() {
    fs::create_directory_symlink(fs::path(KORVA_HOME) / "system", home / "system");
    fs::create_directory(home / "data");
  }

  /// Starts a simulated QHN on COM 1 and waits until it serves.
  void StartSim(const QStringList& arguments = {"--fast"}) {
    sim.emplace(
        "korva-sim",
        QStringList{"--home", folder.path(), "--model", "QHN", "--set", "01/02=BOILER-7"} + arguments);
    EXPECT_TRUE(sim->ReadLine().starts_with("korva-sim: QHN on "));
  }

  /// Makes a file in the folder; its path.
  QString Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(home / name, std::ios::binary) << bytes;
    return QString::fromStdString((home / name).string());
  }

  [[nodiscard]] std::string Bytes(const std::string& name) const {
    std::ifstream file(home / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  [[nodiscard]] QStringList At(const QStringList& arguments = {}) const {
    return QStringList{"--home", folder.path()} + arguments;
  }

  QTemporaryDir folder{QDir::tempPath() + "/korva 試験 XXXXXX"};
  fs::path home = folder.path().toStdString();
  std::optional<ChildProgram> sim;
};

bool Holds(const Lines& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

Lines Of(const Lines& lines, std::string_view beginning) {
  Lines found;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
               [&](const std::string& line) { return line.starts_with(beginning); });
  return found;
}

const Lines kStart = {R"(port 1 "1200,n,8,1" open)", "page KvConfig", R"(port 1 "1200,n,8,1" open)"};
const std::string kModelMatches =
    R"(box question "ｱｯﾌﾟﾛｰﾄﾞ" "選択された機種名は、接続された変換器と一致していますか。" yes,no -> yes)";
const std::string kStartUpload = R"(box question "ｱｯﾌﾟﾛｰﾄﾞ" "ｱｯﾌﾟﾛｰﾄﾞを開始します。" ok,cancel -> ok)";
const std::string kUploadDone = R"(box plain "ｱｯﾌﾟﾛｰﾄﾞ" "ｱｯﾌﾟﾛｰﾄﾞ完了。" ok -> ok)";
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
  EXPECT_EQ(Of(printed, "box "), (Lines{kModelMatches, kStartUpload, kUploadDone,
                                        R"(box plain "設定値ﾁｪｯｸ" "設定値ﾁｪｯｸ完了。" ok -> ok)",
                                        R"(box plain "ﾌｧｲﾙに保存" "ファイルの保存が終了しました。" ok -> ok)",
                                        R"(box question "ﾀﾞｳﾝﾛｰﾄﾞ" "ﾀﾞｳﾝﾛｰﾄﾞを開始します。" ok,cancel -> ok)",
                                        R"(box plain "ﾀﾞｳﾝﾛｰﾄﾞ" "ﾀﾞｳﾝﾛｰﾄﾞ完了。" ok -> ok)"}));
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
