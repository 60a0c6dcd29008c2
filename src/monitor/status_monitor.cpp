#include "monitor/status_monitor.h"

#include <algorithm>
#include <initializer_list>

#include "core/numbers.h"
#include "core/program.h"
#include "monitor/updated_control.h"

namespace korva {

namespace {

constexpr int kNoRepeats = 0;

}  // namespace

StatusMonitor::StatusMonitor(ParameterPage& page, const MonitorFamily& family)
    : Item04_lblUnitTimer("Item04_lblUnitTimer", page.ItsProgram().Loop(), kBlinkPeriod),
      Item06_lblUnitTimer("Item06_lblUnitTimer", page.ItsProgram().Loop(), kBlinkPeriod),
      page_(page),
      family_(family),
      units_(page_, family_.input),
      Item07_lblUnitTimer("Item07_lblUnitTimer", page.ItsProgram().Loop(), kBlinkPeriod) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&cmdMonitorON, &cmdMonitorOFF, &fraMonitoring, &IO_lblShow});
  cmdMonitorON.OnClick = [this] { Start(); };
  cmdMonitorOFF.OnClick = [this] { RequestStop(); };
}

void StatusMonitor::SetCaptions(Language language) {
  cmdMonitorON.SetCaption(CaptionText(TextKey::On, language));
  cmdMonitorOFF.SetCaption(CaptionText(TextKey::Off, language));
  fraMonitoring.SetCaption(CaptionText(TextKey::Monitoring, language));
  IO_lblShow.SetCaption(CaptionText(TextKey::Monitor, language));
}

void StatusMonitor::SetExchangesBarred(bool barred) {
  cmdMonitorON.SetEnabled(!barred);
  cmdMonitorOFF.SetEnabled(!barred);
}

void StatusMonitor::PageBuilt() {
  const bool has_monitor = !family_.models_without_monitor.Has(page_.DefFile);
  for (Control* control :
       std::initializer_list<Control*>{&fraMonitoring, &IO_lblShow, &cmdMonitorON, &cmdMonitorOFF}) {
    control->SetVisible(has_monitor);
  }
  OutputForced(!page_.Shared().ForcedOutput.empty());
}

void StatusMonitor::OutputForced(bool forced) {
  for (int index = 0; index < page_.Text.Count(); ++index) {
    page_.Text[index].SetDimmed(false);
  }
  for (const CycleItem& item : family_.cycle) {
    if (TextField* box = LiveRow(item.key) < 0 ? nullptr : page_.FindField(item.key)) {
      box->SetDimmed(forced);
    }
  }
}

void StatusMonitor::Start() {
  if (page_.OperationRuns() || HasNoMonitorItems()) {
    return;
  }
  page_.MonitorStop = false;
  page_.BeginOperation();
  if (!EnterFirstMode()) {
    return;
  }
  KeepInReach(page_, cmdMonitorOFF);
  ShowMonitorUnits();
  if (family_.focuses_stop) {
    cmdMonitorOFF.SetFocus();
  }
  if (family_.resets_colours) {
    ResetMonitorColours();
  }
  if (family_.has_io_check_mode) {
    page_.EnterIOCheckMode();
  }
  TellBegan();
  while (!page_.MonitorStop) {
    MonitorCycle();
  }
  TellEnded();
  if (family_.has_io_check_mode) {
    page_.EnterMonitorMode();
  }
  page_.EndOperation();
  page_.UnlockFrame();
  page_.lbl_Waitfor.SetVisible(false);
}

bool StatusMonitor::EnterFirstMode() {
  page_.LockFrame();
  if (page_.EnterMonitorMode()) {
    return true;
  }
  page_.EndOperation();
  page_.UnlockFrame();
  page_.lbl_Waitfor.SetVisible(false);
  return false;
}

void StatusMonitor::RequestStop() {
  if (page_.Shared().CommBusy) {
    page_.MonitorStop = true;
    page_.lbl_Waitfor.SetVisible(true);
  }
}

bool StatusMonitor::HasNoMonitorItems() const {
  return std::none_of(family_.presence.begin(), family_.presence.end(), [this](StringView key) {
    const int row = page_.FindDataRow(key);
    return row >= 0 && page_.DataCell(row, kOnPage) == u"Y";
  });
}

void StatusMonitor::ResetMonitorColours() {
  for (const CycleItem& item : family_.cycle) {
    const int row = LiveRow(item.key);
    if (row < 0 || !item.models.IsAllOrHas(page_.DefFile)) {
      continue;
    }
    if (TextField* box = page_.FindField(item.key)) {
      PaintRest(*box);
    }
    if (Label* label = units_.LabelOf(row)) {
      PaintRest(*label);
    }
  }
}

