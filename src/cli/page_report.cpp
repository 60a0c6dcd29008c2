#include "cli/page_report.h"

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

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

std::string StateOf(const Control& control) {
  std::string state = control.FullName() + (control.Visible() ? " shown" : " hidden");
  if (const auto* bar = dynamic_cast<const ProgressBar*>(&control)) {
    return state + " " + std::to_string(Percent(*bar));
  }
  state += control.Enabled() ? " enabled" : " disabled";
  state += control.Locked() ? " locked " : " unlocked ";
  state += std::string(WordOf(control.ShownLook())) + " " + Quoted(control.ShownText());
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    state += option->Value() ? " on" : " off";
  }
  return state;
}

}  // namespace

int Percent(const ProgressBar& bar) { return static_cast<int>(std::lround(bar.Value())); }

Outcome Report(const Page& page, const ShowControls& question, Transcript& transcript) {
  std::vector<const Control*> controls;
  for (const std::string& name : question.controls) {
    controls.push_back(page.FindControl(name));
    if (controls.back() == nullptr) {
      return NoControl(name);
    }
  }
  for (const Control* const control : controls) {
    transcript.Tell(StateOf(*control));
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
      if (!cell.text.empty()) {
        transcript.Tell(question.grid + " " + std::to_string(row) + " " + std::to_string(column) + " " +
                        std::string(WordOf(cell.look)) + " " + Quoted(cell.text));
      }
    }
  }
  return {};
}

}  // namespace korva::cli
