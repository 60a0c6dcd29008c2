// The user's tables in files: those of a table alone, and the section of a configuration.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "user_tables_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char16_t* kCfg = u"/korva/data/kept.cfg";

std::string CfgWith(const std::string& data, const std::string& table) {
  return "$DefFile\r\n\"Model.def\"\r\n$Data\r\n" + data + table +
         "$Memo\r\n\"0\",\"me\"\r\n\"1\",\"\"\r\n$End\r\n";
}

const std::string kTypeTc = "\"1\",\"10\",\"User's TC\"\r\n";

/// The section as it stands in a saved file.
std::string SectionOf(const std::string& file) {
  const std::size_t begin = file.find("$Table");
  return begin == std::string::npos ? "" : file.substr(begin, file.find("$Memo") - begin);
}

TEST(UserTableCsv, TakesTheHeadsAndOneValueALine) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.OpenCsv("Base, -100 \r\nStep, 10 \r\nSize, 3 \r\n1.5\r\n2.50\r\n3,9\r\n");
  EXPECT_EQ(bench.Cells(), (Texts{"1.5", "2.50", "3"}));
  EXPECT_EQ(bench.FieldTexts(), "-100 10 3 ");
  EXPECT_TRUE(bench.page->tables.TableUnsaved());
  EXPECT_FALSE(bench.page->DataChanged);
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
}

TEST(UserTableCsv, ComparesTheFirstThreeLettersOfAHeadInAnyOrder) {
  UserTablesBench bench;
  bench.Use(UserTable::Resistance);
  bench.OpenCsv("Ran,50 ohm\r\nSizes,2\r\n\"Stepping\", 5\r\n  Basis,7\r\n100\r\n101\r\n");
  EXPECT_EQ(bench.Cells(), (Texts{"100", "101"}));
  EXPECT_EQ(bench.FieldTexts(), "7 5 2 50 ohm");
}

TEST(UserTableCsv, TheRangeIsToldByItsTextItsCodeOrItsOhms) {
  for (const auto& [told, range] : std::vector<std::pair<std::string, std::string>>{
           {"300 ohm", "300 ohm"}, {"2", "300 ohm"}, {"300", "300 ohm"}, {"0", "8000 ohm"}, {"7", ""}}) {
    UserTablesBench bench;
    bench.Use(UserTable::Resistance);
    bench.OpenCsv("Range, " + told + " \r\n1\r\n");
    EXPECT_EQ(ToUtf8(bench.page->tables.fields.cmbRange.Text()), range) << told;
  }
}

TEST(UserTableCsv, WhereTablesHaveNoRangeAFilesRangeIsPassedOver) {
  UserTablesBench bench(u"Nano", u"Z8WT2.def");
  bench.Use(UserTable::Thermocouple);
  bench.OpenCsv("Base, -100 \r\nStep, 10 \r\nSize, 2 \r\nRange, 50 ohm \r\n1.5\r\n2.5\r\n");
  EXPECT_EQ(bench.FieldTexts(), "-100 10 2 ") << "no box shows a range";
  EXPECT_EQ(bench.Cells(), (Texts{"1.5", "2.5"})) << "the line is no point either";
  bench.Save(kCfg);
  EXPECT_EQ(bench.TextOf(kCfg).find("ohm"), std::string::npos);
}

TEST(UserTableCsv, AHeadThatTheTableInHandHasNotIsPassedOverAndHiddenFieldsKeepWhatTheyHold) {
  struct Heads {
    UserTable table;
    std::string fields;
  };
  for (const Heads& one :
       {Heads{UserTable::Thermocouple, "-100 10 2 "}, Heads{UserTable::Resistance, "-100 10 2 50 ohm"},
        Heads{UserTable::Linearizer, "  2 "}}) {
    UserTablesBench bench;
    bench.Use(one.table);
    bench.OpenCsv("Base, -100 \r\nStep, 10 \r\nSize, 2 \r\nRange, 50 ohm \r\n1,10\r\n2,20\r\n");
    EXPECT_EQ(bench.FieldTexts(), one.fields);
    EXPECT_EQ(bench.Cell(1), "1");
    EXPECT_EQ(bench.Cell(2), "2") << "the lines of heads are no points";
  }
}

