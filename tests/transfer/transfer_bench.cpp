#include "transfer_bench.h"

#include <array>
#include <cmath>

#include "core/text_utilities.h"
#include "support/tabs.h"

namespace korva::test {
namespace {

constexpr FieldArrays kArrays = {
    .lbl_item = 54, .label = 44, .text = 43, .frame = 9, .combo = 3, .lbl_unit = 40};
constexpr int kGroups = 4;

}  // namespace

BenchPage::BenchPage(Program& program, const Family& family, DeviceLink& link, const ModelTraits& traits)
    : TransferPage(program, {.family = family, .tab_control = "KvCfg_Tab", .design = kSevenTabDesign}, link,
                   kArrays, kGroups),
      traits_(traits) {
  Register(Opt_Table);
  optTempUnit[0].SetCaption(u"deg C");
  optTempUnit[1].SetCaption(u"deg F");
  optTempUnit[2].SetCaption(u"K");
}

std::span<const ListRule> BenchPage::Lists() const {
  static constexpr std::array lists = {
      ListRule{.key = u"$I10", .table = u"$I10", .fill = ListFill::InputType},
      ListRule{.key = u"$I11", .table = u"$I11Body", .fill = ListFill::Range},
      ListRule{.key = u"$I23", .table = u"$I23"}};
  return lists;
}

std::vector<OptionRule> BenchPage::Options() {
  return {{.key = u"$I21", .table = u"$I21", .item = u"21", .options = &optTempUnit},
          {.key = u"$I10", .table = u"$I10", .item = u"10", .options = &Opt_Table}};
}

const OptionGroup* BenchPage::SwitchOptions(TableSwitch table_switch) const {
  return table_switch == TableSwitch::TableOption ? &Opt_Table : nullptr;
}

std::optional<CodeTable> BenchPage::CodesOf(int item) const {
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

bool BenchPage::CheckTable() {
  Note("check table");
  return table_good;
}

bool BenchPage::UploadTable(const ParameterSet& before) {
  Note("upload table");
  if (on_table_upload) {
    on_table_upload();
  }
  if (table_kept) {
    GroupItem.Set(2, 0, before.At(2, 0));
  }
  return !table_kept;
}

bool BenchPage::DownloadTable() {
  Note("download table");
  LnrProgressBar.SetValue(50);
  return table_written;
}

TransferBench::TransferBench(const std::string& definition, const ModelTraits& traits)
    : program(platform, u"/korva",
              [this, traits](Program& owner, const Family& family) {
                auto made = std::make_unique<BenchPage>(owner, family, link, traits);
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
  return !shared.CommBusy && !shared.DownloadBusy && !page->UploadBusy && page->TransferBar.Value() == 0.0F &&
         page->LnrProgressBar.Value() == 0.0F && page->cmdUpload.Enabled() && page->cmdDownload.Enabled() &&
         page->Tabs.TabEnabled(0);
}

std::string DataSection(const std::vector<DataRow>& rows) {
  std::string section = "$Data\r\n";
  for (const DataRow& row : rows) {
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

std::string Shown(BoxKey key, std::initializer_list<String> arguments) {
  const Box box = BoxOf(key, arguments);
  return ToUtf8(box.title + u": " + box.text);
}

}  // namespace korva::test
