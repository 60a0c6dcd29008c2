// The buttons by which a table travels, against a device that answers as told. The page lends its frame and
// its line; linearizer and buttons are the test's own.

#include "linearizer/table_buttons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "core/text_utilities.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"
#include "support/scripted_line.h"

namespace korva::test {
namespace {

using Strings = std::vector<std::string>;

/// The page of a model, which shows.
struct ModelBench : PageBench {
  explicit ModelBench(const String& model) {
    port.Connect(1, &line);
    Choose(model);
  }
  ScriptedLine line{port};
};

class ButtonsBench : public ModelBench {
 public:
  ButtonsBench(const String& model, int points, const TableButtonsForm& form)
      : ModelBench(model),
        family{.points = points, .quantities = kPercentQuantity, .buttons = &form, .limits = kPercentLimits} {
    linearizer.SetUp(points);
    buttons.Table_ProgressBar.Observe([this] { bar.push_back(buttons.Table_ProgressBar.Value()); });
    Page().DataChanged = false;
    line.ForgetCommands();
    TakeBoxes();
  }

  void Fill(const std::vector<std::pair<String, String>>& points) {
    Do([&] {
      linearizer.Table().Clear();
      int row = 0;
      for (const auto& [x, y] : points) {
        ++row;
        linearizer.Table().Store(row, 1, x);
        linearizer.Table().Store(row, 2, y);
      }
    });
  }
  /// Points of a straight line, "0" to what is left below 100 in steps of 1.
  void FillLine(int points) {
    std::vector<std::pair<String, String>> line_points;
    for (int point = 0; point < points; ++point) {
      const String value = Ascii(std::to_string(point));
      line_points.emplace_back(value, value);
    }
    Fill(line_points);
  }
  std::string Cell(int row, int column) { return ToUtf8(linearizer.LnrFlexGrid.At(row, column).text); }
  /// What was written or asked of items, without the selections.
  Strings Data() {
    Strings data;
    for (const CommandLine::Command& command : line.Commands()) {
      if (command.text.starts_with('D')) {
        data.push_back(command.text);
      }
    }
    return data;
  }
  Strings ReadOut() {
    TakeBoxes();
    Click(buttons.cmdReadOutTable);
    return TakeBoxes();
  }
  Strings WriteIn() {
    TakeBoxes();
    Click(buttons.cmdWriteInTable);
    return TakeBoxes();
  }
  void ExpectAtRest() {
    const SharedState& shared = app.program.Shared();
    EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy);
    EXPECT_EQ(buttons.Table_ProgressBar.Value(), 0.0F);
    EXPECT_EQ(Page().TransferBar.Value(), 0.0F);
    for (const Button* button :
         {&buttons.cmdReadOutTable, &buttons.cmdWriteInTable, &linearizer.cmd_csvFileOpen,
          &linearizer.cmd_csvFileSave, &Page().cmdUpload}) {
      EXPECT_TRUE(button->Enabled()) << button->FullName();
    }
    EXPECT_TRUE(Page().Tabs.TabEnabled(0));
    EXPECT_FALSE(Page().flaMsg_CannotEnd.Visible());
  }

  LnrFamily family;
  OrNone<CsvFamily> csv = CsvFamily{.reader = {.size_records = SizeRecords::TakeAll}, .saves = true};
  Linearizer linearizer{Page(), family, csv};
  TableButtons buttons{Page(), linearizer};
  std::vector<float> bar;
};

/// A device that takes commands in one item, and holds the points (0, 10), (25, 30), (100, 90) %.
struct CommandBench : ButtonsBench {
  explicit CommandBench(int points = 3) : ButtonsBench(u"Z2WV2", kLnrLongPoints, kTableByCommands) {
    line.Answer("G01", "D      enter item");
    line.Answer("I01", "D  Maintenance SW");
    line.Answer("I62", "D Linearize Table");
    line.Answer("D0", "D               0");
    line.Answer("D1", "D               1");
    line.Answer("DP", "D  P " + std::to_string(points));
    line.Answer("DT0", "D  0.0000  0.1000");
    line.Answer("DT1", "D  0.2500  0.3000");
    line.Answer("DT2", "D  1.0000  0.9000");
    line.Answer("DF", "D             end");
  }
  void Size(const String& size) {
    Do([&] { buttons.txtSize.SetText(size); });
  }
};

/// A device with an item for each value, each of which reads 50 and takes what it is sent.
struct ItemBench : ButtonsBench {
  ItemBench() : ButtonsBench(u"QHW", kLnrShortPoints, kTableByItems) {
    line.Answer("G01", "COK");
    line.Answer("I01", "D0");
    line.Answer("D0", "D0");
    line.Answer("D1", "D1");
    for (int item = 60; item <= 91; ++item) {
      line.Answer("I" + std::to_string(item), "DX(01):   50.00");
    }
  }
};

const std::string kRead = ToUtf8(u"ﾃｰﾌﾞﾙ ﾁｪｯｸ: Tableの値を読み出しました。");
const std::string kWritten = ToUtf8(u"ﾃｰﾌﾞﾙ ﾁｪｯｸ: Tableの値を書き込みました。");
const std::string kFailed = ToUtf8(u"ﾃｰﾌﾞﾙﾁｪｯｸ: ﾃｰﾌﾞﾙﾃﾞｰﾀのRead/Writeｴﾗｰが発生しました。");
const std::string kBlank = ToUtf8(u"ﾃｰﾌﾞﾙﾁｪｯｸ: 空白の項目があります。値を入力して下さい。");
const std::string kNotRead = ToUtf8(u"ﾃｰﾌﾞﾙﾁｪｯｸ: 値を読み出すことができませんでした。");
const std::string kNotWritten = ToUtf8(u"ﾃｰﾌﾞﾙﾁｪｯｸ: 設定した値を書き込むことができませんでした。");
const std::string kBad = ToUtf8(u"設定値ﾁｪｯｸ: 不適当なデータがあります。色が反転した値を変更して下さい。");
const std::string kNotProgramming =
    ToUtf8(u"ﾀﾞｳﾝﾛｰﾄﾞ: ﾌﾟﾛｸﾞﾗﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。ﾀﾞｳﾝﾛｰﾄﾞを中止します。");
const std::string kNotMonitor = ToUtf8(u"ﾀﾞｳﾝﾛｰﾄﾞ: ﾓﾆﾀﾓｰﾄﾞに変更できませんでした。");

// By commands.

TEST(TableByCommandsTest, AReadOutShowsTheFractionsAsPercentWithTwoDecimalsAndTheSize) {
  CommandBench bench;
  bench.FillLine(7);
  EXPECT_EQ(bench.ReadOut(), Strings{kRead});
  EXPECT_EQ(bench.Cell(1, 1), "0.00");
  EXPECT_EQ(bench.Cell(1, 2), "10.00");
  EXPECT_EQ(bench.Cell(2, 1), "25.00");
  EXPECT_EQ(bench.Cell(3, 2), "90.00");
  EXPECT_EQ(bench.Cell(4, 1), "") << "a point from before";
  EXPECT_EQ(bench.Page().GroupItem.At(2, 3), u"30.00");
  EXPECT_EQ(bench.buttons.txtSize.Text(), u"3");
  EXPECT_EQ(bench.Page().GroupItem.TableSize, u"3");
  EXPECT_EQ(bench.Data(), (Strings{"D0", "DP", "DT0", "DT1", "DT2", "D0"}));
  EXPECT_TRUE(bench.Page().DataChanged);
  bench.ExpectAtRest();
}

TEST(TableByCommandsTest, AWriteSendsTheSizeEachPointAsFractionsWithFourDecimalsAndTheEnd) {
  CommandBench bench;
  bench.Fill({{u"-15", u"0"}, {u"12.345", u"33.333 %"}, {u"115", u"100"}});
  bench.Size(u" 3 ");
  bench.Page().DataChanged = false;
  bench.line.Answer("DP3", "D  P 3");
  bench.line.Answer("DT0 -0.1500 0.0000", "D  OK");
  bench.line.Answer("DT1 0.1235 0.3333", "D  OK");
  bench.line.Answer("DT2 1.1500 1.0000", "D  OK");
  EXPECT_EQ(bench.WriteIn(), Strings{kWritten});
  EXPECT_EQ(bench.Data(), (Strings{"D1", "DP3", "DT0 -0.1500 0.0000", "DT1 0.1235 0.3333",
                                   "DT2 1.1500 1.0000", "DF", "D0"}));
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.ExpectAtRest();
}

TEST(TableByCommandsTest, ATableOfSize0InTxtSizeSendsPAndFAndNoPoint) {
  CommandBench bench;
  bench.FillLine(2);
  bench.Size(u"0");
  bench.line.Answer("DP0", "D  P 0");
  EXPECT_EQ(bench.WriteIn(), Strings{kWritten});
  EXPECT_EQ(bench.Data(), (Strings{"D1", "DP0", "DF", "D0"}));
}

TEST(TableByCommandsTest, ABlankSizeSendsNoPointAndReturnsToMonitorMode) {
  for (const String blank : {u"", u"  "}) {
    CommandBench bench;
    bench.FillLine(2);
    bench.Size(blank);
    EXPECT_EQ(bench.WriteIn(), Strings{kBlank});
    EXPECT_EQ(bench.Data(), (Strings{"D1", "D0"}));
    bench.ExpectAtRest();
  }
}

TEST(TableByCommandsTest, ASizeIsAWholeNumberFrom0To100NotAboveTheFilledPoints) {
  for (const String size : {u"4", u"101", u"-1", u"2.0", u"2x", u"1e0", u"99999999999"}) {
    CommandBench bench;
    bench.FillLine(3);
    bench.Size(size);
    EXPECT_EQ(bench.WriteIn(), Strings{kBad}) << ToUtf8(size);
    EXPECT_EQ(bench.buttons.txtSize.ShownLook(), Look::Bad) << ToUtf8(size);
    EXPECT_EQ(bench.Data(), (Strings{"D1", "D0"})) << ToUtf8(size);
    bench.Size(u"0");
    bench.line.Answer("DP0", "D  P 0");
    bench.WriteIn();
    EXPECT_EQ(bench.buttons.txtSize.ShownLook(), Look::Normal) << "corrected after " << ToUtf8(size);
  }
}

TEST(TableByCommandsTest, ABadTableIsNotSentEvenWhereItsBadPointIsBeyondTheSize) {
  CommandBench bench;
  bench.Fill({{u"0", u"0"}, {u"50", u"50"}, {u"40", u"60"}});
  bench.Size(u"2");
  EXPECT_EQ(bench.WriteIn(), Strings{kBad});
  EXPECT_EQ(bench.linearizer.LnrFlexGrid.At(3, 1).look, Look::Bad);
  EXPECT_EQ(bench.Data(), (Strings{"D1", "D0"}));
  bench.ExpectAtRest();
}

TEST(TableByCommandsTest, ASizeAbove100InAReadOutIsAnErrorOfTheTable) {
  CommandBench bench(101);
  EXPECT_EQ(bench.ReadOut(), Strings{kFailed});
  EXPECT_EQ(bench.Data(), (Strings{"D0", "DP", "D0"}));
  bench.ExpectAtRest();
}

TEST(TableByCommandsTest, ASizeThatIsNoNumberIsAnErrorOfTheTable) {
  for (const char* const answer : {"D 3", "D P x", "D P -3", "D P 3.5", "D", "D   invalid data"}) {
    CommandBench bench;
    bench.Size(u"2");
    bench.line.Answer("DP", answer);
    EXPECT_EQ(bench.ReadOut(), Strings{kFailed}) << answer;
    EXPECT_EQ(bench.buttons.txtSize.Text(), u"2") << answer;
    EXPECT_EQ(bench.Cell(1, 1), "") << answer;
  }
}

TEST(TableByCommandsTest, APointThatIsNotGivenEndsTheReadOutWithThePointsUpToThere) {
  for (const char* const answer :
       {"", "D 0.5", "D x 0.5", "D 0.5 y", "D   invalid data", "D    not usable"}) {
    CommandBench bench;
    bench.line.Answer("DT1", answer[0] == 0 ? kSilence : ScriptedLine::OneChunk(answer));
    EXPECT_EQ(bench.ReadOut(), Strings{kFailed}) << answer;
    EXPECT_EQ(bench.Cell(1, 2), "10.00");
    EXPECT_EQ(bench.Cell(2, 1), "");
    EXPECT_EQ(bench.Data().back(), "D0");
    bench.ExpectAtRest();
  }
}

TEST(TableByCommandsTest, AnEmptyAnswerOfAWriteEndsItThereWithItsBox) {
  for (const char* const command : {"DP2", "DT0 0.0000 0.0000", "DT1 0.0100 0.0100", "DF"}) {
    CommandBench bench;
    bench.FillLine(2);
    bench.Size(u"2");
    bench.line.Answer("DP2", "D  P 2");
    bench.line.Answer("DT0 0.0000 0.0000", "D  OK");
    bench.line.Answer("DT1 0.0100 0.0100", "D  OK");
    bench.line.Answer(command, kSilence);
    EXPECT_EQ(bench.WriteIn(), Strings{kFailed}) << command;
    const Strings data = bench.Data();
    EXPECT_EQ(data.back(), "D0") << command;
    EXPECT_EQ(std::count(data.begin(), data.end(), command), 4) << command;
    EXPECT_EQ(data[data.size() - 2], command) << "sent behind it";
    bench.ExpectAtRest();
  }
}

TEST(TableByCommandsTest, AWriteThatTheDeviceDoesNotTakeEndsThereWithItsBox) {
  for (const char* const command : {"DP2", "DT0 0.0000 0.0000", "DF"}) {
    for (const char* const answer : {"D    invalid data", "D      not usable"}) {
      CommandBench bench;
      bench.FillLine(2);
      bench.Size(u"2");
      bench.line.Answer("DP2", "D  P 2");
      bench.line.Answer("DT0 0.0000 0.0000", "D  OK");
      bench.line.Answer("DT1 0.0100 0.0100", "D  OK");
      bench.line.Answer(command, answer);
      EXPECT_EQ(bench.WriteIn(), Strings{kFailed}) << command;
      EXPECT_EQ(bench.Data()[bench.Data().size() - 2], command) << "sent behind it";
      bench.ExpectAtRest();
    }
  }
}

TEST(TableByCommandsTest, AModeThatIsNotTakenEndsBeforeTheTableAndMonitorModeIsSentAllTheSame) {
  CommandBench bench;
  bench.FillLine(2);
  bench.Size(u"2");
  bench.line.Answer("D1", kSilence);
  EXPECT_EQ(bench.WriteIn(), Strings{kNotProgramming});
  EXPECT_EQ(bench.Data(), (Strings{"D1", "D1", "D1", "D1", "D0"}));
  bench.line.Answer("D0", kSilence);
  EXPECT_EQ(bench.ReadOut(), (Strings{kNotMonitor, kNotMonitor}));
  EXPECT_EQ(bench.Cell(2, 1), "1") << "nothing was cleared";
  bench.ExpectAtRest();
}

TEST(TableByCommandsTest, TheBarShows5AndThenTheShareBehindEveryFifthPointAndThen100) {
  CommandBench bench(12);
  for (int point = 3; point < 12; ++point) {
    bench.line.Answer("DT" + std::to_string(point), "D 0.5 0.5");
  }
  bench.ReadOut();
  const auto share = [](float points) { return 5 + 95 * points / 12; };
  EXPECT_EQ(bench.bar, (std::vector<float>{5, share(5), share(10), 100, 0}));
}

TEST(TableByCommandsTest, TheFrameIsLockedAndACloseRequestIsHeldUntilItsEnd) {
  for (const bool write : {false, true}) {
    CommandBench bench;
    bench.FillLine(2);
    bench.Size(u"0");
    bench.line.Answer("DP0", "D  P 0");
    bool looked = false;
    bench.dialogs.OnBox([&](const Box&) {
      looked = true;
      EXPECT_TRUE(bench.app.program.Shared().CommBusy);
      EXPECT_FALSE(bench.Page().cmdUpload.Enabled());
      EXPECT_FALSE(bench.buttons.cmdReadOutTable.Enabled());
      EXPECT_FALSE(bench.buttons.cmdWriteInTable.Enabled());
      EXPECT_FALSE(bench.linearizer.cmd_csvFileOpen.Enabled());
      EXPECT_FALSE(bench.linearizer.cmd_csvFileSave.Enabled());
      EXPECT_FALSE(bench.buttons.txtSize.Enabled());
      EXPECT_TRUE(bench.Page().OnUnload());
      EXPECT_TRUE(bench.Page().flaMsg_CannotEnd.Visible());
    });
    bench.Click(write ? bench.buttons.cmdWriteInTable : bench.buttons.cmdReadOutTable);
    EXPECT_TRUE(looked);
    EXPECT_EQ(bench.Data().back(), "D0");
    EXPECT_TRUE(bench.status.has_value()) << "the program ends behind it";
  }
}

TEST(TableByCommandsTest, NothingIsDoneWhileAnOperationRunsOrTheSwitchStandsAtNone) {
  CommandBench bench;
  bench.app.program.Shared().CommBusy = true;
  bench.Do([&] { bench.buttons.ReadOut(); });
  bench.Do([&] { bench.buttons.WriteIn(); });
  EXPECT_TRUE(bench.line.Commands().empty());
  bench.app.program.Shared().CommBusy = false;
  bench.linearizer.Opt_Lnr.Mark(0);
  const std::string off = ToUtf8(u"ﾘﾆｱﾗｲｻﾞ: リニアライズ機能スイッチが無になっています。");
  EXPECT_EQ(bench.ReadOut(), Strings{off});
  EXPECT_EQ(bench.WriteIn(), Strings{off});
  EXPECT_TRUE(bench.line.Commands().empty());
}

// The size.

TEST(TableSizeTest, TypingASizeIsAnEditAndShowingOneIsNone) {
  CommandBench bench;
  bench.Page().GroupItem.TableSize = u"7";
  bench.Do([&] { bench.Page().BuildPage(); });
  EXPECT_EQ(bench.buttons.txtSize.Text(), u"7");
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.Type(bench.buttons.txtSize, u"8");
  EXPECT_EQ(bench.Page().GroupItem.TableSize, u"8");
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST(TableSizeTest, ANewSetHasNone) {
  CommandBench bench;
  bench.Page().GroupItem.TableSize = u"7";
  bench.Do([&] { bench.Page().BuildPage(); });
  bench.New();
  EXPECT_EQ(bench.buttons.txtSize.Text(), u"");
}

TEST(TableSizeTest, ItsSectionHasItsKeyLineAlwaysAndItsRecordOnlyWhenFilled) {
  CommandBench bench;
  EXPECT_EQ(bench.buttons.CfgSection(), u"$TableSize\r\n");
  bench.Page().GroupItem.TableSize = u"16";
  EXPECT_EQ(bench.buttons.CfgSection(), u"$TableSize\r\n\"5\",\"0\",\"16\"\r\n");
}

TEST(TableSizeTest, AFileBringsItBackAndAFileWithoutOneBringsNone) {
  CommandBench bench;
  bench.Type(bench.buttons.txtSize, u"16");
  bench.Save(kFile);
  bench.Type(bench.buttons.txtSize, u"3");
  bench.Page().DataChanged = false;
  bench.Open(kFile);
  EXPECT_EQ(bench.buttons.txtSize.Text(), u"16");
  EXPECT_FALSE(bench.Page().DataChanged);
  String text = bench.TextOf(kFile);
  const String record = u"\"5\",\"0\",\"16\"\r\n";
  text.erase(text.find(record), record.size());
  bench.files.Put(kFile, bench.code_page.Encode(text).value());
  bench.Open(kFile);
  EXPECT_EQ(bench.buttons.txtSize.Text(), u"");
}

TEST(TableSizeTest, OtherRecordsOfTheSectionAreIgnored) {
  CommandBench bench;
  bench.Type(bench.buttons.txtSize, u"16");
  bench.Save(kFile);
  String text = bench.TextOf(kFile);
  const String record = u"\"5\",\"0\",\"16\"\r\n";
  text.replace(text.find(record), record.size(),
               u"\"4\",\"0\",\"1\"\r\n\"5\",\"1\",\"2\"\r\n\"5\",\"0\",\"9\"\r\n\"6\",\"0\",\"3\"\r\n");
  bench.files.Put(kFile, bench.code_page.Encode(text).value());
  bench.Page().DataChanged = false;
  bench.TakeBoxes();
  bench.Open(kFile);
  EXPECT_TRUE(bench.TakeBoxes().empty());
  EXPECT_EQ(bench.buttons.txtSize.Text(), u"9");
}

TEST(TableSizeTest, ARecordWithMoreFieldsIsTold) {
  CommandBench bench;
  bench.Type(bench.buttons.txtSize, u"16");
  bench.Save(kFile);
  String text = bench.TextOf(kFile);
  const String record = u"\"5\",\"0\",\"16\"\r\n";
  text.replace(text.find(record), record.size(), u"\"5\",\"0\",\"9,5\"\r\n");
  bench.files.Put(kFile, bench.code_page.Encode(text).value());
  bench.Page().DataChanged = false;
  bench.TakeBoxes();
  bench.Open(kFile);
  EXPECT_EQ(bench.TakeBoxes(), std::vector<std::string>{Shown(BoxKey::CfgDataFormat)});
  EXPECT_EQ(bench.buttons.txtSize.Text(), u"9");
}

TEST(TableSizeTest, ATableFileWithAHeadLineTellsItAndOneWithoutLeavesIt) {
  CommandBench bench;
  bench.PutText(u"/korva/data/table.csv", u"Size, 2 \n0,0\n100,100\n");
  bench.dialogs.QueueFile(u"/korva/data/table.csv");
  bench.Click(bench.linearizer.cmd_csvFileOpen);
  EXPECT_EQ(bench.buttons.txtSize.Text(), u"2");
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.PutText(u"/korva/data/table.csv", u"0,0\n50,50\n100,100\n");
  bench.dialogs.QueueFile(u"/korva/data/table.csv");
  bench.Click(bench.linearizer.cmd_csvFileOpen);
  EXPECT_EQ(bench.buttons.txtSize.Text(), u"2");
  EXPECT_EQ(bench.Cell(3, 1), "100");
}

// By items.

TEST(TableByItemsTest, AReadOutReadsEveryItemAndDoesNotChangeTheMode) {
  ItemBench bench;
  bench.line.Answer("I62", "DX(02):");
  bench.line.Answer("I63", "CNG");
  bench.line.Answer("I64", "CNU");
  bench.line.Answer("I65", "DY(03):  12.345");
  bench.line.Answer("I66", "DX(04): abc");
  EXPECT_EQ(bench.ReadOut(), Strings{kRead});
  EXPECT_EQ(bench.Cell(1, 1), "50.00");
  EXPECT_EQ(bench.Cell(2, 1), "") << "a reply of six characters";
  EXPECT_EQ(bench.Cell(2, 2), "") << "refused";
  EXPECT_EQ(bench.Cell(3, 1), "") << "of no use";
  EXPECT_EQ(bench.Cell(3, 2), "12.35");
  EXPECT_EQ(bench.Cell(4, 1), "abc") << "the check will mark it";
  EXPECT_EQ(bench.Cell(16, 2), "50.00");
  EXPECT_EQ(bench.line.Commands().size(), 2U * 32);
  EXPECT_TRUE(bench.Data().empty());
  EXPECT_TRUE(bench.Page().DataChanged);
  bench.ExpectAtRest();
}

TEST(TableByItemsTest, NoAnswerAfterTheRetriesIsAFailure) {
  ItemBench bench;
  bench.line.Answer("I63", kSilence);
  EXPECT_EQ(bench.ReadOut(), Strings{kNotRead});
  EXPECT_EQ(bench.Cell(2, 1), "50.00");
  EXPECT_EQ(bench.Cell(2, 2), "");
  EXPECT_EQ(bench.line.Commands().size(), 2U * 3 + 2U * 4);
  bench.ExpectAtRest();
}

TEST(TableByItemsTest, AWriteSendsEveryCellUpToTheFirstEmptyX) {
  ItemBench bench;
  bench.Fill({{u"10", u"50"}, {u"20.5 %", u"-15"}});
  bench.line.Answer("D10", "DX(01):   10.00");
  bench.line.Answer("D50", "DY(01):   50.01");
  bench.line.Answer("D20.5", "DX(02):   20.49");
  bench.line.Answer("D-15", "DY(02):  -15.00");
  EXPECT_EQ(bench.WriteIn(), Strings{kWritten});
  EXPECT_EQ(bench.Data(), (Strings{"D1", "D10", "D50", "D20.5", "D-15", "D0"}));
  bench.ExpectAtRest();
}

TEST(TableByItemsTest, AValueThatComesBackAsAnotherEndsTheWrite) {
  ItemBench bench;
  bench.Fill({{u"10", u"50"}, {u"20", u"60"}});
  bench.line.Answer("D10", "DX(01):   10.00");
  bench.line.Answer("D50", "DY(01):   50.02");
  EXPECT_EQ(bench.WriteIn(), Strings{kNotWritten});
  EXPECT_EQ(bench.Data(), (Strings{"D1", "D10", "D50", "D0"}));
  bench.ExpectAtRest();
}

TEST(TableByItemsTest, ABlankCellThatIsNeededHasItsOwnBoxAndABadValueThatOfBadValues) {
  ItemBench bench;
  bench.Fill({{u"10", u"50"}, {u"20", u""}});
  EXPECT_EQ(bench.WriteIn(), Strings{kBlank});
  bench.Fill({{u"10", u"50"}, {u"20", u"115.01"}});
  EXPECT_EQ(bench.WriteIn(), Strings{kBad});
  EXPECT_EQ(bench.Data(), (Strings{"D1", "D0", "D1", "D0"}));
}

TEST(TableByItemsTest, ThereIsNoSizeAndNoSection) {
  ItemBench bench;
  EXPECT_EQ(bench.Page().FindControl("txtSize"), nullptr);
  EXPECT_EQ(bench.buttons.CfgSection(), u"");
  LineReader& lines = bench.app.program.Lines();
  EXPECT_EQ(bench.buttons.ReadCfgSection(u"$TableSize", lines, 2), SectionRead::NotMine);
}

TEST(TableByItemsTest, ACloseRequestInAReadOutEndsTheProgramAtTheNextPause) {
  ItemBench bench;
  bench.line.Answer("I70", kSilence);
  bench.loop.StartTimer(Milliseconds(2000), [&] { bench.Page().OnUnload(); });
  bench.Click(bench.buttons.cmdReadOutTable);
  EXPECT_TRUE(bench.status.has_value());
  EXPECT_LT(bench.line.Commands().size(), 2U * 32);
}

// Upload and download.

TEST(TableWithButtonsTest, AnUploadLeavesTheTableAsItIsAndAsksNothing) {
  ItemBench bench;
  bench.Fill({{u"10", u"50"}, {u"20", u"60"}});
  bench.Do([&] {
    bench.linearizer.UploadBegins();
    bench.Page().GroupItem.ClearItems();
    bench.linearizer.Upload();
  });
  EXPECT_TRUE(bench.line.Commands().empty());
  EXPECT_TRUE(bench.TakeBoxes().empty());
  EXPECT_EQ(bench.Page().Item(60), u"10");
  EXPECT_EQ(bench.Page().Item(63), u"60");
  EXPECT_EQ(bench.Cell(2, 2), "60");
}

TEST(TableWithButtonsTest, ADownloadDoesNotMoveTheTable) {
  ItemBench bench;
  bench.Fill({{u"10", u"50"}, {u"20", u"60"}});
  bool good = false;
  bench.Do([&] { good = bench.linearizer.Download(); });
  EXPECT_TRUE(good);
  EXPECT_TRUE(bench.line.Commands().empty());
  EXPECT_TRUE(bench.TakeBoxes().empty());
}

}  // namespace
}  // namespace korva::test
