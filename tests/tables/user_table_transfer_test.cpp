// The user's tables on their way to and from a simulated device: by their buttons, in uploads and downloads.

#include "tables/user_table_transfer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "user_tables_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// The page of a thermocouple with two outputs.
struct NanoBench : UserTablesBench {
  NanoBench() : UserTablesBench(u"Nano", u"Z8WT2.def") { Use(UserTable::Thermocouple); }
};

/// A table of `rows` that the device holds: row k is `rise` * k.
void PutInDevice(UserTablesBench& bench, std::string_view item, int rows, double rise) {
  sim::KeyedTable& table = bench.DeviceTable(item);
  table.SetField('P', "5");
  table.SetField('S', "-50");
  table.SetField('G', "3");
  table.SetSize(static_cast<std::size_t>(rows));
  for (std::size_t row = 0; row < static_cast<std::size_t>(rows); ++row) {
    for (std::size_t column = 0; column < table.Form().keys.size(); ++column) {
      table.SetValue(row, column, static_cast<double>(row) * rise + static_cast<double>(column));
    }
  }
}

sim::FaultRule Always(sim::Fault fault, const std::string& command = {}) {
  return {.fault = fault, .first = 1, .last = sim::FaultRule::kForGood, .command = command};
}

TEST(UserTableReadOut, ReadsPitchBaseSizeThenEachRowWithoutItsUnit) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  PutInDevice(bench, "60", 3, 7.9034);
  bench.ReadOut();
  EXPECT_EQ(bench.TakeData(), (Texts{"60 P", "60 S", "60 Z", "60 T0", "60 T1", "60 T2"}));
  EXPECT_EQ(bench.FieldTexts(), "-50 5 3 ");
  EXPECT_EQ(bench.Cells(), (Texts{"0.0000", "7.9034", "15.8068"}));
  EXPECT_EQ(bench.Cell(4), "");
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableRead)}));
  EXPECT_TRUE(bench.page->DataChanged);
  EXPECT_EQ(bench.device.Mode(), '0');
  bench.ExpectAtRest();
}

TEST(UserTableReadOut, OfAResistanceThermometerReadsTheRangeToo) {
  UserTablesBench bench;
  bench.Use(UserTable::Resistance);
  PutInDevice(bench, "61", 2, 40);
  bench.ReadOut();
  EXPECT_EQ(bench.TakeData(), (Texts{"61 P", "61 S", "61 Z", "61 G", "61 T0", "61 T1"}));
  EXPECT_EQ(bench.FieldTexts(), "-50 5 2 150 ohm");
  EXPECT_EQ(bench.Cells(), (Texts{"0.0000", "40.0000"}));
}

TEST(UserTableReadOut, EachRangeCodeHasItsTextAndAnUnknownOneLeavesItEmpty) {
  const std::vector<std::pair<std::string, String>> ranges = {{"0", u"8000 ohm"}, {"1", u"1000 ohm"},
                                                              {"2", u"300 ohm"},  {"3", u"150 ohm"},
                                                              {"4", u"50 ohm"},   {"5", u""}};
  for (const auto& [code, text] : ranges) {
    UserTablesBench bench;
    bench.Use(UserTable::Resistance);
    bench.DeviceTable("61").SetField('G', code);
    bench.ReadOut();
    EXPECT_EQ(bench.page->tables.fields.cmbRange.Text(), text) << code;
    EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableRead)}));
    bench.TakeData();
    bench.WriteIn();
    if (text.empty()) {
      EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableFieldBlank)}));
    } else {
      EXPECT_EQ(bench.TakeData().back(), "61 G" + code);
    }
  }
}

TEST(UserTableReadOut, OfALinearizerReadsItsSizeThenAllXThenAllY) {
  UserTablesBench bench;
  bench.Use(UserTable::Linearizer);
  PutInDevice(bench, "62", 2, 50);
  bench.ReadOut();
  EXPECT_EQ(bench.TakeData(), (Texts{"62 Z", "62 X0", "62 X1", "62 Y0", "62 Y1"}));
  EXPECT_EQ(bench.FieldTexts(), "  2 ");
  EXPECT_EQ(bench.Cells(), (Texts{"0.0000", "1.0000", "50.0000", "51.0000"}));
}

