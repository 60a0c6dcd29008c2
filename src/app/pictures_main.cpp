// korva-pictures: the window's tabs as pictures, with a configuration file open, or a look whether pictures
// that were taken before still show the program; needs no display (QT_QPA_PLATFORM=offscreen).

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QRawFont>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <utility>

#include "app/model_finder.h"
#include "app/text.h"
#include "app/window_host.h"
#include "companions/settings_report.h"
#include "core/texts.h"
#include "platform/native/process.h"
#include "print/contrast.h"
#include "print/sheets.h"

namespace {

void Complain(const QString& text) { std::cerr << text.toStdString() << '\n'; }

/// Answers every dialog that opens a file, saves nothing and shows no box, so that nobody needs to be there.
class PictureDialogs final : public korva::Dialogs {
 public:
  /// The files to open; empty: the dialog is cancelled. Questions are answered by their preset, or with yes.
  PictureDialogs(QString configuration, QString table, bool yes)
      : configuration_(std::move(configuration)), table_(std::move(table)), yes_(yes) {}

  korva::Answer ShowBox(const korva::Box& box) override {
    Complain(korva::ToQt(box.text));
    const bool asks =
        std::find(box.buttons.begin(), box.buttons.end(), korva::Answer::Yes) != box.buttons.end();
    return yes_ && asks ? korva::Answer::Yes : box.preset;
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
  bool yes_;
};

QPalette DarkPalette() {
  QPalette palette(QColor(53, 53, 53));
  palette.setColor(QPalette::Base, QColor(35, 35, 35));
  palette.setColor(QPalette::ToolTipBase, QColor(90, 80, 30));
  palette.setColor(QPalette::ToolTipText, Qt::white);
  for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
    palette.setColor(QPalette::Disabled, text, QColor(127, 127, 127));
  }
  return palette;
}

/// What the user asked for on the command line.
struct Options {
  QCommandLineOption home{"home", "The program's folder.", "DIR"};
  QCommandLineOption open{"open", "Configuration file to show.", "FILE"};
  QCommandLineOption csv{"csv", "Table that a press of cmd_csvFileOpen opens.", "FILE"};
  QCommandLineOption press{"press", "Button to press first; may be repeated.", "NAME"};
  QCommandLineOption yes{"yes", "Answer questions with yes."};
  QCommandLineOption cell{"cell", "Cell of the linearizer table to click; may be repeated.", "ROW,COL"};
  QCommandLineOption type{"type", "Text to type into a field first; may be repeated.", "NAME=TEXT"};
  QCommandLineOption monitor{
      "monitor", "Press --start; take the pictures when the field shows its reading of --readings.", "NAME"};
  QCommandLineOption readings{"readings", "Which reading of the field --monitor waits for, from 1.", "N",
                              "2"};
  QCommandLineOption start{
      "start", "Button that --monitor presses, and at the end again unless it is the ON of the monitor.",
      "NAME", "cmdMonitorON"};
  QCommandLineOption step{"step", "Button to press while --monitor runs, right before the pictures.", "NAME"};
  QCommandLineOption out{"out", "Folder for the pictures.", "DIR", "."};
  QCommandLineOption tab{"tab", "Only this tab, from 0.", "N"};
  QCommandLineOption as{"as", "Name of the picture, with --tab.", "NAME"};
  QCommandLineOption find{"find", "Text for the field above the list of models.", "TEXT"};
  QCommandLineOption panel{"panel", "Take the window of this name, which a press has opened; needs --as.",
                           "NAME"};
  QCommandLineOption apart{
      "apart", "Part of the picture that is not compared, such as times, in pixels; may be repeated.",
      "X,Y,W,H"};
  QCommandLineOption paper{"paper", "Take this page of the report of settings, from 1; needs --as.", "N"};
  QCommandLineOption check{"check", "Save nothing: compare with the pictures in the folder."};
  QCommandLineOption about{"about", "Print what decides how texts are drawn, and end."};
  QCommandLineOption size{"size", "Size of the window in pixels.", "WxH", "1180x740"};
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
  // Of several tables one shows.
  const auto found =
      std::find_if(page.Controls().begin(), page.Controls().end(), [](const korva::Control* control) {
        return control->Visible() && dynamic_cast<const korva::Grid*>(control) != nullptr;
      });
  if (found == page.Controls().end()) {
    Complain(text + QStringLiteral(": this model has no table"));
    return false;
  }
  const auto& grid = dynamic_cast<const korva::Grid&>(**found);
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

bool Type(const korva::Page& page, const QString& text) {
  const qsizetype sign = text.indexOf(QLatin1Char('='));
  auto* field = dynamic_cast<korva::TextField*>(page.FindControl(text.left(sign).toStdString()));
  if (sign < 0 || field == nullptr || !page.WhyRefused(*field).empty()) {
    Complain(text + QStringLiteral(": no field that can be typed into"));
    return false;
  }
  field->UserTypes(korva::FromQt(text.mid(sign + 1)));
  return true;
}

/// Carries out the presses, clicks and texts in the order of the command line.
bool CarryOut(const QCommandLineParser& arguments, const Options& options, const korva::Page& page) {
  QStringList presses = arguments.values(options.press);
  QStringList cells = arguments.values(options.cell);
  QStringList texts = arguments.values(options.type);
  for (const QString& option : arguments.optionNames()) {
    if (options.type.names().contains(option) && !Type(page, texts.takeFirst())) {
      return false;
    }
    if (options.press.names().contains(option) && !Press(page, presses.takeFirst())) {
      return false;
    }
    if (options.cell.names().contains(option) && !ClickCell(page, cells.takeFirst())) {
      return false;
    }
  }
  return true;
}

/// True when the pictures show the same. Machines blend the edges of letters a little differently; a letter
/// or a line that differs has more pixels, and of another colour.
bool ShowSame(const QImage& one, const QImage& other) {
  constexpr int blend = 24;  // of 255, in one of the colours
  constexpr int few_pixels = 10;
  if (one.size() != other.size()) {
    return false;
  }
  int differing = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const QColor a = one.pixelColor(x, y);
      const QColor b = other.pixelColor(x, y);
      const int most = std::max(
          {std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
      differing += most > blend ? 1 : 0;
    }
  }
  return differing <= few_pixels;
}

/// The picture without the parts that are not compared, each a text of four numbers.
QImage WithoutParts(const QImage& picture, const QStringList& parts) {
  QImage rest = picture.convertToFormat(QImage::Format_RGB32);
  for (const QString& part : parts) {
    const QStringList numbers = part.split(QLatin1Char(','));
    const QRect place(numbers.value(0).toInt(), numbers.value(1).toInt(), numbers.value(2).toInt(),
                      numbers.value(3).toInt());
    QPainter(&rest).fillRect(place, Qt::black);
  }
  return rest;
}

/// Saves the picture as a file of this name, or compares it with the one that was saved.
bool Keep(const QImage& picture, const QString& name, const QCommandLineParser& arguments,
          const Options& options) {
  const QString file = QDir(arguments.value(options.out)).filePath(name + QStringLiteral(".png"));
  const QStringList apart = arguments.values(options.apart);
  const bool check = arguments.isSet(options.check);
  const bool good =
      check ? ShowSame(WithoutParts(picture, apart), WithoutParts(QImage(file), apart)) : picture.save(file);
  if (!good) {
    Complain(file + (check ? QStringLiteral(": is not what the program shows")
                           : QStringLiteral(": can't be written")));
  }
  return good;
}

/// Keeps the window beside the page that the command line names.
bool KeepPanel(const QCommandLineParser& arguments, const Options& options, const korva::MainWindow& window) {
  const QString name = arguments.value(options.panel);
  auto* panel = window.findChild<QWidget*>(name);
  if (panel == nullptr || !panel->isVisible() || !arguments.isSet(options.as)) {
    Complain(name + QStringLiteral(": no open window to be kept with --as"));
    return false;
  }
  QCoreApplication::processEvents();
  return Keep(panel->grab().toImage(), arguments.value(options.as), arguments, options);
}

/// Keeps a page of the report of settings that the command line tells.
bool KeepReport(const QCommandLineParser& arguments, const Options& options, korva::Page& page) {
  constexpr QSizeF paper(595, 842);  // A4 in points
  constexpr double margin = 36;
  constexpr double scale = 1.25;
  const korva::Document document =
      korva::SettingsReport(dynamic_cast<korva::ParameterPage&>(page), korva::String());
  const std::vector<korva::Sheet> sheets = korva::SheetsOf(document, paper - QSizeF(2 * margin, 2 * margin));
  const auto number = static_cast<std::size_t>(arguments.value(options.paper).toInt());
  if (number < 1 || number > sheets.size() || !arguments.isSet(options.as)) {
    Complain(arguments.value(options.paper) + QStringLiteral(": no page of the report to be kept with --as"));
    return false;
  }
  QImage picture((paper * scale).toSize(), QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.scale(scale, scale);
  painter.translate(margin, margin);
  korva::DrawSheet(painter, sheets[number - 1]);
  painter.end();
  return Keep(picture, arguments.value(options.as), arguments, options);
}

/// Keeps the tabs that can be brought to the front, as the command line says.
bool KeepPictures(const QCommandLineParser& arguments, const Options& options, korva::MainWindow& window) {
  const QString only = arguments.value(options.tab);
  const QString kind = arguments.isSet(options.dark) ? QStringLiteral("dark") : QStringLiteral("tab");
  korva::PageView* view = window.Current();
  view->findChild<QLineEdit*>(korva::ModelFinder::kName)->setText(arguments.value(options.find));
  int kept = 0;
  bool good = true;
  for (int tab = 0; tab < view->Shown().Tabs.Count() && good; ++tab) {
    if (!view->Shown().Tabs.TabEnabled(tab) || (!only.isEmpty() && only != QString::number(tab))) {
      continue;
    }
    view->ShowTab(tab);
    QCoreApplication::processEvents();
    const QString name = arguments.isSet(options.as) ? arguments.value(options.as)
                                                     : QStringLiteral("%1-%2").arg(kind).arg(tab);
    good = Keep(window.grab().toImage(), name, arguments, options);
    ++kept;
  }
  if (kept == 0) {
    Complain(only + QStringLiteral(": no tab that can be shown"));
  }
  return good && kept > 0;
}

/// What runs while a picture is taken.
struct LiveRun {
  QString start;  ///< the button that begins it
  QString field;  ///< whose reading is waited for
  int reading;    ///< which, from 1: at the second one the other fields have one too
  QString step;   ///< the button that is pressed then; empty: none
  [[nodiscard]] QString Stop() const {
    return start == QStringLiteral("cmdMonitorON") ? QStringLiteral("cmdMonitorOFF") : start;
  }
};

/// Begins the run, has `keep` called while the field shows the reading that is waited for, and ends it. False
/// when the field never came so far.
bool KeepWhileRunning(const korva::Page& page, const LiveRun& run, const std::function<bool()>& keep) {
  korva::Control* const field = page.FindControl(run.field.toStdString());
  if (field == nullptr) {
    Complain(run.field + QStringLiteral(": no such field"));
    return false;
  }
  // The observer stays with the field, behind the end of this.
  const auto good = std::make_shared<bool>(false);
  field->Observe([&page, field, keep, good, run, readings = 0, fresh = false]() mutable {
    const bool was_fresh = std::exchange(fresh, field->ShownLook() == korva::Look::Highlight);
    if (!fresh || was_fresh || ++readings != run.reading) {
      return;
    }
    QTimer::singleShot(0, [&page, keep, good, run] {  // the window draws what it is told behind this
      *good = (run.step.isEmpty() || Press(page, run.step)) && keep();
      Press(page, run.Stop());
    });
  });
  return Press(page, run.start) && *good;
}

/// The whole run, behind the start of the program: true when the pictures were kept.
bool TakePictures(const QCommandLineParser& arguments, const Options& options, korva::WindowHost& host) {
  QDir().mkpath(arguments.value(options.out));
  const auto keep = [&] {
    if (arguments.isSet(options.paper)) {
      return KeepReport(arguments, options, *host.Running().Showing());
    }
    return arguments.isSet(options.panel) ? KeepPanel(arguments, options, host.Window())
                                          : KeepPictures(arguments, options, host.Window());
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
    if (CarryOut(arguments, options, page)) {
      done = arguments.isSet(options.monitor)
                 ? KeepWhileRunning(page,
                                    {.start = arguments.value(options.start),
                                     .field = arguments.value(options.monitor),
                                     .reading = arguments.value(options.readings).toInt(),

                                     .step = arguments.value(options.step)},
                                    keep)
                 : keep();
    }
  });
  return done && !gate.Ended();
}

/// The version of Qt and the font with its revision: with others, letters have other shapes and places.
QString AboutDrawing() {
  const QRawFont font = QRawFont::fromFont(QApplication::font(), QFontDatabase::Japanese);
  const QByteArray revision = font.fontTable("head").mid(4, 4).toHex();
  return QStringLiteral("Qt %1, %2 %3")
      .arg(QString::fromLatin1(qVersion()), font.familyName(), QString::fromLatin1(revision));
}

}  // namespace

// An exception here means a broken installation of Qt; ending the process is all that can be done about it.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
  korva::PrepareProcess();
  korva::QtEventLoop::ChooseDispatcher();
  const QApplication application(argc, argv);
  QCommandLineParser arguments;
  arguments.addHelpOption();
  const Options options;
  arguments.addOptions({options.home,  options.open,    options.csv,      options.press, options.yes,
                        options.cell,  options.monitor, options.readings, options.start, options.step,
                        options.type,  options.out,     options.tab,      options.as,    options.find,
                        options.panel, options.paper,   options.apart,    options.check, options.about,
                        options.size,  options.dark});
  arguments.process(application);

  korva::PrepareLook();
  QApplication::setCursorFlashTime(0);  // a blinking cursor would be in one picture and not in the next
  if (arguments.isSet(options.about)) {
    std::cout << AboutDrawing().toStdString() << '\n';
    return 0;
  }
  if (arguments.isSet(options.dark)) {
    QApplication::setPalette(korva::Readable(DarkPalette().resolve(QApplication::palette())));
  }
  PictureDialogs dialogs(arguments.value(options.open), arguments.value(options.csv),
                         arguments.isSet(options.yes));
  korva::WindowHost host(korva::TakeHome(korva::FromQt(arguments.value(options.home))), &dialogs);
  const auto size = Pair(arguments.value(options.size), QLatin1Char('x'));
  if (!size) {
    Complain(QStringLiteral("--size needs a width and a height, such as 1180x740"));
    return 1;
  }
  if (!host.Start()) {
    return 1;
  }
  host.Window().showNormal();
  host.Window().resize(size->first, size->second);
  return TakePictures(arguments, options, host) ? 0 : 1;
}
