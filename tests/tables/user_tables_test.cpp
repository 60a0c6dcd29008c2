// The user's tables on a page: which one is in use, its grid and editor, its fields and its check.

#include "tables/user_tables.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "user_tables_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// Texts of rows that rise from 0 by 0.5.
std::vector<String> Rise(int rows) {
  std::vector<String> texts;
  texts.reserve(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    texts.push_back(Ascii(std::to_string(row / 2) + (row % 2 == 0 ? ".0" : ".5")));
  }
  return texts;
}

std::vector<std::string> TabTexts(const UserTablesBench& bench) {
  const int tab = bench.page->TabWith(TextKey::Linearizer);
  return {ToUtf8(bench.page->Tabs.TabCaption(tab)), bench.page->Tabs.TabEnabled(tab) ? "open" : "closed"};
}

std::string HeadOf(const Grid& grid) {
  std::string head;
  for (int column = 0; column < grid.Columns(); ++column) {
    head += (column > 0 ? "|" : "") + ToUtf8(grid.At(0, column).text);
  }
  return head;
}

std::string GridText(const Grid& grid) {
  return HeadOf(grid) + " " + ToUtf8(grid.At(1, 0).text) + " to " + ToUtf8(grid.At(grid.Rows() - 1, 0).text) +
         (grid.Visible() ? " shown" : "");
}

TEST(UserTables, EachPageHasItsThreeGridsWithTheirHeadsAndRows) {
  const UserTablesBench univ;
  const UserTables& tables = univ.page->tables;
  EXPECT_EQ(GridText(tables.TCFlexGrid), "  k|  X(k)       mV 00 to 1000");
  EXPECT_EQ(GridText(tables.RTDFlexGrid), "  k|  X(k)       OHM 00 to 1000");
  EXPECT_EQ(GridText(tables.LnrFlexGrid), "  k|  X(k)        %|  Y(k)        % 00 to 100 shown");
  EXPECT_EQ(univ.page->FindControl("lblLnrLimits"), nullptr);

  const UserTablesBench nano(u"Nano", u"Z8WT2.def");
  EXPECT_EQ(GridText(nano.page->tables.TCFlexGrid), "  k|  Emf(k)     mV 00 to 299");
  EXPECT_EQ(GridText(nano.page->tables.RTDFlexGrid), "  k|  Rtd(k)     OHM 00 to 299");
  EXPECT_EQ(GridText(nano.page->tables.LnrFlexGrid), "  k|  X(k)        %|  Y(k)        % 00 to 100 shown");
}

TEST(UserTables, ANewPageShowsZeroInEachCellAndNothingInTheFields) {
  UserTablesBench bench;
  for (const UserTable table : {UserTable::Linearizer, UserTable::Thermocouple, UserTable::Resistance}) {
    const LnrTable& points = bench.page->tables.TableOf(table);
    EXPECT_EQ(points.Value(1, 1), u"0.00");
    EXPECT_EQ(points.Value(points.Points(), points.Columns() - 1), u"0.00");
    EXPECT_TRUE(points.IsFresh());
  }
  EXPECT_EQ(bench.FieldTexts(), "   ");
}

TEST(UserTables, ItsFieldsHaveTheirCaptionsAndTheUnitOfTheirTemperatures) {
  UserTablesBench bench;
  static_cast<Page&>(*bench.page).SetCaptions(Language::Japanese);
  const UserTableFields& fields = bench.page->tables.fields;
  EXPECT_EQ(fields.lblStep.Caption(), u"ﾃｰﾌﾞﾙﾋﾟｯﾁ");
  EXPECT_EQ(fields.lblBase.Caption(), u"ﾃｰﾌﾞﾙ最小温度");
  EXPECT_EQ(fields.lblSize.Caption(), u"ﾃｰﾌﾞﾙｻｲｽﾞ");
  EXPECT_EQ(fields.lblRange.Caption(), u"ﾚﾝｼﾞ");
  EXPECT_EQ(fields.lblStepUnit.Caption(), u"deg C");
  EXPECT_EQ(fields.lblBaseUnit.Caption(), u"deg C");
}

