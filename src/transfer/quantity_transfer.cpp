#include "transfer/quantity_transfer.h"

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/conversion.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

// What stands in the column of prefixes for a choice.
constexpr StringView kOptionForm = u"O";
constexpr StringView kBoxForm = u"N";

}  // namespace

String QuantityForm::ReplyPrefix(int row) const {
  return IsChoice(row) ? String() : RowForm::ReplyPrefix(row);
}

bool QuantityForm::IsChoice(int row) const {
  const String& form = Page().DataCell(row, kReplyPrefix);
  return form == kOptionForm || form == kBoxForm;
}

std::optional<CodeTable> QuantityForm::CodesOf(int item) const { return CodesOfRow(FormatMask(item, u"00")); }

String QuantityForm::DataOf(int row, const String& cell) const {
  const String number = units_.HasUnit(row) ? SplitQuantity(cell).number : String();
  return number.empty() ? RowForm::DataOf(row, cell) : number;
}

String QuantityDownload::WriteData(const WriteEntry& entry) {
  const int row = entry.row;
  if (!form_.IsChoice(row) && units_.HasUnit(row) &&
      !WriteUnitCode(row, units_.UnitOfValue(row, entry.source))) {
    return {};
  }
  return DownloadSteps::WriteData(entry);
}

bool QuantityDownload::WriteUnitCode(int row, const String& unit) {
  const std::optional<String> code = units_.CodeOf(unit);
  if (!code) {
    return true;
  }
  const WireItem item{.group = u"01", .item = units_.CodeItem(row)};
  const String reply = Page().Items().WriteRetry(kItemRepeats, item, *code);
  Page().TellSent({.what = TextKey::UnitCode, .item = item, .sent = *code}, reply);
  AfterWrite();
  return !reply.empty();
}

bool QuantityDownload::CompareReply(const WriteEntry& entry, const String& reply) const {
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

}  // namespace korva
