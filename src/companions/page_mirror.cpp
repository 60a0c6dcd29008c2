#include "companions/page_mirror.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/notices.h"
#include "core/numbers.h"

namespace korva {

namespace {

/// More cells than these are looked at all together.
constexpr std::size_t kMostTouched = 64;

// What the set holds beside its items.
constexpr int kAuthor = 0;
constexpr int kMemo = 1;
constexpr int kTableSize = 2;
constexpr std::array kBeside = {kAuthor, kMemo, kTableSize};

String& BesideItems(ParameterSet& set, int what) {
  return what == kAuthor ? set.Author : what == kMemo ? set.Memo : set.TableSize;
}

/// A text of the set with a place of its own.
String TextAt(ParameterSet& set, const SetPlace& place) {
  return place.first == kBesideItems ? BesideItems(set, place.second) : set.At(place.first, place.second);
}

void PutText(ParameterSet& set, const SetPlace& place, const String& text) {
  if (place.first == kBesideItems) {
    BesideItems(set, place.second) = text;
  } else {
    set.Set(place.first, place.second, text);
  }
}

std::shared_ptr<const std::vector<String>> EntriesOf(const ComboBox& box, const ControlState& former) {
  return former.entries != nullptr && *former.entries == box.Entries()
             ? former.entries
             : std::make_shared<const std::vector<String>>(box.Entries());
}

ControlState StateOf(const Control& control, const ControlState& former) {
  ControlState state{.text = control.ShownText(),
                     .entries = {},
                     .look = control.ShownLook(),
                     .visible = control.Visible(),
                     .enabled = control.Enabled(),
                     .locked = control.Locked()};
  if (const auto* const field = dynamic_cast<const TextField*>(&control)) {
    state.numeric = field->Numeric();
    state.marked = field->Marked();
    state.outside = field->Outside();
  } else if (const auto* const box = dynamic_cast<const ComboBox*>(&control)) {
    state.entries = EntriesOf(*box, former);
  } else if (const auto* const option = dynamic_cast<const OptionButton*>(&control)) {
    state.on = option->Value();
  }
  return state;
}

void PutField(TextField& field, const ControlState& state) {
  field.ShowText(state.text);
  field.SetLocked(state.locked);
  field.SetLook(state.look);
  field.SetNumeric(state.numeric);
  field.SetMarked(state.marked);
  field.SetOutside(state.outside);
}

void PutBox(ComboBox& box, const ControlState& state) {
  if (box.Entries() != *state.entries) {
    box.Clear();
    for (const String& entry : *state.entries) {
      box.AddEntry(entry);
    }
  }
  box.SetText(state.text);
  box.SetLocked(state.locked);
  box.SetLook(state.look);
}

/// All but whether an option is on.
void PutState(Control& control, const ControlState& state) {
  control.SetVisible(state.visible);
  control.SetEnabled(state.enabled);
  if (auto* field = dynamic_cast<TextField*>(&control)) {
    PutField(*field, state);
  } else if (auto* box = dynamic_cast<ComboBox*>(&control)) {
    PutBox(*box, state);
  } else if (auto* captioned = dynamic_cast<CaptionedControl*>(&control)) {
    captioned->SetCaption(state.text);
  }
  if (auto* label = dynamic_cast<Label*>(&control)) {
    label->SetLook(state.look);
  }
}

bool CanBeEdited(const Control& control) {
  return dynamic_cast<const TextField*>(&control) != nullptr ||
         dynamic_cast<const ComboBox*>(&control) != nullptr ||
         dynamic_cast<const OptionButton*>(&control) != nullptr ||
         dynamic_cast<const Label*>(&control) != nullptr || dynamic_cast<const Frame*>(&control) != nullptr ||
         dynamic_cast<const Grid*>(&control) != nullptr;
}

}  // namespace

PageMirror::PageMirror(ParameterPage& page) : page_(page), set_(page.GroupItem) {
  for (PagePart* part : page.Parts()) {
    if (auto* table = dynamic_cast<TablePart*>(part)) {
      editors_.push_back(table);
    }
  }
  controls_.reserve(page.Controls().size());
  for (Control* control : page.Controls()) {
    if (!CanBeEdited(*control) || IsLeftAlone(*control)) {
      continue;
    }
    Follow(*control);
    if (auto* grid = dynamic_cast<Grid*>(control)) {
      FollowTable(*grid);
    }
  }
  tabs_.reserve(static_cast<std::size_t>(page.Tabs.Count()));
  for (int tab = 0; tab < page.Tabs.Count(); ++tab) {
    tabs_.push_back(TabAt(tab));
  }
}

bool PageMirror::IsLeftAlone(const Control& control) const {
  const auto* const option = dynamic_cast<const OptionButton*>(&control);
  if (&control == &page_.Notes || (option != nullptr && &option->Group() == &page_.OptCom)) {
    return true;
  }
  return std::any_of(editors_.begin(), editors_.end(), [&](TablePart* table) {
    const LnrEditor& editor = table->Editor();
    const std::array<const Control*, 7> own = {&editor.fraLnrChange,   &editor.lblLnrRow, &editor.lblLnrCol,
                                               &editor.lblLnrNewValue, &editor.txtLnrRow, &editor.txtLnrCol,
                                               &editor.txtLnrNewValue};
    return std::find(own.begin(), own.end(), &control) != own.end();
  });
}

void PageMirror::Follow(Control& control) {
  const std::size_t place = controls_.size();
  controls_.push_back({.control = &control, .state = StateOf(control, {})});
  control.Observe([this, place] { Touch(place); });
}

void PageMirror::FollowTable(Grid& grid) {
  const std::size_t number = tables_.size();
  FollowedTable& table = tables_.emplace_back();
  table.grid = &grid;
  LookAtTable(table);
  grid.Observe([this, number] { TouchTable(number); });
}

void PageMirror::Touch(std::size_t place) {
  if (!std::exchange(controls_[place].touched, true)) {
    touched_.push_back(place);
  }
}

void PageMirror::TouchTable(std::size_t number) {
  FollowedTable& table = tables_[number];
  if (table.all_touched || std::exchange(table.changes, table.grid->Changes()) == table.grid->Changes()) {
    return;
  }
  const std::pair<int, int> cell = table.grid->LastChange();
  if (cell.first < 0 || table.touched.size() >= kMostTouched) {
    table.all_touched = true;
    table.touched.clear();
  } else {
    table.touched.push_back(cell);
  }
}

void PageMirror::LookAtTable(FollowedTable& table) const {
  const Grid& grid = *table.grid;
  table.rows = grid.Rows();
  table.columns = grid.Columns();
  table.changes = grid.Changes();
  table.cells.clear();
  table.cells.reserve(static_cast<std::size_t>(table.rows) * static_cast<std::size_t>(table.columns));
  for (int row = 0; row < table.rows; ++row) {
    for (int column = 0; column < table.columns; ++column) {
      table.cells.push_back(CellOf(grid, row, column));
    }
  }
}

CellState PageMirror::CellOf(const Grid& grid, int row, int column) const {
  const Grid::Cell& cell = grid.At(row, column);
  CellState state{.text = cell.text, .look = cell.look};
  if (cell.look == Look::Selected) {
    // The editor gives the cell its own look back.
    const bool bad = std::any_of(editors_.begin(), editors_.end(),
                                 [](TablePart* table) { return table->Editor().LnrPrevMarked; });
    state.look = bad ? Look::Bad : Look::Normal;
  }
  return state;
}

TabState PageMirror::TabAt(int tab) const {
  return {.caption = page_.Tabs.TabCaption(tab), .enabled = page_.Tabs.TabEnabled(tab)};
}

PageChange PageMirror::Take() {
  PageChange change;
  TakeSet(change);
  for (const std::size_t place : touched_) {
    Followed& followed = controls_[place];
    followed.touched = false;
    ControlState state = StateOf(*followed.control, followed.state);
    if (state != followed.state) {
      change.controls.Add(place, followed.state, state);
      followed.state = std::move(state);
    }
  }
  touched_.clear();
  for (std::size_t number = 0; number < tables_.size(); ++number) {
    TakeTable(number, change);
  }
  for (int tab = 0; tab < page_.Tabs.Count(); ++tab) {
    TabState& former = tabs_[static_cast<std::size_t>(tab)];
    if (TabState now = TabAt(tab); now != former) {
      change.tabs.Add(tab, former, now);
      former = std::move(now);
    }
  }
  return change;
}

void PageMirror::TakeSet(PageChange& change) {
  ParameterSet& now = page_.GroupItem;
  const auto take = [&](const SetPlace& place, const String& former, const String& text) {
    if (former != text) {
      change.set.Add(place, former, text);
      PutText(set_, place, text);
    }
  };
  for (int group = 0; group < now.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      take({group, item}, set_.At(group, item), now.At(group, item));
    }
  }
  for (const int what : kBeside) {
    take({kBesideItems, what}, BesideItems(set_, what), BesideItems(now, what));
  }
}

void PageMirror::TakeTable(std::size_t number, PageChange& change) {
  FollowedTable& table = tables_[number];
  if (table.grid->Rows() != table.rows || table.grid->Columns() != table.columns) {
    LookAtTable(table);  // the table of another model
  } else if (table.all_touched) {
    for (int row = 0; row < table.rows; ++row) {
      for (int column = 0; column < table.columns; ++column) {
        TakeCell(number, row, column, change);
      }
    }
  } else {
    for (const auto& [row, column] : table.touched) {
      TakeCell(number, row, column, change);
    }
  }
  table.touched.clear();
  table.all_touched = false;
}

void PageMirror::TakeCell(std::size_t number, int row, int column, PageChange& change) {
  FollowedTable& table = tables_[number];
  CellState& former = table.cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(table.columns) +
                                  static_cast<std::size_t>(column)];
  if (CellState now = CellOf(*table.grid, row, column); now != former) {
    change.cells.Add({number, row, column}, former, now);
    former = std::move(now);
  }
}

std::optional<std::size_t> PageMirror::PlaceOf(const Control& control) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](const Followed& one) { return one.control == &control; });
  return found == controls_.end() ? std::nullopt
                                  : std::optional(static_cast<std::size_t>(found - controls_.begin()));
}

std::vector<PageMirror::LiveValue> PageMirror::LiveValues() const {
  std::vector<LiveValue> values;
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    if (!page_.IsLive(row) || page_.DataCell(row, kTextIndex).empty()) {
      continue;
    }
    const TextField& field = page_.Text[page_.Place(row, kTextIndex, page_.Text.Count())];
    if (field.Locked()) {
      const Label* const unit = page_.UnitLabelOf(row);
      values.push_back({.field = PlaceOf(field).value(),
                        .unit = unit == nullptr ? std::nullopt : PlaceOf(*unit),
                        .cell = {LeadingInteger(page_.DataCell(row, kGroup)),
                                 LeadingInteger(page_.DataCell(row, kItem))}});
    }
  }
  return values;
}

