#include "monitor_bench.h"

#include <algorithm>
#include <array>

#include "core/text_utilities.h"
#include "monitor/count_setting.h"
#include "monitor/item_command.h"
#include "support/page_parts.h"
#include "support/tabs.h"

namespace korva::test {
namespace {

constexpr FieldArrays kArrays = {
    .lbl_item = 54, .label = 44, .text = 43, .frame = 9, .combo = 3, .lbl_unit = 40};
constexpr FieldForm kFields = {
    .arrays = kArrays, .groups = 4, .lists = {}, .unit_lists = {}, .live_items = {}, .text_items = {}};
constexpr Milliseconds kLateLatency{3500};

}  // namespace

void MonitorLine::Take(const Command& command) {
  const std::size_t number = Commands().size();
  if (on_command) {
    on_command(command.text);
  }
  if (number >= silent_from) {
    return;
  }
  const auto struck = spoilt.find(number);
  const auto is = [&](Spoilt kind) { return struck != spoilt.end() && struck->second == kind; };
  if (is(Spoilt::Silent)) {
    return;
  }
  std::optional<std::string> reply = is(Spoilt::Refused) ? std::string("CNG") : GoodReply(command.text);
  if (!reply) {
    return;
  }
  if (is(Spoilt::Garbled)) {
    std::replace_if(
        reply->begin(), reply->end(), [](char) { return true; }, '?');
  }
  const Clock wire = port_.CharacterTime() * static_cast<int>(reply->size() + 1);
  port_.DeliverAt(command.received + (is(Spoilt::Late) ? Clock(kLateLatency) : latency) + wire,
                  *reply + "\r");
}

std::optional<std::string> MonitorLine::GoodReply(const std::string& text) {
  const bool cok = dialect_ == Dialect::Cok;
  const std::string rest = text.substr(1);
  if (text[0] == 'G') {
    return cok ? "COK" : "D      enter item";
  }
  if (text[0] == 'I') {
    item_ = rest;
    if (!cok) {
      return "DStatus";
    }
  } else if (!rest.empty()) {
    if (refused.contains(item_)) {
      return "CNG";
    }
    writes.push_back(item_ + "=" + rest);
    if (const auto head = kept.find(item_); head != kept.end()) {
      items[item_] = head->second + rest;
      return "D" + items[item_];
    }
    return "D" + (echo.empty() ? rest : echo);
  }
  if (refused.contains(item_)) {
    return "CNG";
  }
  const auto found = items.find(item_);
  return found == items.end() ? std::nullopt : std::optional("D" + found->second);
}

MonitorPage::MonitorPage(Program& program, const FamilyRecord& record, DeviceLink& device)
    : ParameterPage(program,
                    {.family = record.family,
                     .tab_control = "Tabs",
                     .design = kBareDesign<TextKey::File, TextKey::Port, TextKey::IoCheck>},
                    {.device = record.device, .definition = record.definition, .fields = kFields}, device),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor) {
  monitor.ShowFrequencyUnitIn(unitMeasFreq);
}

std::string RowsOf(const std::vector<MonitorRow>& rows, int unit_column) {
  std::string section = "$Data\r\n";
  for (const MonitorRow& row : rows) {
    const std::string index = row.index < 0 ? "" : std::to_string(row.index);
    std::array<std::string, kDataWidth> cells;
    const auto put = [&](DataColumn column, const std::string& cell) {
      cells.at(static_cast<std::size_t>(kUsualLayout.*column)) = cell;
    };
    put(kGroup, "01");
    put(kItem, row.item);
    put(kOnPage, row.on_page);
    put(kTextIndex, index);
    put(kUnitLabel, index);
    put(kWriteCondition, row.condition);
    put(kReplyPrefix, row.prefix);
    put(kWritePosition, row.position);
    cells.at(21) = row.low;
    cells.at(24) = row.high;
    cells.back() = row.title;
    cells.at(static_cast<std::size_t>(unit_column)) = row.unit;
    for (const std::string& cell : cells) {
      section += cell;
      section += ',';
    }
    section += "\r\n";
  }
  return section;
}

