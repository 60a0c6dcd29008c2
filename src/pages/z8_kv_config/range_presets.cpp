#include "pages/z8_kv_config/range_presets.h"

#include <algorithm>
#include <array>

#include "transfer/known_items.h"

namespace korva {

namespace {

struct Preset {
  StringView list;
  int item;              ///< of group "01", whose choice stands in the list
  StringView first_key;  ///< of the range
};
constexpr std::array kPresets = {
    Preset{.list = u"$I10", .item = kTypeItem, .first_key = u"14_0"},
    Preset{.list = u"$I11", .item = kRangeItem, .first_key = u"12_0"},
    Preset{.list = u"$I41", .item = kSecondOutputTypeItem, .first_key = u"42_0"},
};

}  // namespace

RangePresets::RangePresets(ParameterPage& page, ItemPairs& pairs) : page_(page), pairs_(pairs) {
  page_.Add(*this);
}

void RangePresets::ChoiceMade(const Choice& choice) {
  const auto* const preset = std::find_if(kPresets.begin(), kPresets.end(),
                                          [&](const Preset& one) { return one.list == choice.key; });
  if (preset == kPresets.end()) {
    return;
  }
  if (const int row = page_.Def.ListOf(preset->list).FindText(page_.Item(preset->item)); row >= 0) {
    pairs_.BringRange(preset->first_key, preset->list, row);
    page_.BuildPage();
  }
}

}  // namespace korva
