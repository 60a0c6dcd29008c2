#include "app/window_host.h"

#include <QApplication>
#include <QFontDatabase>
#include <QScreen>
#include <QStyle>
#include <QStyleFactory>

#include "app/text.h"
#include "core/texts.h"

namespace korva {

namespace {

constexpr QSize kUsualSize(1180, 740);

/// What the window's frame takes of the screen.
QSize FrameSize(const QStyle& style) {
  const int border = style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  return {2 * border, style.pixelMetric(QStyle::PM_TitleBarHeight) + border};
}

}  // namespace

void PrepareLook() {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  // The system's own font where it is installed, else one that has the same characters.
  QFont font = QApplication::font();
  font.setFamilies({ToQt(String(kFontName)), QStringLiteral("Noto Sans CJK JP"), font.family()});
  QApplication::setFont(font);
}

WindowHost::WindowHost(const std::filesystem::path& folder, Dialogs* dialogs)
    : port_(loop_.Gate(), folder),
      dialogs_(loop_.Gate()),
      application_({.loop = loop_,
                    .port = port_,
                    .dialogs = dialogs != nullptr ? *dialogs : dialogs_,
                    .files = files_,
                    .code_page = code_page_},
                   folder.u16string()),
      window_(application_) {
  dialogs_.SetParent(&window_);
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
