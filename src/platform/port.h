#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/system_reason.h"

namespace korva {

/// How a serial line is set; 8 data bits, no parity and 1 stop bit make a character 10 bits long.
struct LineSettings {
  int baud = 1200;  ///< bits a second
  char parity = 'n';
  int data_bits = 8;
  int stop_bits = 1;
};

/// One serial line as the operations that a transport needs. COM 1 to COM 4 are numbers 1 to 4. A line whose
/// far end vanishes is open no more: it refuses writes until it is opened again.
class Port {
 public:
  Port() = default;
  Port(const Port&) = delete;
  Port& operator=(const Port&) = delete;
  virtual ~Port() = default;

  /// Opens COM `number`; a port that is open is closed first. False when it does not exist or is taken.
  virtual bool Open(int number, const LineSettings& settings) = 0;

  /// Closes the line; what has arrived and was not taken is lost. Closing a closed line does nothing.
  virtual void Close() = 0;

  [[nodiscard]] virtual bool IsOpen() const = 0;

  /// Sends `bytes`. False when the line is closed or the platform refuses the write.
  virtual bool Write(std::string_view bytes) = 0;

  /// How many bytes have arrived and wait to be taken.
  [[nodiscard]] virtual std::size_t Available() const = 0;

  /// Takes all that has arrived as one chunk.
  virtual std::string Take() = 0;

  /// `action` is called through the gate whenever something has arrived or the line broke. It must not pump.
  virtual void OnArrival(std::function<void()> action) = 0;

  /// The line's speed in bits a second when its timing is known: a character then can't take less than ten
  /// bits' time on the wire. Empty for a line whose characters have no time of their own.
  [[nodiscard]] virtual std::optional<int> TimedBaud() const = 0;

  /// Why the last call of Open failed.
  [[nodiscard]] virtual SystemReason WhyNotOpen() const = 0;

  /// The group whose members may use the device behind COM `number`, where the system has such a group; else
  /// empty.
  [[nodiscard]] virtual std::string UserGroup(int number) const = 0;

  /// What a user calls the device or link behind COM `number`, for tooltips; for example "ports/COM1".
  [[nodiscard]] virtual std::string DeviceName(int number) const = 0;
};

}  // namespace korva
