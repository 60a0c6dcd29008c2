// Configurations, tables and the cold junction of family QXI.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "support/tabs.h"
#include "univ_config_bench.h"

namespace korva {
namespace {

using test::kFile;
using test::Shown;
using test::UnivBench;
using Texts = std::vector<std::string>;

// --- .cfg

TEST(UnivCfg, NamesTheDefinitionOfTheFamilyWhateverModelWasChosen) {
  for (const char16_t* model : {u"QXI", u"QXI2"}) {
    UnivBench bench(model);
    bench.Save(kFile);
    EXPECT_TRUE(bench.TextOf(kFile).starts_with(u"$DefFile\r\n\"Univ.def\"\r\n$Data\r\n"));
  }
}

TEST(UnivCfg, HoldsTheCodesOfOptionsAndTheTable) {
  UnivBench bench;
  bench.PickInput(u"Tc-99:USER");
  bench.Press(bench.Univ().optBurn, 2);
  bench.Do([&] { bench.Univ().linearizer.Table().Store(51, 1, u"-5"); });
  bench.Save(kFile);
  const String text = bench.TextOf(kFile);
  EXPECT_NE(text.find(u"\"1\",\"10\",\"Tc-99:USER\"\r\n"), String::npos);
  EXPECT_NE(text.find(u"\"1\",\"24\",\"2\"\r\n"), String::npos);
  EXPECT_NE(text.find(u"\"3\",\"0\",\"-5\"\r\n"), String::npos);
}

const StringView kCfg =
    u"$DefFile\n\"Univ.def\"\n$Data\n\"1\",\"2\",\"PUMP\"\n\"1\",\"10\",\"Tc-99:USER\"\n\"1\",\"14\",\"-"
    u"20\"\n"
    u"\"1\",\"24\",\"DOWNSCALE\"\n\"2\",\"0\",\"12.5\"\n$Memo\n\"0\",\"\"\n\"1\",\"\"\n$End\n";

void ExpectRead(UnivBench& bench) {
  EXPECT_EQ(bench.Page().Item(2), u"PUMP");
  EXPECT_EQ(bench.Field(u"14").Text(), u"-20");
  EXPECT_EQ(bench.Page().Item(24), u"2");
  EXPECT_EQ(bench.Univ().linearizer.LnrFlexGrid.At(1, 1).text, u"12.5");
  EXPECT_EQ(bench.Univ().linearizer.LnrFlexGrid.At(0, 2).text, u"  Y(k)    uV");
  EXPECT_TRUE(test::TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_TRUE(bench.Univ().rules.lbl_Tc99User.Visible());
  EXPECT_FALSE(bench.Page().DataChanged);
}

TEST(UnivCfg, OnItsPageTheValuesGoInAndTheListStays) {
  UnivBench bench(u"QXI2");
  bench.PutText(kFile, kCfg);
  bench.Open(kFile);
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"QXI2");
  EXPECT_EQ(bench.TakeBoxes(), Texts());
  ExpectRead(bench);
}

TEST(UnivCfg, FromAnotherPageTheFirstModelOfTheFamilyIsChosenAndReadsIt) {
  UnivBench bench;
  bench.Choose(u"QL");
  EXPECT_EQ(bench.Page().ItsFamily().word, u"First");
  bench.PutText(kFile, kCfg);
  bench.Open(kFile);
  EXPECT_EQ(bench.Page().ItsFamily().word, u"QXI");
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"QXI");
  EXPECT_EQ(bench.TakeBoxes(), Texts());
  ExpectRead(bench);
}

TEST(UnivCfg, AFileOfAnotherFamilyOpensOnThatFamilysPage) {
  UnivBench bench;
  bench.PutText(kFile,
                u"$DefFile\n\"QL.def\"\n$Data\n\"1\",\"2\",\"PUMP\"\n$Memo\n\"0\",\"\"\n\"1\",\"\"\n$End\n");
  bench.Open(kFile);
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"QL");
  EXPECT_EQ(bench.Page().Item(2), u"PUMP");
}

