// What the reports of all models tell is what went over the line.

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "pages/page_bench.h"

namespace korva::test {
namespace {

class ReportOfModel : public testing::TestWithParam<String> {
 protected:
  ReportOfModel() {
    bench.Choose(GetParam());
    bench.TakeTables();
    bench.app.link.line.OnTraffic = [this](const SerialLink::Traffic& traffic) {
      (traffic.sent ? sent : answered).push_back(traffic.text);
    };
  }

  [[nodiscard]] const TransferReport& Report() const { return bench.app.companions.Report; }
  [[nodiscard]] int CountOf(const WireItem& item) const {
    const auto& rows = Report().Rows();
    const String name = item.group + u"/" + item.item;
    return static_cast<int>(std::count_if(rows.begin(), rows.end(), [&](const ReportRow& row) {
      return row.item == name && row.evidence != Evidence::Collated && row.caption != u"ﾓｰﾄﾞ" &&
             row.caption != u"通信ﾃｽﾄ";
    }));
  }
  /// Each answer of the report came over the line, and all that it tells as sent went out as data.
  void ExpectTruth() const {
    EXPECT_EQ(Report().Now(), TransferReport::State::Done);
    EXPECT_EQ(Report().FaultSentence(), u"");
    for (const ReportRow& row : Report().Rows()) {
      SCOPED_TRACE(ToUtf8(row.item));
      EXPECT_TRUE(row.answered.empty() || Came(row.answered)) << ToUtf8(row.answered);
      EXPECT_NE(row.caption, u"");
      EXPECT_EQ(row.only_due, row.evidence == Evidence::Collated);
      const bool told_sent = !row.only_due && !row.sent.empty();
      EXPECT_TRUE(!told_sent || std::find(sent.begin(), sent.end(), u"D" + row.sent) != sent.end())
          << ToUtf8(row.sent);
    }
  }
  [[nodiscard]] bool Came(const String& text) const {
    return std::any_of(answered.begin(), answered.end(), [&](const String& reply) {
      return reply.find(Trimmed(text)) != String::npos || Trimmed(text).empty();
    });
  }

  /// What the report told of an item last.
  [[nodiscard]] ReportRow LastOf(const String& item) const {
    const auto& rows = Report().Rows();
    const auto found =
        std::find_if(rows.rbegin(), rows.rend(), [&](const ReportRow& row) { return row.item == item; });
    return found == rows.rend() ? ReportRow{.item = u"no such row"} : *found;
  }

  PageBench bench;
  sim::Device& device = bench.Connect(GetParam());
  std::vector<String> sent;
  std::vector<String> answered;
};

TEST_P(ReportOfModel, TellsEachItemOfAnUploadOnceAndAsItCame) {
  bench.Upload();
  const ParameterPage& page = bench.Page();
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (page.DataCell(row, kUploaded) == u"Y") {
      EXPECT_EQ(CountOf(page.WireOf(row)), 1) << ToUtf8(page.DataCell(row, kItem));
    }
  }
  ExpectTruth();
}

TEST_P(ReportOfModel, TellsEachItemOfADownloadOnceAndAsItWasSent) {
  bench.Upload();
  sent.clear();
  answered.clear();
  bench.Download();
  const ParameterPage& page = bench.Page();
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (page.IsWritten(row)) {
      EXPECT_EQ(CountOf(page.WireOf(row)), 1) << ToUtf8(page.DataCell(row, kItem));
    }
  }
  ExpectTruth();
}

TEST_P(ReportOfModel, TellsTheItemThatDoesNotAnswerAnUpload) {
  const ParameterPage& page = bench.Page();
  int last = -1;
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (page.DataCell(row, kUploaded) == u"Y" && page.DataCell(row, kGroup) == u"01") {
      last = row;
    }
  }
  ASSERT_GE(last, 0);
  const WireItem item = page.WireOf(last);
  device.AddFault(sim::ParseFault("silent=I" + ToUtf8(item.item)));
  bench.Upload();
  const ReportRow row = LastOf(u"01/" + item.item);
  EXPECT_EQ(row.evidence, Evidence::Silent);
  EXPECT_EQ(row.sent, u"");
  EXPECT_EQ(row.answered, u"");
  EXPECT_NE(row.caption, u"");
  for (const Language language : {Language::Japanese, Language::English}) {
    EXPECT_NE(Report().FaultSentence(language).find(u"Item " + row.item + u" " + row.caption), String::npos);
  }
}

TEST_P(ReportOfModel, TellsTheItemAtWhichADownloadFailedAndWhatWasNotReached) {
  bench.Upload();
  bench.Type(u"02", u"TANK-3");
  device.AddFault(sim::ParseFault("refused=DTANK-3"));
  bench.Download();
  EXPECT_EQ(Report().Now(), TransferReport::State::Broken);
  const ReportRow tag = LastOf(u"01/02");
  EXPECT_EQ(tag.sent, u"TANK-3");
  EXPECT_NE(tag.answered, u"");
  // A device may refuse by answering what it keeps.
  EXPECT_TRUE(tag.evidence == Evidence::Refused || tag.evidence == Evidence::Differs) << ToUtf8(tag.answered);
  EXPECT_FALSE(tag.only_due);
  EXPECT_NE(Report().FaultSentence().find(tag.answered), String::npos);
  bool behind = false;
  for (const ReportRow& row : Report().Rows()) {
    const bool unsent = row.evidence == Evidence::NotReached || row.evidence == Evidence::Skipped;
    EXPECT_TRUE(!behind || unsent || row.caption == u"ﾓｰﾄﾞ") << ToUtf8(row.item);
    behind = behind || row == tag;
  }
}

INSTANTIATE_TEST_SUITE_P(Each, ReportOfModel, testing::ValuesIn(AllModels()),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

}  // namespace
}  // namespace korva::test
