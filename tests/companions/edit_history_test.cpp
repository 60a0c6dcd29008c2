// Undo and redo: what is one step, what ends the history, and what is no edit.

#include "companions/edit_history.h"

#include <gtest/gtest.h>

#include "companions/part_of.h"
#include "linearizer/linearizer.h"
#include "linearizer/table_buttons.h"
#include "monitor/status_monitor.h"
#include "page_dump.h"
#include "support/page_parts.h"
#include "tables/user_tables.h"

namespace korva::test {
namespace {

class HistoryBench : public PageBench {
 public:
  explicit HistoryBench(const String& model, const std::function<void(sim::Device&)>& prepare = {})
      : device(Connect(model)) {
    if (prepare) {
      prepare(device);
    }
    Choose(model);
    TakeTables();
    PageBench::Upload();
    TakeBoxes();
  }
  EditHistory& History() { return *PartOf<EditHistory>(Page()); }
  void Undo() { test::Undo(*this); }
  void Redo() { test::Redo(*this); }
  bool CanUndo() { return test::CanUndo(*this); }
  bool CanRedo() { return test::CanRedo(*this); }
  String Text(const String& item) { return Field(item).Text(); }
  LnrEditor& Editor() { return Part<TablePart>(Page()).Editor(); }
  Grid& Table() { return Part<TablePart>(Page()).LnrFlexGrid; }
  void OpenCell(int row, int column) {
    Do([&] { Table().UserClicks(row, column); });
  }
  void ChangeCell(int row, int column, const String& text) {
    OpenCell(row, column);
    Type(Editor().txtLnrNewValue, text);
    Click(Editor().cmdLnrChangeOK);
  }
  /// The user types a memo two seconds from now, in the middle of an operation.
  void TypeMemoInTheMiddle() {
    loop.After(Milliseconds(2000), [this] {
      typed_in_the_middle = true;
      ASSERT_TRUE(Page().OperationRuns());
      Page().txtMemo.UserTypes(u"now");
    });
  }
  /// A table of 16 points is in use.
  void OpenTable() { Page().Tabs.SetTabEnabled(Page().TabWith(TextKey::Linearizer), true); }

  sim::Device& device;
  bool typed_in_the_middle = false;
};

TEST(EditHistoryTest, HasNothingToTakeBackAtFirst) {
  HistoryBench bench(u"QHW");
  EXPECT_FALSE(bench.CanUndo());
  EXPECT_FALSE(bench.CanRedo());
  bench.History().Undo();
  bench.History().Redo();
  EXPECT_EQ(bench.History().cmdUndo.Caption(), u"元に戻す");
  EXPECT_EQ(bench.History().cmdRedo.Caption(), u"やり直し");
}

TEST(EditHistoryTest, TakesWhatIsTypedIntoOneFieldAsOneStep) {
  HistoryBench bench(u"QHW");
  const String tag = bench.Text(u"02");
  bench.Type(u"02", u"A");
  bench.Type(u"02", u"AB");
  bench.Type(u"02", u"ABC");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"02"), tag);
  EXPECT_FALSE(bench.CanUndo());
  bench.Redo();
  EXPECT_EQ(bench.Text(u"02"), u"ABC");
  EXPECT_EQ(bench.Page().GroupItem.At(1, 2), u"ABC");
  EXPECT_FALSE(bench.CanRedo());
}

TEST(EditHistoryTest, BeginsAStepWithAnotherFieldAndWithAButton) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"A");
  bench.Type(u"14", u"1");
  bench.Type(u"02", u"B");
  bench.Click(ButtonOf(bench.Page(), "cmdReport"));
  bench.Type(u"02", u"C");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"02"), u"B");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"02"), u"A");
  EXPECT_EQ(bench.Text(u"14"), u"1");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"14"), u"0");
  bench.Undo();
  EXPECT_FALSE(bench.CanUndo());
}

TEST(EditHistoryTest, MakesNoStepOfATextThatIsTypedBack) {
  HistoryBench bench(u"QHW");
  bench.Type(u"14", u"05");
  bench.Type(u"14", u"0");
  EXPECT_FALSE(bench.CanUndo());
}

TEST(EditHistoryTest, DropsWhatWasTakenBackWithTheNextEdit) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"A");
  bench.Undo();
  EXPECT_TRUE(bench.CanRedo());
  bench.Type(u"14", u"1");
  EXPECT_FALSE(bench.CanRedo());
}

TEST(EditHistoryTest, HasNoStepLeftOfWhatWasTakenBackBehindTheNextEdit) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"A");
  bench.Undo();
  bench.Type(u"14", u"1");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"14"), u"0");
  EXPECT_FALSE(bench.CanUndo());
  bench.Redo();
  EXPECT_EQ(bench.Text(u"14"), u"1");
  EXPECT_FALSE(bench.CanRedo());
}

TEST(EditHistoryTest, GoesOnWithANewStepInAFieldThatWasTakenBack) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"A");
  bench.Type(u"14", u"1");
  bench.Undo();
  bench.Type(u"02", u"AB");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"02"), u"A");
}

TEST(EditHistoryTest, TakesAuthorAndMemoBack) {
  HistoryBench bench(u"QHW");
  bench.Type(bench.Page().txtAuthor, u"技術部");
  bench.Type(bench.Page().txtMemo, u"1行目\r\n2行目");
  bench.Undo();
  EXPECT_EQ(bench.Page().GroupItem.Memo, u"");
  EXPECT_EQ(bench.Page().txtMemo.Text(), u"");
  bench.Undo();
  EXPECT_EQ(bench.Page().GroupItem.Author, u"");
  bench.Redo();
  EXPECT_EQ(bench.Page().txtAuthor.Text(), u"技術部");
}

// 100.4 deg C are 212.72 deg F, shown as 213, which are 100.56 deg C.
TEST(EditHistoryTest, GivesTheFormerTextsOfAnotherTemperatureUnitBackWithoutConvertingThem) {
  HistoryBench bench(u"QN");
  ParameterPage& page = bench.Page();
  bench.Type(u"14", u"100.4");
  ASSERT_EQ(page.optTempUnit.Selected(), 0);
  bench.Press(page.optTempUnit, 1);
  ASSERT_EQ(bench.Text(u"14"), u"213");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"14"), u"100.4");
  EXPECT_EQ(page.GroupItem.At(1, 14), u"100.4");
  EXPECT_EQ(bench.UnitOf(u"14"), u"deg C");
  EXPECT_EQ(page.optTempUnit.Selected(), 0);
  EXPECT_EQ(page.GroupItem.At(1, 21), u"deg C");
  bench.Redo();
  EXPECT_EQ(bench.Text(u"14"), u"213");
  EXPECT_EQ(bench.UnitOf(u"14"), u"deg F");
}

// 99.96 deg C are 373.11 K, shown upwards as 373.2, and 211.93 deg F, shown as 211.9, which alone are 373.1
// K.
TEST(EditHistoryTest, KnowsStillWhichNumbersAreThoseThatWereRead) {
  HistoryBench bench(u"Z8WR2", [](sim::Device& device) { device.Set("01", "14", "12.345 99.96"); });
  ParameterPage& page = bench.Page();
  bench.Press(page.optTempUnit, 2);
  ASSERT_EQ(page.Item(14), u"285.5 373.2");
  bench.Undo();
  EXPECT_EQ(page.Item(14), u"12.345 99.960");
  bench.Press(page.optTempUnit, 1);
  ASSERT_EQ(page.Item(14), u"54.2 211.9");
  bench.Press(page.optTempUnit, 2);
  EXPECT_EQ(page.Item(14), u"285.5 373.2");
}

/// The device counts times in steps of 5 msec, to which a download rounds them.
TEST(EditHistoryTest, LeavesWhatADownloadRounded) {
  HistoryBench bench(u"QEY");
  bench.Save(kFile);
  bench.Type(u"02", u"A");
  bench.Type(u"12", u"13");
  bench.Type(u"02", u"B");
  bench.Download();
  ASSERT_EQ(bench.Text(u"12"), u"10");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"02"), u"A");
  EXPECT_EQ(bench.Text(u"12"), u"10");
  EXPECT_TRUE(bench.Page().DataChanged);
}

/// Another device of the model may spell its choices otherwise: former texts stand in no list then.
TEST(EditHistoryTest, EndsWhenADownloadListsTheChoicesAnew) {
  PageBench bench;
  bench.Connect(u"QUO", {.system_text = "SYSVER   2.00"});
  bench.Choose(u"QUO");
  bench.Upload();
  bench.Type(u"02", u"A");
  ASSERT_TRUE(CanUndo(bench));
  ASSERT_EQ(bench.First().Combo[0].Entries()[1], u"Tc-2: K(CA)");
  bench.First().GroupItem.Set(0, 99, u"SYSVER   1.00");  // as of a file of an older device
  bench.Page().DataChanged = false;                      // no question
  bench.Choose(u"QUO");
  ASSERT_EQ(bench.First().Combo[0].Entries()[1], u"Tc-2:K(CA)");
  bench.Type(u"02", u"B");
  ASSERT_TRUE(CanUndo(bench));
  bench.Download();
  EXPECT_EQ(bench.First().Combo[0].Entries()[1], u"Tc-2: K(CA)");
  EXPECT_FALSE(CanUndo(bench));
}

/// The page stays usable while a live loop runs.
TEST(EditHistoryTest, TakesAnEditBackThatWasMadeBesideALiveLoop) {
  HistoryBench bench(u"Z2WQ");
  const String tag = bench.Text(u"02");
  bool typed = false;
  bench.loop.StartTimer(Milliseconds(1500), [&] {
    if (!typed) {
      typed = true;
      ASSERT_TRUE(bench.Page().OperationRuns());
      bench.Type(u"02", u"LIVE");
      EXPECT_FALSE(bench.CanUndo());
      bench.Click(ButtonOf(bench.Page(), "cmdThresholdStart"));
    }
  });
  bench.Click(ButtonOf(bench.Page(), "cmdThresholdStart"));
  ASSERT_TRUE(typed);
  EXPECT_EQ(bench.Text(u"02"), u"LIVE");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"02"), tag);
  EXPECT_FALSE(bench.CanUndo());
}

TEST(EditHistoryTest, KeepsNoMoreChangesThanItHasRoomFor) {
  HistoryBench bench(u"Z8WT2");
  bench.Pick(bench.Page().Combo[0], bench.Page().Combo[0].Entries().back());
  Grid& grid = Part<UserTables>(bench.Page()).TCFlexGrid;
  ASSERT_TRUE(grid.Visible());
  constexpr int kPoints = 300;
  ASSERT_EQ(grid.Rows(), kPoints + 1);
  for (int paste = 0; paste < 80; ++paste) {
    String block;
    for (int row = 1; row <= kPoints; ++row) {
      block += Ascii(std::to_string(paste * 2000 + row)) + u"\n";
    }
    bench.Do([&] { grid.UserPastes(1, 1, block); });
  }
  int undone = 0;
  while (bench.CanUndo()) {
    bench.Undo();
    ++undone;
  }
  EXPECT_EQ(undone, 66);  // 19800 cells
}

TEST(EditHistoryTest, EditsTheTableThatAChoiceHadTakenAway) {
  HistoryBench bench(u"Z8WT2");
  ComboBox& types = bench.Page().Combo[0];
  bench.Pick(types, types.Entries().back());
  Grid& grid = Part<UserTables>(bench.Page()).TCFlexGrid;
  ASSERT_TRUE(grid.Visible());
  bench.Pick(types, types.Entries().front());
  ASSERT_FALSE(grid.Visible());
  bench.Undo();
  ASSERT_TRUE(grid.Visible());
  bench.Do([&] { grid.UserClicks(5, 1); });
  bench.Type(bench.Editor().txtLnrNewValue, u"1.25");
  bench.Click(bench.Editor().cmdLnrChangeOK);
  EXPECT_EQ(grid.At(5, 1).text, u"1.25");
  bench.Undo();
  EXPECT_EQ(grid.At(5, 1).text, u"0.00");
}

TEST(EditHistoryTest, TakesAChoiceBackWithAllThatItChanged) {
  HistoryBench bench(u"QN");
  const std::vector<std::string> before = DumpOf(bench);
  ComboBox& types = bench.Page().Combo[0];
  bench.Pick(types, types.Entries().back());
  ASSERT_NE(DumpOf(bench), before);
  bench.Undo();
  EXPECT_EQ(FirstOf(DumpOf(bench), before), "");
  EXPECT_FALSE(bench.CanUndo());
}

