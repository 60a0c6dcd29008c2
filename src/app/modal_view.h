#pragma once

#include <QDialog>

#include "app/control_views.h"
#include "core/program.h"

namespace korva {

/// A small window over the page on the screen: its controls one below the other. The program opens and closes
/// it; a wish to close it is one that the program end.
class ModalView : public QDialog {
 public:
  ModalView(const ModalWindow& window, Program& program, QWidget* parent);
  [[nodiscard]] const ModalWindow& Shown() const { return window_; }

  /// The key that closes any dialog does nothing here.
  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  const ModalWindow& window_;
  Program& program_;
  ControlViews views_;
};

}  // namespace korva
