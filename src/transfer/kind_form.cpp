#include "transfer/kind_form.h"

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kTagKind = u"TG:";

}  // namespace

std::optional<CodeTable> KindForm::CodesOf(int item) const { return CodesOfRow(FormatMask(item, u"00")); }

bool IsValueRow(const ParameterPage& page, int row) {
  const String& kind = page.DataCell(row, kItemKind);
  return !kind.empty() && kind != kTagKind;
}

String ValueWithoutUnit(const String& text) {
  const String number = TrimNumericText(text);
  return number.empty() ? text : number;
}

bool ReplyProvesKind(const ParameterPage& page, const WriteEntry& entry, const String& reply) {
  const String& kind = page.DataCell(entry.row, kItemKind);
  if (kind.empty()) {
    return Trimmed(reply) == entry.source;
  }
  if (kind == kTagKind) {
    return reply == entry.source;
  }
  return !IsFinePrefix(kind) || FineValueTaken(LeadingNumber(entry.source), LeadingNumber(reply));
}

}  // namespace korva
