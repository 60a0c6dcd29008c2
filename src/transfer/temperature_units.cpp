#include "transfer/temperature_units.h"

#include <array>
#include <cmath>
#include <utility>

#include "core/numbers.h"
#include "transfer/conversion.h"

namespace korva {

TemperatureUnits::TemperatureUnits(ParameterPage& page, std::function<TemperatureForm()> form)
    : page_(page), form_(std::move(form)) {
  page_.Add(*this);
}

void TemperatureUnits::SetCaptions(Language /*language*/) {
  constexpr std::array kUnits = {kDegC, kDegF, kKelvin};
  for (std::size_t place = 0; place < kUnits.size(); ++place) {
    page_.optTempUnit[static_cast<int>(place)].SetCaption(String(kUnits.at(place)));
  }
}

void TemperatureUnits::ChoiceMade(const Choice& choice) {
  if (choice.options != &page_.optTempUnit) {
    return;
  }
  const String unit = page_.optTempUnit[choice.place].Caption();
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    if (Follows(row) && !ChangeUnitOfRow(row, unit)) {
      return;
    }
  }
}

bool TemperatureUnits::Follows(int row) const { return page_.DataCell(row, kTemperature) == u"Item21"; }

bool TemperatureUnits::ChangeUnitOfRow(int row, const String& unit) {
  Label* label = page_.UnitLabelOf(row);
  const String old_unit = label == nullptr ? String() : label->Caption();
  if (label != nullptr) {
    label->SetCaption(unit);
  }
  const String& index = page_.DataCell(row, kTextIndex);
  const int text = LeadingInteger(index);
  const bool needless = page_.SetCell(row) == kNeedless;
  if (index.empty() || !page_.Text.Has(text) || needless) {
    return true;
  }
  TextField& field = page_.Text[text];
  if (field.Text().empty() && page_.IsLive(row)) {
    return true;
  }
  if (field.Text().empty()) {
    field.SetText(u"0");
  }
  // Between equal units, and from or to another quantity, the value stays.
  if (!IsTemperatureUnit(old_unit) || !IsTemperatureUnit(unit) || old_unit == unit) {
    return true;
  }
  const auto convert = IsDifference(row) ? ConvertDifference : ConvertTemperature;
  const double value = convert(old_unit, unit, LeadingNumber(field.Text()));
  const TemperatureForm form = form_();
  if (form == TemperatureForm::Whole) {
    field.SetText(FormatMask(value, u"#0"));
    return true;
  }
  const int type = page_.InputTypeRow();
  if (type < 0) {
    return false;
  }
  field.SetText(form == TemperatureForm::TwoDecimals
                    ? FormatMask(value, u"##0.00")
                    : WithinLimits(value, page_.DataCell(row, kItem), type, unit));
  return true;
}

String TemperatureUnits::WithinLimits(double value, const String& item, int type, const String& unit) const {
  const ChoiceList types = page_.Def.ListOf(u"$I10");
  const auto limit = [&](ListColumn column) {
    const double own = LeadingNumber(types.Cell(type, column));
    return unit == kDegC ? own : LeadingNumber(FormatMask(LimitInUnit(own, unit), u"#0"));
  };
  String rounded = FormatMask(value, u"#0");
  const double number = LeadingNumber(rounded);
  // A value that rounding would carry over its limit goes to the whole number within it.
  if (item == u"14" && limit(&ListColumns::low) == number) {
    return FormatMask(std::ceil(value), u"#0");
  }
  if (item == u"15" && limit(&ListColumns::high) == number) {
    return FormatMask(std::floor(value), u"#0");
  }
  return rounded;
}

}  // namespace korva
