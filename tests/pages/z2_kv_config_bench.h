#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "page_bench.h"
#include "pages/z2_kv_config/z2_kv_config.h"

namespace korva::test {

/// A simulated device whose answers a test can replace. The device itself takes every command.
class Z2Line final : public DeviceLine {
 public:
  using DeviceLine::DeviceLine;

  /// What comes in place of the device's reply to a command in an item: "00/01" for the title of its
  /// selection, "01/10 D" for a read, "01/12 D4.00" for a write; nothing is silence.
  std::map<std::string, std::optional<std::string>> replies;
  /// All accesses that came, in the same words.
  std::vector<std::string> accesses;

 private:
  sim::Reply Answer(const Command& command) override;

  std::string group_;
  std::string item_;
};

/// The page of family Lite with a device of the model behind it. The model is chosen.
class Z2Bench : public PageBench {
 public:
  /// The device is `connected`, the page's model `chosen`.
  Z2Bench(const String& chosen, const String& connected);
  explicit Z2Bench(const String& model) : Z2Bench(model, model) {}

  z2KvConfig& Z2() { return dynamic_cast<z2KvConfig&>(Page()); }
  /// Uploads, answering `answers` to the questions of its parts, and tells its boxes.
  std::vector<std::string> BoxesOfUpload(const std::vector<Answer>& answers = {});
  /// The same of a download behind its first question.
  std::vector<std::string> BoxesOfDownload(const std::vector<Answer>& answers = {});
  /// Presses cmdCheck and tells its box.
  std::string CheckResult();
  /// Uploads, and forgets its boxes and accesses.
  void Read();
  /// Puts a text into the set as a file would, and shows the set.
  void Show(int item, const String& cell);
  /// Puts points into the set and the grid, as a csv file would.
  void FillTable(const std::vector<std::pair<String, String>>& points);
  /// Accesses of this beginning, in their order.
  [[nodiscard]] std::vector<std::string> Accesses(const std::string& beginning) const;
  void ExpectAtRest();

  sim::Device& device;
  Z2Line line;
};

}  // namespace korva::test
