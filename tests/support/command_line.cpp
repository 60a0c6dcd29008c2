#include "support/command_line.h"

#include <utility>

namespace korva::test {

std::string CommandLine::Sent() const {
  std::string texts;
  for (const Command& command : commands_) {
    texts += (texts.empty() ? "" : " ") + command.text;
  }
  return texts;
}

void CommandLine::Opened(const LineSettings& /*settings*/) { begun_.clear(); }

void CommandLine::BytesSent(std::string_view bytes, Clock now) {
  for (const char byte : bytes) {
    if (byte != '\r') {
      begun_ += byte;
      continue;
    }
    commands_.push_back({.text = std::exchange(begun_, {}), .received = now});
    Take(Command(commands_.back()));
  }
}

}  // namespace korva::test
