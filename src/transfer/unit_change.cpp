#include <cmath>

#include "core/numbers.h"
#include "transfer/columns.h"
#include "transfer/transfer_page.h"

namespace korva {

String TransferPage::UnitOf(int item) const {
  const int row = FindDataRow(u"01", ItemText(item));
  const Label* label = row < 0 ? nullptr : UnitLabelOf(row);
  return label == nullptr ? String() : label->Caption();
}

const Label* TransferPage::UnitLabelOf(int row) const {
  const String& index = DataCell(row, kUnitLabel);
  const int label = LeadingInteger(index);
  return index.empty() || !lbl_unit.Has(label) ? nullptr : &lbl_unit[label];
}

void TransferPage::ChangeTemperatureUnit(int place) {
  const String unit = optTempUnit[place].Caption();
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    if (DataCell(row, kTemperature) == u"Item21" && !ChangeUnitOfRow(row, unit)) {
      return;
    }
  }
}

bool TransferPage::ChangeUnitOfRow(int row, const String& unit) {
  const String old_unit = UnitLabelOf(row) == nullptr ? String() : UnitLabelOf(row)->Caption();
  if (UnitLabelOf(row) != nullptr) {
    lbl_unit[LeadingInteger(DataCell(row, kUnitLabel))].SetCaption(unit);
  }
  const String& index = DataCell(row, kTextIndex);
  const int text = LeadingInteger(index);
  const bool needless = SetCell(row) == kNeedless;
  if (index.empty() || !Text.Has(text) || needless) {
    return true;
  }
  TextField& field = Text[text];
  if (field.Text().empty()) {
    field.SetText(u"0");
  }
  // Between equal units, and from or to another quantity, the value stays.
  if (!IsTemperatureUnit(old_unit) || !IsTemperatureUnit(unit) || old_unit == unit) {
    return true;
  }
  const double value = ConvertTemperature(old_unit, unit, LeadingNumber(field.Text()));
  if (Traits().whole_number_limits) {
    field.SetText(FormatMask(value, u"#0"));
    return true;
  }
  const int type = InputTypeRow();
  if (type < 0) {
    return false;
  }
  field.SetText(WithinLimits(value, DataCell(row, kItem), type, unit));
  return true;
}

String TransferPage::WithinLimits(double value, const String& item, int type, const String& unit) const {
  const StringTable& types = Def[u"$I10"];
  const auto limit = [&](int column) {
    const double own = LeadingNumber(types.At(type, column));
    return unit == kDegC ? own : LeadingNumber(FormatMask(LimitInUnit(own, unit), u"#0"));
  };
  String rounded = FormatMask(value, u"#0");
  const double number = LeadingNumber(rounded);
  // A value that rounding would carry over its limit goes to the whole number within it.
  if (item == u"14" && limit(kTypeLow) == number) {
    return FormatMask(std::ceil(value), u"#0");
  }
  if (item == u"15" && limit(kTypeHigh) == number) {
    return FormatMask(std::floor(value), u"#0");
  }
  return rounded;
}

void TransferPage::Round5ms(std::span<const StringView> items) {
  RoundItems(items, RoundTo5Msec, BoxKey::RoundedTo5Msec);
}

void TransferPage::Round005V(std::span<const StringView> items) {
  RoundItems(items, RoundTo005V, BoxKey::RoundedTo005V);
}

void TransferPage::RoundItems(std::span<const StringView> items, GridRule rule, BoxKey box) {
  for (const StringView item : items) {
    const String name(item);
    const int row = FindDataRow(u"01", name);
    const GridRounding rounding = row < 0 ? GridRounding() : rule(SetCell(row));
    if (!rounding.number) {
      continue;
    }
    if (rounding.new_number != rounding.old_number) {
      Box().Show(box, {name, rounding.old_number, rounding.new_number});
    }
    GroupItem.Set(u"01", name, rounding.text);
    if (TextField* field = FindField(name)) {
      field->SetText(ShownText(row));
    }
  }
}

}  // namespace korva
