#include "support/scripted_line.h"

#include <utility>

namespace korva::test {

ScriptedLine::Reply ScriptedLine::OneChunk(std::string_view text, Clock after) {
  return {{.after = after, .bytes = std::string(text) + '\r'}};
}

void ScriptedLine::Take(const Command& command) {
  Reply reply;
  if (!next_.empty()) {
    reply = std::move(next_.front());
    next_.pop_front();
  } else if (const auto found = answers_.find(command.text); found != answers_.end()) {
    reply = found->second;
  }
  for (const Chunk& chunk : reply) {
    port_.DeliverAt(command.received + chunk.after, chunk.bytes);
  }
}

}  // namespace korva::test
