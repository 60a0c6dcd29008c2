#include <gtest/gtest.h>

#include "transfer_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kTypes =
    "$I10\r\n"
    "1, 1:DC V, 0, 10, 0.1, N, Y, , V\r\n"
    "2, 2:RTD, -200, 600, 20, N, Y, , deg C\r\n"
    "$I21\r\n0, deg C\r\n1, deg F\r\n2, K\r\n"
    "$SSTab\r\nTrue, True, True, True, True, True, True\r\n";

const std::vector<TransferRow> kUploadRows = {
    {.item = "02", .text = "0", .prefix = "TG:"},
    {.item = "10", .combo = "0", .list = "$I10", .change_rule = "$I10"},
    {.item = "14", .text = "2", .unit_label = "2", .unit = "$in", .temperature = true, .prefix = "INPZER"},
    {.item = "15", .uploaded = false, .text = "3", .prefix = "INPSPN"},
    {.item = "16", .text = "4", .prefix = "FINZER"},
    {.item = "21", .list = "$I21", .frame = "3"},
    {.group = "00", .item = "99"},
};

const std::string kDefinition = DataSection(kUploadRows) + kTypes;

struct UploadTest : testing::Test {
  UploadTest() {
    bench.line.items["01/02"] = "TG:PUMP 1    ";
    bench.line.items["01/10"] = "2:RTD";
    bench.line.items["01/14"] = "INPZER -20.5";
    bench.line.items["01/15"] = "INPSPN 150.0";
    bench.line.items["01/16"] = "FINZER  0.12";
    bench.line.items["01/21"] = "deg F";
  }
  void MarkSet() const {
    for (const int item : {2, 10, 14, 15, 16, 21}) {
      bench.page->SetItem(item, u"before");
    }
  }
  [[nodiscard]] bool SetUntouched() const {
    return bench.page->Item(2) == u"before" && bench.page->Item(15) == u"before";
  }
  TransferBench bench{kDefinition};
};

TEST_F(UploadTest, ReadsTheMarkedRowsInTheirOrderAfterLinkTestAndMonitorMode) {
  bench.Upload();
  EXPECT_EQ(bench.line.Sent(), "G00 I99 G01 I01 D0 G01 I02 G01 I10 G01 I14 G01 I16 G01 I21 G00 I99");
  EXPECT_EQ(bench.page->Item(2), u"PUMP 1");
  EXPECT_EQ(bench.page->Item(10), u"2:RTD");
  EXPECT_EQ(bench.page->Item(14), u"-20.5");
  EXPECT_EQ(bench.page->Item(15), u"");
  EXPECT_EQ(bench.page->Item(16), u"0.12");
  EXPECT_EQ(bench.page->Item(21), u"deg F");
  EXPECT_EQ(bench.page->GroupItem.At(0, 99), u"SYSVER   2.00");
}

TEST_F(UploadTest, AsksForTheModelAndTheStartAndReportsTheEnd) {
  bench.Upload();
  EXPECT_EQ(bench.Boxes(),
            (Texts{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload), Shown(BoxKey::UploadDone)}));
  EXPECT_TRUE(bench.AtRest());
  EXPECT_TRUE(bench.page->DataChanged);
}

TEST_F(UploadTest, TheBarShowsTheRowsThatWereReadAndEndsAtZero) {
  bench.Upload();
  // Rows 0, 1, 2, 4, 5 and 6 of 32; row 3 is not read and does not move the bar.
  EXPECT_EQ(bench.progress, (std::vector<int>{5, 0, 3, 6, 9, 16, 19, 22, 100, 0}));
}

TEST_F(UploadTest, TheValuesShowOnThePageAsTheDeviceGaveThem) {
  bench.Upload();
  EXPECT_EQ(bench.page->Text[0].Text(), u"PUMP 1");
  EXPECT_EQ(bench.page->Combo[0].Text(), u"2:RTD");
  EXPECT_TRUE(bench.page->optTempUnit[1].Value());
  EXPECT_EQ(bench.page->Text[2].Text(), u"-20.5") << "the unit that shows must not convert the value";
}

TEST_F(UploadTest, FileNameAuthorAndMemoAreEmptyAfterwards) {
  bench.page->txtFileTitle.SetText(u"old.cfg");
  bench.page->txtAuthor.SetText(u"me");
  bench.page->txtMemo.SetText(u"notes");
  bench.page->DataChanged = false;
  bench.Upload();
  EXPECT_EQ(bench.page->txtFileTitle.Text(), u"");
  EXPECT_EQ(bench.page->txtAuthor.Text(), u"");
  EXPECT_EQ(bench.page->txtMemo.Text(), u"");
  EXPECT_EQ(bench.page->GroupItem.Author, u"");
  EXPECT_EQ(bench.page->GroupItem.Memo, u"");
}

