#include "table_bench.h"

#include <algorithm>
#include <cmath>
#include <ostream>
#include <stdexcept>

#include "core/text_utilities.h"
#include "support/page_parts.h"

namespace korva::test {

namespace {

constexpr int kItemsOfGroup = 100;
constexpr int kFirstShortItem = 60;

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

const std::vector<TableModel>& TableModels() {
  static const std::vector<TableModel> models = {
      {.name = u"QZ", .switch_item = "10"},
      {.name = u"10QCE", .switch_item = "10"},
      {.name = u"QEI", .switch_item = "10"},
      {.name = u"QY", .switch_item = "10"},
      {.name = u"QHW"},
      {.name = u"QUO",
       .switch_item = "10",
       .on = "Fx:linearizer",
       .off = "2",
       .device = {.system_text = "SYSVER   1.00"}},
      {.name = u"QUO",
       .switch_item = "10",
       .on = "FX: Linearizer",
       .off = "2",
       .device = {.system_text = "SYSVER   2.00"}},
      {.name = u"QHNY1", .points = 100, .switch_item = "11"},
      {.name = u"QHW1", .points = 100, .switch_item = "11"},
      {.name = u"QHNY2", .points = 100, .switch_item = "11"},
      {.name = u"QCE2", .switch_item = "10"},
      {.name = u"QEI2", .switch_item = "10"},
      {.name = u"QCB2", .switch_item = "10"},
      {.name = u"QEB2", .switch_item = "11"},
      {.name = u"QNA2", .switch_item = "10"},
  };
  return models;
}

const TableModel& ModelNamed(StringView name) {
  const auto& models = TableModels();
  return *std::find_if(models.begin(), models.end(),
                       [&](const TableModel& model) { return model.name == name; });
}

void PrintTo(const TableModel& model, std::ostream* out) { *out << ToUtf8(model.name) << ' ' << model.on; }

TableBench::TableBench(const TableModel& model, bool on)
    : device(Connect(model.name, model.device)), model_(model) {
  if (!model.switch_item.empty() && !device.Set("01", model.switch_item, on ? model.on : model.off)) {
    throw std::logic_error("the device has no such switch");
  }
  Choose(model.name);
  UploadAll(Answer::No);
  Page().DataChanged = false;
  TakeBoxes();
  app.link.line.OnTraffic = [this](const SerialLink::Traffic& traffic) {
    if (traffic.sent) {
      commands.push_back(ToUtf8(traffic.text));
    }
  };
  Part<Linearizer>(Page()).LnrProgressBar.Observe(
      [this] { bar.push_back(Part<Linearizer>(Page()).LnrProgressBar.Value()); });
}

void TableBench::UploadAll(Answer table) {
  dialogs.QueueAnswer(Answer::Yes);
  dialogs.QueueAnswer(Answer::Ok);
  AnswerTable(BoxKey::UploadLinearizer, table);
  Click(Page().cmdUpload);
}

void TableBench::DownloadAll(Answer table) {
  dialogs.QueueAnswer(Answer::Ok);
  AnswerTable(BoxKey::DownloadLinearizer, table);
  Click(Page().cmdDownload);
}

void TableBench::AnswerTable(BoxKey question, Answer answer) {
  dialogs.OnBox([this, question, answer](const Box& box) {
    const std::string shown = ToUtf8(box.title + u": " + box.text);
    if (shown == Shown(question)) {
      dialogs.QueueAnswer(answer);
    }
    if (while_box) {
      while_box(shown);
    }
  });
}

TableItem TableBench::ItemAt(int position) const {
  return Long() ? TableItem{.group = 2 + position / kItemsOfGroup, .item = position % kItemsOfGroup}
                : TableItem{.group = 1, .item = kFirstShortItem + position};
}

Texts TableBench::Selection(int position) const {
  const TableItem at = ItemAt(position);
  return {"G" + TwoDigits(at.group), "I" + TwoDigits(at.item)};
}

void TableBench::PutTable(const std::vector<String>& values) {
  for (int position = 0; position < Count(); ++position) {
    const TableItem at = ItemAt(position);
    const auto place = static_cast<std::size_t>(position);
    Page().GroupItem.Set(at.group, at.item, place < values.size() ? values[place] : String());
  }
  Part<Linearizer>(Page()).SetUp(model_.points);
}

std::vector<String> TableBench::OwnTable() const {
  std::vector<String> values;
  values.reserve(static_cast<std::size_t>(Count()));
  for (int position = 0; position < Count(); ++position) {
    const int hundredths = 13703 - 137 * position;  // 137.03 down to -135.60, and no value of the device
    const std::string fraction = TwoDigits(std::abs(hundredths) % 100);
    values.push_back(
        Ascii((hundredths < 0 ? "-" : "") + std::to_string(std::abs(hundredths) / 100) + "." + fraction));
  }
  return values;
}

std::vector<String> TableBench::SetTable() {
  std::vector<String> values;
  values.reserve(static_cast<std::size_t>(Count()));
  for (int position = 0; position < Count(); ++position) {
    const TableItem at = ItemAt(position);
    values.push_back(Page().GroupItem.At(at.group, at.item));
  }
  return values;
}

std::vector<String> TableBench::GridTable() {
  std::vector<String> values;
  values.reserve(static_cast<std::size_t>(Count()));
  for (int position = 0; position < Count(); ++position) {
    values.push_back(Part<Linearizer>(Page()).LnrFlexGrid.At(1 + position / 2, 1 + position % 2).text);
  }
  return values;
}

std::vector<String> TableBench::DeviceTable() const {
  std::vector<String> values;
  values.reserve(static_cast<std::size_t>(Count()));
  for (int position = 0; position < Count(); ++position) {
    const Texts selection = Selection(position);
    values.push_back(Ascii(device.Value(selection[0].substr(1), selection[1].substr(1))));
  }
  return values;
}

bool TableBench::SetDeviceTable(const std::vector<String>& values) {
  bool taken = true;
  for (int position = 0; position < Count(); ++position) {
    const Texts selection = Selection(position);
    taken = device.Set(selection[0].substr(1), selection[1].substr(1),
                       ToUtf8(values[static_cast<std::size_t>(position)])) &&
            taken;
  }
  return taken;
}

bool TableBench::DeviceHoldsTheTable() {
  const std::vector<String> held = DeviceTable();
  const std::vector<String> wanted = SetTable();
  const auto number = [](const String& text) { return text.empty() ? 0.0 : std::stod(ToUtf8(text)); };
  return std::equal(held.begin(), held.end(), wanted.begin(), [&](const String& one, const String& other) {
    return std::abs(number(one) - number(other)) < 0.0101;
  });
}

}  // namespace korva::test
