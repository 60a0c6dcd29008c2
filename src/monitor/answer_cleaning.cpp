#include "monitor/answer_cleaning.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

String TrimNumericHead(StringView answer, StringView /*prefix*/) { return TrimNumericTextLeft(answer); }

String TrimNumericTail(StringView answer, StringView /*prefix*/) { return TrimNumericText(answer); }

String TrimNumericTailFixed(StringView answer, StringView /*prefix*/) {
  const String number = TrimNumericText(answer);
  return number.empty() ? number : FormatMask(LeadingNumber(number), u"0.00");
}

String StripItemPrefix(StringView answer, StringView prefix) {
  if (answer != u"ERROR" && answer != u"NEEDLESS") {
    answer.remove_prefix(std::min(prefix.size(), answer.size()));
  }
  return Trimmed(answer);
}

String TrimPlain(StringView answer, StringView /*prefix*/) { return Trimmed(answer); }

}  // namespace korva
