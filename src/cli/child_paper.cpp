#include "cli/child_paper.h"

#include <QProcess>

namespace korva::cli {

namespace {

constexpr int kLongest = 60000;  // ms

/// Why the program gave no file: its own words, else the system's.
QString Complaint(QProcess& program) {
  const QString words = QString::fromUtf8(program.readAllStandardError()).trimmed();
  return words.isEmpty() ? program.program() + QStringLiteral(": ") + program.errorString() : words;
}

}  // namespace

std::optional<std::string> ChildPaper::PdfOf(const Document& document, String& why) {
  const std::string plain = PlainForm(document);
  QProcess child;
  child.start(QString::fromStdU16String(program_.u16string()), {});
  child.write(plain.data(), static_cast<qint64>(plain.size()));
  child.closeWriteChannel();
  const bool ended = child.waitForFinished(kLongest);
  if (ended && child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0) {
    return child.readAllStandardOutput().toStdString();
  }
  why = Complaint(child).toStdU16String();
  child.kill();
  child.waitForFinished();
  return std::nullopt;
}

}  // namespace korva::cli
