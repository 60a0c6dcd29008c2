#include "sim/device.h"

#include <algorithm>
#include <utility>

#include "sim/command_table.h"
#include "sim/live_values.h"
#include "sim/model_rules.h"
#include "sim/number.h"
#include "sim/parameters.h"
#include "sim/point_table.h"
#include "sim/setup.h"
#include "sim/transmitter.h"
#include "sim/trim.h"

namespace korva::sim {

namespace {

constexpr std::string_view kAccepted = "COK";
constexpr std::string_view kRefused = "CNG";
constexpr std::string_view kNotUsable = "CNU";
constexpr std::string_view kModes = "0 1 A";  // monitor, programming, status monitor
constexpr char kMonitor = '0';
constexpr char kProgramming = '1';
constexpr std::size_t kDisplayWidth = 16;
constexpr std::size_t kLiveWidth = 8;
constexpr std::size_t kCountWidth = 10;

std::string RightAlign(std::string_view text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + std::string(text);
}

const Family& FamilyOf(const Model& model) {
  const Family* const family = FindFamily(model.family_word);
  if (family == nullptr) {
    throw SetupError("model " + model.name + " has the unknown family word \"" + model.family_word + "\"");
  }
  return *family;
}

/// A write's echo with another value in place of `value`, which stands in it.
std::string OtherValue(std::string reply, const std::string& value) {
  std::string other(value);
  if (const auto number = ParseNumber(TrimBlanks(value))) {
    const auto point = value.find('.');
    const auto decimals = point == std::string::npos ? 0 : value.find_last_not_of(' ') - point;
    other = FormatNumber(*number + 1, static_cast<int>(decimals));
  } else {
    other.front() = other.front() == 'X' ? 'Y' : 'X';
  }
  return reply.replace(reply.rfind(value), value.size(), other);
}

}  // namespace

/// Menu position, mode and values of a device.
struct Device::State {
  State(Model of_model, Definition definition, DeviceOptions with)
      : model(std::move(of_model)),
        family(FamilyOf(model)),
        options(std::move(with)),
        setup(definition, model.definition_file.substr(0, model.definition_file.find('.')), options.curves),
        parameters(model, std::move(definition), family, options.system_text),
        slow(AnswersSlowly(parameters.ModelCode())),
        table(family.table == TableShape::ByModel ? TableOfModel(parameters.ModelCode()) : family.table) {}

  std::string Execute(std::string_view line, MemoryAccess::Trouble trouble = {});
  std::string SelectGroup(std::string_view text);
  std::string SelectItem(std::string_view text);
  std::string ReplyValue();
  std::string TakeData(std::string_view data);
  std::string TakeParameter(std::string_view data);
  bool HasDialogue(const Item& item) const;
  std::string TakeTableCommand(std::string_view data);
  bool TakesDataNow() const;
  bool AnswersInPairs(std::string_view line) const;
  void EnterMode(std::string_view data);
  std::string Refusal(WriteResult result) const;
  bool InAccess(std::string_view line) const;
  std::string RefusalOf(std::string_view line, WriteResult result) const;
  std::string TitleOf(const Item& item) const;
  std::string StoredText(const Item& item) const;
  bool SetStored(const Item& item, std::string_view value);
  void SetNumber(std::string_view item, std::string_view value);
  std::string ValueText(const Item& item) const;
  std::string UnitBehind(const Item& item) const;
  std::string PaddedText(const Item& item) const;
  double LiveNumber(const Item& item) const;
  std::string LiveUnit(const Item& item) const;
  std::string LiveText(const Item& item) const;
  bool IsEcho(std::string_view line, std::string_view reply) const;
  std::string EchoedValue(const std::string& reply) const;

