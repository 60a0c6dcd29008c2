#pragma once

#include <QDialog>
#include <functional>
#include <utility>
#include <vector>

#include "app/control_views.h"
#include "core/side_window.h"
#include "core/texts.h"

class QLabel;
class QPushButton;

namespace korva {

/// A window beside the page on the screen: its heading, what a derived class shows, and its buttons.
class SideView : public QDialog {
 public:
  SideView(SideWindow& window, EventGate& gate, QWidget* parent);

 protected:
  /// A button that the window has of its own.
  struct OwnButton {
    TextKey caption;
    const char* name;
    std::function<void()> action;
  };

  /// Puts the window together and shows it; the last thing in a derived class's making. `contents` gets the
  /// keyboard's focus when the window opens; `own` stand behind the control's buttons.
  void Assemble(QWidget* contents, const std::vector<OwnButton>& own = {});
  /// Shows what has changed. Called while the window is open.
  virtual void ShowContents(bool other_heading) = 0;

  void closeEvent(QCloseEvent* event) override;

 private:
  /// What has the keyboard when the window comes to the front.
  [[nodiscard]] QWidget& PlaceOfKeyboard() const;
  void Show();
  QWidget* MakeButtons(const std::vector<OwnButton>& own);
  QPushButton* NewButton(TextKey caption, const char* name);

  SideWindow& window_;
  ControlViews views_;
  QLabel* heading_;
  QWidget* contents_ = nullptr;
  std::vector<std::pair<QPushButton*, TextKey>> own_;  ///< the buttons of its own
};

}  // namespace korva
