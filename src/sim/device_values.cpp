#include "sim/device_state.h"
#include "sim/number.h"

// The values of a device's items, as they are kept and as its replies have them.

namespace korva::sim {

namespace {

constexpr std::size_t kCountWidth = 10;

}  // namespace

std::string RightAlign(std::string_view text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + std::string(text);
}

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
    case Item::Kind::Compensation:
      return compensation.Text();
    case Item::Kind::FineTrim:
      return parameters.Text(item) + " %";
    case Item::Kind::Number:
      return parameters.Text(item) + UnitBehind(item);
    default:
      return parameters.Text(item);
  }
}

/// The unit that the device itself tells of an item, by its input.
std::string Device::State::OwnUnit(const Item& item) const {
  if (family.memory) {
    return transmitter.UnitOf(item);
  }
  return family.input_lists.empty() ? std::string{} : parameters.UnitOf(item);
}

/// A transmitter tells the unit of each number that has one.
std::string Device::State::UnitBehind(const Item& item) const {
  const auto unit = OwnUnit(item);
  return unit.empty() ? unit : " " + unit;
}

/// What the display shows when an item is selected: of the model its text.
std::string Device::State::TitleOf(const Item& item) const {
  if (!family.pairs.empty() && item.group == "00") {
    return item.held;
  }
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
  if (!family.pairs.empty()) {
    return outputs.Value(item);
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
  const auto own = family.pairs.empty() ? OwnUnit(item) : outputs.UnitOf(item);
  const auto& unit = own.empty() ? item.unit : own;
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
    case Item::Kind::FineTrim:
      return parameters.Plain(*selected);
    case Item::Kind::Table:
    case Item::Kind::Keyed:
      return std::string(TrimBlanks(reply.substr(1)));
    default:
      return ValueText(*selected);
  }
}

}  // namespace korva::sim