TEST(UserTableReadOut, ARowsAnswerLosesItsLastCharactersOnlyIfTheyAreTheUnit) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  PutInDevice(bench, "60", 3, 7.9034);
  bench.device.AddFault(Always(sim::Fault::NoUnit, "DT1"));
  bench.ReadOut();
  EXPECT_EQ(bench.Cells(), (Texts{"0.0000", "7.9034", "15.8068"}));
}

TEST(UserTableReadOut, ATableOfThreePointsPutsTheBarTo100AtOnceForTheFirstRow) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  PutInDevice(bench, "60", 3, 1);
  bench.ReadOut();
  EXPECT_EQ(bench.bar, (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 0}));
}

TEST(UserTableReadOut, TheBarOfASensorsTableReachesHalfBeforeTheEnd) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  PutInDevice(bench, "60", 50, 1);
  bench.ReadOut();
  EXPECT_EQ(bench.bar, (std::vector<int>{10, 20, 30, 40, 100, 0}));
  PutInDevice(bench, "60", 52, 1);  // a fifth of it is 10 rows
  bench.ReadOut();
  EXPECT_EQ(bench.bar, (std::vector<int>{10, 20, 30, 40, 50, 100, 0}));
}

TEST(UserTableReadOut, TheBarOfALinearizerGoesTo50WithXAndTo100WithY) {
  UserTablesBench bench;
  bench.Use(UserTable::Linearizer);
  PutInDevice(bench, "62", 51, 1);
  bench.ReadOut();
  EXPECT_EQ(bench.bar, (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 0}));
}

TEST(UserTableReadOut, AnyEmptyAnswerEndsItWithTheRowsReadSoFar) {
  for (const std::string command : {"DP", "DS", "DZ", "DT2"}) {
    UserTablesBench bench;
    bench.Use(UserTable::Thermocouple);
    PutInDevice(bench, "60", 4, 1);
    bench.device.AddFault(Always(sim::Fault::Refused, command));
    bench.ReadOut();
    EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableReadFailed)})) << command;
    EXPECT_EQ(bench.Cells(), command == "DT2" ? (Texts{"0.0000", "1.0000"}) : Texts{});
    EXPECT_EQ(bench.device.Mode(), '0');
    bench.ExpectAtRest();
  }
}

TEST(UserTableReadOut, ARefusedRowIsAFailure) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.device.AddFault(Always(sim::Fault::RefusedRow));
  bench.ReadOut();
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableReadFailed)}));
  bench.ExpectAtRest();
}

TEST(UserTableReadOut, ASizeThatNoTableHasIsAFailure) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.DeviceTable("60").SetSize(1001);
  bench.ReadOut();
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableReadFailed)}));
  EXPECT_EQ(bench.TakeData(), (Texts{"60 P", "60 S", "60 Z"}));
}

TEST(UserTableReadOut, OnZ8KvConfigBeginsWithRAndCAndShowsThreeDecimals) {
  NanoBench bench;
  PutInDevice(bench, "60", 2, 7.9034);
  bench.ReadOut();
  EXPECT_EQ(bench.TakeData(), (Texts{"60 R", "60 C", "60 P", "60 S", "60 Z", "60 T0", "60 T1"}));
  EXPECT_EQ(bench.Cells(), (Texts{"0.000", "7.903"}));
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableRead)}));
}

TEST(UserTableReadOut, OnZ8KvConfigAnotherAnswerThanOkToRAndCEndsItWithTheGridAsItWas) {
  for (const std::string command : {"DR", "DC"}) {
    NanoBench bench;
    bench.Fill({u"1", u"2"});
    bench.device.AddFault(Always(sim::Fault::WrongEcho, command));
    bench.ReadOut();
    EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableReadWriteFailed)})) << command;
    EXPECT_EQ(bench.Cells(), (Texts{"1", "2"}));
    bench.ExpectAtRest();
  }
}

