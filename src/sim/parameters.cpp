#include "sim/parameters.h"

#include <algorithm>
#include <array>

#include "sim/model_rules.h"
#include "sim/number.h"
#include "sim/two_outputs.h"

namespace korva::sim {

namespace {

// Columns of `$Data`.
constexpr std::size_t kGroup = 0;
constexpr std::size_t kItem = 1;
constexpr std::size_t kCaption = 3;
constexpr std::size_t kUpload = 4;
constexpr std::size_t kCombo = 10;
constexpr std::size_t kList = 11;
constexpr std::size_t kThresholdLow = 21;
constexpr std::size_t kPrefix = 22;
constexpr std::size_t kThresholdHigh = 24;
constexpr std::size_t kTitle = 25;

/// The group or item as the wire has it: "03_set" and "03_mon" are both item 03.
std::string_view OnWire(std::string_view text) { return text.substr(0, text.find('_')); }

}  // namespace

Parameters::Parameters(const Model& model, Definition definition, const Family& family,
                       std::string system_text)
    : definition_(std::move(definition)),
      family_(family),
      code_(model.definition_file.substr(0, model.definition_file.find('.'))),
      system_text_(std::move(system_text)) {
  if (!family_.input_lists.empty()) {
    definition_.Join("$I10", family_.input_lists);
  }
  for (const auto& row : definition_.Rows("$Data")) {
    AddRow(row);
  }
  AddFixed("00", "99", system_text_, system_text_);
  AddFixed("00", "01", "Model", code_);
  AddFixed("01", "00", "Model", code_);
  AddUnits();
  AddMemory();
  AddTrims();
  AddRestart();
  AddOutputs();
  AddKeyedTables();
  if (!family_.reset_item.empty()) {
    AddFixed("01", family_.reset_item, "prms initializer", "0");
  }
  AddFixed("01", family.mode_item, "Maintenance SW", {});
  Find("01", family.mode_item)->kind = Item::Kind::Mode;
  Reset();
}

void Parameters::AddRow(const Definition::Row& row) {
  const auto group = OnWire(Field(row, kGroup));
  const auto number = OnWire(Field(row, kItem));
  // Item 00 tells the model; a row for it is the page's own.
  if (group.empty() || number.empty() || (group == "01" && number == "00")) {
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
  if (item->title.ends_with("Type")) {
    item->title += '1';  // the display numbers the types of its inputs
  }
  fill(item->unit, family_.columns.unit);
  if (!Field(row, family_.columns.unit_box).empty()) {
    fill(item->unit_item, family_.columns.code_item);
    item->unit_item = item->unit_item.empty() ? std::string(family_.unit_item) : item->unit_item;
  }
  fill(item->follows, family_.columns.follows);
  fill(item->form, kPrefix);
  if (family_.threshold_in_row) {
    fill(item->low, kThresholdLow);
    fill(item->high, kThresholdHigh);
  }
  if (!family_.kinds && item->form != "O" && item->form != "N") {  // these mark choices, they are no prefixes
    item->prefix = item->form;
  }
  item->uploaded = item->uploaded || Field(row, kUpload) == "Y";
  ClassifyRow(row, *item);
}

void Parameters::ClassifyRow(const Definition::Row& row, Item& item) const {
  if (item.kind == Item::Kind::Choice || item.kind == Item::Kind::Count) {
    return;  // a further row of the item, such as that of the shown value, changes nothing
  }
  item.kind = KindOf(row, item);
  if (item.kind == Item::Kind::Choice) {
    item.section = Field(row, kList) == "$I11" && !definition_.Rows(kRanges).empty() ? std::string(kRanges)
                                                                                     : Field(row, kList);
    item.by_title = item.section == kRanges && !Field(row, kCombo).empty();
  }
  if (item.kind == Item::Kind::Address) {
    item.tail = " hex";
  }
  if (item.kind != Item::Kind::Number) {
    return;
  }
  const auto* const alarm = item.group == "01" ? FindAlarmValue(code_, item.item) : nullptr;
  if (alarm != nullptr) {
    item.directed = true;
    item.tail = alarm->unit;
  } else if (family_.frequencies == FrequencyCodes::FromHertz && !item.unit.empty()) {
    item.tail = " " + item.unit;
  }
}

/// What a device with two outputs has besides its definition: the text of its model, the second
/// output as a live value, and what corrects its sensor's circuit.
void Parameters::AddOutputs() {
  if (family_.pairs.empty()) {
    return;
  }
  Find("00", "01")->held = code_ + "-AA-S";
  AddFixed("01", "08", "Output 2 Percent", {});
  Find("01", "08")->kind = Item::Kind::Live;
  Find("01", "08")->unit = "%";
  if (CorrectsItsSensor(code_) != Compensation::Kind::None) {
    AddFixed("01", family_.compensation_item, "Sensor Comp.", {});
    Find("01", family_.compensation_item)->kind = Item::Kind::Compensation;
  }
}

Item::Kind Parameters::KindOf(const Definition::Row& row, const Item& item) const {
  const auto& list = Field(row, kList);
  if (!definition_.Rows(list).empty() || (list == "$I11" && !definition_.Rows(kRanges).empty())) {
    return Item::Kind::Choice;
  }
  if (item.form == "TG:" || (item.group == "01" && item.item == "02")) {
    return Item::Kind::Tag;
  }
  if (item.group != "01") {
    return item.kind;
  }
  if (item.form == "HEXADR") {
    return Item::Kind::Address;
  }
  if (HasWord(family_.pairs, item.item)) {
    return Item::Kind::Pair;
  }
  if (HasWord(family_.fine_trims, item.item)) {
    return Item::Kind::FineTrim;
  }
  const bool written = item.uploaded || !Field(row, family_.columns.position).empty();
  if (family_.counts && Field(row, kItem).ends_with("_set") && item.unit != "%") {
    return Item::Kind::Count;
  }
  if (family_.counts && !written && !CountOfCommand(item.item).empty()) {
    return Item::Kind::Command;
  }
  if (item.item == family_.output_item) {
    return Item::Kind::Output;
  }
  return HasWord(family_.live_items, item.item) && Field(row, family_.columns.position).empty()
             ? Item::Kind::Live
             : item.kind;
}

void Parameters::AddUnits() {
  std::vector<std::string> codes = {std::string(family_.unit_item)};
  for (const auto& item : items_) {
    codes.push_back(item.unit_item);
  }
  for (const auto& code : codes) {
    if (code.empty() || Find("01", code) != nullptr) {
      continue;
    }
    Item& item = items_.emplace_back();
    item.group = "01";
    item.item = code;
    item.title = "unit frequency";
    item.kind = Item::Kind::Choice;
    item.section = kFrequencyUnits;
  }
}

/// What is kept in the memory is told by items, but not set by them.
void Parameters::AddMemory() {
  if (!family_.memory) {
    return;
  }
  AddFixed("99", "10", "EEPROM Access", {});
  Find("99", "10")->kind = Item::Kind::Access;
  Find("00", "01")->kind = Item::Kind::Stored;
  for (const std::string_view item : {"10", "11"}) {
    if (Item* const type = Find("01", item)) {
      type->kind = Item::Kind::Stored;
    }
  }
}

void Parameters::AddTrims() {
  if (!family_.trims) {
    return;
  }
  AddFixed("01", "03", "unit frequency", "1");
  const auto add = [this](std::string_view item, std::string_view title, Item::Kind kind) {
    AddFixed("01", item, title, {});
    Find("01", item)->kind = kind;
  };
  add("28", "Output Trim", Item::Kind::Trim);
  add("29", "Output Up/Down", Item::Kind::Trimmer);
  add("62", "Linearization Table", Item::Kind::Table);
}

void Parameters::AddRestart() {
  if (!family_.restart_item.empty()) {
    AddFixed("00", family_.restart_item, "Status 1", "RUN");
    Find("00", family_.restart_item)->kind = Item::Kind::Restart;
  }
}

void Parameters::AddKeyedTables() {
  if (family_.tables.sensor_rows == 0) {
    return;
  }
  const auto add = [this](std::string_view item, std::string_view title) {
    AddFixed("01", item, title, {});
    Find("01", item)->kind = Item::Kind::Keyed;
  };
  add("60", "TC Table");
  add("61", "RTD Table");
  add("62", "Linearize Table");
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
  switch (item.kind) {
    case Item::Kind::Tag:
      item.held = "TAG-1";
      break;
    case Item::Kind::Count:
    case Item::Kind::Command:
      item.held = "0";
      break;
    case Item::Kind::Address:
      item.held = "01";
      break;
    case Item::Kind::Number: {
      const auto number = PowerUpText(item);
      Hold(item, ParseNumber(number).value_or(0), number);
      break;
    }
    case Item::Kind::Pair:
      item.held = PairOfType(item);
      break;
    case Item::Kind::FineTrim:
      item.held = "0.000";
      break;
    default:
      break;
  }
}

/// The pair that the present type of the input or of an output brings along: range and limits by its row;
/// that of the cold junction is the one of a new module.
std::string Parameters::PairOfType(const Item& pair) const {
  struct Source {
    std::string_view pair;
    std::string_view type;
    std::size_t first;
    std::size_t second;
  };
  constexpr std::array<Source, 6> sources = {{{.pair = "14", .type = "10", .first = 2, .second = 3},
                                              {.pair = "15", .type = "10", .first = 6, .second = 9},
                                              {.pair = "12", .type = "11", .first = 2, .second = 3},
                                              {.pair = "13", .type = "11", .first = 4, .second = 6},
                                              {.pair = "42", .type = "41", .first = 2, .second = 3},
                                              {.pair = "43", .type = "41", .first = 4, .second = 6}}};
  const auto* const source = std::ranges::find(sources, pair.item, &Source::pair);
  const Item* const type = source == sources.end() ? nullptr : Find("01", source->type);
  if (type == nullptr || type->kind != Item::Kind::Choice) {
    return "25.000 574.000";
  }
  const auto& row = Rows(*type)[type->row];
  return FormatPair({.first = ParseNumber(Field(row, source->first)).value_or(0),
                     .second = ParseNumber(Field(row, source->second)).value_or(0)});
}

std::string Parameters::PowerUpText(const Item& item) const {
  if (item.form == "FINZER") {
    return "0.00";
  }
  if (item.form == "FINSPN") {
    return "100.00";
  }
  const bool first_types = family_.memory || family_.universal || !family_.input_lists.empty();
  if (first_types && item.group == "01" && HasWord("12 13 14 15 42 43", item.item)) {
    return FirstTypeLimit(item);
  }
  return IsLimited(item) ? PowerUpLimit(item.item == "15")
                         : std::string(PowerUpNumber(family_.word, code_, item.item));
}

/// Zero and span of a device that comes up with the first types of its lists: their limits.
std::string Parameters::FirstTypeLimit(const Item& item) const {
  const bool zero = HasWord("12 14 42", item.item);
  const bool second = item.item.starts_with('4');
  const bool input = item.item == "14" || item.item == "15";
  const auto& types = definition_.Rows(input ? "$I10" : second ? "$I41" : "$I11");
  return types.empty() ? "0" : Field(types.front(), zero ? 2 : 3);
}

std::string Parameters::PowerUpLimit(bool span) const {
  if (const auto limits = Limits()) {
    return span ? limits->second : limits->first;
  }
  const Item* const kind = Find("01", "11");
  if (span && kind != nullptr && HasWord("$I11QEI $I11QIE $I11QHC2", kind->section)) {
    return Field(definition_.Rows(kind->section)[kind->row], 3);  // rated span of this frequency range
  }
  return span ? "10" : "0";
}

}  // namespace korva::sim