TEST(EditHistoryTest, TakesAConfirmedCellBackAndGoesThere) {
  HistoryBench bench(u"QHW");
  bench.OpenTable();
  bench.ChangeCell(3, 1, u"12.5");
  bench.ChangeCell(4, 2, u"99");
  const int other_tab = 0;
  bench.Page().Tabs.SetCurrent(other_tab);
  bench.Undo();
  EXPECT_NE(bench.Table().At(4, 2).text, u"99");
  EXPECT_EQ(bench.Table().At(3, 1).text, u"12.5");
  EXPECT_EQ(bench.Table().CurrentCell(), std::pair(4, 2));
  EXPECT_EQ(bench.Page().Tabs.Current(), bench.Page().TabWith(TextKey::Linearizer));
  bench.Undo();
  EXPECT_EQ(bench.Table().CurrentCell(), std::pair(3, 1));
  EXPECT_FALSE(bench.CanUndo());
}

TEST(EditHistoryTest, GivesUpATextThatIsNotInTheTableYetFirst) {
  HistoryBench bench(u"QHW");
  bench.OpenTable();
  bench.ChangeCell(3, 1, u"12.5");
  bench.OpenCell(5, 1);
  const String own = bench.Table().At(5, 1).text;
  bench.Type(bench.Editor().txtLnrNewValue, u"77");
  bench.Undo();
  EXPECT_TRUE(bench.Editor().IsOpen());
  EXPECT_EQ(bench.Editor().txtLnrNewValue.Text(), own);
  EXPECT_EQ(bench.Table().At(3, 1).text, u"12.5");
  bench.Undo();
  EXPECT_FALSE(bench.Editor().IsOpen());
  EXPECT_NE(bench.Table().At(3, 1).text, u"12.5");
  EXPECT_EQ(bench.Table().At(5, 1).look, Look::Normal);
}

TEST(EditHistoryTest, CanGiveUpATextOfTheEditorThoughNothingWasEdited) {
  HistoryBench bench(u"QHW");
  bench.OpenTable();
  bench.OpenCell(5, 1);
  EXPECT_FALSE(bench.CanUndo());
  bench.Type(bench.Editor().txtLnrNewValue, u"77");
  EXPECT_TRUE(bench.CanUndo());
  bench.Undo();
  EXPECT_FALSE(bench.CanUndo());
  EXPECT_FALSE(bench.CanRedo());
}

TEST(EditHistoryTest, TakesAPasteBackAsOneStep) {
  HistoryBench bench(u"QHW");
  bench.OpenTable();
  const std::vector<std::string> before = DumpOf(bench);
  bench.Do([&] { bench.Table().UserPastes(15, 1, u"1\t2\n3\t4\n5\t6"); });
  EXPECT_EQ(bench.Table().At(16, 2).text, u"4");
  EXPECT_FALSE(bench.Page().Notes.Told(Notice::NotPasted).empty());
  bench.Undo();
  EXPECT_EQ(FirstOf(DumpOf(bench), before), "");
  EXPECT_TRUE(bench.Page().Notes.Told(Notice::NotPasted).empty());
  EXPECT_FALSE(bench.CanUndo());
}

TEST(EditHistoryTest, TakesAFormerCellBackThatAPressOnAnotherConfirmed) {
  HistoryBench bench(u"QHW");
  bench.OpenTable();
  bench.OpenCell(2, 1);
  const String former = bench.Table().At(2, 1).text;
  bench.Type(bench.Editor().txtLnrNewValue, u"88");
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.OpenCell(3, 1);
  ASSERT_EQ(bench.Table().At(2, 1).text, u"88");
  bench.Undo();
  EXPECT_EQ(bench.Table().At(2, 1).text, former);
  EXPECT_FALSE(bench.Editor().IsOpen());
}

TEST(EditHistoryTest, GivesACellThatACheckMarkedItsMarkBack) {
  HistoryBench bench(u"QHW");
  bench.OpenTable();
  bench.ChangeCell(3, 1, u"bad");
  bench.Do([&] { Part<Linearizer>(bench.Page()).CheckLnrTable(); });
  ASSERT_EQ(bench.Table().At(3, 1).look, Look::Bad);
  bench.ChangeCell(3, 1, u"12");
  ASSERT_EQ(bench.Table().At(3, 1).look, Look::Normal);
  bench.Undo();
  EXPECT_EQ(bench.Table().At(3, 1).text, u"bad");
  EXPECT_EQ(bench.Table().At(3, 1).look, Look::Bad);
}

