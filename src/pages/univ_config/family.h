#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of the universal family QXI.
extern const FamilyRecord kUnivConfigRecord;

}  // namespace korva
