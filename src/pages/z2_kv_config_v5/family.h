#pragma once

#include "pages/family_record.h"

namespace korva {

/// The record of family LiteFifth.
extern const FamilyRecord kZ2KvConfigV5Record;

}  // namespace korva
