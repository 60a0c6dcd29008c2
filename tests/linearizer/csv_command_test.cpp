// The button that opens a table's file, on the page of family First.

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <utility>

#include "core/text_utilities.h"
#include "linearizer/lnr_table.h"
#include "pages/kv_config/design.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using namespace std::string_literals;
using test::MemoryFiles;
using test::PageBench;

constexpr const char16_t* kFile = u"/korva/data/table.csv";
constexpr const char16_t* kSet = u"/korva/data/table.cfg";

/// A model with a linearizer, and how the user switches that on.
struct TableKind {
  String name;
  int points = kLnrShortPoints;
  std::function<void(PageBench&)> switch_on = [](PageBench&) {};
};

void PressTable(PageBench& bench) { bench.Press(test::Part<Linearizer>(bench.First()).Opt_Table, 1); }
void PressLnr(PageBench& bench) { bench.Press(test::Part<Linearizer>(bench.First()).Opt_Lnr, 1); }
void PickLinearizer(PageBench& bench) {
  KvConfig& page = bench.First();
  const int row = page.FindDataRow(u"10");
  bench.Pick(page.Combo[std::stoi(ToUtf8(page.DataCell(row, kComboIndex)))], u"FX: Linearizer");
}

struct CsvBench : PageBench {
  void Choose(const TableKind& model) {
    PageBench::Choose(model.name);
    model.switch_on(*this);
  }
  /// Chooses the file in the dialog of the button, which the user can reach.
  void OpenTable(const std::string& bytes) {
    files.Put(kFile, bytes);
    dialogs.QueueFile(kFile);
    Click(test::Part<Linearizer>(Page()).cmd_csvFileOpen);
  }
  void ClickCell(int row, int column) {
    Do([&] { test::Part<Linearizer>(Page()).LnrFlexGrid.UserClicks(row, column); });
  }
  std::string Cell(int row, int column) {
    return ToUtf8(test::Part<Linearizer>(Page()).LnrFlexGrid.At(row, column).text);
  }
};

/// The points k, k + 100.5 for k = 1 up to `points`, each on a line.
std::string Numbered(int points) {
  std::string bytes;
  for (int k = 1; k <= points; ++k) {
    bytes += std::to_string(k) + "," + std::to_string(k + 100) + ".5\r\n";
  }
  return bytes;
}

/// Everything that opening a table may change.
struct Seen {
  explicit Seen(KvConfig& page)
      : fields{test::Part<Linearizer>(page).Editor().txtLnrRow.Text(),
               test::Part<Linearizer>(page).Editor().txtLnrCol.Text(),
               test::Part<Linearizer>(page).Editor().txtLnrNewValue.Text()},
        editor_open(test::Part<Linearizer>(page).Editor().fraLnrChange.Visible()),
        top_row(test::Part<Linearizer>(page).LnrFlexGrid.TopRow()),
        changed(page.DataChanged),
        unsaved(test::Part<Linearizer>(page).lbl_LnrUnsaved.Visible()) {
    for (int row = 0; row < test::Part<Linearizer>(page).LnrFlexGrid.Rows(); ++row) {
      for (int column = 0; column < test::Part<Linearizer>(page).LnrFlexGrid.Columns(); ++column) {
        cells.push_back(test::Part<Linearizer>(page).LnrFlexGrid.At(row, column));
      }
    }
    for (int group = 0; group < page.GroupItem.Groups(); ++group) {
      for (int item = 0; item < ParameterSet::kItems; ++item) {
        items.push_back(page.GroupItem.At(group, item));
      }
    }
  }
  bool operator==(const Seen&) const = default;

  std::vector<Grid::Cell> cells;
  std::vector<String> items;
  std::vector<String> fields;
  bool editor_open;
  int top_row;
  bool changed;
  bool unsaved;
};

