#pragma once

#include "monitor/output_setting.h"
#include "pages/family_record.h"
#include "pages/z2_univ_config/input_class.h"
#include "pages/z2_univ_config/modbus_settings.h"
#include "pages/z2_univ_config/transfer.h"
#include "tables/cold_junction.h"
#include "tables/user_tables.h"
#include "transfer/temperature_units.h"

namespace korva {

/// The page of family LiteUniv: universal transmitters of the second line, whose input is chosen by its class
/// and which have two outputs and a connection to a plant network.
class z2UnivConfig final : public ParameterPage {
 public:
  z2UnivConfig(Program& program, const FamilyRecord& record, DeviceLink& link);

  OptionGroup Opt_Cjc{"Opt_Cjc", 2};
  OptionGroup optBurn{"optBurn", 3};

 private:
  TemperatureUnits units_;

 public:
  InputClass input_class;  ///< behind the conversion of temperatures
  UserTables tables;       ///< behind the class, which tells whether the linearizer takes part
  ColdJunction cold_junction;
  ModbusSettings modbus;
  StatusMonitor monitor;
  OutputSetting output;

 private:
  Z2UnivConfigForm form_;
  Z2UnivConfigUpload upload_steps_;
  Z2UnivConfigCheck check_steps_;
  Z2UnivConfigDownload download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva
