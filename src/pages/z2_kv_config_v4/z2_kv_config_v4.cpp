#include "pages/z2_kv_config_v4/z2_kv_config_v4.h"

#include "pages/z2_kv_config_v4/design.h"

namespace korva {

z2KvConfig_V4::z2KvConfig_V4(Program& program, const FamilyRecord& record, DeviceLink& link)
    : Z2LatePage(program, record, kZ2KvConfigV4Design, link) {
  ApplyDesign();
}

}  // namespace korva
