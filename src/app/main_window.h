#pragma once

#include <QBasicTimer>
#include <QMainWindow>
#include <QStackedWidget>
#include <functional>

#include "app/modal_view.h"
#include "app/page_view.h"
#include "pages/application.h"

namespace korva {

/// The one window: shows the page that is in front. Its close box is the page's.
class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(Application& application);
  /// The showing page's view; nullptr before the program has started.
  [[nodiscard]] PageView* Current() const;
  /// The system wants the program to end: presses the close box, as soon as a user could. A box or dialog
  /// that stands in the way is closed, and what is under way on the device is awaited.
  void RequestEnd();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void ShowPage(Page& page);
  void DropPage(Page& page);
  /// Shows or hides the small window over the page. Each is made once.
  void ShowModal(const ModalWindow& window, bool open);
  /// Makes the panel's window when it opens for the first time; it follows the panel then.
  void ShowPanel(Panel& panel);
  [[nodiscard]] PageView* ViewOf(const Page& page) const;

  Application& application_;
  QStackedWidget* pages_;
  QBasicTimer end_request_;  ///< ticks while the program is wanted to end
};

}  // namespace korva
