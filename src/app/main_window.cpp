#include "app/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include "app/panel_view.h"
#include "app/text.h"
#include "app/watch_view.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kEndRequestPeriod = 100;  // ms

/// The one file of this machine that is dragged; empty for anything else.
QString DroppedFile(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}

}  // namespace

MainWindow::MainWindow(Application& application)
    : application_(application), pages_(new QStackedWidget(this)) {
  setWindowTitle(QStringLiteral("KORVA"));
  setCentralWidget(pages_);
  setAcceptDrops(true);
  application_.program.OnPageShown([this](Page& page) { ShowPage(page); });
  application_.program.OnPageUnloaded([this](Page& page) { DropPage(page); });
  application_.program.Window().Observe(
      [this](const ModalWindow& window, bool open) { ShowModal(window, open); });
  application_.companions.FollowLine(application_.link.line);
  for (Panel* panel : application_.companions.Panels()) {
    MakeWhenOpened<PanelView>(*panel);
  }
  MakeWhenOpened<WatchView>(application_.companions.ValuesInLarge());
}

template <typename View, typename Window>
void MainWindow::MakeWhenOpened(Window& window) {
  window.Observe([this, &window] {
    if (window.Visible() && findChild<SideView*>(QString::fromStdString(window.Name())) == nullptr) {
      new View(window, application_.program.Loop().Gate(), this);
    }
  });
}

PageView* MainWindow::Current() const { return static_cast<PageView*>(pages_->currentWidget()); }

PageView* MainWindow::ViewOf(const Page& page) const {
  for (int index = 0; index < pages_->count(); ++index) {
    auto* view = static_cast<PageView*>(pages_->widget(index));
    if (&view->Shown() == &page) {
      return view;
    }
  }
  return nullptr;
}

void MainWindow::ShowPage(Page& page) {
  PageView* view = ViewOf(page);
  if (view == nullptr) {
    view = new PageView(page, application_.program.Loop().Gate(), pages_);
    view->SetPortTips([this](int number) { return ToQt(application_.link.line.DeviceName(number)); });
    pages_->addWidget(view);
    page.lst_TypeSelect.Observe([this, &page] {
      const QString model = ToQt(page.lst_TypeSelect.Text());
      setWindowTitle(model.isEmpty() ? QStringLiteral("KORVA") : model + QStringLiteral(" - KORVA"));
    });
  }
  if (const PageView* former = Current(); former != view) {
    view->TakeSearch(*former);
  }
  const QWidget* focus = pages_->isAncestorOf(focusWidget()) ? focusWidget() : nullptr;
  const bool first = Current() == view && focusWidget() == nullptr;
  pages_->setCurrentWidget(view);
  if (first) {
    page.lst_TypeSelect.SetFocus();  // though the finder stands above it
  }
  // The keyboard stays where it was on the former page.
  auto* same = focus == nullptr ? nullptr : view->findChild<QWidget*>(focus->objectName());
  if (same != nullptr && !focus->objectName().isEmpty()) {
    same->setFocus();
  }
}

void MainWindow::DropPage(Page& page) {
  qDeleteAll(findChildren<ModalView*>());  // one may be a window of this page
  delete ViewOf(page);
}

void MainWindow::ShowModal(const ModalWindow& window, bool open) {
  auto* view = findChild<ModalView*>(QString::fromStdString(window.Name()));
  if (view == nullptr) {
    view = new ModalView(window, application_.program, this);
  }
  view->setVisible(open);
}

const Button* MainWindow::OpenerOf(const QString& path) const {
  const Page* page = application_.program.Showing();
  const QString suffix = QFileInfo(path).suffix().toLower();
  const char* name = suffix == QLatin1String("cfg")   ? "cmdOpen"
                     : suffix == QLatin1String("csv") ? "cmd_csvFileOpen"
                                                      : nullptr;
  if (page == nullptr || name == nullptr) {
    return nullptr;
  }
  const auto* button = dynamic_cast<const Button*>(page->FindControl(name));
  return button != nullptr && page->WhyRefused(*button).empty() ? button : nullptr;
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (OpenerOf(DroppedFile(*event->mimeData())) != nullptr) {
    event->acceptProposedAction();
  }
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QString path = DroppedFile(*event->mimeData());
  if (const Button* button = OpenerOf(path); button != nullptr && open_dropped_) {
    event->acceptProposedAction();
    open_dropped_(path, *button);
  }
}

void MainWindow::RequestEnd() { end_request_.start(0, this); }

void MainWindow::timerEvent(QTimerEvent* /*event*/) {
  end_request_.start(kEndRequestPeriod, this);
  if (QWidget* box = QApplication::activeModalWidget()) {
    box->close();
    return;
  }
  const bool busy = application_.program.Shared().CommBusy;
  if (!busy) {
    end_request_.stop();
  }
  if (!busy || !application_.program.Shared().QuitRequested) {
    close();
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  EventGate& gate = application_.program.Loop().Gate();
  if (!gate.Ended()) {
    application_.program.PressClose();
  }
  event->setAccepted(gate.Ended());
}

}  // namespace korva
