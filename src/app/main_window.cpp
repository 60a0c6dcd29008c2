#include "app/main_window.h"

#include <QApplication>
#include <QCloseEvent>

#include "app/panel_view.h"
#include "app/text.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kEndRequestPeriod = 100;  // ms

}  // namespace

MainWindow::MainWindow(Application& application)
    : application_(application), pages_(new QStackedWidget(this)) {
  setWindowTitle(QStringLiteral("KORVA"));
  setCentralWidget(pages_);
  application_.program.OnPageShown([this](Page& page) { ShowPage(page); });
  application_.program.OnPageUnloaded([this](Page& page) { DropPage(page); });
  application_.program.Window().Observe(
      [this](const ModalWindow& window, bool open) { ShowModal(window, open); });
  for (Panel* panel : application_.companions.Panels()) {
    panel->Observe([this, panel] { ShowPanel(*panel); });
  }
}

void MainWindow::ShowPanel(Panel& panel) {
  if (panel.Visible() && findChild<PanelView*>(QString::fromStdString(panel.Name())) == nullptr) {
    new PanelView(panel, application_.program.Loop().Gate(), this);
  }
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
  pages_->setCurrentWidget(view);
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