TEST(UserTableReadOut, OnZ8KvConfigAnAnswerOf301OrMoreToPIsASizeThatZOverwrites) {
  const auto fields = [](const std::string& pitch) {
    NanoBench bench;
    bench.Fields(u"1", u"2", u"3");
    bench.DeviceTable("60").SetField('P', pitch);
    bench.DeviceTable("60").SetSize(4);
    Texts sizes = {"3"};
    bench.page->tables.fields.txtSize.Observe([&] {
      const std::string size = ToUtf8(bench.page->tables.fields.txtSize.Text());
      if (size != sizes.back()) {
        sizes.push_back(size);
      }
    });
    bench.ReadOut();
    sizes.push_back(bench.FieldTexts());
    return sizes;
  };
  EXPECT_EQ(fields("301"), (Texts{"3", "300", "4", "0 2 4 "}));
  EXPECT_EQ(fields("300"), (Texts{"3", "4", "0 300 4 "}));
}

// Writing.

TEST(UserTableWriteIn, WritesAllRowsThenPitchBaseAndLastRow) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"-100", u"10", u"3");
  bench.Fill({u"7.9034", u"8", u"-9.12345"});
  bench.WriteIn();
  EXPECT_EQ(bench.TakeData(),
            (Texts{"60 T0D7.9034", "60 T1D8.0000", "60 T2D-9.1235", "60 P10", "60 S-100", "60 Z2"}));
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableWritten)}));
  const sim::KeyedTable& table = bench.DeviceTable("60");
  EXPECT_EQ(table.Size(), 3U);
  EXPECT_EQ(table.Value(0) + " " + table.Value(2), "7.9034 -9.1235");
  EXPECT_EQ(table.Field('S') + " " + table.Field('P'), "-100 10");
  EXPECT_EQ(bench.device.Mode(), '0');
  bench.ExpectAtRest();
}

TEST(UserTableWriteIn, OfAResistanceThermometerWritesTheRangeLast) {
  UserTablesBench bench;
  bench.Use(UserTable::Resistance);
  bench.Fields(u"0", u"10", u"2", u"300 ohm");
  bench.Fill({u"100", u"138.5"});
  bench.WriteIn();
  EXPECT_EQ(bench.TakeData(),
            (Texts{"61 T0D100.0000", "61 T1D138.5000", "61 P10", "61 S0", "61 Z1", "61 G2"}));
}

TEST(UserTableWriteIn, OfALinearizerWritesAllXThenAllYThenTheLastRow) {
  UserTablesBench bench;
  bench.Use(UserTable::Linearizer);
  bench.Fields(u"", u"", u"2");
  bench.Fill({u"0", u"10", u"100", u"90"});
  bench.WriteIn();
  EXPECT_EQ(bench.TakeData(),
            (Texts{"62 X0D0.0000", "62 X1D100.0000", "62 Y0D10.0000", "62 Y1D90.0000", "62 Z1"}));
}

TEST(UserTableWriteIn, ACommaInAValueIsSentAsAPoint) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"0", u"10", u"2");
  bench.Fill({u"7,9034", u"8 mV"});
  bench.WriteIn();
  const Texts data = bench.TakeData();
  ASSERT_GE(data.size(), 2U);
  EXPECT_EQ(data[0], "60 T0D7.9034");
  EXPECT_EQ(data[1], "60 T1D8.0000");
}

TEST(UserTableWriteIn, OnZ8KvConfigWritesBetweenRCAndWRC) {
  NanoBench bench;
  bench.Fields(u"-50", u"5", u"2");
  bench.Fill({u"1", u"2"});
  bench.WriteIn();
  EXPECT_EQ(bench.TakeData(), (Texts{"60 R", "60 C", "60 T0D1.0000", "60 T1D2.0000", "60 P5", "60 S-50",
                                     "60 Z1", "60 W", "60 R", "60 C"}));
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableWritten)}));
  EXPECT_EQ(bench.DeviceTable("60").Size(), 2U);

  UserTablesBench linearizer(u"Nano", u"Z8WV2.def");
  linearizer.Use(UserTable::Linearizer);
  linearizer.Fields(u"", u"", u"2");
  linearizer.Fill({u"0", u"1", u"2", u"3"});
  linearizer.WriteIn();
  EXPECT_EQ(linearizer.TakeData(), (Texts{"62 R", "62 C", "62 X0D0.000", "62 X1D2.000", "62 Y0D1.000",
                                          "62 Y1D3.000", "62 Z1", "62 W", "62 R", "62 C"}));
}

