#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "sim/definition.h"
#include "sim/family.h"
#include "sim/faults.h"
#include "sim/keyed_table.h"
#include "sim/memory.h"
#include "sim/table_dialogue.h"

namespace korva::sim {

/// What a device does about one command line. `PlanWire` of sim/line.h turns it into bytes and instants.
struct Reply {
  bool silent = false;  ///< Nothing is sent; the rest has no meaning.
  std::chrono::milliseconds latency{
      0};                     ///< From the end of the command's carriage return to the first start bit.
  std::string text;           ///< Without line ends, as bytes (code page 932).
  int line_ends = 1;          ///< Carriage returns behind the text, 0 to 2.
  bool doubled = false;       ///< All of it comes twice, one right after the other.
  bool byte_by_byte = false;  ///< Each byte arrives by itself instead of all at the reply's end.
  bool late_second_line_end = false;  ///< With two line ends: the second one character time after the first.
  std::chrono::milliseconds away{
      0};  ///< Behind the command: the device restarts and takes nothing meanwhile.
};

/// Latency of a reply of most models, and of those that take their time.
inline constexpr std::chrono::milliseconds kLatency{10};
inline constexpr std::chrono::milliseconds kSlowLatency{300};

/// Latency of a reply under the fault `Late`: longer than a configurator waits.
inline constexpr std::chrono::milliseconds kLateReply{3500};

/// How long a restart takes.
inline constexpr std::chrono::milliseconds kRestart{3000};

/// What may be chosen about a device besides its model.
struct DeviceOptions {
  std::string system_text =
      "SYSVER   1.00";  ///< Group 00, item 99. It also decides how model QUO spells its types.
  /// Folder of the sensors' curves (`.tct`). Empty: of the catalogue's devices `system/z2Kv`, of others none.
  std::filesystem::path curves = {};
  /// From command to reply, not below 0. None: the model's own, see `kLatency`.
  std::optional<std::chrono::milliseconds> latency = std::nullopt;
};

/// A simulated signal conditioner. It has no clock and no port: it takes complete command lines, and the
/// instants at which they come, and tells what it answers.
///
/// State: its parameters (power-up values until written), its mode ('0' monitor, '1' programming, others as
/// written), the selected group and item, and the number of command lines taken. A failed "G" or "I" leaves
/// nothing selected. Parameters take data in programming mode only; the mode item takes it always.
/// A family with a memory has an item, group 99 and item 10, that lets its bytes be read and written in any
/// mode for as long as it is selected.
///
/// A test makes one with `Device::ForModel(home, "QHW")`, or for a made-up definition with
/// `Device(model, Definition::Parse(text))`, and talks to it with `Answer("G01")`, or lets a `Line` do so.
class Device {
 public:
  /// A device at power-up.
  /// \throws SetupError for a family word that no family has.
  Device(const Model& model, Definition definition, const DeviceOptions& options = {});

  /// A device of the catalogue's model of this name, or of its first model when the name is empty.
  /// \param home  Folder that holds `system`.
  /// \throws SetupError when the catalogue or the definition file can't be used or has no such model.
  static Device ForModel(const std::filesystem::path& home, std::string_view name,
                         const DeviceOptions& options = {});

  Device(Device&&) noexcept;
  Device& operator=(Device&&) noexcept;
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  ~Device();

  /// Takes one command line and answers it, faults included.
  /// \param line  The bytes up to the carriage return, without it.
  Reply Answer(std::string_view line);
  /// The same at an instant, for what takes the device its time. Instants never go back.
  Reply Answer(std::string_view line, std::chrono::nanoseconds now);

  /// Faults from now on; a rule counts command lines from the device's making.
  void AddFault(const FaultRule& rule);
  void ClearFaults();

  /// Command lines taken so far.
  int Exchanges() const;

  /// Mode as last written: '0' monitor, '1' programming.
  char Mode() const;

  /// The item's value as the device would report it, without prefix and padding, but with the unit that
  /// stands behind it; for a choice its text. Empty when there is no such item. Reading a live value or a
  /// count so doesn't move it on. \param group,item  Two digits each.
  std::string Value(std::string_view group, std::string_view item) const;

  /// Gives an item a value from outside, as a technician at the device would, in any mode. A choice takes the
  /// text or the code of one of its rows; a live value stands still at the number from then on, a count goes
  /// on from it; a frequency is in the unit that the device's unit item holds. \return false when there is no
  /// such item or it doesn't take this value; nothing has changed then.
  bool Set(std::string_view group, std::string_view item, std::string_view value);

  /// What the device's plant network goes by: the value of one of its settings, an item of group 01, as it
  /// was at the last start. Empty for any other item.
  std::string InForce(std::string_view item) const;

  /// The table of a device that takes it in a dialogue.
  TableDialogue& GetTableDialogue();

  /// The table with keys behind an item of group 01, "60" to "62", which the device must have.
  KeyedTable& GetKeyedTable(std::string_view item);

  /// The device's memory, to look into and to change from outside; of a family that has none a memory that
  /// nothing reaches.
  Memory& GetMemory();

  const Family& GetFamily() const;
  const Model& GetModel() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace korva::sim
