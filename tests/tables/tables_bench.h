#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "core/program.h"
#include "files/parameter_page.h"
#include "support/box_text.h"
#include "support/device_line.h"
#include "support/memory_files.h"
#include "support/virtual_host.h"
#include "tables/eeprom_stage.h"

namespace korva::test {

/// A simulated transmitter some of whose answers are a test's own.
class TransmitterLine final : public DeviceLine {
 public:
  using DeviceLine::DeviceLine;

  /// Answers in place of the device, which then does not get the command. Asked with each command and its
  /// number, from 1; nothing: the device answers.
  std::function<std::optional<sim::Reply>(const std::string& command, std::size_t number)> instead;

 protected:
  sim::Reply Answer(const Command& command) override;
};

/// A page of the transmitters with nothing on it but the stage.
class TablesPage final : public ParameterPage {
 public:
  TablesPage(Program& program, DeviceLink& link);

  ProgressBar LnrProgressBar{"LnrProgressBar"};
  EepromStage stage{*this};

 protected:
  void ReopenPort() override { Line().Reopen(String(ItsFamily().settings)); }
};

/// The program with one page, for one model of the second line with its types as they are sold, and such a
/// device on COM 1, on a line that takes no time. It has all curves, and the first type of each list.
struct TablesBench {
  /// `model` is the name of a definition of the build's, without ".def", and of the device. Where a test
  /// makes one up, the page knows it as `def_file` and with the lists `types`.
  explicit TablesBench(const std::string& model, const std::string& def_file = {},
                       const std::string& types = {});

  [[nodiscard]] EepromStage& Stage() const { return page->stage; }
  [[nodiscard]] CurveWriter& Curves() const { return page->stage.Curves(); }
  sim::Memory& Memory() { return device.GetMemory(); }
  /// Chooses types on the page, and nothing in the device.
  void ChooseInput(const std::string& text) const { page->SetItem(10, FromUtf8(text)); }
  void ChooseOutput(const std::string& text) const { page->SetItem(11, FromUtf8(text)); }
  /// Runs what enters the program, as a press of a button does.
  void Run(const std::function<void()>& action) { host.loop.Gate().Enter(action); }
  /// Reads the device, then runs the stage; true when both succeed. Forgets the commands before.
  bool RunStage();
  /// The commands since they were forgotten, one after the other with blanks between.
  [[nodiscard]] std::string Sent() const { return line.Sent(); }
  /// "title: text" of the boxes shown.
  [[nodiscard]] std::vector<std::string> Boxes() const;

  VirtualHost host;
  MemoryFiles files;
  Platform platform{.loop = host.loop,
                    .port = host.port,
                    .dialogs = host.dialogs,
                    .files = files,
                    .code_page = host.code_page};
  sim::Device device;
  TransmitterLine line{host.port, device};
  TablesPage* page = nullptr;
  std::vector<float> progress;      ///< each value of the transfer bar
  std::vector<float> lnr_progress;  ///< each value of LnrProgressBar
  std::vector<std::string> notices;
  Program program;
  DeviceLink link;
};

/// The bytes of a file of the build's home.
std::string BytesOfHome(const std::string& name);

/// How often `part` stands in `text`.
int Count(const std::string& text, const std::string& part);

}  // namespace korva::test
