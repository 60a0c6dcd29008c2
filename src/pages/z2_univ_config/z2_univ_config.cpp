#include "pages/z2_univ_config/z2_univ_config.h"

#include "pages/sensor_options.h"
#include "pages/z2_univ_config/design.h"

namespace korva {

namespace {

constexpr ColdJunctionFamily kColdJunction = {};

}  // namespace

z2UnivConfig::z2UnivConfig(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program,
                    {.family = record.family, .tab_control = "KvCfg_Tab", .design = kZ2UnivConfigDesign},
                    FormsOf(record), link),
      units_(*this, [] { return TemperatureForm::TwoDecimals; }),
      input_class(*this),
      tables(*this, record.user_tables.Value(), record.csv),
      cold_junction(*this, kColdJunction),
      modbus(*this),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor),
      form_(*this),
      upload_steps_(*this, input_class),
      check_steps_(*this),
      download_steps_(*this),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddSensorOptions(*this, Opt_Cjc, optBurn, tables.Opt_Lnr);
  ApplyDesign();
}

}  // namespace korva
