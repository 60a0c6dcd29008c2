#include "pages/z2_univ_config/modbus_settings.h"

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kAddressItem = u"81";
/// A choice on the way, and where the bar stands by then.
struct Choices {
  StringView item;
  float progress;
};
constexpr std::array kChoices = {Choices{.item = u"82", .progress = 50},
                                 Choices{.item = u"83", .progress = 70},
                                 Choices{.item = u"84", .progress = 90}};
constexpr int kHighestAddress = 0x7F;
constexpr std::size_t kBehindAddress = 4;  ///< characters of the unit that the device puts there

constexpr int kRestartSteps = 10;
constexpr int kRestartStep = 500;  // ms

/// The two digits of an address, in capitals; nothing for a text that is none from 01 to 7F.
std::optional<String> AddressOf(StringView text) {
  String digits(text.substr(std::min(text.find_first_not_of(u'0'), text.size())));
  std::transform(digits.begin(), digits.end(), digits.begin(), [](char16_t digit) {
    return digit >= u'a' && digit <= u'z' ? static_cast<char16_t>(digit - u'a' + u'A') : digit;
  });
  const bool hexadecimal = digits.find_first_not_of(u"0123456789ABCDEF") == String::npos;
  if (digits.empty() || digits.size() > 2 || !hexadecimal ||
      std::stoi(ToUtf8(digits), nullptr, 16) > kHighestAddress) {
    return std::nullopt;
  }
  return String(2 - digits.size(), u'0') + digits;
}

}  // namespace

ModbusSettings::ModbusSettings(ParameterPage& page) : page_(page) {
  page_.Add(*this);
  page_.RegisterAll<Control>(
      {&cmdReadOutModbus, &cmdWriteInModbus, &cmdResetModbus, &Modbus_ProgressBar, &lblPrg2});
  page_.Register(frmWaiting);
  lblPrg2.SetVisible(false);
  cmdReadOutModbus.OnClick = [this] { ReadOut(); };
  cmdWriteInModbus.OnClick = [this] { WriteIn(); };
  cmdResetModbus.OnClick = [this] { SystemReset(); };
}

void ModbusSettings::SetCaptions(Language language) {
  cmdReadOutModbus.SetCaption(CaptionText(TextKey::ReadOut, language));
  cmdWriteInModbus.SetCaption(CaptionText(TextKey::WriteIn, language));
  cmdResetModbus.SetCaption(CaptionText(TextKey::SystemReset, language));
  Modbus_ProgressBar.SetCaption(CaptionText(TextKey::Modbus, language));
  lblPrg2.SetCaption(CaptionText(TextKey::Transmitting, language));
  lblResetMsg.SetCaption(CaptionText(TextKey::ResettingSystem, language));
}

void ModbusSettings::SetExchangesBarred(bool barred) {
  for (Button* button : {&cmdReadOutModbus, &cmdWriteInModbus, &cmdResetModbus}) {
    button->SetEnabled(!barred);
  }
}

void ModbusSettings::ResetBars() {
  Modbus_ProgressBar.SetValue(0);
  Reset_ProgressBar.SetValue(0);
}

// --- reading

void ModbusSettings::ReadOut() {
  if (page_.OperationRuns()) {
    return;
  }
  page_.CommFailed = false;
  page_.BeginOperation();
  page_.LockFrame();
  ReadSettings();
  page_.EndOperation();
  page_.UnlockFrame();
}

void ModbusSettings::ReadSettings() {
  ClearSettings();
  lblPrg2.SetVisible(true);
  bool good = FindDevice();
  if (good) {
    Modbus_ProgressBar.SetValue(30);
    good = ReadAddress();
    for (const Choices& choice : kChoices) {
      Modbus_ProgressBar.SetValue(choice.progress);
      good = ReadChoice(choice.item) && good;
    }
  }
  lblPrg2.SetVisible(false);
  if (good) {
    Modbus_ProgressBar.SetValue(100);
  } else {
    page_.Box().ShowCommFailure();
  }
}

void ModbusSettings::ClearSettings() {
  Show(kAddressItem, {});
  for (const Choices& choice : kChoices) {
    Show(choice.item, {});
  }
}

std::optional<String> ModbusSettings::Read(StringView item) const {
  const String answer = page_.Items().ReadRetry(kItemRepeats, {.group = u"01", .item = String(item)});
  const bool none = answer.empty() || answer == u"ERROR" || answer == kNeedless || TellsRefusal(answer);
  return none ? std::nullopt : std::optional(answer);
}

bool ModbusSettings::ReadAddress() {
  const std::optional<String> answer = Read(kAddressItem);
  if (!answer || answer->size() <= kBehindAddress) {
    return false;
  }
  Show(kAddressItem, Trimmed(answer->substr(0, answer->size() - kBehindAddress)));
  return true;
}