void PageMirror::NoteLiveValues(PageChange& change) const {
  const bool of_units = std::any_of(change.controls.begin(), change.controls.end(), [this](const auto& one) {
    return dynamic_cast<const Label*>(&At(one.first)) != nullptr;
  });
  for (const LiveValue& value : of_units ? LiveValues() : std::vector<LiveValue>()) {
    if (value.unit && change.controls.Has(*value.unit)) {
      change.controls.Keep(value.field, controls_[value.field].state);
    }
  }
}

bool PageMirror::WasReadSince(const LiveValue& value, const PageChange& change, bool after) const {
  const auto differs = [&](std::size_t place) {
    const auto* const sides = change.controls.Find(place);
    return sides != nullptr && sides->At(!after).text != At(place).ShownText();
  };
  const bool was_shown = change.controls.Has(value.field) && !At(value.field).ShownText().empty();
  return !was_shown || differs(value.field) || (value.unit && differs(*value.unit));
}

void PageMirror::Put(const PageChange& change, bool after) const {
  std::vector<std::size_t> read_since;
  for (const LiveValue& value : LiveValues()) {
    const bool concerned =
        change.controls.Has(value.field) || (value.unit && change.controls.Has(*value.unit));
    if (concerned && WasReadSince(value, change, after)) {
      read_since.push_back(value.field);
    }
  }
  PutSet(change, after);
  PutControls(change, after);
  for (const std::size_t field : read_since) {
    static_cast<TextField&>(At(field)).ShowText({});
  }
  for (const auto& [place, sides] : change.cells) {
    const auto& [number, row, column] = place;
    const CellState& state = sides.At(after);
    Table(number).SetText(row, column, state.text);
    Table(number).SetLook(row, column, state.look);
  }
  for (const auto& [tab, sides] : change.tabs) {
    page_.Tabs.SetTabCaption(tab, sides.At(after).caption);
    page_.Tabs.SetTabEnabled(tab, sides.At(after).enabled);
  }
}

void PageMirror::PutSet(const PageChange& change, bool after) const {
  const std::vector<LiveValue> values = LiveValues();
  std::vector<SetPlace> live;
  live.reserve(values.size());
  for (const LiveValue& value : values) {
    live.push_back(value.cell);
  }
  for (const auto& [place, sides] : change.set) {
    const bool is_live = std::find(live.begin(), live.end(), place) != live.end();
    if (!is_live || TextAt(page_.GroupItem, place) == sides.At(!after)) {
      PutText(page_.GroupItem, place, sides.At(after));
    }
  }
}

void PageMirror::PutControls(const PageChange& change, bool after) const {
  for (const auto& [place, sides] : change.controls) {
    PutState(At(place), sides.At(after));
  }
  PutOptions(change, after);
}

void PageMirror::PutOptions(const PageChange& change, bool after) const {
  for (const bool on : {false, true}) {
    for (const auto& [place, sides] : change.controls) {
      const auto* const option = dynamic_cast<const OptionButton*>(&At(place));
      if (option == nullptr || sides.At(after).on != on || option->Value() == on) {
        continue;
      }
      if (on) {
        option->Group().Mark(option->Place());
      } else {
        option->Group().Clear();
      }
    }
  }
}

}  // namespace korva
