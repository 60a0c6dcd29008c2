#pragma once

#include "linearizer/table_buttons.h"
#include "monitor/output_setting.h"
#include "monitor/output_trim.h"
#include "monitor/threshold.h"
#include "pages/family_record.h"
#include "pages/z2_kv_config_v2/cut_out.h"
#include "pages/z2_kv_config_v2/details.h"
#include "pages/z2_kv_config_v2/transfer.h"
#include "transfer/number_check.h"

namespace korva {

/// The page of family LiteSecond: transmitters of frequencies, whose threshold and output are adjusted while
/// the user watches, and whose linearizer travels by buttons of its own.
class z2KvConfig_V2 final : public ParameterPage {
 public:
  z2KvConfig_V2(Program& program, const FamilyRecord& record, DeviceLink& link);

  DetailFrame details;
  CutOut cut_out;
  Linearizer linearizer;
  TableButtons table;
  StatusMonitor monitor;
  Threshold threshold;
  OutputSetting output;
  OutputTrim zero_trim;
  OutputTrim span_trim;

 private:
  /// The boxes of what is adjusted live, which nobody may change while the frame is locked.
  class LiveBoxes final : public PagePart {
   public:
    explicit LiveBoxes(ParameterPage& page);
    void SetLocked(bool locked) override;

   private:
    ParameterPage& page_;
  };

  LiveBoxes live_boxes_;
  KindForm form_;
  Z2KvConfigV2Upload upload_steps_;
  NumberCheck check_steps_;
  Z2KvConfigV2Download download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva
