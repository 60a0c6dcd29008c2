#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "transfer_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kSections =
    "$I10\r\n"
    "1, 1:DC V, 0, 10, 0.1, N, Y, DC V, V\r\n"
    "2, 2:RTD, -200, 600, 20, N, Y, , deg C\r\n"
    "3, 3:FIXED, 0, 100, 1, N, N, , %\r\n"
    "4, 4:OTHER, 0, 100, 1, N, , , %\r\n"
    "$I11\r\n"
    "$I11Title\r\nNONE, DC V\r\n"
    "$I11Body\r\n0, 0-10 V, , , 0, 10\r\n1, 0-5 V, , , 0, 5\r\n"
    "$I21\r\n0, deg C\r\n1, deg F\r\n2, K\r\n"
    "$I23\r\n0, 0:OFF\r\n1, 1:ON\r\n"
    "$SSTab\r\nTrue, True, True, True, True, True, True\r\n";

const std::vector<DataRow> kRows = {
    {.item = "02", .label = "0", .caption = "First", .text = "0", .prefix = "TG:", .position = "0"},
    {.item = "10",
     .label = "1",
     .caption = "Second",
     .combo = "0",
     .list = "$I10",
     .condition = "$I10",
     .position = "1"},
    {.item = "11",
     .label = "2",
     .caption = "Third",
     .combo = "1",
     .list = "$I11",
     .condition = "$I10_CNECTI11",
     .position = "2"},
    {.item = "14", .text = "2", .unit_label = "2", .unit = "V", .prefix = "INPZER", .position = "3"},
    {.item = "15", .text = "3", .prefix = "INPSPN", .position = "4"},
    {.item = "16", .text = "4", .prefix = "FINZER", .position = "6"},
    {.item = "19", .text = "5", .prefix = "SCLLOW"},
    {.item = "23", .combo = "2", .list = "$I23", .position = "7"},
    {.item = "33", .position = "8"},
    {.group = "02", .item = "33", .position = "9"},
    {.item = "34", .text = "6", .condition = "", .prefix = "OTHER", .position = "10"},
};

struct DownloadTest : testing::Test {
  DownloadTest() { Fill(); }

  void Fill() {
    ItemLine& line = bench.line;
    line.items["01/02"] = "TG:OLD";
    line.items["01/10"] = "2:RTD";
    line.items["01/11"] = "0-5 V";
    line.items["01/14"] = "INPZER 1.0";
    line.items["01/15"] = "INPSPN 9.0";
    line.items["01/16"] = "FINZER 0.00";
    line.items["01/23"] = "0:OFF";
    line.prefixes = {{"01/02", "TG:"}, {"01/14", "INPZER"}, {"01/15", "INPSPN"}, {"01/16", "FINZER"}};
    line.choices["01/10"] = {{"1", "1:DC V"}, {"2", "2:RTD"}, {"3", "3:FIXED"}, {"4", "4:OTHER"}};
    line.choices["01/11"] = {{"0", "0-10 V"}, {"1", "0-5 V"}};
    line.choices["01/23"] = {{"0", "0:OFF"}, {"1", "1:ON"}};
    BenchPage& page = *bench.page;
    page.SetItem(2, u"PUMP 1");
    page.SetItem(10, u"1:DC V");
    page.SetItem(11, u"0-10 V");
    page.SetItem(14, u"2.5");
    page.SetItem(15, u"7.5");
    page.SetItem(16, u"0.12");
    page.SetItem(19, u"1");
    page.SetItem(23, u"1:ON");
    page.SetItem(33, u"x");
    page.SetItem(34, u"5");
    page.GroupItem.Set(2, 33, u"y");
    page.BuildPage();
  }
  /// Everything but the first question.
  [[nodiscard]] Texts BoxesAfterStart() const {
    Texts boxes = bench.Boxes();
    EXPECT_FALSE(boxes.empty());
    boxes.erase(boxes.begin());
    return boxes;
  }
  [[nodiscard]] bool Wrote(const std::string& write) const {
    const auto& writes = bench.line.writes;
    return std::find(writes.begin(), writes.end(), write) != writes.end();
  }
  void ExpectFailedUntouched(const std::string& box) {
    EXPECT_EQ(BoxesAfterStart(), Texts{box});
    EXPECT_TRUE(bench.AtRest());
    EXPECT_FALSE(Wrote("01/01=1")) << "the device was not put into programming mode";
    EXPECT_FALSE(bench.page->flaMsg_CannotEnd.Visible());
  }

