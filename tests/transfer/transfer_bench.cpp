#include "transfer_bench.h"

#include <array>
#include <cmath>
#include <utility>

#include "core/text_utilities.h"
#include "pages/registry.h"
#include "support/tabs.h"

namespace korva::test {

BenchPart::BenchPart(BenchPage& page, std::string name) : page_(page), name_(std::move(name)) {
  page_.Add(*this);
}

void BenchPart::Note(const std::string& step) { page_.Note(step + " " + name_); }

void BenchPart::UploadBegins() {
  Note("begin");
  if (on_upload_begins) {
    on_upload_begins();
  }
}

bool BenchPart::Upload() {
  Note("upload");
  if (on_upload) {
    on_upload();
  }
  return read;
}

Finding BenchPart::Check() {
  Note("check");
  return finding;
}

bool BenchPart::Download() {
  Note("download");
  if (on_download) {
    on_download();
  }
  return written;
}

std::optional<CodeTable> BenchForm::CodesOf(int item) const {
  switch (item) {
    case 10:
      return CodeTable{.key = u"$I10"};
    case 11:
      return RangeCodesUnderTitle();
    case 21:
      return CodeTable{.key = u"$I21"};
    case 23:
      return CodeTable{.key = u"$I23"};
    default:
      return std::nullopt;
  }
}

BenchUpload::BenchUpload(BenchPage& page) : UploadSteps(page), page_(page) {}

RowRead BenchUpload::Judge(const String& answer) {
  return page_.judge ? page_.judge(answer) : UploadSteps::Judge(answer);
}

void BenchUpload::AfterItemRead(int row) { page_.Note("read row " + std::to_string(row)); }

void BenchUpload::AfterAllRead() { page_.Note("read all"); }

bool BenchCheck::CheckValues() {
  return page_.fields.CheckTag() && page_.fields.CheckZeroSpan(page_.Model().whole_number_limits) &&
         page_.fields.CheckScale() && (page_.model_check ? page_.model_check(page_) : page_.model_good);
}

BenchDownload::BenchDownload(BenchPage& page) : DownloadSteps(page), page_(page) {}

void BenchDownload::RoundValues() { page_.Note("round"); }

BenchPage::BenchPage(Program& program, const FamilyRecord& record, DeviceLink& link, const BenchModel& model)
    : ParameterPage(program, {.family = record.family, .tab_control = "KvCfg_Tab", .design = kSevenTabDesign},
                    FormsOf(record), link),
      model_(model),
      units_(*this,
             [this] {
               return model_.whole_number_limits ? TemperatureForm::Whole : TemperatureForm::WithinLimits;
             }),
      form_(*this),
      upload_steps_(*this),
      check_steps_(*this),
      download_steps_(*this),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddOptions({.key = u"$I21", .table = u"$I21", .item = u"21", .options = &optTempUnit});
  if (model_.linearizer != nullptr) {
    linearizer.emplace(*this, *model_.linearizer, record.csv);
    AddOptions({.key = u"$I10", .table = u"$I10", .item = u"10", .options = &linearizer->Opt_Table});
    AddOptions({.key = u"$I11", .table = u"$I11Body", .item = u"11", .options = &linearizer->Opt_Lnr});
  }
}

TransferBench::TransferBench(const std::string& definition, const BenchModel& model)
    : program(platform, u"/korva", AllFamilies(),
              [this, model](Program& owner, const Family& family) {
                auto made = std::make_unique<BenchPage>(owner, EntryOf(family.word).record, link, model);
                page = made.get();
                return made;
              }),
      link(platform, program.Shared()) {
  files.Put(u"/korva/system/MdlVTRMFx.jpn", "$Type\r\nModel, Model.def, First\r\n$End\r\n");
  files.Put(u"/korva/system/Kv_1/Model.def", definition + "$End\r\n");
  line.items = {{"00/99", "SYSVER   2.00"}, {"01/01", "0"}};
  host.port.Connect(1, &line);
  program.OnEnded([this](int) { ended = true; });
  program.Start();
  page->TransferBar.Observe(
      [this] { progress.push_back(static_cast<int>(std::lround(page->TransferBar.Value()))); });
}

void TransferBench::Click(Button& button) {
  progress.clear();
  page->notes.clear();
  host.loop.Gate().Enter([&] { button.Click(); });
}

void TransferBench::Upload() {
  host.dialogs.QueueAnswer(Answer::Yes);
  host.dialogs.QueueAnswer(Answer::Ok);
  Click(page->cmdUpload);
}

void TransferBench::Download() {
  host.dialogs.QueueAnswer(Answer::Ok);
  Click(page->cmdDownload);
}

void TransferBench::Type(const String& item, const String& text) {
  host.loop.Gate().Enter([&] { page->FindField(item)->UserTypes(text); });
}

Look TransferBench::LookOf(const String& item) const { return page->FindField(item)->ShownLook(); }

std::vector<std::string> TransferBench::Boxes() const {
  std::vector<std::string> boxes;
  for (const auto& shown : host.dialogs.Boxes()) {
    boxes.push_back(ToUtf8(shown.box.title + u": " + shown.box.text));
  }
  return boxes;
}

bool TransferBench::AtRest() const {
  const SharedState& shared = page->Shared();
  const bool table_at_rest = !page->linearizer || page->linearizer->LnrProgressBar.Value() == 0.0F;
  return !shared.CommBusy && !shared.DownloadBusy && !page->UploadBusy && page->TransferBar.Value() == 0.0F &&
         table_at_rest && page->cmdUpload.Enabled() && page->cmdDownload.Enabled() &&
         page->Tabs.TabEnabled(0);
}

std::string DataSection(const std::vector<TransferRow>& rows) {
  std::string section = "$Data\r\n";
  for (const TransferRow& row : rows) {
    const std::array<std::string, 24> cells = {row.group,
                                               row.item,
                                               {},
                                               {},
                                               row.uploaded ? "Y" : "",
                                               "Y",
                                               row.label,
                                               row.caption,
                                               {},
                                               row.text,
                                               row.combo,
                                               row.list,
                                               row.frame,
                                               row.unit_label,
                                               row.unit,
                                               row.unit_key,
                                               row.temperature ? "Item21" : "",
                                               row.frame.empty() ? "" : "2",
                                               {},
                                               row.change_rule,
                                               row.condition,
                                               {},
                                               row.prefix,
                                               row.position};
    for (const std::string& cell : cells) {
      section += cell + ",";
    }
    section += "\r\n";
  }
  return section;
}

}  // namespace korva::test
