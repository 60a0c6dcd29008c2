#include "core/placement.h"

#include <algorithm>

#include "core/design_names.h"
#include "core/grid.h"
#include "core/page.h"

namespace korva {

void Placement::Apply(const Design& design, const Page& page) {
  int tab = 0;
  for (const DesignTab& one : design.tabs) {
    for (const DesignGroup& group : one.groups) {
      PlaceGroup(group, page, tab);
    }
    ++tab;
  }
  for (const DesignOptions& options : design.options) {
    OptionGroup* group = page.FindOptions(options.options);
    for (int button = 0; group != nullptr && button < group->Count(); ++button) {
      (*group)[button].PutInto(page.FindControl(options.frame));
    }
  }
}

int Placement::TabOf(const Control& control) const {
  for (const Control* at = &control; at != nullptr; at = at->Container()) {
    if (const auto found = tabs_of_.find(at); found != tabs_of_.end()) {
      return found->second;
    }
  }
  return -1;
}

const DesignRow* Placement::RowOf(const Control& control) const {
  for (const Control* at = &control; at != nullptr; at = at->Container()) {
    if (const auto found = rows_of_.find(at); found != rows_of_.end()) {
      return found->second;
    }
  }
  return nullptr;
}

Control* Placement::FirstShown(const std::function<bool(const Control&)>& wanted) const {
  const auto found = std::find_if(placed_.begin(), placed_.end(), [&](const Control* control) {
    return control->Refused() != Refusal::Hidden && wanted(*control);
  });
  return found == placed_.end() ? nullptr : *found;
}

void Placement::PlaceGroup(const DesignGroup& group, const Page& page, int tab) {
  if (!group.frame.empty()) {
    PlaceControl(group.frame, group, page, tab);
  }
  for (const DesignRow& row : group.rows) {
    if (!row.curve.empty() && dynamic_cast<Grid*>(page.FindControl(row.curve)) == nullptr) {
      throw RuntimeFailure(u"画面の設計表に無い表があります: " + String(row.curve.begin(), row.curve.end()));
    }
    for (const std::string_view names : {row.number, row.label, row.field, row.unit, row.buttons}) {
      for (const std::string_view name : NamesIn(names)) {
        PlaceControl(name, group, page, tab);
        rows_of_.emplace(page.FindControl(name), &row);
      }
    }
  }
}

void Placement::PlaceControl(std::string_view name, const DesignGroup& group, const Page& page, int tab) {
  Control* control = page.FindControl(name);
  if (control == nullptr) {
    throw RuntimeFailure(u"画面の設計表に無い部品があります: " + String(name.begin(), name.end()));
  }
  if (tabs_of_.emplace(control, tab).second) {
    placed_.push_back(control);
    control->Observe([this, control, tab] { FollowBad(*control, tab); });
  }
  if (!group.frame.empty() && name != group.frame) {
    control->PutInto(page.FindControl(group.frame));
  }
}

void Placement::FollowBad(const Control& control, int tab) {
  const bool bad = control.IsBad() && control.Visible();
  if (bad == bad_.contains(&control)) {
    return;
  }
  if (bad) {
    bad_.insert(&control);
  } else {
    bad_.erase(&control);
  }
  tabs_.SetTabBad(tab, std::any_of(bad_.begin(), bad_.end(),
                                   [&](const Control* one) { return tabs_of_.at(one) == tab; }));
}

}  // namespace korva