class OpenTableTest : public testing::TestWithParam<TableKind> {
 protected:
  OpenTableTest() { bench_.Choose(GetParam()); }
  KvConfig& Page() { return bench_.First(); }
  static int Points() { return GetParam().points; }
  /// A table with an edit of its third point open, the view scrolled down.
  void Prepare() {
    bench_.OpenTable(Numbered(Points()));
    bench_.ClickCell(3, 2);
    bench_.Type(test::Part<Linearizer>(Page()).Editor().txtLnrNewValue, u"77");
    test::Part<Linearizer>(Page()).LnrFlexGrid.SetTopRow(2);
  }
  String Item(int row, int column) {
    const PointPlace place = PointItem(Points(), row, column).value();
    return Page().GroupItem.At(place.group, place.item);
  }
  /// Presses the button; nothing but these boxes may come of it.
  void ExpectOnlyBoxes(const std::vector<std::string>& boxes) {
    const Seen before(Page());
    bench_.Click(test::Part<Linearizer>(Page()).cmd_csvFileOpen);
    EXPECT_EQ(bench_.TakeBoxes(), boxes);
    EXPECT_TRUE(Seen(Page()) == before);
    EXPECT_EQ(bench_.dialogs.Unused(), 0U);
    EXPECT_FALSE(bench_.status);
  }

  CsvBench bench_;
  const std::string title_ = "ﾘﾆｱﾗｲｻﾞ: ";
};

TEST_P(OpenTableTest, ACancelledDialogChangesNothing) {
  Prepare();
  bench_.dialogs.QueueFile(std::nullopt);
  ExpectOnlyBoxes({});
}

TEST_P(OpenTableTest, AnEmptyPathChangesNothing) {
  Prepare();
  bench_.dialogs.QueueFile(u"");
  ExpectOnlyBoxes({});
}

TEST_P(OpenTableTest, AMissingFileIsToldAndChangesNothing) {
  Prepare();
  bench_.dialogs.QueueFile(u"/korva/data/gone.csv");
  ExpectOnlyBoxes({title_ + "ﾌｧｲﾙが見つかりません"});
}

TEST_P(OpenTableTest, AFileThatCantBeReadIsToldWithTheSystemsReasonAndChangesNothing) {
  const std::array faults = {std::pair(MemoryFiles::Fault::NotPermitted, "ｱｸｾｽする権限がありません。"),
                             std::pair(MemoryFiles::Fault::FolderGone, "ﾌｧｲﾙまたはﾌｫﾙﾀﾞが見つかりません。"),
                             std::pair(MemoryFiles::Fault::BadDisk, "Input/output error")};
  for (const auto& [fault, reason] : faults) {
    bench_.files.FailReads(MemoryFiles::Fault::None);
    Prepare();
    bench_.files.FailReads(fault);
    bench_.dialogs.QueueFile(kFile);
    ExpectOnlyBoxes({title_ + "/korva/data/table.csv\n" + reason});
  }
}

TEST_P(OpenTableTest, AFileThatIsNoTextIsToldAndChangesNothing) {
  for (const std::string& bytes :
       {"0,0\r\n5\0000,60\r\n"s, "0,0\r\n50,\x81"s, "\x89PNG\r\n\x1A\n\0\0\0\r"s}) {
    Prepare();
    bench_.files.Put(kFile, bytes);
    bench_.dialogs.QueueFile(kFile);
    ExpectOnlyBoxes({title_ + "/korva/data/table.csv\nテキストファイルではありません。"});
  }
}

TEST_P(OpenTableTest, AFileReplacesTheWholeTable) {
  bench_.OpenTable(Numbered(Points()));
  EXPECT_EQ(Item(1, 1), u"1");
  EXPECT_EQ(Item(Points(), 2), Ascii(std::to_string(Points() + 100) + ".5"));
  EXPECT_EQ(bench_.Cell(Points(), 1), std::to_string(Points()));
  bench_.OpenTable("0,-5\r\nabc\r\n");
  for (int row = 1; row <= Points(); ++row) {
    for (int column = 1; column < kLnrColumns; ++column) {
      const std::string expected = row == 1                  ? (column == 1 ? "0" : "-5")
                                   : row == 2 && column == 1 ? "abc"
                                                             : "";
      EXPECT_EQ(ToUtf8(Item(row, column)), expected) << row << " " << column;
      EXPECT_EQ(bench_.Cell(row, column), expected) << row << " " << column;
    }
  }
  EXPECT_TRUE(bench_.TakeBoxes().empty());
}

TEST_P(OpenTableTest, AnEmptyFileEmptiesTheTableWithoutABox) {
  Prepare();
  bench_.OpenTable("");
  for (int row = 1; row <= Points(); ++row) {
    EXPECT_EQ(Item(row, 1) + Item(row, 2), u"");
    EXPECT_EQ(bench_.Cell(row, 1) + bench_.Cell(row, 2), "");
  }
  EXPECT_TRUE(bench_.TakeBoxes().empty());
}

