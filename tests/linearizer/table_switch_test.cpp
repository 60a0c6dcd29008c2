// When the table takes part in an upload, a check and a download: by the model's switch.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "core/text_utilities.h"
#include "transfer/transfer_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

constexpr int kTableTab = 3;
constexpr int kFirstItem = 60;
constexpr int kLastItem = 91;
constexpr std::array<StringView, 1> kTypes = {u"FX: Linearizer"};

const std::string kDefinition = DataSection({{.item = "10", .list = "$I10", .frame = "0"},
                                             {.item = "11", .list = "$I11", .frame = "1"}}) +
                                "$I10\r\n0, OFF, , , , N, Y\r\n1, FX: Linearizer, , , , N, Y\r\n"
                                "$I11\r\n$I11Title\r\nNONE\r\n$I11Body\r\n0, OFF\r\n1, ON\r\n"
                                "$SSTab\r\nTrue, True, True, True, True, True, True\r\n";

/// A page whose model has a linearizer, and a device with a table of 16 points.
struct LinearizerBench {
  explicit LinearizerBench(const LnrModel& model, const std::string& definition = kDefinition)
      : models{model}, bench(definition, {.linearizer = &family}) {
    models[0].def_file = kModel;
    bench.page->Tabs.SetTabEnabled(kTableTab, true);
    bench.line.items["01/10"] = "OFF";
    bench.line.items["01/11"] = "OFF";
    for (int item = kFirstItem; item <= kLastItem; ++item) {
      const std::string key = "01/" + std::to_string(item);
      bench.line.items[key] = "X(00): " + std::to_string(item) + ".5";
      bench.line.prefixes[key] = "X(00):";
    }
  }
  /// Fills the set's table with a straight line.
  void FillTable() {
    for (int item = kFirstItem; item <= kLastItem; ++item) {
      bench.page->SetItem(item, Ascii(std::to_string(item / 2)));
    }
  }
  [[nodiscard]] Linearizer& Lnr() const { return *bench.page->linearizer; }
  [[nodiscard]] bool Sent(const std::string& command) const {
    const auto& commands = bench.line.Commands();
    return std::any_of(commands.begin(), commands.end(),
                       [&](const CommandLine::Command& one) { return one.text == command; });
  }

  std::array<LnrModel, 1> models;
  LnrFamily family{
      .rule = LnrRule::Range, .quantities = kPlainQuantity, .models = models, .table_types = kTypes};
  TransferBench bench;
};

// Upload.

struct TableCase {
  TableSwitch after_upload;
  std::string type;
  std::string range;
  bool read;
  bool tab_enabled;
};

TEST(UploadTableTest, IsReadWhereTheModelsSwitchSaysSo) {
  const std::string on = "FX: Linearizer";
  for (const TableCase& one : {
           TableCase{TableSwitch::None, on, "ON", false, false},
           TableCase{TableSwitch::Always, "OFF", "OFF", true, true},
           TableCase{TableSwitch::AsItStands, "OFF", "OFF", true, true},
           TableCase{TableSwitch::TableOption, "OFF", "ON", false, false},
           TableCase{TableSwitch::TableOption, on, "OFF", true, true},
           TableCase{TableSwitch::LnrOption, on, "OFF", false, false},
           TableCase{TableSwitch::LnrOption, "OFF", "ON", true, true},
           TableCase{TableSwitch::InputType, "OFF", "ON", false, false},
           TableCase{TableSwitch::InputType, on, "OFF", true, true},
       }) {
    LinearizerBench lnr({.after_upload = one.after_upload});
    TransferBench& bench = lnr.bench;
    bench.line.items["01/10"] = one.type;
    bench.line.items["01/11"] = one.range;
    lnr.Lnr().SetUp(kLnrLongPoints);
    bench.Upload();
    EXPECT_EQ(lnr.Sent("I60"), one.read);
    EXPECT_EQ(lnr.Sent("I91"), one.read);
    EXPECT_EQ(bench.page->Item(kFirstItem), one.read ? u"60.5" : u"");
    EXPECT_EQ(lnr.Lnr().LnrFlexGrid.At(1, 1).text, one.read ? u"60.5" : u"");
    EXPECT_EQ(lnr.Lnr().LnrFlexGrid.At(16, 2).text, one.read ? u"91.5" : u"");
    EXPECT_EQ(lnr.Lnr().LnrFlexGrid.Rows(), kLnrShortPoints + 1) << "settling the tab sets the table up";
    EXPECT_EQ(bench.page->Tabs.TabEnabled(kTableTab), one.tab_enabled);
    EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::UploadDone));
    EXPECT_TRUE(bench.AtRest());
  }
}

TEST(UploadTableTest, IsReadBeforeTheReportWithTheBarAtItsEnd) {
  LinearizerBench lnr({.points = kLnrLongPoints, .after_upload = TableSwitch::Always});
  TransferBench& bench = lnr.bench;
  bench.line.items["03/99"] = "Y(99): 7.5";
  bench.host.dialogs.QueueAnswer(Answer::Yes);
  bench.host.dialogs.QueueAnswer(Answer::Ok);
  bench.host.dialogs.QueueAnswer(Answer::Yes);
  float bar = 0;
  Texts boxes;
  bench.host.loop.OnPump([&] {
    if (boxes.empty() && bench.line.Sent().ends_with("G02 I00")) {
      bar = bench.page->TransferBar.Value();
      boxes = bench.Boxes();
    }
  });
  bench.Click(bench.page->cmdUpload);
  EXPECT_EQ(bar, 100.0F);
  EXPECT_EQ(boxes, (Texts{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload),
                          Shown(BoxKey::UploadLinearizer)}));
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::UploadDone));
  EXPECT_EQ(lnr.Lnr().LnrFlexGrid.Rows(), kLnrLongPoints + 1);
  EXPECT_EQ(lnr.Lnr().LnrFlexGrid.At(100, 2).text, u"7.5");
}

TEST(UploadTableTest, ATableFromAFileIsToldOfUntilTheDevicesOwnReplacesIt) {
  for (const bool kept : {true, false}) {
    LinearizerBench lnr({.points = kLnrLongPoints, .after_upload = TableSwitch::Always});
    TransferBench& bench = lnr.bench;
    bench.line.items["02/00"] = "X(01): 33.5";
    bench.page->GroupItem.Set(2, 0, u"12.5");
    lnr.Lnr().SetTableUnsaved(true);
    bench.host.dialogs.QueueAnswer(Answer::Yes);
    bench.host.dialogs.QueueAnswer(Answer::Ok);
    bench.host.dialogs.QueueAnswer(kept ? Answer::No : Answer::Yes);
    bench.Click(bench.page->cmdUpload);
    EXPECT_EQ(lnr.Lnr().TableUnsaved(), kept);
    EXPECT_EQ(bench.page->GroupItem.At(2, 0), kept ? u"12.5" : u"33.5");
    EXPECT_EQ(lnr.Lnr().LnrFlexGrid.At(1, 1).text, kept ? u"12.5" : u"33.5");
    EXPECT_EQ(lnr.Sent("I99") && lnr.Sent("G03"), !kept);
  }
}

TEST(UploadTableTest, AModelWithoutATableIsNotToldOfOne) {
  LinearizerBench lnr({.after_upload = TableSwitch::None});
  lnr.Lnr().SetTableUnsaved(true);
  lnr.bench.Upload();
  EXPECT_FALSE(lnr.Lnr().TableUnsaved());
}

// The check.

struct TableCheckTest : testing::Test {
  TableCheckTest() {
    lnr.FillTable();
    bench.page->SetItem(19, u"0");
    bench.page->SetItem(20, u"100");
    bench.page->BuildPage();
  }
  void Check() {
    bench.Check();
    EXPECT_TRUE(bench.AtRest());
  }
  void MakeBad() const { bench.page->SetItem(kFirstItem, u"301"); }

  LinearizerBench lnr{{.after_upload = TableSwitch::TableOption},
                      DataSection({{.item = "19", .text = "5"}, {.item = "20", .text = "6"}}) +
                          "$I10\r\n0, OFF\r\n$SSTab\r\nTrue, True, True, True, True, True, True\r\n"};
  TransferBench& bench = lnr.bench;
};

TEST_F(TableCheckTest, ATableInUseIsCheckedBehindTheValues) {
  lnr.Lnr().Opt_Table[1].SetValue(true);
  Check();
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::CheckDone));
  MakeBad();
  bench.page->SetItem(20, u"-1");
  bench.page->BuildPage();
  Check();
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(lnr.Lnr().LnrFlexGrid.At(1, 1).look, Look::Normal) << "the first bad check ends the run";
  bench.Type(u"20", u"100");
  Check();
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::ValueBad));
  EXPECT_EQ(lnr.Lnr().LnrFlexGrid.At(1, 1).look, Look::Bad);
}

TEST_F(TableCheckTest, ATableInUseWithoutAnyValueIsAFieldLeftBlank) {
  for (int item = kFirstItem; item <= kLastItem; ++item) {
    bench.page->SetItem(item, {});
  }
  lnr.Lnr().Opt_Table[1].SetValue(true);
  Check();
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::FieldBlank));
}

TEST_F(TableCheckTest, ATableWhoseSwitchIsOffIsNotCheckedAndOneWhoseTabIsDisabledIs) {
  MakeBad();
  lnr.Lnr().Opt_Table[0].SetValue(true);
  Check();
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::CheckDone));
  lnr.Lnr().Opt_Table[1].SetValue(true);
  bench.page->Tabs.SetTabEnabled(kTableTab, false);
  Check();
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::ValueBad));
}

// Download.

TEST(DownloadTableTest, GoesWhereItIsInUseWhateverItsTabIs) {
  struct Case {
    bool tab;
    int option;
    bool taken;  ///< the device takes the values
    bool written;
    Texts boxes;
  };
  const std::string start = Shown(BoxKey::StartDownload);
  const std::string done = Shown(BoxKey::DownloadDone);
  for (const Case& one : {
           Case{true, 1, true, true, {start, done}},
           Case{true,
                1,
                false,
                true,
                {start, Shown(BoxKey::Linearizer16DataMismatch), Shown(BoxKey::LinearizerDownloadFailed)}},
           Case{true, 0, true, false, {start, done}},
           Case{false, 1, true, true, {start, done}},
           Case{false, 0, true, false, {start, done}},
       }) {
    LinearizerBench lnr({.after_upload = TableSwitch::TableOption});
    TransferBench& bench = lnr.bench;
    lnr.FillTable();
    lnr.Lnr().Opt_Table[one.option].SetValue(true);
    bench.page->Tabs.SetTabEnabled(kTableTab, one.tab);
    if (!one.taken) {
      bench.line.echoes["01/62"] = {"CNG"};
    }
    bool failed = false;
    bench.host.dialogs.OnBox(
        [&](const Box& box) { failed = failed || box.text == BoxOf(BoxKey::LinearizerDownloadFailed).text; });
    bench.host.loop.OnPump([&] {
      if (failed) {
        EXPECT_EQ(lnr.Lnr().LnrProgressBar.Value(), 0.0F)
            << "no bar is left over while the device is put back";
      }
    });
    bench.Download();
    EXPECT_EQ(failed, !one.taken);
    EXPECT_EQ(lnr.Sent("I60"), one.written);
    EXPECT_EQ(lnr.Sent("I91"), one.written && one.taken);
    EXPECT_EQ(bench.Boxes(), one.boxes);
    EXPECT_TRUE(bench.AtRest());
    EXPECT_EQ(bench.page->Tabs.TabEnabled(kTableTab), one.tab);
  }
}

}  // namespace
}  // namespace korva::test
