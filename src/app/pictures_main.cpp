// korva-pictures: the window's tabs as pictures, with a configuration file open; needs no display
// (QT_QPA_PLATFORM=offscreen).

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QPixmap>
#include <QTimer>
#include <iostream>
#include <utility>

#include "app/text.h"
#include "app/window_host.h"
#include "core/texts.h"
#include "platform/qt/program_folder.h"

namespace {

void Complain(const QString& text) { std::cerr << text.toStdString() << '\n'; }

/// Answers every dialog that opens a file, saves nothing and shows no box, so that nobody needs to be there.
class PictureDialogs final : public korva::Dialogs {
 public:
  /// The files to open; empty: the dialog is cancelled.
  PictureDialogs(QString configuration, QString table)
      : configuration_(std::move(configuration)), table_(std::move(table)) {}

  korva::Answer ShowBox(const korva::Box& box) override {
    Complain(korva::ToQt(box.text));
    return box.preset;
  }
  std::optional<korva::String> ChooseFile(const korva::FileDialog& dialog) override {
    const QString& file = dialog.filter == korva::CsvFilter() ? table_ : configuration_;
    if (dialog.save || file.isEmpty()) {
      return std::nullopt;
    }
    return korva::FromQt(QDir::current().absoluteFilePath(file));
  }
  void ShowFailure(const korva::String& text) override { Complain(korva::ToQt(text)); }

 private:
  QString configuration_;
  QString table_;
};

QPalette DarkPalette() {
  QPalette palette(QColor(53, 53, 53));
  palette.setColor(QPalette::Base, QColor(35, 35, 35));
  palette.setColor(QPalette::ToolTipBase, QColor(90, 80, 30));
  palette.setColor(QPalette::ToolTipText, Qt::white);
  return palette;
}

/// What the user asked for on the command line.
struct Options {
  QCommandLineOption home{"home", "The program's folder.", "DIR"};
  QCommandLineOption open{"open", "Configuration file to show.", "FILE"};
  QCommandLineOption csv{"csv", "Table that a press of cmd_csvFileOpen opens.", "FILE"};
  QCommandLineOption press{"press", "Button to press first; may be repeated.", "NAME"};
  QCommandLineOption cell{"cell", "Cell of the linearizer table to click; may be repeated.", "ROW,COL"};
  QCommandLineOption monitor{"monitor", "Press cmdMonitorON; take the pictures after MS milliseconds.", "MS"};
  QCommandLineOption out{"out", "Folder for the pictures.", "DIR", "."};
  QCommandLineOption tab{"tab", "Only this tab, from 0.", "N"};
  QCommandLineOption size{"size", "Size of the window in pixels.", "WxH"};
  QCommandLineOption dark{"dark", "With dark system colours."};
};

/// Two numbers with a separator between.
std::optional<std::pair<int, int>> Pair(const QString& text, QChar separator) {
  const QStringList parts = text.split(separator);
  bool first_is_number = false;
  bool second_is_number = false;
  const std::pair pair(parts.value(0).toInt(&first_is_number), parts.value(1).toInt(&second_is_number));
  const bool good = parts.size() == 2 && first_is_number && second_is_number;
  return good ? std::optional(pair) : std::nullopt;
}

/// Presses a button or an option button as far as a user could; false when that can't be done.
bool Press(const korva::Page& page, const QString& name) {
  korva::Control* control = page.FindControl(name.toStdString());
  auto* button = dynamic_cast<korva::Button*>(control);
  auto* option = dynamic_cast<korva::OptionButton*>(control);
  if ((button == nullptr && option == nullptr) || !page.WhyRefused(*control).empty()) {
    Complain(name + QStringLiteral(": no button that can be pressed"));
    return false;
  }
  if (button != nullptr) {
    button->Click();
  } else {
    option->Click();
  }
  return true;
}

bool ClickCell(const korva::Page& page, const QString& text) {
  const auto* const found = dynamic_cast<korva::Grid*>(page.FindControl("LnrFlexGrid"));
  if (found == nullptr) {
    Complain(text + QStringLiteral(": this model has no table"));
    return false;
  }
  const korva::Grid& grid = *found;
  const auto cell = Pair(text, QLatin1Char(','));
  const bool there = cell && cell->first >= 0 && cell->first < grid.Rows() && cell->second >= 0 &&
                     cell->second < grid.Columns();
  if (!there || !page.WhyRefused(grid).empty()) {
    Complain(text + QStringLiteral(": no cell that can be clicked"));
    return false;
  }
  grid.UserClicks(cell->first, cell->second);
  return true;
}

/// Carries out the presses and clicks in the order of the command line.
bool CarryOut(const QCommandLineParser& arguments, const Options& options, const korva::Page& page) {
  QStringList presses = arguments.values(options.press);
  QStringList cells = arguments.values(options.cell);
  for (const QString& option : arguments.optionNames()) {
    if (options.press.names().contains(option) && !Press(page, presses.takeFirst())) {
      return false;
    }
    if (options.cell.names().contains(option) && !ClickCell(page, cells.takeFirst())) {
      return false;
    }
  }
  return true;
}

/// Saves the tabs that can be brought to the front; `only` may name the one that is wanted.
bool SavePictures(korva::MainWindow& window, const QDir& out, const QString& name, const QString& only) {
  korva::PageView* view = window.Current();
  bool saved = false;
  for (int tab = 0; tab < view->Shown().Tabs.Count(); ++tab) {
    if (!view->Shown().Tabs.TabEnabled(tab) || (!only.isEmpty() && only != QString::number(tab))) {
      continue;
    }
    view->ShowTab(tab);
    QCoreApplication::processEvents();
    const QString file = out.filePath(QStringLiteral("%1-%2.png").arg(name).arg(tab));
    if (!window.grab().save(file)) {
      Complain(file + QStringLiteral(": can't be written"));
      return false;
    }
    saved = true;
  }
  if (!saved) {
    Complain(only + QStringLiteral(": no tab that can be shown"));
  }
  return saved;
}

/// The whole run, behind the start of the program: true when the pictures were saved.
bool TakePictures(const QCommandLineParser& arguments, const Options& options, korva::WindowHost& host) {
  const QDir out(arguments.value(options.out));
  QDir().mkpath(out.path());
  const auto save = [&] {
    const QString name = arguments.isSet(options.dark) ? QStringLiteral("dark") : QStringLiteral("tab");
    return SavePictures(host.Window(), out, name, arguments.value(options.tab));
  };
  korva::EventGate& gate = host.Running().Loop().Gate();
  bool done = false;
  gate.Enter([&] {
    const korva::Page& opened = *host.Running().Showing();
    if (arguments.isSet(options.open)) {
      opened.cmdOpen.Click();
    }
    // A configuration of another family brings another page.
    const korva::Page& page = *host.Running().Showing();
    if (!CarryOut(arguments, options, page)) {
      return;
    }
    if (!arguments.isSet(options.monitor)) {
      done = save();
      return;
    }
    QTimer::singleShot(arguments.value(options.monitor).toInt(), [&] {
      done = save();
      Press(page, QStringLiteral("cmdMonitorOFF"));
    });
    done = Press(page, QStringLiteral("cmdMonitorON")) && done;
  });
  return done && !gate.Ended();
}

}  // namespace

// An exception here means a broken installation of Qt; ending the process is all that can be done about it.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
  korva::QtEventLoop::ChooseDispatcher();
  const QApplication application(argc, argv);
  QCommandLineParser arguments;
  arguments.addHelpOption();
  const Options options;
  arguments.addOptions({options.home, options.open, options.csv, options.press, options.cell, options.monitor,
                        options.out, options.tab, options.size, options.dark});
  arguments.process(application);

  korva::PrepareLook();
  if (arguments.isSet(options.dark)) {
    QApplication::setPalette(DarkPalette());
  }
  const QString home = arguments.value(options.home);
  PictureDialogs dialogs(arguments.value(options.open), arguments.value(options.csv));
  korva::WindowHost host(home.isEmpty() ? korva::ProgramFolder() : std::filesystem::path(korva::FromQt(home)),
                         &dialogs);
  if (arguments.isSet(options.size)) {
    const auto size = Pair(arguments.value(options.size), QLatin1Char('x'));
    if (!size) {
      Complain(QStringLiteral("--size needs a width and a height, such as 1180x740"));
      return 1;
    }
    host.Window().resize(size->first, size->second);
  }
  return host.Start() && TakePictures(arguments, options, host) ? 0 : 1;
}
