#pragma once

#include "monitor/fine_trim.h"
#include "monitor/output_setting.h"
#include "pages/family_record.h"
#include "pages/z8_kv_config/output_boxes.h"
#include "pages/z8_kv_config/range_presets.h"
#include "pages/z8_kv_config/transfer.h"
#include "tables/cold_junction.h"
#include "tables/sensor_compensation.h"
#include "tables/user_tables.h"
#include "transfer/temperature_units.h"

namespace korva {

/// The page of family Nano: transmitters of the third line, which have two outputs and hold two numbers in
/// one item.
class z8KvConfig final : public ParameterPage {
 public:
  z8KvConfig(Program& program, const FamilyRecord& record, DeviceLink& link);

  OptionGroup Opt_Cjc{"Opt_Cjc", 2};
  OptionGroup optBurn{"optBurn", 3};

  ItemPairs pairs;  ///< before the units: a pair is converted as one
  RangePresets presets;
  UserTables tables;
  ColdJunction cold_junction;
  SensorCompensation compensation;
  OutputBoxes boxes;
  StatusMonitor monitor;
  OutputSetting output;
  FineTrim first_zero;
  FineTrim first_span;
  FineTrim second_zero;
  FineTrim second_span;

 private:
  TemperatureUnits units_;
  Z8KvConfigForm form_;
  Z8KvConfigUpload upload_steps_;
  Z8KvConfigCheck check_steps_;
  Z8KvConfigDownload download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva
