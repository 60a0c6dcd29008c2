#pragma once

#include <QSocketNotifier>
#include <functional>
#include <optional>
#include <string>

#include "cli/script_lines.h"
#include "platform/event_loop.h"

namespace korva::cli {

/// A script that is read while it arrives, from a file, a pipe or a terminal. Each wait for its next line
/// lets the program run.
class ScriptInput {
 public:
  /// `descriptor` is open for reading and stays the caller's; `loop` is the Qt host's.
  ScriptInput(EventLoop& loop, int descriptor);

  /// The next line; nothing at the end of the script, when the program has ended, and when `over` tells after
  /// a wait that no more is wanted.
  std::optional<std::string> NextLine(const std::function<bool()>& over);

  /// The system's own words when the script could not be read to its end, else empty.
  [[nodiscard]] const std::string& Problem() const { return problem_; }

 private:
  void Read();

  EventLoop& loop_;
  ScriptLines lines_;
  std::string problem_;
  QSocketNotifier notifier_;
};

}  // namespace korva::cli
