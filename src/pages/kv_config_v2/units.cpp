#include "pages/kv_config_v2/units.h"

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/conversion.h"

namespace korva {

namespace {

constexpr int kHighestUnitBox = 5;

}  // namespace

KvConfigV2Units::KvConfigV2Units(ParameterPage& page) : cbo_unit("cbo_unit", kHighestUnitBox), page_(page) {
  page_.Add(*this);
  page_.RegisterFields(cbo_unit);
  for (int index = 0; index < cbo_unit.Count(); ++index) {
    for (const FrequencyUnit& unit : kFrequencyUnits) {
      cbo_unit[index].AddEntry(String(unit.text));
    }
    cbo_unit[index].OnClick = [this, index] { UnitPicked(index); };
  }
}

bool KvConfigV2Units::HasUnit(int row) const {
  return !page_.DataCell(row, kUnitBox).empty() || !page_.DataCell(row, kUnitText).empty();
}

String KvConfigV2Units::UnitShown(int row) const {
  return page_.DataCell(row, kUnitBox).empty()
             ? page_.DataCell(row, kUnitText)
             : cbo_unit[page_.Place(row, kUnitBox, cbo_unit.Count())].Text();
}

String KvConfigV2Units::UnitOfValue(int row, const String& value) const {
  const String unit = SplitQuantity(value).unit;
  return unit.empty() ? UnitShown(row) : unit;
}

String KvConfigV2Units::WithUnitShown(int row, const String& text) const {
  return IsNumeric(text) ? SplitQuantity(text).number + u" " + UnitShown(row) : Trimmed(text);
}

std::optional<String> KvConfigV2Units::ShownText(int row) const {
  const String& cell = page_.SetCell(row);
  const String number = HasUnit(row) ? SplitQuantity(cell).number : String();
  return number.empty() ? std::nullopt : std::optional(number);
}

std::optional<String> KvConfigV2Units::CellOf(int row, const String& text) const {
  if (!HasUnit(row)) {
    return std::nullopt;
  }
  // A text that the cell shows anyway is no edit: the cell keeps its own unit and spelling.
  return text == page_.ShownText(row) ? page_.SetCell(row) : WithUnitShown(row, text);
}

std::optional<String> KvConfigV2Units::CodeOf(StringView unit) {
  const auto* const known = std::find_if(kFrequencyUnits.begin(), kFrequencyUnits.end(),
                                         [&](const FrequencyUnit& one) { return one.text == unit; });
  return known == kFrequencyUnits.end() ? std::nullopt : std::optional(String(known->code));
}

void KvConfigV2Units::SetCleared() {
  for (int index = 0; index < cbo_unit.Count(); ++index) {
    cbo_unit[index].SetText({});
  }
}

void KvConfigV2Units::RowShown(int row) {
  if (page_.DataCell(row, kUnitBox).empty()) {
    return;
  }
  const String& cell = page_.SetCell(row);
  const bool closed = page_.Fixed(row) || cell == kNeedless;
  ComboBox& box = cbo_unit[page_.Place(row, kUnitBox, cbo_unit.Count())];
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

void KvConfigV2Units::UnitPicked(int index) {
  const String number = Ascii(std::to_string(index));
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    const String& text_index = page_.DataCell(row, kTextIndex);
    if (page_.DataCell(row, kUnitBox) != number || text_index.empty()) {
      continue;
    }
    const String& text = page_.Text[page_.Place(row, kTextIndex, page_.Text.Count())].Text();
    page_.GroupItem.Set(page_.DataCell(row, kGroup), page_.DataCell(row, kItem), WithUnitShown(row, text));
    page_.MarkEdited();
  }
}

}  // namespace korva