TEST(UserTableWriteIn, OnZ8KvConfigAnotherAnswerThanOkIsToldAsAnErrorOfTheTable) {
  for (const std::string command : {"DR", "DC", "DW"}) {
    NanoBench bench;
    bench.Fields(u"-50", u"5", u"2");
    bench.Fill({u"1", u"2"});
    bench.device.AddFault(Always(sim::Fault::WrongEcho, command));
    bench.WriteIn();
    EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableReadWriteFailed)})) << command;
    EXPECT_EQ(bench.device.Mode(), '0');
    bench.ExpectAtRest();
  }
}

TEST(UserTableWriteIn, ABlankFieldEndsItBeforeAnythingIsSent) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"0", u"", u"2");
  bench.Fill({u"1", u"2"});
  bench.WriteIn();
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableFieldBlank)}));
  EXPECT_EQ(bench.TakeData(), Texts{});
  bench.ExpectAtRest();
}

TEST(UserTableWriteIn, ABadCellEndsItBeforeAnythingIsSent) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"0", u"10", u"3");
  bench.Fill({u"1", u"2"});
  bench.WriteIn();
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::ValueBad)}));
  EXPECT_EQ(bench.Bad(), (Texts{"3/1"}));
  EXPECT_EQ(bench.TakeData(), Texts{});
  bench.ExpectAtRest();
}

/// The modes that were asked for, and "T" where the exchanges of a table stand between them.
std::string ModesAndTable(const UserTablesBench& bench) {
  std::string story;
  std::string item;
  for (const CommandLine::Command& command : bench.line.Commands()) {
    if (command.text.starts_with('I')) {
      item = command.text.substr(1);
    } else if (command.text.starts_with('D') && item == "01") {
      story += command.text.substr(1);
    } else if (command.text.starts_with('D') && item.starts_with('6') && !story.ends_with('T')) {
      story += 'T';
    }
  }
  return story;
}

TEST(UserTableWriteIn, EntersProgrammingModeAheadOfTheTableAndLeavesItWhateverHappened) {
  const auto story = [](UserTablesBench& bench, const std::string& refused) {
    bench.Fields(u"0", u"5", u"2");
    bench.Fill({u"1", u"2"});
    if (!refused.empty()) {
      bench.device.AddFault(Always(sim::Fault::Refused, refused));
    }
    bench.line.ForgetCommands();
    bench.WriteIn();
    return ModesAndTable(bench);
  };
  for (const std::string refused : {"", "DT1D2.0000", "DZ1"}) {
    UserTablesBench bench;
    bench.Use(UserTable::Thermocouple);
    EXPECT_EQ(story(bench, refused), "1T0") << refused;
  }
  for (const std::string refused : {"", "DR", "DT0D1.0000", "DW"}) {
    NanoBench bench;
    EXPECT_EQ(story(bench, refused), "1T0") << refused;
  }
}

TEST(UserTableReadOut, GoesToMonitorModeBehindTheCommandsThatOpenTheTable) {
  UserTablesBench univ;
  univ.Use(UserTable::Thermocouple);
  univ.line.ForgetCommands();
  univ.ReadOut();
  EXPECT_EQ(ModesAndTable(univ), "0T");
  NanoBench nano;
  nano.line.ForgetCommands();
  nano.ReadOut();
  EXPECT_EQ(ModesAndTable(nano), "T0T");
}

TEST(UserTableWriteIn, AnEmptyAnswerAtAnyStepEndsItAndWhatWasSentStays) {
  for (const std::string command : {"DT1D2.0000", "DP10", "DS0", "DZ2"}) {
    UserTablesBench bench;
    bench.Use(UserTable::Thermocouple);
    bench.Fields(u"0", u"10", u"3");
    bench.Fill({u"1", u"2", u"3"});
    bench.device.AddFault(Always(sim::Fault::Refused, command));
    bench.WriteIn();
    EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableWriteFailed)})) << command;
    EXPECT_EQ(bench.DeviceTable("60").Value(0), "1.0000");
    EXPECT_EQ(bench.DeviceTable("60").Size(), 11U);
    EXPECT_EQ(bench.device.Mode(), '0') << command;
    bench.ExpectAtRest();
  }
}

