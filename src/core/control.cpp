#include "core/control.h"

#include <algorithm>

#include "core/text_utilities.h"

namespace korva {

Control::Control(std::string_view name, int index) : name_(name), index_(index) {}

std::string Control::FullName() const {
  return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

Refusal Control::Refused() const {
  for (const Control* control = this; control != nullptr; control = control->container_) {
    if (!control->visible_) {
      return Refusal::Hidden;
    }
  }
  for (const Control* control = this; control != nullptr; control = control->container_) {
    if (!control->enabled_) {
      return Refusal::Disabled;
    }
  }
  return Refusal::None;
}

void Control::SetFocus() {
  for (const auto& observer : focus_observers_) {
    observer();
  }
}

void Control::Changed() const {
  for (const auto& observer : observers_) {
    observer();
  }
}

void TextField::SetText(const String& text) {
  if (Assign(text_, text) && OnChange) {
    OnChange();
  }
}

String TextField::AsPasted(const String& text) const { return numeric_ ? HalfWidthNumber(text) : text; }

Refusal TextField::Refused() const {
  const Refusal refusal = Control::Refused();
  return refusal == Refusal::None && locked_ ? Refusal::Locked : refusal;
}

void ComboBox::Clear() {
  if (entries_.empty() && text_.empty()) {
    return;
  }
  entries_.clear();
  text_.clear();
  Changed();
}

void ComboBox::AddEntry(const String& entry) {
  entries_.push_back(entry);
  Changed();
}

int ComboBox::ListIndex() const {
  const auto found = std::find(entries_.begin(), entries_.end(), text_);
  return found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
}

Refusal ComboBox::Refused() const {
  const Refusal refusal = Control::Refused();
  return refusal == Refusal::None && locked_ ? Refusal::Locked : refusal;
}

void ComboBox::UserPicks(int position) {
  SetText(entries_.at(static_cast<std::size_t>(position)));
  if (OnClick) {
    OnClick();
  }
}

void OptionButton::SetValue(bool value) {
  if (value == value_) {
    return;
  }
  if (value) {
    group_.Clear();
  }
  value_ = value;
  Changed();
  if (value && group_.OnClick) {
    group_.OnClick(Place());
  }
}

void OptionButton::Click() {
  if (value_ && group_.RaisesWhenOn && group_.OnClick) {
    group_.OnClick(Place());
  } else {
    SetValue(true);
  }
}

int OptionButton::Place() const {
  int place = 0;
  while (&group_[place] != this) {
    ++place;
  }
  return place;
}

OptionGroup::OptionGroup(std::string_view name, int count) {
  for (int place = 0; place < count; ++place) {
    buttons_.push_back(std::make_unique<OptionButton>(name, place, *this));
  }
}

OptionGroup::OptionGroup(const std::vector<std::string_view>& names) {
  for (const std::string_view name : names) {
    buttons_.push_back(std::make_unique<OptionButton>(name, -1, *this));
  }
}

int OptionGroup::Selected() const {
  const auto found =
      std::find_if(buttons_.begin(), buttons_.end(), [](const auto& button) { return button->Value(); });
  return found == buttons_.end() ? -1 : static_cast<int>(found - buttons_.begin());
}

void OptionGroup::Clear() {
  for (const auto& button : buttons_) {
    button->Assign(button->value_, false);
  }
}

void OptionGroup::Mark(int place) {
  Clear();
  OptionButton& button = (*this)[place];
  button.Assign(button.value_, true);
}

void OptionGroup::SetVisible(bool visible) {
  for (const auto& button : buttons_) {
    button->SetVisible(visible);
  }
}

void OptionGroup::SetEnabled(bool enabled) {
  for (const auto& button : buttons_) {
    button->SetEnabled(enabled);
  }
}

void ListBox::Clear() {
  entries_.clear();
  list_index_ = -1;
  top_index_ = 0;
  Changed();
}

void ListBox::AddEntry(const String& entry) {
  entries_.push_back(entry);
  Changed();
}

void ListBox::SetListIndex(int index) {
  Assign(list_index_, index);
  if (OnClick) {
    OnClick();
  }
}

String ListBox::Text() const {
  const bool chosen = list_index_ >= 0 && list_index_ < static_cast<int>(entries_.size());
  return chosen ? entries_[static_cast<std::size_t>(list_index_)] : String();
}

std::size_t Grid::Place(int row, int column) const {
  if (row < 0 || row >= rows_ || column < 0 || column >= columns_) {
    throw RuntimeFailure(u"表の範囲外のセルです。");
  }
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
         static_cast<std::size_t>(column);
}

void Grid::Resize(int rows, int columns) {
  if (rows == rows_ && columns == columns_) {
    return;
  }
  std::vector<Cell> cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
  for (int row = 0; row < std::min(rows, rows_); ++row) {
    for (int column = 0; column < std::min(columns, columns_); ++column) {
      cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
            static_cast<std::size_t>(column)] = At(row, column);
    }
  }
  cells_ = std::move(cells);
  rows_ = rows;
  columns_ = columns;
  if (top_row_ >= rows_) {
    top_row_ = 1;
  }
  if (current_cell_.first >= rows_ || current_cell_.second >= columns_) {
    current_cell_ = {0, 0};
  }
  bad_cells_ = static_cast<int>(
      std::count_if(cells_.begin(), cells_.end(), [](const Cell& cell) { return cell.look == Look::Bad; }));
  CellChanged(-1, -1);
}

void Grid::SetRowsInUse(int rows) {
  if (rows_in_use_ != rows) {
    rows_in_use_ = rows;
    CellChanged(-1, -1);
  }
}

void Grid::UserScrolls(int row) {
  if (Assign(top_row_, row) && OnScroll) {
    OnScroll();
  }
}

void Grid::SetText(int row, int column, const String& text) {
  Cell& cell = cells_.at(Place(row, column));
  if (cell.text != text) {
    cell.text = text;
    CellChanged(row, column);
  }
}

void Grid::SetLook(int row, int column, Look look) {
  Cell& cell = cells_.at(Place(row, column));
  if (cell.look == look) {
    return;
  }
  bad_cells_ += static_cast<int>(look == Look::Bad) - static_cast<int>(cell.look == Look::Bad);
  cell.look = look;
  if (look == Look::Selected && row > 0) {
    current_cell_ = {row, column};
  }
  CellChanged(row, column);
}

void Grid::SetMarked(int row, int column, bool marked) {
  Cell& cell = cells_.at(Place(row, column));
  if (cell.marked != marked) {
    cell.marked = marked;
    CellChanged(row, column);
  }
}

void Grid::SetRowScale(const std::optional<RowScale>& scale) {
  if (row_scale_ != scale) {
    row_scale_ = scale;
    CellChanged(-1, -1);
  }
}

void Grid::CellChanged(int row, int column) {
  last_change_ = {row, column};
  ++changes_;
  Changed();
}

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

void Picture::Show(const String& file_name, const std::string& bytes) {
  const bool other_bytes = bytes_ != bytes;
  bytes_ = bytes;
  if (!Assign(file_name_, file_name) && other_bytes) {
    Changed();
  }
}

Timer::Timer(std::string_view name, EventLoop& loop, Milliseconds interval)
    : Control(name), loop_(loop), interval_(interval) {}

Timer::~Timer() { Stop(); }

void Timer::SetInterval(Milliseconds interval) {
  interval_ = interval;
  if (Running()) {
    Start();
  }
}

void Timer::Start() {
  Stop();
  running_ = loop_.StartTimer(interval_, [this] {
    if (OnTick) {
      OnTick();
    }
  });
}

void Timer::Stop() {
  if (running_) {
    loop_.StopTimer(*running_);
    running_.reset();
  }
}

}  // namespace korva
