// korva: the configurator in its window.

#include <QApplication>
#include <QCommandLineParser>

#include "app/text.h"
#include "app/window_host.h"
#include "platform/native/process.h"
#include "platform/qt/end_signals.h"
#include "platform/qt/program_folder.h"

// An exception here means a broken installation of Qt; ending the process is all that can be done about it.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
  korva::PrepareProcess();
  korva::QtEventLoop::ChooseDispatcher();
  const QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("KORVA"));
  QCommandLineParser arguments;
  arguments.setApplicationDescription(
      QStringLiteral("Configures industrial signal conditioners and transmitters over a serial port."));
  arguments.addHelpOption();
  const QCommandLineOption home(QStringLiteral("home"),
                                QStringLiteral("The program's folder, in which system, data and ports lie "
                                               "(default: the folder of the executable)."),
                                QStringLiteral("DIR"));
  arguments.addOption(home);
  arguments.process(application);

  korva::PrepareLook();
  const std::filesystem::path folder = arguments.isSet(home)
                                           ? std::filesystem::path(korva::FromQt(arguments.value(home)))
                                           : korva::ProgramFolder();
  korva::WindowHost host(folder);
  const korva::EndSignals end_signals([&host] { host.Window().RequestEnd(); });
  host.Start();
  return host.Run();
}
