#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "core/text_utilities.h"
#include "download_fixture.h"

namespace korva::test {
namespace {

TEST_F(DownloadTest, TestsTheLinkThenMonitorModeTheInputTypeTheWritesAndMonitorModeTwice) {
  bench.Download();
  EXPECT_EQ(bench.line.Sent(),
            "G00 I99 G01 I01 D0 G01 I10 G01 I01 D1 "
            "G01 I02 G01 I02 DPUMP 1 "
            "G01 I10 G01 I10 D1 "
            "G01 I11 G01 I11 D0 "
            "G01 I14 G01 I14 D2.5 G01 I14 "
            "G01 I15 G01 I15 D7.5 G01 I15 "
            "G01 I16 G01 I16 D0.12 "
            "G01 I23 G01 I23 D1 "
            "G01 I01 D0 G01 I01 D0");
  EXPECT_EQ(bench.Boxes(), (Texts{Shown(BoxKey::StartDownload), Shown(BoxKey::DownloadDone)}));
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(DownloadTest, TheBarMovesForSkippedPositionsTooAndEndsAtZero) {
  bench.Download();
  EXPECT_EQ(bench.progress, (std::vector<int>{5,  10, 15, 20, 24, 27, 31, 34, 38, 41, 45, 48,  52,
                                              55, 59, 62, 66, 69, 73, 76, 80, 83, 87, 90, 100, 0}));
}

TEST_F(DownloadTest, ACancelledQuestionSendsNothing) {
  bench.host.dialogs.QueueAnswer(Answer::Cancel);
  bench.Click(bench.page->cmdDownload);
  EXPECT_EQ(bench.line.Sent(), "");
  EXPECT_TRUE(bench.progress.empty());
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(DownloadTest, LeavesTheSetAndTheUnsavedMarkAsTheyAre) {
  for (const bool changed : {false, true}) {
    Fill();
    bench.page->DataChanged = changed;
    bench.Download();
    EXPECT_EQ(bench.page->DataChanged, changed);
    EXPECT_EQ(bench.page->Item(14), u"2.5");
  }
}

// What goes unwritten.

TEST_F(DownloadTest, PositionZeroMayBeEmptyAndTheBarStillMoves) {
  bench.page->SetItem(2, {});
  bench.page->Text[0].SetVisible(false);
  bench.Download();
  EXPECT_FALSE(Wrote("01/02=PUMP 1"));
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.progress.at(4), 24);
}

TEST_F(DownloadTest, ANEEDLESSCellIsSkippedThoughItsRowHasAPosition) {
  for (const int item : {16, 23}) {
    bench.page->SetItem(item, u"NEEDLESS");
  }
  bench.page->BuildPage();
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.line.Sent().find("I16"), std::string::npos);
  EXPECT_EQ(bench.line.Sent().find("I23"), std::string::npos);
}

TEST_F(DownloadTest, ARowWithoutPositionAConditionThatFailsAndAnItemWithoutPrefixOrTableGoUnwritten) {
  bench.Download();
  for (const char* item : {"I19", "I33", "I34", "G02"}) {
    EXPECT_EQ(bench.line.Sent().find(item), std::string::npos) << item;
  }
}

TEST_F(DownloadTest, TheInputTypeIsWrittenOnlyWhereItCanBeSet) {
  bench.line.items["01/10"] = "3:FIXED";
  bench.page->SetItem(10, u"3:FIXED");
  bench.page->BuildPage();
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_FALSE(Wrote("01/10=3"));
}

TEST_F(DownloadTest, TheRangeIsWrittenOnlyUnderAnInputTypeWithRanges) {
  bench.page->SetItem(10, u"2:RTD");
  bench.page->SetItem(14, u"20");
  bench.page->SetItem(15, u"80");
  bench.page->BuildPage();
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_TRUE(Wrote("01/10=2"));
  EXPECT_EQ(bench.line.Sent().find("I11"), std::string::npos);
}

TEST(DownloadOrderTest, AnItemWithoutABoxWhoseTextHasNoCodeEndsTheProgramNamingItemAndText) {
  TransferBench bench(DataSection({{.item = "23", .position = "0"}}) + kDownloadSections);
  bench.page->SetItem(23, u"2:SOMETIMES");
  bench.Download();
  ASSERT_EQ(bench.host.dialogs.Failures().size(), 1U);
  const std::string failure = ToUtf8(bench.host.dialogs.Failures()[0]);
  for (const char* part : {"Item23", "2:SOMETIMES", "Model.def", "$I23"}) {
    EXPECT_NE(failure.find(part), std::string::npos) << failure;
  }
  EXPECT_TRUE(bench.ended);
}

TEST(DownloadOrderTest, APositionOutsideTheListEndsTheProgramNamingIt) {
  for (const std::string position : {"32", "-1"}) {
    TransferBench bench(DataSection({{.item = "14", .text = "2", .prefix = "INPZER", .position = position}}) +
                        kDownloadSections);
    bench.page->SetItem(14, u"1");
    bench.page->BuildPage();
    bench.Download();
    ASSERT_EQ(bench.host.dialogs.Failures().size(), 1U);
    EXPECT_NE(ToUtf8(bench.host.dialogs.Failures()[0]).find("\"" + position + "\""), std::string::npos);
    EXPECT_TRUE(bench.ended);
  }
}

TEST(DownloadOrderTest, TheListHasAPositionForEachRowOfTheDefinition) {
  TransferBench bench(DataSection({{.item = "14", .text = "2", .prefix = "INPZER", .position = "31"},
                                   {.item = "15", .text = "3", .prefix = "INPSPN", .position = "20"},
                                   {.item = "16", .text = "4", .prefix = "FINZER", .position = "0"}}) +
                      kDownloadSections);
  for (const auto& [item, reply] :
       {std::pair{"01/14", "INPZER 0"}, std::pair{"01/15", "INPSPN 0"}, std::pair{"01/16", "FINZER 0"}}) {
    bench.line.items[item] = reply;
  }
  bench.line.prefixes["01/16"] = "FINZER";
  bench.page->SetItem(14, u"1");
  bench.page->SetItem(15, u"9");
  bench.page->SetItem(16, u"2");
  bench.page->BuildPage();
  std::map<std::string, int> bar_at;
  bench.host.loop.OnPump([&] {
    const std::string sent = bench.line.Sent();
    for (const std::string write : {"D9", "D1"}) {
      if (sent.ends_with("G01 I15 " + write) || sent.ends_with("G01 I14 " + write)) {
        bar_at[write] = static_cast<int>(std::lround(bench.page->TransferBar.Value()));
      }
    }
  });
  bench.Download();
  EXPECT_EQ(bench.line.writes,
            (Texts{"01/01=0", "01/01=1", "01/16=2", "01/15=9", "01/14=1", "01/01=0", "01/01=0"}));
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::DownloadDone));
  EXPECT_EQ(bar_at["D9"], 87) << "position 20 moves the bar once it is written";
  EXPECT_EQ(bar_at["D1"], 90) << "behind it the bar stays";
  EXPECT_EQ(bench.progress, (std::vector<int>{5,  10, 15, 20, 24, 27, 31, 34, 38, 41, 45, 48,  52,
                                              55, 59, 62, 66, 69, 73, 76, 80, 83, 87, 90, 100, 0}));
}

