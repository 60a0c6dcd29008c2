#include <algorithm>
#include <cmath>
#include <utility>

#include "sim/model_rules.h"
#include "sim/number.h"
#include "sim/parameters.h"

// The choices of a device, and what the input type and its range mean for zero and span.

namespace korva::sim {

namespace {

// Columns of `$I10`.
constexpr std::size_t kTypeLow = 2;
constexpr std::size_t kTypeHigh = 3;
constexpr std::size_t kTypeSettable = 6;
constexpr std::size_t kTypeTitle = 7;

constexpr std::string_view kInputTypes = "$I10";

/// A limit in the unit that the device shows, not narrower than the same limit in deg C.
std::string LimitInUnit(const std::string& limit, std::string_view unit, bool upper) {
  const auto value = ParseNumber(limit);
  if (!value || (unit != "deg F" && unit != "K")) {
    return limit;
  }
  const double converted = unit == "K" ? *value + 273.2 : (*value * 9 / 5) + 32;
  return FormatNumber(upper ? std::ceil(converted) : std::floor(converted), 0);
}

}  // namespace

/// The units that frequencies can be written in: code, text, what stands behind a number.
const std::vector<Definition::Row>& Parameters::FrequencyUnits() const {
  static const std::vector<Definition::Row> from_hertz = {
      {"0", "0:Hz", " Hz"}, {"1", "1:kHz", " kHz"}, {"2", "2:mHz", " mHz"}};
  static const std::vector<Definition::Row> from_millihertz = {
      {"0", "0:mHz", "mHz"}, {"1", "1:Hz", " Hz"}, {"2", "2:kHz", "kHz"}};
  return family_.frequencies == FrequencyCodes::FromMillihertz ? from_millihertz : from_hertz;
}

const std::vector<Definition::Row>& Parameters::Rows(const Item& choice) const {
  return choice.section == kFrequencyUnits ? FrequencyUnits() : definition_.Rows(choice.section);
}

std::size_t Parameters::TextColumn(const Item& item) const { return item.by_title ? InputTitle() : 1; }

std::string Parameters::RowText(const Item& item, std::size_t row) const {
  if (item.section == kInputTypes && code_ == kVersionedModel && !SensorText(row, system_text_).empty()) {
    return std::string(SensorText(row, system_text_));
  }
  const auto& rows = Rows(item);
  return row < rows.size() ? Field(rows[row], TextColumn(item)) : std::string{};
}

bool Parameters::RowUsable(const Item& item, std::size_t row) const {
  const auto& rows = Rows(item);
  return row < rows.size() && !Field(rows[row], 0).empty() && !RowText(item, row).empty();
}

std::string Parameters::Code(const Item& item) const {
  const auto& rows = Rows(item);
  return item.row < rows.size() ? Field(rows[item.row], 0) : std::string{};
}

const Definition::Row* Parameters::InputType() const {
  const Item* const type = Find("01", "10");
  if (!family_.typed_input || type == nullptr || type->section != kInputTypes) {
    return nullptr;
  }
  return &definition_.Rows(kInputTypes)[type->row];
}

/// The column group of `$I11Body` under the present input type, 1 to 3; 0 when it has no ranges to choose
/// from.
std::size_t Parameters::InputTitle() const {
  const auto* const type = InputType();
  const auto& lists = definition_.Rows("$I11Title");
  if (type == nullptr || lists.empty() || Field(*type, kTypeTitle).empty()) {
    return 0;
  }
  const auto& titles = lists.back();  // a later list stands in place of an earlier one
  const auto found = std::ranges::find(titles, Field(*type, kTypeTitle));
  const auto index = static_cast<std::size_t>(found - titles.begin());
  return found == titles.end() || index > 3 ? 0 : index;
}

bool Parameters::IsPreferred(const Item& item, std::size_t row) const {
  if (item.section == kInputTypes && family_.typed_input) {
    return Field(Rows(item)[row], kTypeSettable) == "Y";
  }
  const std::string text = RowText(item, row);
  return item.section == kFrequencyUnits ? text.ends_with(":Hz")
                                         : text != "0:NO FILTER" && text != "NO ALARM";
}

/// The row that a choice has at power-up: the first usable one, with a filter or an alarm in use where there
/// is one. Of the input types the first that can be set, or else the one that is fixed in the device. Of the
/// units of frequencies Hz.
std::size_t Parameters::FirstRow(const Item& item) const {
  const auto& rows = Rows(item);
  std::optional<std::size_t> usable;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (!RowUsable(item, row)) {
      continue;
    }
    usable = usable.value_or(row);
    if (IsPreferred(item, row)) {
      return row;
    }
  }
  return usable.value_or(0);
}

WriteResult Parameters::WriteChoice(Item& item, std::string_view data) {
  const auto& rows = Rows(item);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (!RowUsable(item, row) || Field(rows[row], 0) != data) {
      continue;
    }
    if (item.section == kInputTypes && family_.typed_input && row != item.row) {
      // What is fixed can neither be left nor reached from outside.
      if (Field(rows[row], kTypeSettable) != "Y" || Field(rows[item.row], kTypeSettable) != "Y") {
        return WriteResult::Refused;
      }
    }
    Choose(item, row);
    return WriteResult::Done;
  }
  return WriteResult::Refused;
}

