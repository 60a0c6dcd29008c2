#include "link/serial_link.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "core/program.h"
#include "core/text_utilities.h"
#include "core/texts.h"

namespace korva {

namespace {

constexpr int kReplyTimeout = 3000;                       // ms, over the whole exchange
constexpr int kUnaskedTimeout = 500;                      // ms, after each piece of text that comes unasked
constexpr int kSlowDevicePeriod = 500;                    // ms
constexpr Clock kQuiet = std::chrono::seconds(1);         // after which nothing more is expected
constexpr Clock kLongestDrain = std::chrono::seconds(3);  // of a line that does not fall quiet
constexpr std::size_t kInputBuffer = 1024;  // characters; what a babbling line sends beyond them is lost
constexpr int kBitsPerCharacter = 10;
constexpr char kEnd = '\r';

constexpr StringView kEmptyTagReply = u"DTG:          ";
constexpr StringView kNoTag = u"TAG not entered!";
constexpr StringView kTenBlanks = u"          ";

// The form is "1200,n,8,1".
std::optional<LineSettings> ParseSettings(const String& text) {
  const std::string settings = ToUtf8(text);
  LineSettings line;
  const char* const end = settings.data() + settings.size();
  const auto [rest, error] = std::from_chars(settings.data(), end, line.baud);
  if (error != std::errc() || line.baud <= 0 || std::string_view(rest, end) != ",n,8,1") {
    return std::nullopt;
  }
  return line;
}

void AppendUpTo(std::size_t limit, std::string& buffer, std::string_view bytes) {
  buffer.append(bytes.substr(0, limit - std::min(limit, buffer.size())));
}

/// Sets a mark for as long as it lives.
class Marked {
 public:
  explicit Marked(bool& mark) : mark_(mark) { mark_ = true; }
  Marked(const Marked&) = delete;
  Marked& operator=(const Marked&) = delete;
  ~Marked() { mark_ = false; }