struct HistoryEnd {
  std::string name;
  String model;
  std::function<void(HistoryBench& bench)> act;
};

class EndOfHistory : public testing::TestWithParam<HistoryEnd> {};

TEST_P(EndOfHistory, LeavesNothingToTakeBack) {
  HistoryBench bench(GetParam().model);
  bench.Save(kFile);
  bench.Type(u"02", u"A");
  bench.Type(u"02", u"B");
  bench.Type(bench.Page().txtMemo, u"memo");
  bench.Undo();
  ASSERT_TRUE(bench.CanUndo());
  ASSERT_TRUE(bench.CanRedo());
  bench.Page().DataChanged = false;  // no question
  GetParam().act(bench);
  EXPECT_FALSE(bench.CanUndo());
  EXPECT_FALSE(bench.CanRedo());
}

INSTANTIATE_TEST_SUITE_P(
    Each, EndOfHistory,
    testing::Values(HistoryEnd{"Upload", u"QHW", [](HistoryBench& bench) { bench.Upload(); }},
                    HistoryEnd{"File", u"QHW", [](HistoryBench& bench) { bench.Open(kFile); }},
                    HistoryEnd{"NewSet", u"QHW", [](HistoryBench& bench) { bench.New(); }},
                    HistoryEnd{"Model", u"QHW", [](HistoryBench& bench) { bench.Choose(u"QN"); }},
                    HistoryEnd{"SameModel", u"QHW", [](HistoryBench& bench) { bench.Choose(u"QHW"); }},
                    HistoryEnd{"ModelOfAnotherFamilyAndBack", u"QHW",
                               [](HistoryBench& bench) {
                                 bench.Choose(u"QXI");
                                 EXPECT_FALSE(bench.CanUndo());
                                 bench.Choose(u"QHW");
                               }},
                    HistoryEnd{"DiscardedSet", u"QHW",
                               [](HistoryBench& bench) {
                                 bench.Page().DataChanged = true;
                                 bench.dialogs.QueueAnswer(Answer::No);
                                 bench.dialogs.QueueFile(std::nullopt);
                                 bench.Click(bench.Page().cmdOpen);
                               }},
                    HistoryEnd{"TableFile", u"QHW",
                               [](HistoryBench& bench) {
                                 bench.OpenTable();
                                 bench.PutText(u"/korva/data/t.csv", u"1,2\n3,4\n");
                                 bench.dialogs.QueueFile(u"/korva/data/t.csv");
                                 bench.Click(Part<TablePart>(bench.Page()).cmd_csvFileOpen);
                               }},
                    HistoryEnd{"TableOfTheDevice", u"Z2WPR",
                               [](HistoryBench& bench) {
                                 bench.Press(Part<Linearizer>(bench.Page()).Opt_Lnr, 1);
                                 bench.ChangeCell(1, 1, u"55");
                                 ASSERT_TRUE(bench.CanUndo());
                                 bench.Click(ButtonOf(bench.Page(), "cmdReadOutTable"));
                               }}),
    [](const testing::TestParamInfo<HistoryEnd>& parameter) { return parameter.param.name; });

TEST(EditHistoryTest, KeepsItsStepsWhenAFileDialogIsCancelled) {
  HistoryBench bench(u"QHW");
  bench.OpenTable();
  bench.Type(u"02", u"A");
  bench.dialogs.QueueFile(std::nullopt);
  bench.Click(Part<TablePart>(bench.Page()).cmd_csvFileOpen);
  EXPECT_TRUE(bench.CanUndo());
}

TEST(EditHistoryTest, GoesOnBehindACheckADownloadAndASave) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"A");
  bench.Check();
  bench.Download();
  bench.Save(kFile);
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::FileSaved));
  EXPECT_TRUE(bench.CanUndo());
  const int exchanges = bench.device.Exchanges();
  bench.Undo();
  bench.Redo();
  EXPECT_EQ(bench.Text(u"02"), u"A");
  EXPECT_EQ(bench.device.Exchanges(), exchanges);  // the user's undo sends nothing
}

