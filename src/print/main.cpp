// korva-pdf: draws a document that stands in its plain form on standard input, as a PDF file on standard
// output. The programs without a window start it, so that they need nothing that draws.
#include <QFontDatabase>
#include <QGuiApplication>
#include <iostream>
#include <iterator>

#include "platform/native/process.h"
#include "print/fonts.h"
#include "print/pages.h"

namespace {

int Fail(const std::string& why) {
  std::cerr << why << '\n';
  return 1;
}

}  // namespace

// An exception here means a broken installation of Qt; ending the process is all that can be done about it.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
  korva::PrepareProcess();
  const std::string plain((std::istreambuf_iterator<char>(std::cin)), std::istreambuf_iterator<char>());
  const std::optional<korva::Document> document = korva::DocumentOf(plain);
  if (!document) {
    return Fail("korva-pdf: standard input holds no document");
  }
  // What it says is shown to a user, who asked for no opinion of Qt on his surroundings.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QString no_font = korva::MissingFontText(QFontDatabase::families(QFontDatabase::Japanese));
  if (!no_font.isEmpty()) {
    return Fail(no_font.toStdString());
  }
  const std::string pdf = korva::PdfBytes(*document);
  std::cout << pdf << std::flush;
  return !pdf.empty() && std::cout ? 0 : Fail("korva-pdf: the document can't be drawn");
}
