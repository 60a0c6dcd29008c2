#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "core/control.h"
#include "platform/string.h"

namespace korva {

/// Tabs, each with a caption and enabled or not.
class TabControl : public Control {
 public:
  TabControl(std::string_view name, int count);
  [[nodiscard]] int Count() const { return static_cast<int>(tabs_.size()); }
  [[nodiscard]] const String& TabCaption(int tab) const { return TabAt(tab).caption; }
  void SetTabCaption(int tab, const String& caption);
  [[nodiscard]] bool TabEnabled(int tab) const { return TabAt(tab).enabled; }
  void SetTabEnabled(int tab, bool enabled);
  /// True while a bad value stands on the tab.
  [[nodiscard]] bool TabBad(int tab) const { return TabAt(tab).bad; }
  void SetTabBad(int tab, bool bad);
  /// The tab in front.
  [[nodiscard]] int Current() const { return current_; }
  void SetCurrent(int tab);
  /// Raised with each tab that comes to the front.
  std::function<void(int tab)> OnEntered;
  /// Raised with each tab that the user clicks, also when it is in front already.
  std::function<void(int tab)> OnClicked;
  /// The user's click on a tab (0 to Count() - 1), which is enabled.
  void UserClicks(int tab);

 private:
  struct Tab {
    String caption;
    bool enabled = true;
    bool bad = false;
  };
  [[nodiscard]] const Tab& TabAt(int tab) const { return tabs_.at(static_cast<std::size_t>(tab)); }
  std::vector<Tab> tabs_;
  int current_ = 0;
};

}  // namespace korva
