#include "monitor/output_setting.h"

#include <initializer_list>
#include <optional>
#include <utility>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "monitor/held_exchange.h"
#include "monitor/updated_control.h"

namespace korva {

OutputSetting::OutputSetting(ParameterPage& page, const OutputFamily& family, StatusMonitor& monitor)
    : Item03_MonitorTimer("Item03_MonitorTimer", page.ItsProgram().Loop(), kBlinkPeriod),
      page_(page),
      family_(family),
      monitor_(monitor) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&cmdSet, &cmdStatusMonOFF, &IO_lblSet});
  cmdSet.OnClick = [this] { Set(); };
  cmdStatusMonOFF.OnClick = [this] { Off(); };
}

void OutputSetting::SetCaptions(Language language) {
  cmdSet.SetCaption(CaptionText(TextKey::OutputButton, language));
  cmdStatusMonOFF.SetCaption(CaptionText(TextKey::Off, language));
  IO_lblSet.SetCaption(CaptionText(TextKey::Setting, language));
}

void OutputSetting::SetExchangesBarred(bool barred) {
  cmdSet.SetEnabled(!barred);
  cmdStatusMonOFF.SetEnabled(!barred);
}

void OutputSetting::PageBuilt() {
  const bool has_box = page_.FindTextIndex(family_.set_key) >= 0;
  for (Control* control : std::initializer_list<Control*>{&IO_lblSet, &cmdSet, &cmdStatusMonOFF}) {
    control->SetVisible(has_box);
  }
  OutputForced(!page_.Shared().ForcedOutput.empty());
}

void OutputSetting::OutputForced(bool /*forced*/) {
  for (TextField* box : MonitorBoxes()) {
    box->SetDimmed(false);  // it shows what the output is forced to
  }
}

void OutputSetting::TellForced(const String& value) {
  const Label* unit = page_.UnitLabelOf(page_.FindDataRow(family_.monitor_key));
  const bool has_unit = unit == nullptr || value.ends_with(unit->Caption());
  page_.TellForced(has_unit ? value : value + u" " + unit->Caption());
}

void OutputSetting::Set() {
  TextField* set_box = page_.FindField(family_.set_key);
  if (page_.OperationRuns() || set_box == nullptr || !CheckOutputSet(*set_box)) {
    return;
  }
  page_.BeginOperation();
  page_.LockFrame();
  set_box->SetEnabled(false);
  Force(*set_box);
}

bool OutputSetting::CheckOutputSet(const TextField& set_box) const {
  const ModelRange& range = korva::RangeOf(family_.ranges, page_.DefFile);
  const double low = LeadingNumber(range.low);
  const double high = LeadingNumber(range.high);
  // What goes to the device is judged too: a text such as "1x200" begins with another number than is sent.
  const String sent = family_.clean_sent(set_box.Text(), PrefixOf(family_.set_key));
  if (IsNumeric(sent) && IsBetween(high, low, LeadingNumber(sent)) &&
      IsBetween(high, low, LeadingNumber(set_box.Text()))) {
    return true;
  }
  page_.Box().Show(BoxKey::OutputOutOfRange, {String(range.low), String(range.high)});
  return false;
}

std::optional<FieldRange> OutputSetting::RangeOfRow(int row) const {
  if (page_.DataCell(row, kItem) != family_.set_key) {
    return std::nullopt;
  }
  const ModelRange& range = korva::RangeOf(family_.ranges, page_.DefFile);
  return RangeBetween(range.low, range.high);
}

void OutputSetting::Force(TextField& set_box) {
  const std::vector<TextField*> shown = MonitorBoxes();
  std::optional<Blinking<TextField>> blinking;
  if (!shown.empty()) {
    blinking.emplace(*shown.front(), Item03_MonitorTimer);
  }
  for (TextField* box : shown) {
    PaintHighlight(*box);
  }
  if (family_.resets_colours) {
    monitor_.ResetMonitorColours();
  }
  const bool forced = EnterForcingMode();
  if (forced) {
    const WireItem item = ItemKey(family_.set_key).OnWire();
    const String value = family_.clean_sent(set_box.Text(), PrefixOf(family_.set_key));
    const String answer = page_.Items().WriteRetry(kItemRepeats, item, value);
    const String taken = family_.clean_answer(answer, PrefixOf(family_.monitor_key));
    for (TextField* box : shown) {
      box->SetText(taken);
    }
    TellForced(taken.empty() ? value : taken);
  }
  blinking.reset();
  for (TextField* box : shown) {
    PaintRest(*box);
  }
  holding_ = forced;
  if (forced) {
    KeepInReach(page_, cmdStatusMonOFF);
    cmdStatusMonOFF.SetFocus();
    page_.HoldClose(TextKey::CloseAtOff);
    return;
  }
  set_box.SetEnabled(true);
  page_.EndOperation();
  page_.UnlockFrame();
}

bool OutputSetting::EnterForcingMode() {
  if (family_.settling == Milliseconds(0)) {
    return page_.EnterProgrammingMode();
  }
  // The user hears of a failure only when the device has had its time to settle.
  const WireItem mode{.group = u"01", .item = u"01"};
  const bool taken = !page_.Items().WriteModeRetry(kItemRepeats, mode, u"1").empty();
  page_.Line().WaitFor(static_cast<int>(family_.settling.count()));
  if (!taken) {
    page_.Box().Show(BoxKey::NotProgrammingMode);
  }
  return taken;
}

void OutputSetting::Off() {
  if (std::exchange(holding_, false)) {
    cmdStatusMonOFF.SetEnabled(false);
    page_.Line().OpenAgainIfBroken();
  } else if (page_.OperationRuns()) {
    return;
  } else {
    // Pressed without a forced output. Nothing else may start during the exchange in this case either.
    page_.BeginOperation();
    page_.LockFrame();
  }
  page_.HoldClose(TextKey::CloseAtEnd);
  page_.Shared().DownloadBusy = true;  // no wait of the exchange may end the program
  EndHeldExchange(page_, page_.EnterMonitorMode());
  TextField* set_box = page_.FindField(family_.set_key);
  if (set_box != nullptr && !family_.models_without_set_box.Has(page_.DefFile)) {
    set_box->SetEnabled(true);
    set_box->SetFocus();
  }
}

std::vector<TextField*> OutputSetting::MonitorBoxes() const {
  std::vector<TextField*> boxes;
  if (TextField* box = page_.FindField(family_.monitor_key)) {
    boxes.push_back(box);
  }
  if (page_.Text.Has(family_.further_box)) {
    boxes.push_back(&page_.Text[family_.further_box]);
  }
  return boxes;
}

String OutputSetting::PrefixOf(StringView key) const {
  const int row = page_.FindDataRow(key);
  return row < 0 ? String() : page_.DataCell(row, kReplyPrefix);
}

}  // namespace korva
