#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pages/application.h"
#include "pages/kv_config/kv_config.h"
#include "pages/registry.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_dialogs.h"
#include "platform/virtual/virtual_event_loop.h"
#include "platform/virtual/virtual_port.h"
#include "sim/device.h"
#include "support/box_text.h"
#include "support/device_line.h"
#include "support/kept_paper.h"
#include "support/memory_files.h"

namespace korva::test {

/// Keys of the lists that the key of a choice can stand for: itself, or one for each class of the input.
std::vector<String> ListsBehind(const ParameterPage& page, StringView key);

/// A configuration file, to be saved and opened.
inline constexpr const char16_t* kFile = u"/korva/data/kept.cfg";

/// Surroundings in virtual time whose files lie in memory: the program's folder /korva with the catalogue and
/// the definitions of this build, in code page 932 with CR LF as the programs read them.
struct PageFolder {
  PageFolder();
  /// Lays a text file down: code page 932, each "\n" as CR LF.
  void PutText(const String& path, StringView text);
  /// The file's text, line ends as they are.
  [[nodiscard]] String TextOf(const String& path) const;

  VirtualEventLoop loop;
  VirtualPort port{loop};
  VirtualDialogs dialogs;
  MemoryFiles files;
  NativeCodePage code_page;
  Platform platform{.loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page};
};

/// Models of a family: name, which is the definition file's less ".def" where each has its own, in the
/// catalogue's order, each once.
std::vector<String> ModelsOf(StringView family);
/// Those of every family that has a page.
std::vector<String> AllModels();
inline std::vector<String> FirstModels() { return ModelsOf(u"First"); }

/// The model's family; First for a name that the catalogue lacks.
const Family& FamilyOf(const String& model);
/// Name of the model's definition file, "Univ.def" where it serves the whole family.
String DefFileOf(const String& model);
/// Path of the model's definition file.
String DefPath(const String& model);

/// The whole program without its window. It is started, with COM 1 open on nothing, by its first use.
///
/// Actions are a user's: they come through the gate, and one that the screen would not let through throws
/// std::logic_error.
class PageBench : public PageFolder {
 public:
  PageBench();
  /// Connects a simulated device of the model to COM 1; before the start.
  sim::Device& Connect(const String& model, const sim::DeviceOptions& options = {});

  void Start();
  /// The showing page.
  ParameterPage& Page();
  /// The showing page, which is that of family First.
  KvConfig& First() { return dynamic_cast<KvConfig&>(Page()); }
  /// Something inside an event of the program.
  template <typename Action>
  void Do(Action action) {
    loop.Gate().Enter([&] { action(); });
  }

  // The user's actions.
  void Choose(const String& model);  ///< the first entry of this text
  void Click(Button& button);
  void Press(OptionGroup& options, int place);
  void Pick(ComboBox& box, const String& entry);
  void Type(TextField& field, const String& text);
  void Type(const String& item, const String& text);  ///< into the field of an item of group "01"

  // Whole jobs.
  /// The questions of an upload, in their order: none where the device tells its model.
  [[nodiscard]] std::vector<BoxKey> QuestionsOfUpload();
  void Upload();      ///< answers its questions
  void TakeTables();  ///< from now on a transfer's question of its table is answered with yes
  void Download();
  /// Downloads, answering `answers` behind its first question, and tells the boxes behind that.
  std::vector<std::string> DownloadAnswering(const std::vector<Answer>& answers);
  void Check() { Click(Page().cmdCheck); }
  void Save(const String& path);
  void Open(const String& path);
  void New() { Click(Page().cmdNew); }
  void ForceOutput(const String& percent);

  /// Field of an item of group "01", which the model must have.
  TextField& Field(const String& item);
  [[nodiscard]] Look LookOf(const String& item) { return Field(item).ShownLook(); }
  /// Caption of the unit label behind the field of an item.
  String UnitOf(const String& item);
  /// "title: text" of each box shown since the last call.
  std::vector<std::string> TakeBoxes();

  KeptPaper paper;
  Application app{platform, u"/korva"};
  std::optional<int> status;  ///< once the program has ended

 private:
  void Demand(const Control& control);

  std::optional<sim::Device> device_;
  std::optional<DeviceLine> line_;
  std::size_t boxes_taken_ = 0;
};

}  // namespace korva::test
