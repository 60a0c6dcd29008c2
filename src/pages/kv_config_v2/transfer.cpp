#include "pages/kv_config_v2/transfer.h"

#include <array>

#include "core/text_utilities.h"
#include "transfer/grid_rounding.h"

namespace korva {

namespace {

constexpr int kSettling = 500;  // ms that the device needs after a write
constexpr StringView kAllReset = u"all prms default";

/// Times that the device keeps in steps of 5 msec.
constexpr std::array<StringView, 10> kTimes = {u"08", u"09", u"12", u"13", u"03",
                                               u"18", u"19", u"24", u"25", u"33"};

}  // namespace

void KvConfigV2Download::RoundValues() { Round5ms(Page(), kTimes); }

bool KvConfigV2Download::ResetAllParams() {
  if (!Page().EnterProgrammingMode()) {
    return false;
  }
  Page().Line().WaitFor(kSettling);
  const WireItem item{.group = u"01", .item = u"34"};
  const String reply = Page().Items().WriteRetry(kItemRepeats, item, u"1");
  const bool reset = Trimmed(reply) == kAllReset;
  Page().TellSent({.what = TextKey::DeviceReset, .item = item, .sent = u"1"}, reply,
                  reset ? Evidence::Compared : Evidence::Differs);
  Page().Line().WaitFor(kSettling);
  if (!reset) {
    Page().Box().Show(BoxKey::ParametersNotReset);
  }
  return true;
}

void KvConfigV2Download::AfterWrite() { Page().Line().WaitFor(kSettling); }

void KvConfigV2Download::ShowWriteFailure(const WriteEntry& entry, const String& reply) {
  Page().Box().Show(BoxKey::ItemDataMismatch, {entry.item.item, reply});
}

}  // namespace korva
