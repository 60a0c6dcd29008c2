// The user's tables on the page of family Nano: which one is in use, and that it rides with transfers and
// files.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "support/tabs.h"
#include "z8_kv_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// A page with a device; its set and the table in use are uploaded.
class Z8TableBench : public Z8Bench {
 public:
  Z8TableBench(const String& model, const String& input) : Z8Bench(model) {
    if (!input.empty()) {
      EXPECT_TRUE(device.Set("01", "10", ToUtf8(input)));
    }
    Read();
  }
  UserTables& Tables() { return Z8().tables; }
  /// Fills the table that shows, one text a cell, and its fields.
  void Fill(const std::vector<String>& cells, const String& size) {
    Do([&] {
      LnrTable& table = Tables().TableOf(Tables().Shown());
      table.Clear();
      const int columns = table.Columns() - 1;
      for (std::size_t at = 0; at < cells.size(); ++at) {
        const int place = static_cast<int>(at);
        table.Store(1 + (place / columns), 1 + (place % columns), cells[at]);
      }
    });
    if (Tables().Shown() != UserTable::Linearizer) {
      Type(Tables().fields.txtStep, u"10");
      Type(Tables().fields.txtBase, u"-20");
    }
    Type(Tables().fields.txtSize, size);
  }
  /// What was sent to the items of tables, "60 DR".
  [[nodiscard]] Texts TableData() const {
    Texts data;
    for (const std::string& access : line.accesses) {
      if (access.starts_with("01/6") && access.size() > 5) {
        data.push_back(access.substr(3));
      }
    }
    return data;
  }
};

TEST(Z8KvConfigTable, AZ8WT2DefWithAnInputTextThatBegins13WritesTheTableAnyOtherTextDoesNot) {
  Z8TableBench bench(u"Z8WT2", u"1 K (CA)");
  EXPECT_FALSE(TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.TableData(), Texts());
  bench.Pick(bench.Page().Combo[0], u"13 User's TC");
  EXPECT_TRUE(TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_EQ(bench.Page().Tabs.TabCaption(4), u"TC TBL");
  bench.Fill({u"-1.5", u"0,25", u"3"}, u"3");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.TableData(), (Texts{"60 DR", "60 DC", "60 DT0D-1.5000", "60 DT1D0.2500", "60 DT2D3.0000",
                                      "60 DP10", "60 DS-20", "60 DZ2", "60 DW", "60 DR", "60 DC"}));
  EXPECT_EQ(bench.device.GetKeyedTable("60").Size(), 3U);
  bench.ExpectAtRest();
}

TEST(Z8KvConfigTable, AZ8WR2DefWithAnInputTextThatBegins8UsesTheTableOfResistances) {
  Z8TableBench bench(u"Z8WR2", u"8 User's RTD");
  EXPECT_EQ(bench.Page().Tabs.TabCaption(4), u"RTD TBL");
  EXPECT_EQ(bench.Tables().Shown(), UserTable::Resistance);
  EXPECT_TRUE(bench.Tables().RTDFlexGrid.Visible());
  EXPECT_FALSE(bench.Tables().TCFlexGrid.Visible() || bench.Tables().LnrFlexGrid.Visible());
  EXPECT_EQ(bench.Tables().lblLnrLimits.Caption(), u"0 Ohm =< Rtd(k) =< 8000 Ohm");
  bench.Pick(bench.Page().Combo[0], u"2 Pt100 JIS'97");
  EXPECT_FALSE(TabOpen(bench.Page(), TextKey::Linearizer));
}

TEST(Z8KvConfigTable, OtherModelsHaveTheLinearizerWhileItem25IsOnOr1) {
  for (const char16_t* model : {u"Z8WV2", u"Z8WM2"}) {
    Z8TableBench bench(model, {});
    EXPECT_FALSE(TabOpen(bench.Page(), TextKey::Linearizer));
    bench.Press(bench.Tables().Opt_Lnr, 1);
    EXPECT_EQ(bench.Page().Item(25), u"ON");
    EXPECT_TRUE(TabOpen(bench.Page(), TextKey::Linearizer));
    EXPECT_EQ(bench.Page().Tabs.TabCaption(4), u"ﾘﾆｱﾗｲｻﾞ");
    EXPECT_EQ(bench.Tables().InUse(), UserTable::Linearizer);
    bench.Show(25, u"OFF");
    bench.Show(25, u"1");
    EXPECT_EQ(bench.Tables().InUse(), UserTable::Linearizer);
    EXPECT_TRUE(bench.Tables().Opt_Lnr[1].Value()) << "what is in use is shown";
    EXPECT_EQ(bench.Page().Item(25), u"ON");
    bench.Show(25, u"OFF");
    EXPECT_EQ(bench.Tables().InUse(), UserTable::None);
  }
}