TEST(DownloadOrderTest, TheDefinitionsPositionsSetTheOrder) {
  TransferBench bench(DataSection({{.item = "14", .text = "2", .prefix = "INPZER", .position = "20"},
                                   {.item = "15", .text = "3", .prefix = "INPSPN", .position = "0"}}) +
                      kDownloadSections);
  bench.line.items["01/14"] = "INPZER 0";
  bench.line.items["01/15"] = "INPSPN 0";
  bench.page->SetItem(14, u"1");
  bench.page->SetItem(15, u"9");
  bench.page->BuildPage();
  bench.Download();
  EXPECT_EQ(bench.line.writes, (Texts{"01/01=0", "01/01=1", "01/15=9", "01/14=1", "01/01=0", "01/01=0"}));
}

// The tag.

TEST_F(DownloadTest, AnEmptyTagGoesOutAsTenBlanksAndComesBackAsSuch) {
  bench.Type(u"02", u"");
  bench.Download();
  EXPECT_TRUE(Wrote("01/02=          "));
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.page->Item(2), u"          ");
}

TEST_F(DownloadTest, AnEmptyTagThatComesBackFilledIsADifference) {
  bench.Type(u"02", u"");
  bench.line.echoes["01/02"] = {"DTG:OLD"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDataMismatch)});
}

