// The table's way in the upload and the download of each model of family First that has one.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "core/text_utilities.h"
#include "pages/kv_config/design.h"
#include "support/page_parts.h"
#include "support/tabs.h"
#include "table_bench.h"

namespace korva::test {
namespace {

using sim::Fault;

const Texts kMonitor = {"G01", "I01", "D0"};
const Texts kProgramming = {"G01", "I01", "D1"};

Texts Joined(std::initializer_list<Texts> parts) {
  Texts all;
  for (const Texts& part : parts) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

Texts Tail(const Texts& texts, std::size_t count) {
  return {texts.end() - static_cast<std::ptrdiff_t>(std::min(count, texts.size())), texts.end()};
}

/// What goes over the wire for the values from `first` to before `end`: reads, or writes of `values`.
Texts ReadsOf(const TableBench& bench) {
  Texts reads;
  for (int position = 0; position < bench.Count(); ++position) {
    reads = Joined({reads, bench.Selection(position)});
  }
  return reads;
}
Texts WritesOf(const TableBench& bench, const std::vector<String>& values, int end) {
  Texts writes;
  for (int position = 0; position < end; ++position) {
    const Texts selection = bench.Selection(position);
    for (const Texts& part :
         {selection, selection, Texts{"D" + ToUtf8(values[static_cast<std::size_t>(position)])}}) {
      writes.insert(writes.end(), part.begin(), part.end());
    }
  }
  return writes;
}

/// Values of the bar after each item of the table, and at the end; `low` to 100 once for each group.
std::vector<float> BarOf(const TableBench& bench, float low) {
  const int group = bench.Long() ? 100 : 32;
  std::vector<float> values;
  for (int position = 0; position < bench.Count(); ++position) {
    const float share = static_cast<float>(position % group + 1) / static_cast<float>(group);
    values.push_back(share * (100 - low) + low);
  }
  values.push_back(0);
  return values;
}

void ExpectAtRest(TableBench& bench) {
  const SharedState& shared = bench.app.program.Shared();
  EXPECT_FALSE(bench.status.has_value());
  EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy || bench.Page().UploadBusy);
  EXPECT_EQ(Part<Linearizer>(bench.Page()).LnrProgressBar.Value(), 0.0F);
  EXPECT_EQ(bench.Page().TransferBar.Value(), 0.0F);
  EXPECT_TRUE(bench.Page().cmdUpload.Enabled() && bench.Page().cmdDownload.Enabled());
  EXPECT_EQ(bench.Page().WhyRefused(Part<Linearizer>(bench.Page()).LnrFlexGrid), "");
  EXPECT_EQ(bench.device.Mode(), '0');
  EXPECT_EQ(bench.dialogs.Unused(), 0U);
}

struct TableTest : testing::TestWithParam<TableModel> {
  static bool Long() { return GetParam().points == 100; }
  static Texts UploadBoxes() {
    Texts boxes = {Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload)};
    if (Long()) {
      boxes.push_back(Shown(BoxKey::UploadLinearizer));
    }
    boxes.push_back(Shown(BoxKey::UploadDone));
    return boxes;
  }
  /// The boxes of a download up to the table, then `rest`.
  static Texts DownloadBoxes(const Texts& rest) {
    Texts boxes = {Shown(BoxKey::StartDownload)};
    if (Long()) {
      boxes.push_back(Shown(BoxKey::DownloadLinearizer));
    }
    return Joined({boxes, rest});
  }
};

INSTANTIATE_TEST_SUITE_P(Model, TableTest, testing::ValuesIn(TableModels()), [](const auto& one) {
  return ToUtf8(one.param.name) + (one.param.on.starts_with("Fx") ? "FirstVersion" : "");
});

TEST_P(TableTest, AnUploadPutsEveryValueIntoTheSetAndTheGrid) {
  TableBench bench(GetParam());
  const std::vector<String> values = bench.OwnTable();
  ASSERT_TRUE(bench.SetDeviceTable(values));
  Part<Linearizer>(bench.Page()).SetTableUnsaved(true);
  bench.while_box = [&](const std::string& box) {
    if (box == Shown(BoxKey::UploadDone)) {
      EXPECT_EQ(bench.GridTable(), values) << "the grid shows the table when the box says so";
    }
  };
  bench.UploadAll();
  EXPECT_EQ(bench.TakeBoxes(), UploadBoxes());
  EXPECT_EQ(bench.SetTable(), values);
  EXPECT_EQ(bench.GridTable(), values);
  const Texts reads = ReadsOf(bench);
  EXPECT_EQ(Tail(bench.commands, reads.size()), reads);
  EXPECT_EQ(bench.bar, BarOf(bench, 0));
  EXPECT_TRUE(bench.Page().DataChanged);
  EXPECT_FALSE(Part<Linearizer>(bench.Page()).TableUnsaved());
  ExpectAtRest(bench);
}

TEST_P(TableTest, TheTableCannotBeTouchedWhileItIsUploadedOrDownloaded) {
  TableBench bench(GetParam());
  bench.PutTable(bench.OwnTable());
  ParameterPage& page = bench.Page();
  bool edited = true;
  bench.loop.OnPump([&] {
    edited = Part<Linearizer>(page).Editor().fraLnrChange.Visible();
    for (const Control* control : {static_cast<Control*>(&Part<Linearizer>(page).LnrFlexGrid),
                                   static_cast<Control*>(&Part<Linearizer>(page).cmd_csvFileOpen),
                                   static_cast<Control*>(&Part<Linearizer>(page).Editor().cmdLnrChangeOK),
                                   static_cast<Control*>(&Part<Linearizer>(page).Editor().txtLnrNewValue)}) {
      EXPECT_NE(page.WhyRefused(*control), "") << control->FullName();
    }
  });
  Part<Linearizer>(page).LnrFlexGrid.UserClicks(1, 1);  // an edit is open
  bench.DownloadAll();
  EXPECT_EQ(page.WhyRefused(Part<Linearizer>(page).Editor().cmdLnrChangeOK), "");
  EXPECT_TRUE(edited) << "a download leaves the edit open";
  bench.UploadAll();
  EXPECT_FALSE(edited) << "the cell under edit went with the table that an upload replaces";
  ExpectAtRest(bench);
}

TEST_P(TableTest, TheTabOfASwitchedTableCanBeLookedAtWhileItIsUploaded) {
  if (GetParam().switch_item.empty() || GetParam().name == u"QUO") {
    return;  // no switch on the page
  }
  TableBench bench(GetParam());
  bool open = false;
  bench.loop.OnPump([&] { open = TabOpen(bench.Page(), TextKey::Linearizer); });
  bench.UploadAll();
  EXPECT_TRUE(open) << "at the last wait, which is the table's";
}

TEST_P(TableTest, ADownloadWritesEachValueByReadWriteAndCompareAfterTheParameters) {
  TableBench bench(GetParam());
  const std::vector<String> values = bench.OwnTable();
  bench.PutTable(values);
  bench.Type(u"02", u"PUMP 1");
  bench.Page().DataChanged = false;
  bench.DownloadAll();
  EXPECT_EQ(bench.TakeBoxes(), DownloadBoxes({Shown(BoxKey::DownloadDone)}));
  // The parameters' leave of programming mode, then all of the table's.
  const Texts table = Joined({kMonitor, kProgramming, WritesOf(bench, values, bench.Count()), kMonitor});
  EXPECT_EQ(Tail(bench.commands, table.size()), table);
  EXPECT_EQ(Trimmed(FromUtf8(bench.device.Value("01", "02"))), u"PUMP 1");
  EXPECT_EQ(bench.DeviceTable(), values);
  EXPECT_EQ(bench.SetTable(), values);
  std::vector<float> bar = BarOf(bench, 10);
  if (Long()) {
    bar.insert(bar.begin(), 5);
  }
  EXPECT_EQ(bench.bar, bar);
  EXPECT_FLOAT_EQ(bar.at(Long() ? 1 : 0), Long() ? 10.9F : 12.8125F);
  EXPECT_FALSE(bench.Page().DataChanged);
  ExpectAtRest(bench);
}

TEST_P(TableTest, ADeviceThatRoundsTakesTheTableAndBlankCellsGoAsZero) {
  TableBench bench(GetParam());
  std::vector<String> values = bench.OwnTable();
  values.front() = u"12.345";
  values.at(1) = u"";
  values.at(2) = u"-12.344";
  values.back() = u"";
  bench.PutTable(values);
  bench.DownloadAll();
  EXPECT_EQ(bench.TakeBoxes(), DownloadBoxes({Shown(BoxKey::DownloadDone)}));
  const std::vector<String> held = bench.DeviceTable();
  EXPECT_TRUE(held.front() == u"12.34" || held.front() == u"12.35") << ToUtf8(held.front());
  EXPECT_EQ(held.at(1), u"0.00");
  EXPECT_EQ(held.at(2), u"-12.34");
  EXPECT_EQ(held.back(), u"0.00");
  EXPECT_EQ(bench.SetTable(), values);
  ExpectAtRest(bench);
}

TEST_P(TableTest, WithItsSwitchOffNothingIsAskedAndNothingOfTheTableGoesOverTheWire) {
  if (GetParam().switch_item.empty()) {
    return;  // in use always
  }
  TableBench bench(GetParam(), false);
  bench.UploadAll();
  EXPECT_EQ(bench.TakeBoxes(),
            (Texts{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload), Shown(BoxKey::UploadDone)}));
  EXPECT_FALSE(TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_EQ(Part<Linearizer>(bench.Page()).LnrFlexGrid.Rows(), GetParam().points + 1);
  bench.Check();
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::CheckDone)}) << "a blank table is no fault";
  bench.PutTable({u"1000"});
  const std::vector<String> held = bench.DeviceTable();
  bench.DownloadAll();
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::StartDownload), Shown(BoxKey::DownloadDone)}));
  EXPECT_FALSE(TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_EQ(bench.DeviceTable(), held);
  EXPECT_TRUE(bench.bar.empty());
  for (const std::string& command : bench.commands) {
    EXPECT_TRUE(command != "G02" && command != "G03" &&
                (command[0] != 'I' || command < "I60" || command > "I91"))
        << command;
  }
}

