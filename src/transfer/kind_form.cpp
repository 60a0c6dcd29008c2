#include "transfer/kind_form.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kTagKind = u"TG:";
/// The ends of inputs and outputs.
constexpr std::array<StringView, 6> kRangeEnds = {u"12", u"13", u"14", u"15", u"42", u"43"};

}  // namespace

std::optional<CodeTable> KindForm::CodesOf(int item) const { return CodesOfRow(FormatMask(item, u"00")); }

bool KindUpload::IsValue(int row) const {
  const String& kind = Page().DataCell(row, kItemKind);
  return !kind.empty() && kind != kTagKind;
}

String KindUpload::ReadItem(int row) const {
  const String& group = Page().DataCell(row, kGroup);
  return group == u"00" || group == u"99" ? Page().ReadIdentity(Page().WireOf(row))
                                          : UploadSteps::ReadItem(row);
}

void KindUpload::AfterItemRead(int row) {
  if (!IsValue(row)) {
    return;
  }
  if (const String number = TrimNumericText(Page().SetCell(row)); !number.empty()) {
    Page().GroupItem.Set(Page().DataCell(row, kGroup), Page().DataCell(row, kItem), number);
  }
}

RowRead TransmitterUpload::Judge(const String& answer) {
  if (answer.empty()) {
    Page().Box().ShowCommFailure();
    return RowRead::Stop;
  }
  if (answer == u"ERROR") {
    Page().Box().Show(BoxKey::UploadAgain);
    return RowRead::Stop;
  }
  return RowRead::Read;
}

void TransmitterUpload::AfterItemRead(int row) {
  KindUpload::AfterItemRead(row);
  const String& item = Page().DataCell(row, kItem);
  const String& value = Page().SetCell(row);
  const bool range_end = std::find(kRangeEnds.begin(), kRangeEnds.end(), item) != kRangeEnds.end();
  if (range_end && IsValue(row) && IsNumeric(value)) {
    Page().GroupItem.Set(Page().DataCell(row, kGroup), item, FormatMask(LeadingNumber(value), u"##0.00"));
  }
}

bool KindDownload::ComparesReply(const WriteEntry& entry, const String& /*reply*/) const {
  const String& kind = Page().DataCell(entry.row, kItemKind);
  return kind.empty() || kind == kTagKind || IsFinePrefix(kind);
}

bool KindDownload::CompareReply(const WriteEntry& entry, const String& reply) const {
  const String& kind = Page().DataCell(entry.row, kItemKind);
  if (kind.empty()) {
    return Trimmed(reply) == entry.source;
  }
  if (kind == kTagKind) {
    return reply == entry.source;
  }
  return !IsFinePrefix(kind) || FineValueTaken(LeadingNumber(entry.source), LeadingNumber(reply));
}

}  // namespace korva
