#include "pages/z2_kv_config_v2/transfer.h"

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/grid_rounding.h"

namespace korva {

namespace {

constexpr StringView kThresholdRangeItem = u"33";
constexpr StringView kRanges = u"$I33";

}  // namespace

String RangeText(const ParameterPage& page, const String& answer) {
  const ChoiceList ranges = page.Def.ListOf(kRanges);
  const String text = Trimmed(answer);
  const int row = ranges.FindText(text) < 0 && IsPlainDecimal(text) ? LeadingInteger(text) : -1;
  return row >= 0 && row < ranges.Rows() && !ranges.Text(row).empty() ? ranges.Text(row) : text;
}

void Z2KvConfigV2Upload::AfterItemRead(int row) {
  KindUpload::AfterItemRead(row);
  if (Page().DataCell(row, kItem) == kThresholdRangeItem) {
    Page().GroupItem.Set(Page().DataCell(row, kGroup), String(kThresholdRangeItem),
                         RangeText(Page(), Page().SetCell(row)));
  }
}

void Z2KvConfigV2Download::RoundValues() { Round5ms(Page(), ItemsWithUnit(Page(), u"msec")); }

bool Z2KvConfigV2Download::CompareReply(const WriteEntry& entry, const String& reply) const {
  return KindDownload::CompareReply(
      entry, entry.item.item == kThresholdRangeItem ? RangeText(Page(), reply) : reply);
}

}  // namespace korva
