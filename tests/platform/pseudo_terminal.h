#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace korva {

/// The far end of a fresh pseudo-terminal, in raw mode; the near end is a device that a port can open.
class PseudoTerminal {
 public:
  PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;
  ~PseudoTerminal() { Vanish(); }

  /// Path of the near end.
  [[nodiscard]] const std::string& Device() const { return device_; }
  [[nodiscard]] int FarEnd() const { return far_end_; }

  /// The far end sends `bytes`.
  void Send(std::string_view bytes) const;

  /// What the near end has sent so far and was not received yet; never waits.
  [[nodiscard]] std::string Receive() const;

  /// Closes the far end, as a device does that is unplugged.
  void Vanish();

 private:
  int far_end_;
  std::string device_;
};

}  // namespace korva
