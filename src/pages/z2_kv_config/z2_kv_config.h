#pragma once

#include "linearizer/linearizer.h"
#include "monitor/output_setting.h"
#include "pages/family_record.h"
#include "pages/z2_kv_config/rules.h"
#include "pages/z2_kv_config/stored_table.h"
#include "pages/z2_kv_config/transfer.h"
#include "tables/cold_junction.h"
#include "tables/eeprom_stage.h"
#include "transfer/temperature_units.h"

namespace korva {

/// The page of family Lite: transmitters of the second line, whose input and output types, calibration and
/// sensor curves lie in the device's memory.
class z2KvConfig final : public ParameterPage {
 public:
  z2KvConfig(Program& program, const FamilyRecord& record, DeviceLink& link);

  OptionGroup Opt_FiltSW{"Opt_FiltSW", 2};
  OptionGroup optBurn{"optBurn", 3};

  Z2KvConfigRules rules;
  EepromStage stage;  ///< before the linearizer, as its turn in a download is
  StoredTable stored_table;
  Linearizer linearizer;
  ColdJunction cold_junction;
  StatusMonitor monitor;
  OutputSetting output;

 private:
  void AddAllOptions();

  TemperatureUnits units_;
  KindForm form_;
  Z2KvConfigUpload upload_steps_;
  Z2KvConfigCheck check_steps_;
  Z2KvConfigDownload download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva
