#pragma once

#include "core/design.h"

namespace korva {

/// Where the fields of the page of family Nano stand. The indexes are a promise to the definition files: the
/// same item has the same index in all models. Those that no item of today's models has stand ready on the
/// tab of the second output.
extern const Design kZ8KvConfigDesign;

}  // namespace korva
