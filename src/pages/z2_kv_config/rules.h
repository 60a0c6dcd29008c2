#pragma once

#include "files/parameter_page.h"

namespace korva {

/// What a choice of the input or the output type means for the rest of the page of family Lite: the values
/// that belong to it, and the text that names the input's range.
class Z2KvConfigRules final : public PagePart {
 public:
  /// Adds itself and its label to the page, which outlives this.
  explicit Z2KvConfigRules(ParameterPage& page);

  void PageCleared() override { ShowRange(); }
  void PageBuilt() override { ShowRange(); }
  void ChoiceMade(const Choice& choice) override;

  Label lbl_Range{"lbl_Range"};  ///< hidden while there is no input type

 private:
  void ShowRange();
  [[nodiscard]] String RangeText() const;

  ParameterPage& page_;
};

}  // namespace korva
