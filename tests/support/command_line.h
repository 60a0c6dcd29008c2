#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/virtual/virtual_port.h"

namespace korva::test {

/// The far end of a virtual port as a device sees it: command lines, each ended by a carriage return.
class CommandLine : public VirtualLine {
 public:
  struct Command {
    std::string text;  ///< without its carriage return
    Clock received;    ///< when its last stop bit has left the wire
  };

  /// All commands so far.
  [[nodiscard]] const std::vector<Command>& Commands() const { return commands_; }
  /// Their texts, one after the other with blanks between: "G00 I99".
  [[nodiscard]] std::string Sent() const;
  void ForgetCommands() { commands_.clear(); }

  void Opened(const LineSettings& settings) override;
  void BytesSent(std::string_view bytes, Clock now) override;

 protected:
  /// Answers a command, the last of Commands().
  virtual void Take(const Command& command) = 0;

 private:
  std::string begun_;
  std::vector<Command> commands_;
};

}  // namespace korva::test
