#include "link/device_page.h"

#include <array>
#include <stdexcept>

#include "core/program.h"

namespace korva {

/// Where a device has its system text: in the value of the item, or in the title with which it answers the
/// selection.
enum class SystemText { Value, Title };

struct DeviceTraits {
  StringView family;
  SystemText system_text;
  StringView mode_item = u"01";  ///< in group "01"
  int mode_repeats = 3;
};

namespace {

constexpr int kRepeats = 3;

constexpr std::array<DeviceTraits, 11> kTraits = {{
    {.family = u"First", .system_text = SystemText::Value},
    {.family = u"QXI", .system_text = SystemText::Value},
    {.family = u"Second", .system_text = SystemText::Value},
    {.family = u"Third", .system_text = SystemText::Value, .mode_repeats = 1},
    {.family = u"Lite", .system_text = SystemText::Title},
    {.family = u"LiteUniv", .system_text = SystemText::Title},
    {.family = u"LiteSecond", .system_text = SystemText::Title, .mode_item = u"22"},
    {.family = u"LiteThird", .system_text = SystemText::Value},
    {.family = u"LiteForth", .system_text = SystemText::Value},
    {.family = u"LiteFifth", .system_text = SystemText::Value},
    {.family = u"Nano", .system_text = SystemText::Title},
}};

const DeviceTraits& TraitsOf(const Family& family) {
  for (const DeviceTraits& row : kTraits) {
    if (row.family == family.word) {
      return row;
    }
  }
  throw std::logic_error("a family without device traits");
}

}  // namespace

DevicePage::DevicePage(Program& program, const PageKind& kind, DeviceLink& link)
    : Page(program, kind), link_(link), traits_(TraitsOf(kind.family)) {}

ItemAccess& DevicePage::Items() const {
  if (ItsFamily().dialect == Dialect::Cok) {
    return link_.cok;
  }
  return link_.enter_item;
}

bool DevicePage::LinkTest() {
  const String group = u"00";
  const String item = u"99";
  CommFailed = false;
  TransferBar.SetValue(5);
  const String text = traits_.system_text == SystemText::Title
                          ? EnterItem().ReadItemNameRetry(kRepeats, group, item)
                          : Items().ReadRetry(kRepeats, group, item);
  if (text.empty()) {
    CommFailed = true;
    Box().ShowCommFailure();
  }
  return !CommFailed;
}

bool DevicePage::EnterMonitorMode() { return EnterMode(u"0", BoxKey::NotMonitorMode); }

bool DevicePage::EnterProgrammingMode() { return EnterMode(u"1", BoxKey::NotProgrammingMode); }

bool DevicePage::EnterIOCheckMode() { return EnterMode(u"A", BoxKey::ModeNotChanged); }

bool DevicePage::EnterZeroTrimMode() { return EnterTrimMode(u"Z", BoxKey::NotZeroTrimMode); }

// The devices know the span command by the full-width letter, unlike the zero command.
bool DevicePage::EnterSpanTrimMode() { return EnterTrimMode(u"Ｓ", BoxKey::NotSpanTrimMode); }

bool DevicePage::EnterMode(const String& data, BoxKey failure) {
  const String item(traits_.mode_item);
  if (Items().WriteRetry(traits_.mode_repeats, u"01", item, data).empty()) {
    Box().Show(failure);
    return false;
  }
  return true;
}

bool DevicePage::EnterTrimMode(const String& data, BoxKey failure) {
  if (EnterItem().WriteParamPairRetry(kRepeats, u"01", u"28", {}, data).empty()) {
    Box().Show(failure);
    return false;
  }
  return true;
}

void DevicePage::ReopenPort() {
  OptCom.Mark(Line().CommPort() - 1);
  Line().Reopen(String(ItsFamily().settings));
}

void DevicePage::ChoosePort(int number) { Line().ChoosePort(number); }

}  // namespace korva