TEST_P(TableTest, AModeThatIsNotTakenShowsItsOwnBoxOnlyAndLeavesTheTable) {
  TableBench bench(GetParam());
  const std::vector<String> values = bench.OwnTable();
  bench.PutTable(values);
  const std::vector<String> held = bench.DeviceTable();
  bool programmed = false;
  bool struck = false;
  bench.loop.OnPump([&] {
    // The parameters have left programming mode: the next that asks for it is the table.
    programmed = programmed || bench.device.Mode() == '1';
    if (!struck && programmed && bench.device.Mode() == '0') {
      struck = true;
      bench.device.AddFault({.fault = Fault::Refused, .command = "D1"});
    }
  });
  bench.DownloadAll();
  EXPECT_EQ(bench.TakeBoxes(), DownloadBoxes({Shown(BoxKey::NotProgrammingMode)}));
  EXPECT_EQ(bench.DeviceTable(), held);
  EXPECT_EQ(bench.SetTable(), values);
  ExpectAtRest(bench);
}

TEST_P(TableTest, AValueThatIsNotTakenStopsAtItsItemWithItsBoxAndThenTheGeneralOne) {
  for (const Fault fault : {Fault::WrongEcho, Fault::Refused, Fault::NotUsable}) {
    for (const int at : {0, 5, Long() ? 137 : 31}) {
      TableBench bench(GetParam());
      const std::vector<String> values = bench.OwnTable();
      bench.PutTable(values);
      std::vector<String> expected = bench.DeviceTable();
      const bool carried_out = fault == Fault::WrongEcho;
      const int taken = at + (carried_out ? 1 : 0);
      std::copy(values.begin(), values.begin() + taken, expected.begin());
      const std::string command = "D" + ToUtf8(values[static_cast<std::size_t>(at)]);
      bench.device.AddFault({.fault = fault, .command = command});
      bench.DownloadAll();
      EXPECT_EQ(
          bench.TakeBoxes(),
          DownloadBoxes({Shown(Long() ? BoxKey::LinearizerDataMismatch : BoxKey::Linearizer16DataMismatch),
                         Shown(BoxKey::LinearizerDownloadFailed)}));
      EXPECT_EQ(bench.DeviceTable(), expected);
      EXPECT_EQ(bench.SetTable(), values) << "the page keeps its values";
      EXPECT_EQ(bench.GridTable(), values);
      const Texts selection = bench.Selection(at);
      const Texts write = Joined({selection, {command}});
      const Texts stop = carried_out ? Joined({selection, write, kMonitor})
                                     : Joined({selection, write, write, write, write, selection, kMonitor});
      const Texts whole = Joined({kProgramming, WritesOf(bench, values, at), stop});
      EXPECT_EQ(Tail(bench.commands, whole.size()), whole);
      ExpectAtRest(bench);
    }
  }
}