 private:
  bool& mark_;
};

String WithoutEnd(const String& command) {
  return !command.empty() && command.back() == u'\r' ? command.substr(0, command.size() - 1) : command;
}

}  // namespace

SerialLink::SerialLink(const Platform& platform, SharedState& shared)
    : platform_(platform),
      shared_(shared),
      IntervalTimer("IntervalTimer", platform.loop, Milliseconds(kReplyTimeout)),
      WaitForTimer("WaitForTimer", platform.loop, Milliseconds(kSlowDevicePeriod)),
      WaitingTimer("WaitingTimer", platform.loop, std::chrono::seconds(1)) {
  IntervalTimer.OnTick = [this] { reply_timeout_ = true; };
  WaitForTimer.OnTick = [this] { wait_done_ = true; };
  WaitingTimer.OnTick = [this] {
    ++waited_;
    TellWaiting();
  };
  platform_.port.OnArrival([this] { OnComm(); });
}

SerialLink::~SerialLink() { platform_.port.OnArrival(nullptr); }

void SerialLink::Reopen(const String& settings) {
  Close();
  settings_ = settings;
  Open();
}

void SerialLink::ChoosePort(int number) {
  Close();
  comm_port_ = number;
  Open();
}

void SerialLink::DemandPort(int number, const String& settings) {
  comm_port_ = number;
  Reopen(settings);
  if (!opened_) {
    throw RuntimeFailure(WhyNotOpen());
  }
}

void SerialLink::OpenAgainIfBroken() {
  if (opened_ && !PortOpen()) {
    Close();
    Open();
    opened_ = true;
  }
}

void SerialLink::Open() {
  const std::optional<LineSettings> line = ParseSettings(settings_);
  opened_ = line && platform_.port.Open(comm_port_, *line);
  not_opened_ = !opened_;
  if (OnOpened) {
    OnOpened(comm_port_, settings_, opened_);
  }
}

void SerialLink::Close() {
  platform_.port.Close();
  opened_ = false;
  input_.clear();
  second_end_due_ = false;
}

String SerialLink::SendCommandWaitReply(const String& command) {
  const Result result = Exchange(command);
  const String name = u"ｺﾏﾝﾄﾞ「" + WithoutEnd(command) + u"」";
  switch (result.failure) {
    case Failure::NotInCodePage:
      throw RuntimeFailure(name + u"には送信できない文字があります。");
    case Failure::PortRefused:
      throw RuntimeFailure(name + u"を送信できませんでした。ﾎﾟｰﾄが開いていません。");
    case Failure::LineInUse:
      throw RuntimeFailure(name + u"を送信できませんでした。交信中です。");
    case Failure::NoReply:
      throw RuntimeFailure(name + u"に対する変換器の応答がありませんでした。");
    case Failure::None:
      break;
  }
  return result.reply;
}

String SerialLink::SendCommandTrimmed(const String& command) {
  const String reply = SendCommandUntrimmed(command);
  return reply == kEmptyTagReply ? reply : Trimmed(reply);
}

String SerialLink::StrippedReply(const String& reply) {
  if (reply.empty()) {
    return {};
  }
  const String stripped = Trimmed(StringView(reply).substr(1));
  return stripped.empty() || stripped == kNoTag ? String(kTenBlanks) : stripped;
}

SerialLink::Result SerialLink::Exchange(const String& command) {
  if (in_use_) {
    Report(true, false, WithoutEnd(command));
    return {.failure = Failure::LineInUse};
  }
  if (step_ == Step::Lost) {
    Drain();
  }
  const Marked in_use(in_use_);
  Result result = SendAndAwait(command);
  last_reply_ = result.reply;
  if (result.failure == Failure::None || result.failure == Failure::NoReply) {
    Report(false, result.failure == Failure::None, result.reply);
    EndIfQuitting();
  }
  return result;
}

SerialLink::Result SerialLink::SendAndAwait(const String& command) {
  receive_threshold_ = 0;
  IntervalTimerOn(kReplyTimeout);
  const Failure unsent = SendOut(command);
  Report(true, unsent == Failure::None, WithoutEnd(command));
  if (unsent != Failure::None) {
    return {.failure = unsent};
  }
  BeginWaiting();
  std::optional<std::string> bytes = AwaitReply();
  WaitingTimer.Stop();
  if (bytes || !purpose_) {
    EndWaiting();
  }
  if (!bytes) {
    second_end_due_ = false;
    SetStep(step_ == Step::Doubtful ? Step::Lost : Step::Owed);
    return {.failure = Failure::NoReply};
  }
  SetStep(step_ == Step::Owed ? Step::Doubtful : Step::Sure);
  IntervalTimerOff();
  receive_threshold_ = 1;
  return {.reply = TakeReply(*std::move(bytes))};
}

void SerialLink::Announce(const std::optional<Purpose>& purpose) {
  purpose_ = purpose;
  if (!purpose_) {
    EndWaiting();
  }
}

void SerialLink::BeginWaiting() {
  if (!OnWaiting) {
    return;
  }
  waited_ = 0;
  WaitingTimer.Stop();
  WaitingTimer.Start();
  if (waiting_told_) {
    TellWaiting();  // a further try
  }
}

void SerialLink::EndWaiting() {
  if (std::exchange(waiting_told_, false)) {
    OnWaiting({});
  }
}

void SerialLink::TellWaiting() {
  waiting_told_ = true;
  OnWaiting(WaitingText());
}

String SerialLink::WaitingText() const {
  const auto number = [](int value) { return Ascii(std::to_string(value)); };
  const String baud = settings_.substr(0, settings_.find(u','));
  if (!purpose_) {
    return Filled(CaptionText(TextKey::AwaitingReply), {number(comm_port_), baud, number(waited_)});
  }
  return Filled(CaptionText(TextKey::AwaitingItem),
                {purpose_->group, purpose_->item, number(purpose_->attempt), number(purpose_->tries),
                 number(comm_port_), baud, number(waited_)});
}

void SerialLink::SetStep(Step step) {
  step_ = step;
  quiet_since_ = platform_.loop.Now();
}

bool SerialLink::Drain() {
  const Marked in_use(in_use_);
  receive_threshold_ = 1;
  drained_ = !std::exchange(input_, {}).empty();
  const auto now = [this] { return platform_.loop.Now(); };
  const Clock limit = now() + kLongestDrain;
  for (Clock end = quiet_since_ + kQuiet; now() < end; end = std::min(quiet_since_ + kQuiet, limit)) {
    StartPause(std::chrono::ceil<Milliseconds>(end - now()));
    platform_.loop.Pump();
    EndIfQuitting();
  }
  WaitForTimer.Stop();
  step_ = Step::Sure;
  return drained_;
}

SerialLink::Failure SerialLink::SendOut(const String& command) {
  const std::optional<std::string> bytes = platform_.code_page.Encode(command);
  if (!bytes) {
    return Failure::NotInCodePage;
  }
  const std::optional<int> baud = platform_.port.TimedBaud();
  const Clock bits = std::chrono::seconds(kBitsPerCharacter) * static_cast<Clock::rep>(bytes->size());
  command_off_the_wire_ = platform_.loop.Now() + (baud ? bits / *baud : Clock(0));
  return platform_.port.Write(*bytes) ? Failure::None : Failure::PortRefused;
}

// Only the end of the newest chunk is looked at, so a carriage return in mid-chunk doesn't end the reply.
std::optional<std::string> SerialLink::AwaitReply() {
  std::string reply;
  for (;;) {
    if (SlowDevice && SlowDevice()) {
      WaitFor(kSlowDevicePeriod);
    } else if (!InputWaiting()) {
      platform_.loop.Pump();
    }
    if (InputWaiting()) {
      reply += std::exchange(input_, {});
      if (reply.back() == kEnd) {
        return reply;
      }
    }
    if (IntervalTimerCheck()) {
      return std::nullopt;
    }
  }
}

// `bytes` end with a carriage return; devices may send one more.
String SerialLink::TakeReply(std::string bytes) {
  bytes.pop_back();
  second_end_due_ = bytes.empty() || bytes.back() != kEnd;
  if (!second_end_due_) {
    bytes.pop_back();
  }
  return platform_.code_page.Decode(bytes);
}

void SerialLink::WaitFor(int ms) {
  StartPause(Milliseconds(ms));
  while (!wait_done_) {
    platform_.loop.Pump();
  }
  WaitForTimer.Stop();
  EndIfQuitting();
}

void SerialLink::StartPause(Milliseconds length) {
  wait_done_ = false;
  WaitForTimer.Stop();
  WaitForTimer.SetInterval(length);
  WaitForTimer.Start();
}

void SerialLink::EndIfQuitting() {
  if (shared_.QuitRequested && !shared_.DownloadBusy) {
    shared_.CommBusy = false;
    Program::End();
  }
}

void SerialLink::IntervalTimerOn(int ms) {
  reply_timeout_ = false;
  IntervalTimer.Stop();
  IntervalTimer.SetInterval(Milliseconds(ms));
  IntervalTimer.Start();
}

String SerialLink::RcvMsg() {
  IntervalTimerOn(kReplyTimeout);
  event_reply_done_ = false;
  event_reply_.clear();
  while (!event_reply_done_ && !IntervalTimerCheck()) {
    platform_.loop.Pump();
  }
  EndIfQuitting();
  return event_reply_done_ ? platform_.code_page.Decode(event_reply_) : String();
}

void SerialLink::OnComm() {
  if (receive_threshold_ == 0) {
    TakeIn();
    return;
  }
  // An event without text is a break of the line; it counts as a blank.
  const std::string chunk = platform_.port.Available() > 0 ? platform_.port.Take() : " ";
  second_end_due_ = false;
  drained_ = true;
  quiet_since_ = platform_.loop.Now();
  if (chunk.back() == kEnd) {
    event_reply_done_ = true;
    return;
  }
  AppendUpTo(kInputBuffer, event_reply_, chunk);
  IntervalTimerOn(kUnaskedTimeout);
}

void SerialLink::TakeIn() {
  if (platform_.port.Available() == 0) {
    return;
  }
  const std::string bytes = platform_.port.Take();
  const bool late_end =
      second_end_due_ && bytes == std::string_view(&kEnd, 1) && platform_.loop.Now() < command_off_the_wire_;
  second_end_due_ = false;
  if (!late_end) {
    AppendUpTo(kInputBuffer, input_, bytes);
  }
}

bool SerialLink::InputWaiting() {
  TakeIn();
  return !input_.empty();
}

void SerialLink::Report(bool sent, bool ok, const String& text) const {
  if (OnTraffic) {
    OnTraffic({.sent = sent, .ok = ok, .text = text});
  }
}

String SerialLink::WhyNotOpen() const {
  if (!not_opened_) {
    return {};
  }
  const SystemReason reason = platform_.port.WhyNotOpen();
  String why =
      reason.what == SystemReason::Case::Missing ? CaptionText(TextKey::PortMissing) : ReasonText(reason);
  const String group = FromUtf8(platform_.port.UserGroup(comm_port_));
  if (reason.what == SystemReason::Case::NotPermitted && !group.empty()) {
    why += Filled(CaptionText(TextKey::PortGroup), {group});
  }
  return Filled(CaptionText(TextKey::PortNotOpen),
                {Ascii(std::to_string(comm_port_)), DeviceName(comm_port_), why});
}

String SerialLink::DeviceName(int number) const { return FromUtf8(platform_.port.DeviceName(number)); }

}  // namespace korva
