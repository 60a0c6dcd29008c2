// Each part of the program, from the ground up, in a start of the real programs: a simulated device behind a
// real pseudo-terminal, and the pages without a window, or with it on no screen. The same parts stand in the
// table of docs/architecture.md, with the tests that show them in detail.
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "end_to_end.h"

namespace korva::cli {
namespace {

using test::ChildProgram;
using test::EndToEnd;
using test::Holds;
using test::Lines;
using test::Of;

const char* const kUploaded = R"(box plain "ｱｯﾌﾟﾛｰﾄﾞ" "ｱｯﾌﾟﾛｰﾄﾞ完了。" ok -> ok)";
const char* const kDownloaded = R"(box plain "ﾀﾞｳﾝﾛｰﾄﾞ" "ﾀﾞｳﾝﾛｰﾄﾞ完了。" ok -> ok)";
const char* const kChecked = R"(box plain "設定値ﾁｪｯｸ" "設定値ﾁｪｯｸ完了。" ok -> ok)";
const char* const kBad =
    R"(box warning "設定値ﾁｪｯｸ" "不適当なデータがあります。色が反転した値を変更して下さい。" ok -> ok)";
/// Asks for the model and the start; transmitters that tell their model ask nothing.
const std::string kUploadOf = "answer yes ok\nclick cmdUpload\n";
const std::string kUploadTold = "click cmdUpload\n";
const std::string kDownloadSet = "answer ok\nclick cmdDownload\n";

/// What is done with a device of a model, whose page is chosen, and lines that this prints.
struct DeviceRun {
  const char* model;
  std::string script;
  Lines printed;
  QStringList device = {};  ///< further options of the simulated device
  Lines asked = {};         ///< commands past the program, at the end
  std::string answer = {};  ///< to the last of them
};

struct ProgramPart {
  const char* what;  ///< as in docs/architecture.md
  std::vector<DeviceRun> runs;
};
void PrintTo(const ProgramPart& part, std::ostream* out) { *out << part.what; }

/// The parts, each of which needs no later one.
const std::vector<ProgramPart>& Parts() {
  static const std::vector<ProgramPart> parts = {
      {"start, port, link test, one item in both dialects",
       {{"QHN",
         kUploadOf + "type Text(0) BOILER-8\n" + kDownloadSet,
         {R"(port 1 "1200,n,8,1" open)", R"(> "G00")", R"(< "COK")", R"(> "I99")", R"(< "DSYSVER   1.00")",
          R"(< "DTG:BOILER-7  ")", R"(> "DBOILER-8")", R"(< "DTG:BOILER-8  ")"}},
        {"QEY",
         kUploadOf,
         {R"(< "D      enter item")", R"(< "D  System Version")", R"(< "D   SYSVER   1.00")"}}}},
      {"catalogue, choice of a model, its page at the family's speed",
       {{"QN",
         "choose Z2WU\nchoose Z2WQ\nchoose QN\n",
         {"page z2UnivConfig", R"(port 1 "38400,n,8,1" open)", "page z2KvConfig_V2",
          R"(port 1 "9600,n,8,1" open)", "page KvConfig", R"(port 1 "1200,n,8,1" open)"}}}},
      {"definitions, and the refusal of faulty ones",
       {{"QL",
         "show lbl_Item(17)\nchoose QEY\nchoose QNA2\nchoose QXI\nchoose Z2WT\nchoose Z2WU\nchoose Z2WQ\n"
         "choose Z2WPA\nchoose Z2WPR\nchoose Z2WPL\nchoose Z8WV2\n",
         {"page KvConfig_V2", "page KvConfig_V3", "page UnivConfig", "page z2KvConfig", "page z2UnivConfig",
          "page z2KvConfig_V2", "page z2KvConfig_V3", "page z2KvConfig_V4", "page z2KvConfig_V5",
          "page z8KvConfig"}}}},
      {"fields and lists from the definition, edits into the set",
       {{"Z8WV2",
         "pick Combo(1) \"0-10 V\"\ntype Text(6) 9\nshow lblOut1Scale100 Text(6)\ndump\n",
         {R"(lblOut1Scale100 shown enabled unlocked normal "100%")",
          R"(Text(6) shown enabled unlocked normal "9")", R"(1 11 "0-10 V")", R"(1 12 "0 9")"}}}},
      {"modes, reset of all parameters, restart with its window",
       {{"QEY",
         kUploadOf + kDownloadSet,
         {R"(> "D0")", R"(> "D1")", R"(> "I34")", R"(< "Dall prms default")", kDownloaded}},
        {"Z2WU",
         "click cmdReadOutModbus\nclick cmdResetModbus\nshow Text(9)\n",
         {"window frmWaiting open", R"(> "DR")", "window frmWaiting closed",
          R"(Text(9) shown enabled unlocked normal "2A")"},
         {"--set", "01/81=2A"}}}},
      {"upload with prefixes and conversions",
       {{"QUO",
         kUploadOf + "click optTempUnit(1)\ndump\n",
         {R"(< "DTG:BOILER-7  ")", kUploaded, R"(1 2 "BOILER-7")", R"(1 15 "3200")", R"(1 21 "deg F")"}}}},
      {"undo and redo of the user's edits",
       {{"QN",
         kUploadOf +
             "type Text(9) 100.4\nclick optTempUnit(1)\nshow Text(9)\nclick cmdUndo\n"
             "show Text(9) lbl_unit(9) cmdRedo\nclick cmdUndo\nclick cmdRedo\nclick cmdRedo\nshow cmdUndo "
             "cmdRedo\n",
         {R"(Text(9) shown enabled unlocked normal "213")",
          R"(Text(9) shown enabled unlocked normal "100.4")",
          R"(lbl_unit(9) shown enabled unlocked normal "deg C")",
          R"(cmdRedo shown enabled unlocked normal "やり直し")",
          R"(cmdUndo shown enabled unlocked normal "元に戻す")",
          R"(cmdRedo shown disabled unlocked normal "やり直し")"}}}},
      {"value check and download with verification",
       {{"QHN",
         kUploadOf +
             "type Text(0) \"TOO LONG A TAG\"\nclick cmdCheck\nshow Text(0)\n"
             "type Text(0) BOILER-8\nclick cmdCheck\n" +
             kDownloadSet,
         {kBad, R"(Text(0) shown enabled unlocked bad "TOO LONG A TAG")", kChecked, R"(< "DTG:BOILER-8  ")",
          kDownloaded},
         {},
         {"G01", "I02"},
         "DTG:BOILER-8  "}}},
      {"configuration files",
       {{"QHN",
         kUploadOf + "type txtMemo \"one\\ntwo\"\nfile a.cfg\nclick cmdSave\nchoose Z2WT\nfile a.cfg\n"
                     "click cmdOpen\nshow Text(0) txtMemo txtFileTitle\n",
         {R"(box plain "ﾌｧｲﾙに保存" "ファイルの保存が終了しました。" ok -> ok)", "page z2KvConfig",
          "page KvConfig", R"(Text(0) shown enabled unlocked normal "BOILER-7")",
          R"(txtMemo shown enabled unlocked normal "one\ntwo")",
          R"(txtFileTitle shown enabled locked grey "a.cfg")"}}}},
      {"live values",
       {{"QN",
         "after 900 show cmdMonitorON\nafter 2500 click cmdMonitorOFF\nclick cmdMonitorON\nshow Text(3)\n",
         {R"(cmdMonitorON shown disabled unlocked normal "ON")",
          R"(Text(3) shown enabled locked grey "393.25")"},
         {"--set", "01/04=393.25"}}}},
      {"live values in large, with least, most, age and trend",
       {{"QN",
         "after 2500 watch\nafter 2500 click cmdMonitorOFF\nclick cmdMonitorON\nwatch\n",
         {"watch running", R"(watch 04 "測定温度" "393.25" "deg C" min "393.25" max "393.25")",
          "watch ended"},
         {"--set", "01/04=393.25"}}}},
      {"forced output; trims by differences and by values",
       {{"QN",
         "type Text(1) 75.5\nclick cmdSet\nshow Text(2)\nclick cmdStatusMonOFF\n",
         {R"(> "D75.5")", R"(Text(2) shown enabled locked grey "75.50")", R"(< "D0")"}},
        {"Z2WQ",
         "after 300 click cmdOutZeroP001\nafter 2000 click cmdOutZeroStart\nclick cmdOutZeroStart\n"
         "show Text(13)\n",
         {R"(> "DZ1")", R"(Text(13) shown enabled unlocked highlight "0.01")"}},
        {"Z8WV2",
         "after 300 click cmdOut2SpanM01\nafter 2000 click cmdOut2SpanStart\nclick cmdOut2SpanStart\n"
         "show txtOut2Span\n",
         {R"(> "D-0.1")", R"(txtOut2Span shown enabled locked grey "99.90")"}}}},
      {"the linearizer's table and its editor",
       {{"QHNY1",
         kUploadOf + "click Opt_Lnr(1)\ncell LnrFlexGrid 1 1\ntype txtLnrNewValue 305\n"
                     "click cmdLnrChangeOK\nclick cmdCheck\ndump LnrFlexGrid\n",
         {kBad, R"(LnrFlexGrid 1 1 bad "305")"}}}},
      {"table files",
       {{"Z2WQ",
         "click Opt_Lnr(1)\nfile points.csv\nclick cmd_csvFileOpen\nfile written.csv\n"
         "click cmd_csvFileSave\nclick Opt_Lnr(0)\nclick Opt_Lnr(1)\nfile written.csv\n"
         "click cmd_csvFileOpen\nshow txtSize\ndump LnrFlexGrid\n",
         {R"(txtSize shown enabled unlocked normal "3")", R"(LnrFlexGrid 1 1 normal "0")",
          R"(LnrFlexGrid 2 2 normal "25.00")", R"(LnrFlexGrid 3 1 normal "100.00")"}}}},
      {"transfer of a table",
       {{"QHNY1",
         kUploadOf + "click Opt_Lnr(1)\ncell LnrFlexGrid 1 2\ntype txtLnrNewValue 12.5\n"
                     "click cmdLnrChangeOK\nanswer ok yes\nclick cmdDownload\n",
         {R"(> "D12.5")", R"(< "DY(01):   12.50")", kDownloaded}},
        {"Z2WPL",
         "click Opt_Lnr(1)\nclick cmdReadOutTable\ndump LnrFlexGrid\n",
         {R"(box plain "ﾃｰﾌﾞﾙ ﾁｪｯｸ" "Tableの値を読み出しました。" ok -> ok)",
          R"(LnrFlexGrid 100 2 normal "100.00")"}}}},
      {"a device's memory, byte by byte",
       {{"Z2WT",
         kUploadTold + kDownloadSet,
         {R"(> "G99")", R"(< "D   EEPROM Access")", R"(> "DS004D-1")", R"(< "D00")", R"(> "DS0030-8")"}}}},
      {"sensors' curves",
       {{"Z2WT",
         kUploadTold + "pick Combo(0) \"TC B (RH)\"\n" + kDownloadSet +
             "click cmdNew\nclick cmdUpload\ndump\n",
         {kDownloaded, kUploaded, R"x(1 10 "TC B (RH)")x"},
         {},
         {"G99", "I10", "DS0201-1", "D"},
         "D05"}}},
      {"date, types and calibration in the memory",
       {{"Z2WT",
         kUploadTold + "pick Combo(0) \"TC B (RH)\"\n" + kDownloadSet,
         {R"(> "DS004A-2")", R"(> "DS0049-1")", R"(> "DS0048-1")", R"(> "DS004E-1")", R"(> "D05")"},
         {},
         {"G99", "I10", "DS004E-1", "D"},
         "D05"}}},
      {"cold junction",
       {{"Z2WT",
         kUploadTold + "answer yes\nclick cmdChangeCJM\ntype Text(7) 25.31\ntype Text(8) 574.2\n"
                       "answer yes\nclick cmdWriteInCJM\n",
         {R"(> "D25.31")", R"(> "D574.2")", R"(box plain "CJM交換" "温度補正値を変更しました。" ok -> ok)"}},
        {"Z8WT2",
         kUploadTold + "answer yes\nclick cmdChangeCJM\nanswer yes\nclick cmdDefaultCJM\n",
         {R"(> "D25.000 574.000")",
          R"(box plain "CJM交換" "温度補正値をﾃﾞﾌｫﾙﾄ設定値にしました。" ok -> ok)"}}}},
      {"universal converters with pictures",
       {{"QXI",
         kUploadOf + "pick Combo(0) Tc-2:K(CA)\ntab 5\nshow ImgInput lbl_unit(1)\n" + kDownloadSet,
         {R"(ImgInput shown "In_tc.bmp")", R"(lbl_unit(1) shown enabled unlocked normal "deg C")",
          kDownloaded}}}},
      {"Modbus settings",
       {{"Z2WU",
         "click cmdReadOutModbus\ntype Text(9) 2A\nclick cmdWriteInModbus\nclick cmdReadOutModbus\nshow "
         "Text(9)\n",
         {R"(> "D2A")", R"(box plain "Modbus設定変更" "Modbus通信ﾌﾟﾛﾄｺﾙを変更しました。" ok -> ok)",
          R"(Text(9) shown enabled unlocked normal "2A")"}}}},
      {"two outputs, two numbers in one item",
       {{"Z8WV2",
         kUploadTold + "type Text(2) 50.5\ntype Text(9) 5\n" + kDownloadSet,
         {R"(> "D-100.000 50.500")", R"(> "D5.000 20.000")", kDownloaded},
         {},
         {"G01", "I42", "D"},
         "D    5.000 20.000"}}},
      {"the user's tables",
       {{"Z8WT2",
         kUploadTold + "show KvCfg_Tab(4)\ncell TCFlexGrid 3 1\ntype txtLnrNewValue 1.25\n"
                       "click cmdLnrChangeOK\nclick cmdWriteInTable\nclick cmdReadOutTable\n"
                       "dump TCFlexGrid\n",
         {R"(KvCfg_Tab(4) shown enabled "TC TBL")", R"(> "DT2D1.2500")", R"(> "DW")",
          R"(TCFlexGrid 3 1 normal "1.250")"},
         {"--set", "01/10=13 User's TC"}}}},
      {"universal transmitters",
       {{"Z2WU",
         kUploadOf + "pick Combo(0) 熱電対\nshow Combo(1) lbl_unit(1)\n" + kDownloadSet,
         {R"(Combo(1) shown enabled unlocked normal "TC PR")",
          R"(lbl_unit(1) shown enabled unlocked normal "deg C")", kDownloaded}}}},
      {"sensor compensation and position calibration",
       {{"Z8WR2",
         "click cmdLineSet\nshow txtCompX lbl_unitX\n",
         {R"(> "DZ")", R"(> "DD")", R"(txtCompX shown enabled locked grey "0.850")"}},
        {"Z8WM2",
         "click cmd0Per\nshow txtCompX\n",
         {R"(> "DZ")", R"(txtCompX shown enabled locked grey "-5.000")"},
         {"--set", "01/04=5"}}}},
      {"the models of the first line",
       {{"QUO", kUploadOf + "dump\n", {R"x(1 10 "Tc-2:K(CA)")x"}, {"--set", "01/10=2"}},
        {"QUO",
         kUploadOf + "dump\n",
         {R"x(1 10 "Tc-2: K(CA)")x"},
         {"--sysver", "SYSVER   2.00", "--set", "01/10=2"}},
        {"QH", kUploadOf + "click cmdCheck\n" + kDownloadSet, {kChecked, kDownloaded}},
        {"QD", kUploadOf + "click cmdCheck\n" + kDownloadSet, {kChecked, kDownloaded}}}},
      {"counts and alarms",
       {{"QEC2",
         "type Text(1) 1234\nclick cmdSet\nshow Text(2)\n",
         {R"(> "D1234")", R"(Text(2) shown enabled locked grey "1234")"}},
        {"QNA2",
         kUploadOf + "pick Combo(4) \"NO ALARM\"\nshow Text(38)\ndump\n" + kDownloadSet,
         {R"(Text(38) shown disabled unlocked normal "10.0")", R"(1 27 "NO ALARM")", kDownloaded}}}},
      {"threshold, cut-out, measured frequency",
       {{"Z2WQ",
         "click cmdDisableCutOut\nshow Text(3)\nafter 300 click cmdThresholdP01\n"
         "after 2500 click cmdThresholdStart\nclick cmdThresholdStart\nshow Text(4)\n",
         {R"(Text(3) shown enabled locked grey "Disable")", R"(< "D Input Frequency")",
          R"(Text(4) shown enabled unlocked highlight "1.35")"},
         {"--set", "01/33=3", "--set", "01/30=1.25"}}}},
      {"the pages of the second line",
       {{"Z2WT", kUploadTold + "type Text(0) B-8\n" + kDownloadSet, {kUploaded, kDownloaded}},
        {"Z2WQ", kUploadOf + "type Text(0) B-8\n" + kDownloadSet, {kUploaded, kDownloaded}},
        {"Z2WPA", kUploadOf + "type Text(0) B-8\n" + kDownloadSet, {kUploaded, kDownloaded}},
        {"Z2WPR", kUploadOf + "type Text(0) B-8\n" + kDownloadSet, {kUploaded, kDownloaded}},
        {"Z2WPL", kUploadOf + "type Text(0) B-8\n" + kDownloadSet, {kUploaded, kDownloaded}}}},
      {"all captions and messages in both sets of texts",
       {{"QN",
         "show cmdUpload cmdExit KvCfg_Tab(6) lbl_FrmVersion\n",
         {R"(cmdUpload shown enabled unlocked normal "アップロード")",
          R"(cmdExit shown enabled unlocked normal "終了")", R"(KvCfg_Tab(6) shown enabled "I/O ﾁｪｯｸ")",
          R"(lbl_FrmVersion shown enabled unlocked normal "KORVA Ver12.09")"}}}},
  };
  return parts;
}

struct EachPart : EndToEnd, testing::WithParamInterface<ProgramPart> {
  /// Carries a run out and checks what it printed.
  void Run(const DeviceRun& run) {
    SCOPED_TRACE(run.model);
    StartSim(QStringList{"--fast"} + run.device, run.model);
    std::ofstream(home / "data" / "points.csv", std::ios::binary) << "0,0\r\n50,25\r\n100,100\r\n";
    const QString script = Write("script.txt", std::string("choose ") + run.model + "\n" + run.script);
    ChildProgram cli("korva-cli", At({"--line", "--strict", script}));
    const Lines printed = cli.ReadToEnd();
    EXPECT_EQ(cli.Status(), 0) << testing::PrintToString(Of(printed, "refused "));
    EXPECT_EQ(cli.Complaints(), "");
    for (const std::string& line : run.printed) {
      EXPECT_TRUE(Holds(printed, line)) << line;
    }
    if (!run.asked.empty()) {
      EXPECT_EQ(Ask(run.asked).back(), run.answer);
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Program, EachPart, testing::ValuesIn(Parts()), [](const auto& one) {
  std::string name;
  std::copy_if(one.param.what, one.param.what + std::string_view(one.param.what).size(),
               std::back_inserter(name),
               [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; });
  return name;
});

TEST_P(EachPart, CanBeSeenInAStartOfTheRealPrograms) {
  for (const DeviceRun& run : GetParam().runs) {
    Run(run);
  }
}

TEST_F(EndToEnd, RefusesADefinitionThatIsFaultyAndGoesOn) {
  std::filesystem::remove(home / "system");
  std::filesystem::copy(std::filesystem::path(KORVA_HOME) / "system", home / "system",
                        std::filesystem::copy_options::recursive);
  Write("system/Kv_1/QL.def", "$Data\r\n01, 02\r\n$Nonsense\r\n$End\r\n");
  ChildProgram cli("korva-cli", At({Write("script.txt", "choose QL\nchoose QN\nshow lst_TypeSelect\n")}));
  const Lines printed = cli.ReadToEnd();
  EXPECT_EQ(
      Of(printed, "box "),
      Lines{
          R"(box warning "ﾌｧｲﾙを開く" "defﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。ﾌﾟﾛｸﾞﾗﾑを再ｲﾝｽﾄｰﾙしてください。" ok -> ok)"});
  EXPECT_EQ(cli.Status(), 0);
}

/// Tells when a file is opened that nobody opened since this was made.
class OpenWatch {
 public:
  explicit OpenWatch(const std::filesystem::path& file) : queue_(inotify_init1(IN_CLOEXEC)) {
    inotify_add_watch(queue_, file.c_str(), IN_OPEN);
  }
  OpenWatch(const OpenWatch&) = delete;
  OpenWatch& operator=(const OpenWatch&) = delete;
  ~OpenWatch() { close(queue_); }

  /// Waits for it, half a minute at most; true when it was opened.
  [[nodiscard]] bool Await() const {
    constexpr int limit = 30'000;  // ms
    pollfd opened{.fd = queue_, .events = POLLIN, .revents = 0};
    return poll(&opened, 1, limit) == 1;
  }

 private:
  int queue_;
};

TEST_F(EndToEnd, ShowsItsWindowWithADeviceAndEndsWithIt) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  StartSim({"--fast"}, "QN");
  const OpenWatch port(std::filesystem::canonical(home / "ports" / "COM1"));
  ChildProgram window("korva", At());
  EXPECT_TRUE(port.Await()) << "it has not opened its port";
  window.Terminate();
  EXPECT_EQ(window.Status(), 0);
}

TEST_F(EndToEnd, ShowsEachTabOfASetInItsWindow) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  StartSim({"--fast"}, "Z8WT2");
  const QString script = Write("script.txt", "choose Z8WT2\nclick cmdUpload\nfile a.cfg\nclick cmdSave\n");
  EXPECT_EQ(ChildProgram("korva-cli", At({script})).Status(), 0);
  ChildProgram pictures("korva-pictures",
                        At({"--open", folder.path() + "/data/a.cfg", "--out", folder.path()}));
  EXPECT_EQ(pictures.Status(), 0);
  for (const int tab : {0, 1, 2, 3, 5, 6, 7}) {  // no table is in use
    EXPECT_GT(std::filesystem::file_size(home / ("tab-" + std::to_string(tab) + ".png")), 1000U) << tab;
  }
}

// The table that tells a newcomer where each part is shown.

/// The cells of a row, "| one | two |", less the blanks around them.
std::vector<std::string> CellsOf(const std::string& row) {
  std::vector<std::string> cells;
  std::istringstream rest(row.substr(1));
  for (std::string cell; std::getline(rest, cell, '|');) {
    const std::size_t first = cell.find_first_not_of(' ');
    cells.push_back(first == std::string::npos ? ""
                                               : cell.substr(first, cell.find_last_not_of(' ') + 1 - first));
  }
  return cells;
}

/// The rows of the table under a head.
std::vector<std::vector<std::string>> TableUnder(const std::string& head) {
  std::ifstream file(std::filesystem::path(KORVA_SOURCE_DIR) / "docs" / "architecture.md");
  std::vector<std::vector<std::string>> rows;
  std::string line;
  while (std::getline(file, line) && line != head) {
  }
  std::getline(file, line);  // the rule under the head
  while (std::getline(file, line) && line.starts_with('|')) {
    rows.push_back(CellsOf(line));
  }
  return rows;
}

/// The words between backticks.
Lines QuotedIn(const std::string& text) {
  Lines words;
  for (std::size_t from = text.find('`'); from != std::string::npos; from = text.find('`', from)) {
    const std::size_t to = text.find('`', from + 1);
    words.push_back(text.substr(from + 1, to - from - 1));
    from = to + 1;
  }
  return words;
}

/// True when a test of this name lies in the folder; "a_*_test.cpp" stands for some.
bool HasTest(const std::filesystem::path& folder, const std::string& name) {
  const std::size_t star = name.find('*');
  if (star == std::string::npos) {
    return std::filesystem::exists(folder / name);
  }
  const auto files = std::filesystem::directory_iterator(folder);
  return std::any_of(begin(files), end(files), [&](const auto& file) {
    const std::string found = file.path().filename().string();
    return found.starts_with(name.substr(0, star)) && found.ends_with(name.substr(star + 1));
  });
}

TEST(TableOfParts, NamesEachPartThatIsStartedInTheirOrderAndTestsThatThereAre) {
  const auto rows = TableUnder("| What works | Tests | A real start |");
  Lines documented;
  for (const auto& row : rows) {
    ASSERT_EQ(row.size(), 3U) << row.front();
    documented.push_back(row[0]);
    std::filesystem::path folder;
    EXPECT_FALSE(QuotedIn(row[1]).empty()) << row[0];
    for (const std::string& test : QuotedIn(row[1])) {
      const std::filesystem::path path = test;
      folder = path.has_parent_path() ? path.parent_path() : folder;  // the others are in the folder before
      EXPECT_TRUE(HasTest(std::filesystem::path(KORVA_SOURCE_DIR) / folder, path.filename().string()))
          << test;
    }
    EXPECT_FALSE(row[2].empty()) << row[0];
  }
  auto row = documented.begin();
  for (const ProgramPart& part : Parts()) {
    row = std::find(row, documented.end(), part.what);
    ASSERT_NE(row, documented.end()) << part.what << " stands not in its place in docs/architecture.md";
  }
}

}  // namespace
}  // namespace korva::cli
