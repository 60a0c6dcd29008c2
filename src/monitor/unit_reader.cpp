#include "monitor/unit_reader.h"

#include <algorithm>

#include "core/numbers.h"

namespace korva {

namespace {

constexpr int kTextColumn = 1;

}  // namespace

const UnitRule* UnitReader::FindRule(std::span<const UnitRule> rules) const {
  const String kind = extras_.InputKind ? extras_.InputKind() : String();
  const auto rule = std::find_if(rules.begin(), rules.end(), [&](const UnitRule& one) {
    return one.models.IsAllOrHas(page_.DefFile) && (one.input_kind.empty() || one.input_kind == kind);
  });
  return rule == rules.end() ? nullptr : &*rule;
}

String UnitReader::UnitFrom(const UnitSource& source, const String& item) const {
  switch (source.kind) {
    case UnitKind::Text:
      return String(source.text);
    case UnitKind::Row: {
      const int row = page_.FindDataRow(u"01", item);
      return row < 0 ? String() : page_.DataCell(row, kUnitText);
    }
    case UnitKind::Caption:
      return page_.lbl_unit.Has(source.label) ? page_.lbl_unit[source.label].Caption() : String();
    case UnitKind::Item: {
      const Label* label = LabelOf(source.text);
      return label == nullptr ? String() : label->Caption();
    }
    case UnitKind::Device:
      return LookUp(source.table, Read(source.table.item, source.table.repeats));
    case UnitKind::Rule:
      return source.rule(*this);
    case UnitKind::None:
      break;
  }
  return {};
}

String UnitReader::Read(StringView item, int repeats) const {
  return page_.Items().ReadRetry(repeats, u"01", String(item));
}

String UnitReader::LookUp(const UnitTable& table, const String& text) const {
  const StringTable& units = page_.Def[table.table];
  const int row = text.empty() ? -1 : units.FindRow(kTextColumn, text, table.first_row);
  return row < 0 ? String() : units.At(row, table.unit_column);
}

Label* UnitReader::LabelOf(int row) const {
  if (row < 0 || page_.DataCell(row, kUnitLabel).empty()) {
    return nullptr;
  }
  const int index = LeadingInteger(page_.DataCell(row, kUnitLabel));
  return page_.lbl_unit.Has(index) ? &page_.lbl_unit[index] : nullptr;
}

}  // namespace korva
