#include "core/tab_control.h"

namespace korva {

TabControl::TabControl(std::string_view name, int count)
    : Control(name), tabs_(static_cast<std::size_t>(count)) {}

void TabControl::SetTabCaption(int tab, const String& caption) {
  Assign(tabs_.at(static_cast<std::size_t>(tab)).caption, caption);
}

void TabControl::SetCurrent(int tab) {
  if (Assign(current_, tab) && OnEntered) {
    OnEntered(tab);
  }
}

void TabControl::UserClicks(int tab) {
  SetCurrent(tab);
  if (OnClicked) {
    OnClicked(tab);
  }
}

void TabControl::SetTabEnabled(int tab, bool enabled) {
  Assign(tabs_.at(static_cast<std::size_t>(tab)).enabled, enabled);
}

void TabControl::SetTabBad(int tab, bool bad) { Assign(tabs_.at(static_cast<std::size_t>(tab)).bad, bad); }

}  // namespace korva