TEST(UserTableCsv, ALinearizerHasTwoValuesALineAnd101Points) {
  UserTablesBench bench;
  bench.Use(UserTable::Linearizer);
  std::string file = "Size, 101 \r\n";
  for (int point = 0; point < 120; ++point) {
    file += std::to_string(point) + ".0," + std::to_string(point) + ".5\r\n";
  }
  bench.OpenCsv(file);
  EXPECT_EQ(bench.Cells().size(), 202U);
  EXPECT_EQ(bench.Cells().back(), "100.5");
  EXPECT_EQ(bench.FieldTexts(), "  101 ");
}

TEST(UserTableCsv, WhatTheFileDoesNotTellStaysAsItIs) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"1", u"2", u"3");
  bench.OpenCsv("5\r\n6\r\n\r\n7\r\n");
  EXPECT_EQ(bench.FieldTexts(), "1 2 3 ");
  EXPECT_EQ(bench.Cells(), (Texts{"5", "6"})) << "an empty line ends the table";
  bench.OpenCsv("");
  EXPECT_EQ(bench.Cells(), Texts{});
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
}

TEST(UserTableCsv, APageWithUserTablesOpensFilesAndOnlyThatOfTwoOutputsSavesThem) {
  EXPECT_EQ(UserTablesBench().page->FindControl("cmd_csvFileSave"), nullptr);
  EXPECT_NE(UserTablesBench(u"Nano", u"Z8WT2.def").page->FindControl("cmd_csvFileSave"), nullptr);
}

TEST(UserTableCsv, ATemperatureTableIsSavedBehindBaseStepAndSizeAndComesBack) {
  UserTablesBench bench(u"Nano", u"Z8WT2.def");
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"-50", u"5", u"2");
  bench.Fill({u"1.25", u"2.5", u"3"});
  bench.dialogs.QueueFile(u"/korva/data/table.csv");
  bench.Click(bench.page->tables.cmd_csvFileSave);
  const std::string saved = bench.TextOf(u"/korva/data/table.csv");
  EXPECT_EQ(saved, "Base, -50 \r\nStep, 5 \r\nSize, 2 \r\n1.25\r\n2.5\r\n3\r\n");
  bench.Fields(u"", u"", u"");
  bench.OpenCsv(saved);
  EXPECT_EQ(bench.FieldTexts(), "-50 5 2 ");
  EXPECT_EQ(bench.Cells(), (Texts{"1.25", "2.5", "3"}));
}

TEST(UserTableCsv, ALinearizerIsSavedBehindItsSize) {
  UserTablesBench bench(u"Nano", u"Z8WV2.def");
  bench.Use(UserTable::Linearizer);
  bench.Fill({u"0", u"1", u"50", u"60"});
  bench.dialogs.QueueFile(u"/korva/data/table.csv");
  bench.Click(bench.page->tables.cmd_csvFileSave);
  EXPECT_EQ(bench.TextOf(u"/korva/data/table.csv"), "Size, 2 \r\n0,1\r\n50,60\r\n");
}

// Configurations.

TEST(UserTableSection, HoldsTheFieldsAndTheCellsOfTheTableInUse) {
  UserTablesBench bench;
  bench.Use(UserTable::Resistance);
  bench.Fields(u"-20", u"5", u"2", u"150 ohm");
  bench.Fill({u"100", u"", u"102.5"});
  bench.Save(kCfg);
  EXPECT_EQ(SectionOf(bench.TextOf(kCfg)),
            "$Table\r\n\"5\",\"0\",\"-20\"\r\n\"5\",\"1\",\"5\"\r\n\"5\",\"2\",\"2\"\r\n"
            "\"5\",\"3\",\"150 ohm\"\r\n\"6\",\"0\",\"100\"\r\n\"6\",\"2\",\"102.5\"\r\n");
}

TEST(UserTableSection, StandsBetweenDataAndMemo) {
  UserTablesBench bench;
  bench.Save(kCfg);
  const std::string file = bench.TextOf(kCfg);
  EXPECT_LT(file.find("$Data"), file.find("$Table"));
  EXPECT_NE(file.find("$Table\r\n$Memo\r\n"), std::string::npos);
}

TEST(UserTableSection, CellKOfTheLinearizerLiesInRowKHalvedAndEachOtherColumn) {
  UserTablesBench bench;
  bench.Use(UserTable::Linearizer);
  bench.Fill({u"0", u"1", u"2", u"3"});
  bench.Save(kCfg);
  EXPECT_EQ(SectionOf(bench.TextOf(kCfg)),
            "$Table\r\n\"6\",\"0\",\"0\"\r\n\"6\",\"1\",\"1\"\r\n\"6\",\"2\",\"2\"\r\n\"6\",\"3\",\"3\"\r\n");
  bench.Open(kCfg);
  EXPECT_EQ(bench.Cells(), (Texts{"0", "1", "2", "3"}));
}

