#pragma once

#include <sys/types.h>

#include <string>

#include "platform/pseudo_terminal.h"

namespace korva::bench {

/// A device in a process of its own behind a fresh pseudo-terminal. It accepts each group selection and
/// answers every other command with a value, with no thought in between.
class FarEnd {
 public:
  /// With a `baud` the bytes of both directions take their time on the wire, 10 bits each; with 0 none.
  explicit FarEnd(int baud);
  FarEnd(const FarEnd&) = delete;
  FarEnd& operator=(const FarEnd&) = delete;
  ~FarEnd();

  /// Path of the near end.
  [[nodiscard]] const std::string& Device() const { return terminal_.Device(); }

  // Reading one item: two exchanges.
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
