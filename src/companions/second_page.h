#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>

#include "companions/borrowed.h"
#include "companions/comparison.h"
#include "core/program.h"
#include "files/parameter_page.h"

namespace korva {

/// Makes the page of a family for a program, with nothing that accompanies it.
using BarePageMaker = std::function<std::unique_ptr<ParameterPage>(Program&, const Family&)>;

/// A page of the same model as the showing one, which never shows: what is read into it leaves the showing
/// page and its set as they are. It has a program with a state of its own around it and shares the line, so
/// that values go through the same conversions, and warnings reach the user all the same.
class SecondPage final : public TransferObserver {
 public:
  /// All outlive this.
  SecondPage(ParameterPage& first, const Families& families, const BarePageMaker& make);

  /// Reads the device as an upload does, and shows the boxes of one when it is not read to its end. The frame
  /// of the first page is locked and its operation begun.
  Comparison::Outcome ReadDevice();
  /// Reads a configuration file, and shows the boxes of its opening.
  Comparison::Outcome ReadFile(const String& path);

  [[nodiscard]] ParameterPage& Page() { return *page_; }
  /// True when the table was read too, or was to be.
  [[nodiscard]] bool TableRead() const { return table_read_; }
  /// What went wrong with the table, of which some or all is not known then; nothing when all was read.
  [[nodiscard]] std::optional<Evidence> TableFault() const;
  /// True when the device gave no answer to the item of a row.
  [[nodiscard]] bool Silent(int row) const { return silent_.contains(row); }
  /// True when it refused the item of a row, or answered something else: its value is not known.
  [[nodiscard]] bool Untold(int row) const { return untold_.contains(row); }

 private:
  void TransferBegan(Transfer /*transfer*/) override {}
  void StepDone(const TransferStep& step) override;
  void TransferEnded(bool good) override { complete_ = good; }

  ParameterPage& first_;
  BorrowedLoop loop_;
  QuietDialogs dialogs_;
  Program program_;
  std::unique_ptr<ParameterPage> page_;
  std::set<int> silent_;
  std::set<int> untold_;
  std::map<String, Evidence> table_;  ///< what the last try of each of its steps proves
  bool table_read_ = false;
  bool complete_ = false;
};

}  // namespace korva