  TransferBench bench{DataSection(kRows) + kSections};
};

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

TEST_F(DownloadTest, AChoiceWhoseTextHasNoCodeEndsTheProgramNamingItemAndText) {
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
  TransferBench bench(DataSection({{.item = "14", .text = "2", .prefix = "INPZER", .position = "21"}}) +
                      kSections);
  bench.page->SetItem(14, u"1");
  bench.page->BuildPage();
  bench.Download();
  ASSERT_EQ(bench.host.dialogs.Failures().size(), 1U);
  EXPECT_NE(ToUtf8(bench.host.dialogs.Failures()[0]).find("\"21\""), std::string::npos);
}

TEST(DownloadOrderTest, TheDefinitionsPositionsSetTheOrder) {
  TransferBench bench(DataSection({{.item = "14", .text = "2", .prefix = "INPZER", .position = "20"},
                                   {.item = "15", .text = "3", .prefix = "INPSPN", .position = "0"}}) +
                      kSections);
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
                      kSections);
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

TEST(DownloadPointTest, APointAtTheEndIsDroppedForTheModelsThatAskForItButNotFromTheTag) {
  for (const bool drops : {true, false}) {
    TransferBench bench(DataSection({{.item = "02", .text = "0", .prefix = "TG:", .position = "0"},
                                     {.item = "14", .text = "2", .prefix = "INPZER", .position = "1"},
                                     {.item = "15", .text = "3", .prefix = "INPSPN", .position = "2"}}) +
                            kSections,
                        {.def_file = kModel, .drops_trailing_point = drops});
    bench.line.prefixes["01/02"] = "TG:";
    for (const char* item : {"01/02", "01/14", "01/15"}) {
      bench.line.items[item] = "INPZER 0";
    }
    bench.page->SetItem(2, u"NO.");
    bench.page->SetItem(14, u"12.");
    bench.page->SetItem(15, u"12.5");
    bench.page->BuildPage();
    bench.Download();
    EXPECT_EQ(bench.line.writes.at(2), "01/02=NO.");
    EXPECT_EQ(bench.line.writes.at(3), drops ? "01/14=12" : "01/14=12.");
    EXPECT_EQ(bench.line.writes.at(4), "01/15=12.5");
  }
}

// Failures before the first write.

TEST_F(DownloadTest, ASilentDeviceShowsTheLinksBoxAndGetsNoModeCommand) {
  bench.line.silent_from = 0;
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::CommFailure));
  EXPECT_EQ(bench.line.Sent(), "G00 G00 G00 G00");
  EXPECT_TRUE(bench.page->CommFailed);
}

TEST_F(DownloadTest, WithoutAModelInTheListItStopsAfterTheLinkTest) {
  bench.host.loop.Gate().Enter([&] { bench.page->lst_TypeSelect.SetListIndex(-1); });
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::NoModelChosen));
  EXPECT_EQ(bench.line.Sent(), "G00 I99 G01 I01 D0");
}

TEST_F(DownloadTest, AFixedInputTypeThatDiffersStopsItWithTheCaptionOfTheLabelOfItsRow) {
  bench.line.items["01/10"] = "3:FIXED";
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::InputTypeMismatch, {u"Third"}));
  EXPECT_EQ(bench.line.Sent(), "G00 I99 G01 I01 D0 G01 I10 G01 I01 D0");
}

