#include "support/device_line.h"

#include <algorithm>

#include "sim/line.h"

namespace korva::test {

void DeviceLine::Opened(const LineSettings& settings) {
  CommandLine::Opened(settings);
  right_speed_ = settings.baud == static_cast<int>(device_.GetFamily().baud);
}

void DeviceLine::BytesSent(std::string_view bytes, Clock now) {
  if (right_speed_) {
    CommandLine::BytesSent(bytes, now);
  }
}

void DeviceLine::Take(const Command& command) {
  if (command.received < away_until_) {
    return;
  }
  const sim::Reply reply = Answer(command);
  away_until_ = command.received + reply.away;
  const bool paced = port_.CharacterTime() > Clock(0);
  const Clock start = std::max(command.received + reply.latency, sending_until_);
  for (const sim::TimedBytes& chunk : sim::PlanWire(reply, start, device_.GetFamily().baud, paced)) {
    port_.DeliverAt(chunk.at, chunk.bytes);
    sending_until_ = chunk.at;
  }
}

}  // namespace korva::test
