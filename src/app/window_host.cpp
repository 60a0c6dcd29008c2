#include "app/window_host.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QTranslator>

#include "app/accessible.h"
#include "app/app_style.h"
#include "app/text.h"
#include "print/fonts.h"

namespace korva {

namespace {

constexpr QSize kUsualSize(1180, 740);

/// What the window's frame takes of the screen.
QSize FrameSize(const QStyle& style) {
  const int border = style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  return {2 * border, style.pixelMetric(QStyle::PM_TitleBarHeight) + border};
}

/// The texts of Qt's own dialogs and menus.
void LoadTranslation() {
  auto* translator = new QTranslator(QCoreApplication::instance());
  const QString name = QStringLiteral("qtbase_ja");
  const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
  if (translator->load(name, beside) ||
      translator->load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  }
}

}  // namespace

void PrepareLook() {
  QApplication::setStyle(new AppStyle);
  PrepareAccessibility();
  QFont font = QApplication::font();
  font.setFamilies(FontFamilies());
  QApplication::setFont(font);
  LoadTranslation();
}

WindowHost::WindowHost(const ProgramHome& home, Dialogs* dialogs)
    : port_(loop_.Gate(), home.own),
      dialogs_(loop_.Gate()),
      records_(loop_.Gate()),
      paper_(loop_.Gate()),
      application_({.loop = loop_,
                    .port = port_,
                    .dialogs = dialogs != nullptr ? *dialogs : dialogs_,
                    .files = files_,
                    .code_page = code_page_},
                   {.installed = home.installed.u16string(), .own = home.own.u16string()}),
      window_(application_) {
  dialogs_.SetParent(&window_);
  records_.SetParent(&window_);
  application_.companions.ValuesInLarge().RecordTo(records_);
  paper_.SetParent(&window_);
  application_.companions.UsePaper(paper_);
  // Who dropped it waits until it is taken, and must not wait for what the opening asks.
  window_.OnFileDropped([this](const QString& path, const Button& button) {
    QTimer::singleShot(0, &window_, [this, path, &button] { OpenDropped(path, button); });
  });
}

void WindowHost::OpenDropped(const QString& path, const Button& button) {
  if (Running().Showing()->WhyRefused(button).empty()) {
    loop_.Gate().Enter(
        [&] { dialogs_.WithFile(FromQt(QDir::toNativeSeparators(path)), [&button] { button.Click(); }); });
  }
}

bool WindowHost::Start() {
  application_.program.OnEnded([this](int status) {
    window_.hide();
    loop_.Exit(status);
  });
  application_.program.Start();
  if (loop_.Gate().Ended()) {
    return false;
  }
  ShowWindow();
  return true;
}

void WindowHost::Open(const QString& path) {
  loop_.Gate().Enter(
      [&] { application_.program.Showing()->OpenFile(FromQt(QDir::toNativeSeparators(path))); });
}

void WindowHost::ShowWindow() {
  const QSize room = window_.screen()->availableSize() - FrameSize(*window_.style());
  window_.resize(kUsualSize.boundedTo(room));
  if (window_.size() == kUsualSize) {
    window_.show();
  } else {
    window_.showMaximized();
  }
}

}  // namespace korva
