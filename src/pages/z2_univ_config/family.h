#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family LiteUniv.
extern const FamilyRecord kZ2UnivConfigRecord;

}  // namespace korva