TEST(UserTables, TheInputTypeTellsWhichIsInUseAndCaptionsTheTab) {
  UserTablesBench bench;
  EXPECT_EQ(bench.page->tables.InUse(), UserTable::None);
  EXPECT_EQ(TabTexts(bench)[1], "closed");

  bench.PickType(u"User's TC");
  EXPECT_EQ(bench.page->tables.InUse(), UserTable::Thermocouple);
  EXPECT_EQ(TabTexts(bench), (Texts{"TC TBL", "open"}));
  EXPECT_TRUE(bench.page->tables.TCFlexGrid.Visible());
  EXPECT_FALSE(bench.page->tables.LnrFlexGrid.Visible());
  EXPECT_TRUE(bench.page->tables.fields.txtStep.Visible());
  EXPECT_FALSE(bench.page->tables.fields.cmbRange.Visible());

  bench.PickType(u"User's RTD");
  EXPECT_EQ(bench.page->tables.InUse(), UserTable::Resistance);
  EXPECT_EQ(TabTexts(bench), (Texts{"RTD TBL", "open"}));
  EXPECT_TRUE(bench.page->tables.RTDFlexGrid.Visible());
  EXPECT_TRUE(bench.page->tables.fields.cmbRange.Visible());

  bench.PickType(u"K(CA)");
  EXPECT_EQ(bench.page->tables.InUse(), UserTable::None);
  EXPECT_EQ(TabTexts(bench)[1], "closed");
  bench.SwitchOn();
  EXPECT_EQ(bench.page->tables.InUse(), UserTable::Linearizer);
  EXPECT_EQ(TabTexts(bench), (Texts{ToUtf8(CaptionText(TextKey::Linearizer)), "open"}));
  EXPECT_FALSE(bench.page->tables.fields.txtStep.Visible());
  EXPECT_TRUE(bench.page->tables.fields.txtSize.Visible());
}

TEST(UserTables, OnlyTheRowUsersTcOfTheThermocouplesSelectsItsGrid) {
  UserTablesBench bench;
  bench.Do([&] { bench.page->SetItem(10, u"User's TCx"); });
  EXPECT_EQ(bench.page->tables.InUse(), UserTable::None);
  bench.Do([&] { bench.page->SetItem(10, u"User's TC"); });
  EXPECT_EQ(bench.page->tables.InUse(), UserTable::Thermocouple);
}

TEST(UserTables, TheSwitchIsOnWithItsTextOrItsCode) {
  UserTablesBench bench;
  for (const auto& [cell, table] : std::vector<std::pair<String, UserTable>>{{u"ON", UserTable::Linearizer},
                                                                             {u"1", UserTable::Linearizer},
                                                                             {u"OFF", UserTable::None},
                                                                             {u"0", UserTable::None},
                                                                             {u"", UserTable::None}}) {
    bench.page->SetItem(25, cell);
    EXPECT_EQ(bench.page->tables.InUse(), table) << ToUtf8(cell);
  }
}

TEST(UserTables, ASensorsTableIsInUseWhateverTheHiddenSwitchHolds) {
  UserTablesBench bench;
  bench.SwitchOn();
  bench.PickType(u"User's TC");
  EXPECT_EQ(bench.page->Item(25), u"ON");
  EXPECT_EQ(bench.page->tables.InUse(), UserTable::Thermocouple);
}

TEST(UserTables, OfTwoOutputsTheTypesNumberCountsAndTheModel) {
  UserTablesBench thermocouple(u"Nano", u"Z8WT2.def");
  thermocouple.PickType(u"User's TC");
  EXPECT_EQ(thermocouple.page->Item(10), u"13 User's TC");
  EXPECT_EQ(thermocouple.page->tables.InUse(), UserTable::Thermocouple);
  thermocouple.PickType(u"User's RTD");
  EXPECT_EQ(thermocouple.page->tables.InUse(), UserTable::None);
  EXPECT_EQ(ToUtf8(thermocouple.page->tables.lblLnrLimits.Caption()), "-15.00% =< X(k),Y(k) =< 115.00%");

  UserTablesBench resistance(u"Nano", u"Z8WR2.def");
  resistance.PickType(u"User's RTD");
  EXPECT_EQ(resistance.page->tables.InUse(), UserTable::Resistance);
  EXPECT_EQ(ToUtf8(resistance.page->tables.lblLnrLimits.Caption()), "0 Ohm =< Rtd(k) =< 8000 Ohm");
  resistance.PickType(u"User's TC");
  EXPECT_EQ(resistance.page->tables.InUse(), UserTable::None);
}

