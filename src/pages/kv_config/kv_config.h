#pragma once

#include "linearizer/linearizer.h"
#include "monitor/output_setting.h"
#include "pages/family_record.h"
#include "pages/kv_config/rules.h"
#include "pages/kv_config/spelling.h"
#include "pages/kv_config/transfer.h"
#include "transfer/temperature_units.h"

namespace korva {

/// The page of family First, the root page: it shows first and opens the port at the program's start.
class KvConfig final : public ParameterPage {
 public:
  KvConfig(Program& program, const FamilyRecord& record, DeviceLink& link);

  /// What the page knows of the chosen model beyond its definition.
  [[nodiscard]] const KvConfigModel& Model() const { return ModelRow(KvConfigModels(), DefFile); }

  OptionGroup Opt_Root{"Opt_Root", 2};
  OptionGroup Opt_Backup{"Opt_Backup", 3};
  OptionGroup Opt_Updown{"Opt_Updown", 3};
  OptionGroup Opt_Alarm{"Opt_Alarm", 4};
  OptionGroup Opt_Recovery{"Opt_Recovery", 2};

  Linearizer linearizer;
  StatusMonitor monitor;
  OutputSetting output;

 protected:
  void PreparePort() override;
  void ClosePort() override;

 private:
  void AddAllOptions();

  TemperatureUnits units_;
  KvConfigSpelling spelling_;
  KvConfigRules rules_;

  KvConfigForm form_;
  KvConfigUpload upload_steps_;
  KvConfigCheck check_steps_;
  KvConfigDownload download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva
