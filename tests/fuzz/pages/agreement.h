#pragma once

#include <string>

#include "pages/page_bench.h"

namespace korva::test {

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
