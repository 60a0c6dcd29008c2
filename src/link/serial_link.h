#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/control.h"
#include "core/shared_state.h"
#include "platform/platform.h"

namespace korva {

/// The one serial line to the one device: the port, its two timers, the exchange of one command for one
/// reply, and the timed pause. Text goes out and comes in through the code page; both end in a carriage
/// return.
///
/// States:
///   before the first reply  receive events off: what arrives stays and is read as the start of the first reply
///   in exchange             receive events off, IntervalTimer on
///   idle                    receive events on: they drain what arrives, so that it can't reach the next reply
///   after a failure         receive events off; IntervalTimer ticks on, harmless until the next exchange
///
/// Every wait pumps the event loop, and at its end ends the program when a close request is pending
/// (QuitRequested) that no download holds off (DownloadBusy).
///
/// Devices end a reply with one carriage return or two, and the second may follow a character time later. One
/// that arrives by itself before the next command can have left the wire can't answer that command, and is
/// dropped when the former reply ended with a single one. A line without known timing drops nothing.
class SerialLink {
 public:
  /// Both arguments outlive the link.
  SerialLink(const Platform& platform, SharedState& shared);
  SerialLink(const SerialLink&) = delete;
  SerialLink& operator=(const SerialLink&) = delete;
  ~SerialLink();

  // The port's properties. CommPort is 1 to 4 and starts at 1; Settings is text such as "1200,n,8,1".
  [[nodiscard]] int CommPort() const { return comm_port_; }
  [[nodiscard]] const String& Settings() const { return settings_; }
  [[nodiscard]] bool PortOpen() const { return platform_.port.IsOpen(); }
  /// 1 when receive events drain what arrives, 0 when it waits to be read as a reply.
  [[nodiscard]] int RThreshold() const { return receive_threshold_; }

  /// Sets `settings` and opens the port; a failure is not reported: the first exchange then gets no answer.
  void OpenAtStart(const String& settings) { Reopen(settings); }
  /// Closes the port, sets `settings`, opens it again. Failures are not reported.
  void Reopen(const String& settings);
  /// Closes the port, takes COM `number` (1 to 4), opens it with the present settings. Failures as above.
  void ChoosePort(int number);
  /// Takes COM `number` and `settings` anew, for an operation that can't go on without a port: when it does
  /// not open the program ends (RuntimeFailure).
  void DemandPort(int number, const String& settings);
  /// Opens the port again with its present settings if it was open and has broken since (an adapter that was
  /// unplugged, a device that was switched off). Failures as above; the next call then tries again.
  void OpenAgainIfBroken();
  void Close();

  /// Sends `command` (its carriage return included) and waits up to 3000 ms for a reply that ends in one.
  /// Returns the reply without its line end, of one or two carriage returns. A failure ends the program
  /// (RuntimeFailure), so this is only for exchanges behind a successful link test. Failures are: no reply in
  /// time; a port that isn't open or refuses the command, and a line that is in an exchange already, which
  /// fail at once; and a command with a character that the code page lacks, of which nothing is sent, so that
  /// no device ever gets a wrong one.
  String SendCommandWaitReply(const String& command);
  /// The same with a failure giving an empty text; the reply as it came.
  String SendCommandUntrimmed(const String& command) { return Exchange(command).reply; }
  /// The same, trimmed of blanks, except the reply "DTG:" with its ten blanks, which is an empty tag and
  /// comes back as it stands.
  String SendCommandTrimmed(const String& command);
  /// The same by StrippedReply.
  String SendCommandStripped(const String& command) { return StrippedReply(SendCommandUntrimmed(command)); }
  /// A reply less its first character and the blanks around it; ten blanks stand for a reply that is then
  /// empty or "TAG not entered!". Empty for no reply.
  static String StrippedReply(const String& reply);

  /// What came to the last command, as it came; empty for nothing.
  [[nodiscard]] const String& LastReply() const { return last_reply_; }

  /// Tells that the last reply can't have been its command's own. What arrives is then drained before the
  /// next command goes out.
  void LoseStep() { SetStep(Step::Lost); }
  /// Drains what arrives until nothing has come for a second, but for three seconds at most; the line then
  /// counts as in step. True when something came: the last reply was not the last that the device had to
  /// give.
  bool Drain();

  /// Waits `ms` milliseconds with the user interface alive.
  void WaitFor(int ms);