TEST(UnivCfg, SavingTwiceGivesTheSameBytesAndOpeningBringsBackThePage) {
  UnivBench bench;
  bench.Fill(u"RB-98:USER", u"mV-Z:USER V");
  bench.Press(bench.Univ().setpoints.optSetpointUnit_1, 1);
  bench.Save(kFile);
  bench.Save(u"/korva/data/again.cfg");
  EXPECT_EQ(bench.files.Bytes(kFile), bench.files.Bytes(u"/korva/data/again.cfg"));
  const String setpoint = bench.Field(u"26").Text();
  bench.New();
  EXPECT_EQ(bench.Input().Text(), u"");
  EXPECT_FALSE(test::TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_FALSE(bench.Univ().rules.lbl_Tc99User.Visible());
  bench.Open(kFile);
  EXPECT_EQ(bench.Input().Text(), u"RB-98:USER");
  EXPECT_EQ(bench.Field(u"26").Text(), setpoint);
  EXPECT_EQ(bench.UnitOf(u"26"), u"%");
  EXPECT_EQ(bench.Univ().setpoints.optSetpointUnit_1.Selected(), 1);
}

// --- tables

TEST(UnivCsv, ReadsAHundredPointsAndSavesNone) {
  UnivBench bench;
  bench.PickInput(u"Tc-99:USER");
  String text;
  for (int row = 1; row <= 101; ++row) {
    text += FromUtf8(std::to_string(row) + "," + std::to_string(row * 40) + "\n");
  }
  bench.PutText(u"/korva/data/curve.csv", text);
  bench.dialogs.QueueFile(u"/korva/data/curve.csv");
  bench.Click(bench.Univ().linearizer.cmd_csvFileOpen);
  const Grid& grid = bench.Univ().linearizer.LnrFlexGrid;
  EXPECT_EQ(grid.At(100, 1).text, u"100");
  EXPECT_EQ(grid.At(100, 2).text, u"4000");
  EXPECT_EQ(bench.Page().GroupItem.At(3, 99), u"4000");
  EXPECT_EQ(bench.Page().FindControl("cmd_csvFileSave"), nullptr);
}

TEST(UnivCsv, TheNoticeOfAnUnsavedTableTellsWhatTheChosenInputTakesItsPointsFor) {
  constexpr StringView sensor = u"ｾﾝｻのﾃｰﾌﾞﾙはcsvﾌｧｲﾙの値です（設定ファイルに未保存）";
  UnivBench bench;
  const Label& notice = bench.Univ().linearizer.lbl_LnrUnsaved;
  bench.PutText(u"/korva/data/curve.csv", u"0,0\n100,4095\n");
  bench.PickInput(u"Tc-99:USER");
  bench.dialogs.QueueFile(u"/korva/data/curve.csv");
  bench.Click(bench.Univ().linearizer.cmd_csvFileOpen);
  EXPECT_TRUE(notice.Visible());
  EXPECT_EQ(notice.Caption(), sensor);
  bench.PickInput(u"mV-Z:USER mV");
  EXPECT_TRUE(notice.Visible()) << "the points stay";
  EXPECT_EQ(notice.Caption(), u"ﾘﾆｱﾗｲｻﾞのﾃｰﾌﾞﾙはcsvﾌｧｲﾙの値です（設定ファイルに未保存）");
}

// --- the cold junction

struct CjmPage : UnivBench {
  CjmPage() { Read(u"Tc-2:K(CA)"); }
  ColdJunction& Cjm() { return Univ().cold_junction; }
  void OpenFrame() {
    dialogs.QueueAnswer(Answer::Yes);
    Click(Cjm().cmdChangeCJM);
    TakeBoxes();
  }
};

TEST(UnivColdJunction, ItsButtonStandsOutsideTheFrameThatItShows) {
  CjmPage bench;
  EXPECT_FALSE(bench.Cjm().fraCJM.Visible());
  EXPECT_EQ(bench.Cjm().cmdChangeCJM.Container(), nullptr);
  EXPECT_EQ(bench.Cjm().cmdWriteInCJM.Container(), &bench.Cjm().fraCJM);
  EXPECT_EQ(bench.Page().Text[11].Container(), &bench.Cjm().fraCJM);
  EXPECT_EQ(bench.Page().Text[12].Container(), &bench.Cjm().fraCJM);
}

TEST(UnivColdJunction, OpensWithTheValuesOfTheSet) {
  CjmPage bench;
  bench.Do([&] {
    bench.Page().SetItem(34, u"25.1");
    bench.Page().SetItem(35, u"600");
  });
  bench.OpenFrame();
  EXPECT_TRUE(bench.Cjm().fraCJM.Visible());
  EXPECT_EQ(bench.Field(u"34").Text(), u"25.1");
  EXPECT_EQ(bench.Field(u"35").Text(), u"600");
}

TEST(UnivColdJunction, WritesBothItemsAndNothingElse) {
  CjmPage bench;
  bench.OpenFrame();
  bench.Type(u"34", u"25.1");
  bench.Type(u"35", u"600");
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(bench.Cjm().cmdWriteInCJM);
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::ChangeCjm), Shown(BoxKey::CjmChanged)}));
  EXPECT_EQ(bench.line.writes, (Texts{"01/34=25.1", "01/35=600"}));
  EXPECT_EQ(bench.device.Mode(), '0');
}

TEST(UnivColdJunction, IsADownloadToWhoeverAsksWhileItWrites) {
  CjmPage bench;
  bench.OpenFrame();
  int writes = 0;
  bench.line.on_access = [&](const std::string& access) {
    if (access.starts_with("01/3") && access.find(" D") != std::string::npos) {
      ++writes;
      EXPECT_TRUE(bench.app.program.Shared().CommBusy);
      EXPECT_TRUE(bench.app.program.Shared().DownloadBusy);
      EXPECT_EQ(bench.Page().WhyRefused(bench.Page().cmdUpload), "disabled");
    }
  };
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(bench.Cjm().cmdDefaultCJM);
  EXPECT_EQ(writes, 2);
}

TEST(UnivColdJunction, IsSilentAboutARefusedWriteAndGoesBackToMonitorMode) {
  CjmPage bench;
  bench.OpenFrame();
  bench.line.replies["01/34 D-999.9"] = "CNG";
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(bench.Cjm().cmdDefaultCJM);
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::ChangeCjm)});
  EXPECT_EQ(bench.device.Mode(), '0');
  EXPECT_FALSE(bench.app.program.Shared().CommBusy);
}

TEST(UnivColdJunction, ASilentDeviceShowsTheBox) {
  CjmPage bench;
  bench.OpenFrame();
  bench.device.AddFault(sim::ParseFault("silent"));
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(bench.Cjm().cmdDefaultCJM);
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::ChangeCjm), Shown(BoxKey::CommFailure)}));
}

}  // namespace
}  // namespace korva
