#include "core/modal_window.h"

#include "core/program.h"

namespace korva {

void OpenWindow::Set(const ModalWindow* window) {
  const ModalWindow* const changed = window != nullptr ? window : window_;
  window_ = window;
  for (const auto& observer : observers_) {
    observer(*changed, window != nullptr);
  }
}

WindowShown::WindowShown(Program& program, const ModalWindow& window) : program_(program) {
  program_.Window().Set(&window);
}

WindowShown::~WindowShown() { program_.Window().Set(nullptr); }

}  // namespace korva