std::string AllRows() {
  std::vector<MonitorRow> rows;
  int index = 0;
  for (const char* item :
       {"03_set", "03_mon", "04", "05", "06", "07", "08", "03", "04_mon", "32", "24_set", "24_mon", "22"}) {
    rows.push_back({.item = item, .index = ++index});
  }
  return RowsOf(rows);
}

std::string TemperatureSection(int unit_column) {
  const std::string gap(static_cast<std::size_t>(unit_column) - 1, ',');
  return "$I21\r\n0,0:deg C" + gap + "deg C\r\n1,1:deg F" + gap + "deg F\r\n2,2:K" + gap + "K\r\n";
}

MonitorBench::MonitorBench(StringView word, const std::string& def_file, const std::string& definition)
    : record(EntryOf(word).record),
      line(host.port, record.family.dialect),
      program(platform, u"/korva", AllFamilies(),
              [this](Program& owner, const Family& family) {
                return std::make_unique<MonitorPage>(owner, EntryOf(family.word).record, link);
              }),
      link(platform, program.Shared()) {
  files.Put(u"/korva/system/MdlVTRMFx.jpn",
            "$Type\r\nModel," + def_file + "," + ToUtf8(word) + "\r\n$End\r\n");
  files.Put(DefFilePath(u"/korva", record.family, record.definition, FromUtf8(def_file), files.Separator()),
            definition + "$End\r\n");
  for (const char* item : {"00", "01", "03", "04", "05", "06", "07", "08", "22", "24", "32"}) {
    line.items[item] = "12.5";
  }
  host.port.Connect(1, &line);
  host.port.SetTimed(false);
  program.OnEnded([this](int) { ended = true; });
  program.Start();
  page = dynamic_cast<MonitorPage*>(program.Showing());
}

void MonitorBench::Set(const String& value) {
  Do([&] {
    Box(String(record.output.set_key)).UserTypes(value);
    page->output.Set();
  });
}

void MonitorBench::StopAt(const std::string& command) {
  line.on_command = [this, command](const std::string& text) {
    if (text == command) {
      StopAfter(Clock(0));
    }
  };
}

void MonitorBench::StopAfter(Clock delay) {
  host.loop.After(delay, [this] { Part<StatusMonitor>(*page).cmdMonitorOFF.Click(); });
}

void MonitorBench::RunCycle(const std::string& first_item) {
  StopAt("I" + first_item);
  Start();
}

Label& MonitorBench::UnitLabel(const String& item) const {
  const int row = page->FindDataRow(item);
  return page->lbl_unit[std::stoi(ToUtf8(page->DataCell(row, kUnitLabel)))];
}

std::string MonitorBench::ToText(const String& text) { return ToUtf8(text); }

std::vector<std::string> MonitorBench::Boxes() const {
  std::vector<std::string> boxes;
  for (const auto& shown : host.dialogs.Boxes()) {
    boxes.push_back(ToUtf8(shown.box.title + u": " + shown.box.text));
  }
  return boxes;
}

bool MonitorBench::TimersStopped() const {
  for (const PagePart* part : page->Parts()) {
    const auto* const count = dynamic_cast<const CountSetting*>(part);
    const auto* const command = dynamic_cast<const ItemCommand*>(part);
    if ((count != nullptr && count->BlinkTimer.Running()) ||
        (command != nullptr && command->BlinkTimer.Running())) {
      return false;
    }
  }
  return !Part<OutputSetting>(*page).Item03_MonitorTimer.Running() &&
         !Part<StatusMonitor>(*page).Item04_lblUnitTimer.Running() &&
         !Part<StatusMonitor>(*page).Item06_lblUnitTimer.Running();
}

bool MonitorBench::AtRest() const {
  const SharedState& shared = page->Shared();
  return !shared.CommBusy && !shared.DownloadBusy && TimersStopped() && !page->lbl_Waitfor.Visible() &&
         page->cmdUpload.Enabled() && Part<StatusMonitor>(*page).cmdMonitorON.Enabled() &&
         Part<OutputSetting>(*page).cmdSet.Enabled() && page->Tabs.TabEnabled(0) &&
         page->TransferBar.Value() == 0.0F;
}

}  // namespace korva::test