TEST(UserTables, OneEditorServesAllGrids) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  UserTables& tables = bench.page->tables;
  bench.Do([&] { tables.TCFlexGrid.UserClicks(13, 1); });
  EXPECT_TRUE(tables.Editor().IsOpen());
  EXPECT_EQ(tables.Editor().txtLnrNewValue.Text(), u"0.00");
  bench.Do([&] {
    tables.Editor().txtLnrNewValue.UserTypes(u"7.9034");
    tables.Editor().cmdLnrChangeOK.Click();
  });
  EXPECT_EQ(bench.Cell(13), "7.9034");
  EXPECT_TRUE(bench.page->DataChanged);
  EXPECT_FALSE(tables.TableOf(UserTable::Thermocouple).IsFresh());

  // Another table: an open edit of the former is dropped.
  bench.Do([&] { tables.TCFlexGrid.UserClicks(14, 1); });
  bench.PickType(u"User's RTD");
  EXPECT_FALSE(tables.Editor().IsOpen());
  bench.Do([&] {
    tables.RTDFlexGrid.UserClicks(1, 1);
    tables.Editor().txtLnrNewValue.UserTypes(u"100");
    tables.Editor().cmdLnrChangeOK.Click();
  });
  EXPECT_EQ(bench.Cell(1), "100");
  EXPECT_EQ(tables.TableOf(UserTable::Thermocouple).Value(14, 1), u"0.00");
}

TEST(UserTables, AnEditIsRefusedWhileNoTableIsInUse) {
  UserTablesBench bench;
  bench.Do([&] { bench.page->tables.LnrFlexGrid.UserClicks(1, 1); });
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::LinearizerSwitchedOff)}));
  EXPECT_FALSE(bench.page->tables.Editor().IsOpen());
}

TEST(UserTables, TheRowsStandForTheTemperaturesOfBaseAndPitch) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"-100", u"10", u"");
  const auto scale = bench.page->tables.TCFlexGrid.ScaleOfRows();
  ASSERT_TRUE(scale.has_value());
  EXPECT_EQ(scale->first, -100);
  EXPECT_EQ(scale->step, 10);
  bench.Fields(u"-100", u"", u"");
  EXPECT_FALSE(bench.page->tables.TCFlexGrid.ScaleOfRows().has_value());
}

TEST(UserTables, TheCurveIsThatOfTheRowsThatGoToTheDevice) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  const Grid& grid = bench.page->tables.TCFlexGrid;
  EXPECT_EQ(grid.RowsInUse(), 1001);
  bench.Fields(u"0", u"10", u"12");
  EXPECT_EQ(grid.RowsInUse(), 12);
  bench.Fields(u"0", u"10", u"2000");
  EXPECT_EQ(grid.RowsInUse(), 1001);
  bench.Fields(u"0", u"10", u"some");
  EXPECT_EQ(grid.RowsInUse(), 1001);
}

// The check.

struct SizeCase {
  StringView word;
  StringView def_file;
  UserTable table;
  int rows;
  String size;
  bool good;
};

TEST(UserTableCheck, TxtSize1001OnZ2UnivConfigFailsTheCheck1000PassesOnZ8KvConfig301Fails) {
  for (const SizeCase& one :
       {SizeCase{u"LiteUniv", u"Model.def", UserTable::Thermocouple, 1001, u"1001", false},
        SizeCase{u"LiteUniv", u"Model.def", UserTable::Thermocouple, 1001, u"1000", true},
        SizeCase{u"LiteUniv", u"Model.def", UserTable::Resistance, 1001, u"1001", false},
        SizeCase{u"LiteUniv", u"Model.def", UserTable::Resistance, 1001, u"1", true},
        SizeCase{u"LiteUniv", u"Model.def", UserTable::Resistance, 1001, u"0", false},
        SizeCase{u"LiteUniv", u"Model.def", UserTable::Resistance, 1001, u"2.5", false},
        SizeCase{u"Nano", u"Z8WT2.def", UserTable::Thermocouple, 300, u"301", false},
        SizeCase{u"Nano", u"Z8WT2.def", UserTable::Thermocouple, 300, u"300", true}}) {
    UserTablesBench bench(one.word, String(one.def_file));
    bench.Use(one.table);
    bench.Fill(std::vector<String>(static_cast<std::size_t>(one.rows), u"5"));
    bench.Fields(u"0", u"10", one.size, u"150 ohm");
    bench.Do([&] { (void)bench.page->tables.Check(); });
    EXPECT_EQ(bench.Bad(), one.good ? Texts{} : Texts{"txtSize"})
        << ToUtf8(one.word) << " " << ToUtf8(one.size);
  }
}

