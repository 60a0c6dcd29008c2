#include "companions/report_writer.h"

namespace korva {

ReportWriter::ReportWriter(ParameterPage& page, TransferReport& report, ReportPanel& panel)
    : page_(page), report_(report), panel_(panel) {
  page_.Transfers = this;
  page_.PutIntoStatus(cmdReport);
  cmdReport.OnClick = [this] { panel_.Open(); };
}

void ReportWriter::SetCaptions(Language language) {
  language_ = language;
  cmdReport.SetCaption(CaptionText(TextKey::Report, language));
  panel_.SetLanguage(language);
}

void ReportWriter::TransferBegan(Transfer transfer) {
  page_.Notes.Tell(Notice::Transfer, {});
  report_.Begin(transfer, page_.lst_TypeSelect.Text());
}

void ReportWriter::StepDone(const TransferStep& step) {
  if (report_.Now() != TransferReport::State::Running) {
    return;
  }
  report_.Add({.item = step.item.group + u"/" + step.item.item + (step.part.empty() ? u"" : u" ") + step.part,
               .caption = NameOf(step),
               .sent = step.sent,
               .answered = step.answered,
               .evidence = step.evidence,
               .skip = step.skip});
  if (IsFailure(step.evidence)) {
    page_.Notes.Tell(Notice::Transfer, report_.FaultSentence(language_));
  }
}

void ReportWriter::TransferEnded(bool good) { report_.End(good); }

String ReportWriter::NameOf(const TransferStep& step) const {
  return step.what ? CaptionText(*step.what, language_)
                   : (step.row < 0 ? String() : page_.DataCell(step.row, kCaption));
}

}  // namespace korva
