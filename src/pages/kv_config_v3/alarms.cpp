#include "pages/kv_config_v3/alarms.h"

#include <algorithm>

namespace korva {

namespace {

void Disable(auto& control) {
  control.SetEnabled(false);
  if (control.ShownLook() == Look::Bad) {
    control.SetLook(Look::Normal);  // what isn't judged is not bad
  }
}

}  // namespace

bool KvConfigV3Alarms::Off(const SwitchedAlarm& alarm) const {
  return alarm.def_file == page_.DefFile && page_.GroupItem.At(u"01", String(alarm.type)) == kNoAlarm;
}

bool KvConfigV3Alarms::Applies(int row) const {
  const String& item = page_.DataCell(row, kItem);
  const auto alarms = SwitchedAlarms();
  return std::none_of(alarms.begin(), alarms.end(), [&](const SwitchedAlarm& alarm) {
    return Off(alarm) && std::find(alarm.items.begin(), alarm.items.end(), item) != alarm.items.end();
  });
}

void KvConfigV3Alarms::ChoiceMade(const Choice& choice) {
  if (choice.options != nullptr) {
    return;
  }
  for (const SwitchedAlarm& alarm : SwitchedAlarms()) {
    if (alarm.def_file == page_.DefFile && alarm.type == choice.item && !Off(alarm)) {
      OpenRows(alarm);
    }
  }
  SettleAlarms();
}

void KvConfigV3Alarms::SettleAlarms() {
  for (int index = 0; index < page_.Text.Count(); ++index) {
    page_.Text[index].SetEnabled(true);
  }
  for (int index = 0; index < page_.Combo.Count(); ++index) {
    page_.Combo[index].SetEnabled(true);
  }
  for (const SwitchedAlarm& alarm : SwitchedAlarms()) {
    if (Off(alarm)) {
      std::for_each(alarm.items.begin(), alarm.items.end(), [this](StringView item) { DisableRow(item); });
    }
  }
}

void KvConfigV3Alarms::DisableRow(StringView item) {
  if (TextField* field = page_.FindField(item)) {
    Disable(*field);
  }
  if (ComboBox* box = FindBox(item)) {
    Disable(*box);
  }
}

void KvConfigV3Alarms::OpenRows(const SwitchedAlarm& alarm) {
  for (const StringView item : alarm.items) {
    const String name(item);
    if (page_.GroupItem.At(u"01", name) != kNeedless) {
      continue;
    }
    page_.GroupItem.Set(u"01", name, {});
    if (TextField* field = page_.FindField(name)) {
      ParameterPage::OpenField(*field);
    }
  }
}

bool KvConfigV3Alarms::CheckDirections() {
  bool good = true;
  for (const SwitchedAlarm& alarm : SwitchedAlarms()) {
    ComboBox* box = alarm.def_file == page_.DefFile && !Off(alarm) ? FindBox(alarm.direction) : nullptr;
    if (box == nullptr) {
      continue;
    }
    const bool chosen = !page_.GroupItem.At(u"01", String(alarm.direction)).empty();
    if (chosen && box->ShownLook() == Look::Bad) {
      box->SetLook(Look::Normal);
    } else if (!chosen) {
      box->SetLook(Look::Bad);
    }
    good = good && chosen;
  }
  return good;
}

ComboBox* KvConfigV3Alarms::FindBox(StringView item) {
  const int row = page_.FindDataRow(item);
  return row < 0 || page_.DataCell(row, kComboIndex).empty()
             ? nullptr
             : &page_.Combo[page_.Place(row, kComboIndex, page_.Combo.Count())];
}

}  // namespace korva
