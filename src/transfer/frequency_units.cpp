#include "transfer/frequency_units.h"

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/conversion.h"

namespace korva {

namespace {

constexpr int kHighestUnitBox = 5;
constexpr StringView kUsualCodeItem = u"11";

}  // namespace

FrequencyUnits::FrequencyUnits(ParameterPage& page, const FrequencyUnitForm& form)
    : cbo_unit("cbo_unit", kHighestUnitBox),
      page_(page),
      form_(form),
      shown_(static_cast<std::size_t>(cbo_unit.Count())) {
  page_.Add(*this);
  page_.RegisterFields(cbo_unit);
  for (int index = 0; index < cbo_unit.Count(); ++index) {
    for (const FrequencyUnit& unit : form_.units) {
      cbo_unit[index].AddEntry(String(unit.text));
    }
    cbo_unit[index].OnClick = [this, index] { UnitPicked(index); };
  }
}

bool FrequencyUnits::HasUnit(int row) const {
  return !page_.DataCell(row, kUnitBox).empty() ||
         (form_.splits_fixed && !page_.DataCell(row, kUnitText).empty());
}

String FrequencyUnits::UnitShown(int row) const {
  return page_.DataCell(row, kUnitBox).empty()
             ? page_.DataCell(row, kUnitText)
             : cbo_unit[page_.Place(row, kUnitBox, cbo_unit.Count())].Text();
}

String FrequencyUnits::UnitOfValue(int row, const String& value) const {
  const String unit = SplitQuantity(value).unit;
  return unit.empty() ? UnitShown(row) : unit;
}

const FrequencyUnit* FrequencyUnits::FindUnit(StringView text) const {
  const auto* const unit = std::find_if(form_.units.begin(), form_.units.end(),
                                        [text](const FrequencyUnit& one) { return one.text == text; });
  return unit == form_.units.end() ? nullptr : unit;
}

String FrequencyUnits::WithUnit(const String& number, const String& unit) const {
  const FrequencyUnit* const known = FindUnit(unit);
  return number + String(known == nullptr ? StringView(u" ") : known->between) + unit;
}

String FrequencyUnits::WithUnitShown(int row, const String& text) const {
  return IsNumeric(text) ? WithUnit(SplitQuantity(text).number, UnitShown(row)) : Trimmed(text);
}

std::optional<String> FrequencyUnits::ShownText(int row) const {
  const String& cell = page_.SetCell(row);
  const String number = HasUnit(row) ? SplitQuantity(cell).number : String();
  return number.empty() ? std::nullopt : std::optional(number);
}

std::optional<String> FrequencyUnits::CellOf(int row, const String& text) const {
  if (!HasUnit(row)) {
    return std::nullopt;
  }
  // A text that the cell shows anyway is no edit: the cell keeps its own unit and spelling.
  return text == page_.ShownText(row) ? page_.SetCell(row) : WithUnitShown(row, text);
}

std::optional<String> FrequencyUnits::CodeOf(StringView unit) const {
  const FrequencyUnit* const known = FindUnit(unit);
  return known == nullptr ? std::nullopt : std::optional(String(known->code));
}

String FrequencyUnits::CodeItem(int row) const {
  const String& item = page_.DataCell(row, kUnitCodeItem);
  return item.empty() ? String(kUsualCodeItem) : item;
}

void FrequencyUnits::SetCleared() {
  for (int index = 0; index < cbo_unit.Count(); ++index) {
    cbo_unit[index].SetText({});
  }
}

std::function<void()> FrequencyUnits::Keep() {
  return [this, shown = shown_] { shown_ = shown; };
}

void FrequencyUnits::RowShown(int row) {
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
    StringView unit = form_.units.front().text;
    for (const FrequencyUnit& one : form_.units) {
      unit = cell.ends_with(one.text) ? one.text : unit;
    }
    box.SetText(String(unit));
  }
  shown_.at(static_cast<std::size_t>(box.Index())) = box.Text();
}

String FrequencyUnits::CellInPickedUnit(int row, const String& former_unit) const {
  const String& text = page_.Text[page_.Place(row, kTextIndex, page_.Text.Count())].Text();
  const FrequencyUnit* const former = FindUnit(former_unit);
  const FrequencyUnit* const picked = FindUnit(UnitShown(row));
  if (!form_.converts || former == nullptr || picked == nullptr || !IsNumeric(text)) {
    return WithUnitShown(row, text);
  }
  const String number = former == picked ? SplitQuantity(text).number
                                         : ShortestText(LeadingNumber(text) * former->hertz / picked->hertz);
  return WithUnit(number, String(picked->text));
}

void FrequencyUnits::UnitPicked(int index) {
  const String box = Ascii(std::to_string(index));
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    const String& text_index = page_.DataCell(row, kTextIndex);
    if (page_.DataCell(row, kUnitBox) != box || text_index.empty()) {
      continue;
    }
    const String cell = CellInPickedUnit(row, shown_.at(static_cast<std::size_t>(index)));
    page_.GroupItem.Set(page_.DataCell(row, kGroup), page_.DataCell(row, kItem), cell);
    if (form_.converts) {
      page_.Text[page_.Place(row, kTextIndex, page_.Text.Count())].SetText(page_.ShownText(row));
    }
    page_.MarkEdited();
  }
  shown_.at(static_cast<std::size_t>(index)) = cbo_unit[index].Text();
}

}  // namespace korva