TEST(Z8KvConfigTable, RidesWithAnUploadBehindTheQuestionOfTheLinearizerAlone) {
  Z8Bench curve(u"Z8WT2");
  EXPECT_TRUE(curve.device.Set("01", "10", "13 User's TC"));
  EXPECT_EQ(curve.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)});
  EXPECT_EQ(curve.Z8().tables.fields.txtSize.Text(), u"11");
  Z8Bench linearizer(u"Z8WV2");
  EXPECT_TRUE(linearizer.device.Set("01", "25", "ON"));
  EXPECT_EQ(linearizer.BoxesOfUpload({Answer::No}),
            (Texts{Shown(BoxKey::UploadLinearizer), Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(linearizer.Z8().tables.fields.txtSize.Text(), u"");
  EXPECT_EQ(linearizer.BoxesOfUpload({Answer::Yes}),
            (Texts{Shown(BoxKey::UploadLinearizer), Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(linearizer.Z8().tables.fields.txtSize.Text(), u"11");
}

TEST(Z8KvConfigTable, IsReadInMonitorModeAndWrittenInProgrammingModeThatEndsWithIt) {
  Z8TableBench bench(u"Z8WR2", u"8 User's RTD");
  const auto steps = [&](Button& button) {
    bench.line.accesses.clear();
    bench.Click(button);
    Texts data;
    for (const std::string& access : bench.line.accesses) {
      if (access.size() > 5) {
        data.push_back(access.substr(3));
      }
    }
    return data;
  };
  bench.device.GetKeyedTable("61").SetSize(2);
  EXPECT_EQ(steps(bench.Tables().buttons.cmdReadOutTable),
            (Texts{"61 DR", "61 DC", "01 D0", "61 DP", "61 DS", "61 DZ", "61 DT0", "61 DT1"}));
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::TableRead));
  bench.Fill({u"100", u"138.5"}, u"2");
  EXPECT_EQ(steps(bench.Tables().buttons.cmdWriteInTable),
            (Texts{"01 D1", "61 DR", "61 DC", "61 DT0D100.0000", "61 DT1D138.5000", "61 DP10", "61 DS-20",
                   "61 DZ1", "61 DW", "61 DR", "61 DC", "01 D0"}));
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::TableWritten));
  bench.ExpectAtRest();
}

TEST(Z8KvConfigTable, APressOnTheCloseBoxWhileItIsWrittenTellsThatTheProgramCannotEnd) {
  Z8TableBench bench(u"Z8WT2", u"13 User's TC");
  bench.Fill({u"1", u"2"}, u"2");
  bool told = false;
  bench.loop.After(std::chrono::milliseconds(300), [&] {
    EXPECT_TRUE(bench.Page().OnUnload()) << "the window stays";
    told = bench.Page().flaMsg_CannotEnd.Visible();
  });
  bench.Click(bench.Tables().buttons.cmdWriteInTable);
  EXPECT_TRUE(told);
  EXPECT_EQ(bench.Page().lblMsg_CannotEnd.Caption(), CannotEndText());
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::TableWritten));
  EXPECT_EQ(bench.status, 0) << "and goes when the table has been written";
}

TEST(Z8KvConfigTable, TableAccessAnswersOkOnlyInOrder) {
  Z8TableBench bench(u"Z8WR2", u"8 User's RTD");
  for (const char* refused : {"01/61 DR", "01/61 DC"}) {
    bench.line.replies.clear();
    bench.line.replies[refused] = "D    invalid data";
    bench.TakeBoxes();
    bench.Click(bench.Tables().buttons.cmdReadOutTable);
    EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::TableReadWriteFailed)}) << refused;
  }
}

TEST(Z8KvConfigTable, ComesBackFromItsFile) {
  Z8TableBench bench(u"Z8WT2", u"13 User's TC");
  bench.Fill({u"-1.5", u"0.25", u"3"}, u"3");
  bench.Save(kFile);
  EXPECT_NE(ToUtf8(bench.TextOf(kFile))
                .find("$Table\r\n\"5\",\"0\",\"-20\"\r\n\"5\",\"1\",\"10\"\r\n\"5\",\"2\","
                      "\"3\"\r\n\"6\",\"0\",\"-1.5\"\r\n\"6\",\"1\",\"0.25\"\r\n"),
            std::string::npos);
  bench.New();
  bench.Open(kFile);
  EXPECT_EQ(bench.Tables().Shown(), UserTable::Thermocouple);
  EXPECT_EQ(bench.Tables().TCFlexGrid.At(2, 1).text, u"0.25");
  EXPECT_EQ(bench.Tables().fields.txtBase.Text(), u"-20");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.GetKeyedTable("60").Size(), 3U);
}

}  // namespace
}  // namespace korva::test
