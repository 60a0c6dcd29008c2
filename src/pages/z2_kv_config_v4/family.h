#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family LiteForth.
extern const FamilyRecord kZ2KvConfigV4Record;

}  // namespace korva
