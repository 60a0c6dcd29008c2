#pragma once

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/virtual/virtual_port.h"
#include "support/command_line.h"

namespace korva::test {

/// A device that answers what a test tells it, at the instants that the test gives.
///
///     ScriptedLine line(host.port);
///     host.port.Connect(1, &line);
///     line.Answer("G01", "COK");                         // whenever this command comes
///     line.AnswerNext({{10ms, "D12"}, {30ms, ".5\r"}});  // in place of that, once: two chunks
///     line.AnswerNext(kSilence);
///
/// Commands for which nothing was told get no reply.
class ScriptedLine final : public CommandLine {
 public:
  /// Characters that arrive together.
  struct Chunk {
    Clock after;  ///< from the instant at which the command's last stop bit has left the wire
    std::string bytes;
  };
  using Reply = std::vector<Chunk>;

  explicit ScriptedLine(VirtualPort& port) : port_(port) {}

  /// `text` and one carriage return, in one chunk, `after` the command.
  static Reply OneChunk(std::string_view text, Clock after = Milliseconds(10));

  /// The reply to each command `command` (without its carriage return) for which none is queued.
  void Answer(const std::string& command, Reply reply) { answers_[command] = std::move(reply); }
  void Answer(const std::string& command, std::string_view text) { Answer(command, OneChunk(text)); }

  /// Queues the reply to a command to come, whatever it is: one of these for each command, in order.
  void AnswerNext(Reply reply) { next_.push_back(std::move(reply)); }
  void AnswerNext(std::string_view text) { AnswerNext(OneChunk(text)); }

  /// Replies that were queued and not used.
  [[nodiscard]] std::size_t Unused() const { return next_.size(); }

 private:
  void Take(const Command& command) override;

  VirtualPort& port_;
  std::deque<Reply> next_;
  std::map<std::string, Reply> answers_;
};

inline const ScriptedLine::Reply kSilence;

}  // namespace korva::test
