#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/script_dialogs.h"
#include "cli/script_runner.h"
#include "core/grid.h"
#include "core/program.h"
#include "link/serial_link.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_event_loop.h"
#include "platform/virtual/virtual_port.h"
#include "support/memory_files.h"
#include "support/scripted_line.h"

namespace korva::cli::test {

using Lines = std::vector<std::string>;

/// Cuts what was printed into lines, and forgets it.
Lines TakeLines(std::ostringstream& printed);

/// A page with one of everything. What its buttons do is up to the test.
///
///     tab 0  Text(0) Combo(0), and Opt_Table(0) and (1) in Frame(0)
///     tab 1  Text(1) LnrFlexGrid ImgInput
class BenchPage final : public Page {
 public:
  BenchPage(Program& program, const Family& family, SerialLink& link);

  bool EnterMonitorMode() override { return true; }
  void ClearParameterSet() override {}
  void BuildPage() override {}
  bool SaveCfgFile() override { return false; }
  bool SaveRescueFile(const String& /*path*/) override { return false; }

  ControlArray<TextField> Text{"Text", 1};
  ControlArray<ComboBox> Combo{"Combo", 0};
  ControlArray<Frame> Frames{"Frame", 0};
  OptionGroup Opt_Table{"Opt_Table", 2};
  Grid LnrFlexGrid{"LnrFlexGrid"};
  ProgressBar LnrProgressBar{"LnrProgressBar"};
  Picture ImgInput{"ImgInput"};

 protected:
  void PreparePort() override { link_.OpenAtStart(String(ItsFamily().settings)); }
  void ReopenPort() override;
  void ChoosePort(int number) override { link_.ChoosePort(number); }
  void ReadModel() override {}
  void KeepTabState(int /*tab*/, bool /*enabled*/) override {}
  [[nodiscard]] bool KeptTabEnabled(int /*tab*/) const override { return true; }

 private:
  SerialLink& link_;
};

/// The runner of a script on a program of such pages, in virtual time. COM 1 leads to `line`, and there is no
/// other port. The catalogue lists "A1" and "A 2" of family First and "N1" of family Nano, then empty rows.
struct ScriptBench {
  explicit ScriptBench(ScriptRunner::Options options = {});

  /// Carries out the lines of `script` one after the other; what was printed.
  Lines Run(const std::string& script);
  /// The same for a program that has been started already: what the start prints is left out.
  Lines RunStarted(const std::string& script);
  /// Complaints so far.
  Lines Complaints() { return TakeLines(complaints); }
  [[nodiscard]] BenchPage& Page() const;
  /// Lets the showing page's button do this.
  static void Let(Button& button, std::function<void()> action) { button.OnClick = std::move(action); }
  /// Lets `ms` milliseconds pass inside a handler, as an operation on the device does.
  void Pause(int ms) { link.WaitFor(ms); }

  std::ostringstream printed;
  std::ostringstream complaints;
  Transcript transcript{printed, complaints};
  VirtualEventLoop loop;
  VirtualPort port{loop};
  korva::test::ScriptedLine line{port};
  ScriptDialogs dialogs{transcript};
  korva::test::MemoryFiles files;
  NativeCodePage code_page;
  Platform platform{.loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page};
  Program program;
  SerialLink link;
  Companions companions;
  ScriptRunner runner;
};

}  // namespace korva::cli::test
