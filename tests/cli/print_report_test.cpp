#include "cli/print_report.h"

#include <gtest/gtest.h>

#include "script_bench.h"

namespace korva::cli::test {
namespace {

/// What is printed of a report.
Lines Printed(const TransferReport& report) {
  std::ostringstream printed;
  Transcript transcript(printed, printed);
  PrintReport(report, transcript);
  return TakeLines(printed);
}

TEST(PrintReportTest, TellsThatThereWasNoTransfer) {
  EXPECT_EQ(Printed(TransferReport()), Lines{"report none"});
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("report"), Lines{"report none"});
}

TEST(PrintReportTest, TellsEachStepOnALineOfItsOwn) {
  TransferReport report;
  report.Begin(Transfer::Download, u"QHW");
  report.Add({.item = u"01/10",
              .caption = u"入力種類",
              .sent = u"1",
              .answered = u"1:DC V",
              .evidence = Evidence::Compared});
  report.Add(
      {.item = u"01/17", .caption = u"ｽﾊﾟﾝ微調整", .evidence = Evidence::Skipped, .skip = Skip::Needless});
  EXPECT_EQ(Printed(report).front(), "report download \"QHW\" running");
  report.Add({.item = u"01/19", .caption = u"a \"b\"", .sent = u"5", .evidence = Evidence::Silent});
  report.Add(
      {.item = u"01/20", .caption = u"b", .sent = u"6", .evidence = Evidence::NotReached, .only_due = true});
  report.End(false);
  EXPECT_EQ(Printed(report), (Lines{"report download \"QHW\" broken",
                                    "report 01/10 \"入力種類\" sent \"1\" answered \"1:DC V\" compared",
                                    "report 01/17 \"ｽﾊﾟﾝ微調整\" sent \"\" answered \"\" skipped needless",
                                    "report 01/19 \"a \\\"b\\\"\" sent \"5\" answered \"\" silent",
                                    "report 01/20 \"b\" due \"6\" answered \"\" not-reached"}));
}

TEST(PrintComparisonTest, TellsWithWhatAndHowItWentAndEachDifference) {
  Comparison comparison;
  comparison.Take(Comparison::With::Device, u"QHW", Comparison::Outcome::Complete,
                  {{.item = u"01/14", .caption = u"入力ｾﾞﾛ (0%)", .page = u"1 V", .other = u"2 V"},
                   {.item = u"01/15", .caption = u"b", .page = u"5", .other = u"", .silent = true},
                   {.item = u"01/16", .caption = u"c", .page = u"5", .other = u"ERROR", .untold = true}});
  std::ostringstream printed;
  Transcript transcript(printed, printed);
  PrintComparison(comparison, transcript);
  EXPECT_EQ(TakeLines(printed), (Lines{"compare device \"QHW\" complete 3",
                                       "compare 01/14 \"入力ｾﾞﾛ (0%)\" page \"1 V\" other \"2 V\"",
                                       "compare 01/15 \"b\" page \"5\" other \"\" silent",
                                       "compare 01/16 \"c\" page \"5\" other \"ERROR\" refused"}));
  comparison.Take(Comparison::With::File, u"QHW", Comparison::Outcome::OtherModel, {});
  PrintComparison(comparison, transcript);
  EXPECT_EQ(TakeLines(printed), Lines{"compare file \"QHW\" other-model 0"});
}

}  // namespace
}  // namespace korva::cli::test
