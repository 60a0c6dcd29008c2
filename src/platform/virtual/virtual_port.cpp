#include "platform/virtual/virtual_port.h"

#include <algorithm>
#include <utility>

namespace korva {

bool VirtualPort::Open(int number, const LineSettings& settings) {
  Close();
  number_ = number;
  settings_ = settings;
  const auto line = lines_.find(number);
  if (line == lines_.end()) {
    return false;
  }
  open_ = true;
  sending_until_ = answering_until_ = loop_.Now();
  if (line->second != nullptr) {
    line->second->Opened(settings);
  }
  return true;
}

void VirtualPort::Close() {
  open_ = false;
  arrived_.clear();
}

bool VirtualPort::Write(std::string_view bytes) {
  if (!open_) {
    return false;
  }
  const auto count = static_cast<Clock::rep>(bytes.size());
  sending_until_ = std::max(sending_until_, loop_.Now()) + count * CharacterTime();
  loop_.Outside(sending_until_, [this, number = number_, sent = std::string(bytes)] {
    const auto line = lines_.find(number);
    if (line != lines_.end() && line->second != nullptr) {
      line->second->BytesSent(sent, loop_.Now());
    }
  });
  return true;
}

std::string VirtualPort::Take() { return std::exchange(arrived_, {}); }

std::optional<int> VirtualPort::TimedBaud() const {
  return open_ && timed_ ? std::optional(settings_.baud) : std::nullopt;
}

std::string VirtualPort::DeviceName(int number) const { return "virtual COM" + std::to_string(number); }

void VirtualPort::Remove(int number) {
  lines_.erase(number);
  if (open_ && number == number_) {
    open_ = false;
    if (on_arrival_) {
      loop_.At(loop_.Now(), on_arrival_);
    }
  }
}

Clock VirtualPort::CharacterTime() const {
  constexpr int bits_per_character = 10;
  return timed_ ? Clock(std::chrono::seconds(bits_per_character)) / settings_.baud : Clock(0);
}

void VirtualPort::DeliverAt(Clock time, std::string chunk) {
  loop_.At(time, [this, number = number_, bytes = std::move(chunk)] {
    if (!open_ || number != number_) {
      return;
    }
    arrived_ += bytes;
    if (on_arrival_) {
      on_arrival_();
    }
  });
}

void VirtualPort::DeliverPaced(Clock start, std::string_view bytes, std::size_t piece) {
  const std::size_t length = piece == 0 ? std::max<std::size_t>(bytes.size(), 1) : piece;
  answering_until_ = std::max(answering_until_, start);
  for (std::size_t at = 0; at < bytes.size(); at += length) {
    const std::string_view chunk = bytes.substr(at, length);
    answering_until_ += static_cast<Clock::rep>(chunk.size()) * CharacterTime();
    DeliverAt(answering_until_, std::string(chunk));
  }
}

}  // namespace korva