void StatusMonitor::ShowMonitorUnits() {
  if (family_.models_without_units.Has(page_.DefFile)) {
    return;
  }
  units_.AskForInput();
  for (const UnitStep& step : family_.units) {
    ShowUnit(step);
  }
}

void StatusMonitor::ShowUnit(const UnitStep& step) {
  const UnitRule* rule = units_.FindRule(step.rules);
  Label* label = rule == nullptr ? nullptr : UnitLabelOf(step, *rule);
  if (label == nullptr || !label->Visible()) {
    return;
  }
  const auto fill = [&] {
    const String unit = units_.UnitFrom(rule->unit, String(step.item));
    label->SetCaption(unit);
    if (step.to_measured_frequency && frequency_unit_ != nullptr) {
      frequency_unit_->SetCaption(unit);
    }
  };
  if (Timer* timer = TimerOf(step.timer)) {
    const Blinking blinking(*label, *timer);
    if (!step.blinks) {
      timer->OnTick = nullptr;
    }
    fill();
  } else {
    fill();
  }
}

Label* StatusMonitor::UnitLabelOf(const UnitStep& step, const UnitRule& rule) const {
  if (rule.shown_in >= 0) {
    return page_.lbl_unit.Has(rule.shown_in) ? &page_.lbl_unit[rule.shown_in] : nullptr;
  }
  const int row = LiveRow(step.item);
  if (row >= 0 && family_.hidden_rows_keep_unit && page_.DataCell(row, kOnPage) == u"N") {
    return nullptr;
  }
  return units_.LabelOf(row);
}

Timer* StatusMonitor::TimerOf(UnitTimer timer) {
  switch (timer) {
    case UnitTimer::Item04:
      return &Item04_lblUnitTimer;
    case UnitTimer::Item06:
      return &Item06_lblUnitTimer;
    case UnitTimer::Item07:
      return &Item07_lblUnitTimer;
    case UnitTimer::None:
      break;
  }
  return nullptr;
}

int StatusMonitor::LiveRow(StringView key) const {
  const int row = page_.FindDataRow(key);
  return row >= 0 && page_.IsWritten(row) ? -1 : row;
}

void StatusMonitor::MonitorCycle() {
  bool read = false;
  for (const CycleItem& item : family_.cycle) {
    if (item.models.IsAllOrHas(page_.DefFile)) {
      read = MonitorReadItem(item.key) || read;
    }
  }
  if (!read) {
    // What counts as present need not be read, and a device may refuse all items: the pace is kept even then,
    // since only a wait lets the user's stop in.
    page_.Line().WaitFor(kShowTime);
  }
  TellTurn();
}

bool StatusMonitor::MonitorReadItem(StringView key) {
  const int row = LiveRow(key);
  TextField* box = row < 0 ? nullptr : page_.FindField(key);
  if (box == nullptr || !box->Visible()) {
    return false;
  }
  if (family_.obeys_write_condition && page_.DataCell(row, kWriteCondition) == u"N") {
    return false;
  }
  Label* unit = units_.LabelOf(row);
  if (family_.needs_unit && unit != nullptr && unit->Caption().empty()) {
    return false;
  }
  const String answer = units_.Read(ItemKey(key).OnWire().item, kNoRepeats);
  if (family_.needs_unit && unit != nullptr && answer == u"ERROR") {
    unit->SetCaption({});
  }
  const String value = ShownValue(row, answer);
  if (family_.paints_first) {
    PaintHighlight(*box);
  }
  box->SetText(value);
  PaintHighlight(*box);
  TellRead([&] { return ReadingOf(page_, row, value, !answer.empty()); });
  page_.Line().WaitFor(kShowTime);
  PaintRest(*box);
  return true;
}

String StatusMonitor::ShownValue(int row, const String& answer) const {
  const String value = family_.clean(answer, page_.DataCell(row, kReplyPrefix));
  return family_.offset.Has() ? WithoutOffset(page_.DataCell(row, kItem), value) : value;
}

String StatusMonitor::WithoutOffset(const String& item, const String& value) const {
  const TemperatureOffset& offset = family_.offset.Value();
  if (!offset.models.Has(page_.DefFile)) {
    return value;
  }
  // The unit is asked for with every item, as it may be changed at the device meanwhile.
  const UnitTable& table = offset.unit_table;
  const String unit = units_.LookUp(table, units_.Read(table.item, table.repeats));
  const bool has_offset = std::find(offset.items.begin(), offset.items.end(), item) != offset.items.end();
  if (unit != offset.unit || !has_offset || value.empty()) {
    return value;
  }
  return ShortestText(LeadingNumber(value) - offset.subtracted);
}

}  // namespace korva