TEST(UserTableSection, ATableThatWasNeverReadOpenedOrEditedWritesNoCells) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"0", u"", u"");
  bench.Save(kCfg);
  EXPECT_EQ(SectionOf(bench.TextOf(kCfg)), "$Table\r\n\"5\",\"0\",\"0\"\r\n");
  bench.ReadOut();
  bench.Save(kCfg);
  EXPECT_NE(SectionOf(bench.TextOf(kCfg)).find("\"6\",\"10\",\"5.0000\""), std::string::npos);
}

TEST(UserTableSection, WithNoTableInUseItHasItsKeyLineAndTheFieldsThatAreNotEmpty) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fill({u"1", u"2"});
  bench.Fields(u"", u"3", u"4");
  bench.PickType(u"K(CA)");
  bench.Save(kCfg);
  EXPECT_EQ(SectionOf(bench.TextOf(kCfg)), "$Table\r\n\"5\",\"1\",\"3\"\r\n\"5\",\"2\",\"4\"\r\n");
}

TEST(UserTableSection, AWholeTableComesBackAndSavingTwiceGivesTheSameBytes) {
  for (const UserTable table : {UserTable::Thermocouple, UserTable::Resistance, UserTable::Linearizer}) {
    UserTablesBench bench;
    bench.Use(table);
    std::vector<String> cells;
    const int values = bench.Points().Points() * (bench.Points().Columns() - 1);
    cells.reserve(static_cast<std::size_t>(values));
    for (int place = 0; place < values; ++place) {
      cells.push_back(Ascii(std::to_string(place)) + u".25");
    }
    bench.Fill(cells);
    bench.Fields(u"-20", u"5", u"99", u"8000 ohm");
    bench.Save(kCfg);
    const std::string first = bench.TextOf(kCfg);
    const Texts held = bench.Cells();
    bench.Click(bench.page->cmdNew, {korva::Answer::No});
    bench.Open(kCfg);
    EXPECT_EQ(bench.Cells(), held);
    EXPECT_EQ(bench.page->tables.Shown(), table);
    EXPECT_EQ(bench.FieldTexts(), "-20 5 99 8000 ohm");
    EXPECT_FALSE(bench.page->DataChanged);
    bench.Save(u"/korva/data/again.cfg");
    EXPECT_EQ(bench.TextOf(u"/korva/data/again.cfg"), first);
  }
}

TEST(UserTableSection, AnOpenAndCmdNewResetGridsAndFieldsFirst) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fill({u"1", u"2", u"3"});
  bench.Fields(u"1", u"2", u"3");
  bench.PutText(kCfg, CfgWith(kTypeTc, ""));
  bench.page->DataChanged = false;
  bench.Open(kCfg);
  EXPECT_EQ(bench.FieldTexts(), "   ");
  EXPECT_EQ(bench.Cell(1), "0.00");
  EXPECT_TRUE(bench.Points().IsFresh());

  bench.PutText(kCfg, CfgWith(kTypeTc, "$Table\r\n\"5\",\"2\",\"9\"\r\n\"6\",\"1\",\"7\"\r\n"));
  bench.Open(kCfg);
  EXPECT_EQ(bench.FieldTexts(), "  9 ");
  EXPECT_EQ(bench.Cell(1) + "|" + bench.Cell(2) + "|" + bench.Cell(3), "|7|");
  bench.Click(bench.page->cmdNew);
  EXPECT_EQ(bench.FieldTexts(), "   ");
  EXPECT_TRUE(bench.page->tables.TableOf(UserTable::Thermocouple).IsFresh());
}

TEST(UserTableSection, OtherGroupsAndPlacesOutsideTheTableArePassedOver) {
  UserTablesBench bench;
  bench.PutText(kCfg, CfgWith(kTypeTc,
                              "$Table\r\n\"4\",\"0\",\"a\"\r\n\"5\",\"4\",\"b\"\r\n"
                              "\"5\",\"-1\",\"c\"\r\n\"6\",\"-1\",\"d\"\r\n\"6\",\"1001\",\"e\"\r\n"
                              "\"6\",\"2147483647\",\"f\"\r\n\"6\",\"1000\",\"8\"\r\n"));
  bench.Open(kCfg);
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
  EXPECT_EQ(bench.FieldTexts(), "   ");
  EXPECT_EQ(bench.Cells(), Texts{});
  EXPECT_EQ(bench.Cell(1001), "8");
}

