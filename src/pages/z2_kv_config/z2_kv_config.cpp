#include "pages/z2_kv_config/z2_kv_config.h"

#include "pages/z2_kv_config/design.h"

namespace korva {

namespace {

constexpr ColdJunctionFamily kColdJunction = {};

}  // namespace

z2KvConfig::z2KvConfig(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program,
                    {.family = record.family, .tab_control = "z2KvCfg_Tab", .design = kZ2KvConfigDesign},
                    FormsOf(record), link),
      rules(*this),
      stage(*this),
      stored_table(*this, stage.Curves()),
      linearizer(*this, record.table.Value(), record.csv, &stored_table),
      cold_junction(*this, kColdJunction),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor),
      units_(*this, [] { return TemperatureForm::TwoDecimals; }),
      form_(*this),
      upload_steps_(*this),
      check_steps_(*this),
      download_steps_(*this, stage),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddAllOptions();
  ApplyDesign();
}

void z2KvConfig::AddAllOptions() {
  AddOptions({.key = u"$I21", .table = u"$I21", .item = u"21", .options = &optTempUnit});
  AddOptions(
      {.key = u"$I16", .table = u"$I16", .item = u"16", .options = &Opt_FiltSW, .captions_from_table = true});
  AddOptions({.key = u"$I23", .table = u"$I23", .item = u"23", .options = &linearizer.Opt_Lnr});
  AddOptions(
      {.key = u"$I24", .table = u"$I24", .item = u"24", .options = &optBurn, .captions_from_table = true});
}

}  // namespace korva
