#include "pages/z2_kv_config_v5/z2_kv_config_v5.h"

#include "pages/z2_kv_config_v5/design.h"

namespace korva {

z2KvConfig_V5::z2KvConfig_V5(Program& program, const FamilyRecord& record, DeviceLink& link)
    : Z2LatePage(program, record, kZ2KvConfigV5Design, link), input_classes(*this, threshold) {
  ApplyDesign();
}

}  // namespace korva
