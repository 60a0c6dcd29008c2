#include <algorithm>
#include <charconv>
#include <cmath>

#include "sim/model_rules.h"
#include "sim/number.h"
#include "sim/parameters.h"
#include "sim/two_outputs.h"

// What the items of a device report, and what they take.

namespace korva::sim {

namespace {

// What a count can be set to and holds.
constexpr double kLowestCount = -99'999'999;
constexpr double kHighestCount = 4'294'967'295;

bool IsFine(const Item& item) { return item.form == "FINZER" || item.form == "FINSPN"; }

/// An alarm value less the direction that may stand behind it.
std::string_view WithoutDirection(std::string_view text) {
  for (const std::string_view direction : {" (UP)", " (DOWN)"}) {
    if (text.ends_with(direction)) {
      return text.substr(0, text.size() - direction.size());
    }
  }
  return text;
}

WriteResult WriteAddress(Item& item, std::string_view data) {
  constexpr int highest = 0x7F;
  constexpr int base = 16;
  int address = 0;
  const auto [end, error] = std::from_chars(data.data(), data.data() + data.size(), address, base);
  const bool whole = error == std::errc{} && end == data.data() + data.size() && data.size() == 2;
  if (!whole || address < 1 || address > highest) {
    return WriteResult::Refused;
  }
  item.held = data;
  return WriteResult::Done;
}

WriteResult WriteCount(Item& item, std::string_view data) {
  const auto value = ParseNumber(data);
  if (!value || *value < kLowestCount || *value > kHighestCount || *value != std::trunc(*value)) {
    return WriteResult::Refused;
  }
  item.held = FormatNumber(*value, 0);
  return WriteResult::Done;
}

WriteResult WritePair(Item& item, std::string_view data) {
  const auto pair = ParsePair(data);
  item.held = pair ? FormatPair(*pair) : item.held;
  return pair ? WriteResult::Done : WriteResult::Refused;
}

/// The device itself takes more than a configurator should send.
WriteResult WriteFineTrim(Item& item, std::string_view data) {
  constexpr double furthest = 10;  // %
  constexpr int decimals = 3;
  const auto value = ParseNumber(data);
  if (!value || std::abs(*value) > furthest) {
    return WriteResult::Refused;
  }
  item.held = FormatNumber(*value, decimals);
  return WriteResult::Done;
}

}  // namespace

bool Parameters::Needless(const Item& item) const {
  if (item.group != "01") {
    return false;
  }
  if (item.by_title && InputTitle() == 0) {
    return true;
  }
  if (HasWord(ItemsWithout(InputList()), item.item)) {
    return true;
  }
  return std::ranges::any_of(NeedlessRules(), [&](const NeedlessRule& rule) {
    const bool applies = rule.beginning ? code_.starts_with(rule.model) : code_ == rule.model;
    const Item* const selector = applies ? Find("01", rule.selector) : nullptr;
    return selector != nullptr && selector->kind == Item::Kind::Choice && HasWord(rule.items, item.item) &&
           (rule.text.empty() ? HasWord(rule.codes, Code(*selector))
                              : RowText(*selector, selector->row) == rule.text);
  });
}

std::string Parameters::Text(const Item& item) const {
  return item.kind == Item::Kind::Choice ? RowText(item, item.row) : Plain(item) + item.tail;
}

std::string Parameters::Plain(const Item& item) const {
  if (const auto end = FixedEnd(item)) {
    return *end;
  }
  return IsLimited(item) ? Limited(item.held) : item.held;
}

std::optional<double> Parameters::Quantity(const Item& item) const {
  const auto number = item.kind == Item::Kind::Number ? ParseNumber(Plain(item)) : std::nullopt;
  if (number && item.tail.ends_with("kHz")) {
    return *number * 1000;
  }
  return number && item.tail.ends_with("mHz") ? std::optional(*number / 1000) : number;
}

WriteResult Parameters::Write(Item& item, std::string_view data) {
  const auto trimmed = TrimBlanks(data);
  if (Needless(item) || FixedEnd(item)) {
    return WriteResult::NotUsable;
  }
  switch (item.kind) {
    case Item::Kind::Tag:
      if (data.empty() || data.size() > kTagLength) {
        return WriteResult::Refused;
      }
      item.held = trimmed;
      return WriteResult::Done;
    case Item::Kind::Number:
      return WriteNumber(item, item.directed ? WithoutDirection(trimmed) : trimmed);
    case Item::Kind::Address:
      return WriteAddress(item, trimmed);
    case Item::Kind::Count:
      return WriteCount(item, trimmed);
    case Item::Kind::Command:
      return CarryOut(item, trimmed);
    case Item::Kind::Choice:
      return WriteChoice(item, trimmed);
    case Item::Kind::Pair:
      return WritePair(item, trimmed);
    case Item::Kind::FineTrim:
      return WriteFineTrim(item, trimmed);
    default:
      return WriteResult::Refused;
  }
}

WriteResult Parameters::WriteNumber(Item& item, std::string_view data) const {
  const auto value = ParseNumber(data);
  if (!value || (data.ends_with('.') && RefusesTrailingPoint(code_)) || !IsThreshold(item, *value)) {
    return WriteResult::Refused;
  }
  Hold(item, *value, data);
  return WriteResult::Done;
}

/// Whether a threshold can have this value; true for any other number. A line receiver has none: 0 alone.
bool Parameters::IsThreshold(const Item& item, double volts) const {
  constexpr std::size_t class_column = 5;
  if (item.low.empty() || item.high.empty()) {
    return true;
  }
  const Item* const input = Find("01", "11");
  const bool receiver = input != nullptr && input->row < Rows(*input).size() &&
                        Field(Rows(*input)[input->row], class_column) == "4";
  return receiver ? volts == 0
                  : volts >= ParseNumber(item.low).value_or(0) && volts <= ParseNumber(item.high).value_or(0);
}

/// Takes a number as the device keeps it: fine values, and beside their unit percentages and most
/// frequencies, with two decimals, times and voltages on their grid, all others as they were written.
void Parameters::Hold(Item& item, double value, std::string_view text) const {
  constexpr double time_grid = 5;         // msec
  constexpr double steps_of_a_volt = 20;  // 0.05 V
  const bool united = family_.frequencies != FrequencyCodes::None;
  if (united && item.unit == "msec") {
    item.held = FormatNumber(std::trunc(value / time_grid) * time_grid, 0);
  } else if (united && item.unit == "V") {
    item.held = FormatNumber(std::round(value * steps_of_a_volt) / steps_of_a_volt, 2);
  } else if (IsFine(item) || (united && item.unit == "%") ||
             (!item.unit_item.empty() && family_.frequencies == FrequencyCodes::FromHertz)) {
    item.held = FormatNumber(value, 2);
  } else {
    item.held = text;
  }
  if (const Item* const unit = item.unit_item.empty() ? nullptr : Find("01", item.unit_item)) {
    item.tail = Field(Rows(*unit)[unit->row], 2);
  }
}

WriteResult Parameters::CarryOut(const Item& command, std::string_view data) {
  Item* const count = data.empty() ? Find("01", CountOfCommand(command.item)) : nullptr;
  if (count == nullptr || count->kind != Item::Kind::Count) {
    return WriteResult::Refused;
  }
  count->held = "0";
  return WriteResult::Done;
}

void Parameters::CountOn(Item& count) {
  const double next = ParseNumber(count.held).value_or(0) + 1;
  count.held = FormatNumber(next > kHighestCount ? 0 : next, 0);
}

bool Parameters::Set(Item& item, std::string_view value) {
  if (item.kind == Item::Kind::Choice) {
    const auto& rows = Rows(item);
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (RowUsable(item, row) && (RowText(item, row) == value || Field(rows[row], 0) == value)) {
        Choose(item, row);
        return true;
      }
    }
    return false;
  }
  if (item.kind == Item::Kind::Fixed) {
    item.held = value;
    if (item.group == "00" && item.item == "99") {
      system_text_ = value;
    }
    return true;
  }
  if (item.kind == Item::Kind::Tag && value.empty()) {
    item.held.clear();
    return true;
  }
  return Write(item, value) == WriteResult::Done;
}

}  // namespace korva::sim
