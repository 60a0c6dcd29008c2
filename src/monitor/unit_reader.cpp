#include "monitor/unit_reader.h"

#include <algorithm>

#include "core/text_utilities.h"

namespace korva {

void UnitReader::AskForInput() {
  if (input_.item.empty()) {
    return;
  }
  input_text_ = Trimmed(Read(input_.item, input_.repeats));
  const auto list = std::find_if(input_.lists.begin(), input_.lists.end(), [this](StringView key) {
    return !input_text_.empty() && page_.Def.ListOf(key).FindText(input_text_) >= 0;
  });
  input_kind_ = list == input_.lists.end() ? StringView() : *list;
}

const UnitRule* UnitReader::FindRule(std::span<const UnitRule> rules) const {
  const auto rule = std::find_if(rules.begin(), rules.end(), [&](const UnitRule& one) {
    return one.models.IsAllOrHas(page_.DefFile) && (one.input_kind.empty() || one.input_kind == input_kind_);
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
    case UnitKind::Input:
      return input_kind_.empty() ? String()
                                 : LookUp({.item = input_.item, .table = input_kind_}, input_text_);
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
