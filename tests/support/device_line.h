#pragma once

#include <string_view>
#include <utility>

#include "platform/virtual/virtual_port.h"
#include "sim/device.h"
#include "support/command_line.h"
#include "support/virtual_host.h"

namespace korva::test {

/// A simulated device at the far end of a virtual port: it takes each command when its last stop bit has left
/// the wire, and its reply arrives at the speed of the line, after its latency. A port that was opened at
/// another speed than the device's gets no answer. On an untimed port no character takes time.
class DeviceLine : public CommandLine {
 public:
  /// Both outlive the line.
  DeviceLine(VirtualPort& port, sim::Device& device) : port_(port), device_(device) {}

  void Opened(const LineSettings& settings) override;
  void BytesSent(std::string_view bytes, Clock now) override;

 protected:
  /// What comes back to a command. The device takes each one once.
  virtual sim::Reply Answer(const Command& command) { return device_.Answer(command.text, command.received); }

 private:
  void Take(const Command& command) override;

  VirtualPort& port_;
  sim::Device& device_;
  bool right_speed_ = false;
  Clock sending_until_{0};
  Clock away_until_{0};  ///< the device restarts
};

/// Surroundings with a simulated device on COM 1:
///
///     DeviceBench bench(sim::Device::ForModel(home, "QHW"));
///     bench.device.AddFault(sim::ParseFault("silent@7"));
struct DeviceBench : VirtualHost {
  explicit DeviceBench(sim::Device simulated) : device(std::move(simulated)) { port.Connect(1, &line); }
  sim::Device device;
  DeviceLine line{port, device};
};

}  // namespace korva::test
