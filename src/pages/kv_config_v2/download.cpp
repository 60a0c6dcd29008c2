// What a transfer of family Second sends and how the device's answers prove it.

#include <algorithm>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/kv_config_v2/kv_config_v2.h"
#include "transfer/columns.h"
#include "transfer/conversion.h"

namespace korva {

namespace {

constexpr int kSettling = 500;  // ms that the device needs after a write
constexpr StringView kAllReset = u"all prms default";

// What stands in the column of prefixes for a choice.
constexpr StringView kOptionForm = u"O";
constexpr StringView kBoxForm = u"N";

/// Times that the device keeps in steps of 5 msec.
constexpr std::array<StringView, 10> kTimes = {u"08", u"09", u"12", u"13", u"03",
                                               u"18", u"19", u"24", u"25", u"33"};

}  // namespace

String KvConfig_V2::ReplyPrefix(int row) const {
  return IsChoice(row) ? String() : TransferPage::ReplyPrefix(row);
}

bool KvConfig_V2::IsChoice(int row) const {
  const String& form = DataCell(row, kReplyPrefix);
  return form == kOptionForm || form == kBoxForm;
}

std::optional<CodeTable> KvConfig_V2::CodesOf(int item) const {
  switch (item) {
    case 23:
      return CodeTable{.key = u"$I23"};
    case 26:
      return CodeTable{.key = u"$I26"};
    case 27:
      return CodeTable{.key = u"$I27"};
    case 28:
      return CodeTable{.key = u"$I28"};
    case 29:
      return CodeTable{.key = u"$I29"};
    default:
      return std::nullopt;
  }
}

void KvConfig_V2::RoundValues() { Round5ms(kTimes); }

bool KvConfig_V2::ResetAllParams() {
  if (!EnterProgrammingMode()) {
    return false;
  }
  Line().WaitFor(kSettling);
  const String reply = Items().WriteRetry(kRepeats, u"01", u"34", u"1");
  Line().WaitFor(kSettling);
  if (Trimmed(reply) != kAllReset) {
    Box().Show(BoxKey::ParametersNotReset);
  }
  return true;
}

String KvConfig_V2::DataOf(int row, const String& cell) const {
  const String number = HasUnit(row) ? SplitQuantity(cell).number : String();
  return number.empty() ? TransferPage::DataOf(row, cell) : number;
}

String KvConfig_V2::WriteData(const WriteEntry& entry) {
  const int row = FindDataRow(entry.group, entry.item);
  if (!IsChoice(row) && HasUnit(row) && !WriteUnitCode(UnitOfValue(row, entry.source))) {
    return {};
  }
  return TransferPage::WriteData(entry);
}

bool KvConfig_V2::WriteUnitCode(const String& unit) {
  const auto* const known = std::find_if(kFrequencyUnits.begin(), kFrequencyUnits.end(),
                                         [&](const FrequencyUnit& one) { return one.text == unit; });
  if (known == kFrequencyUnits.end()) {
    return true;
  }
  const String reply = Items().WriteRetry(kRepeats, u"01", u"11", String(known->code));
  Line().WaitFor(kSettling);
  return !reply.empty();
}

void KvConfig_V2::AfterWrite() { Line().WaitFor(kSettling); }

bool KvConfig_V2::CompareReply(const WriteEntry& entry, const String& reply) const {
  const int row = FindDataRow(entry.group, entry.item);
  const String kept = Trimmed(entry.source);
  const String reported = Trimmed(WithoutPrefix(reply, entry.prefix));
  if (reported == kept) {
    return true;
  }
  const String kept_number = SplitQuantity(kept).number;
  const String reported_number = SplitQuantity(reported).number;
  if (IsChoice(row) || LeadingInteger(entry.item) == kTagItem || kept_number.empty() ||
      reported_number.empty() || UnitOfValue(row, kept) != UnitOfValue(row, reported)) {
    return false;
  }
  const double sent = LeadingNumber(kept_number);
  const double held = LeadingNumber(reported_number);
  return IsFinePrefix(entry.prefix) ? FineValueTaken(sent, held) : sent == held;
}

void KvConfig_V2::ShowWriteFailure(const WriteEntry& entry, const String& reply) {
  Box().Show(BoxKey::ItemDataMismatch, {entry.item, reply});
}

}  // namespace korva
