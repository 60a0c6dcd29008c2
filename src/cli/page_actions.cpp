#include "cli/page_actions.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/grid.h"

namespace korva::cli {

namespace {

/// Does `act` to the control of this name when it is a T, called `kind`, and can be reached.
template <typename T, typename Act>
Outcome Reach(const Page& page, const std::string& name, std::string_view kind, Act act) {
  Control* const control = page.FindControl(name);
  if (control == nullptr) {
    return NoControl(name);
  }
  auto* const target = dynamic_cast<T*>(control);
  if (target == nullptr) {
    return Wrong(name + " is no " + std::string(kind));
  }
  const std::string_view why = page.WhyRefused(*control);
  return why.empty() ? act(*target) : Refused(why);
}

/// Position of an entry in a list, the first one when it stands there several times; nothing without one.
std::optional<int> PositionOf(const String& entry, const std::vector<String>& entries) {
  const auto found = std::find(entries.begin(), entries.end(), entry);
  return found == entries.end() ? std::nullopt : std::optional(static_cast<int>(found - entries.begin()));
}

// Where a field has only one line, the key that makes a break does nothing.
String AsTyped(const TextField& field, String text) {
  if (!field.Multiline()) {
    std::erase_if(text, [](char16_t c) { return c == u'\r' || c == u'\n'; });
  }
  return text;
}

}  // namespace

Outcome ActOn(Page& page, const ChooseModel& action) {
  ListBox& list = page.lst_TypeSelect;
  const std::string_view why = page.WhyRefused(list);
  if (!why.empty()) {
    return Refused(why);
  }
  const std::optional<int> position =
      action.position ? action.position : PositionOf(action.entry, list.Entries());
  if (!position || *position >= static_cast<int>(list.Entries().size())) {
    return Refused("no such entry");
  }
  list.UserPicks(*position);
  return {};
}

Outcome ActOn(const Page& page, const ClickButton& action) {
  const auto click = [](auto& button) {
    button.Click();
    return Outcome();
  };
  if (dynamic_cast<OptionButton*>(page.FindControl(action.control)) != nullptr) {
    return Reach<OptionButton>(page, action.control, "button", click);
  }
  return Reach<Button>(page, action.control, "button", click);
}

Outcome ActOn(const Page& page, const TypeText& action) {
  return Reach<TextField>(page, action.control, "text field", [&](TextField& field) {
    field.UserTypes(AsTyped(field, action.text));
    return Outcome();
  });
}

Outcome ActOn(const Page& page, const PickEntry& action) {
  return Reach<ComboBox>(page, action.control, "combo box", [&](ComboBox& box) {
    const std::optional<int> position = PositionOf(action.entry, box.Entries());
    if (!position) {
      return Refused("no such entry");
    }
    box.UserPicks(*position);
    return Outcome();
  });
}

Outcome ActOn(const Page& page, const ClickCell& action) {
  return Reach<Grid>(page, action.grid, "grid", [&](const Grid& grid) {
    if (action.row >= grid.Rows() || action.column >= grid.Columns()) {
      return Refused("no such cell");
    }
    grid.UserClicks(action.row, action.column);
    return Outcome();
  });
}

Outcome ActOn(const Page& page, const PressKey& action) {
  return Reach<TextField>(page, action.control, "text field", [&](const TextField& field) {
    field.UserPresses(action.key);
    return Outcome();
  });
}

Outcome ActOn(Page& page, const ClickTab& action) {
  TabControl& tabs = page.Tabs;
  const std::string_view why = page.WhyRefused(tabs);
  if (!why.empty()) {
    return Refused(why);
  }
  if (action.tab >= tabs.Count()) {
    return Refused("no such tab");
  }
  if (!tabs.TabEnabled(action.tab)) {
    return Refused("disabled");
  }
  tabs.UserClicks(action.tab);
  return {};
}

}  // namespace korva::cli