TEST(UserTableSection, AFourthFieldIsToldAndTheLineBehindItToo) {
  UserTablesBench bench;
  bench.PutText(kCfg, CfgWith(kTypeTc, "$Table\r\n\"6\",\"0\",\"7,9034\"\r\n\"6\",\"1\",\"8\"\r\n"));
  bench.Open(kCfg);
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::CfgDataFormat), Shown(BoxKey::CfgFormat)}));
  EXPECT_EQ(bench.Cells(), (Texts{"7"}));
}

TEST(UserTableSection, ASaveTellsFromWhereOnACommaKeepsTheTableFromComingBack) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fill({u"1", u"7,9034", u"8"});
  bench.Save(kCfg);
  EXPECT_EQ(ToUtf8(bench.page->Notes.Told(Notice::NotKept)),
            "保存したﾌｧｲﾙを開いても、次の内容は元に戻りません: ﾃｰﾌﾞﾙ 行 2～");
  bench.Fill({u"1", u"7.9034", u"8"});
  bench.Save(kCfg);
  EXPECT_EQ(bench.page->Notes.Told(Notice::NotKept), u"");
  bench.Fields(u"0,5", u"1", u"3");
  bench.Save(kCfg);
  EXPECT_TRUE(bench.page->Notes.Told(Notice::NotKept).ends_with(u"ﾃｰﾌﾞﾙ 行 1～"));
}

TEST(UserTableSection, AFileWithoutAModelGivesItsTableToTheModelThatShows) {
  UserTablesBench bench;
  bench.PutText(kCfg, "$Data\r\n" + kTypeTc + "$Table\r\n\"6\",\"0\",\"4\"\r\n");
  bench.Open(kCfg);
  EXPECT_EQ(bench.page->tables.Shown(), UserTable::Thermocouple);
  EXPECT_EQ(bench.Cells(), (Texts{"4"}));
}

TEST(UserTableSection, ATableFromAFileIsUnsavedUntilTheSetIsSaved) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.OpenCsv("1\r\n2\r\n");
  EXPECT_TRUE(bench.page->tables.TableUnsaved());
  bench.Save(kCfg);
  EXPECT_FALSE(bench.page->tables.TableUnsaved());
}

TEST(UserTableSection, TheNoticeOfAnUnsavedTableNamesTheOneThatTheFileWasOpenedInto) {
  constexpr StringView sensor = u"ｾﾝｻのﾃｰﾌﾞﾙはcsvﾌｧｲﾙの値です（設定ファイルに未保存）";
  constexpr StringView linearizer = u"ﾘﾆｱﾗｲｻﾞのﾃｰﾌﾞﾙはcsvﾌｧｲﾙの値です（設定ファイルに未保存）";
  UserTablesBench bench;
  const Label& notice = bench.page->tables.lbl_LnrUnsaved;
  for (const auto& [table, text] :
       {std::pair(UserTable::Thermocouple, sensor), std::pair(UserTable::Linearizer, linearizer),
        std::pair(UserTable::Resistance, sensor)}) {
    bench.Use(table);
    bench.OpenCsv("1,2\r\n3,4\r\n");
    EXPECT_EQ(notice.Caption(), text);
  }
  bench.SwitchOn();
  EXPECT_TRUE(notice.Visible());
  EXPECT_EQ(notice.Caption(), sensor) << "the linearizer that shows now came from no file";

  static_cast<Page&>(*bench.page).SetCaptions(Language::English);
  bench.Use(UserTable::Thermocouple);
  bench.OpenCsv("1\r\n");
  EXPECT_EQ(notice.Caption(), u"The sensor table comes from a csv file and is not saved with the settings");
}

TEST(UserTableSection, OfTwoOutputsTheTypesNumberTellsTheTable) {
  UserTablesBench bench(u"Nano", u"Z8WT2.def");
  bench.Use(UserTable::Thermocouple);
  bench.Fill({u"1", u"2"});
  bench.Save(kCfg);
  bench.Click(bench.page->cmdNew);
  bench.Open(kCfg);
  EXPECT_EQ(bench.page->tables.Shown(), UserTable::Thermocouple);
  EXPECT_EQ(bench.Cells(), (Texts{"1", "2"}));
}

}  // namespace
}  // namespace korva::test
