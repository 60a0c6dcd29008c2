#pragma once

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/program.h"
#include "linearizer/linearizer.h"
#include "pages/family_record.h"
#include "support/box_text.h"
#include "support/item_line.h"
#include "support/memory_files.h"
#include "support/virtual_host.h"
#include "transfer/download.h"
#include "transfer/field_checks.h"
#include "transfer/temperature_units.h"
#include "transfer/upload.h"

namespace korva::test {

/// Definition file of the bench's model.
inline constexpr StringView kModel = u"Model.def";

/// What the bench's page is told of its model beyond the definition.
struct BenchModel {
  bool whole_number_limits = false;
  const LnrFamily* linearizer = nullptr;  ///< outlives the bench; nullptr: the page has none
};

class BenchPage;

/// A part of the page that notes what a transfer asks of it ("upload table"), and answers as it is told.
class BenchPart final : public PagePart {
 public:
  BenchPart(BenchPage& page, std::string name);

  Finding finding = Finding::Good;
  bool read = true;
  bool written = true;
  std::function<void()> on_upload_begins;
  std::function<void()> on_upload;
  std::function<void()> on_download;

  void UploadBegins() override;
  bool Upload() override;
  [[nodiscard]] Finding Check() override;
  bool Download() override;

 private:
  void Note(const std::string& step);

  BenchPage& page_;
  std::string name_;
};

class BenchForm final : public RowForm {
 public:
  using RowForm::RowForm;
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
};

class BenchUpload final : public UploadSteps {
 public:
  explicit BenchUpload(BenchPage& page);
  RowRead Judge(const String& answer) override;
  void AfterItemRead(int row) override;
  void AfterAllRead() override;

 private:
  BenchPage& page_;
};

class BenchCheck final : public CheckSteps {
 public:
  explicit BenchCheck(BenchPage& page) : page_(page) {}
  bool CheckValues() override;

 private:
  BenchPage& page_;
};

class BenchDownload final : public DownloadSteps {
 public:
  explicit BenchDownload(BenchPage& page);
  void RoundValues() override;

 private:
  BenchPage& page_;
};

/// A page with the first family's arrays and tabs, and of its model only what a test tells.
class BenchPage final : public ParameterPage {
 public:
  BenchPage(Program& program, const FamilyRecord& record, DeviceLink& link, const BenchModel& model);

  /// Adds a part behind those that the page has.
  BenchPart& AddPart(const std::string& name) { return parts_.emplace_back(*this, name); }
  [[nodiscard]] const BenchModel& Model() const { return model_; }

  // What the next steps give, and what was done.
  bool model_good = true;
  std::function<bool(BenchPage&)> model_check;
  std::function<RowRead(const String& answer)> judge;  ///< of the answers of an upload
  std::vector<std::string> notes;
  void Note(const std::string& note) { notes.push_back(note); }

  FieldChecks fields{*this};
  std::optional<Linearizer> linearizer;
  BenchPart table{*this, "table"};

 private:
  BenchModel model_;
  TemperatureUnits units_;
  std::list<BenchPart> parts_;
  BenchForm form_;
  BenchUpload upload_steps_;
  BenchCheck check_steps_;
  BenchDownload download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

/// The program with one page of the model "Model" (Model.def), a device on COM 1, and a user who answers.
///
/// The definition is given as its text, $End excluded, which is added.
struct TransferBench {
  explicit TransferBench(const std::string& definition, const BenchModel& model = {});

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
struct TransferRow {
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
std::string DataSection(const std::vector<TransferRow>& rows);

}  // namespace korva::test
