// What the report of a transfer tells of each item, in all families.

#include "companions/transfer_report.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "linearizer/linearizer.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"

namespace korva::test {
namespace {

using State = TransferReport::State;

/// A program with a device of a model, which is chosen, and its report.
class ReportBench : public PageBench {
 public:
  explicit ReportBench(const String& model) : device(Connect(model)) {
    app.link.line.OnTraffic = [this](const SerialLink::Traffic& traffic) {
      (traffic.sent ? sent : answered).push_back(traffic.text);
    };
    Choose(model);
    TakeTables();
  }

  [[nodiscard]] const TransferReport& Report() const { return app.companions.Report; }
  void Break(const char* fault) { device.AddFault(sim::ParseFault(fault)); }
  /// What the report tells of an item, "01/14", behind the questions that come before the items.
  [[nodiscard]] ReportRow RowOf(const String& item) const {
    const auto& rows = Report().Rows();
    const auto found =
        std::find_if(rows.rbegin(), rows.rend(), [&](const ReportRow& row) { return row.item == item; });
    return found == rows.rend() ? ReportRow{.item = u"no such row"} : *found;
  }
  [[nodiscard]] std::vector<String> Items() const {
    std::vector<String> items;
    for (const ReportRow& row : Report().Rows()) {
      items.push_back(row.item);
    }
    return items;
  }
  [[nodiscard]] String Told() { return Page().Notes.Told(Notice::Transfer); }

  sim::Device& device;
  std::vector<String> sent;
  std::vector<String> answered;
};

TEST(TransferReportTest, IsUnbegunBeforeTheFirstTransfer) {
  ReportBench bench(u"QZ");
  EXPECT_EQ(bench.Report().Now(), State::Unbegun);
  EXPECT_TRUE(bench.Report().Rows().empty());
  EXPECT_EQ(bench.Report().FaultSentence(), u"");
}

TEST(TransferReportTest, TellsOfAnUploadEachItemInItsOrderWithItsCaptionAndTheWholeAnswer) {
  ReportBench bench(u"QHW");
  bench.device.Set("01", "14", "1.5");
  bench.Upload();
  EXPECT_EQ(bench.Report().Now(), State::Done);
  EXPECT_EQ(bench.Report().Kind(), Transfer::Upload);
  EXPECT_EQ(bench.Report().Model(), u"QHW");
  const std::vector<String> items = bench.Items();
  EXPECT_EQ(std::vector(items.begin(), items.begin() + 11),
            (std::vector<String>{u"00/99", u"01/01", u"01/02", u"01/14", u"01/15", u"01/16", u"01/17",
                                 u"01/19", u"01/20", u"01/10", u"01/11"}));
  const ReportRow row = bench.RowOf(u"01/14");
  EXPECT_EQ(row.caption, u"入力ｾﾞﾛ (0%)");
  EXPECT_EQ(row.sent, u"");
  EXPECT_EQ(u"D" + row.answered,
            bench.answered.at(8));  // behind two of the test, three of the mode, two of the tag
  EXPECT_EQ(row.evidence, Evidence::Read);
  EXPECT_EQ(bench.Told(), u"");
}

TEST(TransferReportTest, TellsWhatDidNotAnswerAnUploadThatGoesOn) {
  ReportBench bench(u"QHW");
  bench.Break("silent=I14");
  bench.Break("refused=I16");
  bench.Break("not-usable=I17");
  bench.Upload();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::UploadDone));
  EXPECT_EQ(bench.Report().Now(), State::Done);
  EXPECT_EQ(bench.RowOf(u"01/14"), (ReportRow{.item = u"01/14",
                                              .caption = u"入力ｾﾞﾛ (0%)",
                                              .sent = u"",
                                              .answered = u"",
                                              .evidence = Evidence::Silent}));
  EXPECT_EQ(bench.RowOf(u"01/16").evidence, Evidence::Refused);
  EXPECT_EQ(bench.RowOf(u"01/16").answered, u"CNG");
  EXPECT_EQ(bench.RowOf(u"01/17").evidence, Evidence::Skipped);
  EXPECT_EQ(bench.RowOf(u"01/17").skip, Skip::Needless);
  EXPECT_EQ(bench.RowOf(u"01/17").answered, u"CNU");
  EXPECT_EQ(bench.Told(), u"Item 01/14 入力ｾﾞﾛ (0%): 変換器の応答がありませんでした。 ほか 1 項目。");
  EXPECT_EQ(bench.Report().FaultSentence(Language::English),
            u"Item 01/14 入力ｾﾞﾛ (0%): the device gave no answer. 1 more failed.");
}

