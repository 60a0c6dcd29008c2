#include "link/device_page.h"

#include "core/program.h"

namespace korva {

DevicePage::DevicePage(Program& program, const PageKind& kind, const DeviceTraits& traits, DeviceLink& link)
    : Page(program, kind), link_(link), traits_(traits) {}

ItemAccess& DevicePage::Items() const {
  if (ItsFamily().dialect == Dialect::Cok) {
    return link_.cok;
  }
  return link_.enter_item;
}

String DevicePage::ReadIdentity(const WireItem& item) const {
  return traits_.system_text == SystemText::Title ? EnterItem().ReadItemNameRetry(kItemRepeats, item)
                                                  : Items().ReadRetry(kItemRepeats, item);
}

bool DevicePage::LinkTest() {
  CommFailed = false;
  TransferBar.SetValue(5);
  const WireItem item{.group = u"00", .item = u"99"};
  const String text = ReadIdentity(item);
  TellRead({.what = TextKey::LinkTest, .item = item}, text);
  if (text.empty()) {
    CommFailed = true;
    Box().ShowCommFailure();
  }
  return !CommFailed;
}

bool DevicePage::EnterMonitorMode() {
  if (!EnterMode(u"0", BoxKey::NotMonitorMode)) {
    return false;
  }
  TellForced({});  // in this mode the device's output is its own
  return true;
}

bool DevicePage::EnterProgrammingMode() { return EnterMode(u"1", BoxKey::NotProgrammingMode); }

bool DevicePage::EnterIOCheckMode() { return EnterMode(u"A", BoxKey::ModeNotChanged); }

bool DevicePage::EnterZeroTrimMode() { return EnterTrimMode(u"Z", BoxKey::NotZeroTrimMode); }

// The devices know the span command by the full-width letter, unlike the zero command.
bool DevicePage::EnterSpanTrimMode() { return EnterTrimMode(u"Ｓ", BoxKey::NotSpanTrimMode); }

bool DevicePage::EnterMode(const String& data, BoxKey failure) {
  const WireItem item{.group = u"01", .item = String(traits_.mode_item)};
  const String answer = Items().WriteModeRetry(traits_.mode_repeats, item, data);
  TellSent({.what = TextKey::DeviceMode, .item = item, .sent = data}, answer);
  if (answer.empty()) {
    Box().Show(failure);
    return false;
  }
  return true;
}

bool DevicePage::EnterTrimMode(const String& data, BoxKey failure) {
  if (EnterItem().WriteModeRetry(kItemRepeats, {.group = u"01", .item = u"28"}, data).empty()) {
    Box().Show(failure);
    return false;
  }
  return true;
}

void DevicePage::TellBegan(Transfer transfer) const {
  if (Transfers != nullptr) {
    Transfers->TransferBegan(transfer);
  }
}

void DevicePage::TellStep(const TransferStep& step) const {
  if (Transfers != nullptr) {
    Transfers->StepDone(step);
  }
}

void DevicePage::TellRead(TransferStep step, const String& answer) const {
  const bool none = answer.empty() || answer == u"ERROR" || answer == u"NEEDLESS";
  step.answered = none ? Line().LastReply() : answer;
  if (answer == u"NEEDLESS") {
    step.evidence = Evidence::Skipped;
    step.skip = Skip::Needless;
  } else {
    step.evidence = none || IsRefusedBy(answer) ? EvidenceOfFailure(step.answered) : Evidence::Read;
  }
  TellStep(step);
}

void DevicePage::TellSent(TransferStep step, const String& answer, Evidence evidence) const {
  const bool failed = answer.empty() || IsRefusedBy(answer);
  step.answered = answer.empty() ? Line().LastReply() : answer;
  step.evidence = failed ? EvidenceOfFailure(step.answered) : evidence;
  TellStep(step);
}

void DevicePage::TellEnded(bool good) const {
  if (Transfers != nullptr) {
    Transfers->TransferEnded(good);
  }
}

void DevicePage::ReopenPort() {
  OptCom.Mark(Line().CommPort() - 1);
  Line().Reopen(String(ItsFamily().settings));
  TellPort();
}

void DevicePage::DemandPort() {
  const int number = OptCom.Selected() == 0 ? 1 : 2;
  OptCom.Mark(number - 1);
  Line().DemandPort(number, String(ItsFamily().settings));
  TellPort();
}

void DevicePage::ChoosePort(int number) {
  Line().ChoosePort(number);
  TellPort();
}

void DevicePage::RestorePort() {
  Line().OpenAgainIfBroken();
  TellPort();
}

void DevicePage::TellPort() { Notes.Tell(Notice::Port, Line().WhyNotOpen()); }

}  // namespace korva
