#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

#include "platform/dialogs.h"
#include "platform/string.h"

namespace korva::cli {

/// The text in double quotes, as UTF-8 on one line: a line break of any form (CR LF, LF CR, CR or LF) becomes
/// `\n`, a quote `\"`, a backslash `\\`.
std::string Quoted(StringView text);

/// The word that stands for the answer in a script and in what is printed: "ok".
std::string_view WordOf(Answer answer);

/// What korva-cli prints: what happens goes to one stream, complaints about the script to the other. Each
/// line is flushed, so that another program can wait for it. When a line can't be written, nothing more is:
/// what happens would else be printed with gaps.
class Transcript {
 public:
  /// Both outlive the transcript.
  Transcript(std::ostream& happenings, std::ostream& complaints)
      : happenings_(happenings), complaints_(complaints) {}

  /// Prints a line that tells something that a user would see happen.
  void Tell(std::string_view line);
  /// Prints that the screen would not let the user do `what`, a script's action or answer, and keeps it in
  /// mind.
  void Refuse(std::string_view what, std::string_view reason);
  /// True when something was refused so far.
  [[nodiscard]] bool Refused() const { return refused_; }
  /// Prints a complaint under the program's name.
  void Complain(std::string_view line) { complaints_ << "korva-cli: " << line << '\n' << std::flush; }

  /// True when something could not be printed.
  [[nodiscard]] bool Failed() const { return failure_.has_value(); }
  /// The system's error number of that.
  [[nodiscard]] int Failure() const { return failure_.value_or(0); }
  /// `action` is called once, when something could not be printed, from wherever that was.
  void OnFailed(std::function<void()> action) { on_failed_ = std::move(action); }

 private:
  std::ostream& happenings_;
  std::ostream& complaints_;
  bool refused_ = false;
  std::optional<int> failure_;
  std::function<void()> on_failed_;
};

}  // namespace korva::cli
