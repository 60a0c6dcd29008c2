#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "pages/page_bench.h"

// The devices and the user of the fuzzers.

namespace korva::test {

/// A device whose replies are the input, cut at its line feeds: each piece arrives as the reply to one
/// command, carriage returns included, and an empty piece is silence. Behind the last piece the first
/// follows.
class AnyDevice final : public CommandLine {
 public:
  AnyDevice(VirtualPort& port, std::string_view input) : port_(port) {
    for (std::size_t at = 0; at <= input.size();) {
      const std::size_t end = std::min(input.find('\n', at), input.size());
      replies_.emplace_back(input.substr(at, end - at));
      at = end + 1;
    }
  }

 private:
  void Take(const Command& command) override {
    const std::string& reply = replies_[next_];
    next_ = (next_ + 1) % replies_.size();
    if (!reply.empty()) {
      port_.DeliverPaced(command.received + Milliseconds(10), reply, 0);
    }
  }

  VirtualPort& port_;
  std::vector<std::string> replies_;
  std::size_t next_ = 0;
};

/// A device that takes every command and reports "1" for every item.
class AgreeableDevice final : public CommandLine {
 public:
  explicit AgreeableDevice(VirtualPort& port) : port_(port) {}

 private:
  void Take(const Command& command) override {
    const std::string reply = command.text.starts_with('G') ? "COK\r" : "D1\r";
    port_.DeliverPaced(command.received + Milliseconds(10), reply, 0);
  }

  VirtualPort& port_;
};

/// A user who wants every operation to go on.
inline void AgreeTo(PageBench& bench) {
  bench.dialogs.OnBox([&bench](const Box& box) {
    if (box.buttons.size() > 1) {
      bench.dialogs.QueueAnswer(box.buttons.front());
    }
  });
}

}  // namespace korva::test
