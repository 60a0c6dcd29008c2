#include "pages/z2_kv_config_v3/transfer.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/grid_rounding.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr StringView kNotReady = u"invalid data";
constexpr StringView kTagSet = u"SET_user_TAG";

/// The items of group "01" that the device may not have ready: it then answers that they are invalid.
constexpr std::array<StringView, 2> kLateItems = {u"02", u"18"};

bool MayBeLate(const WireItem& item) {
  return item.group == u"01" &&
         std::find(kLateItems.begin(), kLateItems.end(), item.item) != kLateItems.end();
}

String ReadWhenReady(const ParameterPage& page, const WireItem& item) {
  return page.EnterItem().ReadParamRetry(kItemRepeats, item, MayBeLate(item) ? kNotReady : StringView());
}

bool TellsTagSet(const WriteEntry& entry, const String& reply) {
  return LeadingInteger(entry.item.item) == kTagItem && Trimmed(reply) == kTagSet;
}

}  // namespace

String Z2KvConfigV3Upload::ReadItem(int row) const { return ReadWhenReady(Page(), Page().WireOf(row)); }

void Z2KvConfigV3Download::RoundValues() { Round005V(Page(), ItemsWithUnit(Page(), u"V")); }

String Z2KvConfigV3Download::ReadBefore(const WriteEntry& entry) const {
  return ReadWhenReady(Page(), entry.item);
}

String Z2KvConfigV3Download::WriteData(const WriteEntry& entry) {
  const String reply = QuantityDownload::WriteData(entry);
  return MayBeLate(entry.item) && reply == kNotReady ? ReadWhenReady(Page(), entry.item) : reply;
}

bool Z2KvConfigV3Download::CompareReply(const WriteEntry& entry, const String& reply) const {
  return TellsTagSet(entry, reply) || QuantityDownload::CompareReply(entry, reply);
}

bool Z2KvConfigV3Download::ComparesReply(const WriteEntry& entry, const String& reply) const {
  return !TellsTagSet(entry, reply);
}

}  // namespace korva
