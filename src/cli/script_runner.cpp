#include "cli/script_runner.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

#include "cli/page_actions.h"
#include "cli/page_report.h"
#include "cli/print_report.h"
#include "cli/print_watch.h"
#include "cli/script_lines.h"
#include "companions/part_of.h"
#include "companions/settings_printer.h"
#include "core/text_utilities.h"

namespace korva::cli {

namespace {

constexpr Milliseconds kShortestTimer{1};

/// Actions whose beginning lets the delays of the actions to come (`after`) run.
template <typename T>
constexpr bool kLetsDelaysBegin =
    std::is_same_v<T, StartProgram> || std::is_same_v<T, ClickButton> || std::is_same_v<T, ChooseModel> ||
    std::is_same_v<T, Wait> || std::is_same_v<T, Compare>;

/// Actions that only ask what the page shows.
template <typename T>
constexpr bool kIsQuestion =
    std::is_same_v<T, ShowControls> || std::is_same_v<T, DumpItems> || std::is_same_v<T, DumpGrid>;

}  // namespace

ScriptRunner::ScriptRunner(Program& program, SerialLink& link, const Companions& companions,
                           ScriptDialogs& dialogs, Transcript& transcript, Options options)
    : program_(program),
      link_(link),
      companions_(companions),
      dialogs_(dialogs),
      transcript_(transcript),
      keep_going_(options.keep_going),
      strict_(options.strict) {
  WatchProgram();
  WatchLink(options.traffic);
  WatchTranscript();
}

ScriptRunner::~ScriptRunner() {
  for (const TimerId timer : due_) {
    program_.Loop().StopTimer(timer);
  }
  link_.OnOpened = nullptr;
  link_.OnTraffic = nullptr;
  transcript_.OnFailed(nullptr);
}

void ScriptRunner::WatchProgram() {
  program_.OnPageShown([this](Page& page) {
    transcript_.Tell("page " + ToUtf8(page.ItsFamily().page));
    WatchBars(page);
  });
  program_.OnPageUnloaded([this](const Page& page) { watched_.erase(&page); });
  program_.Window().Observe([this](const ModalWindow& window, bool open) {
    transcript_.Tell("window " + window.Name() + (open ? " open" : " closed"));
  });
  program_.OnEnded([this](int status) {
    failed_ = status != 0;
    if (!failed_) {
      transcript_.Tell("end");
    }
  });
}

void ScriptRunner::WatchLink(bool traffic) {
  link_.OnOpened = [this](int number, const String& settings, bool open) {
    transcript_.Tell("port " + std::to_string(number) + " " + Quoted(settings) +
                     (open ? " open" : " failed"));
  };
  if (!traffic) {
    return;
  }
  link_.OnTraffic = [this](const SerialLink::Traffic& traffic_line) {
    if (traffic_line.sent) {
      transcript_.Tell("> " + Quoted(traffic_line.text) + (traffic_line.ok ? "" : " failed"));
    } else {
      transcript_.Tell("< " + (traffic_line.ok ? Quoted(traffic_line.text) : "none"));
    }
  };
}

// What is printed comes from the middle of anything, so the close box is pressed a little later.
void ScriptRunner::WatchTranscript() {
  transcript_.OnFailed([this] { DoLater(kShortestTimer, [this] { RequestEnd(); }); });
}

void ScriptRunner::WatchBars(const Page& page) {
  if (!watched_.insert(&page).second) {
    return;
  }
  for (Control* const control : page.Controls()) {
    if (auto* const bar = dynamic_cast<ProgressBar*>(control)) {
      bar->Observe([this, bar, told = Percent(*bar)]() mutable {
        if (std::exchange(told, Percent(*bar)) != told) {
          transcript_.Tell("progress " + bar->FullName() + " " + std::to_string(told));
        }
      });
    }
  }
}

bool ScriptRunner::Over() const {
  const bool to_end = end_requested_ || transcript_.Failed();
  return program_.Loop().Gate().Ended() || (wrong_line_ && !keep_going_) ||
         (to_end && !program_.Shared().CommBusy);
}

void ScriptRunner::RequestEnd() {
  end_requested_ = true;
  program_.PressClose();
}

int ScriptRunner::Status() const {
  if (transcript_.Failed()) {
    return kNotPrinted;
  }
  if (failed_) {
    return kProgramFailed;
  }
  if (wrong_line_) {
    return kWrongLine;
  }
  return strict_ && transcript_.Refused() ? kRefused : 0;
}

void ScriptRunner::Carry(std::string_view line) {
  ++line_;
  if (Over()) {
    return;
  }
  if (line.size() > ScriptLines::kMostBytes) {
    CallWrong(line_, {}, "longer than 64 KiB");
    return;
  }
  const String text = FromUtf8(line);
  if (!IsUtf8(line)) {
    CallWrong(line_, text, "not UTF-8");
  } else if (SaysNothing(text)) {
    return;
  } else if (const std::optional<Statement> statement = ParseStatement(line_, text)) {
    Perform(*statement);
  } else {
    CallWrong(line_, text, "no action");
  }
}

void ScriptRunner::Perform(const Statement& statement) {
  if (!std::exchange(started_, true)) {
    program_.Start();
  }
  const auto carry_out = [this]<typename T>(const T& action) {
    if constexpr (kLetsDelaysBegin<T>) {
      LetDelaysBegin();
    }
    return Do(action);
  };
  const Outcome outcome = std::visit(carry_out, statement.action);
  if (outcome.kind == Outcome::Kind::Refused) {
    transcript_.Refuse(ToUtf8(statement.source), outcome.reason);
  } else if (outcome.kind == Outcome::Kind::Wrong) {
    CallWrong(statement.line, statement.source, outcome.reason);
  }
}

void ScriptRunner::CallWrong(int line, const String& source, std::string_view reason) {
  wrong_line_ = true;
  const std::string quoted = source.empty() ? "" : Quoted(source) + ": ";
  transcript_.Complain("line " + std::to_string(line) + ": " + quoted + std::string(reason));
}

void ScriptRunner::LetDelaysBegin() {
  for (const Delay& delay : std::exchange(waiting_, {})) {
    CarryLater(delay);
  }
}

void ScriptRunner::CarryLater(const Delay& delay) {
  DoLater(delay.delay, [this, statement = delay.statement] {
    if (!Over()) {
      Perform(*statement);
    }
  });
}

void ScriptRunner::DoLater(Milliseconds delay, std::function<void()> action) {
  const auto timer = std::make_shared<TimerId>();
  *timer =
      program_.Loop().StartTimer(std::max(delay, kShortestTimer), [this, timer, action = std::move(action)] {
        program_.Loop().StopTimer(*timer);
        due_.erase(*timer);
        action();
      });
  due_.insert(*timer);
}

void ScriptRunner::LetRun(Milliseconds duration) {
  EventLoop& loop = program_.Loop();
  bool passed = false;
  const TimerId timer = loop.StartTimer(std::max(duration, kShortestTimer), [&passed] { passed = true; });
  loop.Gate().Enter([&] {
    while (!passed && !Over()) {
      loop.Pump();
    }
  });
  loop.StopTimer(timer);
}

Outcome ScriptRunner::Do(const StartProgram& /*action*/) { return {}; }

Outcome ScriptRunner::Do(const QueueAnswers& action) {
  for (const Answer answer : action.answers) {
    dialogs_.QueueAnswer(answer);
  }
  return {};
}

Outcome ScriptRunner::Do(const QueueFile& action) {
  dialogs_.QueueFile(action.path);
  return {};
}

Outcome ScriptRunner::Do(const Delay& action) {
  waiting_.push_back(action);
  return {};
}

Outcome ScriptRunner::Do(const Wait& action) {
  LetRun(action.duration);
  return {};
}

Outcome ScriptRunner::Do(const PressClose& /*action*/) {
  program_.PressClose();
  return {};
}

Outcome ScriptRunner::Do(const TellReport& /*action*/) {
  PrintReport(companions_.Report, transcript_);
  return {};
}

Outcome ScriptRunner::Do(const TellWatch& /*action*/) {
  PrintWatch(companions_.Watched, program_.Loop().Now(), transcript_);
  return {};
}

template <typename Part, typename Act>
Outcome ScriptRunner::DoBy(Button Part::*button, const Act& act) {
  Outcome outcome;
  program_.Loop().Gate().Enter([&] {
    const Page& page = *program_.Showing();
    auto* const part = PartOf<Part>(page);
    if (part == nullptr) {
      outcome = Refused("no parameters");
      return;
    }
    const std::string_view why = page.WhyRefused(part->*button);
    outcome = why.empty() ? act(*part) : Refused(why);
  });
  return outcome;
}

Outcome ScriptRunner::Do(const Compare& action) {
  return DoBy<Comparer>(&Comparer::cmdCompare, [&](Comparer& comparer) -> Outcome {
    const unsigned before = companions_.Compared.Number();
    if (action.file) {
      comparer.CompareFile(FullPath(comparer.Folder(), *action.file));
    } else {
      comparer.CompareDevice();
    }
    if (companions_.Compared.Number() != before) {
      PrintComparison(companions_.Compared, transcript_);
    }
    return {};
  });
}

Outcome ScriptRunner::Do(const MakePdf& action) {
  return DoBy<SettingsPrinter>(&SettingsPrinter::cmdPdf, [&](SettingsPrinter& printer) {
    if (program_.Showing()->lst_TypeSelect.Text().empty()) {
      return Refused("no model");
    }
    const String path = FullPath(printer.Folder(), action.path);
    const String why = printer.SavePdfAs(path);
    if (!why.empty()) {
      return Refused(ToUtf8(why));
    }
    transcript_.Tell("pdf " + Quoted(path));
    return Outcome();
  });
}

template <typename PageAction>
Outcome ScriptRunner::Do(const PageAction& action) {
  Outcome outcome;
  program_.Loop().Gate().Enter([&] {
    Page& page = *program_.Showing();
    if constexpr (kIsQuestion<PageAction>) {
      outcome = Report(page, action, transcript_);
    } else {
      outcome = ActOn(page, action);
    }
  });
  return outcome;
}

}  // namespace korva::cli
