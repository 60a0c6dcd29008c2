#include "app/qt_paper.h"

#include <QPrintDialog>
#include <QPrinter>

#include "app/text.h"
#include "core/texts.h"
#include "print/pages.h"

namespace korva {

namespace {

constexpr int kPrinterResolution = 600;  // dots an inch

}  // namespace

std::optional<std::string> QtPaper::PdfOf(const Document& document, String& why) {
  std::string bytes = PdfBytes(document);
  if (bytes.empty()) {
    why = CaptionText(TextKey::NotDrawn);
    return std::nullopt;
  }
  return bytes;
}

String QtPaper::Print(const Document& document) {
  QPrinter printer;
  printer.setResolution(kPrinterResolution);
  printer.setDocName(ToQt(document.header).simplified());
  printer.setPageSize(QPageSize(QPageSize::A4));
  QPrintDialog dialog(&printer, parent_);
  const bool chosen = dialog.exec() == QDialog::Accepted;
  gate_.RaiseIfEnded();
  return !chosen || DrawPages(document, printer) ? String() : CaptionText(TextKey::NotPrinted);
}

}  // namespace korva
