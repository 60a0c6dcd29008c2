#pragma once

#include "files/parameter_page.h"

namespace korva {

/// The input cut-out, item 11: the input level under which the output is cut. "-10" is the device's value for
/// no cut-out, and the page shows it as "Disable" in a closed box. The buttons change the set alone: the
/// value goes with the next download.
class CutOut final : public PagePart {
 public:
  /// Adds itself and its buttons to the page, which outlives this.
  explicit CutOut(ParameterPage& page);

  void SetCaptions(Language language) override;
  [[nodiscard]] std::optional<String> ShownText(int row) const override;
  [[nodiscard]] std::optional<String> CellOf(int row, const String& text) const override;
  void RowShown(int row) override;
  void PageBuilt() override;  ///< shows the buttons to models with a cut-out

  Button cmdSetCutOut{"cmdSetCutOut"};
  Button cmdDisableCutOut{"cmdDisableCutOut"};

 private:
  void Set();
  void Disable();
  /// The row, if it can be set from here; -1 otherwise.
  [[nodiscard]] int SettableRow() const;
  [[nodiscard]] bool IsItsRow(int row) const;
  [[nodiscard]] bool IsDisabled(int row) const;

  ParameterPage& page_;
};

}  // namespace korva
