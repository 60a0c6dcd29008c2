#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family First.
extern const FamilyRecord kKvConfigRecord;

}  // namespace korva
