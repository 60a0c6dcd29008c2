#pragma once

#include "companions/paper.h"
#include "files/parameter_page.h"

namespace korva {

/// Puts the report of the page's settings on paper: a PDF file, or a printer. It asks the device nothing, and
/// changes neither page nor set.
///
/// The report names the configuration file that holds the set: from when it was opened or saved, until
/// something is edited or comes from elsewhere.
class SettingsPrinter final : public PagePart {
 public:
  /// Both outlive this, but for the page, which keeps it.
  SettingsPrinter(ParameterPage& page, Paper& paper);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  void PageCleared() override;
  void FieldChanged(int row) override;
  void ChoiceMade(const Choice& /*choice*/) override { in_file_ = false; }
  void SettleTabs(TabMoment moment) override { in_file_ = moment == TabMoment::FileOpened; }
  void SetCleared() override { in_file_ = false; }
  void UploadBegins() override { in_file_ = false; }
  void SetSaved() override { in_file_ = true; }

  /// cmdPdf: lets the user choose the file.
  void SavePdf();
  /// Writes the report to `path`, and tells in the status area where it stands or why it does not; a former
  /// file of that name stays whole then. Empty when it was written, else why not.
  String SavePdfAs(const String& path);
  void Print();  ///< cmdPrint
  /// Where files of the page are kept unless another folder is named.
  [[nodiscard]] String Folder() const { return page_.txtDirName.Text(); }

  Button cmdPdf{"cmdPdf"};
  Button cmdPrint{"cmdPrint"};

 private:
  [[nodiscard]] Document Report();
  /// Empty when the report stands in the file, else why not.
  String Write(const String& path);

  ParameterPage& page_;
  Paper& paper_;
  bool in_file_ = false;  ///< the set is that of the file with the page's title, but for edits
};

}  // namespace korva
