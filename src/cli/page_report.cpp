#include "cli/page_report.h"

#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/grid.h"
#include "files/parameter_page.h"

namespace korva::cli {

namespace {

std::string_view WordOf(Look look) {
  switch (look) {
    case Look::Normal:
      return "normal";
    case Look::Grey:
      return "grey";
    case Look::Bad:
      return "bad";
    case Look::Highlight:
      return "highlight";
    case Look::Selected:
      break;
  }
  return "selected";
}

std::string_view WordOfShown(const Control& control) { return control.Visible() ? " shown" : " hidden"; }

std::string_view WordOfEnabled(bool enabled) { return enabled ? " enabled" : " disabled"; }

/// The texts of the grid's row 0, each behind a blank.
std::string HeadsOf(const Grid& grid) {
  std::string heads;
  for (int column = 0; grid.Rows() > 0 && column < grid.Columns(); ++column) {
    heads += " " + Quoted(grid.At(0, column).text);
  }
  return heads;
}

std::string StateOf(const Control& control) {
  std::string state = control.FullName().append(WordOfShown(control));
  if (const auto* bar = dynamic_cast<const ProgressBar*>(&control)) {
    return state + " " + std::to_string(Percent(*bar));
  }
  if (const auto* picture = dynamic_cast<const Picture*>(&control)) {
    return state + " " + Quoted(picture->FileName());
  }
  state += WordOfEnabled(control.Enabled());
  if (const auto* grid = dynamic_cast<const Grid*>(&control)) {
    return state + HeadsOf(*grid);
  }
  state += control.Locked() ? " locked " : " unlocked ";
  state += std::string(WordOf(control.ShownLook())) + " " + Quoted(control.ShownText());
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    state += option->Value() ? " on" : " off";
  }
  return state;
}

std::string NameOf(const TabControl& tabs, int tab) { return tabs.Name() + "(" + std::to_string(tab) + ")"; }

std::string StateOf(const TabControl& tabs, int tab) {
  return NameOf(tabs, tab)
      .append(WordOfShown(tabs))
      .append(WordOfEnabled(tabs.Enabled() && tabs.TabEnabled(tab)))
      .append(" " + Quoted(tabs.TabCaption(tab)));
}

/// The state of the page's control or tab of this name; nothing when it has none.
std::optional<std::string> StateOf(const Page& page, const std::string& name) {
  if (const Control* const control = page.FindControl(name)) {
    return StateOf(*control);
  }
  for (int tab = 0; tab < page.Tabs.Count(); ++tab) {
    if (NameOf(page.Tabs, tab) == name) {
      return StateOf(page.Tabs, tab);
    }
  }
  return std::nullopt;
}

}  // namespace

int Percent(const ProgressBar& bar) { return static_cast<int>(std::lround(bar.Value())); }

Outcome Report(const Page& page, const ShowControls& question, Transcript& transcript) {
  std::vector<std::string> states;
  for (const std::string& name : question.controls) {
    const std::optional<std::string> state = StateOf(page, name);
    if (!state) {
      return NoControl(name);
    }
    states.push_back(*state);
  }
  for (const std::string& state : states) {
    transcript.Tell(state);
  }
  return {};
}

Outcome Report(const Page& page, const DumpItems& /*question*/, Transcript& transcript) {
  const auto* const parameters = dynamic_cast<const ParameterPage*>(&page);
  if (parameters == nullptr) {
    return {};
  }
  const ParameterSet& set = parameters->GroupItem;
  for (int group = 0; group < set.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      if (const String& text = set.At(group, item); !text.empty()) {
        transcript.Tell(std::to_string(group) + " " + std::to_string(item) + " " + Quoted(text));
      }
    }
  }
  return {};
}

Outcome Report(const Page& page, const DumpGrid& question, Transcript& transcript) {
  const Control* const control = page.FindControl(question.grid);
  if (control == nullptr) {
    return NoControl(question.grid);
  }
  const auto* const grid = dynamic_cast<const Grid*>(control);
  if (grid == nullptr) {
    return Wrong(question.grid + " is no grid");
  }
  for (int row = 1; row < grid->Rows(); ++row) {
    for (int column = 1; column < grid->Columns(); ++column) {
      const Grid::Cell& cell = grid->At(row, column);
      if (!cell.text.empty() || cell.look != Look::Normal) {
        transcript.Tell(question.grid + " " + std::to_string(row) + " " + std::to_string(column) + " " +
                        std::string(WordOf(cell.look)) + " " + Quoted(cell.text));
      }
    }
  }
  return {};
}

}  // namespace korva::cli
