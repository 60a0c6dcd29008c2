#pragma once

#include <string>
#include <utility>
#include <vector>

#include "pages/z2_kv_config_v3/z2_kv_config_v3.h"
#include "z2_kv_config_bench.h"

namespace korva::test {

/// The page of family LiteThird with a device behind it, whose linearizer is on or off. The model is chosen.
class PulseBench : public PageBench {
 public:
  explicit PulseBench(bool linearizer = false);

  z2KvConfig_V3& V3() { return dynamic_cast<z2KvConfig_V3&>(Page()); }
  /// Uploads, answering `answers` behind its questions, and tells the boxes behind these.
  std::vector<std::string> BoxesOfUpload(const std::vector<Answer>& answers = {});
  /// The same of a download.
  std::vector<std::string> BoxesOfDownload(const std::vector<Answer>& answers = {});
  /// Puts a text into the set as a file or a device would, and shows the set.
  void Show(int item, const String& cell);
  void FillTable(const std::vector<std::pair<std::string, std::string>>& points);
  /// The points of the grid before the first empty row, "X Y".
  std::vector<std::string> Points();
  /// What was sent to item 42, in its order: "DO", "D100".
  [[nodiscard]] std::vector<std::string> Dialogue() const;
  /// Accesses of this beginning, in their order.
  [[nodiscard]] std::vector<std::string> Accesses(const std::string& beginning) const;
  /// No operation is under way, and none has left a trace.
  void ExpectFree();
  /// Nor has a question been left out.
  void ExpectAtRest();

  sim::Device& device;
  Z2Line line;
};

}  // namespace korva::test
