#include "sim/parameters.h"

#include <algorithm>
#include <cmath>

#include "sim/model_rules.h"
#include "sim/number.h"

namespace korva::sim {

namespace {

// Columns of `$Data`.
constexpr std::size_t kGroup = 0;
constexpr std::size_t kItem = 1;
constexpr std::size_t kCaption = 3;
constexpr std::size_t kUpload = 4;
constexpr std::size_t kCombo = 10;
constexpr std::size_t kList = 11;
constexpr std::size_t kUnit = 14;
constexpr std::size_t kPrefix = 22;
constexpr std::size_t kWritePosition = 23;
constexpr std::size_t kTitle = 25;

// Columns of `$I10`.
constexpr std::size_t kTypeLow = 2;
constexpr std::size_t kTypeHigh = 3;
constexpr std::size_t kTypeSettable = 6;
constexpr std::size_t kTypeTitle = 7;
constexpr std::size_t kTypeUnit = 8;

constexpr std::string_view kInputTypes = "$I10";
constexpr std::string_view kRanges = "$I11Body";

/// The group or item as the wire has it: "03_set" and "03_mon" are both item 03.
std::string_view OnWire(std::string_view text) { return text.substr(0, text.find('_')); }

/// A limit in the unit that the device shows, not narrower than the same limit in deg C.
std::string LimitInUnit(const std::string& limit, std::string_view unit, bool upper) {
  const auto value = ParseNumber(limit);
  if (!value || (unit != "deg F" && unit != "K")) {
    return limit;
  }
  const double converted = unit == "K" ? *value + 273.2 : (*value * 9 / 5) + 32;
  return FormatNumber(upper ? std::ceil(converted) : std::floor(converted), 0);
}

/// Whether the item is zero or span, which the device limits.
bool IsLimited(const Item& item) {
  return item.kind == Item::Kind::Number && item.group == "01" && (item.item == "14" || item.item == "15");
}

}  // namespace

Parameters::Parameters(const Model& model, Definition definition, const Family& family,
                       std::string system_text)
    : definition_(std::move(definition)),
      family_(family),
      code_(model.definition_file.substr(0, model.definition_file.find('.'))),
      system_text_(std::move(system_text)) {
  for (const auto& row : definition_.Rows("$Data")) {
    AddRow(row);
  }
  AddFixed("00", "99", system_text_, system_text_);
  AddFixed("00", "01", "Model", code_);
  AddFixed("01", "00", "Model", code_);
  AddFixed("01", family.mode_item, "Maintenance SW", {});
  Find("01", family.mode_item)->kind = Item::Kind::Mode;
  Reset();
}

void Parameters::AddRow(const Definition::Row& row) {
  const auto group = OnWire(Field(row, kGroup));
  const auto number = OnWire(Field(row, kItem));
  if (group.empty() || number.empty()) {
    return;
  }
  Item* item = Find(group, number);
  if (item == nullptr) {
    item = &items_.emplace_back();
    item->group = group;
    item->item = number;
  }
  // Two rows of one item, such as set and shown value, complete each other.
  const auto fill = [&](std::string& member, std::size_t column) {
    if (member.empty()) {
      member = Field(row, column);
    }
  };
  fill(item->title, kTitle);
  fill(item->title, kCaption);
  fill(item->unit, kUnit);
  if (Field(row, kPrefix) != "O" && Field(row, kPrefix) != "N") {  // these mark choices, they are no prefixes
    fill(item->prefix, kPrefix);
  }
  item->uploaded = item->uploaded || Field(row, kUpload) == "Y";
  ClassifyRow(row, *item);
}

void Parameters::ClassifyRow(const Definition::Row& row, Item& item) const {
  if (item.kind == Item::Kind::Choice) {
    return;
  }
  const auto section = Field(row, kList) == "$I11" && !definition_.Rows(kRanges).empty()
                           ? std::string(kRanges)
                           : Field(row, kList);
  if (!definition_.Rows(section).empty()) {
    item.kind = Item::Kind::Choice;
    item.section = section;
    item.by_title = section == kRanges && !Field(row, kCombo).empty();
  } else if (item.prefix == "TG:" || (item.group == "01" && item.item == "02")) {
    item.kind = Item::Kind::Tag;
  } else if (item.group == "01" && item.item == family_.output_item) {
    item.kind = Item::Kind::Output;
  } else if (item.group == "01" && HasWord(family_.live_items, item.item) &&
             Field(row, kWritePosition).empty()) {
    item.kind = Item::Kind::Live;
  }
}

void Parameters::AddFixed(std::string_view group, std::string_view item, std::string_view title,
                          std::string value) {
  Item* found = Find(group, item);
  if (found == nullptr) {
    found = &items_.emplace_back();
    found->group = group;
    found->item = item;
  }
  if (found->title.empty()) {
    found->title = title;
  }
  found->kind = Item::Kind::Fixed;
  found->held = std::move(value);
}

Item* Parameters::Find(std::string_view group, std::string_view item) {
  const auto found = std::ranges::find_if(
      items_, [&](const Item& candidate) { return candidate.group == group && candidate.item == item; });
  return found == items_.end() ? nullptr : &*found;
}

const Item* Parameters::Find(std::string_view group, std::string_view item) const {
  const auto found = std::ranges::find_if(
      items_, [&](const Item& candidate) { return candidate.group == group && candidate.item == item; });
  return found == items_.end() ? nullptr : &*found;
}

bool Parameters::HasGroup(std::string_view group) const {
  return std::ranges::find(items_, group, &Item::group) != items_.end();
}

// --- power-up
// -----------------------------------------------------------------------------------------------

void Parameters::Reset() {
  // Choices first: the input type decides about the range, and both about zero and span.
  for (auto& item : items_) {
    if (item.kind == Item::Kind::Choice && !item.by_title) {
      item.row = FirstRow(item);
    }
  }
  for (auto& item : items_) {
    if (item.kind == Item::Kind::Choice && item.by_title) {
      item.row = FirstRow(item);
    }
  }
  for (auto& item : items_) {
    PowerUp(item);
  }
}

void Parameters::PowerUp(Item& item) const {
  if (item.kind == Item::Kind::Tag) {
    item.held = "TAG-1";
  } else if (item.kind != Item::Kind::Number) {
    return;
  } else if (item.prefix == "FINZER") {
    item.held = "0.00";
  } else if (item.prefix == "FINSPN") {
    item.held = "100.00";
  } else if (IsLimited(item)) {
    item.held = PowerUpLimit(item.item == "15");
  } else {
    item.held = PowerUpNumber(code_, item.item);
  }
}

/// The row that a choice has at power-up: the first usable one, with a filter in use where there is one. Of
/// the input types the first that can be set, or else the one that is fixed in the device.
std::size_t Parameters::FirstRow(const Item& item) const {
  const auto& rows = definition_.Rows(item.section);
  std::optional<std::size_t> usable;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (!RowUsable(item, row)) {
      continue;
    }
    usable = usable.value_or(row);
    const bool preferred = item.section == kInputTypes && family_.typed_input
                               ? Field(rows[row], kTypeSettable) == "Y"
                               : RowText(item, row) != "0:NO FILTER";
    if (preferred) {
      return row;
    }
  }
  return usable.value_or(0);
}