  /// Starts the reply time-out anew, `ms` milliseconds from now; it ticks on until it is stopped.
  void IntervalTimerOn(int ms);
  void IntervalTimerOff() { IntervalTimer.Stop(); }
  /// True when the time-out has passed since IntervalTimerOn.
  [[nodiscard]] bool IntervalTimerCheck() const { return reply_timeout_; }
  /// Waits for text that comes unasked and ends in a carriage return: up to 3000 ms for its first chunk, 500
  /// ms for each further one. The text of all its chunks but the last, or empty when it doesn't end in time.
  String RcvMsg();

  /// Tells whether a device is in use that is polled only twice a second, so that its slow reply arrives
  /// whole. Asked in each pass of the reply wait.
  std::function<bool()> SlowDevice;

  /// One line of traffic without its line end. Sent: `ok` is false when it could not be sent. Received: `ok`
  /// is false after a time-out, and the text is then empty.
  struct Traffic {
    bool sent = true;
    bool ok = true;
    String text;
  };
  std::function<void(const Traffic&)> OnTraffic;
  /// Called after each attempt to open COM `number` at `settings`; `open` tells whether it succeeded.
  std::function<void(int number, const String& settings, bool open)> OnOpened;

  /// Why the last attempt to open the port failed, in words for the status area; empty when it did not.
  [[nodiscard]] String WhyNotOpen() const;

  /// What the exchanges to come are for, of the tries that they may take at most.
  struct Purpose {
    String group;
    String item;
    int attempt = 1;  ///< from 1
    int tries = 1;
  };
  /// Says what the exchanges to come are for; nothing: for themselves.
  void Announce(const std::optional<Purpose>& purpose);
  /// Called when a reply has been awaited for a second, each second from then on and at each further try,
  /// with what is awaited in words for the status area; with an empty text when it no longer is.
  std::function<void(const String& text)> OnWaiting;

  /// What a user calls the device behind COM `number`.
  [[nodiscard]] String DeviceName(int number) const;

 private:
  enum class Failure { None, NotInCodePage, PortRefused, LineInUse, NoReply };
  enum class Step {
    Sure,      ///< the next reply is the next command's own
    Owed,      ///< the last reply did not come in time and may come yet
    Doubtful,  ///< a reply came while one was owed, and may have been that one
    Lost,      ///< a reply was another command's
  };
  struct Result {
    Failure failure = Failure::None;
    String reply{};
  };

  Result Exchange(const String& command);
  Result SendAndAwait(const String& command);
  void SetStep(Step step);
  Failure SendOut(const String& command);
  /// The reply's bytes; nothing when they did not end in time.
  std::optional<std::string> AwaitReply();
  String TakeReply(std::string bytes);
  void StartPause(Milliseconds length);
  void BeginWaiting();
  void EndWaiting();
  void TellWaiting();
  [[nodiscard]] String WaitingText() const;
  void EndIfQuitting();
  void OnComm();
  void TakeIn();
  bool InputWaiting();
  void Report(bool sent, bool ok, const String& text) const;
  void Open();

  Platform platform_;
  SharedState& shared_;
  int comm_port_ = 1;
  String last_reply_;
  String settings_;
  bool opened_ = false;  ///< by its last choice or reopening; a port that has broken since counts as opened
  bool not_opened_ = false;  ///< the last attempt to open the port failed
  int receive_threshold_ = 0;
  Timer IntervalTimer;
  Timer WaitForTimer;
  Timer WaitingTimer;  ///< ticks each second of the wait for a reply
  int waited_ = 0;     ///< its seconds
  bool waiting_told_ = false;
  std::optional<Purpose> purpose_;
  bool reply_timeout_ = false;
  bool wait_done_ = false;
  bool in_use_ = false;  ///< an exchange is under way, or the line is being drained
  Step step_ = Step::Sure;
  Clock quiet_since_{0};  ///< when step_ was set or something was drained last
  bool drained_ = false;  ///< something came since the line began to be drained
  std::string input_;     ///< arrived while receive events were off, and not yet read
  bool event_reply_done_ = false;
  std::string event_reply_;
  bool second_end_due_ = false;    ///< the last reply ended with one carriage return; nothing arrived since
  Clock command_off_the_wire_{0};  ///< before this instant no reply to the last command can arrive
};

}  // namespace korva
