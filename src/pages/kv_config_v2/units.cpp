// Numbers and their units on the page of family Second.

#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/kv_config_v2/kv_config_v2.h"
#include "transfer/conversion.h"

namespace korva {

bool KvConfig_V2::HasUnit(int row) const {
  return !DataCell(row, kUnitBox).empty() || !DataCell(row, kUnitText).empty();
}

String KvConfig_V2::UnitShown(int row) const {
  return DataCell(row, kUnitBox).empty() ? DataCell(row, kUnitText)
                                         : cbo_unit[Place(row, kUnitBox, cbo_unit.Count())].Text();
}

String KvConfig_V2::UnitOfValue(int row, const String& value) const {
  const String unit = SplitQuantity(value).unit;
  return unit.empty() ? UnitShown(row) : unit;
}

String KvConfig_V2::WithUnitShown(int row, const String& text) const {
  return IsNumeric(text) ? SplitQuantity(text).number + u" " + UnitShown(row) : Trimmed(text);
}

String KvConfig_V2::ShownText(int row) const {
  const String& cell = SetCell(row);
  const String number = HasUnit(row) ? SplitQuantity(cell).number : String();
  return number.empty() ? cell : number;
}

String KvConfig_V2::CellOf(int row, const String& text) const {
  if (!HasUnit(row)) {
    return TransferPage::CellOf(row, text);
  }
  // A text that the cell shows anyway is no edit: the cell keeps its own unit and spelling.
  return text == ShownText(row) ? SetCell(row) : WithUnitShown(row, text);
}

void KvConfig_V2::ShowFurther(int row) {
  if (!DataCell(row, kUnitBox).empty()) {
    ShowUnitBox(row);
  }
  if (Fixed(row) && !DataCell(row, kComboIndex).empty()) {
    ComboBox& box = Combo[Place(row, kComboIndex, Combo.Count())];
    box.SetLocked(true);
    box.SetLook(Look::Grey);
  }
}

void KvConfig_V2::ShowUnitBox(int row) {
  const String& cell = SetCell(row);
  const bool closed = Fixed(row) || cell == kNeedless;
  ComboBox& box = cbo_unit[Place(row, kUnitBox, cbo_unit.Count())];
  box.SetVisible(true);
  box.SetLocked(closed);
  box.SetLook(closed ? Look::Grey : Look::Normal);
  // A value without a unit is meant in the one that is shown.
  if (!SplitQuantity(cell).unit.empty() || box.Text().empty()) {
    StringView unit = kFrequencyUnits.front().text;
    for (const FrequencyUnit& one : kFrequencyUnits) {
      unit = cell.ends_with(one.text) ? one.text : unit;
    }
    box.SetText(String(unit));
  }
}

void KvConfig_V2::UnitPicked(int index) {
  const String number = Ascii(std::to_string(index));
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    const String& text_index = DataCell(row, kTextIndex);
    if (DataCell(row, kUnitBox) != number || text_index.empty()) {
      continue;
    }
    const String& text = Text[Place(row, kTextIndex, Text.Count())].Text();
    GroupItem.Set(DataCell(row, kGroup), DataCell(row, kItem), WithUnitShown(row, text));
    MarkEdited();
  }
}

}  // namespace korva
