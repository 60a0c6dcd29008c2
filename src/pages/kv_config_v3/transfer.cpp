#include "pages/kv_config_v3/transfer.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kTypesKey = u"$I10";
constexpr StringView kRangesKey = u"$I11";
constexpr StringView kRangeTable = u"$I11Body";

}  // namespace

void KvConfigV3Upload::AfterItemRead(int row) {
  const String& item = Page().DataCell(row, kItem);
  const auto units = AppendedUnits();
  const auto unit = std::find_if(units.begin(), units.end(), [&](const AppendedUnit& one) {
    return one.def_file == Page().DefFile && one.item == item;
  });
  const String& cell = Page().SetCell(row);
  if (unit == units.end() || cell == u"ERROR" || cell == kNeedless) {
    return;
  }
  const std::size_t length = cell.size() - std::min(cell.size(), unit->length);
  Page().GroupItem.Set(Page().DataCell(row, kGroup), item, Trimmed(cell.substr(0, length)));
}

bool KvConfigV3Download::Collate() {
  const int row = Page().FindDataRow(u"10");
  const bool listed =
      row >= 0 && !Page().DataCell(row, kComboIndex).empty() && Page().DataCell(row, kChoiceKey) == kTypesKey;
  return !listed || DownloadSteps::Collate();
}

String KvConfigV3Form::DataOf(int row, const String& cell) const {
  String data = RowForm::DataOf(row, cell);
  const String& item = Page().DataCell(row, kItem);
  const auto values = DirectedValues();
  const auto value = std::find_if(values.begin(), values.end(), [&](const DirectedValue& one) {
    return one.def_file == Page().DefFile && one.item == item;
  });
  const int direction_row = value == values.end() ? -1 : Page().FindDataRow(value->direction);
  if (direction_row < 0 || Page().SetCell(direction_row).empty()) {
    return data;
  }
  constexpr std::array<StringView, 2> kSuffixes = {u" (UP)", u" (DOWN)"};
  const int place =
      Page().Def.ListOf(Page().DataCell(direction_row, kChoiceKey)).FindText(Page().SetCell(direction_row));
  const bool known = place >= 0 && place < static_cast<int>(kSuffixes.size());
  return known ? data.append(kSuffixes.at(static_cast<std::size_t>(place))) : data;
}

std::optional<CodeTable> KvConfigV3Form::CodesOf(int item) const {
  const int row = Page().FindDataRow(FormatMask(item, u"00"));
  if (row < 0 || Page().DataCell(row, kChoiceKey).empty()) {
    return std::nullopt;
  }
  const StringView key = Page().DataCell(row, kChoiceKey);
  return CodeTable{.key = key == kRangesKey ? kRangeTable : key};
}

std::optional<FieldRange> KvConfigV3Check::RangeOf(int row) const {
  const int item = fields_.ItemOf(row);
  const auto range = Narrowed(FieldChecks::RangeOfTag(item), fields_.RangeOfScale(item));
  const ModelCheck* check = FindCheck(KvConfigV3Checks(), page_.DefFile);
  return check == nullptr ? range : Narrowed(range, fields_.RangeByModel(item, *check));
}

bool KvConfigV3Check::CheckValues() {
  if (!fields_.CheckTag() || !fields_.CheckScale()) {
    return false;
  }
  const ModelCheck* check = FindCheck(KvConfigV3Checks(), page_.DefFile);
  const bool values = check == nullptr || fields_.CheckByModel(*check);
  return alarms_.CheckDirections() && values;
}

}  // namespace korva
