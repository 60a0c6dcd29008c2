#pragma once

#include <QMainWindow>
#include <QStackedWidget>
#include <functional>

#include "app/page_view.h"
#include "pages/application.h"

namespace korva {

/// The one window: shows the page that is in front. Its close box is the page's.
class MainWindow : public QMainWindow {
 public:
  explicit MainWindow(Application& application);
  /// The showing page's view; nullptr before the program has started.
  [[nodiscard]] PageView* Current() const;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void ShowPage(Page& page);
  void DropPage(Page& page);
  [[nodiscard]] PageView* ViewOf(const Page& page) const;

  Application& application_;
  QStackedWidget* pages_;
};

}  // namespace korva
