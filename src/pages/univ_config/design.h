#pragma once

#include "core/design.h"

namespace korva {

/// Where the fields of the page of family QXI stand. The same item has the same index in every definition of
/// the family.
extern const Design kUnivConfigDesign;

}  // namespace korva
