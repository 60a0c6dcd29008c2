#include "transfer/number_check.h"

namespace korva {

bool NumberCheck::CheckValues() {
  const bool tag_good = fields_.CheckTag();
  return fields_.CheckNumbers() && tag_good;
}

std::optional<FieldRange> NumberCheck::RangeOf(int row) const {
  return FieldChecks::RangeOfTag(fields_.ItemOf(row));
}

}  // namespace korva
