#pragma once

#include "pages/z2_kv_config_v5/input_classes.h"
#include "pages/z2_late_page.h"

namespace korva {

/// The page of family LiteFifth: pulse transmitters with a table of 100 points, whose input may be a line
/// receiver.
class z2KvConfig_V5 final : public Z2LatePage {
 public:
  z2KvConfig_V5(Program& program, const FamilyRecord& record, DeviceLink& link);

  InputClasses input_classes;
};

}  // namespace korva
