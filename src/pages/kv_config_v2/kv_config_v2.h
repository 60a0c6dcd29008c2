#pragma once

#include "monitor/output_setting.h"
#include "pages/family_record.h"
#include "pages/kv_config_v2/transfer.h"

namespace korva {

/// The page of family Second: pulse and frequency instruments. They have no linearizer.
class KvConfig_V2 final : public ParameterPage {
 public:
  KvConfig_V2(Program& program, const FamilyRecord& record, DeviceLink& link);

  OptionGroup optAlarm{"optAlarm", 2};

  FrequencyUnits units;
  StatusMonitor monitor;
  OutputSetting output;

 private:
  /// A fixed choice can't be opened.
  class FixedBoxes final : public PagePart {
   public:
    explicit FixedBoxes(ParameterPage& page);
    void RowShown(int row) override;

   private:
    ParameterPage& page_;
  };

  FixedBoxes fixed_boxes_;
  QuantityForm form_;
  UploadSteps upload_steps_;
  NumberCheck check_steps_;
  KvConfigV2Download download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva
