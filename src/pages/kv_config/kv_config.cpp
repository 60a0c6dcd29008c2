#include "pages/kv_config/kv_config.h"

#include <algorithm>
#include <array>

#include "pages/kv_config/design.h"
#include "pages/kv_config/models.h"

namespace korva {

namespace {

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
    : SevenTabPage(program, {.family = family, .tab_control = "KvCfg_Tab", .design = kKvConfigDesign}, link,
                   kArrays, kGroups) {
  for (OptionGroup* options : {&Opt_Root, &Opt_Backup, &Opt_Updown, &Opt_Alarm, &Opt_Recovery}) {
    Register(*options);
  }
  ApplyDesign();
}

void KvConfig::ClosePort() { Line().Close(); }

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

void KvConfig::ShowModelControls() {
  io_check_.ShowControls();
  if (Frame* frame = TemperatureFrame()) {
    frame->SetEnabled(Item(21) != kNeedless);
  }
}

bool KvConfig::InputTypeUsesTable() const {
  return std::find(kLinearizerTypes.begin(), kLinearizerTypes.end(), Item(10)) != kLinearizerTypes.end();
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
  const ModelCheck* check = FindCheck(KvConfigChecks(), DefFile);
  const bool filter = check != nullptr && check->beginning;
  if (filter && !CheckByModel(*check)) {
    return false;
  }
  if (Traits().range_follows_type && !CheckRangeOfType()) {
    return false;
  }
  return check == nullptr || filter || CheckByModel(*check);
}

}  // namespace korva
