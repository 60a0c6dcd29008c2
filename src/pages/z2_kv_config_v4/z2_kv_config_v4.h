#pragma once

#include "pages/z2_late_page.h"

namespace korva {

/// The page of family LiteForth: pulse rate transmitters with a table of 16 points.
class z2KvConfig_V4 final : public Z2LatePage {
 public:
  z2KvConfig_V4(Program& program, const FamilyRecord& record, DeviceLink& link);
};

}  // namespace korva