TEST_P(OpenTableTest, PointsBeyondTheTableAreIgnored) {
  bench_.OpenTable(Numbered(Points() + 4));
  EXPECT_EQ(Item(Points(), 1), Ascii(std::to_string(Points())));
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.Rows(), Points() + 1);
  EXPECT_TRUE(bench_.TakeBoxes().empty());
}

TEST_P(OpenTableTest, AFileWithASizeInItsHeadLineHasThatAsItsFirstPoint) {
  bench_.OpenTable("Size, 5 \r\n0,0\r\n");
  EXPECT_EQ(bench_.Cell(1, 1) + "|" + bench_.Cell(1, 2), "Size|5");
  EXPECT_EQ(bench_.Cell(2, 1) + "|" + bench_.Cell(2, 2), "0|0");
}

TEST_P(OpenTableTest, AFileIsLetGoOfEvenWhenItWasNotReadToItsEnd) {
  constexpr int table_files = 4;
  for (const std::string& bytes : {Numbered(Points() + 4), "0,0\r\n5\0000,60\r\n0,0\r\n"s}) {
    bench_.OpenTable(bytes);
    EXPECT_TRUE(Page().ItsProgram().Lines().AtEnd(table_files));
  }
}

TEST_P(OpenTableTest, NoItemBesidesTheTablesIsTouched) {
  const Seen before(Page());
  bench_.OpenTable(Numbered(Points()));
  bench_.OpenTable("");
  EXPECT_EQ(Seen(Page()).items, before.items);
}

TEST_P(OpenTableTest, HeadsAndPointNumbersStayAndAllMarksGo) {
  bench_.OpenTable("0,0\r\n999,1\r\n");
  test::Part<Linearizer>(Page()).LnrFlexGrid.SetLook(2, 1, Look::Bad);
  bench_.OpenTable("0,0\r\n999,1\r\n");
  EXPECT_EQ(bench_.Cell(0, 0) + bench_.Cell(0, 1) + bench_.Cell(0, 2), "kX(k)Y(k)");
  for (int row = 0; row <= Points(); ++row) {
    for (int column = 0; column < kLnrColumns; ++column) {
      EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(row, column).look, Look::Normal)
          << row << " " << column;
    }
    const std::string digits = std::to_string(row);
    EXPECT_EQ(bench_.Cell(row, 0), row == 0 ? "k" : row < 10 ? "0" + digits : digits);
  }
}

TEST_P(OpenTableTest, ItIsNoEditThatAnythingAsksAbout) {
  for (const bool changed : {false, true}) {
    Page().DataChanged = changed;
    bench_.OpenTable(Numbered(3));
    EXPECT_EQ(Page().DataChanged, changed);
  }
}

TEST_P(OpenTableTest, TheFirstCellIsTheCurrentOneAndTheTopIsInView) {
  EXPECT_EQ(test::Part<Linearizer>(Page()).Editor().txtLnrRow.Text(), u"");
  test::Part<Linearizer>(Page()).LnrFlexGrid.SetTopRow(9);
  bench_.OpenTable(Numbered(3));
  EXPECT_EQ(test::Part<Linearizer>(Page()).Editor().txtLnrRow.Text(), u"1");
  EXPECT_EQ(test::Part<Linearizer>(Page()).Editor().txtLnrCol.Text(), u"1");
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.TopRow(), 1);
  EXPECT_FALSE(test::Part<Linearizer>(Page()).Editor().fraLnrChange.Visible());
}

TEST_P(OpenTableTest, AnOpenEditGoesOnWithTheFirstPointOfTheFile) {
  Prepare();
  bench_.OpenTable("40,41\r\n50,51\r\n60,61\r\n");
  EXPECT_TRUE(test::Part<Linearizer>(Page()).Editor().fraLnrChange.Visible());
  EXPECT_EQ(test::Part<Linearizer>(Page()).Editor().txtLnrNewValue.Text(), u"40");
  EXPECT_EQ(test::Part<Linearizer>(Page()).Editor().txtLnrRow.Text() +
                test::Part<Linearizer>(Page()).Editor().txtLnrCol.Text(),
            u"11");
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(1, 1).look, Look::Selected);
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(3, 2),
            (Grid::Cell{.text = u"61", .look = Look::Normal}));
  bench_.Type(test::Part<Linearizer>(Page()).Editor().txtLnrNewValue, u"44");
  bench_.Click(test::Part<Linearizer>(Page()).Editor().cmdLnrChangeOK);
  EXPECT_EQ(Item(1, 1), u"44");
  EXPECT_EQ(Item(3, 2), u"61");
  EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(1, 1).look, Look::Normal);
}

