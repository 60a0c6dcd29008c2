#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family LiteThird.
extern const FamilyRecord kZ2KvConfigV3Record;

}  // namespace korva
