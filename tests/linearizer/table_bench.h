#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "pages/page_bench.h"

namespace korva::test {

using Texts = std::vector<std::string>;

/// A model of family First with a linearizer table, and what switches it in the device.
struct TableModel {
  String name;
  int points = 16;
  std::string switch_item = {};  ///< of group "01"; empty when the table is always in use
  std::string on = "1";
  std::string off = "0";
  sim::DeviceOptions device = {};
};

/// All of them; the one that spells its input types by version once for each version.
const std::vector<TableModel>& TableModels();
const TableModel& ModelNamed(StringView name);
void PrintTo(const TableModel& model, std::ostream* out);

/// Where a value of the table lies, by its position X(1), Y(1), X(2), ... from 0.
struct TableItem {
  int group = 0;
  int item = 0;
  bool operator==(const TableItem&) const = default;
};

/// The whole program with a device of the model, whose parameters have been uploaded and whose table has not:
/// a table is put into the set without a wire. `commands` has what was sent since.
class TableBench : public PageBench {
 public:
  explicit TableBench(const TableModel& model, bool on = true);

  /// Uploads with an answer to the question of 100 points.
  void UploadAll(Answer table = Answer::Yes);
  /// Downloads with an answer to the question of 100 points.
  void DownloadAll(Answer table = Answer::Yes);

  [[nodiscard]] bool Long() const { return model_.points == 100; }
  [[nodiscard]] int Count() const { return 2 * model_.points; }
  [[nodiscard]] TableItem ItemAt(int position) const;
  /// "G02", "I00": the selection of a value.
  [[nodiscard]] Texts Selection(int position) const;

  /// Puts values into the set and the grid; those left out are empty.
  void PutTable(const std::vector<String>& values);
  /// Values that differ from each other and from a device's at power-up by more than any rounding.
  [[nodiscard]] std::vector<String> OwnTable() const;
  [[nodiscard]] std::vector<String> SetTable();
  [[nodiscard]] std::vector<String> GridTable();
  [[nodiscard]] std::vector<String> DeviceTable() const;

  /// True when the device holds each value of the page to 0.01; an empty cell counts 0.
  [[nodiscard]] bool DeviceHoldsTheTable();
  bool SetDeviceTable(const std::vector<String>& values);

  sim::Device& device;
  Texts commands;
  std::vector<float> bar;  ///< values of LnrProgressBar
  /// Called while a box stands on the screen.
  std::function<void(const std::string& box)> while_box;

 private:
  /// Answers a question of 100 points when it comes.
  void AnswerTable(BoxKey question, Answer answer);

  const TableModel& model_;
};

}  // namespace korva::test
