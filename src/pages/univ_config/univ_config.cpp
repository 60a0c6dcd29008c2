#include "pages/univ_config/univ_config.h"

#include "pages/univ_config/design.h"

namespace korva {

namespace {

constexpr ColdJunctionFamily kColdJunction = {.fills_fields = true, .tells_failure = false};

}  // namespace

UnivConfig::UnivConfig(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program,
                    {.family = record.family, .tab_control = "KvCfg_Tab", .design = kUnivConfigDesign},
                    FormsOf(record), link),
      setpoints(*this),
      units(*this),
      linearizer(*this, record.table.Value(), record.csv),
      cold_junction(*this, kColdJunction),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor),
      rules(*this),
      pictures(*this),
      form_(*this),
      upload_steps_(*this),
      check_steps_(*this, form_),
      download_steps_(*this),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  linearizer.KindOfInput = [this] { return rules.TableKind(); };
  AddAllOptions();
  ApplyDesign();
}

void UnivConfig::AddAllOptions() {
  struct Choosable {
    StringView key;
    StringView item;
    OptionGroup* options;
    bool captions_from_table = true;
  };
  for (const Choosable& one : {
           Choosable{.key = u"$I21", .item = u"21", .options = &optTempUnit, .captions_from_table = false},
           Choosable{
               .key = u"$I23", .item = u"23", .options = &linearizer.Opt_Lnr, .captions_from_table = false},
           Choosable{.key = u"$I24", .item = u"24", .options = &optBurn},
           Choosable{.key = u"$I25", .item = u"25", .options = &optRelay_1},
           Choosable{.key = u"$I28", .item = u"28", .options = &optRelay_2},
           Choosable{.key = u"$I31", .item = u"31", .options = &optDirect},
           Choosable{.key = u"$I38", .item = u"38", .options = &setpoints.optSetpointUnit_1},
           Choosable{.key = u"$I39", .item = u"39", .options = &setpoints.optSetpointUnit_2},
           Choosable{.key = u"$I84", .item = u"84", .options = &optExcitation_1},
           Choosable{.key = u"$I85", .item = u"85", .options = &optExcitation_2},
       }) {
    AddOptions({.key = one.key,
                .table = one.key,
                .item = one.item,
                .options = one.options,
                .captions_from_table = one.captions_from_table,
                .keeps = &ListColumns::code});
  }
}

}  // namespace korva