void Parameters::Choose(Item& item, std::size_t row) {
  const bool other = std::exchange(item.row, row) != row;
  SettleRange();
  BringOutputRange(item);
  if (other) {
    BringRange(item);
    BringPairs(item);
  }
}

/// Another input type may not have the range chosen under the former one.
void Parameters::SettleRange() {
  Item* const range = Find("01", "11");
  if (range != nullptr && range->by_title && !RowUsable(*range, range->row)) {
    range->row = FirstRow(*range);
  }
}

// --- classes of the input

/// The list of the class that the present input is of; empty where there are no classes.
std::string_view Parameters::InputList() const {
  const Item* const input = Find("01", "10");
  std::string_view lists = family_.input_lists;
  if (input == nullptr || input->kind != Item::Kind::Choice) {
    return {};
  }
  for (std::size_t first = 0; !lists.empty();) {
    const auto key = lists.substr(0, lists.find(' '));
    first += definition_.Rows(key).size();
    if (input->row < first) {
      return key;
    }
    lists.remove_prefix(std::min(key.size() + 1, lists.size()));
  }
  return {};
}

/// Another type has a range of its own.
void Parameters::BringRange(const Item& choice) {
  if (family_.input_lists.empty() || !HasWord("10 11 41", choice.item)) {
    return;
  }
  const auto& row = Rows(choice)[choice.row];
  const bool input = choice.item == "10";
  const bool second = choice.item == "41";
  const auto bring = [&](std::string_view item, std::size_t column) {
    if (Item* const end = Find("01", item)) {
      end->held = Field(row, column);
    }
  };
  bring(input ? "14" : second ? "42" : "12", kTypeLow);
  bring(input ? "15" : second ? "43" : "13", kTypeHigh);
}

std::string Parameters::ScaleUnit() const {
  constexpr std::size_t unit_column = 5;
  const auto list = InputList();
  const Item* const unit = Find("01", "21");
  if ((list == "$I10TC" || list == "$I10RTD") && unit != nullptr) {
    return RowText(*unit, unit->row);
  }
  const Item* const input = Find("01", "10");
  return input == nullptr ? std::string{} : Field(Rows(*input)[input->row], unit_column);
}

std::string Parameters::UnitOf(const Item& item) const {
  if (item.item == "06" && InputList() == "$I10TC") {
    return "mV";
  }
  if (item.item == "06" && InputList() == "$I10RTD") {
    return "Ohm";
  }
  return item.follows.empty() && item.item != "06" ? item.unit : ScaleUnit();
}

/// A type of a device with pairs brings range and limits along.
void Parameters::BringPairs(const Item& type) {
  if (!HasWord("10 11 41", type.item)) {
    return;
  }
  const std::string_view pairs = type.item == "10" ? "14 15" : type.item == "11" ? "12 13" : "42 43";
  for (auto& item : items_) {
    if (item.kind == Item::Kind::Pair && HasWord(pairs, item.item)) {
      item.held = PairOfType(item);
    }
  }
}

// --- limits
// -------------------------------------------------------------------------------------------------

bool IsLimited(const Item& item) {
  return item.kind == Item::Kind::Number && item.group == "01" && (item.item == "14" || item.item == "15");
}

/// Lowest zero and highest span of the present range, or of the present input type; none when neither has
/// limits.
std::optional<std::pair<std::string, std::string>> Parameters::Limits() const {
  const Item* const range = Find("01", "11");
  if (range != nullptr && range->by_title && InputTitle() != 0) {
    const auto& row = definition_.Rows(kRanges)[range->row];
    const std::size_t low = (2 * InputTitle()) + 2;
    if (!Field(row, low).empty() && !Field(row, low + 1).empty()) {
      return std::pair{Field(row, low), Field(row, low + 1)};
    }
  }
  const auto* const type = InputType();
  if (type == nullptr || Field(*type, kTypeLow).empty() || Field(*type, kTypeHigh).empty()) {
    return std::nullopt;
  }
  return std::pair{Field(*type, kTypeLow), Field(*type, kTypeHigh)};
}

/// A value of zero or span as the device holds it under the present input type and temperature unit.
std::string Parameters::Limited(const std::string& held) const {
  const auto limits = Limits();
  const auto value = ParseNumber(held);
  if (!limits || !value) {
    return held;
  }
  const Item* const unit_item = Find("01", "21");
  const auto* const type = InputType();
  std::string unit;
  if (unit_item != nullptr && unit_item->section == "$I21" && type != nullptr &&
      (Field(*type, family_.type_unit).empty() || Field(*type, family_.type_unit).starts_with("deg"))) {
    const auto& row = definition_.Rows(unit_item->section)[unit_item->row];
    unit = Field(row, 2).empty() ? Field(row, 1) : Field(row, 2);
  }
  auto low = LimitInUnit(limits->first, unit, false);
  auto high = LimitInUnit(limits->second, unit, true);
  if (ParseNumber(low) && *value < *ParseNumber(low)) {
    return low;
  }
  if (ParseNumber(high) && *value > *ParseNumber(high)) {
    return high;
  }
  return held;
}

}  // namespace korva::sim
