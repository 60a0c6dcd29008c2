#pragma once

#include "transfer/download.h"
#include "transfer/frequency_units.h"

namespace korva {

// How rows travel in the families whose values have their unit behind them. The page and its units outlive
// all of it.

/// In the column of prefixes "O" and "N" mark a choice, anything else is the prefix of a value.
class QuantityForm final : public RowForm {
 public:
  QuantityForm(const ParameterPage& page, const FrequencyUnits& units) : RowForm(page), units_(units) {}
  [[nodiscard]] String ReplyPrefix(int row) const override;
  [[nodiscard]] bool IsChoice(int row) const override;
  [[nodiscard]] String DataOf(int row, const String& cell) const override;
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;

 private:
  const FrequencyUnits& units_;
};

/// Sends a number behind the code of its unit, and compares what comes back as a number with a unit.
class QuantityDownload : public DownloadSteps {
 public:
  QuantityDownload(ParameterPage& page, const RowForm& form, const FrequencyUnits& units)
      : DownloadSteps(page), form_(form), units_(units) {}
  bool Collate() override { return true; }  // item 10 is no input type here
  String WriteData(const WriteEntry& entry) override;
  [[nodiscard]] bool CompareReply(const WriteEntry& entry, const String& reply) const override;
  [[nodiscard]] bool ComparesReply(const WriteEntry& /*entry*/, const String& /*reply*/) const override {
    return true;
  }

 private:
  /// Tells the device the unit of the number that follows; false when it gives no answer. Nothing is sent for
  /// a unit that the device knows no code for.
  bool WriteUnitCode(int row, const String& unit);

  const RowForm& form_;
  const FrequencyUnits& units_;
};

}  // namespace korva
