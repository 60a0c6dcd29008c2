#include "pages/z2_kv_config_v3/z2_kv_config_v3.h"

#include "pages/z2_kv_config_v3/design.h"

namespace korva {

namespace {

constexpr FrequencyUnitForm kUnits = {
    .units = {{{.text = u"Hz", .code = u"1"},
               {.text = u"kHz", .code = u"2", .between = u"", .hertz = 1000},
               {.text = u"mHz", .code = u"0", .between = u"", .hertz = 0.001}}},
    .converts = true};

}  // namespace

z2KvConfig_V3::z2KvConfig_V3(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program,
                    {.family = record.family, .tab_control = "z2KvCfg_Tab", .design = kZ2KvConfigV3Design},
                    FormsOf(record), link),
      units(*this, kUnits),
      points(*this),
      linearizer(*this, record.table.Value(), record.csv, &points),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor),
      form_(*this, units),
      upload_steps_(*this),
      check_steps_(*this),
      download_steps_(*this, form_, units),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddAllOptions();
  ApplyDesign();
}

void z2KvConfig_V3::AddAllOptions() {
  AddOptions({.key = u"$I10",
              .table = u"$I10",
              .item = u"10",
              .options = &Opt_DecrPress,
              .captions_from_table = true});
  AddOptions({.key = u"$I36",
              .table = u"$I36",
              .item = u"36",
              .options = &Opt_FilterSSW,
              .captions_from_table = true});
  AddOptions({.key = u"$I37",
              .table = u"$I37",
              .item = u"37",
              .options = &Opt_FilterLSW,
              .captions_from_table = true});
  AddOptions({.key = u"$I42", .table = u"$I42", .item = u"42", .options = &linearizer.Opt_Lnr});
}

}  // namespace korva
