#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family Lite.
extern const FamilyRecord kZ2KvConfigRecord;

}  // namespace korva
