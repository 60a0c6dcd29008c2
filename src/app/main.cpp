// korva: the configurator in its window.

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QFontDatabase>
#include <QIcon>
#include <QMessageBox>
#include <iostream>

#include "app/text.h"
#include "app/window_host.h"
#include "platform/native/process.h"
#include "platform/qt/end_signals.h"
#include "platform/qt/program_home.h"
#include "print/fonts.h"

namespace {

struct CommandLine {
  CommandLine() {
    parser.setApplicationDescription(
        QStringLiteral("Configures industrial signal conditioners and transmitters over a serial port."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption(home);
    parser.addPositionalArgument(QStringLiteral("FILE.cfg"), QStringLiteral("Configuration file to open."),
                                 QStringLiteral("[FILE.cfg]"));
  }
  QCommandLineOption home{QStringLiteral("home"),
                          QStringLiteral("The program's folder, in which system, data and ports lie "
                                         "(default: the folder of the executable; where KORVA is installed, "
                                         "korva in $XDG_DATA_HOME, which is ~/.local/share unless set)."),
                          QStringLiteral("DIR")};
  QCommandLineParser parser;
};

/// Answers --version and --help, for which no display is needed, and ends the process then.
void AnswerWithoutWindow(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  CommandLine arguments;
  arguments.parser.parse(QCoreApplication::arguments());  // what is wrong with it is told later
  if (arguments.parser.isSet(QStringLiteral("version"))) {
    arguments.parser.showVersion();
  }
  if (arguments.parser.isSet(QStringLiteral("help"))) {
    arguments.parser.showHelp();
  }
}

void TellMissingFont(QWidget* parent) {
  const QString text = korva::MissingFontText(QFontDatabase::families(QFontDatabase::Japanese));
  if (!text.isEmpty()) {
    std::cerr << "korva: " << text.toStdString() << '\n';
    QMessageBox::warning(parent, QStringLiteral("KORVA"), text);
  }
}

}  // namespace

// An exception here means a broken installation of Qt; ending the process is all that can be done about it.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
  korva::PrepareProcess();
  QCoreApplication::setApplicationName(QStringLiteral("KORVA"));
  QCoreApplication::setApplicationVersion(QStringLiteral(KORVA_VERSION));
  AnswerWithoutWindow(argc, argv);

  korva::QtEventLoop::ChooseDispatcher();
  const QApplication application(argc, argv);
  CommandLine arguments;
  arguments.parser.process(application);
  if (arguments.parser.positionalArguments().size() > 1) {
    std::cerr << "korva: only one file can be opened\n";
    return 2;
  }
  // By these the desktop knows whose window it is, and draws the icon that is installed.
  QGuiApplication::setDesktopFileName(QStringLiteral("korva"));
  QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("korva")));
  korva::PrepareLook();
  korva::WindowHost host(korva::TakeHome(korva::FromQt(arguments.parser.value(arguments.home))));
  const korva::EndSignals end_signals([&host] { host.Window().RequestEnd(); });
  if (host.Start()) {
    TellMissingFont(&host.Window());
    for (const QString& file : arguments.parser.positionalArguments()) {
      host.Open(QFileInfo(file).absoluteFilePath());
    }
  }
  return host.Run();
}