TEST_P(TableTest, AValueWhoseEchoIsAlwaysGarbledIsProvedByReadingIt) {
  TableBench bench(GetParam());
  const std::vector<String> values = bench.OwnTable();
  bench.PutTable(values);
  bench.device.AddFault({.fault = Fault::Garbled, .command = "D" + ToUtf8(values[5])});
  bench.DownloadAll();
  EXPECT_EQ(bench.TakeBoxes(), DownloadBoxes({Shown(BoxKey::DownloadDone)}));
  EXPECT_EQ(bench.DeviceTable(), values);
}

/// Lets the next `times` selections of the value go unanswered, from the table's own writes on.
void SilenceReads(TableBench& bench, int position, int times) {
  auto left = std::make_shared<int>(times);
  auto group = std::make_shared<std::string>();
  const Texts selection = bench.Selection(position);
  bench.app.link.line.OnTraffic = [&bench, left, group, selection](const SerialLink::Traffic& traffic) {
    const std::string text = ToUtf8(traffic.text);
    if (!traffic.sent) {
      return;
    }
    bench.commands.push_back(text);
    *group = text[0] == 'G' ? text : *group;
    if (*group == selection[0] && text == selection[1] && *left > 0) {
      --*left;
      const int next = bench.device.Exchanges() + 1;
      bench.device.AddFault({.fault = Fault::Silent, .first = next, .last = next, .command = {}});
    }
  };
}

TEST_P(TableTest, AValueThatCannotBeReadIsWrittenAllTheSameSaveInTheLongTablesFirstGroup) {
  for (const int at : {0, 31, Long() ? 99 : 17, Long() ? 100 : 18, Long() ? 199 : 19}) {
    TableBench bench(GetParam());
    const std::vector<String> values = bench.OwnTable();
    bench.PutTable(values);
    const std::vector<String> before = bench.DeviceTable();
    SilenceReads(bench, at, 4);
    bench.DownloadAll();
    const auto place = static_cast<std::size_t>(at);
    const bool written = !(Long() && at < 100);
    EXPECT_EQ(bench.TakeBoxes().back(),
              Shown(written ? BoxKey::DownloadDone : BoxKey::LinearizerDownloadFailed));
    EXPECT_EQ(bench.DeviceTable()[place], written ? values[place] : before[place]);
    EXPECT_EQ(bench.DeviceHoldsTheTable(), written);
    ExpectAtRest(bench);
  }
}

TEST_P(TableTest, SilenceInAnUploadGivesAnEmptyCellAndTheUploadGoesOn) {
  TableBench bench(GetParam());
  std::vector<String> values = bench.OwnTable();
  ASSERT_TRUE(bench.SetDeviceTable(values));
  SilenceReads(bench, 5, 4);
  bench.UploadAll();
  EXPECT_EQ(bench.TakeBoxes(), UploadBoxes());
  values.at(5) = u"";
  EXPECT_EQ(bench.SetTable(), values);
  EXPECT_EQ(bench.GridTable(), values);
  ExpectAtRest(bench);
}

TEST_P(TableTest, ABlankTableIsRefusedAndOneWithOneEmptyCellIsNot) {
  for (const bool download : {false, true}) {
    TableBench bench(GetParam());
    bench.PutTable({u"", u"  "});
    const auto act = [&] {
      if (download) {
        bench.DownloadAll();
      } else {
        bench.Check();
      }
    };
    act();
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::FieldBlank));
    EXPECT_EQ(std::count(bench.commands.begin(), bench.commands.end(), "D1"), 0);
    std::vector<String> values = bench.OwnTable();
    values.at(7) = u"";
    bench.PutTable(values);
    act();
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(download ? BoxKey::DownloadDone : BoxKey::CheckDone));
    values.at(7) = u"300";
    bench.PutTable(values);
    act();
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::ValueBad));
    EXPECT_EQ(Part<Linearizer>(bench.Page()).LnrFlexGrid.At(4, 2).look, Look::Bad);
  }
}

// The question of 100 points.

struct LongTableTest : TableTest {};

INSTANTIATE_TEST_SUITE_P(Model, LongTableTest,
                         testing::Values(ModelNamed(u"QHNY1"), ModelNamed(u"QHW1"), ModelNamed(u"QHNY2")),
                         [](const auto& one) { return ToUtf8(one.param.name); });

