// Opening and saving table files on the pages of the other families.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "core/program.h"
#include "core/text_utilities.h"
#include "linearizer/linearizer.h"
#include "pages/registry.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_dialogs.h"
#include "platform/virtual/virtual_event_loop.h"
#include "platform/virtual/virtual_port.h"
#include "support/memory_files.h"
#include "support/page_parts.h"
#include "support/tabs.h"

namespace korva {
namespace {

using test::MemoryFiles;

constexpr const char16_t* kTableFile = u"/korva/data/table.csv";
constexpr FieldForm kFields = {
    .arrays = {.lbl_item = 1, .label = 1, .text = 1, .frame = 1, .combo = 1, .lbl_unit = 1},
    .groups = 4,
    .lists = {},
    .unit_lists = {},
    .live_items = {},
    .text_items = {}};

/// A page of any family: its frame and linearizer, and nothing else.
class LnrPage final : public ParameterPage {
 public:
  LnrPage(Program& program, const FamilyRecord& record, DeviceLink& link)
      : ParameterPage(program,
                      {.family = record.family,
                       .tab_control = "Tabs",
                       .design = test::kBareDesign<TextKey::File, TextKey::Port, TextKey::Linearizer>},
                      {.device = record.device, .definition = record.definition, .fields = kFields}, link),
        linearizer(*this, record.table.Value(), record.csv) {}

  Linearizer linearizer;
};

/// The page of a family, with a table of as many points as the family's have at most.
struct LnrBench {
  explicit LnrBench(StringView word)
      : link(platform, program.Shared()), page(program, EntryOf(word).record, link) {
    page.linearizer.SetUp(kLnrShortPoints);
  }
  void Open(const std::string& bytes) {
    files.Put(kTableFile, bytes);
    dialogs.QueueFile(kTableFile);
    test::Part<Linearizer>(page).cmd_csvFileOpen.Click();
  }
  bool Save(const std::optional<String>& path) {
    dialogs.QueueFile(path);
    return page.linearizer.SaveCsv();
  }
  void Put(int row, const String& x, const String& y) {
    page.linearizer.Table().Store(row, 1, x);
    page.linearizer.Table().Store(row, 2, y);
  }
  [[nodiscard]] std::string Cell(int row, int column) const {
    return ToUtf8(test::Part<Linearizer>(page).LnrFlexGrid.At(row, column).text);
  }
  [[nodiscard]] std::vector<std::string> Boxes() const {
    std::vector<std::string> texts;
    for (const auto& shown : dialogs.Boxes()) {
      texts.push_back(ToUtf8(shown.box.title + u": " + shown.box.text));
    }
    return texts;
  }

  VirtualEventLoop loop;
  VirtualPort port{loop};
  VirtualDialogs dialogs;
  MemoryFiles files;
  NativeCodePage code_page;
  Platform platform{.loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page};
  Program program{platform, u"/korva", AllFamilies(),
                  [](Program&, const Family&) -> std::unique_ptr<Page> { return nullptr; }};
  DeviceLink link;
  LnrPage page;
};

class SaveTableTest : public testing::TestWithParam<StringView> {
 protected:
  SaveTableTest() {
    bench_.Put(1, u"0", u"0.5");
    bench_.Put(2, u"100.00", u"-15");
    bench_.Put(4, u"115", u"1");
  }
  [[nodiscard]] static std::string Expected() {
    return (GetParam() == u"LiteSecond" ? "Size, 2 \r\n" : "") + std::string("0,0.5\r\n100.00,-15\r\n");
  }