TEST(TransferReportTest, TellsOfADownloadWhatWasSentWhatWasAnsweredAndHowThatProvesIt) {
  ReportBench bench(u"QHW");
  bench.Upload();
  bench.Type(u"02", u"TANK-3");
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  EXPECT_EQ(bench.Report().Now(), State::Done);
  EXPECT_EQ(bench.Report().Kind(), Transfer::Download);
  EXPECT_EQ(bench.RowOf(u"01/02"), (ReportRow{.item = u"01/02",
                                              .caption = u"ﾀｸﾞ名",
                                              .sent = u"TANK-3",
                                              .answered = u"TG:TANK-3",
                                              .evidence = Evidence::Compared}));
  // Choices go as their codes and come back as their texts, zero and span are what the device makes of them.
  EXPECT_EQ(bench.RowOf(u"01/10").sent, u"1");
  EXPECT_EQ(bench.RowOf(u"01/10").answered, u"1:DC V");
  EXPECT_EQ(bench.RowOf(u"01/10").evidence, Evidence::Compared);
  EXPECT_EQ(bench.RowOf(u"01/14").evidence, Evidence::Held);
  EXPECT_EQ(bench.RowOf(u"01/15").evidence, Evidence::Held);
  EXPECT_EQ(bench.RowOf(u"01/16").evidence, Evidence::Compared);
  EXPECT_EQ(bench.RowOf(u"01/17").evidence, Evidence::Compared);
  EXPECT_EQ(bench.RowOf(u"01/19").evidence, Evidence::Echoed);
}

TEST(TransferReportTest, TellsTheItemAtWhichADownloadFailedAndWhatWasNotReached) {
  ReportBench bench(u"QHW");
  bench.Upload();
  bench.Type(u"02", u"TANK-3");
  bench.Type(u"20", u"99.5");
  bench.Break("wrong-echo=DTANK-3");
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDataMismatch));
  EXPECT_EQ(bench.Report().Now(), State::Broken);
  const ReportRow row = bench.RowOf(u"01/02");
  EXPECT_EQ(row.sent, u"TANK-3");
  EXPECT_NE(row.answered, u"TG:TANK-3");
  EXPECT_TRUE(row.answered.starts_with(u"TG:")) << ToUtf8(row.answered);
  EXPECT_EQ(row.evidence, Evidence::Differs);
  EXPECT_FALSE(row.only_due);
  EXPECT_EQ(bench.RowOf(u"01/20").evidence, Evidence::NotReached);
  EXPECT_EQ(bench.RowOf(u"01/20").sent, u"99.5");
  EXPECT_TRUE(bench.RowOf(u"01/20").only_due);
  EXPECT_EQ(bench.Told(),
            u"Item 01/02 ﾀｸﾞ名: 「TANK-3」に対し、変換器は「" + row.answered + u"」と応答しました。");
}

TEST(TransferReportTest, TellsARefusedWriteWithTheDevicesAnswerInBothDialects) {
  for (const StringView model : {u"QHW", u"Z2WQ"}) {
    SCOPED_TRACE(ToUtf8(model));
    ReportBench bench{String(model)};
    bench.Upload();
    bench.Type(u"02", u"TANK-3");
    bench.Break("refused=DTANK-3");
    bench.Download();
    EXPECT_EQ(bench.Report().Now(), State::Broken);
    EXPECT_EQ(bench.RowOf(u"01/02").sent, u"TANK-3");
    EXPECT_EQ(bench.RowOf(u"01/02").evidence, Evidence::Refused);
    EXPECT_NE(bench.RowOf(u"01/02").answered, u"");
    EXPECT_NE(bench.Told().find(u"「TANK-3」を拒否しました"), String::npos) << ToUtf8(bench.Told());
  }
}

TEST(TransferReportTest, TellsALinkTestWithoutAnswerAndBreaksOff) {
  ReportBench bench(u"QHW");
  bench.Break("silent");
  bench.Upload();
  EXPECT_EQ(bench.Report().Now(), State::Broken);
  EXPECT_EQ(bench.Items(), std::vector<String>{u"00/99"});
  EXPECT_EQ(bench.RowOf(u"00/99").evidence, Evidence::Silent);
  EXPECT_EQ(bench.Told(), u"Item 00/99 通信ﾃｽﾄ: 変換器の応答がありませんでした。");
}

TEST(TransferReportTest, TellsWhyAnItemWasNotSent) {
  ReportBench bench(u"QHW");
  bench.Break("not-usable=I17");
  bench.Upload();
  bench.device.ClearFaults();
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  EXPECT_EQ(bench.RowOf(u"01/17").evidence, Evidence::Skipped);
  EXPECT_EQ(bench.RowOf(u"01/17").skip, Skip::Needless);
  EXPECT_EQ(EvidenceText(bench.RowOf(u"01/17")), u"送信なし: 変換器で使用しない");
}

TEST(TransferReportTest, ANewTransferClearsItAndAnotherModelTheSentence) {
  ReportBench bench(u"QHW");
  bench.Break("silent=I14");
  bench.Upload();
  EXPECT_NE(bench.Told(), u"");
  bench.device.ClearFaults();
  bench.Page().DataChanged = false;
  bench.Upload();
  EXPECT_EQ(bench.Told(), u"");
  EXPECT_EQ(bench.RowOf(u"01/14").evidence, Evidence::Read);
  bench.Break("silent=I14");
  bench.Page().DataChanged = false;
  bench.Upload();
  const auto rows = bench.Report().Rows();
  bench.Page().DataChanged = false;
  bench.Choose(u"QZ");
  EXPECT_EQ(bench.Told(), u"");
  EXPECT_EQ(bench.Report().Rows(), rows);
}

TEST(TransferReportTest, StaysAsItIsWhenTheUserDoesNotBegin) {
  ReportBench bench(u"QHW");
  bench.Upload();
  const auto rows = bench.Report().Rows();
  bench.dialogs.QueueAnswer(Answer::Cancel);
  bench.Click(bench.Page().cmdDownload);
  EXPECT_EQ(bench.Report().Rows(), rows);
  EXPECT_EQ(bench.Report().Kind(), Transfer::Upload);
}

TEST(TransferReportTest, TellsNothingAsSentThatWasNot) {
  ReportBench bench(u"QHW");
  bench.Upload();
  bench.Type(u"20", u"99.5");
  bench.Break("silent=I20");  // an item is read before it is written
  bench.Download();
  EXPECT_EQ(bench.Report().Now(), State::Broken);
  EXPECT_EQ(bench.RowOf(u"01/20").evidence, Evidence::Silent);
  EXPECT_EQ(bench.RowOf(u"01/20").sent, u"");
  EXPECT_EQ(std::find(bench.sent.begin(), bench.sent.end(), u"D99.5"), bench.sent.end());

  ReportPanel panel(bench.app.companions.Report);
  for (int row = 0; row < panel.EndRow(); ++row) {
    const ReportRow& line = bench.Report().Rows().at(static_cast<std::size_t>(row));
    const bool due = line.evidence == Evidence::Collated || line.evidence == Evidence::NotReached;
    EXPECT_EQ(panel.Cells(row)[2], due ? u"(" + line.sent + u")" : line.sent) << ToUtf8(line.item);
  }
}

TEST(TransferReportTest, NamesItsItemsInTheLanguageOfThePage) {
  ReportBench bench(u"Z2WQ");
  bench.Upload();
  EXPECT_EQ(bench.RowOf(u"01/28").caption, u"ｾﾞﾛ微調整 / ｽﾊﾟﾝ微調整");
  EXPECT_EQ(bench.RowOf(u"00/99").caption, u"ｼｽﾃﾑﾊﾞｰｼﾞｮﾝ");
  bench.Page().SetCaptions(Language::English);
  bench.Page().DataChanged = false;
  bench.Upload();
  EXPECT_EQ(bench.RowOf(u"01/28").caption, u"Zero trim / Span trim");
  EXPECT_EQ(bench.RowOf(u"01/14").caption, u"Input zero");
  EXPECT_EQ(bench.RowOf(u"00/99").caption, u"System version");
}

TEST(TransferReportTest, TellsTheResetAndTheUnitsOfAPulseConverter) {
  ReportBench bench(u"QEY");
  bench.Upload();
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  EXPECT_EQ(bench.RowOf(u"01/34"), (ReportRow{.item = u"01/34",
                                              .caption = u"ﾃﾞﾌｫﾙﾄ値に設定",
                                              .sent = u"1",
                                              .answered = u"all prms default",
                                              .evidence = Evidence::Compared}));
}

TEST(TransferReportTest, TellsTheTypesThatAreCollatedBeforeAnythingIsSent) {
  ReportBench bench(u"Z2WV");
  bench.Upload();
  const String type = bench.Page().Item(10);
  bench.Download();
  const auto& rows = bench.Report().Rows();
  EXPECT_EQ(bench.RowOf(u"00/01").evidence, Evidence::Collated);  // the model
  const auto collated = std::find_if(rows.begin(), rows.end(), [](const ReportRow& row) {
    return row.item == u"01/10" && row.evidence == Evidence::Collated;
  });
  ASSERT_NE(collated, rows.end());
  EXPECT_EQ(*collated, (ReportRow{.item = u"01/10",
                                  .caption = u"入力種類",
                                  .sent = type,
                                  .answered = type,
                                  .evidence = Evidence::Collated,
                                  .only_due = true}));
  EXPECT_EQ((collated + 1)->item, u"01/11");
  EXPECT_EQ((collated + 1)->evidence, Evidence::Collated);
}

TEST(TransferReportTest, TellsATypeThatIsFixedInTheDeviceAndDiffers) {
  ReportBench bench(u"QHW");
  bench.device.Set("01", "10", "5:mA SHUNT");
  bench.Choose(u"QHW");
  bench.Page().SetItem(10, u"1:DC V");
  bench.Download();
  EXPECT_EQ(bench.Report().Now(), State::Broken);
  EXPECT_EQ(bench.RowOf(u"01/10").sent, u"1:DC V");
  EXPECT_EQ(bench.RowOf(u"01/10").answered, u"5:mA SHUNT");
  EXPECT_EQ(bench.RowOf(u"01/10").evidence, Evidence::Differs);
  EXPECT_TRUE(bench.RowOf(u"01/10").only_due);
  EXPECT_EQ(bench.Told(), u"Item 01/10 入力種類: 画面は「1:DC V」ですが、変換器は「5:mA SHUNT」です。");
  EXPECT_EQ(bench.Report().FaultSentence(Language::English),
            u"Item 01/10 入力種類: the page has \"1:DC V\", the device \"5:mA SHUNT\".");
}

TEST(TransferReportTest, TellsTwoNumbersThatAreOneItemOnOneLine) {
  ReportBench bench(u"Z8WV2");
  bench.device.Set("01", "14", "2 12");
  bench.Upload();
  const auto read = bench.Report().Rows();
  EXPECT_EQ(
      std::count_if(read.begin(), read.end(), [](const ReportRow& row) { return row.item == u"01/14"; }), 1);
  EXPECT_NE(bench.RowOf(u"01/14").answered.find(u' '), String::npos);
  bench.Type(u"14_0", u"0.5");
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  const auto sent_rows = bench.Report().Rows();
  EXPECT_EQ(std::count_if(sent_rows.begin(), sent_rows.end(),
                          [](const ReportRow& row) { return row.item == u"01/14"; }),
            1);
  EXPECT_EQ(bench.RowOf(u"01/14").sent, u"0.500 12.000");
  EXPECT_EQ(bench.RowOf(u"01/14").evidence, Evidence::Held);
}

TEST(TransferReportTest, TellsOfAUniversalDeviceWhatItsBoxHasNoRoomFor) {
  ReportBench bench(u"QXI");
  bench.Upload();
  bench.Type(u"02", u"TANK-3");
  bench.Break("refused=DTANK-3");
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::ItemDownloadError, {u"Group=01 Item=02", u"NG"}));
  EXPECT_EQ(bench.RowOf(u"01/02").sent, u"TANK-3");
  EXPECT_EQ(bench.RowOf(u"01/02").answered, u"CNG");
  EXPECT_EQ(bench.RowOf(u"01/02").evidence, Evidence::Refused);
}

TEST(TransferReportTest, TellsEachValueOfATableWithItsItem) {
  ReportBench bench(u"QHW");
  bench.device.Set("01", "60", "12.5");
  bench.Upload();
  EXPECT_EQ(bench.RowOf(u"01/60").caption, u"ﾘﾆｱﾗｲｻﾞ");
  EXPECT_EQ(bench.RowOf(u"01/60").answered, u"X(01):   12.50");
  EXPECT_EQ(bench.RowOf(u"01/91").evidence, Evidence::Read);
}

TEST(TransferReportTest, TellsTheBytesThatGoIntoADevicesMemoryAndHowTheyWereReadBack) {
  ReportBench bench(u"Z2WV");
  bench.Upload();
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  const auto& rows = bench.Report().Rows();
  const auto stamped = std::find_if(rows.begin(), rows.end(), [](const ReportRow& row) {
    return row.item == u"99/10 74" && !row.sent.empty();
  });
  ASSERT_NE(stamped, rows.end());
  EXPECT_EQ(stamped->caption, u"EEPROM");
  EXPECT_EQ(stamped->sent.size(), 4U);  // the year in two bytes
  EXPECT_EQ(stamped->answered, stamped->sent);
  EXPECT_EQ(stamped->evidence, Evidence::ReadBack);
  EXPECT_EQ(
      std::count_if(rows.begin(), rows.end(), [](const ReportRow& row) { return row.item == u"99/10 74"; }),
      1);
}

TEST(TransferReportTest, TellsTheByteAtWhichTheWorkOnADevicesMemoryFailed) {
  ReportBench bench(u"Z2WV");
  bench.Upload();
  bench.Break("stuck-byte");
  bench.Download();
  EXPECT_EQ(bench.Report().Now(), State::Broken);
  // The high byte of the year stays what it was, the month doesn't.
  EXPECT_TRUE(bench.Told().starts_with(u"Item 99/10 73 EEPROM: 「")) << ToUtf8(bench.Told());
}

TEST(TransferReportTest, TellsADeviceOfAnotherModel) {
  ReportBench bench(u"Z2WV");
  bench.Choose(u"Z2WT");
  bench.Upload();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::ModelMismatch));
  EXPECT_EQ(bench.RowOf(u"00/01").sent, u"Z2WT");
  EXPECT_TRUE(bench.RowOf(u"00/01").answered.starts_with(u"Z2WV"));
  EXPECT_EQ(bench.RowOf(u"00/01").evidence, Evidence::Differs);
}

TEST(TransferReportTest, TellsATableThatTravelsByItsOwnButtons) {
  ReportBench bench(u"Z2WPR");
  bench.Upload();
  auto& linearizer = Part<Linearizer>(bench.Page());
  bench.Press(linearizer.Opt_Lnr, 1);
  bench.Click(ButtonOf(bench.Page(), "cmdReadOutTable"));
  EXPECT_EQ(bench.Report().Kind(), Transfer::TableRead);
  EXPECT_EQ(bench.Report().Now(), State::Done);
  EXPECT_EQ(bench.RowOf(u"01/60").evidence, Evidence::Read);
  EXPECT_EQ(bench.RowOf(u"01/91").evidence, Evidence::Read);
}

TEST(TransferReportTest, TellsTheKeysOfAUsersTable) {
  ReportBench bench(u"Z8WT2");
  bench.device.Set("01", "10", "13 User's TC");
  bench.Upload();
  bench.Click(ButtonOf(bench.Page(), "cmdReadOutTable"));
  EXPECT_EQ(bench.Report().Kind(), Transfer::TableRead);
  EXPECT_EQ(bench.RowOf(u"01/60 P").evidence, Evidence::Read);
  EXPECT_EQ(bench.RowOf(u"01/60 T0").evidence, Evidence::Read);
}

}  // namespace
}  // namespace korva::test