TEST_F(UploadTest, ADeviceThatAnswersTheLinkTestAndThenFallsSilentGivesEmptyFieldsAndTheUploadIsComplete) {
  bench.line.silent_from = 2;
  MarkSet();
  bench.Upload();
  EXPECT_EQ(bench.Boxes(), (Texts{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload),
                                  Shown(BoxKey::NotMonitorMode), Shown(BoxKey::UploadDone)}));
  for (const int item : {2, 10, 14, 15, 16, 21}) {
    EXPECT_EQ(bench.page->Item(item), u"") << item;
  }
  EXPECT_TRUE(bench.AtRest());
  EXPECT_TRUE(bench.page->DataChanged);
  // Link test 2, then four tries each of the mode and of six items, stopping at the group.
  EXPECT_EQ(bench.line.Commands().size(), 2U + 7U * 4U);
}

TEST_F(UploadTest, ASilentDeviceAtTheLinkTestLeavesThePageUnchanged) {
  bench.line.silent_from = 0;
  MarkSet();
  bench.Upload();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::CommFailure)});
  EXPECT_TRUE(SetUntouched());
  EXPECT_TRUE(bench.page->CommFailed);
  EXPECT_TRUE(bench.AtRest());
  EXPECT_FALSE(bench.page->DataChanged);
  EXPECT_EQ(bench.line.Sent(), "G00 G00 G00 G00");
}

TEST_F(UploadTest, WithoutAModelInTheListItStopsBeforeTheQuestions) {
  bench.host.loop.Gate().Enter([&] { bench.page->lst_TypeSelect.SetListIndex(-1); });
  MarkSet();
  bench.Upload();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::NoModelChosen)});
  EXPECT_TRUE(SetUntouched());
  EXPECT_TRUE(bench.AtRest());
  EXPECT_EQ(bench.line.Sent(), "G00 I99");
}

TEST_F(UploadTest, NoOrCancelToItsQuestionsLeavesThePageUnchanged) {
  for (const std::vector<Answer>& answers :
       {std::vector{Answer::No}, std::vector{Answer::Yes, Answer::Cancel}}) {
    MarkSet();
    bench.line.ForgetCommands();
    for (const Answer answer : answers) {
      bench.host.dialogs.QueueAnswer(answer);
    }
    bench.Click(bench.page->cmdUpload);
    EXPECT_TRUE(SetUntouched());
    EXPECT_TRUE(bench.AtRest());
    EXPECT_FALSE(bench.page->DataChanged);
    EXPECT_EQ(bench.line.Sent(), "G00 I99");
    EXPECT_EQ(bench.host.dialogs.Unused(), 0U);
  }
}

TEST_F(UploadTest, UnsavedValuesThatTheUserKeepsStopItBeforeAnythingIsSent) {
  bench.Type(u"14", u"7");
  bench.host.dialogs.QueueAnswer(Answer::Cancel);
  bench.Click(bench.page->cmdUpload);
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::SaveChanges)});
  EXPECT_EQ(bench.page->Item(14), u"7");
  EXPECT_TRUE(bench.page->DataChanged);
  EXPECT_EQ(bench.line.Sent(), "");
  EXPECT_TRUE(bench.progress.empty());
}

