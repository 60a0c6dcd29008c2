// The alarms that their type can switch off: an alarm that is off has no values, neither on the page nor in
// the device.

#include <algorithm>

#include "pages/kv_config_v3/kv_config_v3.h"

namespace korva {

namespace {

void Disable(auto& control) {
  control.SetEnabled(false);
  if (control.ShownLook() == Look::Bad) {
    control.SetLook(Look::Normal);  // what isn't judged is not bad
  }
}

}  // namespace

bool KvConfig_V3::Off(const SwitchedAlarm& alarm) const {
  return alarm.def_file == DefFile && GroupItem.At(u"01", String(alarm.type)) == kNoAlarm;
}

bool KvConfig_V3::Applies(int row) const {
  const String& item = DataCell(row, kItem);
  const auto alarms = SwitchedAlarms();
  return std::none_of(alarms.begin(), alarms.end(), [&](const SwitchedAlarm& alarm) {
    return Off(alarm) && std::find(alarm.items.begin(), alarm.items.end(), item) != alarm.items.end();
  });
}

void KvConfig_V3::ApplyModelRules(const String& item) {
  for (const SwitchedAlarm& alarm : SwitchedAlarms()) {
    if (alarm.def_file == DefFile && alarm.type == item && !Off(alarm)) {
      OpenRows(alarm);
    }
  }
  SettleAlarms();
}

void KvConfig_V3::SettleAlarms() {
  for (int index = 0; index < Text.Count(); ++index) {
    Text[index].SetEnabled(true);
  }
  for (int index = 0; index < Combo.Count(); ++index) {
    Combo[index].SetEnabled(true);
  }
  for (const SwitchedAlarm& alarm : SwitchedAlarms()) {
    if (Off(alarm)) {
      std::for_each(alarm.items.begin(), alarm.items.end(), [this](StringView item) { DisableRow(item); });
    }
  }
}

void KvConfig_V3::DisableRow(StringView item) {
  if (TextField* field = FindField(String(item))) {
    Disable(*field);
  }
  if (ComboBox* box = FindBox(item)) {
    Disable(*box);
  }
}

void KvConfig_V3::OpenRows(const SwitchedAlarm& alarm) {
  for (const StringView item : alarm.items) {
    const String name(item);
    if (GroupItem.At(u"01", name) != kNeedless) {
      continue;
    }
    GroupItem.Set(u"01", name, {});
    if (TextField* field = FindField(name)) {
      OpenField(*field);
    }
  }
}

bool KvConfig_V3::CheckDirections() {
  bool good = true;
  for (const SwitchedAlarm& alarm : SwitchedAlarms()) {
    ComboBox* box = alarm.def_file == DefFile && !Off(alarm) ? FindBox(alarm.direction) : nullptr;
    if (box == nullptr) {
      continue;
    }
    const bool chosen = !GroupItem.At(u"01", String(alarm.direction)).empty();
    if (chosen && box->ShownLook() == Look::Bad) {
      box->SetLook(Look::Normal);
    } else if (!chosen) {
      box->SetLook(Look::Bad);
    }
    good = good && chosen;
  }
  return good;
}

ComboBox* KvConfig_V3::FindBox(StringView item) {
  const int row = FindDataRow(u"01", String(item));
  return row < 0 || DataCell(row, kComboIndex).empty() ? nullptr
                                                       : &Combo[Place(row, kComboIndex, Combo.Count())];
}

}  // namespace korva
