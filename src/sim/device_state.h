#pragma once

#include <functional>
#include <map>
#include <string>

#include "sim/command_table.h"
#include "sim/compensation.h"
#include "sim/device.h"
#include "sim/keyed_table.h"
#include "sim/live_values.h"
#include "sim/model_rules.h"
#include "sim/parameters.h"
#include "sim/point_table.h"
#include "sim/setup.h"
#include "sim/transmitter.h"
#include "sim/trim.h"
#include "sim/two_outputs.h"

namespace korva::sim {

constexpr char kMonitorMode = '0';
constexpr std::size_t kDisplayWidth = 16;  ///< characters of a title or an answer on the display
constexpr std::size_t kLiveWidth = 8;      ///< characters of a number

std::string RightAlign(std::string_view text, std::size_t width);

/// Menu position, mode and values of a device.
struct Device::State {
  State(Model of_model, Definition definition, DeviceOptions with);

  std::string Execute(std::string_view line, MemoryAccess::Trouble trouble = {});
  /// The same answer, but the value that is written is not kept.
  std::string ExecuteInVain(std::string_view line);
  std::string SelectGroup(std::string_view text);
  std::string SelectItem(std::string_view text);
  std::string ReplyValue();
  std::string TakeData(std::string_view data);
  std::string TakeParameter(std::string_view data);
  bool HasDialogue(const Item& item) const;
  std::string TakeTableCommand(std::string_view data);
  void AddKeyedTables();
  /// The table of an item; null when it has none with keys.
  KeyedTable* KeyedTableOf(const Item* item);
  bool IsKeyedRow(std::string_view line);
  bool TakesDataNow() const;
  bool AnswersInPairs(std::string_view line) const;
  bool IsPair(std::string_view line) const;
  std::string WithUnits(const std::string& reply) const;
  void EnterMode(std::string_view data);
  std::string Refusal(WriteResult result) const;
  bool InAccess(std::string_view line) const;
  std::string RefusalOf(std::string_view line, WriteResult result) const;
  std::string TitleOf(const Item& item) const;
  std::string StoredText(const Item& item) const;
  bool SetStored(const Item& item, std::string_view value);
  void SetNumber(std::string_view item, std::string_view value);
  std::string ValueText(const Item& item) const;
  std::string OwnUnit(const Item& item) const;
  std::string UnitBehind(const Item& item) const;
  std::string PaddedText(const Item& item) const;
  double LiveNumber(const Item& item) const;
  std::string LiveUnit(const Item& item) const;
  std::string LiveText(const Item& item) const;
  std::string Restart();
  void TakeNetworkSettings();
  bool IsEcho(std::string_view line, std::string_view reply) const;
  std::string EchoedValue(const std::string& reply) const;

  Model model;
  const Family& family;
  DeviceOptions options;
  Setup setup;
  MemoryAccess access{setup.memory};
  Parameters parameters;
  bool slow;
  PointTable table;
  TableDialogue dialogue;
  LiveValues live;
  Trim trim;
  CommandTable commands;
  std::map<std::string, KeyedTable, std::less<>> keyed;  // by item of group 01
  Transmitter transmitter{setup, parameters, table, live};
  Compensation compensation;
  TwoOutputs outputs{parameters.GetDefinition(), parameters, live, compensation};
  std::chrono::nanoseconds now{0};  // instant of the present command
  FaultPlan faults;
  int exchanges = 0;
  char mode = kMonitorMode;
  bool restarting = false;                                   // by the command under way
  bool gone = false;                                         // it never came back from a restart
  std::map<std::string, std::string, std::less<>> in_force;  // settings of the plant network
  std::string group;                                         // selected group; empty: none
  Item* selected = nullptr;                                  // selected item, unless it lies in the table
  std::optional<std::size_t> point;                          // selected value of the table
};

}  // namespace korva::sim