TEST(EditHistoryTest, TellsHonestlyWhetherTheSetIsTheSavedOne) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"A");
  bench.Save(kFile);
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.Type(u"14", u"1");
  EXPECT_TRUE(bench.Page().DataChanged);
  bench.Undo();
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.Undo();
  EXPECT_TRUE(bench.Page().DataChanged);
  bench.Redo();
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.Redo();
  EXPECT_TRUE(bench.Page().DataChanged);
  bench.Save(kFile);
  bench.Undo();
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST(EditHistoryTest, BeginsAStepBehindASave) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"A");
  bench.Save(kFile);
  bench.Type(u"02", u"AB");
  bench.Undo();
  EXPECT_EQ(bench.Text(u"02"), u"A");
  EXPECT_FALSE(bench.Page().DataChanged);
}

/// While the device is asked, and while a box stands, nothing can be taken back.
TEST(EditHistoryTest, RestsWhileAnOperationRuns) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"A");
  bench.Type(u"14", u"1");
  bench.Undo();
  int asked = 0;
  bench.dialogs.OnBox([&](const Box& /*box*/) {
    const bool begun = ++asked != 2;  // the download's question stands before it
    EXPECT_EQ(bench.History().cmdUndo.Enabled(), !begun);
    EXPECT_EQ(bench.History().cmdRedo.Enabled(), !begun);
    bench.History().cmdUndo.Click();
    bench.History().cmdRedo.Click();
    EXPECT_EQ(bench.Text(u"02"), u"A");
    EXPECT_EQ(bench.Text(u"14"), u"0");
  });
  bench.Check();
  bench.Download();
  EXPECT_EQ(asked, 3);
  EXPECT_TRUE(bench.CanUndo());
  EXPECT_TRUE(bench.CanRedo());
}

TEST(EditHistoryTest, KeepsWhatTheUserTypesDuringADownloadAsAStep) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"A");
  bench.TypeMemoInTheMiddle();
  bench.Download();
  ASSERT_TRUE(bench.typed_in_the_middle);
  EXPECT_EQ(bench.Page().txtMemo.Text(), u"now");
  bench.Undo();
  EXPECT_EQ(bench.Page().txtMemo.Text(), u"");
  EXPECT_EQ(bench.Text(u"02"), u"A");
  bench.Undo();
  EXPECT_FALSE(bench.CanUndo());
}

TEST(EditHistoryTest, HasNothingToTakeBackOfWhatWasTypedDuringAnUpload) {
  HistoryBench bench(u"QHW");
  bench.TypeMemoInTheMiddle();
  bench.Page().DataChanged = false;  // no question
  bench.PageBench::Upload();
  ASSERT_TRUE(bench.typed_in_the_middle);
  EXPECT_FALSE(bench.CanUndo());
}

TEST(EditHistoryTest, ShowsNothingForALiveValueThatWasReadSince) {
  HistoryBench bench(u"QXI");
  ParameterPage& page = bench.Page();
  bench.Pick(page.Combo[0], u"Tc-2:K(CA)");
  const String live = u"04";
  TextField& field = bench.Field(live);
  ASSERT_TRUE(page.IsLive(page.FindDataRow(live)));
  bench.Do([&] { field.SetText(u"25"); });
  bench.Press(page.optTempUnit, 1);
  ASSERT_EQ(field.Text(), u"77");
  bench.Undo();
  EXPECT_EQ(field.Text(), u"25");  // the same value
  bench.Redo();
  EXPECT_EQ(field.Text(), u"77");
  bench.Do([&] { field.SetText(u"80"); });  // read anew
  const String cell = page.SetCell(page.FindDataRow(live));
  bench.Undo();
  EXPECT_EQ(field.Text(), u"");
  EXPECT_EQ(page.SetCell(page.FindDataRow(live)), cell);
  EXPECT_EQ(bench.UnitOf(live), u"deg C");
}

TEST(EditHistoryTest, LeavesALiveValueThatTheChoiceDidNotConvert) {
  HistoryBench bench(u"QN");
  ParameterPage& page = bench.Page();
  TextField& field = bench.Field(u"04");
  bench.Do([&] { field.SetText(u"25"); });
  bench.Press(page.optTempUnit, 1);
  ASSERT_EQ(bench.UnitOf(u"04"), u"deg F");
  ASSERT_EQ(field.Text(), u"25");
  bench.Undo();
  EXPECT_EQ(bench.UnitOf(u"04"), u"deg C");
  EXPECT_EQ(field.Text(), u"25");
}

