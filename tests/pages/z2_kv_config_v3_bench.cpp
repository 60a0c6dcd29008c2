#include "z2_kv_config_v3_bench.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"

namespace korva::test {

PulseBench::PulseBench(bool linearizer) : device(Connect(u"Z2WPA")), line(port, device) {
  device.Set("01", "42", linearizer ? "1" : "0");
  port.Connect(1, &line);
  Choose(u"Z2WPA");
  TakeBoxes();
}

std::vector<std::string> PulseBench::BoxesOfUpload(const std::vector<Answer>& answers) {
  Page().DataChanged = false;
  line.accesses.clear();
  for (const Answer answer : {Answer::Yes, Answer::Ok}) {
    dialogs.QueueAnswer(answer);
  }
  for (const Answer answer : answers) {
    dialogs.QueueAnswer(answer);
  }
  TakeBoxes();
  Click(Page().cmdUpload);
  std::vector<std::string> boxes = TakeBoxes();
  EXPECT_EQ(std::vector<std::string>(boxes.begin(), boxes.begin() + 2),
            (std::vector<std::string>{Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload)}));
  boxes.erase(boxes.begin(), boxes.begin() + 2);
  return boxes;
}

std::vector<std::string> PulseBench::BoxesOfDownload(const std::vector<Answer>& answers) {
  line.accesses.clear();
  return DownloadAnswering(answers);
}

void PulseBench::Show(int item, const String& cell) {
  Do([&] {
    Page().SetItem(item, cell);
    Page().BuildPage();
  });
}

void PulseBench::FillTable(const std::vector<std::pair<std::string, std::string>>& points) {
  Do([&] {
    LnrTable& table = V3().linearizer.Table();
    table.Clear();
    int row = 0;
    for (const auto& [x, y] : points) {
      ++row;
      table.Store(row, 1, Ascii(x));
      table.Store(row, 2, Ascii(y));
    }
  });
}

std::vector<std::string> PulseBench::Points() {
  const Grid& grid = V3().linearizer.LnrFlexGrid;
  int last = grid.Rows() - 1;
  while (last > 0 && grid.At(last, 1).text.empty() && grid.At(last, 2).text.empty()) {
    --last;
  }
  std::vector<std::string> points;
  for (int row = 1; row <= last; ++row) {
    points.push_back(ToUtf8(grid.At(row, 1).text + u" " + grid.At(row, 2).text));
  }
  return points;
}

std::vector<std::string> PulseBench::Dialogue() const {
  std::vector<std::string> sent;
  for (const std::string& access : Accesses("01/42 D")) {
    sent.push_back(access.substr(6));
  }
  return sent;
}

std::vector<std::string> PulseBench::Accesses(const std::string& beginning) const {
  std::vector<std::string> found;
  std::copy_if(line.accesses.begin(), line.accesses.end(), std::back_inserter(found),
               [&](const std::string& access) { return access.starts_with(beginning); });
  return found;
}

void PulseBench::ExpectFree() {
  const SharedState& shared = app.program.Shared();
  EXPECT_FALSE(status.has_value()) << "the program has ended";
  EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy || shared.QuitRequested || Page().UploadBusy);
  for (const ProgressBar* bar : {&Page().TransferBar, &V3().linearizer.LnrProgressBar}) {
    EXPECT_EQ(bar->Value(), 0.0F) << bar->FullName();
  }
  EXPECT_FALSE(Page().flaMsg_CannotEnd.Visible());
  EXPECT_TRUE(Page().cmdDownload.Enabled());
  EXPECT_TRUE(Page().Tabs.TabEnabled(1));
}

void PulseBench::ExpectAtRest() {
  ExpectFree();
  EXPECT_EQ(dialogs.Unused(), 0U);
}

}  // namespace korva::test
