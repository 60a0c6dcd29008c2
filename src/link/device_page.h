#pragma once

#include "core/page.h"
#include "link/group_item.h"
#include "link/serial_link.h"
#include "link/transfer_observer.h"

namespace korva {

/// The line and both dialects on it, one for the whole program.
struct DeviceLink {
  DeviceLink(const Platform& platform, SharedState& shared)
      : line(platform, shared), cok(line, shared), enter_item(line, shared) {}
  SerialLink line;
  CokDialect cok;
  EnterItemDialect enter_item;
};

/// Where a device has its system text: in the value of the item, or in the title with which it answers the
/// selection.
enum class SystemText { Value, Title };

/// How a family's devices take the link test and the mode commands.
struct DeviceTraits {
  SystemText system_text;
  StringView mode_item = u"01";  ///< in group "01"
  int mode_repeats = 3;
};

/// A page with a device behind it: the port at the family's speed, the link test and the device's modes.
///
/// The program does not track the device's mode: it sends the command that the next step needs.
class DevicePage : public Page {
 public:
  /// All outlive the page.
  DevicePage(Program& program, const PageKind& kind, const DeviceTraits& traits, DeviceLink& link);

  /// Reads the device's system text. False, with CommFailed set and the box of a failed link shown, when
  /// there is no answer. Puts the progress bar to 5.
  bool LinkTest();

  /// Reads an item that tells what the device is, in the way of the family's system text; empty when there is
  /// no answer.
  [[nodiscard]] String ReadIdentity(const WireItem& item) const;

  // Each sends the command of its mode; false, after its box, when the device doesn't take it. Whatever text
  // comes back counts as taken.
  bool EnterMonitorMode() override;
  bool EnterProgrammingMode();
  bool EnterIOCheckMode();   ///< status monitor of the universal page
  bool EnterZeroTrimMode();  ///< in the dialect of "enter item", whatever the family's own is
  bool EnterSpanTrimMode();  ///< the same

  /// Closes the port and opens it anew at the family's speed, on COM 1 where that is chosen and on COM 2 for
  /// any other choice, which is then shown. A port that does not open ends the program (RuntimeFailure).
  void DemandPort();

  /// Follows the transfers; nullptr: nobody does. It outlives the page, or is taken away before.
  TransferObserver* Transfers = nullptr;
  void TellBegan(Transfer transfer) const;
  void TellStep(const TransferStep& step) const;
  /// Tells of an item that was read: `step` lacks answer and proof. `answer` is what the dialect made of it.
  void TellRead(TransferStep step, const String& answer) const;
  /// Tells of something that was sent, and taken when there is an answer: `step` lacks the same.
  /// `evidence` is that of an answer.
  void TellSent(TransferStep step, const String& answer, Evidence evidence = Evidence::Echoed) const;
  void TellEnded(bool good) const;

  [[nodiscard]] SerialLink& Line() const { return link_.line; }
  [[nodiscard]] CokDialect& Cok() const { return link_.cok; }
  [[nodiscard]] EnterItemDialect& EnterItem() const { return link_.enter_item; }
  /// Items in the family's own dialect.
  [[nodiscard]] ItemAccess& Items() const;

 protected:
  void ReopenPort() override;
  void ChoosePort(int number) override;
  void RestorePort() override;

 private:
  void TellPort();
  bool EnterMode(const String& data, BoxKey failure);
  bool EnterTrimMode(const String& data, BoxKey failure);

  DeviceLink& link_;
  const DeviceTraits& traits_;
};

}  // namespace korva
