#include "companions/report_writer.h"

#include "companions/row_value.h"

namespace korva {

namespace {

bool SameItem(const ParameterPage& page, int one, int other) {
  const WireItem item = page.WireOf(one);
  const WireItem another = page.WireOf(other);
  return item.group == another.group && item.item == another.item;
}

/// The name of the item that travels with a row. Several rows may show parts of one item.
String NameOfItem(const ParameterPage& page, int carrier) {
  String name = CaptionOf(page, carrier);
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    const String part = SameItem(page, row, carrier) && !page.IsLive(row) ? CaptionOf(page, row) : String();
    if (name.find(part) == String::npos) {
      name += u" / " + part;
    }
  }
  return name;
}

}  // namespace

ReportWriter::ReportWriter(ParameterPage& page, TransferReport& report, ReportPanel& panel)
    : page_(page), report_(report), panel_(panel) {
  page_.Transfers = this;
  page_.PutIntoStatus(cmdReport);
  cmdReport.OnClick = [this] { panel_.Open(); };
}

void ReportWriter::SetCaptions(Language language) {
  language_ = language;
  names_.clear();
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
               .skip = step.skip,
               .only_due = step.only_due});
  if (IsFailure(step.evidence)) {
    page_.Notes.Tell(Notice::Transfer, report_.FaultSentence(language_));
  }
}

void ReportWriter::TransferEnded(bool good) { report_.End(good); }

String ReportWriter::NameOf(const TransferStep& step) {
  if (step.what || step.row < 0) {
    return step.what ? CaptionText(*step.what, language_) : String();
  }
  names_.resize(static_cast<std::size_t>(page_.Def.Data().Rows()));
  String& name = names_.at(static_cast<std::size_t>(step.row));
  if (name.empty()) {
    name = NameOfItem(page_, step.row);
  }
  if (name.empty()) {
    name = CaptionText(TextKey::DeviceSystem, language_);  // the one item that has no place on the page
  }
  return name;
}

}  // namespace korva
