#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/event_loop.h"
#include "platform/port.h"
#include "platform/virtual/virtual_event_loop.h"

namespace korva {

/// What hangs at the far end of a virtual port: a simulated device or a test's script. Its calls come from
/// outside the program, never through the gate.
class VirtualLine {
 public:
  VirtualLine() = default;
  VirtualLine(const VirtualLine&) = delete;
  VirtualLine& operator=(const VirtualLine&) = delete;
  virtual ~VirtualLine() = default;

  /// The program has opened the port with these settings.
  virtual void Opened(const LineSettings& /*settings*/) {}

  /// `bytes`, all of one write, have left the wire; the last stop bit ended at `now`.
  virtual void BytesSent(std::string_view bytes, Clock now) = 0;
};

/// The serial ports in virtual time. A port exists once something, or nothing, was connected to it. Bytes of
/// the program leave one after the other at 10 bits each; bytes of the line arrive when it says so.
class VirtualPort final : public Port {
 public:
  explicit VirtualPort(VirtualEventLoop& loop) : loop_(loop) {}

  bool Open(int number, const LineSettings& settings) override;
  void Close() override;
  [[nodiscard]] bool IsOpen() const override { return open_; }
  bool Write(std::string_view bytes) override;
  [[nodiscard]] std::size_t Available() const override { return arrived_.size(); }
  std::string Take() override;
  void OnArrival(std::function<void()> action) override { on_arrival_ = std::move(action); }
  [[nodiscard]] std::optional<int> TimedBaud() const override;
  [[nodiscard]] SystemReason WhyNotOpen() const override { return refusal_; }
  [[nodiscard]] std::string UserGroup(int /*number*/) const override { return user_group_; }
  [[nodiscard]] std::string DeviceName(int number) const override;

  /// Makes COM `number` exist, with `line` at its far end; without one it is an open end that never answers.
  void Connect(int number, VirtualLine* line = nullptr) { lines_[number] = line; }

  /// What a port that can't be opened tells: that it does not exist, unless a test says otherwise.
  void RefuseFor(const SystemReason& reason, std::string user_group = {}) {
    refusal_ = reason;
    user_group_ = std::move(user_group);
  }

  /// COM `number` no longer exists: it can't be opened, and if it is open it breaks.
  void Remove(int number);

  /// Whether characters take their time on the wire (the default) or none, as on a pseudo-terminal.
  void SetTimed(bool timed) { timed_ = timed; }

  /// Number and settings of the last call of Open, whether it succeeded or not.
  [[nodiscard]] int Number() const { return number_; }
  [[nodiscard]] const LineSettings& Settings() const { return settings_; }

  /// What one character takes on the wire at the settings of the last Open; zero on an untimed line.
  [[nodiscard]] Clock CharacterTime() const;

  /// For the line: `chunk` arrives as one piece, at `time` or now. It is lost unless the port that is open at
  /// the time of this call is open then.
  void DeliverAt(Clock time, std::string chunk);
  void Deliver(std::string chunk) { DeliverAt(loop_.Now(), std::move(chunk)); }

  /// For the line: sends `bytes` as a device does, one character after the other from `start` on (or after
  /// those that it is still sending). They arrive in pieces of `piece` characters, each when its last
  /// character is complete; 0 for all in one piece.
  void DeliverPaced(Clock start, std::string_view bytes, std::size_t piece);

 private:
  VirtualEventLoop& loop_;
  std::map<int, VirtualLine*> lines_;
  bool timed_ = true;
  bool open_ = false;
  int number_ = 0;
  LineSettings settings_;
  Clock sending_until_{0};    // when the program's last character has left the wire
  Clock answering_until_{0};  // when the line's last paced character has arrived
  SystemReason refusal_{.what = SystemReason::Case::Missing, .words = u"No such file or directory"};
  std::string user_group_;
  std::string arrived_;
  std::function<void()> on_arrival_;
};

}  // namespace korva