TEST_P(OpenTableTest, AnEditThatWasOpenOnTheHeadOrAPointNumberLeavesNoColourThere) {
  for (const auto& [row, column] : {std::pair(0, 1), std::pair(2, 0)}) {
    bench_.ClickCell(row, column);
    ASSERT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(row, column).look, Look::Selected);
    bench_.OpenTable(Numbered(3));
    EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(row, column).look, Look::Normal)
        << row << " " << column;
    EXPECT_EQ(test::Part<Linearizer>(Page()).LnrFlexGrid.At(1, 1),
              (Grid::Cell{.text = u"1", .look = Look::Selected}));
    bench_.Click(test::Part<Linearizer>(Page()).Editor().cmdLnrChangeCancel);
  }
}

TEST_P(OpenTableTest, TheDialogShowsTablesInTheFolderOfTheSet) {
  bench_.OpenTable(Numbered(1));
  EXPECT_EQ(bench_.dialogs.FileDialogs().back().dialog.start_folder, u"/korva/data");
  bench_.Save(u"/plant/furnace 2/table.cfg");
  bench_.OpenTable(Numbered(1));
  const FileDialog& dialog = bench_.dialogs.FileDialogs().back().dialog;
  EXPECT_FALSE(dialog.save);
  EXPECT_EQ(dialog.start_folder, u"/plant/furnace 2");
  EXPECT_EQ(dialog.filter, CsvFilter());
  EXPECT_EQ(dialog.filter_index, 1);
  EXPECT_EQ(Page().txtDirName.Text(), u"/plant/furnace 2");
  EXPECT_EQ(Page().txtFileTitle.Text(), u"table.cfg");
}

TEST_P(OpenTableTest, TheTableIsTheOneThatIsSavedAndOpenedWithTheSet) {
  bench_.OpenTable(Numbered(Points()));
  bench_.Save(kSet);
  const Seen saved(Page());
  bench_.OpenTable("");
  bench_.Open(kSet);
  EXPECT_EQ(Seen(Page()).cells, saved.cells);
  EXPECT_EQ(Item(Points(), 1), Ascii(std::to_string(Points())));
}

TEST_P(OpenTableTest, TheStatusAreaTellsOfATableThatIsNotSavedUntilTheSetIs) {
  const Label& notice = test::Part<Linearizer>(Page()).lbl_LnrUnsaved;
  EXPECT_FALSE(notice.Visible());
  bench_.OpenTable(Numbered(2));
  EXPECT_TRUE(notice.Visible());
  EXPECT_EQ(notice.Caption(), u"ﾘﾆｱﾗｲｻﾞのﾃｰﾌﾞﾙはcsvﾌｧｲﾙの値です（設定ファイルに未保存）");
  bench_.files.FailWrites(MemoryFiles::Fault::DiskFull);
  bench_.Save(kSet);
  EXPECT_TRUE(notice.Visible());
  bench_.files.FailWrites(MemoryFiles::Fault::None);
  bench_.Save(kSet);
  EXPECT_FALSE(notice.Visible());
}

TEST_P(OpenTableTest, TheNoticeIsGoneAfterOpeningASetAndAfterNew) {
  bench_.Save(kSet);
  bench_.OpenTable(Numbered(2));
  bench_.Open(kSet);
  EXPECT_FALSE(test::Part<Linearizer>(Page()).lbl_LnrUnsaved.Visible());
  GetParam().switch_on(bench_);
  bench_.OpenTable(Numbered(2));
  EXPECT_TRUE(test::Part<Linearizer>(Page()).lbl_LnrUnsaved.Visible());
  Page().DataChanged = false;
  bench_.New();
  EXPECT_FALSE(test::Part<Linearizer>(Page()).lbl_LnrUnsaved.Visible());
}

INSTANTIATE_TEST_SUITE_P(
    Models, OpenTableTest,
    testing::Values(TableKind{.name = u"QZ", .switch_on = PressTable}, TableKind{.name = u"QHW"},
                    TableKind{.name = u"QUO", .switch_on = PickLinearizer},
                    TableKind{.name = u"QHNY1", .points = kLnrLongPoints, .switch_on = PressLnr},
                    TableKind{.name = u"QHW1", .points = kLnrLongPoints, .switch_on = PressLnr},
                    TableKind{.name = u"QHNY2", .points = kLnrLongPoints, .switch_on = PressLnr}),
    [](const auto& instance) { return ToUtf8(instance.param.name); });

