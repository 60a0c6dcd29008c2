#include "sim/line.h"

#include <algorithm>
#include <utility>

namespace korva::sim {

namespace {

constexpr char kLineEnd = '\r';
constexpr std::int64_t kBitsOfCharacter = 10;
constexpr std::int64_t kNanosecondsOfSecond = 1'000'000'000;
/// What a device can hold of one command; further bytes are lost.
constexpr std::size_t kCommandBuffer = 255;

/// Adds the bytes of a reply, once.
void PlanOnce(const Reply& reply, Instant start, unsigned baud, bool paced, std::vector<TimedBytes>& plan) {
  // The n-th byte's end is counted from the start, so that nothing adds up over a long reply.
  const auto end_of = [&](std::size_t count) {
    return start + (paced ? CharacterTime(baud, static_cast<std::int64_t>(count)) : Instant{0});
  };
  const std::string bytes = reply.text + std::string(static_cast<std::size_t>(reply.line_ends), kLineEnd);
  const std::size_t together =
      reply.late_second_line_end && reply.line_ends == 2 ? bytes.size() - 1 : bytes.size();
  if (reply.byte_by_byte) {
    for (std::size_t i = 0; i < together; ++i) {
      plan.push_back({.at = end_of(i + 1), .bytes = {bytes[i]}});
    }
  } else if (together > 0) {
    plan.push_back({.at = end_of(together), .bytes = bytes.substr(0, together)});
  }
  if (together < bytes.size()) {
    plan.push_back({.at = end_of(together) + CharacterTime(baud), .bytes = {kLineEnd}});
  }
}

}  // namespace

Instant CharacterTime(unsigned baud, std::int64_t count) {
  return Instant{count * kBitsOfCharacter * kNanosecondsOfSecond / static_cast<std::int64_t>(baud)};
}

std::vector<TimedBytes> PlanWire(const Reply& reply, Instant start, unsigned baud, bool paced) {
  std::vector<TimedBytes> plan;
  if (!reply.silent) {
    PlanOnce(reply, start, baud, paced, plan);
    if (reply.doubled && !plan.empty()) {
      PlanOnce(reply, plan.back().at, baud, paced, plan);
    }
  }
  return plan;
}

Line::Line(Device& device, bool paced) : device_(device), baud_(device.GetFamily().baud), paced_(paced) {}

void Line::Receive(std::string_view bytes, Instant now) {
  for (const char byte : bytes) {
    command_wire_free_ = std::max(command_wire_free_, now) + (paced_ ? CharacterTime(baud_) : Instant{0});
    TakeByte(byte, command_wire_free_);
  }
}

void Line::TakeByte(char byte, Instant arrived) {
  if (byte != kLineEnd) {
    if (command_.size() < kCommandBuffer) {
      command_ += byte;
    }
    return;
  }
  const std::string line = std::exchange(command_, {});
  if (arrived < away_until_) {
    return;
  }
  const Reply reply = device_.Answer(line, arrived);
  away_until_ = arrived + reply.away;
  if (watcher_) {
    watcher_(line, reply);
  }
  const auto plan = PlanWire(reply, std::max(arrived + reply.latency, reply_wire_free_), baud_, paced_);
  if (!plan.empty()) {
    reply_wire_free_ = plan.back().at;
    under_way_.insert(under_way_.end(), plan.begin(), plan.end());
  }
}

std::optional<Instant> Line::NextDue() const {
  return under_way_.empty() ? std::nullopt : std::optional(under_way_.front().at);
}

std::string Line::TakeDue(Instant now) {
  if (under_way_.empty() || under_way_.front().at > now) {
    return {};
  }
  std::string bytes = std::move(under_way_.front().bytes);
  under_way_.pop_front();
  return bytes;
}

void Line::OnExchange(std::function<void(std::string_view, const Reply&)> watcher) {
  watcher_ = std::move(watcher);
}

void Line::Reset() {
  command_.clear();
  under_way_.clear();
  command_wire_free_ = Instant{0};
  reply_wire_free_ = Instant{0};
}

}  // namespace korva::sim
