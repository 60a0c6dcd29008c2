#pragma once

#include <array>
#include <optional>

#include "core/modal_window.h"
#include "files/parameter_page.h"

namespace korva {

/// The device's settings on its plant network, items 81 to 84 of group "01": its address and three choices of
/// the communication. They take no part in upload and download but travel by buttons of their own. What was
/// written takes effect at the device's next reset, which is the third button.
///
/// The four items live in the parameter set. Each button is one operation with the frame locked; a read or a
/// write ends with a read, so that the page shows what the device holds.
class ModbusSettings final : public PagePart {
 public:
  /// Adds itself and its controls to the page, which outlives this.
  explicit ModbusSettings(ParameterPage& page);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  void ResetBars() override;

  /// cmdReadOutModbus. An item that doesn't answer, or that the device refuses, is left empty; the others are
  /// read all the same, and the box of a failed link follows.
  void ReadOut();
  /// cmdWriteInModbus: checks the address and writes the four items.
  void WriteIn();
  /// cmdResetModbus: resets the device, waits under the window frmWaiting until it has restarted, opens the
  /// port again and reads. A port that does not open then ends the program.
  void SystemReset();

  Button cmdReadOutModbus{"cmdReadOutModbus"};
  Button cmdWriteInModbus{"cmdWriteInModbus"};
  Button cmdResetModbus{"cmdResetModbus"};
  ProgressBar Modbus_ProgressBar{"Modbus_ProgressBar"};
  Label lblPrg2{"lblPrg2"};  ///< shown while the settings travel

  Label lblResetMsg{"lblResetMsg"};
  ProgressBar Reset_ProgressBar{"Reset_ProgressBar"};
  ModalWindow frmWaiting{"frmWaiting", {&lblResetMsg, &Reset_ProgressBar}};

 private:
  /// Reads the four items with the bar; the box of a failed link when one is missing.
  void ReadSettings();
  bool ReadAddress();
  bool ReadChoice(StringView item);
  /// What the device tells of an item; nothing when it tells nothing or refuses.
  [[nodiscard]] std::optional<String> Read(StringView item) const;
  /// Puts a text into the cell of an item and shows it.
  void Show(StringView item, const String& text);
  void ClearSettings();

  /// Puts the address into the form in which it is sent. False after its box, with the field marked.
  bool TakeAddress();
  bool WriteSettings();
  bool WriteChoice(StringView item) const;
  [[nodiscard]] bool Write(StringView item, const String& data) const;

  void Begin();
  /// True when the device tells its model; else the link has failed.
  bool FindDevice();
  /// Shows the window for as long as a restart may take.
  void WaitForRestart();

  ParameterPage& page_;
};

}  // namespace korva
