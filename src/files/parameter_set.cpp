#include "files/parameter_set.h"

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "platform/event_gate.h"

namespace korva {

ParameterSet::ParameterSet(int groups) : groups_(groups), cells_(static_cast<std::size_t>(groups) * kItems) {}

bool ParameterSet::Has(int group, int item) const {
  return group >= 0 && group < groups_ && item >= 0 && item < kItems;
}

const String& ParameterSet::At(const String& group, const String& item) const {
  return At(LeadingInteger(group), LeadingInteger(item));
}

void ParameterSet::Set(const String& group, const String& item, const String& value) {
  Set(LeadingInteger(group), LeadingInteger(item), value);
}

void ParameterSet::Clear() {
  ClearItems();
  Author.clear();
  Memo.clear();
  TableSize.clear();
}

void ParameterSet::ClearItems() { std::fill(cells_.begin(), cells_.end(), String()); }

void ParameterSet::TakeOver(const ParameterSet& other) {
  for (std::size_t place = 0; place < cells_.size(); ++place) {
    if (!other.cells_[place].empty()) {
      cells_[place] = other.cells_[place];
    }
  }
  Author = other.Author;
  Memo = other.Memo;
  TableSize = other.TableSize;
}

std::size_t ParameterSet::Place(int group, int item) const {
  if (!Has(group, item)) {
    throw RuntimeFailure(Ascii("Group " + std::to_string(group) + ", Item " + std::to_string(item)) +
                         u" は設定値の範囲にありません。");
  }
  return static_cast<std::size_t>(group) * kItems + static_cast<std::size_t>(item);
}

}  // namespace korva
