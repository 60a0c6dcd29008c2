#include "transfer/number_check.h"

namespace korva {

bool NumberCheck::CheckValues() {
  const bool tag_good = fields_.CheckTag();
  return fields_.CheckNumbers() && tag_good;
}

}  // namespace korva
