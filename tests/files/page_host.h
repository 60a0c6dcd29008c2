#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "core/program.h"
#include "files/parameter_page.h"
#include "linearizer/linearizer.h"
#include "pages/registry.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_dialogs.h"
#include "platform/virtual/virtual_event_loop.h"
#include "platform/virtual/virtual_port.h"
#include "support/def_text.h"
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

/// Notes what its page asks of it.
class Probe final : public PagePart {
 public:
  /// Adds itself to the page, which outlives this.
  explicit Probe(ParameterPage& page);

  void PageCleared() override { ++cleared; }
  void PageBuilt() override { ++built; }
  void ChoiceMade(const Choice& choice) override;

  int cleared = 0;
  int built = 0;
  std::vector<String> model_rules;  ///< items of the choices in combo boxes
  std::vector<int> units_chosen;    ///< places of the temperature option
  std::vector<String> options_set;  ///< keys of the other options that were pressed
  std::function<void()> on_model_rules;
  std::function<void()> on_unit;

 private:
  ParameterPage& page_;
};

/// A page of family First or Third with all its fields, a linearizer of family First and a probe.
class TestPage final : public ParameterPage {
 public:
  TestPage(Program& program, const FamilyRecord& record, DeviceLink& link);

  bool EnterMonitorMode() override { return true; }

  OptionGroup Opt_Root{"Opt_Root", 2};
  OptionGroup Opt_Backup{"Opt_Backup", 3};

  Linearizer linearizer;
  Probe probe;

 protected:
  void ReopenPort() override {}

 private:
  void AddAllOptions();
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

  Program program{platform, u"/korva", AllFamilies(),
                  [this](Program& made_for, const Family& family) { return MakePage(made_for, family); }};
  DeviceLink link{platform, program.Shared()};
  TestPage* first = nullptr;
  TestPage* third = nullptr;

 private:
  std::unique_ptr<korva::Page> MakePage(Program& made_for, const Family& family);
};

}  // namespace korva::test
