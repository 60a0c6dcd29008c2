#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/control.h"

namespace korva {

class Program;

/// A small window over the page. While it is open the user can act on nothing of the page behind it; a close
/// request alone is taken, and held as the running operation holds it. Its controls are the page's too, so
/// that scripts find them by their names.
class ModalWindow {
 public:
  /// `name` is the one that scripts use. The controls stand in the window from the top, and outlive it.
  ModalWindow(std::string_view name, std::vector<Control*> controls)
      : name_(name), controls_(std::move(controls)) {}
  ModalWindow(const ModalWindow&) = delete;
  ModalWindow& operator=(const ModalWindow&) = delete;
  ~ModalWindow() = default;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }

 private:
  std::string name_;
  std::vector<Control*> controls_;
};

/// The window that is open over the showing page: one at a time.
class OpenWindow {
 public:
  OpenWindow() = default;
  OpenWindow(const OpenWindow&) = delete;
  OpenWindow& operator=(const OpenWindow&) = delete;
  ~OpenWindow() = default;

  /// nullptr when none is.
  [[nodiscard]] const ModalWindow* Get() const { return window_; }
  /// Opens `window`, or closes what is open (nullptr).
  void Set(const ModalWindow* window);
  /// `action` is called with each window that opens, and that has closed. It throws nothing: a window closes
  /// while the program ends, too.
  void Observe(std::function<void(const ModalWindow& window, bool open)> action) {
    observers_.push_back(std::move(action));
  }

 private:
  const ModalWindow* window_ = nullptr;
  std::vector<std::function<void(const ModalWindow&, bool)>> observers_;
};

/// Keeps a window open over the page for as long as it lives.
class WindowShown {
 public:
  /// Both outlive this.
  WindowShown(Program& program, const ModalWindow& window);
  WindowShown(const WindowShown&) = delete;
  WindowShown& operator=(const WindowShown&) = delete;
  ~WindowShown();

 private:
  Program& program_;
};

}  // namespace korva
