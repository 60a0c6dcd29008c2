#include "pages/kv_config/spelling.h"

#include <algorithm>

#include "core/text_utilities.h"
#include "pages/kv_config/kv_config.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr int kTextColumn = ListColumns().text;

bool Among(const SensorTexts& texts, StringView text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

}  // namespace

KvConfigSpelling::KvConfigSpelling(KvConfig& page) : page_(page) { page_.Add(*this); }

bool KvConfigSpelling::Serves() const { return page_.Model().spells_by_version; }

void KvConfigSpelling::DefinitionRead() {
  if (const String& version = page_.GroupItem.At(0, kVersionItem); Serves() && !version.empty()) {
    SpellInputTypes(SensorTextsOf(version));
  }
}

void KvConfigSpelling::FollowSet() {
  if (Serves()) {
    SpellInputTypes(SensorTextsOf(page_.GroupItem.At(0, kVersionItem)));
  }
}

void KvConfigSpelling::FollowDevice() {
  if (!Serves()) {
    return;
  }
  const SensorTexts& device_texts =
      SensorTextsOf(page_.Items().ReadRetry(kItemRepeats, {.group = u"00", .item = u"99"}));
  const SensorTexts& other_texts =
      &device_texts == &ShortSensorTexts() ? LongSensorTexts() : ShortSensorTexts();
  const String chosen = Trimmed(page_.Item(kTypeItem));
  for (const SensorTexts* texts : {&other_texts, &device_texts}) {
    const auto* const found = std::find(texts->begin(), texts->end(), chosen);
    if (found != texts->end()) {
      page_.SetItem(kTypeItem, String(device_texts[static_cast<std::size_t>(found - texts->begin())]));
      break;
    }
  }
  SpellInputTypes(device_texts);
  page_.BuildPage();
}

bool KvConfigSpelling::Knows(const String& text) const {
  return Serves() && (Among(ShortSensorTexts(), Trimmed(text)) || Among(LongSensorTexts(), Trimmed(text)));
}

void KvConfigSpelling::SpellInputTypes(const SensorTexts& texts) {
  StringTable& types = page_.Def[u"$I10"];
  for (int row = 0; row < kSensorTexts; ++row) {
    types.Set(row, kTextColumn, String(texts[static_cast<std::size_t>(row)]));
  }
}

}  // namespace korva
