#include "transfer/grid_rounding.h"

#include "transfer/conversion.h"

namespace korva {

namespace {

using GridRule = GridRounding (*)(const String& text);

void RoundItem(ParameterPage& page, const String& item, GridRule rule, BoxKey box) {
  const int row = page.FindDataRow(item);
  const GridRounding rounding = row < 0 ? GridRounding() : rule(page.SetCell(row));
  if (!rounding.number) {
    return;
  }
  if (rounding.new_number != rounding.old_number) {
    page.Box().Show(box, {item, rounding.old_number, rounding.new_number});
  }
  page.GroupItem.Set(u"01", item, rounding.text);
  if (TextField* field = page.FindField(item)) {
    field->SetText(page.ShownText(row));
  }
}

}  // namespace

std::vector<StringView> ItemsWithUnit(const ParameterPage& page, StringView unit) {
  std::vector<StringView> items;
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (page.IsWritten(row) && page.DataCell(row, kUnitText) == unit) {
      items.emplace_back(page.DataCell(row, kItem));
    }
  }
  return items;
}

void Round5ms(ParameterPage& page, std::span<const StringView> items) {
  for (const StringView item : items) {
    RoundItem(page, String(item), RoundTo5Msec, BoxKey::RoundedTo5Msec);
  }
}

void Round005V(ParameterPage& page, std::span<const StringView> items) {
  for (const StringView item : items) {
    RoundItem(page, String(item), RoundTo005V, BoxKey::RoundedTo005V);
  }
}

}  // namespace korva
