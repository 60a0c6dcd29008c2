#include "pages/univ_config/units.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/univ_config/input_choice.h"
#include "transfer/conversion.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr StringView kPercent = u"%";
constexpr int kPercentRow = 1;  ///< of the lists of setpoint units

/// A relay's setpoint: where it switches, and over what width it lets go again.
struct Setpoint {
  int unit;  ///< the item of its unit
  int position;
  int width;
};
constexpr std::array kSetpoints = {Setpoint{.unit = 38, .position = 26, .width = 27},
                                   Setpoint{.unit = 39, .position = 29, .width = 30}};

/// The setpoint of a position or width; nullptr for any other item.
const Setpoint* SetpointOf(int item) {
  const auto* const found = std::find_if(kSetpoints.begin(), kSetpoints.end(), [&](const Setpoint& one) {
    return one.position == item || one.width == item;
  });
  return found == kSetpoints.end() ? nullptr : found;
}

bool IsOfRange(int item) { return item == kZeroItem || item == kSpanItem; }

bool IsLiveTemperature(int item) { return item == 4 || item == 6 || item == 7; }

}  // namespace

// What an optTempUnit converts is shown as a whole number within the limits of its input.
InputUnits::InputUnits(ParameterPage& page)
    : TemperatureUnits(page, [] { return TemperatureForm::WithinLimits; }), page_(page) {}

void InputUnits::ChoiceMade(const Choice& choice) {
  TemperatureUnits::ChoiceMade(choice);
  if (choice.options == &page_.optTempUnit || choice.item == u"38" || choice.item == u"39") {
    ShowUnits();
  }
}

void InputUnits::FollowInput() {
  follows_input_ = true;
  ShowUnits();
  follows_input_ = false;
}

void InputUnits::ShowUnits() {
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    if (page_.DataCell(row, kOnPage) == u"Y" && (follows_input_ || !page_.IsLive(row))) {
      page_.ShowUnit(row);
    }
  }
}

String InputUnits::UnitOfChoice(int item, StringView list) const {
  const ChoiceList choices = page_.Def.ListOf(list);
  const int row = page_.Item(item).empty() ? -1 : choices.FindText(page_.Item(item));
  return row < 0 ? String() : choices.Cell(row, &ListColumns::unit);
}

String InputUnits::InputUnit() const {
  switch (ClassOfInput(page_.Item(kTypeItem))) {
    case InputClass::Dc:
      return UnitOfChoice(kTypeItem, kInputTypes);
    case InputClass::Potentiometer:
      return String(kPercent);
    default:
      return page_.TemperatureUnit();
  }
}

bool InputUnits::IsPercent(int item) const {
  const int row = page_.FindDataRow(FormatMask(item, u"00"));
  const OptionRule* rule = row < 0 ? nullptr : page_.FindOptionRule(page_.DataCell(row, kChoiceKey));
  return rule != nullptr && rule->options->Selected() == kPercentRow;
}

std::optional<String> InputUnits::UnitOf(int row) const {
  const int item = ItemOf(page_, row);
  if (IsOfRange(item) || item == kTypeItem) {
    return InputUnit();
  }
  if (const Setpoint* setpoint = SetpointOf(item)) {
    return IsPercent(setpoint->unit) ? String(kPercent) : InputUnit();
  }
  if (item == kOutputZeroItem || item == kOutputSpanItem) {
    const String unit = UnitOfChoice(kRangeItem, kOutputTypes);
    return unit.empty() ? std::nullopt : std::optional(unit);
  }
  return IsLiveTemperature(item) ? LiveUnitOf(row, item) : std::nullopt;
}

std::optional<String> InputUnits::LiveUnitOf(int row, int item) const {
  const Label* label = page_.UnitLabelOf(row);
  if (!follows_input_ && !page_.Building() && label != nullptr && !IsTemperatureUnit(label->Caption())) {
    return label->Caption();  // what the device told of it stands
  }
  const String& unit = page_.DataCell(row, kUnitText);
  if (item == 4 && (unit.empty() || unit == u"$in")) {
    return InputUnit();
  }
  const bool signal = item == 6 && ClassOfInput(page_.Item(kTypeItem)) == InputClass::Dc;
  return signal ? std::optional(UnitOfChoice(kTypeItem, kInputTypes)) : std::nullopt;
}

bool InputUnits::Follows(int row) const {
  const int item = ItemOf(page_, row);
  if (!IsTemperature(ClassOfInput(page_.Item(kTypeItem)))) {
    return false;
  }
  if (IsLiveTemperature(item)) {
    const Label* label = page_.UnitLabelOf(row);
    return label != nullptr && IsTemperatureUnit(label->Caption());
  }
  const Setpoint* setpoint = SetpointOf(item);
  return IsOfRange(item) || (setpoint != nullptr && !IsPercent(setpoint->unit));
}

bool InputUnits::IsDifference(int row) const {
  const Setpoint* setpoint = SetpointOf(ItemOf(page_, row));
  return setpoint != nullptr && setpoint->width == ItemOf(page_, row);
}

SetpointUnits::SetpointUnits(ParameterPage& page) : page_(page) { page_.Add(*this); }

void SetpointUnits::PageBuilt() {
  first_in_percent_ = optSetpointUnit_1.Selected() == kPercentRow;
  second_in_percent_ = optSetpointUnit_2.Selected() == kPercentRow;
}

void SetpointUnits::ChoiceMade(const Choice& choice) {
  const bool first = choice.options == &optSetpointUnit_1;
  if (!first && choice.options != &optSetpointUnit_2) {
    return;
  }
  bool& in_percent = first ? first_in_percent_ : second_in_percent_;
  const bool to_percent = choice.place == kPercentRow;
  if (in_percent != to_percent) {
    const Setpoint& setpoint = first ? kSetpoints.front() : kSetpoints.back();
    Convert(setpoint.position, to_percent, true);
    Convert(setpoint.width, to_percent, false);
  }
  in_percent = to_percent;
}

void SetpointUnits::Convert(int item, bool to_percent, bool position) {
  const String cell = page_.Item(item);
  const double low = LeadingNumber(page_.Item(kZeroItem));
  const double range = LeadingNumber(page_.Item(kSpanItem)) - low;
  if (range == 0 || !IsNumeric(cell)) {
    return;
  }
  const double offset = position ? low : 0;
  const double value = LeadingNumber(cell);
  const String text =
      FormatMask(to_percent ? (value - offset) / range * 100 : range * value / 100 + offset, u"0.00");
  if (TextField* field = page_.FindField(FormatMask(item, u"00"))) {
    field->SetText(text);
  } else {
    page_.SetItem(item, text);
  }
}

}  // namespace korva
