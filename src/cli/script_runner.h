#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "cli/action.h"
#include "cli/outcome.h"
#include "cli/script_dialogs.h"
#include "cli/transcript.h"
#include "companions/companions.h"
#include "core/program.h"
#include "link/serial_link.h"

namespace korva::cli {

/// Carries out a script of user actions on the program, line by line, and prints what a user would see
/// happen.
///
/// Running until the program has ended, or until a line was wrong and the script is not to go on; then over
/// for good. A wish that the program end, and output that can't be written, count as a press of the close
/// box: what is under way on the device ends as that lets it, and then the script is over. Actions that are
/// to come later (`after`) are first waiting, for the next start, click, choose or wait to begin, and then
/// due at an instant of their own.
class ScriptRunner {
 public:
  struct Options {
    bool traffic = false;     ///< print the traffic with the device as well
    bool keep_going = false;  ///< a wrong line does not end the script
    bool strict = false;      ///< the exit status tells of a refusal, which ends nothing
  };
  /// Exit statuses beside 0.
  static constexpr int kProgramFailed = 1;
  static constexpr int kWrongLine = 2;
  static constexpr int kRefused = 4;
  static constexpr int kNotPrinted = 5;

  /// All of them outlive the runner; the program has not been started. The runner takes the program's end and
  /// the unloading of pages, and the link's traffic and openings, to itself.
  ScriptRunner(Program& program, SerialLink& link, const Companions& companions, ScriptDialogs& dialogs,
               Transcript& transcript, Options options);
  ScriptRunner(const ScriptRunner&) = delete;
  ScriptRunner& operator=(const ScriptRunner&) = delete;
  ~ScriptRunner();

  /// Carries out the next line of the script; nothing when the script is over. Called outside any event.
  void Carry(std::string_view line);
  /// The user, or the system, wants the program to end. Called outside any event, or from a wait.
  void RequestEnd();
  /// True when nothing more is to be carried out.
  [[nodiscard]] bool Over() const;
  /// The process's exit status as things stand.
  [[nodiscard]] int Status() const;

 private:
  void WatchProgram();
  void WatchLink(bool traffic);
  void WatchTranscript();
  void WatchBars(const Page& page);

  void Perform(const Statement& statement);
  void LetDelaysBegin();
  void CarryLater(const Delay& delay);
  void DoLater(Milliseconds delay, std::function<void()> action);
  void LetRun(Milliseconds duration);
  void CallWrong(int line, const String& source, std::string_view reason);

  // One for each action; those without a line of their own are on the showing page.
  static Outcome Do(const StartProgram& action);
  Outcome Do(const QueueAnswers& action);
  Outcome Do(const QueueFile& action);
  Outcome Do(const Delay& action);
  Outcome Do(const Wait& action);
  Outcome Do(const PressClose& action);
  Outcome Do(const TellReport& action);
  Outcome Do(const TellWatch& action);
  Outcome Do(const Compare& action);
  Outcome Do(const MakePdf& action);
  template <typename PageAction>
  Outcome Do(const PageAction& action);
  /// Acts with what accompanies the showing page, unless it is out of reach as its button is.
  template <typename Part, typename Act>
  Outcome DoBy(Button Part::*button, const Act& act);

  Program& program_;
  SerialLink& link_;
  const Companions& companions_;
  ScriptDialogs& dialogs_;
  Transcript& transcript_;
  bool keep_going_;
  bool strict_;
  bool started_ = false;
  bool failed_ = false;
  bool wrong_line_ = false;
  bool end_requested_ = false;
  int line_ = 0;
  std::vector<Delay> waiting_;
  std::set<TimerId> due_;
  std::set<const Page*> watched_;
};

}  // namespace korva::cli
