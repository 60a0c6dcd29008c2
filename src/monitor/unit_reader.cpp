#include "monitor/unit_reader.h"

#include <algorithm>

namespace korva {

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
      const int row = page_.FindDataRow(item);
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
  return page_.Items().ReadRetry(repeats, ItemKey(item).OnWire());
}

String UnitReader::LookUp(const UnitTable& table, const String& text) const {
  const ChoiceList units = page_.Def.ListOf(table.table);
  int row = text.empty() ? -1 : units.FindText(text, table.first_row);
  if (row < 0 && table.by_code && !text.empty()) {
    row = units.FindCode(text, table.first_row);
  }
  return row < 0 ? String() : units.Cell(row, &ListColumns::unit);
}

}  // namespace korva
