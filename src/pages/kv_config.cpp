#include "pages/kv_config.h"

#include <algorithm>
#include <array>

#include "pages/kv_config_design.h"
#include "pages/kv_config_models.h"

namespace korva {

namespace {

constexpr std::array kTabCaptions = {TextKey::File,   TextKey::Input, TextKey::Output, TextKey::Linearizer,
                                     TextKey::Filter, TextKey::Port,  TextKey::IoCheck};

constexpr FieldArrays kArrays = {
    .lbl_item = 54, .label = 44, .text = 43, .frame = 9, .combo = 3, .lbl_unit = 40};
constexpr int kGroups = 4;

constexpr std::array kLists = {
    ListRule{.key = u"$I10", .table = u"$I10", .fill = ListFill::InputType},
    ListRule{.key = u"$I11", .table = u"$I11Body", .fill = ListFill::Range},
    ListRule{.key = u"$I23", .table = u"$I23"},
    ListRule{.key = u"$I11QEI", .table = u"$I11QEI"},
};

/// The input types whose linearizer table is in use, as both versions of the devices spell them.
constexpr std::array<StringView, 2> kLinearizerTypes = {u"FX: Linearizer", u"Fx:linearizer"};

}  // namespace

KvConfig::KvConfig(Program& program, const Family& family, DeviceLink& link)
    : TransferPage(program,
                   {.family = family,
                    .tab_control = "KvCfg_Tab",
                    .tab_captions = kTabCaptions,
                    .design = kKvConfigDesign},
                   link, kArrays, kGroups),
      monitor_(*this, MonitorFamilyOf(family)),
      output_(*this, OutputFamilyOf(family), monitor_),
      linearizer_(*this) {
  for (OptionGroup* options :
       {&Opt_Table, &Opt_Lnr, &Opt_Root, &Opt_Backup, &Opt_Updown, &Opt_Alarm, &Opt_Recovery}) {
    Register(*options);
  }
  cmdMonitorON.OnClick = [this] { monitor_.Start(); };
  cmdMonitorOFF.OnClick = [this] { monitor_.RequestStop(); };
  cmdSet.OnClick = [this] { output_.Set(); };
  cmdStatusMonOFF.OnClick = [this] { output_.Off(); };
  ApplyDesign();
}

void KvConfig::SetCaptions(Language language) {
  TransferPage::SetCaptions(language);
  for (OptionGroup* options : {&Opt_Table, &Opt_Lnr}) {
    (*options)[0].SetCaption(CaptionText(TextKey::OptionNo, language));
    (*options)[1].SetCaption(CaptionText(TextKey::OptionYes, language));
  }
  constexpr std::array kUnits = {kDegC, kDegF, kKelvin};
  for (std::size_t place = 0; place < kUnits.size(); ++place) {
    optTempUnit[static_cast<int>(place)].SetCaption(String(kUnits.at(place)));
  }
}

void KvConfig::PreparePort() { Line().OpenAtStart(String(ItsFamily().settings)); }

void KvConfig::ClosePort() { Line().Close(); }

std::vector<Control*> KvConfig::FurtherLockedControls() {
  return {&LnrFlexGrid, &fraLnrChange, &cmd_csvFileOpen};
}

int KvConfig::LnrTab() const { return kLinearizerTab; }

std::span<const ModelTraits> KvConfig::TraitTable() const { return KvConfigModels(); }

std::span<const ListRule> KvConfig::Lists() const { return kLists; }

std::vector<OptionRule> KvConfig::Options() {
  const bool root = Traits().range_options_are_root;
  return {
      {.key = u"$I10", .table = u"$I10", .item = u"10", .options = &Opt_Table},
      {.key = u"$I11",
       .table = u"$I11Body",
       .item = u"11",
       .options = root ? &Opt_Root : &Opt_Lnr,
       .captions_from_table = root},
      {.key = u"$I21", .table = u"$I21", .item = u"21", .options = &optTempUnit},
      {.key = u"$I21QD",
       .table = u"$I21QD",
       .item = u"21",
       .options = &Opt_Backup,
       .captions_from_table = true},
      {.key = u"$I23QD",
       .table = u"$I23QD",
       .item = u"23",
       .options = &Opt_Updown,
       .captions_from_table = true},
      {.key = u"$I25QD",
       .table = u"$I25QD",
       .item = u"25",
       .options = &Opt_Alarm,
       .captions_from_table = true},
      {.key = u"$I31QD",
       .table = u"$I31QD",
       .item = u"31",
       .options = &Opt_Recovery,
       .captions_from_table = true},
  };
}

void KvConfig::AfterOption(const OptionRule& rule, int place) {
  if (rule.options == &Opt_Table || rule.options == &Opt_Lnr) {
    Tabs.SetTabEnabled(kLinearizerTab, place != 0);
  }
}

void KvConfig::ShowModelControls() {
  const bool monitor = Traits().has_monitor;
  for (Control* control : {static_cast<Control*>(&fraMonitoring), static_cast<Control*>(&IO_lblShow),
                           static_cast<Control*>(&cmdMonitorON), static_cast<Control*>(&cmdMonitorOFF)}) {
    control->SetVisible(monitor);
  }
  const bool output = FindTextIndex(u"01", u"03_set") >= 0;
  for (Control* control : {static_cast<Control*>(&IO_lblSet), static_cast<Control*>(&cmdSet),
                           static_cast<Control*>(&cmdStatusMonOFF)}) {
    control->SetVisible(output);
  }
  if (Frame* frame = TemperatureFrame()) {
    frame->SetEnabled(Item(21) != kNeedless);
  }
}

void KvConfig::SettleFlaggedTabs() {
  Tabs.SetTabEnabled(kFilterTab, Def[u"$SSTab"].At(0, kFilterTab) == u"True");
}

bool KvConfig::InputTypeUsesTable() const {
  return std::find(kLinearizerTypes.begin(), kLinearizerTypes.end(), Item(10)) != kLinearizerTypes.end();
}

const OptionGroup* KvConfig::SwitchOptions(TableSwitch table_switch) const {
  switch (table_switch) {
    case TableSwitch::TableOption:
      return &Opt_Table;
    case TableSwitch::LnrOption:
      return &Opt_Lnr;
    default:
      return nullptr;
  }
}

std::optional<CodeTable> KvConfig::CodesOf(int item) const {
  const ModelTraits& traits = Traits();
  switch (item) {
    case 10:
      return CodeTable{.key = u"$I10"};
    case 11:
      switch (traits.range_code) {
        case RangeCode::SensorTable:
          return CodeTable{.key = u"$I11QEI"};
        case RangeCode::FirstColumn:
          return CodeTable{.key = u"$I11Body"};
        case RangeCode::UnderTitle:
          return RangeCodesUnderTitle();
      }
      return std::nullopt;
    case 21:
      return CodeTable{.key = traits.has_backup_items ? u"$I21QD" : u"$I21"};
    case 23:
      return CodeTable{.key = traits.has_backup_items ? u"$I23QD" : u"$I23"};
    case 25:
      return CodeTable{.key = u"$I25QD"};
    case 31:
      return CodeTable{.key = u"$I31QD"};
    default:
      return std::nullopt;
  }
}

bool KvConfig::CheckModel() {
  const auto serves = [this](const KvConfigCheck& check) {
    return check.beginning ? DefFile.starts_with(check.def_file) : DefFile == check.def_file;
  };
  const auto checks = KvConfigChecks();
  const auto check = std::find_if(checks.begin(), checks.end(), serves);
  const bool filter = check != checks.end() && check->beginning;
  if (filter && !CheckRanges(check->ranges, check->condition)) {
    return false;
  }
  if (Traits().range_follows_type && !CheckRangeOfType()) {
    return false;
  }
  if (check == checks.end() || filter) {
    return true;
  }
  return check->sensor != nullptr ? CheckSensor(*check->sensor)
                                  : CheckRanges(check->ranges, check->condition);
}

}  // namespace korva
