#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "page_bench.h"
#include "pages/kv_config_v3/kv_config_v3.h"

namespace korva::test {

/// A program with a device of a model of family Third, whose page shows the model.
class V3Bench : public PageBench {
 public:
  explicit V3Bench(const String& model, const std::vector<std::pair<std::string, std::string>>& settings = {})
      : device(Connect(model)) {
    for (const auto& [item, value] : settings) {
      if (!device.Set("01", item, value)) {
        throw std::logic_error("no such setting of the device: item " + item);
      }
    }
    app.link.line.OnTraffic = [this](const SerialLink::Traffic& traffic) {
      if (traffic.sent) {
        commands.push_back(ToUtf8(traffic.text));
      }
    };
    Choose(model);
  }

  KvConfig_V3& Page() { return dynamic_cast<KvConfig_V3&>(PageBench::Page()); }
  /// Uploads, and forgets its boxes and commands.
  void Read() {
    Page().DataChanged = false;
    Upload();
    TakeBoxes();
    commands.clear();
  }
  /// Presses cmdCheck and tells the one box that it shows.
  std::string CheckResult() {
    TakeBoxes();
    Check();
    return TakeBoxes().at(0);
  }
  bool Passes() { return CheckResult() == Shown(BoxKey::CheckDone); }
  /// Downloads and tells the box that ends it.
  std::string DownloadResult() {
    TakeBoxes();
    commands.clear();
    Download();
    return TakeBoxes().back();
  }
  bool Downloads() { return DownloadResult() == Shown(BoxKey::DownloadDone); }
  [[nodiscard]] bool Sent(const std::string& command) const {
    return std::find(commands.begin(), commands.end(), command) != commands.end();
  }
  /// The commands of one press, with blanks between.
  std::string CommandsOf(Button& button) {
    commands.clear();
    Click(button);
    std::string all;
    for (const std::string& command : commands) {
      all += (all.empty() ? "" : " ") + command;
    }
    return all;
  }
  /// The combo box of an item of group "01".
  ComboBox& BoxOf(const String& item) {
    const int row = Page().FindDataRow(item);
    return Page().Combo[std::stoi(ToUtf8(Page().DataCell(row, kComboIndex)))];
  }

  sim::Device& device;
  std::vector<std::string> commands;  ///< sent so far
};

}  // namespace korva::test