TEST(EditHistoryTest, ShowsNoLiveValueInAnotherUnitThanItWasReadIn) {
  HistoryBench bench(u"QN");
  ParameterPage& page = bench.Page();
  TextField& field = bench.Field(u"04");
  bench.Press(page.optTempUnit, 1);
  bench.Do([&] { field.SetText(u"80"); });  // read in deg F
  bench.Undo();
  EXPECT_EQ(bench.UnitOf(u"04"), u"deg C");
  EXPECT_EQ(field.Text(), u"");
}

TEST(EditHistoryTest, KeepsAHundredSteps) {
  HistoryBench bench(u"QHW");
  for (int step = 0; step < 120; ++step) {
    bench.Type(u"02", Ascii(std::to_string(step)));
    bench.Type(bench.Page().txtMemo, Ascii(std::to_string(step)));
  }
  int undone = 0;
  while (bench.CanUndo()) {
    bench.Undo();
    ++undone;
  }
  EXPECT_EQ(undone, 100);
  EXPECT_EQ(bench.Text(u"02"), u"69");
}

TEST(EditHistoryTest, GoesToTheFieldThatItChanges) {
  HistoryBench bench(u"QHW");
  ParameterPage& page = bench.Page();
  bench.Type(u"14", u"1");
  bool focus = false;
  bench.Field(u"14").ObserveFocus([&] { focus = true; });
  const int tab = page.TabOf(bench.Field(u"14"));
  page.Tabs.SetCurrent(tab == 0 ? 1 : 0);
  bench.Undo();
  EXPECT_TRUE(focus);
  EXPECT_EQ(page.Tabs.Current(), tab);
}

TEST(EditHistoryTest, TakesTheMarksOfAComparisonAway) {
  HistoryBench bench(u"QHW");
  bench.Type(u"02", u"MINE");
  bench.Click(ButtonOf(bench.Page(), "cmdCompare"));
  ASSERT_TRUE(bench.Field(u"02").Differs());
  bench.Undo();
  EXPECT_FALSE(bench.Field(u"02").Differs());
  bench.Redo();
  EXPECT_FALSE(bench.Field(u"02").Differs());
}

TEST(EditHistoryTest, TakesTheMarksOfAComparisonAwayWithWhatIsNoItemToo) {
  HistoryBench bench(u"QHW");
  bench.Type(bench.Page().txtMemo, u"memo");
  bench.device.Set("01", "02", "OTHER");
  bench.Click(ButtonOf(bench.Page(), "cmdCompare"));
  ASSERT_TRUE(bench.Field(u"02").Differs());
  bench.Undo();
  EXPECT_EQ(bench.Page().txtMemo.Text(), u"");
  EXPECT_FALSE(bench.Field(u"02").Differs());
}

TEST(EditHistoryTest, JudgesTheNumbersAnewWhenItPutsThemBack) {
  HistoryBench bench(u"QHW");
  bench.Type(u"14", u"1,5");
  ASSERT_TRUE(bench.Field(u"14").Marked());
  ASSERT_FALSE(bench.Page().Notes.Told(Notice::NotPlain).empty());
  bench.Undo();
  EXPECT_FALSE(bench.Field(u"14").Marked());
  EXPECT_TRUE(bench.Page().Notes.Told(Notice::NotPlain).empty());
  bench.Redo();
  EXPECT_TRUE(bench.Field(u"14").Marked());
  EXPECT_FALSE(bench.Page().Notes.Told(Notice::NotPlain).empty());
}

TEST(EditHistoryTest, MakesNoStepOfThePortOrOfTheCellsThatAreLookedAt) {
  HistoryBench bench(u"QHW");
  bench.OpenTable();
  bench.OpenCell(2, 1);
  bench.Click(bench.Editor().cmdLnrChangeCancel);
  bench.Press(bench.Page().OptCom, 0);
  bench.Click(ButtonOf(bench.Page(), "cmdLine"));
  EXPECT_FALSE(bench.CanUndo());
}

}  // namespace
}  // namespace korva::test
