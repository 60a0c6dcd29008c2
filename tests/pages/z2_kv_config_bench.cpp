#include "z2_kv_config_bench.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "support/page_parts.h"

namespace korva::test {

sim::Reply Z2Line::Answer(const Command& command) {
  sim::Reply reply = DeviceLine::Answer(command);
  const std::string& text = command.text;
  if (text.starts_with('G')) {
    group_ = text.substr(1);
    return reply;
  }
  if (text.starts_with('I')) {
    item_ = text.substr(1);
  }
  const std::string item = std::string(group_).append("/").append(item_);
  const std::string access = text.starts_with('I') ? item : std::string(item).append(" ").append(text);
  accesses.push_back(access);
  if (const auto altered = replies.find(access); altered != replies.end()) {
    reply.silent = !altered->second;
    reply.text = altered->second.value_or("");
  }
  return reply;
}

Z2Bench::Z2Bench(const String& chosen, const String& connected)
    : device(Connect(connected)), line(port, device) {
  port.Connect(1, &line);
  Choose(chosen);
  TakeBoxes();
}

std::vector<std::string> Z2Bench::BoxesOfUpload(const std::vector<Answer>& answers) {
  TakeBoxes();
  line.accesses.clear();
  Page().DataChanged = false;
  for (const Answer answer : answers) {
    dialogs.QueueAnswer(answer);
  }
  Click(Page().cmdUpload);
  return TakeBoxes();
}

std::vector<std::string> Z2Bench::BoxesOfDownload(const std::vector<Answer>& answers) {
  line.accesses.clear();
  return DownloadAnswering(answers);
}

std::string Z2Bench::CheckResult() {
  TakeBoxes();
  Check();
  return TakeBoxes().at(0);
}

void Z2Bench::Read() {
  BoxesOfUpload();
  line.accesses.clear();
}

void Z2Bench::Show(int item, const String& cell) {
  Do([&] {
    Page().SetItem(item, cell);
    Page().BuildPage();
  });
}

void Z2Bench::FillTable(const std::vector<std::pair<String, String>>& points) {
  Do([&] {
    LnrTable& table = Part<Linearizer>(Page()).Table();
    table.Clear();
    int row = 0;
    for (const auto& [x, y] : points) {
      ++row;
      table.Store(row, 1, x);
      table.Store(row, 2, y);
    }
  });
}

std::vector<std::string> Z2Bench::Accesses(const std::string& beginning) const {
  std::vector<std::string> found;
  std::copy_if(line.accesses.begin(), line.accesses.end(), std::back_inserter(found),
               [&](const std::string& access) { return access.starts_with(beginning); });
  return found;
}

void Z2Bench::ExpectAtRest() {
  const SharedState& shared = app.program.Shared();
  EXPECT_FALSE(status.has_value()) << "the program has ended";
  EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy || shared.QuitRequested || Page().UploadBusy);
  for (const Control* control : Page().Controls()) {
    if (const auto* bar = dynamic_cast<const ProgressBar*>(control)) {
      EXPECT_EQ(bar->Value(), 0.0F) << bar->FullName();
    }
  }
  EXPECT_FALSE(Page().flaMsg_CannotEnd.Visible());
  EXPECT_TRUE(Page().cmdDownload.Enabled());
  EXPECT_TRUE(Page().Tabs.TabEnabled(1));
  EXPECT_EQ(dialogs.Unused(), 0U);
}

}  // namespace korva::test
