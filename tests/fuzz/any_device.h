#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "support/command_line.h"

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

}  // namespace korva::test