/// A user at a device whose linearizer is on.
struct ConnectedBench : CsvBench {
  explicit ConnectedBench(const String& model) {
    sim::Device& device = Connect(model);
    EXPECT_TRUE(device.Set("01", "11", "1") || device.Set("01", "10", "1"));
    PageBench::Choose(model);
  }
  bool Notice() { return test::Part<Linearizer>(Page()).lbl_LnrUnsaved.Visible(); }
  /// Uploads; a table of 100 points only if the user wants it.
  void Upload(std::optional<Answer> table) {
    Page().DataChanged = false;
    dialogs.QueueAnswer(Answer::Yes);
    dialogs.QueueAnswer(Answer::Ok);
    if (table) {
      dialogs.QueueAnswer(*table);
    }
    Click(Page().cmdUpload);
    EXPECT_EQ(dialogs.Unused(), 0U);
    EXPECT_EQ(TakeBoxes().back(), test::Shown(BoxKey::UploadDone));
  }
};

TEST(TableNoticeTest, IsGoneWhenTheTableOfTheDeviceTookThePlaceOfTheFiles) {
  for (const char16_t* model : {u"QZ", u"QHNY1", u"QHW1", u"QHNY2"}) {
    ConnectedBench bench(model);
    const bool long_table = String(model) != u"QZ";
    bench.Upload(long_table ? std::optional(Answer::Yes) : std::nullopt);
    EXPECT_FALSE(bench.Notice());
    bench.OpenTable(Numbered(3));
    EXPECT_TRUE(bench.Notice());
    bench.Upload(long_table ? std::optional(Answer::Yes) : std::nullopt);
    EXPECT_FALSE(bench.Notice()) << ToUtf8(model);
    EXPECT_NE(bench.Cell(1, 2), "101.5");
  }
}

TEST(TableNoticeTest, StaysWithTheTableWhenTheUserWantsNoneOfTheDevice) {
  for (const char16_t* model : {u"QHNY1", u"QHW1", u"QHNY2"}) {
    ConnectedBench bench(model);
    bench.Upload(Answer::No);
    EXPECT_FALSE(bench.Notice());
    bench.OpenTable(Numbered(3));
    bench.Upload(Answer::No);
    EXPECT_TRUE(bench.Notice()) << ToUtf8(model);
    EXPECT_EQ(bench.Cell(3, 2), "103.5");
  }
}

/// A press that was under way when the switch went to none, where the screen is too late to refuse it.
TEST(SwitchedOffTableTest, OpeningAFileIsRefusedWithAWarningAndNoDialog) {
  for (const TableKind& model : {TableKind{.name = u"QZ", .switch_on = PressTable},
                                 TableKind{.name = u"QHNY1", .points = 100, .switch_on = PressLnr},
                                 TableKind{.name = u"QHW1", .points = 100, .switch_on = PressLnr},
                                 TableKind{.name = u"QHNY2", .points = 100, .switch_on = PressLnr}}) {
    CsvBench bench;
    bench.Choose(model);
    bench.OpenTable(Numbered(3));
    KvConfig& page = bench.First();
    bench.Press(test::Part<Linearizer>(page).Opt_Table.Selected() == 1
                    ? test::Part<Linearizer>(page).Opt_Table
                    : test::Part<Linearizer>(page).Opt_Lnr,
                0);
    EXPECT_EQ(page.WhyRefused(test::Part<Linearizer>(page).cmd_csvFileOpen), "tab disabled");
    const Seen before(page);
    const std::size_t dialogs = bench.dialogs.FileDialogs().size();
    bench.Do([&] { test::Part<Linearizer>(page).cmd_csvFileOpen.Click(); });
    EXPECT_EQ(bench.TakeBoxes(),
              std::vector<std::string>{"ﾘﾆｱﾗｲｻﾞ: リニアライズ機能スイッチが無になっています。"});
    EXPECT_EQ(bench.dialogs.Boxes().back().box.icon, BoxIcon::Warning);
    EXPECT_EQ(bench.dialogs.FileDialogs().size(), dialogs);
    EXPECT_TRUE(Seen(page) == before);
  }
}

}  // namespace
}  // namespace korva