TEST_P(LongTableTest, AnsweredNoAnUploadLeavesTheTableAsItWas) {
  TableBench bench(GetParam());
  const std::vector<String> values = bench.OwnTable();
  bench.PutTable(values);
  Part<Linearizer>(bench.Page()).SetTableUnsaved(true);
  ASSERT_TRUE(bench.device.Set("01", "02", "PUMP 7"));
  bench.UploadAll(Answer::No);
  EXPECT_EQ(bench.TakeBoxes(), UploadBoxes());
  EXPECT_EQ(bench.SetTable(), values);
  EXPECT_EQ(bench.GridTable(), values);
  EXPECT_EQ(bench.Page().Item(2), u"PUMP 7");
  EXPECT_TRUE(bench.bar.empty());
  EXPECT_EQ(std::count(bench.commands.begin(), bench.commands.end(), "G02"), 0);
  EXPECT_TRUE(Part<Linearizer>(bench.Page()).TableUnsaved()) << "it still stands in no file";
  EXPECT_TRUE(TabOpen(bench.Page(), TextKey::Linearizer));
  ExpectAtRest(bench);
}

TEST_P(LongTableTest, AnsweredNoADownloadWritesTheParametersLeavesTheTableAndIsASuccess) {
  TableBench bench(GetParam());
  bench.PutTable(bench.OwnTable());
  const std::vector<String> held = bench.DeviceTable();
  bench.Type(u"02", u"PUMP 1");
  bench.DownloadAll(Answer::No);
  EXPECT_EQ(bench.TakeBoxes(), DownloadBoxes({Shown(BoxKey::DownloadDone)}));
  EXPECT_EQ(Trimmed(FromUtf8(bench.device.Value("01", "02"))), u"PUMP 1");
  EXPECT_EQ(bench.DeviceTable(), held);
  EXPECT_EQ(Tail(bench.commands, 6), Joined({kMonitor, kMonitor}));
  EXPECT_EQ(bench.bar, (std::vector<float>{5, 0}));
  ExpectAtRest(bench);
}

/// 100 points of a file, "1.00,101.00", "2.00,102.00" and so on.
std::string HundredPoints() {
  std::string text;
  for (int point = 1; point <= 100; ++point) {
    text += std::to_string(point) + ".00," + std::to_string(100 + point) + ".00\r\n";
  }
  return text;
}

void OpenTable(TableBench& bench, const std::string& text) {
  bench.files.Put(u"/korva/data/table.csv", text);
  bench.dialogs.QueueFile(u"/korva/data/table.csv");
  bench.Click(Part<Linearizer>(bench.Page()).cmd_csvFileOpen);
}

TEST_P(LongTableTest, ASetBegunAnewAfterAnOperationWithTheSwitchOffHasAHundredPointsToFillAndToSend) {
  TableBench bench(GetParam());
  auto& table = Part<Linearizer>(bench.Page());
  const ParameterSet uploaded = bench.Page().GroupItem;
  bench.Press(table.Opt_Lnr, 0);
  bench.Check();
  bench.New();
  bench.Page().GroupItem.TakeOver(uploaded);
  bench.Do([&] { bench.Page().BuildPage(); });
  bench.Press(table.Opt_Lnr, 0);
  bench.Press(table.Opt_Lnr, 1);
  EXPECT_EQ(table.LnrFlexGrid.Rows(), 101);
  OpenTable(bench, HundredPoints());
  EXPECT_EQ(table.LnrFlexGrid.At(100, 2).text, u"200.00");
  bench.TakeBoxes();
  bench.DownloadAll();
  EXPECT_EQ(bench.TakeBoxes(), DownloadBoxes({Shown(BoxKey::DownloadDone)}));
  EXPECT_EQ(bench.DeviceTable(), bench.SetTable());
}

TEST_P(LongTableTest, AFileOfValuesAloneOpenedAfterAnOperationWithTheSwitchOffOpensTheTabOfItsTable) {
  TableBench bench(GetParam());
  auto& table = Part<Linearizer>(bench.Page());
  bench.PutTable(bench.OwnTable());
  bench.Save(kFile);
  String values = bench.TextOf(kFile);
  values.erase(0, values.find(u"$Data"));
  bench.files.Put(kFile, bench.code_page.Encode(values).value());
  bench.Press(table.Opt_Lnr, 0);
  bench.Check();
  bench.Open(kFile);
  EXPECT_TRUE(TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_EQ(bench.GridTable(), bench.OwnTable());
}

}  // namespace
}  // namespace korva::test
