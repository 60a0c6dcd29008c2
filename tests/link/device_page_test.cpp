#include "link/device_page.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/program.h"
#include "core/text_utilities.h"
#include "pages/registry.h"
#include "support/scripted_line.h"
#include "support/tabs.h"
#include "support/virtual_host.h"

namespace korva {
namespace {

using namespace std::chrono_literals;

/// A page that has nothing but its device.
struct BarePage final : DevicePage {
  BarePage(Program& program, const FamilyRecord& record, DeviceLink& device)
      : DevicePage(program,
                   {.family = record.family,
                    .tab_control = "Tabs",
                    .design = test::kBareDesign<TextKey::File, TextKey::Port>},
                   record.device, device) {}
  void ClearParameterSet() override {}
  void BuildPage() override {}
  bool SaveCfgFile() override { return false; }
  bool SaveRescueFile(const String& /*path*/) override { return false; }
  void ReadModel() override {}
  void KeepTabState(int /*tab*/, bool /*enabled*/) override {}
  [[nodiscard]] bool KeptTabEnabled(int /*tab*/) const override { return true; }
  using DevicePage::ReopenPort;
};

struct Bench {
  explicit Bench(StringView word) : page(program, EntryOf(word).record, device) {
    host.port.Connect(1, &line);
    page.ReopenPort();
  }

  /// The device answers every selection well and every write with `echo`.
  void AnswerAll(const std::string& echo) {
    const bool cok = page.ItsFamily().dialect == Dialect::Cok;
    for (const char* group : {"G00", "G01"}) {
      line.Answer(group, cok ? "COK" : "D      enter item");
    }
    for (const char* item : {"I99", "I01", "I22", "I28"}) {
      line.Answer(item, "DStatus");
    }
    for (const char* data : {"D", "D0", "D1", "DA", "DZ", "D\x82\x72"}) {
      line.Answer(data, echo);
    }
  }

