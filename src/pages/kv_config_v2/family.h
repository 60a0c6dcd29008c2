#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family Second.
extern const FamilyRecord kKvConfigV2Record;

}  // namespace korva