TEST_F(DownloadTest, TheTagIsWrittenEvenWhereItCannotBeRead) {
  bench.line.items.erase("01/02");
  // Silent to the read, then good.
  bench.line.replies["I02"] = {std::nullopt, std::nullopt, std::nullopt, std::nullopt, "DTG:OLD"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(DownloadTest, AnyOtherItemThatCannotBeReadIsNotWritten) {
  bench.line.replies["I16"] = {std::nullopt, std::nullopt, std::nullopt, std::nullopt, "DFINZER 0.12"};
  bench.Download();
  EXPECT_FALSE(Wrote("01/16=0.12"));
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDataMismatch)});
}

// Verification.

TEST(DownloadLateTest, ItemFourteenEchoedLateIsDecidedByTheSecondRead) {
  TransferBench bench(DataSection({{.item = "14", .text = "2", .prefix = "INPZER", .position = "3"}}) +
                      kDownloadSections);
  bench.line.items["01/14"] = "INPZER 0";
  bench.line.prefixes["01/14"] = "INPZER";
  bench.line.late_once["01/14"] = Milliseconds(3500);
  bench.page->SetItem(14, u"2.5");
  bench.page->BuildPage();
  bench.Download();
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::DownloadDone));
  EXPECT_EQ(bench.line.items["01/14"], "INPZER2.5");
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(DownloadTest, ItemsFourteenAndFifteenAreProvedByTheirReadAlone) {
  bench.line.echoes["01/14"] = {std::nullopt};
  bench.line.echoes["01/15"] = {"DINPSPN 99"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(DownloadTest, ItemFourteenWhoseSecondReadIsRefusedFails) {
  bench.line.replies["I14"] = {"DINPZER 1.0", "DINPZER 1.0", "CNG"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDataMismatch)});
}

TEST_F(DownloadTest, AChoiceThatComesBackOtherwiseFailsAndTheDeviceKeepsWhatWasWritten) {
  bench.line.choices["01/11"]["0"] = "0-5 V";
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDataMismatch)});
  EXPECT_TRUE(Wrote("01/02=PUMP 1"));
  EXPECT_TRUE(Wrote("01/10=1"));
  EXPECT_FALSE(Wrote("01/14=2.5")) << "nothing is written behind the difference";
  EXPECT_TRUE(bench.line.Sent().ends_with("G01 I11 D0 G01 I01 D0 G01 I01 D0"));
  EXPECT_TRUE(bench.AtRest());
  EXPECT_EQ(bench.page->Item(11), u"0-10 V") << "the page keeps its values";
  EXPECT_EQ(bench.progress.back(), 0);
  EXPECT_EQ(std::count(bench.progress.begin(), bench.progress.end(), 100), 0);
}

TEST_F(DownloadTest, FineZeroMayComeBackWithinTwoHundredths) {
  bench.line.echoes["01/16"] = {"DFINZER 0.14"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(DownloadTest, FineZeroFurtherOffIsADifference) {
  bench.line.echoes["01/16"] = {"DFINZER 0.15"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDataMismatch)});
}

TEST_F(DownloadTest, AWriteThatIsRefusedFailsAfterFourTries) {
  bench.line.echoes["01/16"] = {"CNG"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDataMismatch)});
  const std::string sent = bench.line.Sent();
  std::size_t tries = 0;
  for (std::size_t at = sent.find("D0.12"); at != std::string::npos; at = sent.find("D0.12", at + 1)) {
    ++tries;
  }
  EXPECT_EQ(tries, 4U);
  EXPECT_EQ(bench.page->Shared().LastItemReply, u"CNG");
}

}  // namespace
}  // namespace korva::test