TEST_F(UploadTest, AModeThatTheDeviceRefusesShowsItsBoxAndTheReadGoesOn) {
  bench.line.replies["D0"] = {"CNG"};
  bench.Upload();
  EXPECT_EQ(bench.Boxes(), (Texts{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload),
                                  Shown(BoxKey::NotMonitorMode), Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(bench.page->Item(14), u"-20.5");
}

TEST_F(UploadTest, AReplyThatIsNoLongerThanThePrefixGivesAnEmptyCell) {
  bench.line.items["01/14"] = "INPZER";
  bench.line.items["01/16"] = "FIN";
  bench.Upload();
  EXPECT_EQ(bench.page->Item(14), u"");
  EXPECT_EQ(bench.page->Item(16), u"");
}

TEST_F(UploadTest, AReplyOfTenBlanksUnderAPrefixGivesAnEmptyCell) {
  bench.line.items["01/02"] = "TG:          ";
  bench.Upload();
  EXPECT_EQ(bench.page->Item(2), u"");
}

TEST_F(UploadTest, ThePrefixIsNotComparedOnlyCutByItsLength) {
  bench.line.items["01/14"] = "abcdef 7.5 ";
  bench.Upload();
  EXPECT_EQ(bench.page->Item(14), u"7.5");
}

TEST_F(UploadTest, ARefusedItemIsKeptAsERRORAndReadOnce) {
  bench.line.replies["I14"] = {"CNG"};
  bench.Upload();
  EXPECT_EQ(bench.page->Item(14), u"ERROR");
  EXPECT_EQ(bench.page->Text[2].Text(), u"ERROR");
  EXPECT_EQ(bench.line.Sent(), "G00 I99 G01 I01 D0 G01 I02 G01 I10 G01 I14 G01 I16 G01 I21 G00 I99");
}

TEST_F(UploadTest, AnItemOfNoUseIsKeptAsNEEDLESSAndItsFieldIsBlankLockedAndGrey) {
  bench.line.replies["I14"] = {"CNU"};
  bench.Upload();
  EXPECT_EQ(bench.page->Item(14), u"NEEDLESS");
  EXPECT_EQ(bench.page->Text[2].Text(), u"");
  EXPECT_TRUE(bench.page->Text[2].Locked());
  EXPECT_EQ(bench.page->Text[2].ShownLook(), Look::Grey);
}

TEST_F(UploadTest, AnItemThatAnswersAtTheFourthTryHasItsValue) {
  bench.line.replies["I14"] = {std::nullopt, std::nullopt, std::nullopt, "DINPZER 3.5"};
  bench.Upload();
  EXPECT_EQ(bench.page->Item(14), u"3.5");
}

TEST_F(UploadTest, AnItemThatStaysSilentEmptiesItsCellAndTheNextOnesAreRead) {
  bench.line.replies["I14"] = {std::nullopt};
  bench.page->SetItem(14, u"before");
  bench.Upload();
  EXPECT_EQ(bench.page->Item(14), u"");
  EXPECT_EQ(bench.page->Item(16), u"0.12");
}

TEST_F(UploadTest, WhatFollowsAReadItemRunsForRowsThatWereAnsweredOnly) {
  bench.line.replies["I14"] = {std::nullopt};
  bench.Upload();
  EXPECT_EQ(bench.page->notes, (Texts{"begin table", "read row 0", "read row 1", "read row 4", "read row 5",
                                      "read row 6", "read all", "upload table"}));
}

TEST_F(UploadTest, TheFrameIsLockedWhileItRuns) {
  std::vector<bool> enabled;
  bench.host.loop.OnPump([&] {
    enabled.push_back(bench.page->cmdDownload.Enabled() || bench.page->Tabs.TabEnabled(1));
    EXPECT_TRUE(bench.page->Shared().CommBusy);
    EXPECT_FALSE(bench.page->Shared().DownloadBusy);
    // Two exchanges of the link test come before the questions.
    EXPECT_EQ(bench.page->UploadBusy, bench.line.Commands().size() >= 2);
  });
  bench.Upload();
  ASSERT_FALSE(enabled.empty());
  EXPECT_EQ(std::count(enabled.begin(), enabled.end(), true), 0);
}

TEST_F(UploadTest, ATabThatWasDisabledStaysSo) {
  bench.page->Tabs.SetTabEnabled(4, false);
  bench.Upload();
  EXPECT_FALSE(bench.page->Tabs.TabEnabled(4));
  EXPECT_TRUE(bench.page->Tabs.TabEnabled(5));
}

TEST_F(UploadTest, ACloseRequestEndsTheProgramWithTheExchange) {
  std::size_t commands = 0;
  bench.host.loop.OnPump([&] {
    if (bench.line.Commands().size() == 9 && commands == 0) {
      commands = 9;
      bench.program.PressClose();
    }
  });
  bench.Upload();
  EXPECT_TRUE(bench.ended);
  EXPECT_EQ(bench.line.Commands().size(), 10U) << "the exchange under way ends, and no other begins";
}

// An answer after which nothing further is read.

struct UploadStopTest : UploadTest {
  UploadStopTest() {
    MarkSet();
    bench.page->txtAuthor.SetText(u"me");
    bench.page->DataChanged = false;
    bench.page->judge = [this](const String& answer) {
      if (answer != u"INPZER -20.5") {
        return RowRead::Read;
      }
      bench.page->Box().Show(BoxKey::CommFailure);
      return RowRead::Stop;
    };
  }
};

TEST_F(UploadStopTest, WhatWasReadUpToThereIsShownAndTheRestIsEmpty) {
  bench.Upload();
  EXPECT_EQ(bench.page->Item(2), u"PUMP 1");
  EXPECT_EQ(bench.page->Item(10), u"2:RTD");
  for (const int item : {14, 15, 16, 21}) {
    EXPECT_EQ(bench.page->Item(item), u"") << item;
  }
  EXPECT_EQ(bench.page->Text[0].Text(), u"PUMP 1");
  EXPECT_EQ(bench.page->Combo[0].Text(), u"2:RTD");
  EXPECT_EQ(bench.page->Text[4].Text(), u"");
  EXPECT_EQ(bench.page->txtAuthor.Text(), u"");
  EXPECT_TRUE(bench.page->DataChanged);
}

TEST_F(UploadStopTest, NothingFollowsAndNothingIsReportedAsComplete) {
  bench.Upload();
  EXPECT_EQ(bench.line.Sent(), "G00 I99 G01 I01 D0 G01 I02 G01 I10 G01 I14");
  EXPECT_EQ(bench.page->notes, (Texts{"begin table", "read row 0", "read row 1"}));
  EXPECT_EQ(bench.Boxes(),
            (Texts{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload), Shown(BoxKey::CommFailure)}));
}

TEST_F(UploadStopTest, TheFrameIsUnlockedWithItsBarAtZero) {
  bench.page->Tabs.SetTabEnabled(4, false);
  bench.Upload();
  EXPECT_TRUE(bench.AtRest());
  EXPECT_EQ(bench.progress.back(), 0);
  EXPECT_TRUE(bench.page->Tabs.TabEnabled(5));
  EXPECT_FALSE(bench.page->Tabs.TabEnabled(4));
}

TEST_F(UploadTest, AnAnswerThatIsJudgedEmptyIsKeptAndNothingFollowsIt) {
  bench.page->judge = [](const String& answer) {
    return answer == u"INPZER -20.5" ? RowRead::Empty : RowRead::Read;
  };
  bench.Upload();
  EXPECT_EQ(std::count(bench.page->notes.begin(), bench.page->notes.end(), "read row 2"), 0);
  EXPECT_EQ(bench.page->Item(16), u"0.12");
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::UploadDone));
}

