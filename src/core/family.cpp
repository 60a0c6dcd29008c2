#include "core/family.h"

#include <algorithm>

namespace korva {

const Family* Families::Find(StringView word) const {
  const auto found =
      std::find_if(all.begin(), all.end(), [word](const Family* family) { return family->word == word; });
  return found == all.end() ? nullptr : *found;
}

}  // namespace korva