TEST_F(DownloadTest, WithoutSuchALabelTheNameIsEmpty) {
  bench.line.items["01/10"] = "4:OTHER";
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::InputTypeMismatch, {u""}));
}

TEST_F(DownloadTest, AFixedInputTypeThatAgreesPasses) {
  bench.line.items["01/10"] = "4:OTHER";
  bench.page->SetItem(10, u" 4:OTHER ");
  bench.page->SetItem(11, {});
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(DownloadTest, AnInputTypeThatCannotBeSetFromHereStopsIt) {
  bench.page->SetItem(10, u"3:FIXED");
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::InputTypeNotSettable));
}

TEST_F(DownloadTest, AnInputTypeThatTheListDoesNotHaveIsNotCompared) {
  bench.line.replies["I10"] = {"D9:UNKNOWN", "D1:DC V"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(DownloadTest, ADeviceThatRefusesMonitorModeBeforeTheChecksStopsIt) {
  bench.line.replies["D0"] = {"CNG", "CNG", "CNG", "CNG", "D0"};
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::NotMonitorMode));
}

TEST_F(DownloadTest, AFieldLeftBlankThatIsNotTheTagStopsItBeforeProgrammingMode) {
  bench.Type(u"16", u"");
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::FieldBlank));
}

TEST_F(DownloadTest, ABadValueStopsItBeforeProgrammingMode) {
  bench.Type(u"15", u"11");
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.LookOf(u"15"), Look::Bad);
}

TEST_F(DownloadTest, ADeviceThatRefusesProgrammingModeHasBeenLeftUntouched) {
  bench.line.replies["D1"] = {"CNG"};
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::NotProgrammingMode));
  EXPECT_EQ(bench.line.writes, (Texts{"01/01=0", "01/01=0"}));
}

TEST_F(DownloadTest, AModeThatCannotBeLeftShowsItsBoxAndTheDownloadIsDone) {
  bench.line.echoes["01/01"] = {"D0", "D1", "CNG"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), (Texts{Shown(BoxKey::NotMonitorMode), Shown(BoxKey::DownloadDone),
                                      Shown(BoxKey::NotMonitorMode)}));
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(DownloadTest, ValuesAreRoundedAfterTheInputTypeAndBeforeTheCheck) {
  bench.Type(u"16", u"");
  bench.Download();
  EXPECT_EQ(bench.page->notes, Texts{"round"});
  bench.line.items["01/10"] = "3:FIXED";
  bench.Download();
  EXPECT_EQ(bench.page->notes, Texts{});
}

// The linearizer's table.

TEST(DownloadTableTest, GoesWhereItIsInUseAndItsTabWasEnabled) {
  struct Case {
    bool tab;
    int option;
    bool written;
    Texts notes;
    Texts boxes;
  };
  const std::string start = Shown(BoxKey::StartDownload);
  for (const Case& one : {
           Case{true,
                1,
                true,
                {"round", "check table", "download table"},
                {start, Shown(BoxKey::DownloadDone)}},
           Case{true, 1, false, {"round", "check table", "download table"}, {start}},
           Case{true, 0, true, {"round"}, {start, Shown(BoxKey::DownloadDone)}},
           Case{false, 1, true, {"round"}, {start, Shown(BoxKey::DownloadDone)}},
       }) {
    TransferBench bench(DataSection({{.item = "10", .list = "$I10", .frame = "0"}}) + kSections,
                        {.def_file = kModel});
    bench.page->Opt_Table[one.option].SetValue(true);
    bench.page->Tabs.SetTabEnabled(3, one.tab);
    bench.page->table_written = one.written;
    bench.Download();
    EXPECT_EQ(bench.page->notes, one.notes);
    EXPECT_EQ(bench.Boxes(), one.boxes);
    EXPECT_TRUE(bench.AtRest());
    EXPECT_EQ(bench.page->Tabs.TabEnabled(3), one.tab);
  }
}