std::string Parameters::PowerUpLimit(bool span) const {
  if (const auto limits = Limits()) {
    return span ? limits->second : limits->first;
  }
  const Item* const kind = Find("01", "11");
  if (span && kind != nullptr && kind->section == "$I11QEI") {
    return Field(definition_.Rows(kind->section)[kind->row], 3);  // rated span of this frequency range
  }
  return span ? "10" : "0";
}

// --- choices
// ------------------------------------------------------------------------------------------------

std::size_t Parameters::TextColumn(const Item& item) const { return item.by_title ? InputTitle() : 1; }

std::string Parameters::RowText(const Item& item, std::size_t row) const {
  if (item.section == kInputTypes && code_ == kVersionedModel && !SensorText(row, system_text_).empty()) {
    return std::string(SensorText(row, system_text_));
  }
  const auto& rows = definition_.Rows(item.section);
  return row < rows.size() ? Field(rows[row], TextColumn(item)) : std::string{};
}

bool Parameters::RowUsable(const Item& item, std::size_t row) const {
  const auto& rows = definition_.Rows(item.section);
  return row < rows.size() && !Field(rows[row], 0).empty() && !RowText(item, row).empty();
}

std::string Parameters::Code(const Item& item) const {
  const auto& rows = definition_.Rows(item.section);
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

WriteResult Parameters::WriteChoice(Item& item, std::string_view data) {
  const auto& rows = definition_.Rows(item.section);
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
    item.row = row;
    SettleRange();
    return WriteResult::Done;
  }
  return WriteResult::Refused;
}

/// Another input type may not have the range chosen under the former one.
void Parameters::SettleRange() {
  Item* const range = Find("01", "11");
  if (range != nullptr && range->by_title && !RowUsable(*range, range->row)) {
    range->row = FirstRow(*range);
  }
}

// --- limits
// -------------------------------------------------------------------------------------------------

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
      (Field(*type, kTypeUnit).empty() || Field(*type, kTypeUnit).starts_with("deg"))) {
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

// --- reading and writing
// --------------------------------------------------------------------------------------

bool Parameters::Needless(const Item& item) const {
  if (item.group != "01") {
    return false;
  }
  if (item.by_title && InputTitle() == 0) {
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
  if (item.kind == Item::Kind::Choice) {
    return RowText(item, item.row);
  }
  return IsLimited(item) ? Limited(item.held) : item.held;
}

WriteResult Parameters::Write(Item& item, std::string_view data) {
  const auto trimmed = TrimBlanks(data);
  if (Needless(item)) {
    return WriteResult::NotUsable;
  }
  switch (item.kind) {
    case Item::Kind::Tag:
      if (data.empty() || data.size() > kTagLength) {
        return WriteResult::Refused;
      }
      item.held = trimmed;
      return WriteResult::Done;
    case Item::Kind::Number: {
      const auto value = ParseNumber(trimmed);
      if (!value || (trimmed.ends_with('.') && RefusesTrailingPoint(code_))) {
        return WriteResult::Refused;
      }
      const bool fine = item.prefix == "FINZER" || item.prefix == "FINSPN";
      item.held = fine ? FormatNumber(*value, 2) : std::string(trimmed);
      return WriteResult::Done;
    }
    case Item::Kind::Choice:
      return WriteChoice(item, trimmed);
    default:
      return WriteResult::Refused;
  }
}

bool Parameters::Set(Item& item, std::string_view value) {
  if (item.kind == Item::Kind::Choice) {
    const auto& rows = definition_.Rows(item.section);
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (RowUsable(item, row) && (RowText(item, row) == value || Field(rows[row], 0) == value)) {
        item.row = row;
        SettleRange();
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
