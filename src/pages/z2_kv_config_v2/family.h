#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family LiteSecond.
extern const FamilyRecord kZ2KvConfigV2Record;

}  // namespace korva
