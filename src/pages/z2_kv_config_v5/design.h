#pragma once

#include "core/design.h"

namespace korva {

/// Where the fields of the page of family LiteFifth stand. A definition file chooses a field by its index, so
/// the indexes are a promise to the definition files.
extern const Design kZ2KvConfigV5Design;

}  // namespace korva
