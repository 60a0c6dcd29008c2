#include "kv_config_v2_bench.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva::test {

sim::Reply AlteredLine::Answer(const Command& command) {
  sim::Reply reply = DeviceLine::Answer(command);
  const std::string& text = command.text;
  if (text.starts_with('I')) {
    item_ = text.substr(1);
  } else if (text.starts_with('D')) {
    const std::string data = text.substr(1);
    const std::string access = item_ + (data.empty() ? "" : "=" + data);
    if (!data.empty()) {
      writes.push_back(access);
    }
    if (const auto altered = replies.find(access); altered != replies.end()) {
      reply.silent = !altered->second;
      reply.text = altered->second.value_or("");
    }
  }
  return reply;
}

V2Bench::V2Bench(const String& model) : device(Connect(model)), line(port, device) {
  port.Connect(1, &line);
  Choose(model);
  TakeBoxes();
}

void V2Bench::Show(int item, const String& cell) {
  Do([&] {
    V2().SetItem(item, cell);
    V2().BuildPage();
  });
}

std::vector<std::string> V2Bench::BoxesOfUpload() {
  TakeBoxes();
  Upload();
  std::vector<std::string> boxes = TakeBoxes();
  boxes.erase(boxes.begin(), boxes.begin() + 2);
  return boxes;
}

std::vector<std::string> V2Bench::BoxesOfDownload() {
  TakeBoxes();
  line.writes.clear();
  line.ForgetCommands();
  Download();
  std::vector<std::string> boxes = TakeBoxes();
  boxes.erase(boxes.begin());
  return boxes;
}

std::vector<std::string> V2Bench::SetOf() {
  std::vector<std::string> lines;
  for (int group = 0; group < V2().GroupItem.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      if (const String& value = V2().GroupItem.At(group, item); !value.empty()) {
        lines.push_back(std::to_string(group) + " " + std::to_string(item) + " " + ToUtf8(value));
      }
    }
  }
  return lines;
}

void V2Bench::ExpectAtRest() {
  const SharedState& shared = app.program.Shared();
  EXPECT_FALSE(status.has_value()) << "the program has ended";
  EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy || shared.QuitRequested || V2().UploadBusy);
  EXPECT_EQ(V2().TransferBar.Value(), 0.0F);
  EXPECT_FALSE(V2().flaMsg_CannotEnd.Visible());
  EXPECT_TRUE(V2().cmdDownload.Enabled());
  EXPECT_TRUE(V2().Tabs.TabEnabled(1));
  EXPECT_EQ(dialogs.Unused(), 0U);
}

void V2Bench::ExpectDeviceHoldsTheSet() {
  for (int row = 0; row < V2().Def.Data().Rows(); ++row) {
    if (V2().DataCell(row, kUploaded) != u"Y") {
      continue;
    }
    const String& item = V2().DataCell(row, kItem);
    const String held = FromUtf8(device.Value("01", ToUtf8(item)));
    const String& kept = V2().GroupItem.At(u"01", item);
    EXPECT_FALSE(kept.empty()) << ToUtf8(item);
    EXPECT_EQ(LeadingNumber(held), LeadingNumber(kept)) << ToUtf8(item);
    // Behind the number: the unit, or the rest of a choice or tag.
    EXPECT_EQ(ToUtf8(held.substr(held.find(u' ') + 1)), ToUtf8(kept.substr(kept.find(u' ') + 1)))
        << ToUtf8(item);
  }
}

String WithDataField(const String& definition, const String& item, std::size_t column, const String& value) {
  std::size_t begin = definition.find(u"$Data\r\n");
  while (begin < definition.size()) {
    const std::size_t end = definition.find(u"\r\n", begin);
    std::vector<String> fields;
    for (std::size_t at = begin; at <= end;) {
      const std::size_t comma = std::min(definition.find(u',', at), end);
      fields.push_back(definition.substr(at, comma - at));
      at = comma + 1;
    }
    if (fields.size() > column && Trimmed(fields[1]) == item) {
      fields[column] = value;
      String row = fields.front();
      for (std::size_t place = 1; place < fields.size(); ++place) {
        row += u"," + fields[place];
      }
      return definition.substr(0, begin) + row + definition.substr(end);
    }
    begin = end + 2;
  }
  throw std::logic_error("no row of item " + ToUtf8(item));
}

}  // namespace korva::test