TEST(UserTableWriteIn, ATableComesBackAsItWasWritten) {
  for (const UserTable table : {UserTable::Thermocouple, UserTable::Resistance, UserTable::Linearizer}) {
    UserTablesBench bench;
    bench.Use(table);
    bench.Fields(u"-20", u"2", u"3", u"50 ohm");
    bench.Fill({u"1.0000", u"2.0000", u"3.0000", u"4.0000", u"5.0000", u"6.0000"});
    const Texts cells = bench.Cells();
    const Texts first(cells.begin(), cells.begin() + (table == UserTable::Linearizer ? 6 : 3));
    bench.WriteIn();
    bench.Fields(u"", u"", u"");
    bench.ReadOut();
    EXPECT_EQ(bench.Cells(), first);
    EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::TableWritten), Shown(BoxKey::TableRead)}));
  }
}

TEST(UserTableButtons, AreRefusedWhileNoTableIsInUse) {
  UserTablesBench bench;
  bench.TakeData();
  bench.ReadOut();
  bench.WriteIn();
  EXPECT_EQ(bench.TakeBoxes(),
            (Texts{Shown(BoxKey::LinearizerSwitchedOff), Shown(BoxKey::LinearizerSwitchedOff)}));
  EXPECT_EQ(bench.line.Sent(), "");
}

TEST(UserTableButtons, AreBusyWhileATableTravelsAndAWriteIsADownload) {
  for (const bool writes : {false, true}) {
    UserTablesBench bench;
    bench.Use(UserTable::Thermocouple);
    bench.Fields(u"0", u"10", u"2");
    bench.Fill({u"1", u"2"});
    bench.line.ForgetCommands();
    int rows = 0;
    bench.loop.OnPump([&] {
      if (!bench.line.Commands().empty() && bench.line.Commands().back().text.starts_with("DT")) {
        ++rows;
        EXPECT_TRUE(bench.program.Shared().CommBusy);
        EXPECT_EQ(bench.program.Shared().DownloadBusy, writes);
      }
    });
    bench.Click(writes ? bench.page->tables.buttons.cmdWriteInTable
                       : bench.page->tables.buttons.cmdReadOutTable);
    EXPECT_GT(rows, 1);
  }
}

// In transfers.

TEST(UserTableUpload, ReadsAUsersCurveWithoutAQuestion) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  PutInDevice(bench, "60", 3, 2);
  bench.Upload();
  EXPECT_EQ(bench.Cells(), (Texts{"0.0000", "2.0000", "4.0000"}));
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::UploadDone));
  bench.ExpectAtRest();
}

TEST(UserTableUpload, AndADownloadTellNothingOfTheTableAloneWhenAllWentWell) {
  for (const UserTable table : {UserTable::Thermocouple, UserTable::Resistance, UserTable::Linearizer}) {
    UserTablesBench bench;
    bench.Use(table);
    const bool asks = table == UserTable::Linearizer;
    const std::vector<korva::Answer> answers(asks ? 1 : 0, korva::Answer::Yes);
    bench.Upload(answers);
    Texts boxes = bench.TakeBoxes();
    EXPECT_EQ(boxes.back(), Shown(BoxKey::UploadDone));
    EXPECT_EQ(std::count(boxes.begin(), boxes.end(), Shown(BoxKey::TableRead)), 0);
    EXPECT_EQ(std::count(boxes.begin(), boxes.end(), Shown(BoxKey::UploadLinearizer)), asks ? 1 : 0);
    bench.Download(answers);
    boxes = bench.TakeBoxes();
    EXPECT_EQ(boxes.back(), Shown(BoxKey::DownloadDone));
    EXPECT_EQ(std::count(boxes.begin(), boxes.end(), Shown(BoxKey::TableWritten)), 0);
    EXPECT_EQ(std::count(boxes.begin(), boxes.end(), Shown(BoxKey::DownloadLinearizer)), asks ? 1 : 0);
  }
}

TEST(UserTableUpload, ShowsTheTableOfTheDevicesInput) {
  UserTablesBench bench;
  bench.PickType(u"User's TC");
  ASSERT_TRUE(bench.device.Set("01", "10", "User's RTD"));
  PutInDevice(bench, "61", 2, 3);
  bench.Upload();
  EXPECT_EQ(bench.page->tables.Shown(), UserTable::Resistance);
  EXPECT_EQ(bench.FieldTexts(), "-50 5 2 150 ohm");
}