  LnrBench bench_{GetParam()};
};

TEST_P(SaveTableTest, WritesThePointsUpToTheFirstWithoutAnX) {
  EXPECT_TRUE(bench_.Save(kTableFile));
  EXPECT_EQ(bench_.files.Bytes(kTableFile), Expected());
  EXPECT_TRUE(bench_.Boxes().empty());
  EXPECT_EQ(bench_.files.Replacements(), 1);
}

TEST_P(SaveTableTest, TellsOfAnEditThatStandsOpenAndIsNotInTheFile) {
  LnrEditor& editor = test::Part<Linearizer>(bench_.page).Editor();
  editor.Select(2, 1);
  editor.txtLnrNewValue.UserTypes(u"55");
  EXPECT_TRUE(bench_.Save(kTableFile));
  EXPECT_EQ(bench_.files.Bytes(kTableFile), Expected());
  EXPECT_TRUE(bench_.page.Notes.Told(Notice::OpenEdit).ends_with(u"行 2 列 1「55」"));
}

TEST_P(SaveTableTest, OverwritesAFile) {
  bench_.files.Put(kTableFile, "an older and much longer table\r\nof several lines\r\nwith more in them\r\n");
  EXPECT_TRUE(bench_.Save(kTableFile));
  EXPECT_EQ(bench_.files.Bytes(kTableFile), Expected());
}

TEST_P(SaveTableTest, CancelAndAnEmptyPathWriteNothing) {
  EXPECT_FALSE(bench_.Save(std::nullopt));
  EXPECT_FALSE(bench_.Save(u""));
  EXPECT_EQ(bench_.files.Replacements(), 0);
  EXPECT_TRUE(bench_.Boxes().empty());
}

TEST_P(SaveTableTest, TheDialogIsTheOneThatAsksBeforeItOverwrites) {
  bench_.page.txtDirName.SetText(u"/plant");
  bench_.Save(std::nullopt);
  const FileDialog& dialog = bench_.dialogs.FileDialogs().back().dialog;
  EXPECT_TRUE(dialog.save);
  EXPECT_EQ(dialog.start_folder, u"/plant");
  EXPECT_EQ(dialog.filter, CsvFilter());
}

TEST_P(SaveTableTest, AFileThatCantBeWrittenIsToldWithTheSystemsReasonAndTheOldOneStaysWhole) {
  bench_.files.Put(kTableFile, "old");
  const std::array faults = {
      std::pair(MemoryFiles::Fault::DiskFull, "csvファイル保存: ﾃﾞｨｽｸの空き容量が足りません。"),
      std::pair(MemoryFiles::Fault::NotPermitted, "csvファイル保存: ｱｸｾｽする権限がありません。")};
  for (const auto& [fault, box] : faults) {
    bench_.files.FailWrites(fault);
    EXPECT_FALSE(bench_.Save(kTableFile));
    EXPECT_EQ(bench_.Boxes().back(), box);
    EXPECT_EQ(bench_.files.Bytes(kTableFile), "old");
  }
  EXPECT_EQ(bench_.Boxes().size(), 2U);
  EXPECT_EQ(bench_.Cell(2, 1), "100.00");
}

TEST_P(SaveTableTest, ACharacterThatFilesCantHoldIsToldAndTheOldFileStaysWhole) {
  bench_.files.Put(kTableFile, "old");
  bench_.Put(2, u"100.00", u"5 \u20AC");
  EXPECT_FALSE(bench_.Save(kTableFile));
  ASSERT_EQ(bench_.Boxes().size(), 1U);
  EXPECT_EQ(bench_.Boxes().front(),
            "csvファイル保存: 行 2、列 2の「5 "
            "\u20AC」にファイルの文字コードに無い文字があるので、保存できません。");
  EXPECT_EQ(bench_.files.Bytes(kTableFile), "old");
  EXPECT_EQ(bench_.files.Replacements(), 0);
  EXPECT_EQ(bench_.Cell(2, 2), "5 \u20AC");
}

TEST_P(SaveTableTest, ATextThatIsNotWrittenNeedsNoCodePage) {
  bench_.Put(5, u"\u20AC", u"");
  EXPECT_TRUE(bench_.Save(kTableFile));
  EXPECT_EQ(bench_.files.Bytes(kTableFile), Expected());
}

TEST_P(SaveTableTest, JapaneseTextIsWrittenInTheCodePage) {
  bench_.Put(1, u"ｱ", u"表");
  bench_.Put(2, u"", u"");
  EXPECT_TRUE(bench_.Save(kTableFile));
  EXPECT_TRUE(bench_.files.Bytes(kTableFile)->ends_with("\xB1,\x95\x5C\r\n"));
}

TEST_P(SaveTableTest, AFullTableHasAsManyLinesAsPointsAndComesBack) {
  const int points = test::Part<Linearizer>(bench_.page).LnrFlexGrid.Rows() - 1;
  EXPECT_EQ(points, GetParam() == u"LiteForth" || GetParam() == u"Third" ? 16 : 100);
  for (int row = 1; row <= points; ++row) {
    bench_.Put(row, Ascii(std::to_string(row)) + u".00", Ascii(std::to_string(2 * row)) + u".00");
  }
  ASSERT_TRUE(bench_.Save(kTableFile));
  const std::string bytes = bench_.files.Bytes(kTableFile).value();
  const auto lines = static_cast<int>(std::count(bytes.begin(), bytes.end(), '\n'));
  EXPECT_EQ(lines, GetParam() == u"LiteSecond" ? points + 1 : points);
  LnrBench other(GetParam());
  other.Open(bytes);
  for (int row = 1; row <= points; ++row) {
    EXPECT_EQ(other.Cell(row, 1), bench_.Cell(row, 1));
    EXPECT_EQ(other.Cell(row, 2), bench_.Cell(row, 2));
  }
}

INSTANTIATE_TEST_SUITE_P(Families, SaveTableTest,
                         testing::Values(u"Third", u"Lite", u"LiteSecond", u"LiteForth", u"LiteFifth"),
                         [](const auto& instance) { return ToUtf8(instance.param); });

class OpenOtherTableTest : public testing::TestWithParam<StringView> {
 protected:
  LnrBench bench_{GetParam()};
};

TEST_P(OpenOtherTableTest, AFileReplacesTheWholeTableInSetAndGrid) {
  LnrTable& table = bench_.page.linearizer.Table();
  for (int row = 1; row <= table.Points(); ++row) {
    bench_.Put(row, u"7", u"8");
  }
  bench_.Open("1,2\r\n3.00,4.00\r\n");
  EXPECT_EQ(bench_.Cell(1, 1) + bench_.Cell(1, 2) + bench_.Cell(2, 1) + bench_.Cell(2, 2), "123.004.00");
  for (int row = 1; row <= table.Points(); ++row) {
    EXPECT_EQ(ToUtf8(table.Value(row, 1)), bench_.Cell(row, 1));
    EXPECT_EQ(ToUtf8(table.Value(row, 2)), bench_.Cell(row, 2));
    EXPECT_TRUE(row <= 2 || (table.Value(row, 1) + table.Value(row, 2)).empty()) << row;
  }
  EXPECT_FALSE(bench_.page.DataChanged);
  EXPECT_TRUE(bench_.Boxes().empty());
}

TEST_P(OpenOtherTableTest, AnOpenEditIsDroppedFirstWhereTheFamilyDoesSo) {
  const bool drops = GetParam() == u"LiteForth" || GetParam() == u"LiteFifth";
  test::Part<Linearizer>(bench_.page).LnrFlexGrid.UserClicks(2, 2);
  test::Part<Linearizer>(bench_.page).Editor().txtLnrNewValue.UserTypes(u"77");
  bench_.dialogs.QueueFile(std::nullopt);
  test::Part<Linearizer>(bench_.page).cmd_csvFileOpen.Click();
  EXPECT_EQ(test::Part<Linearizer>(bench_.page).Editor().fraLnrChange.Visible(), !drops);
  EXPECT_EQ(test::Part<Linearizer>(bench_.page).Editor().txtLnrNewValue.Text(), drops ? u"" : u"77");
  EXPECT_EQ(test::Part<Linearizer>(bench_.page).LnrFlexGrid.At(2, 2).look,
            drops ? Look::Normal : Look::Selected);
  bench_.Open("1,2\r\n");
  EXPECT_EQ(test::Part<Linearizer>(bench_.page).Editor().fraLnrChange.Visible(), !drops);
  EXPECT_EQ(test::Part<Linearizer>(bench_.page).Editor().txtLnrRow.Text() +
                test::Part<Linearizer>(bench_.page).Editor().txtLnrCol.Text(),
            u"11");
  EXPECT_EQ(bench_.Cell(2, 2), "");
}

INSTANTIATE_TEST_SUITE_P(Families, OpenOtherTableTest,
                         testing::Values(u"First", u"Third", u"QXI", u"LiteThird", u"Lite", u"LiteSecond",
                                         u"LiteForth", u"LiteFifth"),
                         [](const auto& instance) { return ToUtf8(instance.param); });

}  // namespace
}  // namespace korva
