#pragma once

#include "linearizer/linearizer.h"
#include "monitor/output_setting.h"
#include "pages/family_record.h"
#include "pages/univ_config/pictures.h"
#include "pages/univ_config/rules.h"
#include "pages/univ_config/transfer.h"
#include "pages/univ_config/units.h"
#include "tables/cold_junction.h"

namespace korva {

/// The page of family QXI: universal converters, whose input and output the user chooses.
class UnivConfig final : public ParameterPage {
 public:
  UnivConfig(Program& program, const FamilyRecord& record, DeviceLink& link);

  OptionGroup optBurn{"optBurn", 3};
  OptionGroup optRelay_1{"optRelay_1", 3};
  OptionGroup optRelay_2{"optRelay_2", 3};
  OptionGroup optDirect{"optDirect", 2};
  OptionGroup optExcitation_1{"optExcitation_1", 2};
  OptionGroup optExcitation_2{"optExcitation_2", 2};

  SetpointUnits setpoints;  ///< before the units, whose labels follow what is chosen there
  InputUnits units;
  Linearizer linearizer;
  ColdJunction cold_junction;
  StatusMonitor monitor;
  OutputSetting output;
  UnivConfigRules rules;  ///< behind the parts whose controls it opens and closes
  UnivPictures pictures;

 private:
  void AddAllOptions();

  UnivConfigForm form_;
  UnivConfigUpload upload_steps_;
  UnivConfigCheck check_steps_;
  UnivConfigDownload download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva
