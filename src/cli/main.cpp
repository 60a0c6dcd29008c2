// korva-cli: the pages without a window, driven by a script of user actions.
#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <span>
#include <string>
#include <system_error>

#include "cli/arguments.h"
#include "cli/child_paper.h"
#include "cli/script_dialogs.h"
#include "cli/script_input.h"
#include "cli/script_runner.h"
#include "cli/transcript.h"
#include "pages/application.h"
#include "platform/native/native_code_page.h"
#include "platform/native/native_file_store.h"
#include "platform/native/process.h"
#include "platform/qt/end_signals.h"
#include "platform/qt/program_home.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_port.h"

namespace korva::cli {
namespace {

namespace fs = std::filesystem;

constexpr int kBadArguments = 2;
constexpr int kNoSuchHome = 3;

/// The script's descriptor; -1 when it can't be opened, and errno then tells why.
int OpenScript(const Arguments& arguments) {
  return arguments.script ? ::open(arguments.script->c_str(), O_RDONLY | O_CLOEXEC) : STDIN_FILENO;
}

std::string Words(int error) { return std::generic_category().message(error); }

int RunScript(int script, const Arguments& arguments, const ProgramHome& home, Transcript& transcript) {
  QtEventLoop loop;
  QtPort port(loop.Gate(), home.own);
  ScriptDialogs dialogs(transcript);
  NativeFileStore files;
  NativeCodePage code_page;
  const Platform platform{
      .loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page};
  Application application(platform, {.installed = home.installed.u16string(), .own = home.own.u16string()});
  ChildPaper paper(TakeHelper("korva-pdf"));
  application.companions.UsePaper(paper);
  ScriptRunner runner(
      application.program, application.link.line, application.companions, dialogs, transcript,
      {.traffic = arguments.line, .keep_going = arguments.keep_going, .strict = arguments.strict});
  ScriptInput input(loop, script);
  const EndSignals end_signals([&runner] { runner.RequestEnd(); });
  while (const std::optional<std::string> line = input.NextLine([&runner] { return runner.Over(); })) {
    runner.Carry(*line);
  }
  if (transcript.Failed()) {
    transcript.Complain("can't print: " + Words(transcript.Failure()));
  }
  if (!input.Problem().empty()) {
    transcript.Complain("can't read the script: " + input.Problem());
    return kBadArguments;
  }
  return runner.Status();
}

int Main(int argc, char** argv) {
  Transcript transcript(std::cout, std::cerr);
  std::string problem;
  const std::span<const char* const> words(argv + std::min(argc, 1), argv + argc);
  const std::optional<Arguments> arguments = ParseArguments(words, problem);
  if (!arguments) {
    transcript.Complain(problem + "; --help tells the choices");
    return kBadArguments;
  }
  if (arguments->help) {
    std::cout << HelpText() << std::flush;
    return std::cout ? 0 : ScriptRunner::kNotPrinted;
  }
  const int script = OpenScript(*arguments);
  if (script < 0) {
    transcript.Complain("can't read the script " + arguments->script.value_or("-") + ": " + Words(errno));
    return kBadArguments;
  }
  QtEventLoop::ChooseDispatcher();
  const QCoreApplication application(argc, argv);
  std::error_code error;
  if (arguments->home && !fs::is_directory(*arguments->home, error)) {
    transcript.Complain("--home: there is no folder " + *arguments->home);
    return kNoSuchHome;
  }
  return RunScript(script, *arguments, TakeHome(arguments->home.value_or("")), transcript);
}

}  // namespace
}  // namespace korva::cli

int main(int argc, char** argv) {
  korva::PrepareProcess();
  return korva::cli::Main(argc, argv);
}
