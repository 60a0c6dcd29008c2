#include "transfer/kind_form.h"

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kTagKind = u"TG:";

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
