#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/device.h"

namespace korva::sim {

/// An instant on the owner's clock, real or virtual, from any fixed origin.
using Instant = std::chrono::nanoseconds;

/// Time of `count` characters on the wire: start bit, 8 data bits, stop bit.
/// \param baud  Line speed in bit/s, above 0.
Instant CharacterTime(unsigned baud, std::int64_t count = 1);

/// Bytes that reach the far end together.
struct TimedBytes {
  Instant at;         ///< When the last of them has left the wire.
  std::string bytes;  ///< Never empty.
};

/// The bytes of a reply and when each arrives.
/// \param start  Instant of the first start bit, latency already counted.
/// \param paced  false: the bytes need no time, only a late second line end keeps its character time.
/// \return in order of time; none for a silent reply.
std::vector<TimedBytes> PlanWire(const Reply& reply, Instant start, unsigned baud, bool paced);

/// The wire between a program and a device, in both directions, at the family's speed. It owns no clock: the
/// owner feeds the bytes that the program sends with the present instant, and takes the device's bytes when
/// they are due. Instants never go back.
///
///     Line line(device);
///     line.Receive("G01\r", now);
///     while (auto due = line.NextDue()) { wait until *due; deliver line.TakeDue(*due); }
///
/// The device starts on a command when its carriage return has left the wire, and starts a reply after its
/// latency but not before its former reply has been sent.
class Line {
 public:
  /// \param device  Outlives the line.
  /// \param paced   false: bytes need no time in either direction.
  explicit Line(Device& device, bool paced = true);

  /// Takes bytes that the program hands to its port at `now`. They queue behind bytes still on the wire.
  void Receive(std::string_view bytes, Instant now);

  /// When the next bytes of the device arrive; none when nothing is under way.
  std::optional<Instant> NextDue() const;

  /// The next bytes that have arrived by `now`, as one chunk, or empty. One call gives one chunk.
  std::string TakeDue(Instant now);

  /// Is told each command line and the device's reply to it, for a trace.
  void OnExchange(std::function<void(std::string_view line, const Reply& reply)> watcher);

  /// Forgets a command begun and all that is under way, as when the program closes its port. A restart of the
  /// device goes on.
  void Reset();

 private:
  void TakeByte(char byte, Instant arrived);

  Device& device_;
  unsigned baud_;
  bool paced_;
  std::string command_;
  Instant command_wire_free_{0};
  Instant reply_wire_free_{0};
  Instant away_until_{0};  // the device restarts
  std::deque<TimedBytes> under_way_;
  std::function<void(std::string_view, const Reply&)> watcher_;
};

}  // namespace korva::sim