TEST(UserTableCheck, TheLinearizerHas2To101PointsAndOnZ8KvConfig1To101) {
  const auto bad = [](StringView word, const String& def_file, const String& size, int points) {
    UserTablesBench bench(word, def_file);
    bench.Use(UserTable::Linearizer);
    std::vector<String> cells;
    for (int point = 0; point < points; ++point) {
      cells.insert(cells.end(), 2, Ascii(std::to_string(point)));
    }
    bench.Fill(cells);
    bench.Fields(u"", u"", size);
    bench.Do([&] { (void)bench.page->tables.Check(); });
    return bench.Bad();
  };
  EXPECT_EQ(bad(u"LiteUniv", u"Model.def", u"1", 5), (Texts{"txtSize"}));
  EXPECT_EQ(bad(u"LiteUniv", u"Model.def", u"2", 5), Texts{});
  EXPECT_EQ(bad(u"LiteUniv", u"Model.def", u"101", 101), Texts{});
  EXPECT_EQ(bad(u"LiteUniv", u"Model.def", u"102", 101), (Texts{"txtSize"}));
  EXPECT_EQ(bad(u"Nano", u"Z8WV2.def", u"1", 5), Texts{});
  EXPECT_EQ(bad(u"Nano", u"Z8WV2.def", u"0", 5), (Texts{"txtSize"}));
  EXPECT_EQ(bad(u"Nano", u"Z8WV2.def", u"102", 101), (Texts{"txtSize"}));
}

struct LimitCase {
  UserTable table;
  String value;
  bool good;
};

TEST(UserTableCheck, AValueOfExactlyMinus78Or78Or0Or8000Passes) {
  for (const LimitCase& one :
       {LimitCase{UserTable::Thermocouple, u"-78", true}, LimitCase{UserTable::Thermocouple, u"78", true},
        LimitCase{UserTable::Thermocouple, u"-78.0001", false},
        LimitCase{UserTable::Thermocouple, u"78.0001", false}, LimitCase{UserTable::Resistance, u"0", true},
        LimitCase{UserTable::Resistance, u"8000", true}, LimitCase{UserTable::Resistance, u"-0.0001", false},
        LimitCase{UserTable::Resistance, u"8000.1", false}, LimitCase{UserTable::Resistance, u"7,9", true},
        LimitCase{UserTable::Resistance, u"abc", false},
        LimitCase{UserTable::Thermocouple, u"7.9 mV", true}}) {
    UserTablesBench bench;
    bench.Use(one.table);
    bench.Fill({u"1", u"2", one.value});
    bench.Fields(u"0", u"10", u"3", u"150 ohm");
    bench.Do([&] { (void)bench.page->tables.Check(); });
    EXPECT_EQ(bench.Bad(), one.good ? Texts{} : Texts{"3/1"}) << ToUtf8(one.value);
  }
}

TEST(UserTableCheck, TheFirstTwoCellsMustNotBeEmptyWhateverTheSize) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fill({u"1"});
  bench.Fields(u"0", u"10", u"1");
  bench.Do([&] { (void)bench.page->tables.Check(); });
  EXPECT_EQ(bench.Bad(), (Texts{"2/1"}));
}

TEST(UserTableCheck, StopsAtTheFirstEmptyCellAndDoesNotCompareWithTheSize) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fill({u"1", u"2", u"99", u"", u"99"});
  bench.Fields(u"0", u"10", u"2");
  bench.Do([&] { (void)bench.page->tables.Check(); });
  EXPECT_EQ(bench.Bad(), (Texts{"3/1"}));
}

TEST(UserTableCheck, AnEmptyRowBelowTheSizeIsBad) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fill({u"1", u"2", u"", u"4", u""});
  bench.Fields(u"0", u"10", u"5");
  bench.Do([&] { (void)bench.page->tables.Check(); });
  EXPECT_EQ(bench.Bad(), (Texts{"3/1", "5/1"}));
}

TEST(UserTableCheck, TheLinearizerMustBeACurveToo) {
  UserTablesBench bench;
  bench.Use(UserTable::Linearizer);
  bench.Fields(u"", u"", u"3");
  bench.Fill({u"0", u"0", u"50", u"90", u"50", u"80"});
  bench.Do([&] { (void)bench.page->tables.Check(); });
  EXPECT_EQ(bench.Bad(), (Texts{"3/1"}));
  bench.Fill({u"-15", u"-15", u"50", u"90", u"115", u"115"});
  bench.Do([&] { (void)bench.page->tables.Check(); });
  EXPECT_EQ(bench.Bad(), Texts{});
  bench.Fill({u"0", u"0", u"50", u"90", u"100", u"100", u"", u"", u"110", u"1"});
  bench.Do([&] { (void)bench.page->tables.Check(); });
  EXPECT_EQ(bench.Bad(), (Texts{"5/1", "5/2"}));
}