  Model model;
  const Family& family;
  DeviceOptions options;
  Setup setup;
  MemoryAccess access{setup.memory};
  Parameters parameters;
  bool slow;
  PointTable table;
  TableDialogue dialogue;
  LiveValues live;
  Trim trim;
  CommandTable commands;
  Transmitter transmitter{setup, parameters, table, live};
  FaultPlan faults;
  int exchanges = 0;
  char mode = kMonitor;
  std::string group;                 // selected group; empty: none
  Item* selected = nullptr;          // selected item, unless it lies in the table
  std::optional<std::size_t> point;  // selected value of the table
};

// --- menu
// ---------------------------------------------------------------------------------------------------

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
  } else if (selected->kind == Item::Kind::Count && mode == kMonitor) {
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

/// Whether the answer to a command is a pair of values, of zero and span or of a point.
bool Device::State::AnswersInPairs(std::string_view line) const {
  return selected != nullptr && line.starts_with('D') &&
         (selected->kind == Item::Kind::Trim || selected->kind == Item::Kind::Table);
}

std::string Device::State::TakeParameter(std::string_view data) {
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

// --- values
// -------------------------------------------------------------------------------------------------

std::string Device::State::ValueText(const Item& item) const {
  switch (item.kind) {
    case Item::Kind::Mode:
      return {mode};
    case Item::Kind::Live:
    case Item::Kind::Output:
      return FormatNumber(LiveNumber(item), 2);
    case Item::Kind::Stored:
      return StoredText(item);
    case Item::Kind::Trim:
    case Item::Kind::Trimmer:
      return trim.Text();
    case Item::Kind::Table:
      return commands.Text();
    case Item::Kind::Number:
      return parameters.Text(item) + UnitBehind(item);
    default:
      return parameters.Text(item);
  }
}

/// A transmitter tells the unit of each number that has one.
std::string Device::State::UnitBehind(const Item& item) const {
  const auto unit = family.memory ? transmitter.UnitOf(item) : std::string{};
  return unit.empty() ? unit : " " + unit;
}

/// What the display shows when an item is selected: of the model its text.
std::string Device::State::TitleOf(const Item& item) const {
  return item.kind == Item::Kind::Stored && item.group == "00" ? StoredText(item) : item.title;
}

std::string Device::State::StoredText(const Item& item) const {
  if (item.group == "00") {
    return setup.ModelText();
  }
  return item.item == "10" ? setup.InputText() : setup.OutputText();
}

bool Device::State::SetStored(const Item& item, std::string_view value) {
  if (item.group == "00") {
    return setup.SetModelText(value);
  }
  const bool input = item.item == "10";
  const bool done = input ? setup.SetInput(value) : setup.SetOutput(value);
  if (done) {
    const auto limits = input ? setup.InputLimits() : setup.OutputLimits();
    SetNumber(input ? "14" : "12", limits.low);
    SetNumber(input ? "15" : "13", limits.high);
  }
  return done;
}

void Device::State::SetNumber(std::string_view item, std::string_view value) {
  if (Item* const found = parameters.Find("01", item)) {
    parameters.Set(*found, value);
  }
}

/// The value as a reply has it, between "D" and the line end.
std::string Device::State::PaddedText(const Item& item) const {
  if (item.kind == Item::Kind::Live || item.kind == Item::Kind::Output) {
    return LiveText(item);
  }
  std::string text = ValueText(item);
  if (item.kind == Item::Kind::Tag) {
    if (text.empty() && family.dialect == Dialect::EnterItem && !family.empty_tag.empty()) {
      return std::string(family.empty_tag);
    }
    text.resize(Parameters::kTagLength, ' ');
  } else if (family.dialect == Dialect::EnterItem) {
    return RightAlign(item.prefix + text, kDisplayWidth);
  }
  return item.prefix + (item.kind == Item::Kind::Count ? RightAlign(text, kCountWidth) : text);
}

/// Values in percent or current have their own range, the input values that of zero and span.
double Device::State::LiveNumber(const Item& item) const {
  if (family.memory) {
    return transmitter.Value(item);
  }
  if (item.unit == "mA") {
    return live.Value(item.item, 4, 20);
  }
  if (family.trims && item.item == "07") {
    return live.Held("07").value_or(trim.Applied(live.Value("", 0, 100)));
  }
  const bool input = (item.item == "04" || item.item == "06") && item.unit != "%";
  const Item* const span = parameters.Find("01", family.span_item);
  if (!input || span == nullptr || parameters.Needless(*span)) {
    return live.Value(item.item, 0, 100);
  }
  const Item* const zero = parameters.Find("01", "14");  // pulse inputs begin at 0 and have none
  return live.Value(item.item, zero == nullptr ? 0 : parameters.Quantity(*zero).value_or(0),
                    parameters.Quantity(*span).value_or(100));
}

std::string Device::State::LiveUnit(const Item& item) const {
  const auto unit = family.memory ? transmitter.UnitOf(item) : item.unit;
  return unit.empty() || unit.starts_with('$') ? "%" : unit;
}

std::string Device::State::LiveText(const Item& item) const {
  const std::string number = RightAlign(ValueText(item), kLiveWidth);
  if (family.live_form == LiveForm::Unit) {
    return item.prefix + number + " " + LiveUnit(item);
  }
  // A value that is also read as a parameter has its prefix alone, since that is what the reader cuts off.
  return (item.prefix.empty() && !item.uploaded ? "PV:" : item.prefix) + number;
}

/// Whether a reply is the echo of a write. Without data the other dialect reads.
bool Device::State::IsEcho(std::string_view line, std::string_view reply) const {
  const bool written = line.starts_with('D') && (line.size() > 1 || family.dialect == Dialect::Cok);
  return written && !dialogue.Gives() && reply.starts_with('D') && reply != Refusal(WriteResult::Refused) &&
         reply != Refusal(WriteResult::NotUsable);
}

/// The value in the echo of a write.
std::string Device::State::EchoedValue(const std::string& reply) const {
  if (selected == nullptr) {
    return reply.substr(PointTable::Head(0).size() + 1);
  }
  if (HasDialogue(*selected) && !reply.ends_with(ValueText(*selected))) {
    return reply.substr(reply.rfind(' ') + 1);
  }
  switch (selected->kind) {
    case Item::Kind::Tag:  // with its blanks
    case Item::Kind::Fixed:
      return reply.substr(1 + selected->prefix.size());
    case Item::Kind::Number:  // its unit may stand behind it
      return parameters.Plain(*selected);
    case Item::Kind::Table:
      return std::string(TrimBlanks(reply.substr(1)));
    default:
      return ValueText(*selected);
  }
}

// --- device
// -------------------------------------------------------------------------------------------------

Device::Device(const Model& model, Definition definition, const DeviceOptions& options)
    : state_(std::make_unique<State>(model, std::move(definition), options)) {}

Device::Device(Device&&) noexcept = default;
Device& Device::operator=(Device&&) noexcept = default;
Device::~Device() = default;

Device Device::ForModel(const std::filesystem::path& home, std::string_view name,
                        const DeviceOptions& options) {
  const auto models = ReadCatalogue(home);
  const auto found = name.empty()
                         ? models.begin()
                         : std::ranges::find(models, name, [](const Model& row) { return row.name; });
  if (found == models.end()) {
    throw SetupError(name.empty() ? "the catalogue has no models"
                                  : "the catalogue has no model \"" + std::string(name) + "\"");
  }
  DeviceOptions complete = options;
  if (complete.curves.empty()) {
    complete.curves = home / "system" / "z2Kv";
  }
  return {*found, Definition::Read(home, *found), complete};
}

Reply Device::Answer(std::string_view line) {
  ++state_->exchanges;
  const Item* const item = state_->selected;
  const auto struck =
      state_->faults.Strike(state_->exchanges, line, item == nullptr ? "" : item->group + item->item);
  const auto strikes = [&](Fault fault) { return std::ranges::find(struck, fault) != struck.end(); };
  Reply reply;
  reply.latency = state_->options.latency.value_or(state_->slow ? kSlowLatency : kLatency);
  const bool in_access = state_->InAccess(line);
  if (strikes(Fault::Silent) || strikes(Fault::SecondTryOnly) ||
      (in_access && strikes(Fault::SilentAccess))) {
    reply.silent = true;
    return reply;
  }
  const bool place = in_access && MemoryAccess::ChoosesPlace(line);
  if (strikes(Fault::Refused) || (strikes(Fault::NotReady) && state_->family.dialect == Dialect::EnterItem) ||
      (place && strikes(Fault::RefusedAddress))) {
    reply.text = state_->RefusalOf(line, WriteResult::Refused);
  } else if (strikes(Fault::NotUsable)) {
    reply.text = state_->RefusalOf(line, WriteResult::NotUsable);
  } else {
    reply.text =
        state_->Execute(line, {.stuck = strikes(Fault::StuckByte), .wrong = strikes(Fault::WrongReadBack)});
    if (strikes(Fault::WrongEcho) && state_->IsEcho(line, reply.text)) {
      reply.text = OtherValue(reply.text, state_->EchoedValue(reply.text));
    }
  }
  if (strikes(Fault::OneValue) && state_->AnswersInPairs(line) &&
      reply.text != state_->Refusal(WriteResult::Refused)) {
    reply.text.resize(reply.text.find_last_of(' '));
  }
  if (strikes(Fault::OversizedTable) && line == "DP" && state_->AnswersInPairs(line)) {
    reply.text = "DSize " + std::to_string(CommandTable::kMostPoints + 1);
  }
  for (const Fault fault : struck) {
    SpoilReply(fault, reply);
  }
  return reply;
}

void Device::AddFault(const FaultRule& rule) { state_->faults.Add(rule); }

void Device::ClearFaults() { state_->faults.Clear(); }

int Device::Exchanges() const { return state_->exchanges; }

char Device::Mode() const { return state_->mode; }

std::string Device::Value(std::string_view group, std::string_view item) const {
  if (const auto position = state_->table.Find(group, item)) {
    return state_->table.Text(*position);
  }
  const Item* const found = std::as_const(state_->parameters).Find(group, item);
  return found == nullptr ? std::string{} : state_->ValueText(*found);
}

bool Device::Set(std::string_view group, std::string_view item, std::string_view value) {
  if (const auto position = state_->table.Find(group, item)) {
    return state_->table.Write(*position, value);
  }
  Item* const found = state_->parameters.Find(group, item);
  if (found == nullptr || found->kind == Item::Kind::Mode) {
    return false;
  }
  if (found->kind == Item::Kind::Stored) {
    return state_->SetStored(*found, value);
  }
  if (found->kind == Item::Kind::Trim) {
    return state_->trim.Set(value);
  }
  if (found->kind == Item::Kind::Table) {
    return state_->commands.Set(value);
  }
  if (found->kind != Item::Kind::Live && found->kind != Item::Kind::Output) {
    return state_->parameters.Set(*found, value);
  }
  const auto number = ParseNumber(TrimBlanks(value));
  if (number) {
    state_->live.Hold(found->item, *number);
  }
  return number.has_value();
}

TableDialogue& Device::GetTableDialogue() { return state_->dialogue; }

Memory& Device::GetMemory() { return state_->setup.memory; }

const Family& Device::GetFamily() const { return state_->family; }

const Model& Device::GetModel() const { return state_->model; }

}  // namespace korva::sim
