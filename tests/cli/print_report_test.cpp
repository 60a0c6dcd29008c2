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
  report.End(false);
  EXPECT_EQ(Printed(report), (Lines{"report download \"QHW\" broken",
                                    "report 01/10 \"入力種類\" sent \"1\" answered \"1:DC V\" compared",
                                    "report 01/17 \"ｽﾊﾟﾝ微調整\" sent \"\" answered \"\" skipped needless",
                                    "report 01/19 \"a \\\"b\\\"\" sent \"5\" answered \"\" silent"}));
}

}  // namespace
}  // namespace korva::cli::test