bool ModbusSettings::ReadChoice(StringView item) {
  const std::optional<String> answer = Read(item);
  if (answer) {
    Show(item, Trimmed(*answer));
  }
  return answer.has_value();
}

void ModbusSettings::Show(StringView item, const String& text) {
  const int row = page_.FindDataRow(item);
  if (row < 0 || page_.SetCell(row) == text) {
    return;
  }
  page_.SetItem(LeadingInteger(item), text);
  page_.ShowAgain(row);
  page_.MarkEdited();
}

// --- writing

bool ModbusSettings::TakeAddress() {
  TextField* field = page_.FindField(kAddressItem);
  if (field == nullptr) {
    return true;
  }
  if (Trimmed(field->Text()).empty()) {
    page_.Box().Show(BoxKey::CjmFieldBlank);
    return false;
  }
  const std::optional<String> address = AddressOf(Trimmed(field->Text()));
  field->SetLook(address ? Look::Normal : Look::Bad);
  if (!address) {
    page_.Box().Show(BoxKey::ValueBad);
    return false;
  }
  Show(kAddressItem, *address);
  return true;
}

void ModbusSettings::WriteIn() {
  if (page_.OperationRuns() || !TakeAddress()) {
    return;
  }
  Begin();
  lblPrg2.SetVisible(true);
  const bool done =
      FindDevice() && page_.EnterProgrammingMode() && WriteSettings() && page_.EnterMonitorMode();
  lblPrg2.SetVisible(false);
  if (done) {
    Modbus_ProgressBar.SetValue(100);
    page_.Box().Show(BoxKey::ModbusChanged);
  } else {
    page_.Box().ShowCommFailure();
  }
  Modbus_ProgressBar.SetValue(0);
  if (done) {
    page_.CheckPendingQuit();
  } else {
    page_.EndDownload();
  }
  page_.UnlockFrame();
  ReadOut();
}

bool ModbusSettings::WriteSettings() {
  Modbus_ProgressBar.SetValue(30);
  const int row = page_.FindDataRow(kAddressItem);
  bool good = row < 0 || Write(kAddressItem, page_.SetCell(row));
  for (const Choices& choice : kChoices) {
    if (good) {
      Modbus_ProgressBar.SetValue(choice.progress);
      good = WriteChoice(choice.item);
    }
  }
  return good;
}

bool ModbusSettings::WriteChoice(StringView item) const {
  const int row = page_.FindDataRow(item);
  if (row < 0) {
    return true;
  }
  const String& text = page_.SetCell(row);
  const int place = text.empty() ? -1 : page_.Def.ListOf(page_.DataCell(row, kChoiceKey)).FindText(text);
  return place >= 0 && Write(item, Ascii(std::to_string(place)));
}

bool ModbusSettings::Write(StringView item, const String& data) const {
  if (data.empty()) {
    return false;  // it would be a read
  }
  const String echo = page_.Items().WriteRetry(kItemRepeats, {.group = u"01", .item = String(item)}, data);
  return !echo.empty() && !TellsRefusal(echo);
}

// --- the operations' frame

void ModbusSettings::Begin() {
  page_.CommFailed = false;
  page_.BeginDownload();
  page_.LockFrame();
}

bool ModbusSettings::FindDevice() {
  Modbus_ProgressBar.SetValue(20);
  page_.CommFailed = page_.ReadIdentity({.group = u"00", .item = u"01"}).empty();
  return !page_.CommFailed;
}

// --- the reset

void ModbusSettings::SystemReset() {
  if (page_.OperationRuns()) {
    return;
  }
  Begin();
  if (page_.EnterProgrammingMode()) {
    page_.EnterItem().WriteParam({.group = u"00", .item = u"88"},
                                 u"R");  // a device that restarts may not answer
    // From here on nothing is written that a close request could cut off.
    page_.Shared().DownloadBusy = false;
    page_.flaMsg_CannotEnd.SetVisible(false);
    page_.HoldClose(TextKey::CloseAtPause);
    WaitForRestart();
    page_.DemandPort();
    page_.EnterMonitorMode();
    ReadSettings();
    page_.EndOperation();
  } else {
    page_.CommFailed = true;  // it took no mode: nothing further is sent
    page_.EndDownload();
  }
  page_.UnlockFrame();
}

void ModbusSettings::WaitForRestart() {
  const WindowShown shown(page_.ItsProgram(), frmWaiting);
  for (int step = 0; step <= kRestartSteps; ++step) {
    Reset_ProgressBar.SetValue(static_cast<float>(step) * 100 / kRestartSteps);
    page_.Line().WaitFor(kRestartStep);
  }
}

}  // namespace korva
