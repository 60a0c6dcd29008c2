#include "pages/kv_config/kv_config.h"

#include <array>

#include "pages/kv_config/design.h"

namespace korva {

KvConfig::KvConfig(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program, {.family = record.family, .tab_control = "KvCfg_Tab", .design = kKvConfigDesign},
                    FormsOf(record), link),
      linearizer(*this, record.table.Value(), record.csv),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor),
      units_(*this,
             [this] {
               return Model().whole_number_limits ? TemperatureForm::Whole : TemperatureForm::WithinLimits;
             }),
      spelling_(*this),
      rules_(*this),
      form_(*this, spelling_),
      upload_steps_(*this, spelling_),
      check_steps_(*this),
      download_steps_(*this, spelling_),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddAllOptions();
  ApplyDesign();
}

void KvConfig::AddAllOptions() {
  AddOptions({.key = u"$I10", .table = u"$I10", .item = u"10", .options = &linearizer.Opt_Table});
  AddOptions({.key = u"$I11",
              .table = u"$I11Body",
              .item = u"11",
              .options = &Opt_Root,
              .captions_from_table = true,
              .models = KvConfigRootModels()});
  AddOptions({.key = u"$I11", .table = u"$I11Body", .item = u"11", .options = &linearizer.Opt_Lnr});
  AddOptions({.key = u"$I21", .table = u"$I21", .item = u"21", .options = &optTempUnit});
  struct Captioned {
    StringView key;
    StringView item;
    OptionGroup* options;
  };
  for (const Captioned& one : {Captioned{.key = u"$I21QD", .item = u"21", .options = &Opt_Backup},
                               Captioned{.key = u"$I23QD", .item = u"23", .options = &Opt_Updown},
                               Captioned{.key = u"$I25QD", .item = u"25", .options = &Opt_Alarm},
                               Captioned{.key = u"$I31QD", .item = u"31", .options = &Opt_Recovery}}) {
    AddOptions({.key = one.key,
                .table = one.key,
                .item = one.item,
                .options = one.options,
                .captions_from_table = true});
  }
}

void KvConfig::PreparePort() { Line().OpenAtStart(String(ItsFamily().settings)); }

void KvConfig::ClosePort() { Line().Close(); }

}  // namespace korva