  test::VirtualHost host;
  test::ScriptedLine line{host.port};
  Program program{host.platform, u"", AllFamilies(), nullptr};
  DeviceLink device{host.platform, program.Shared()};
  BarePage page;
};

TEST(DevicePage, TellsInTheStatusAreaWhyItsPortIsNotOpen) {
  Bench bench(u"First");
  EXPECT_FALSE(bench.page.Notes.Visible());
  bench.page.OptCom[1].Click();
  EXPECT_EQ(bench.page.Notes.Told(Notice::Port),
            u"COM 2（virtual COM2）を開けません。ﾎﾟｰﾄが見つかりません。");
  EXPECT_TRUE(bench.page.Notes.Visible());
  bench.page.OptCom[0].Click();
  EXPECT_EQ(bench.page.Notes.Told(Notice::Port), u"");
  bench.host.port.Remove(1);
  bench.page.BeginOperation();
  EXPECT_NE(bench.page.Notes.Told(Notice::Port), u"") << "the adapter is not back yet";
}

struct FamilyCase {
  StringView word;
  std::string settings;
  int baud;
  std::string link_test;
  std::string monitor;
  int mode_tries;
};

const std::vector<FamilyCase> kFamilies = {
    {u"First", "1200,n,8,1", 1200, "G00 I99", "G01 I01 D0", 4},
    {u"QXI", "1200,n,8,1", 1200, "G00 I99", "G01 I01 D0", 4},
    {u"Second", "1200,n,8,1", 1200, "G00 I99 D", "G01 I01 D0", 4},
    {u"Third", "1200,n,8,1", 1200, "G00 I99", "G01 I01 D0", 2},
    {u"Lite", "1200,n,8,1", 1200, "G00 I99", "G01 I01 D0", 4},
    {u"LiteThird", "1200,n,8,1", 1200, "G00 I99 D", "G01 I01 D0", 4},
    {u"LiteSecond", "9600,n,8,1", 9600, "G00 I99", "G01 I22 D0", 4},
    {u"LiteForth", "9600,n,8,1", 9600, "G00 I99", "G01 I01 D0", 4},
    {u"LiteFifth", "9600,n,8,1", 9600, "G00 I99", "G01 I01 D0", 4},
    {u"Nano", "9600,n,8,1", 9600, "G00 I99", "G01 I01 D0", 4},
    {u"LiteUniv", "38400,n,8,1", 38400, "G00 I99", "G01 I01 D0", 4},
};

struct EveryFamilyTest : testing::TestWithParam<FamilyCase> {};

INSTANTIATE_TEST_SUITE_P(Family, EveryFamilyTest, testing::ValuesIn(kFamilies),
                         [](const auto& one) { return ToUtf8(one.param.word); });

TEST_P(EveryFamilyTest, ThePortIsReopenedAtTheFamilysSpeed) {
  const Bench bench(GetParam().word);
  EXPECT_EQ(ToUtf8(bench.device.line.Settings()), GetParam().settings);
  EXPECT_EQ(bench.host.port.Settings().baud, GetParam().baud);
  EXPECT_TRUE(bench.device.line.PortOpen());
}

TEST_P(EveryFamilyTest, TheLinkTestReadsTheSystemTextAsTheFamilyGivesIt) {
  Bench bench(GetParam().word);
  bench.AnswerAll("DSYSVER   1.00");
  bench.page.CommFailed = true;
  EXPECT_TRUE(bench.page.LinkTest());
  EXPECT_EQ(bench.line.Sent(), GetParam().link_test);
  EXPECT_FALSE(bench.page.CommFailed);
  EXPECT_EQ(bench.page.TransferBar.Value(), 5.0F);
  EXPECT_TRUE(bench.host.dialogs.Boxes().empty());
}

TEST_P(EveryFamilyTest, TheLinkTestOfASilentDeviceTriesFourTimesAndShowsItsBox) {
  Bench bench(GetParam().word);
  EXPECT_FALSE(bench.page.LinkTest());
  EXPECT_EQ(bench.line.Sent(), "G00 G00 G00 G00");
  EXPECT_TRUE(bench.page.CommFailed);
  EXPECT_EQ(bench.page.TransferBar.Value(), 5.0F);
  ASSERT_EQ(bench.host.dialogs.Boxes().size(), 1U);
  const Box& box = bench.host.dialogs.Boxes()[0].box;
  EXPECT_EQ(box.title, u"通信ﾃｽﾄ");
  EXPECT_EQ(box.text,
            u"通信が正しく行われていません。次の①・②を確認して下さい。\n\r"
            u"①変換器は正しく接続されていますか。\n\r"
            u"②ﾎﾟｰﾄは正しく設定されていますか。");
  EXPECT_EQ(box.icon, BoxIcon::Warning);
  EXPECT_EQ(box.buttons, std::vector<Answer>{Answer::Ok});
}

TEST_P(EveryFamilyTest, MonitorModeIsSentToTheFamilysModeItem) {
  Bench bench(GetParam().word);
  bench.AnswerAll("D0");
  EXPECT_TRUE(bench.page.EnterMonitorMode());
  EXPECT_EQ(bench.line.Sent(), GetParam().monitor);
  EXPECT_TRUE(bench.host.dialogs.Boxes().empty());
}

TEST_P(EveryFamilyTest, ProgrammingModeIsSentToTheSameItem) {
  Bench bench(GetParam().word);
  bench.AnswerAll("D1");
  EXPECT_TRUE(bench.page.EnterProgrammingMode());
  std::string expected = GetParam().monitor;
  expected.back() = '1';
  EXPECT_EQ(bench.line.Sent(), expected);
}

TEST_P(EveryFamilyTest, AModeCommandIsTriedAsOftenAsTheFamilySays) {
  Bench bench(GetParam().word);
  EXPECT_FALSE(bench.page.EnterMonitorMode());
  EXPECT_EQ(static_cast<int>(bench.line.Commands().size()), GetParam().mode_tries);
  bench.line.ForgetCommands();
  EXPECT_FALSE(bench.page.EnterProgrammingMode());
  EXPECT_EQ(static_cast<int>(bench.line.Commands().size()), GetParam().mode_tries);
}

TEST_P(EveryFamilyTest, OnlyTheCokDialectTakesARefusalOfAModeForAFailure) {
  Bench bench(GetParam().word);
  bench.AnswerAll("CNG");
  const bool cok = bench.page.ItsFamily().dialect == Dialect::Cok;
  EXPECT_EQ(bench.page.EnterMonitorMode(), !cok);
  EXPECT_EQ(bench.host.dialogs.Boxes().size(), cok ? 1U : 0U);
}

TEST_P(EveryFamilyTest, TheTrimModesSpeakTheDialectOfEnterItemWhateverTheFamilysOwnIs) {
  Bench bench(GetParam().word);
  bench.AnswerAll("Dok");
  bench.line.Answer("G01", "D      enter item");
  EXPECT_TRUE(bench.page.EnterZeroTrimMode());
  EXPECT_EQ(bench.line.Sent(), "G01 I28 DZ");
  bench.line.ForgetCommands();
  EXPECT_TRUE(bench.page.EnterSpanTrimMode());
  EXPECT_EQ(bench.line.Sent(), "G01 I28 D\x82\x72");
}

struct ModeCase {
  std::function<bool(BarePage&)> enter;
  String title;
  String text;
};

TEST(DevicePageTest, AModeThatTheDeviceDoesNotTakeShowsItsBox) {
  const std::vector<ModeCase> cases = {
      {[](BarePage& page) { return page.EnterMonitorMode(); }, u"ﾀﾞｳﾝﾛｰﾄﾞ",
       u"ﾓﾆﾀﾓｰﾄﾞに変更できませんでした。"},
      {[](BarePage& page) { return page.EnterProgrammingMode(); }, u"ﾀﾞｳﾝﾛｰﾄﾞ",
       u"ﾌﾟﾛｸﾞﾗﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。ﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
      {[](BarePage& page) { return page.EnterIOCheckMode(); }, u"I/O ﾁｪｯｸ",
       u"ﾓｰﾄﾞ変更ができませんでした。ｹｰﾌﾞﾙ、変換器をﾁｪｯｸしてください。"},
      {[](BarePage& page) { return page.EnterZeroTrimMode(); }, u"ｾﾞﾛ微調整",
       u"ｾﾞﾛﾄﾘﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。"},
      {[](BarePage& page) { return page.EnterSpanTrimMode(); }, u"ｽﾊﾟﾝ微調整",
       u"ｽﾊﾟﾝﾄﾘﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。"},
  };
  for (const ModeCase& one : cases) {
    Bench bench(u"QXI");
    EXPECT_FALSE(one.enter(bench.page));
    ASSERT_EQ(bench.host.dialogs.Boxes().size(), 1U);
    const Box& box = bench.host.dialogs.Boxes()[0].box;
    EXPECT_EQ(box.title, one.title);
    EXPECT_EQ(box.text, one.text) << ToUtf8(box.text);
    EXPECT_EQ(box.icon, BoxIcon::Warning);
    EXPECT_EQ(box.buttons, std::vector<Answer>{Answer::Ok});
  }
}

TEST(DevicePageTest, TheStatusMonitorOfTheUniversalPageHasItsOwnModeWord) {
  Bench bench(u"QXI");
  bench.AnswerAll("DA");
  EXPECT_TRUE(bench.page.EnterIOCheckMode());
  EXPECT_EQ(bench.line.Sent(), "G01 I01 DA");
}

TEST(DevicePageTest, ChoosingAPortThatDoesNotExistShowsNothingAndFailsTheNextLinkTest) {
  Bench bench(u"LiteSecond");
  bench.page.OptCom[2].Click();
  EXPECT_TRUE(bench.page.OptCom[2].Value());
  EXPECT_EQ(bench.device.line.CommPort(), 3);
  EXPECT_EQ(bench.device.line.Settings(), u"9600,n,8,1");
  EXPECT_TRUE(bench.host.dialogs.Boxes().empty());
  const Clock before = bench.host.loop.Now();
  EXPECT_FALSE(bench.page.LinkTest());
  EXPECT_EQ(bench.host.loop.Now(), before);
  EXPECT_EQ(bench.host.dialogs.Boxes().size(), 1U);
}

TEST(DevicePageTest, ReopeningShowsThePortInUse) {
  Bench bench(u"First");
  EXPECT_EQ(bench.page.OptCom.Selected(), 0);
  bench.host.port.Connect(4);
  bench.device.line.ChoosePort(4);
  bench.page.ReopenPort();
  EXPECT_EQ(bench.page.OptCom.Selected(), 3);
  EXPECT_EQ(bench.host.port.Number(), 4);
  EXPECT_TRUE(bench.device.line.PortOpen());
}

TEST(DevicePageTest, PressingThePortInUseOpensItAgain) {
  Bench bench(u"First");
  bench.host.port.Remove(1);
  bench.host.port.Connect(1, &bench.line);
  bench.AnswerAll("D0");
  bench.page.OptCom[0].Click();
  EXPECT_TRUE(bench.page.EnterMonitorMode());
}

}  // namespace
}  // namespace korva
