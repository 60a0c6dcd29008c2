#pragma once

#include <initializer_list>
#include <memory>
#include <vector>

#include "core/program.h"
#include "files/parameter_page.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_dialogs.h"
#include "platform/virtual/virtual_event_loop.h"
#include "platform/virtual/virtual_port.h"
#include "support/memory_files.h"

namespace korva::test {

/// Surroundings in virtual time whose files lie in memory, in the real code page.
struct MemoryHost {
  VirtualEventLoop loop;
  VirtualPort port{loop};
  VirtualDialogs dialogs;
  MemoryFiles files;
  NativeCodePage code_page;
  Platform platform{.loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page};

  /// Lays a text file down: code page 932, each "\n" as CR LF.
  void PutText(const String& path, StringView text);
  /// The file's text, line ends as they are.
  [[nodiscard]] String TextOf(const String& path) const;
  /// Titles and texts of the boxes shown so far.
  [[nodiscard]] std::vector<String> BoxTexts() const;
};

/// One line of $Data by its columns.
struct DataRow {
  String group = u"01";
  String item = {};
  String number_label = {};
  String number = {};
  String uploaded = u"Y";
  String on_page = u"Y";
  String label = {};
  String caption = {};
  String text = {};
  String combo = {};
  String key = {};
  String frame = {};
  String unit_label = {};
  String unit = {};
  String unit_key = {};
  String temperature = {};
  String last = {};
  String preset = {};
  String rule = {};
};

/// The text of a definition file: $Data with the rows, then `sections`, then $End.
String DefText(std::initializer_list<DataRow> rows, StringView sections = {});

/// What the page tells of the models of its family.
std::span<const ModelTraits> PageHostTraits();

/// A page of family First or Third with all its fields and nothing behind them; it keeps what was asked of
/// it.
class TestPage final : public ParameterPage {
 public:
  TestPage(Program& program, const Family& family, DeviceLink& link);

  bool EnterMonitorMode() override { return true; }
  [[nodiscard]] int LnrTab() const override { return 3; }
  void SetUpTable(int points) override { tables.push_back(points); }
  void ClearTable() override { ++tables_cleared; }
  using ParameterPage::ApplyFilterRule;
  using ParameterPage::Building;
  using ParameterPage::FillRangeList;

  OptionGroup Opt_Table{"Opt_Table", 2};
  OptionGroup Opt_Lnr{"Opt_Lnr", 2};
  OptionGroup Opt_Root{"Opt_Root", 2};
  OptionGroup Opt_Backup{"Opt_Backup", 3};

  std::vector<int> tables;  ///< points of each table that was set up
  int tables_cleared = 0;
  std::vector<String> model_rules;  ///< items whose rules ran
  std::vector<int> units_chosen;    ///< places of the temperature option
  std::vector<String> options_set;  ///< keys of the options that were pressed
  int model_controls_shown = 0;
  std::function<void()> on_model_rules;
  std::function<void()> on_unit;

 protected:
  void ReopenPort() override {}
  [[nodiscard]] std::span<const ModelTraits> TraitTable() const override { return PageHostTraits(); }
  [[nodiscard]] std::span<const ListRule> Lists() const override;
  [[nodiscard]] std::vector<OptionRule> Options() override;
  void ApplyModelRules(const String& item) override;
  void AfterOption(const OptionRule& rule, int place) override;
  void ShowModelControls() override { ++model_controls_shown; }
  void ChangeTemperatureUnit(int place) override;
  [[nodiscard]] bool InputTypeUsesTable() const override;
  [[nodiscard]] const OptionGroup* SwitchOptions(TableSwitch table_switch) const override;
};

/// The program with a catalogue of made-up and known model names, whose definition files a test writes.
class PageHost : public MemoryHost {
 public:
  PageHost();
  /// Lays a definition file of family First down.
  void Define(const String& name, StringView text) { PutText(u"/korva/system/Kv_1/" + name, text); }
  /// Starts the program and shows the page of family First with the catalogue's first model.
  TestPage& Start();
  /// Defines a model and chooses it; the model's name is the file's without ".def".
  TestPage& Choose(const String& model, StringView definition);
  TestPage& Choose(const String& model) const;
  [[nodiscard]] TestPage& Page() const { return *first; }

  Program program{platform, u"/korva",
                  [this](Program& made_for, const Family& family) { return MakePage(made_for, family); }};
  DeviceLink link{platform, program.Shared()};
  TestPage* first = nullptr;
  TestPage* third = nullptr;

 private:
  std::unique_ptr<korva::Page> MakePage(Program& made_for, const Family& family);
};

}  // namespace korva::test
