#pragma once

#include <QSerialPort>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/event_gate.h"
#include "platform/port.h"

namespace korva {

/// A serial port of the machine. Where the platform has no ports of these names, COM N is the link or device
/// ports/COMN in the program's folder, and if there is none, the N-th standard serial port.
///
/// States: closed; open; broken (the device behind the line is gone: closed for the program, which is yet to
/// hear of it). A broken line is closed for the system too, because it would otherwise report its break
/// without end.
class QtPort final : public Port {
 public:
  /// `folder` is the program's folder.
  QtPort(EventGate& gate, std::filesystem::path folder);
  QtPort(const QtPort&) = delete;
  QtPort& operator=(const QtPort&) = delete;
  ~QtPort() override;

  bool Open(int number, const LineSettings& settings) override;
  void Close() override;
  [[nodiscard]] bool IsOpen() const override { return state_ == State::Open; }

  /// As Port says; the bytes are handed to the line before this returns, as far as the system takes them.
  bool Write(std::string_view bytes) override;

  [[nodiscard]] std::size_t Available() const override { return arrived_.size(); }
  std::string Take() override;

  /// As Port says. The action must not pump: nothing more arrives before it has returned.
  void OnArrival(std::function<void()> action) override { on_arrival_ = std::move(action); }
  [[nodiscard]] std::optional<int> TimedBaud() const override;
  [[nodiscard]] SystemReason WhyNotOpen() const override { return why_not_open_; }
  [[nodiscard]] std::string UserGroup(int number) const override;
  [[nodiscard]] std::string DeviceName(int number) const override;

 private:
  enum class State { Closed, Open, Broken };

  bool Refuse(const SystemReason& reason);
  [[nodiscard]] SystemReason ReasonOf(const std::string& device) const;
  void Collect();
  void Break();
  void Notify();

  EventGate& gate_;
  std::filesystem::path folder_;
  QSerialPort serial_;
  State state_ = State::Closed;
  SystemReason why_not_open_;
  std::string arrived_;
  std::function<void()> on_arrival_;
};

}  // namespace korva