TEST(UserTableUpload, AsksForTheLinearizerAndLeavesItAsItStandsOnNo) {
  UserTablesBench bench;
  bench.Use(UserTable::Linearizer);
  bench.Fill({u"1", u"2", u"3", u"4"});
  PutInDevice(bench, "62", 2, 5);
  bench.Upload({korva::Answer::No});
  EXPECT_EQ(bench.Cells(), (Texts{"1", "2", "3", "4"}));
  const Texts boxes = bench.TakeBoxes();
  EXPECT_EQ(boxes[boxes.size() - 2], Shown(BoxKey::UploadLinearizer));
  EXPECT_EQ(boxes.back(), Shown(BoxKey::UploadDone));
  bench.Upload({korva::Answer::Yes});
  EXPECT_EQ(bench.Cells(), (Texts{"0.0000", "1.0000", "5.0000", "6.0000"}));
}

TEST(UserTableUpload, ReadsNoTableThatIsNotInUse) {
  UserTablesBench bench;
  ASSERT_TRUE(bench.device.Set("01", "10", "K(CA)"));
  bench.Upload();
  EXPECT_EQ(bench.TakeData(), Texts{});
}

TEST(UserTableUpload, ATableThatFailsShowsItsOwnBoxAndNothingIsComplete) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  ASSERT_TRUE(bench.device.Set("01", "02", "TAG-7"));
  bench.device.AddFault(Always(sim::Fault::RefusedRow));
  bench.Upload();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::TableReadFailed));
  EXPECT_EQ(bench.page->Item(2), u"TAG-7");
  EXPECT_EQ(bench.device.Mode(), '0');
  EXPECT_TRUE(bench.page->DataChanged);
  bench.ExpectAtRest();
}

TEST(UserTableDownload, WritesTheTableInUseBehindTheParameters) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"0", u"10", u"2");
  bench.Fill({u"1", u"2"});
  bench.Download();
  EXPECT_EQ(bench.TakeData(), (Texts{"60 T0D1.0000", "60 T1D2.0000", "60 P10", "60 S0", "60 Z1"}));
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  EXPECT_EQ(bench.device.Mode(), '0');
  bench.ExpectAtRest();
}

TEST(UserTableDownload, AsksForTheLinearizerAndSendsItOnYes) {
  UserTablesBench bench;
  bench.Use(UserTable::Linearizer);
  bench.Fields(u"", u"", u"2");
  bench.Fill({u"0", u"0", u"100", u"100"});
  bench.Download({korva::Answer::No});
  EXPECT_EQ(bench.TakeData(), Texts{});
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  bench.Download({korva::Answer::Yes});
  EXPECT_EQ(bench.TakeData().size(), 5U);
  EXPECT_EQ(bench.DeviceTable("62").Size(), 2U);
}

TEST(UserTableDownload, ABadTableIsToldBeforeAnythingIsWritten) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"0", u"10", u"3");
  bench.Fill({u"1", u"2"});
  ASSERT_TRUE(bench.device.Set("01", "02", "OLD"));
  bench.Do([&] { bench.page->Text[0].UserTypes(u"NEW"); });
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.TakeData(), Texts{});
  EXPECT_EQ(bench.device.Value("01", "02"), "OLD");
  bench.ExpectAtRest();
}

TEST(UserTableDownload, ATableThatFailsShowsItsOwnBoxAndTheParametersStay) {
  UserTablesBench bench;
  bench.Use(UserTable::Thermocouple);
  bench.Fields(u"0", u"10", u"2");
  bench.Fill({u"1", u"2"});
  bench.Do([&] { bench.page->Text[0].UserTypes(u"NEW"); });
  bench.device.AddFault(Always(sim::Fault::RefusedRow));
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::TableWriteFailed));
  EXPECT_EQ(bench.device.Value("01", "02"), "NEW");
  EXPECT_EQ(bench.device.Mode(), '0');
  bench.ExpectAtRest();
}

}  // namespace
}  // namespace korva::test
