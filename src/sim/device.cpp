#include "sim/device.h"

#include <algorithm>
#include <utility>

#include "sim/device_state.h"
#include "sim/number.h"

namespace korva::sim {

namespace {

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

Device::State::State(Model of_model, Definition definition, DeviceOptions with)
    : model(std::move(of_model)),
      family(FamilyOf(model)),
      options(std::move(with)),
      setup(definition, model.definition_file.substr(0, model.definition_file.find('.')), options.curves),
      parameters(model, std::move(definition), family, options.system_text),
      slow(AnswersSlowly(parameters.ModelCode())),
      table(family.table == TableShape::ByModel ? TableOfModel(parameters.ModelCode()) : family.table,
            family.table_limit),
      compensation(CorrectsItsSensor(parameters.ModelCode())) {
  TakeNetworkSettings();
  AddKeyedTables();
}

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

Reply Device::Answer(std::string_view line, std::chrono::nanoseconds now) {
  state_->now = now;
  state_->compensation.Settle(now);
  return Answer(line);
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
  if (state_->gone || strikes(Fault::Silent) || strikes(Fault::SecondTryOnly) ||
      (in_access && strikes(Fault::SilentAccess))) {
    reply.silent = true;
    return reply;
  }
  const bool place = in_access && MemoryAccess::ChoosesPlace(line);
  if (strikes(Fault::Refused) || (strikes(Fault::NotReady) && state_->family.dialect == Dialect::EnterItem) ||
      (place && strikes(Fault::RefusedAddress)) || (strikes(Fault::RefusedRow) && state_->IsKeyedRow(line))) {
    reply.text = state_->RefusalOf(line, WriteResult::Refused);
  } else if (strikes(Fault::NotUsable)) {
    reply.text = state_->RefusalOf(line, WriteResult::NotUsable);
  } else {
    reply.text = strikes(Fault::NotKept) ? state_->ExecuteInVain(line)
                                         : state_->Execute(line, {.stuck = strikes(Fault::StuckByte),
                                                                  .wrong = strikes(Fault::WrongReadBack)});
    if (strikes(Fault::WrongEcho) && state_->IsEcho(line, reply.text)) {
      reply.text = OtherValue(reply.text, state_->EchoedValue(reply.text));
    }
  }
  if (strikes(Fault::OneValue) && state_->AnswersInPairs(line) &&
      reply.text != state_->Refusal(WriteResult::Refused)) {
    reply.text.resize(reply.text.find_last_of(' '));
  }
  if (strikes(Fault::PairUnits) && state_->IsPair(line)) {
    reply.text = state_->WithUnits(reply.text);
  }
  if (strikes(Fault::OversizedTable) && line == "DP" && state_->AnswersInPairs(line)) {
    reply.text = "DSize " + std::to_string(CommandTable::kMostPoints + 1);
  }
  if (std::exchange(state_->restarting, false)) {
    reply.away = kRestart;
    state_->gone = strikes(Fault::NoReturn);
  }
  if (strikes(Fault::NoUnit) && state_->IsKeyedRow(line)) {
    const auto unit = state_->KeyedTableOf(item)->Form().unit;
    reply.text.resize(reply.text.size() - (reply.text.ends_with(unit) ? unit.size() : 0));
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

std::string Device::InForce(std::string_view item) const {
  const auto found = state_->in_force.find(item);
  return found == state_->in_force.end() ? std::string{} : found->second;
}

TableDialogue& Device::GetTableDialogue() { return state_->dialogue; }

KeyedTable& Device::GetKeyedTable(std::string_view item) { return state_->keyed.find(item)->second; }

Memory& Device::GetMemory() { return state_->setup.memory; }

const Family& Device::GetFamily() const { return state_->family; }

const Model& Device::GetModel() const { return state_->model; }

}  // namespace korva::sim
