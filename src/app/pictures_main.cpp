// korva-pictures: the window's tabs as pictures, with a configuration file open; needs no display
// (QT_QPA_PLATFORM=offscreen).

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QPixmap>
#include <iostream>

#include "app/text.h"
#include "app/window_host.h"
#include "platform/qt/program_folder.h"

namespace {

/// Answers every file dialog with one file and shows no box, so that nobody needs to be there.
class PictureDialogs final : public korva::Dialogs {
 public:
  explicit PictureDialogs(korva::String file) : file_(std::move(file)) {}

  korva::Answer ShowBox(const korva::Box& box) override {
    std::cerr << ToUtf8(box.text) << '\n';
    return box.preset;
  }
  std::optional<korva::String> ChooseFile(const korva::FileDialog& /*dialog*/) override { return file_; }
  void ShowFailure(const korva::String& text) override { std::cerr << ToUtf8(text) << '\n'; }

 private:
  static std::string ToUtf8(const korva::String& text) { return korva::ToQt(text).toStdString(); }

  korva::String file_;
};

QPalette DarkPalette() {
  QPalette palette(QColor(53, 53, 53));
  palette.setColor(QPalette::Base, QColor(35, 35, 35));
  palette.setColor(QPalette::ToolTipBase, QColor(90, 80, 30));
  palette.setColor(QPalette::ToolTipText, Qt::white);
  return palette;
}

bool SavePictures(korva::MainWindow& window, const QDir& out, const QString& name) {
  korva::PageView* view = window.Current();
  bool saved = true;
  for (int tab = 0; tab < view->Shown().Tabs.Count(); ++tab) {
    if (!view->Shown().Tabs.TabEnabled(tab)) {
      continue;
    }
    view->ShowTab(tab);
    QCoreApplication::processEvents();
    const QString file = QStringLiteral("%1-%2.png").arg(name).arg(tab);
    saved = window.grab().save(out.filePath(file)) && saved;
  }
  return saved;
}

}  // namespace

// An exception here means a broken installation of Qt; ending the process is all that can be done about it.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
  korva::QtEventLoop::ChooseDispatcher();
  const QApplication application(argc, argv);
  QCommandLineParser arguments;
  arguments.addHelpOption();
  const QCommandLineOption home(QStringLiteral("home"), QStringLiteral("The program's folder."),
                                QStringLiteral("DIR"));
  const QCommandLineOption open(QStringLiteral("open"), QStringLiteral("Configuration file to show."),
                                QStringLiteral("FILE"));
  const QCommandLineOption out(QStringLiteral("out"), QStringLiteral("Folder for the pictures."),
                               QStringLiteral("DIR"), QStringLiteral("."));
  const QCommandLineOption check(QStringLiteral("check"), QStringLiteral("Check the values first."));
  const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("With dark system colours."));
  arguments.addOptions({home, open, out, check, dark});
  arguments.process(application);

  korva::PrepareLook();
  if (arguments.isSet(dark)) {
    QApplication::setPalette(DarkPalette());
  }
  const std::filesystem::path folder = arguments.isSet(home)
                                           ? std::filesystem::path(korva::FromQt(arguments.value(home)))
                                           : korva::ProgramFolder();
  PictureDialogs dialogs(korva::FromQt(QDir::current().absoluteFilePath(arguments.value(open))));
  korva::WindowHost host(folder, &dialogs);
  if (!host.Start()) {
    return 1;
  }
  korva::EventGate& gate = host.Running().Loop().Gate();
  gate.Enter([&] {
    korva::Page& page = *host.Running().Showing();
    if (arguments.isSet(open)) {
      page.cmdOpen.Click();
    }
    if (arguments.isSet(check)) {
      page.cmdCheck.Click();
    }
  });
  if (gate.Ended()) {
    return 1;
  }
  const QDir folder_out(arguments.value(out));
  QDir().mkpath(folder_out.path());
  return SavePictures(host.Window(), folder_out,
                      arguments.isSet(dark) ? QStringLiteral("dark") : QStringLiteral("tab"))
             ? 0
             : 1;
}
