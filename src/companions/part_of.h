#pragma once

#include "core/page.h"

namespace korva {

/// The page's part of this type; nullptr for a page without one.
template <typename Part>
Part* PartOf(const Page& page) {
  for (PagePart* part : page.Parts()) {
    if (auto* found = dynamic_cast<Part*>(part)) {
      return found;
    }
  }
  return nullptr;
}

}  // namespace korva
