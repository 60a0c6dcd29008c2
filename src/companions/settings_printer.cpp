#include "companions/settings_printer.h"

#include "companions/settings_report.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "transfer/upload.h"

namespace korva {

SettingsPrinter::SettingsPrinter(ParameterPage& page, Paper& paper) : page_(page), paper_(paper) {
  page_.PutIntoStatus(cmdPdf);
  cmdPdf.OnClick = [this] { SavePdf(); };
  if (paper_.CanPrint()) {
    page_.PutIntoStatus(cmdPrint);
    cmdPrint.OnClick = [this] { Print(); };
  }
}

void SettingsPrinter::SetCaptions(Language language) {
  cmdPdf.SetCaption(CaptionText(TextKey::SavePdf, language));
  cmdPrint.SetCaption(CaptionText(TextKey::Print, language));
}

// A dialog inside an operation would hold it up.
void SettingsPrinter::SetExchangesBarred(bool barred) {
  cmdPdf.SetEnabled(!barred);
  cmdPrint.SetEnabled(!barred);
}

void SettingsPrinter::PageCleared() {
  in_file_ = false;
  page_.Notes.Tell(Notice::Pdf, {});
}

void SettingsPrinter::FieldChanged(int row) {
  // A live value is no edit.
  in_file_ = in_file_ && page_.IsLive(row);
}

Document SettingsPrinter::Report() {
  const bool told = in_file_ && !page_.DataChanged;
  return SettingsReport(page_, told ? page_.Shared().CfgFilePath : String());
}

String SettingsPrinter::Write(const String& path) {
  String why;
  const std::optional<std::string> bytes = paper_.PdfOf(Report(), why);
  if (!bytes) {
    return why;
  }
  SystemReason reason;
  const bool written = page_.ItsProgram().Surroundings().files.Replace(path, *bytes, reason);
  return written ? String() : ReasonText(reason, page_.CaptionLanguage());
}

void SettingsPrinter::SavePdf() {
  if (page_.OperationRuns() || !ModelChosen(page_)) {
    return;
  }
  const std::optional<String> path = page_.ItsProgram().Surroundings().dialogs.ChooseFile(
      {.save = true, .start_folder = Folder(), .filter = PdfFilter(), .name = page_.ProposedName(u".pdf")});
  if (path) {
    SavePdfAs(*path);
  }
}

String SettingsPrinter::SavePdfAs(const String& path) {
  String why = Write(path);
  page_.Notes.Tell(Notice::Pdf, why.empty() ? Filled(page_.Words(TextKey::PdfSaved), {path})
                                            : Filled(page_.Words(TextKey::PdfNotSaved), {why}));
  return why;
}

void SettingsPrinter::Print() {
  if (!page_.OperationRuns() && ModelChosen(page_)) {
    page_.Notes.Tell(Notice::Pdf, paper_.Print(Report()));
  }
}

}  // namespace korva
