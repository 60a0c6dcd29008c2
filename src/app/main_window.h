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
  /// `open` opens a file that was dropped on the window by a press of `button`, which asks for one.
  void OnFileDropped(std::function<void(const QString& path, const Button& button)> open) {
    open_dropped_ = std::move(open);
  }
  /// The system wants the program to end: presses the close box, as soon as a user could. A box or dialog
  /// that stands in the way is closed, and what is under way on the device is awaited.
  void RequestEnd();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void ShowPage(Page& page);
  void DropPage(Page& page);
  /// Shows or hides the small window over the page. Each is made once.
  void ShowModal(const ModalWindow& window, bool open);
  /// Makes a window beside the page, a View of it, when it opens for the first time, and follows it then.
  template <typename View, typename Window>
  void MakeWhenOpened(Window& window);
  /// The button of the showing page that opens a file of this kind, while it can be pressed.
  [[nodiscard]] const Button* OpenerOf(const QString& path) const;
  [[nodiscard]] PageView* ViewOf(const Page& page) const;

  Application& application_;
  QStackedWidget* pages_;
  std::function<void(const QString& path, const Button& button)> open_dropped_;
  QBasicTimer end_request_;  ///< ticks while the program is wanted to end
};

}  // namespace korva
