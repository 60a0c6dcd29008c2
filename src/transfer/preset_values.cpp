#include "transfer/preset_values.h"

#include "core/numbers.h"
#include "transfer/conversion.h"

namespace korva {

void BringRange(ParameterPage& page, const RangeChoice& choice, StringView unit) {
  const ChoiceList choices = page.Def.ListOf(choice.list);
  const String& chosen = page.Item(choice.item);
  const int row = chosen.empty() ? -1 : choices.FindText(chosen);
  if (row < 0) {
    return;
  }
  const auto bring = [&](int item, ListColumn column, bool low) {
    if (const String& preset = choices.Cell(row, column); !preset.empty()) {
      page.SetItem(item,
                   FormatMask((low ? LowestInUnit : HighestInUnit)(LeadingNumber(preset), unit), u"##0.00"));
    }
  };
  bring(choice.low_item, &ListColumns::preset_low, true);
  bring(choice.high_item, &ListColumns::preset_high, false);
  page.BuildPage();
}

}  // namespace korva