TEST(UserTableCheck, ZerosBehindTheSizeOfATypedLinearizerAreNoPoints) {
  UserTablesBench bench;
  bench.Use(UserTable::Linearizer);
  bench.Do([&] {
    LnrTable& points = bench.Points();
    points.Store(2, 1, u"100");
    points.Store(2, 2, u"100");
  });
  bench.Fields(u"", u"", u"2");
  bench.Do([&] { (void)bench.page->tables.Check(); });
  EXPECT_EQ(bench.Bad(), Texts{});
  bench.Fields(u"", u"", u"3");
  bench.Do([&] { (void)bench.page->tables.Check(); });
  EXPECT_EQ(bench.Bad(), (Texts{"3/1"}));
}

TEST(UserTableCheck, OnZ8KvConfigPitchIs1To10AndBaseMinus274To10000InWholeNumbers) {
  const auto bad = [](StringView word, const String& base, const String& step) {
    UserTablesBench bench(word, u"Z8WT2.def");
    bench.Use(UserTable::Thermocouple);
    bench.Fill(Rise(4));
    bench.Fields(base, step, u"4");
    bench.Do([&] { (void)bench.page->tables.Check(); });
    return bench.Bad();
  };
  EXPECT_EQ(bad(u"Nano", u"-274", u"1"), Texts{});
  EXPECT_EQ(bad(u"Nano", u"10000", u"10"), Texts{});
  EXPECT_EQ(bad(u"Nano", u"-275", u"0"), (Texts{"txtStep", "txtBase"}));
  EXPECT_EQ(bad(u"Nano", u"10001", u"11"), (Texts{"txtStep", "txtBase"}));
  EXPECT_EQ(bad(u"Nano", u"0.5", u"2.5"), (Texts{"txtStep", "txtBase"}));
  EXPECT_EQ(bad(u"LiteUniv", u"-0.5", u"123456"), Texts{});
  EXPECT_EQ(bad(u"LiteUniv", u"cold", u"wide"), (Texts{"txtStep", "txtBase"}));
}

TEST(UserTableCheck, ABlankSizePitchOrBaseIsToldAsSuchAndARangeToo) {
  struct Blank {
    UserTable table;
    String base, step, size, range;
    Finding finding;
  };
  for (const Blank& one : {Blank{UserTable::Thermocouple, u"0", u"10", u" ", u"", Finding::Blank},
                           Blank{UserTable::Thermocouple, u"0", u"", u"4", u"", Finding::Blank},
                           Blank{UserTable::Thermocouple, u"", u"10", u"4", u"", Finding::Blank},
                           Blank{UserTable::Thermocouple, u"0", u"10", u"4", u"", Finding::Good},
                           Blank{UserTable::Resistance, u"0", u"10", u"4", u"", Finding::Blank},
                           Blank{UserTable::Resistance, u"0", u"10", u"4", u"80 ohm", Finding::Blank},
                           Blank{UserTable::Resistance, u"0", u"10", u"4", u"50 ohm", Finding::Good},
                           Blank{UserTable::Linearizer, u"", u"", u"", u"", Finding::Blank}}) {
    UserTablesBench bench;
    bench.Use(one.table);
    bench.Fill(Rise(4));
    bench.Fields(one.base, one.step, one.size, one.range);
    bench.Do([&] { EXPECT_EQ(bench.page->tables.Check(), one.finding); });
    EXPECT_EQ(bench.Bad(), Texts{});
  }
}

TEST(UserTableCheck, TheNextCheckTakesTheMarksAway) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fill({u"1", u"2", u"99"});
  bench.Fields(u"x", u"10", u"3");
  bench.Click(bench.page->cmdCheck);
  EXPECT_EQ(bench.Bad(), (Texts{"3/1", "txtBase"}));
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::ValueBad)}));
  bench.Fill({u"1", u"2", u"3"});
  bench.Fields(u"0", u"10", u"3");
  bench.Click(bench.page->cmdCheck);
  EXPECT_EQ(bench.Bad(), Texts{});
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::CheckDone)}));
  bench.Fields(u"0", u"", u"3");
  bench.Click(bench.page->cmdCheck);
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::FieldBlank)}));
}

TEST(UserTableCheck, ATableThatIsNotInUseIsNotChecked) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.PickType(u"K(CA)");
  bench.Click(bench.page->cmdCheck);
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::CheckDone)}));
}

}  // namespace
}  // namespace korva::test
