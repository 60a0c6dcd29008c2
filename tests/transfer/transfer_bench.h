#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/program.h"
#include "item_line.h"
#include "support/memory_files.h"
#include "support/virtual_host.h"
#include "transfer/transfer_page.h"

namespace korva::test {

/// Definition file of the bench's model.
inline constexpr StringView kModel = u"Model.def";

/// A page with the first family's arrays and tabs, and of its model only what a test tells.
class BenchPage final : public TransferPage {
 public:
  BenchPage(Program& program, const Family& family, DeviceLink& link, const ModelTraits& traits);

  [[nodiscard]] int LnrTab() const override { return 3; }
  void SetUpTable(int points) override { Note("set up " + std::to_string(points)); }
  void ClearTable() override {}

  // What the next steps give, and what was done.
  bool model_good = true;
  bool table_good = true;
  bool table_blank = false;
  bool table_written = true;
  bool table_kept = false;  ///< the user keeps the table from before an upload
  std::function<bool(BenchPage&)> model_check;
  std::function<void()> on_table_upload;
  std::vector<std::string> notes;
  void Note(const std::string& note) { notes.push_back(note); }

  OptionGroup Opt_Table{"Opt_Table", 2};

  using TransferPage::CheckByModel;
  using TransferPage::CheckRangeOfType;
  using TransferPage::CheckRanges;
  using TransferPage::CheckSensor;
  using TransferPage::KeptTabEnabled;
  using TransferPage::Round005V;
  using TransferPage::Round5ms;

 protected:
  [[nodiscard]] std::span<const ModelTraits> TraitTable() const override { return {&traits_, 1}; }
  [[nodiscard]] std::span<const ListRule> Lists() const override;
  [[nodiscard]] std::vector<OptionRule> Options() override;
  void ApplyModelRules(const String& /*item*/) override {}
  void AfterOption(const OptionRule& /*rule*/, int /*place*/) override {}
  [[nodiscard]] bool InputTypeUsesTable() const override { return Item(10) == u"FX: Linearizer"; }
  [[nodiscard]] const OptionGroup* SwitchOptions(TableSwitch table_switch) const override;
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
  bool CheckModel() override { return model_check ? model_check(*this) : model_good; }
  bool CheckTable() override;
  [[nodiscard]] bool IsTableBlank() const override { return table_blank; }
  bool UploadTable(const ParameterSet& before) override;
  bool DownloadTable() override;
  void RoundValues() override { Note("round"); }
  void AfterItemRead(int row) override { Note("read row " + std::to_string(row)); }

 private:
  ModelTraits traits_;
};

/// The program with one page of the model "Model" (Model.def), a device on COM 1, and a user who answers.
///
/// The definition is given as its text, $End excluded, which is added.
struct TransferBench {
  explicit TransferBench(const std::string& definition, const ModelTraits& traits = {.def_file = kModel});

  /// Presses a button of the page, through the gate.
  void Click(Button& button);
  /// Answers the questions of an upload, then presses its button.
  void Upload();
  void Download();
  void Check() { Click(page->cmdCheck); }
  /// Types into the field of an item of group "01".
  void Type(const String& item, const String& text);
  [[nodiscard]] Look LookOf(const String& item) const;
  /// Keys of the boxes shown since Start, by their texts; "title: text".
  [[nodiscard]] std::vector<std::string> Boxes() const;
  /// True when nothing is left of an operation: flags clear, bars at 0, buttons and tabs as before.
  [[nodiscard]] bool AtRest() const;

  VirtualHost host;
  MemoryFiles files;
  Platform platform{.loop = host.loop,
                    .port = host.port,
                    .dialogs = host.dialogs,
                    .files = files,
                    .code_page = host.code_page};
  ItemLine line{host.port};
  BenchPage* page = nullptr;
  std::vector<int> progress;  ///< each value of the transfer bar, nearest whole percent
  bool ended = false;
  Program program;
  DeviceLink link;
};

/// A row of $Data.
struct DataRow {
  std::string group = "01";
  std::string item = {};
  bool uploaded = true;
  std::string label = {};
  std::string caption = {};
  std::string text = {};  ///< index of the field
  std::string combo = {};
  std::string list = {};
  std::string frame = {};
  std::string unit_label = {};
  std::string unit = {};
  std::string unit_key = {};
  bool temperature = false;
  std::string change_rule = {};
  std::string condition = "Y";
  std::string prefix = {};
  std::string position = {};
};
/// The section $Data of these rows.
std::string DataSection(const std::vector<DataRow>& rows);

/// "title: text" of a box, in UTF-8.
std::string Shown(BoxKey key, std::initializer_list<String> arguments = {});

}  // namespace korva::test
