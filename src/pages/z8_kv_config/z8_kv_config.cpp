#include "pages/z8_kv_config/z8_kv_config.h"

#include <array>

#include "pages/sensor_options.h"
#include "pages/z8_kv_config/design.h"

namespace korva {

namespace {

constexpr ColdJunctionFamily kColdJunction = {
    .identity_item = u"01", .defaults = {u"25.000", u"574.000"}, .one_item = true};

constexpr std::array kCompensations = {
    CompensationModel{.def_file = u"Z8WR2.def", .first_unit = u"Ohm"},
    CompensationModel{.def_file = u"Z8WM2.def", .first_unit = u"%", .second_unit = u"%", .positions = true},
};

}  // namespace

z8KvConfig::z8KvConfig(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program,
                    {.family = record.family, .tab_control = "KvCfg_Tab", .design = kZ8KvConfigDesign},
                    FormsOf(record), link),
      pairs(*this),
      presets(*this, pairs),
      tables(*this, record.user_tables.Value(), record.csv),
      cold_junction(*this, kColdJunction),
      compensation(*this, kCompensations),
      boxes(*this),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor),
      first_zero(*this, kFirstZeroTrim),
      first_span(*this, kFirstSpanTrim),
      second_zero(*this, kSecondZeroTrim),
      second_span(*this, kSecondSpanTrim),
      units_(*this, [] { return TemperatureForm::TwoDecimals; }),
      form_(*this, pairs),
      upload_steps_(*this, pairs),
      check_steps_(*this),
      download_steps_(*this),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddSensorOptions(*this, Opt_Cjc, optBurn, tables.Opt_Lnr);
  ApplyDesign();
}

}  // namespace korva
