#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family Third.
extern const FamilyRecord kKvConfigV3Record;

}  // namespace korva