// The page's parts.

TEST_F(UploadTest, PartsAreToldOfTheBeginningWhileTheSetIsAsItWas) {
  MarkSet();
  bench.page->table.on_upload_begins = [&] {
    EXPECT_TRUE(SetUntouched());
    EXPECT_EQ(bench.page->TransferBar.Value(), 5.0F);
    EXPECT_TRUE(bench.page->UploadBusy);
  };
  bench.Upload();
  EXPECT_EQ(std::count(bench.page->notes.begin(), bench.page->notes.end(), "begin table"), 1);
  EXPECT_FALSE(SetUntouched());
}

TEST_F(UploadTest, PartsUploadAfterTheValuesShowAndBeforeTheReport) {
  bench.page->table.on_upload = [&] {
    EXPECT_EQ(bench.page->Text[2].Text(), u"-20.5");
    EXPECT_EQ(bench.page->TransferBar.Value(), 100.0F);
    EXPECT_EQ(bench.Boxes(), (Texts{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload)}));
    EXPECT_FALSE(bench.page->UploadBusy);
    EXPECT_TRUE(bench.page->Shared().CommBusy);
    EXPECT_FALSE(bench.page->cmdUpload.Enabled());
  };
  bench.Upload();
  EXPECT_EQ(bench.page->notes.back(), "upload table");
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::UploadDone));
}

TEST_F(UploadTest, PartsAreAskedInTheirOrder) {
  bench.page->AddPart("second");
  bench.page->AddPart("third");
  bench.Upload();
  EXPECT_EQ(bench.page->notes, (Texts{"begin table", "begin second", "begin third", "read row 0",
                                      "read row 1", "read row 2", "read row 4", "read row 5", "read row 6",
                                      "read all", "upload table", "upload second", "upload third"}));
}

TEST_F(UploadTest, APartThatCantBeReadEndsItWithTheItemsThatWereReadAndNoReport) {
  bench.page->table.read = false;
  bench.page->AddPart("second");
  bench.Upload();
  EXPECT_EQ(bench.page->notes.back(), "upload table");
  EXPECT_EQ(bench.Boxes(), (Texts{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload)}));
  EXPECT_EQ(bench.page->Item(14), u"-20.5");
  EXPECT_TRUE(bench.page->DataChanged);
  EXPECT_FALSE(bench.page->Shared().CommBusy);
  EXPECT_TRUE(bench.page->cmdUpload.Enabled());
}

}  // namespace
}  // namespace korva::test
