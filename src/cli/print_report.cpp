#include "cli/print_report.h"

#include <string>
#include <string_view>

#include "core/text_utilities.h"

namespace korva::cli {

namespace {

std::string_view WordOf(Transfer transfer) {
  switch (transfer) {
    case Transfer::Upload:
      return "upload";
    case Transfer::Download:
      return "download";
    case Transfer::TableRead:
      return "table-read";
    case Transfer::TableWrite:
      break;
  }
  return "table-write";
}

std::string_view WordOf(TransferReport::State state) {
  switch (state) {
    case TransferReport::State::Running:
      return "running";
    case TransferReport::State::Done:
      return "done";
    case TransferReport::State::Broken:
      return "broken";
    case TransferReport::State::Unbegun:
      break;
  }
  return "none";
}

std::string_view WordOf(Evidence evidence) {
  switch (evidence) {
    case Evidence::Read:
      return "read";
    case Evidence::Collated:
      return "collated";
    case Evidence::Compared:
      return "compared";
    case Evidence::ReadBack:
      return "read-back";
    case Evidence::Held:
      return "held";
    case Evidence::Echoed:
      return "echoed";
    case Evidence::Skipped:
      return "skipped";
    case Evidence::NotReached:
      return "not-reached";
    case Evidence::Silent:
      return "silent";
    case Evidence::Refused:
      return "refused";
    case Evidence::Differs:
      break;
  }
  return "differs";
}

std::string_view WordOf(Skip skip) {
  switch (skip) {
    case Skip::NoValue:
      return " no-value";
    case Skip::Needless:
      return " needless";
    case Skip::NotOfUse:
      return " not-of-use";
    case Skip::NoCode:
      return " no-code";
    case Skip::None:
      break;
  }
  return {};
}

std::string_view WordOf(Comparison::Outcome outcome) {
  switch (outcome) {
    case Comparison::Outcome::Complete:
      return "complete";
    case Comparison::Outcome::OtherModel:
      return "other-model";
    case Comparison::Outcome::Broken:
      break;
  }
  return "broken";
}

std::string LineOf(const ReportRow& row) {
  const std::string_view sent = row.only_due && !row.sent.empty() ? " due " : " sent ";
  return "report " + ToUtf8(row.item) + " " + Quoted(row.caption) + std::string(sent) + Quoted(row.sent) +
         " answered " + Quoted(row.answered) + " " + std::string(WordOf(row.evidence)) +
         std::string(WordOf(row.skip));
}

}  // namespace

void PrintReport(const TransferReport& report, Transcript& transcript) {
  const std::string state(WordOf(report.Now()));
  if (report.Now() == TransferReport::State::Unbegun) {
    transcript.Tell("report " + state);
    return;
  }
  transcript.Tell("report " + std::string(WordOf(report.Kind())) + " " + Quoted(report.Model()) + " " +
                  state);
  for (const ReportRow& row : report.Rows()) {
    transcript.Tell(LineOf(row));
  }
}

void PrintComparison(const Comparison& comparison, Transcript& transcript) {
  const std::string with = comparison.What() == Comparison::With::File ? "file " : "device ";
  transcript.Tell("compare " + with + Quoted(comparison.Model()) + " " +
                  std::string(WordOf(comparison.Result())) + " " +
                  std::to_string(comparison.Differences().size()));
  for (const Difference& one : comparison.Differences()) {
    transcript.Tell("compare " + ToUtf8(one.item) + " " + Quoted(one.caption) + " page " + Quoted(one.page) +
                    " other " + Quoted(one.other) +
                    (one.silent   ? " silent"
                     : one.untold ? " refused"
                                  : ""));
  }
}

}  // namespace korva::cli
