#include "pages/z2_kv_config/rules.h"

#include <algorithm>
#include <array>

#include "transfer/known_items.h"
#include "transfer/preset_values.h"

namespace korva {

namespace {

constexpr StringView kInputTypes = u"$I10";
constexpr StringView kOutputTypes = u"$I11";

constexpr RangeChoice kInputRange = {
    .item = kTypeItem, .list = kInputTypes, .low_item = kZeroItem, .high_item = kSpanItem};
constexpr RangeChoice kOutputRange = {
    .item = kRangeItem, .list = kOutputTypes, .low_item = kOutputZeroItem, .high_item = kOutputSpanItem};

/// The models whose input types have a range of their own. On any other the user defines it.
constexpr auto kRangedModels = std::to_array<StringView>(
    {u"Z2WT.def", u"Z2WT2.def", u"Z2WR.def", u"Z2WR2.def", u"Z8WT.def", u"Z8WR.def", u"Z2WV.def",
     u"Z2WV2.def", u"Z2WF.def", u"Z2WF2.def", u"Z8WF.def", u"Z2WM.def", u"Z2WM2.def", u"Z8WM.def"});
constexpr StringView kUsersRange = u"User's Define";

}  // namespace

Z2KvConfigRules::Z2KvConfigRules(ParameterPage& page) : page_(page) {
  page_.Add(*this);
  page_.Register(lbl_Range);
  lbl_Range.SetVisible(false);
}

void Z2KvConfigRules::ChoiceMade(const Choice& choice) {
  if (choice.key == kInputTypes) {
    BringRange(page_, kInputRange);
    ShowRange();
  } else if (choice.key == kOutputTypes) {
    BringRange(page_, kOutputRange);
  }
}

void Z2KvConfigRules::ShowRange() {
  lbl_Range.SetCaption(RangeText());
  lbl_Range.SetVisible(!lbl_Range.Caption().empty());
}

String Z2KvConfigRules::RangeText() const {
  if (page_.Item(kTypeItem).empty()) {
    return {};
  }
  if (std::find(kRangedModels.begin(), kRangedModels.end(), page_.DefFile) == kRangedModels.end()) {
    return String(kUsersRange);
  }
  const int row = page_.InputTypeRow();
  if (row < 0) {
    return {};
  }
  const ChoiceList types = page_.Def.ListOf(kInputTypes);
  return types.Cell(row, &ListColumns::low) + u" - " + types.Cell(row, &ListColumns::high) + u" " +
         types.Cell(row, &ListColumns::unit);
}

}  // namespace korva
