#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/program.h"
#include "pages/registry.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_dialogs.h"
#include "platform/virtual/virtual_event_loop.h"
#include "platform/virtual/virtual_port.h"
#include "support/box_text.h"
#include "support/device_line.h"
#include "support/memory_files.h"
#include "tables/user_tables.h"
#include "transfer/download.h"
#include "transfer/kind_form.h"
#include "transfer/upload.h"

namespace korva::test {

/// Checks no field: the bench's page has none that could be bad.
class NoChecks final : public CheckSteps {
 public:
  bool CheckValues() override { return true; }
};

/// A page with a family's user tables, its tag, its input type and the switch of the linearizer.
class UserTablesPage final : public ParameterPage {
 public:
  UserTablesPage(Program& program, const FamilyRecord& record, DeviceLink& link);

  UserTables tables;

 protected:
  void ReopenPort() override { Line().Reopen(String(ItsFamily().settings)); }

 private:
  KindForm form_{*this};
  KindUpload upload_steps_{*this};
  NoChecks check_steps_;
  KindDownload download_steps_{*this};
  korva::Upload upload_{*this, form_, upload_steps_};
  ValueCheck check_{*this, form_, check_steps_};
  korva::Download download_{*this, form_, check_, download_steps_};
};

/// The program with such a page, whose model is chosen, and a simulated device on COM 1, on a line that takes
/// no time. Input types: "K(CA)", "User's TC", "User's RTD"; those of Nano have their codes before them.
struct UserTablesBench {
  /// `def_file` tells models of a family apart.
  explicit UserTablesBench(StringView word = u"LiteUniv", const String& def_file = u"Model.def");

  // The user's actions.
  void PickType(const String& type);
  /// Switches the linearizer of an input that has no curve of its own on.
  void SwitchOn();
  /// One of the tables is in use, in the page and in the device.
  void Use(UserTable table);
  void Click(Button& button, const std::vector<korva::Answer>& answers = {});
  void ReadOut() { Click(page->tables.buttons.cmdReadOutTable); }
  void WriteIn() { Click(page->tables.buttons.cmdWriteInTable); }
  void Upload(const std::vector<korva::Answer>& further = {});
  void Download(const std::vector<korva::Answer>& further = {});
  void Do(const std::function<void()>& action) { loop.Gate().Enter(action); }
  void OpenCsv(const std::string& bytes);
  void Save(const String& path);
  void Open(const String& path);
  void PutText(const String& path, const std::string& utf8);
  [[nodiscard]] std::string TextOf(const String& path) const;

  // The table in hand.
  void Fields(const String& base, const String& step, const String& size, const String& range = {});
  /// Puts texts into its cells, X before Y, and empties the others.
  void Fill(const std::vector<String>& cells);
  [[nodiscard]] LnrTable& Points() const { return page->tables.TableOf(page->tables.Shown()); }
  [[nodiscard]] std::string Cell(int row, int column = 1) const;
  /// Its cells, X before Y, up to the first empty one.
  [[nodiscard]] std::vector<std::string> Cells() const;
  /// Places of bad cells, "row/column", and names of bad fields.
  [[nodiscard]] std::vector<std::string> Bad() const;
  [[nodiscard]] std::string FieldTexts() const;  ///< base, step, size and range, with blanks between

  /// "title: text" of the boxes since the last call.
  std::vector<std::string> TakeBoxes();
  /// What was sent since the last call as data of items 60 to 62: "60 P", "60 T12D7.9034".
  std::vector<std::string> TakeData();
  [[nodiscard]] sim::KeyedTable& DeviceTable(std::string_view item) { return device.GetKeyedTable(item); }
  void ExpectAtRest();

  VirtualEventLoop loop;
  VirtualPort port{loop};
  VirtualDialogs dialogs;
  MemoryFiles files;
  NativeCodePage code_page;
  Platform platform{.loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page};
  const FamilyRecord& record;
  sim::Device device;
  DeviceLine line{port, device};
  std::array<const Family*, 1> families;
  UserTablesPage* page = nullptr;
  std::vector<int> bar;  ///< values of Table_ProgressBar
  std::optional<int> status;
  Program program;
  DeviceLink link;

 private:
  std::size_t boxes_taken_ = 0;
};

}  // namespace korva::test