// Closing.

TEST_F(DownloadTest, ACloseRequestIsHeldOffUntilTheEndAndTheFrameTellsSo) {
  bool pressed = false;
  bool shown = false;
  bench.host.loop.OnPump([&] {
    if (!pressed && bench.line.Commands().size() == 12) {
      pressed = true;
      bench.program.PressClose();
      shown = bench.page->flaMsg_CannotEnd.Visible();
      bench.program.PressClose();
      EXPECT_TRUE(bench.page->flaMsg_CannotEnd.Visible());
    }
  });
  bench.Download();
  EXPECT_TRUE(shown);
  EXPECT_TRUE(bench.ended);
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_TRUE(bench.line.Sent().ends_with("G01 I01 D0 G01 I01 D0"));
}

TEST_F(DownloadTest, ACloseRequestDuringADownloadThatFailsKeepsTheWindowWithItsMessage) {
  bench.line.echoes["01/16"] = {"CNG"};
  bool pressed = false;
  bench.host.loop.OnPump([&] {
    if (!pressed) {
      pressed = true;
      bench.program.PressClose();
    }
  });
  bench.Download();
  EXPECT_FALSE(bench.ended);
  EXPECT_TRUE(bench.AtRest());
  EXPECT_FALSE(bench.page->flaMsg_CannotEnd.Visible());
}

// Input types spelt by the device's version.

struct SpellingCase {
  std::string version;
  String chosen;
  String spelt;
  std::string code;
};

TEST(DownloadSpellingTest, TheChosenTypeAndTheListTakeTheDevicesSpelling) {
  for (const auto& [version, chosen, spelt, code] : {
           SpellingCase{"SYSVER   1.00", u"Tc-2: K(CA)", u"Tc-2:K(CA)", "101"},
           SpellingCase{"SYSVER   1.00", u"Tc-2:K(CA)", u"Tc-2:K(CA)", "101"},
           SpellingCase{"SYSVER   2.00", u"Tc-1: (PR)", u"Tc-1:  (PR)", "100"},
           SpellingCase{"SYSVER   2.00", u"PS: Straight", u"PS: Straight", "109"},
           SpellingCase{"SYSVER   1.00", u"Sq-1:no drop", u"Sq-1:no drop", "115"},
       }) {
    std::string types = "$I10\r\n";
    std::map<std::string, std::string> texts;
    for (int row = 0; row < kSensorTexts; ++row) {
      const std::string row_code = std::to_string(100 + row);
      types += row_code + ", text " + std::to_string(row) + ", 0, 100, 1, N, Y, , deg C\r\n";
      texts[row_code] = ToUtf8(SensorTextsOf(FromUtf8(version)).at(static_cast<std::size_t>(row)));
    }
    TransferBench bench(DataSection({{.item = "10",
                                      .combo = "0",
                                      .list = "$I10",
                                      .change_rule = "$I10",
                                      .condition = "$I10",
                                      .position = "0"}}) +
                            types,
                        {.def_file = kModel, .spells_by_version = true});
    bench.line.items["00/99"] = version;
    bench.line.items["01/10"] = texts["103"];
    bench.line.choices["01/10"] = texts;
    bench.page->SetItem(10, chosen);
    bench.page->BuildPage();
    bench.Download();
    EXPECT_EQ(bench.page->Item(10), spelt);
    EXPECT_EQ(bench.page->Combo[0].Text(), spelt);
    EXPECT_EQ(bench.page->Def[u"$I10"].At(3, 1), SensorTextsOf(FromUtf8(version))[3]);
    EXPECT_EQ(bench.line.writes, (Texts{"01/01=0", "01/01=1", "01/10=" + code, "01/01=0", "01/01=0"}));
    EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::DownloadDone));
    EXPECT_FALSE(bench.page->DataChanged);
  }
}

}  // namespace
}  // namespace korva::test
