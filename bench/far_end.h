#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <string_view>

#include "platform/pseudo_terminal.h"
#include "sim/device.h"

namespace korva::bench {

/// What a device replies to a command line, which has no carriage return; the reply has one.
using Answers = std::function<std::string(std::string_view command)>;

/// Accepts each group selection and answers every other command with a value, with no thought in between.
std::string AnswerWithOneValue(std::string_view command);

/// Those of a simulated device.
Answers AnswersOf(sim::Device device);

/// A device in a process of its own behind a fresh pseudo-terminal.
class FarEnd {
 public:
  /// With a `baud` the bytes of both directions take their time on the wire, 10 bits each; with 0 none.
  explicit FarEnd(int baud, const Answers& answers = AnswerWithOneValue);
  FarEnd(const FarEnd&) = delete;
  FarEnd& operator=(const FarEnd&) = delete;
  ~FarEnd();

  /// Path of the near end.
  [[nodiscard]] const std::string& Device() const { return terminal_.Device(); }

  // Reading one item of AnswerWithOneValue: two exchanges.
  static constexpr const char* kSelectGroup = "G01\r";
  static constexpr const char* kAccepted = "COK\r";
  static constexpr const char* kSelectItem = "I14\r";
  static constexpr const char* kValue = "D-12.50\r";
  static constexpr int kExchanges = 2;
  static constexpr int kCharacters = 4 + 4 + 4 + 8;

 private:
  PseudoTerminal terminal_;
  pid_t process_ = -1;
};

}  // namespace korva::bench
