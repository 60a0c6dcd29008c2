#pragma once

#include "core/design.h"

namespace korva {

/// Where the fields of the page of family First stand. A definition file chooses a field by its index, so the
/// indexes are a promise to the definition files: the same item has the same index in all models.
extern const Design kKvConfigDesign;

}  // namespace korva
