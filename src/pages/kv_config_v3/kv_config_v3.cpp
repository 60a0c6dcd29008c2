#include "pages/kv_config_v3/kv_config_v3.h"

#include <array>

#include "pages/kv_config_v3/design.h"

namespace korva {

namespace {

constexpr StringView kInputTypes = u"$I10";

constexpr CommandItem kResetFirst = {
    .item = u"12", .button = "Command_I12", .caption = TextKey::ResetFirst, .timer = "Item12_Timer"};
constexpr CommandItem kResetSecond = {
    .item = u"13", .button = "Command_I13", .caption = TextKey::ResetSecond, .timer = "Item13_Timer"};

}  // namespace

KvConfig_V3::KvConfig_V3(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program,
                    {.family = record.family, .tab_control = "KvCfg_Tab", .design = kKvConfigV3Design},
                    FormsOf(record), link),
      linearizer(*this, record.table.Value(), record.csv),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor),
      count03_(*this, kCount03, monitor, output),
      count04_(*this, kCount04, monitor, output),
      count06_(*this, kCount06, monitor, output),
      command12_(*this, kResetFirst),
      command13_(*this, kResetSecond),
      heads_(*this),
      units_(*this, [] { return TemperatureForm::WithinLimits; }),
      alarms_(*this),
      form_(*this, alarms_),
      upload_steps_(*this),
      check_steps_(*this, alarms_),
      download_steps_(*this),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddAllOptions();
  ApplyDesign();
}

void KvConfig_V3::AddAllOptions() {
  AddOptions({.key = kInputTypes, .table = kInputTypes, .item = u"10", .options = &linearizer.Opt_Table});
  AddOptions({.key = u"$I11", .table = u"$I11Body", .item = u"11", .options = &linearizer.Opt_Lnr});
  AddOptions({.key = u"$I21", .table = u"$I21", .item = u"21", .options = &optTempUnit});
  AddOptions({.key = u"$I08",
              .table = u"$I08",
              .item = u"08",
              .options = &Opt_Direction,
              .captions_from_table = true});
  AddOptions({.key = u"$I09QEC2",
              .table = u"$I09QEC2",
              .item = u"10",
              .options = &Opt_Direction09,
              .captions_from_table = true});
  AddOptions({.key = u"$I21QEB2",
              .table = u"$I21QEB2",
              .item = u"21",
              .options = &Opt_Rotation,
              .captions_from_table = true});
}

void KvConfig_V3::PreparePort() { Line().OpenAtStart(String(ItsFamily().settings)); }

bool KvConfig_V3::HasCounts() const { return count03_.Serves() || count04_.Serves() || count06_.Serves(); }

KvConfig_V3::Heads::Heads(KvConfig_V3& page) : page_(page) { page_.Add(*this); }

void KvConfig_V3::Heads::SetCaptions(Language language) {
  language_ = language;
  Show();
}

void KvConfig_V3::Heads::Show() {
  const bool counts = page_.HasCounts();
  page_.output.IO_lblSet.SetCaption(CaptionText(counts ? TextKey::CountSet : TextKey::Setting, language_));
  page_.monitor.IO_lblShow.SetCaption(
      CaptionText(counts ? TextKey::CountMonitor : TextKey::Monitor, language_));
}

}  // namespace korva
