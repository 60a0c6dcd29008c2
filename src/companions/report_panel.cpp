#include "companions/report_panel.h"

#include "core/text_utilities.h"

namespace korva {

namespace {

TextKey TextOf(TransferReport::State state) {
  switch (state) {
    case TransferReport::State::Running:
      return TextKey::ReportRuns;
    case TransferReport::State::Done:
      return TextKey::ReportDone;
    case TransferReport::State::Broken:
      return TextKey::ReportBroken;
    case TransferReport::State::Unbegun:
      break;
  }
  return TextKey::ReportUnbegun;
}

TextKey HeadOf(Transfer transfer) {
  switch (transfer) {
    case Transfer::Upload:
      return TextKey::ReportOfUpload;
    case Transfer::Download:
      return TextKey::ReportOfDownload;
    case Transfer::TableRead:
      return TextKey::ReportOfTableRead;
    case Transfer::TableWrite:
      break;
  }
  return TextKey::ReportOfTableWrite;
}

}  // namespace

ReportPanel::ReportPanel(TransferReport& report) : Panel("pnlReport"), report_(report) {
  report.Observe([this] { Changed(); });
}

String ReportPanel::Heading() const {
  const String& state = CaptionText(TextOf(report_.Now()), ItsLanguage());
  if (report_.Now() == TransferReport::State::Unbegun) {
    return state;
  }
  const String head = Filled(CaptionText(HeadOf(report_.Kind()), ItsLanguage()), {report_.Model()});
  const String fault = report_.FaultSentence(ItsLanguage());
  return head + state + (fault.empty() ? u"" : u"\n") + fault;
}

std::vector<String> ReportPanel::Heads() const {
  return {Words(TextKey::ReportItem), Words(TextKey::ReportCaption), Words(TextKey::ReportSent),
          Words(TextKey::ReportAnswered), Words(TextKey::ReportProof)};
}

std::vector<String> ReportPanel::Cells(int row) const {
  const ReportRow& line = report_.Rows().at(static_cast<std::size_t>(row));
  const bool due = line.only_due && !line.sent.empty();
  return {line.item, line.caption, due ? u"(" + line.sent + u")" : line.sent, line.answered,
          EvidenceText(line, ItsLanguage())};
}

Look ReportPanel::LookOf(int row) const {
  return IsFailure(report_.Rows().at(static_cast<std::size_t>(row)).evidence) ? Look::Highlight
                                                                              : Look::Normal;
}

}  // namespace korva
