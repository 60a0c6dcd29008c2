#pragma once

#include "linearizer/linearizer.h"
#include "monitor/output_setting.h"
#include "pages/family_record.h"
#include "pages/z2_kv_config_v3/point_dialogue.h"
#include "pages/z2_kv_config_v3/transfer.h"

namespace korva {

/// The page of family LiteThird: pulse transmitters of the second line, whose frequencies have a unit of
/// their own and whose table of 100 points travels in a dialogue.
class z2KvConfig_V3 final : public ParameterPage {
 public:
  z2KvConfig_V3(Program& program, const FamilyRecord& record, DeviceLink& link);

  OptionGroup Opt_DecrPress{"Opt_DecrPress", 2};
  OptionGroup Opt_FilterSSW{"Opt_FilterSSW", 2};
  OptionGroup Opt_FilterLSW{"Opt_FilterLSW", 2};

  FrequencyUnits units;
  PointDialogue points;
  Linearizer linearizer;
  StatusMonitor monitor;
  OutputSetting output;

 private:
  void AddAllOptions();

  QuantityForm form_;
  Z2KvConfigV3Upload upload_steps_;
  NumberCheck check_steps_;
  Z2KvConfigV3Download download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva
