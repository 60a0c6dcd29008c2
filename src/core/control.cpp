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
  ByUser([&] {
    SetText(entries_.at(static_cast<std::size_t>(position)));
    if (OnClick) {
      OnClick();
    }
  });
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
  ByUser([this] {
    if (value_ && group_.RaisesWhenOn && group_.OnClick) {
      group_.OnClick(Place());
    } else {
      SetValue(true);
    }
  });
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
