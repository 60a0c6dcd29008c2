#include <algorithm>
#include <utility>

#include "sim/device_state.h"
#include "sim/number.h"

// What a device makes of a command, and the state of its menu.

namespace korva::sim {

namespace {

constexpr std::string_view kAccepted = "COK";
constexpr std::string_view kRefused = "CNG";
constexpr std::string_view kNotUsable = "CNU";
constexpr std::string_view kModes = "0 1 A";  // monitor, programming, status monitor
constexpr char kProgramming = '1';
constexpr std::size_t kLinearizerRows = 101;

}  // namespace

std::string Device::State::Execute(std::string_view line, MemoryAccess::Trouble trouble) {
  if (InAccess(line)) {
    return access.Answer(line, trouble);
  }
  const std::string_view text = line.empty() ? line : line.substr(1);
  switch (line.empty() ? '\0' : line.front()) {
    case 'G':
      return SelectGroup(text);
    case 'I':
      return SelectItem(text);
    case 'D':
      return family.dialect == Dialect::EnterItem && text.empty() ? ReplyValue() : TakeData(text);
    default:
      return Refusal(WriteResult::Refused);
  }
}

std::string Device::State::ExecuteInVain(std::string_view line) {
  const auto had = selected == nullptr ? Item() : *selected;
  auto reply = Execute(line);
  if (selected != nullptr && IsEcho(line, reply)) {
    selected->held = had.held;
    selected->row = had.row;
  }
  return reply;
}

std::string Device::State::SelectGroup(std::string_view text) {
  selected = nullptr;
  point.reset();
  group.clear();
  if (!parameters.HasGroup(text) && !table.HasGroup(text)) {
    return Refusal(WriteResult::Refused);
  }
  group = text;
  return family.dialect == Dialect::Cok ? std::string(kAccepted)
                                        : "D" + RightAlign("enter item", kDisplayWidth);
}

std::string Device::State::SelectItem(std::string_view text) {
  selected = group.empty() ? nullptr : parameters.Find(group, text);
  point = group.empty() ? std::nullopt : table.Find(group, text);
  if (selected == nullptr && !point) {
    return Refusal(WriteResult::Refused);
  }
  access.Enter();
  if (selected == nullptr || !HasDialogue(*selected)) {
    dialogue.End();
  }
  if (family.dialect == Dialect::EnterItem) {
    return "D" + RightAlign(selected != nullptr ? TitleOf(*selected) : "Linearize Table", kDisplayWidth);
  }
  if (selected != nullptr && parameters.Needless(*selected)) {
    selected = nullptr;
    return Refusal(WriteResult::NotUsable);
  }
  return ReplyValue();
}

std::string Device::State::ReplyValue() {
  if (point) {
    return "D" + PointTable::Head(*point) + RightAlign(table.Text(*point), kLiveWidth);
  }
  if (selected == nullptr) {
    return Refusal(WriteResult::Refused);
  }
  if (parameters.Needless(*selected)) {
    return Refusal(WriteResult::NotUsable);
  }
  if (selected->kind == Item::Kind::Live || selected->kind == Item::Kind::Output) {
    live.Step();
  } else if (selected->kind == Item::Kind::Count && mode == kMonitorMode) {
    Parameters::CountOn(*selected);
  }
  return "D" + PaddedText(*selected);
}

std::string Device::State::TakeData(std::string_view data) {
  if (selected != nullptr && selected->kind == Item::Kind::Mode) {
    if (!HasWord(kModes, TrimBlanks(data))) {
      return Refusal(WriteResult::Refused);
    }
    EnterMode(TrimBlanks(data));
    return "D" + PaddedText(*selected);
  }
  if (selected != nullptr && HasDialogue(*selected) && dialogue.Takes(data)) {
    const auto answer = dialogue.Answer(data, mode == kProgramming);
    return answer ? "D" + RightAlign(*answer, kDisplayWidth) : Refusal(WriteResult::Refused);
  }
  if (selected != nullptr && selected->kind == Item::Kind::Table) {
    return TakeTableCommand(data);
  }
  if (selected != nullptr && selected->kind == Item::Kind::Compensation) {
    const auto answer = compensation.Answer(data, outputs.Circuit(), now);
    return answer ? "D" + RightAlign(*answer, kDisplayWidth) : Refusal(WriteResult::Refused);
  }
  if (KeyedTable* const keys = KeyedTableOf(selected)) {
    const auto answer = keys->Answer(data, mode == kProgramming);
    return answer ? "D" + RightAlign(*answer, kDisplayWidth) : Refusal(WriteResult::Refused);
  }
  if (!TakesDataNow()) {
    return Refusal(WriteResult::Refused);
  }
  if (point) {
    return table.Write(*point, data) ? ReplyValue() : Refusal(WriteResult::Refused);
  }
  return selected == nullptr ? Refusal(WriteResult::Refused) : TakeParameter(data);
}

/// Most of what can be written is written in programming mode alone.
bool Device::State::TakesDataNow() const {
  return mode == kProgramming ||
         (selected != nullptr && selected->group == "01" && HasWord(family.live_settings, selected->item));
}

std::string Device::State::TakeTableCommand(std::string_view data) {
  const auto answer = commands.Answer(data, mode == kProgramming);
  return answer ? "D" + RightAlign(*answer, kDisplayWidth) : Refusal(WriteResult::Refused);
}

void Device::State::AddKeyedTables() {
  const KeyedTables& tables = family.tables;
  if (tables.sensor_rows == 0) {
    return;
  }
  const auto add = [&](std::string_view item, KeyedTableForm form) {
    form.guarded = tables.guarded;
    keyed.emplace(item, KeyedTable(form));
  };
  add("60", {.keys = "T", .unit = "mV", .rows = tables.sensor_rows, .rise = 0.5});
  add("61", {.keys = "T", .unit = "Ohm", .rows = tables.sensor_rows, .ranged = tables.ranged, .rise = 40});
  add("62", {.keys = "XY", .unit = "%", .rows = kLinearizerRows, .scaled = false, .rise = 10});
}

KeyedTable* Device::State::KeyedTableOf(const Item* item) {
  const auto found = item == nullptr || item->group != "01" ? keyed.end() : keyed.find(item->item);
  return found == keyed.end() ? nullptr : &found->second;
}

bool Device::State::IsKeyedRow(std::string_view line) {
  const KeyedTable* const keys = KeyedTableOf(selected);
  return keys != nullptr && line.starts_with('D') && keys->IsRow(line.substr(1));
}

/// Whether the answer to a command is a pair of values, of zero and span or of a point.
bool Device::State::AnswersInPairs(std::string_view line) const {
  return selected != nullptr && line.starts_with('D') &&
         (selected->kind == Item::Kind::Trim || selected->kind == Item::Kind::Table ||
          selected->kind == Item::Kind::Pair || selected->kind == Item::Kind::Compensation);
}

/// Whether a command reads or writes an item that holds two numbers.
bool Device::State::IsPair(std::string_view line) const {
  return selected != nullptr && selected->kind == Item::Kind::Pair && line.starts_with('D');
}

/// A reply with the selected item's unit behind each of its two numbers; any other reply as it is.
std::string Device::State::WithUnits(const std::string& reply) const {
  const std::string_view held = selected->held;
  if (held.empty() || !reply.ends_with(held)) {
    return reply;
  }
  const std::string unit = outputs.UnitOfPair(*selected);
  const std::size_t blank = held.find(' ');
  const std::string shown =
      std::string(held.substr(0, blank)) + unit + std::string(held.substr(blank)) + unit;
  return "D" + RightAlign(shown, kDisplayWidth);
}

std::string Device::State::TakeParameter(std::string_view data) {
  if (selected->kind == Item::Kind::Restart) {
    return data == "R" ? Restart() : Refusal(WriteResult::Refused);
  }
  if (selected->kind == Item::Kind::Trimmer) {
    return trim.Apply(data) ? "D" + PaddedText(*selected) : Refusal(WriteResult::Refused);
  }
  if (selected->kind == Item::Kind::Output) {
    const auto percent = ParseNumber(TrimBlanks(data));
    const bool forced = percent && live.Force(*percent);
    return forced ? "D" + PaddedText(*selected) : Refusal(WriteResult::Refused);
  }
  if (selected->group == "01" && selected->item == family.reset_item && data == "1") {
    parameters.Reset();
    return "Dall prms default";
  }
  const auto result = parameters.Write(*selected, data);
  if (result != WriteResult::Done) {
    return Refusal(result);
  }
  const bool other_echo = selected->kind == Item::Kind::Tag && !family.tag_echo.empty();
  return "D" + (other_echo ? RightAlign(family.tag_echo, kDisplayWidth) : PaddedText(*selected));
}

bool Device::State::HasDialogue(const Item& item) const {
  return item.group == "01" && !family.table_item.empty() && item.item == family.table_item;
}

/// What comes behind finds the device as after power-up, but with all that was written.
std::string Device::State::Restart() {
  EnterMode(std::string(1, kMonitorMode));
  selected = nullptr;
  point.reset();
  group.clear();
  TakeNetworkSettings();
  restarting = true;
  return "D" + RightAlign("Reset", kDisplayWidth);
}

void Device::State::TakeNetworkSettings() {
  std::string_view items = family.network_items;
  while (!items.empty()) {
    const auto number = items.substr(0, items.find(' '));
    if (const Item* const item = std::as_const(parameters).Find("01", number)) {
      in_force[std::string(number)] = ValueText(*item);
    }
    items.remove_prefix(std::min(number.size() + 1, items.size()));
  }
}

void Device::State::EnterMode(std::string_view data) {
  mode = data.front();
  if (mode != kProgramming) {
    live.Release();
  }
}

/// The other dialect has no codes: it tells on the display what is wrong.
std::string Device::State::Refusal(WriteResult result) const {
  if (family.dialect == Dialect::EnterItem) {
    return "D" + RightAlign(result == WriteResult::NotUsable ? "not usable" : "invalid data", kDisplayWidth);
  }
  return std::string(result == WriteResult::NotUsable ? kNotUsable : kRefused);
}

bool Device::State::InAccess(std::string_view line) const {
  return selected != nullptr && selected->kind == Item::Kind::Access && line.starts_with('D');
}

/// The access has codes in either dialect.
std::string Device::State::RefusalOf(std::string_view line, WriteResult result) const {
  if (InAccess(line)) {
    return std::string(result == WriteResult::NotUsable ? kNotUsable : kRefused);
  }
  return Refusal(result);
}

}  // namespace korva::sim
