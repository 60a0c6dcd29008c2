#include "pages/kv_config_v2/kv_config_v2.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "pages/kv_config_v2/design.h"

namespace korva {

namespace {

constexpr FieldArrays kArrays = {
    .lbl_item = 40, .label = 40, .text = 30, .frame = 3, .combo = 5, .lbl_unit = 30};
constexpr int kHighestUnitBox = 5;
constexpr int kGroups = 4;

constexpr std::array kLists = {
    ListRule{.key = u"$I23", .table = u"$I23"},
    ListRule{.key = u"$I27", .table = u"$I27"},
    ListRule{.key = u"$I28", .table = u"$I28"},
    ListRule{.key = u"$I29", .table = u"$I29"},
};

constexpr StringView kTagKey = u"02";
constexpr std::array<StringView, 5> kLiveItems = {u"03_set", u"03_mon", u"05", u"06", u"07"};

}  // namespace

KvConfig_V2::KvConfig_V2(Program& program, const Family& family, DeviceLink& link)
    : TransferPage(
          program,
          {.family = family, .tab_control = "KvCfg_Tab", .design = kKvConfigV2Design, .has_table = false},
          link, kArrays, kGroups),
      cbo_unit("cbo_unit", kHighestUnitBox) {
  RegisterFields(cbo_unit);
  Register(optAlarm);
  for (int index = 0; index < cbo_unit.Count(); ++index) {
    for (const FrequencyUnit& unit : kFrequencyUnits) {
      cbo_unit[index].AddEntry(String(unit.text));
    }
    cbo_unit[index].OnClick = [this, index] { UnitPicked(index); };
  }
  ApplyDesign();
}

void KvConfig_V2::ClearParameterSet() {
  TransferPage::ClearParameterSet();
  for (int index = 0; index < cbo_unit.Count(); ++index) {
    cbo_unit[index].SetText({});
  }
}

std::span<const ListRule> KvConfig_V2::Lists() const { return kLists; }

std::vector<OptionRule> KvConfig_V2::Options() {
  return {
      {.key = u"$I26", .table = u"$I26", .item = u"26", .options = &optAlarm, .captions_from_table = true}};
}

std::span<const StringView> KvConfig_V2::LiveItems() const { return kLiveItems; }

bool KvConfig_V2::CheckFields() {
  const bool tag_good = CheckTag();
  return CheckNumbers() && tag_good;
}

bool KvConfig_V2::CheckNumbers() {
  bool good = true;
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    const String& item = DataCell(row, kItem);
    const bool live = std::find(kLiveItems.begin(), kLiveItems.end(), item) != kLiveItems.end();
    if (DataCell(row, kOnPage) != u"Y" || DataCell(row, kTextIndex).empty() || item == kTagKey || live) {
      continue;
    }
    TextField& field = Text[Place(row, kTextIndex, Text.Count())];
    if (!field.Locked()) {
      const bool number = IsNumeric(field.Text());
      field.SetLook(number ? Look::Normal : Look::Bad);
      good = good && number;
    }
  }
  return good;
}

}  // namespace korva
