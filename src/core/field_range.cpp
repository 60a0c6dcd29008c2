#include "core/field_range.h"

#include <algorithm>

#include "core/numbers.h"

namespace korva {

bool FieldRange::Takes(double number) const {
  if (also && number == *also) {
    return true;
  }
  return ends ? AtLeast(number, low) && AtLeast(high, number) : number > low && number < high;
}

bool FieldRange::TakesPair(double lower_end, double upper_end) const {
  const double distance = upper_end - lower_end;
  return AtLeast(distance, span) && (!rises || upper_end > lower_end) &&
         (suppression <= 0 || AtLeast(suppression * distance, lower_end));
}

FieldRange RangeBetween(StringView low, StringView high) {
  return {.low = LeadingNumber(low), .high = LeadingNumber(high)};
}

std::optional<FieldRange> Narrowed(const std::optional<FieldRange>& one,
                                   const std::optional<FieldRange>& another) {
  if (!one || !another) {
    return one ? one : another;
  }
  FieldRange both = *one;
  both.low = std::max(one->low, another->low);
  both.high = std::min(one->high, another->high);
  both.span = std::max(one->span, another->span);
  both.suppression = std::max(one->suppression, another->suppression);
  both.rises = one->rises || another->rises;
  both.lower = one->lower != nullptr ? one->lower : another->lower;
  both.upper = one->upper != nullptr ? one->upper : another->upper;
  return both;
}

}  // namespace korva
