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
  if (ReadIdentity({.group = u"00", .item = u"99"}).empty()) {
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
  if (Items().WriteModeRetry(traits_.mode_repeats, item, data).empty()) {
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
