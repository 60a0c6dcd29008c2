// What goes with the writes of a download: the table, a close request, the device's spelling.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "download_fixture.h"

namespace korva::test {
namespace {

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
    TransferBench bench(DataSection({{.item = "10", .list = "$I10", .frame = "0"}}) + kDownloadSections,
                        {.def_file = kModel});
    bench.page->Opt_Table[one.option].SetValue(true);
    bench.page->Tabs.SetTabEnabled(3, one.tab);
    bench.page->table_written = one.written;
    bench.host.loop.OnPump([&] {
      if (!one.written) {
        EXPECT_EQ(bench.page->LnrProgressBar.Value(), 0.0F)
            << "no bar is left over while the device is put back";
      }
    });
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
