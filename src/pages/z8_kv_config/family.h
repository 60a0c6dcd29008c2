#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family Nano.
extern const FamilyRecord kZ8KvConfigRecord;

}  // namespace korva
