// What a transfer of family Second sends and how the device's answers prove it.

#include "pages/kv_config_v2/transfer.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/conversion.h"
#include "transfer/field_checks.h"
#include "transfer/grid_rounding.h"
#include "transfer/known_items.h"

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

String KvConfigV2Form::ReplyPrefix(int row) const {
  return IsChoice(row) ? String() : RowForm::ReplyPrefix(row);
}

bool KvConfigV2Form::IsChoice(int row) const {
  const String& form = Page().DataCell(row, kReplyPrefix);
  return form == kOptionForm || form == kBoxForm;
}

std::optional<CodeTable> KvConfigV2Form::CodesOf(int item) const {
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

void KvConfigV2Download::RoundValues() { Round5ms(Page(), kTimes); }

bool KvConfigV2Download::ResetAllParams() {
  if (!Page().EnterProgrammingMode()) {
    return false;
  }
  Page().Line().WaitFor(kSettling);
  const String reply = Page().Items().WriteRetry(kItemRepeats, {.group = u"01", .item = u"34"}, u"1");
  Page().Line().WaitFor(kSettling);
  if (Trimmed(reply) != kAllReset) {
    Page().Box().Show(BoxKey::ParametersNotReset);
  }
  return true;
}

String KvConfigV2Form::DataOf(int row, const String& cell) const {
  const String number = units_.HasUnit(row) ? SplitQuantity(cell).number : String();
  return number.empty() ? RowForm::DataOf(row, cell) : number;
}

String KvConfigV2Download::WriteData(const WriteEntry& entry) {
  const int row = entry.row;
  if (!form_.IsChoice(row) && units_.HasUnit(row) && !WriteUnitCode(units_.UnitOfValue(row, entry.source))) {
    return {};
  }
  return DownloadSteps::WriteData(entry);
}

bool KvConfigV2Download::WriteUnitCode(const String& unit) {
  const std::optional<String> code = KvConfigV2Units::CodeOf(unit);
  if (!code) {
    return true;
  }
  const String reply = Page().Items().WriteRetry(kItemRepeats, {.group = u"01", .item = u"11"}, *code);
  Page().Line().WaitFor(kSettling);
  return !reply.empty();
}

void KvConfigV2Download::AfterWrite() { Page().Line().WaitFor(kSettling); }

bool KvConfigV2Download::CompareReply(const WriteEntry& entry, const String& reply) const {
  const int row = entry.row;
  const String kept = Trimmed(entry.source);
  const String reported = Trimmed(WithoutPrefix(reply, entry.prefix));
  if (reported == kept) {
    return true;
  }
  const String kept_number = SplitQuantity(kept).number;
  const String reported_number = SplitQuantity(reported).number;
  if (form_.IsChoice(row) || LeadingInteger(entry.item.item) == kTagItem || kept_number.empty() ||
      reported_number.empty() || units_.UnitOfValue(row, kept) != units_.UnitOfValue(row, reported)) {
    return false;
  }
  const double sent = LeadingNumber(kept_number);
  const double held = LeadingNumber(reported_number);
  return IsFinePrefix(entry.prefix) ? FineValueTaken(sent, held) : sent == held;
}

void KvConfigV2Download::ShowWriteFailure(const WriteEntry& entry, const String& reply) {
  Page().Box().Show(BoxKey::ItemDataMismatch, {entry.item.item, reply});
}

}  // namespace korva
