#pragma once

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/program.h"
#include "files/parameter_page.h"
#include "monitor/output_setting.h"
#include "monitor/status_monitor.h"
#include "pages/registry.h"
#include "support/command_line.h"
#include "support/memory_files.h"
#include "support/virtual_host.h"

namespace korva::test {

// The boxes of a device that does not change its mode.
inline const std::string kProgrammingFailure =
    "ﾀﾞｳﾝﾛｰﾄﾞ: ﾌﾟﾛｸﾞﾗﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。ﾀﾞｳﾝﾛｰﾄﾞを中止します。";
inline const std::string kMonitorFailure = "ﾀﾞｳﾝﾛｰﾄﾞ: ﾓﾆﾀﾓｰﾄﾞに変更できませんでした。";

/// What becomes of one reply.
enum class Spoilt { Silent, Refused, Garbled, Late };
inline constexpr std::array kAllSpoilt = {Spoilt::Silent, Spoilt::Refused, Spoilt::Garbled, Spoilt::Late};

/// A device of either dialect. Each reply is there after the device's latency, and, on a timed line, the time
/// of its characters besides.
class MonitorLine final : public CommandLine {
 public:
  MonitorLine(VirtualPort& port, Dialect dialect) : port_(port), dialect_(dialect) {}

  Clock latency = std::chrono::milliseconds(10);
  std::map<std::string, std::string> items;  ///< answers by the item's two digits; others are not answered
  std::set<std::string> refused;             ///< items that are answered with "CNG"
  std::map<std::size_t, Spoilt> spoilt;      ///< by the command's number, from 1
  std::size_t silent_from = static_cast<std::size_t>(-1);  ///< number of the first command without a reply
  std::vector<std::string> writes;                         ///< "03=12.5", as carried out
  std::string echo;                                        ///< of a write; empty: what was written
  /// Items that keep what is written to them, with what the device puts before it.
  std::map<std::string, std::string> kept;
  /// Called with each command.
  std::function<void(const std::string&)> on_command;

 private:
  void Take(const Command& command) override;
  std::optional<std::string> GoodReply(const std::string& text);

  VirtualPort& port_;
  Dialect dialect_;
  std::string item_;
};

/// A page of any family: its frame, fields, monitor and output setting, and nothing else.
class MonitorPage final : public ParameterPage {
 public:
  MonitorPage(Program& program, const FamilyRecord& record, DeviceLink& device);

  Label unitMeasFreq{"unitMeasFreq"};
  StatusMonitor monitor;
  OutputSetting output;
};

/// A row of $Data in group "01"; field and unit label get the same index.
struct MonitorRow {
  std::string item;
  int index = -1;  ///< -1: neither field nor unit label
  std::string unit = "%";
  std::string on_page = "Y";
  std::string condition = {};
  std::string prefix = {};
  std::string position = {};
  std::string title = {};
  std::string low = {};  ///< of a threshold, in columns 21 and 24
  std::string high = {};
};
/// The section $Data of these rows.
std::string RowsOf(const std::vector<MonitorRow>& rows, int unit_column = kUsualLayout.unit_text);
/// Rows of every item that a monitor may read, in the order of their fields: 03_set 1, 03_mon 2, 04 3, 05 4,
/// 06 5, 07 6, 08 7, 03 8, 04_mon 9, 32 10, 24_set 11, 24_mon 12, 22 13.
std::string AllRows();
/// Three temperature units with the unit in `unit_column`.
std::string TemperatureSection(int unit_column = 2);

/// The program with one page of the family and a device on COM 1, which is untimed: only the latency of
/// replies (10 ms each) and waits take time. All items are answered with "12.5".
struct MonitorBench {
  MonitorBench(StringView word, const std::string& def_file, const std::string& definition);

  void Do(const std::function<void()>& action) { host.loop.Gate().Enter(action); }
  void Start() {
    Do([this] { page->monitor.Start(); });
  }
  void Set(const String& value);
  void Off() {
    Do([this] { page->output.Off(); });
  }
  /// Has the user press cmdMonitorOFF when the device gets this command, from now on.
  void StopAt(const std::string& command);
  /// Has the user press cmdMonitorOFF `delay` from now.
  void StopAfter(Clock delay);
  /// Monitors one cycle, whose first item this is.
  void RunCycle(const std::string& first_item);

  [[nodiscard]] TextField& Box(const String& item) const { return *page->FindField(item); }
  [[nodiscard]] Label& UnitLabel(const String& item) const;
  [[nodiscard]] std::string Value(const String& item) const { return ToText(Box(item).Text()); }
  [[nodiscard]] std::string Unit(const String& item) const { return ToText(UnitLabel(item).Caption()); }
  static std::string ToText(const String& text);
  /// "title: text" of each box shown.
  [[nodiscard]] std::vector<std::string> Boxes() const;
  /// True when nothing is left of an operation.
  [[nodiscard]] bool AtRest() const;
  [[nodiscard]] bool TimersStopped() const;

  const FamilyRecord& record;
  VirtualHost host;
  MemoryFiles files;
  Platform platform{.loop = host.loop,
                    .port = host.port,
                    .dialogs = host.dialogs,
                    .files = files,
                    .code_page = host.code_page};
  MonitorLine line;
  MonitorPage* page = nullptr;
  bool ended = false;
  Program program;
  DeviceLink link;
};

}  // namespace korva::test
