#pragma once

#include "transfer/field_checks.h"
#include "transfer/value_check.h"

namespace korva {

/// The check of pages whose values have no limits: the tag, and a number in every open field.
class NumberCheck : public CheckSteps {
 public:
  /// The page outlives this.
  explicit NumberCheck(ParameterPage& page) : fields_(page) {}
  bool CheckValues() override;
  [[nodiscard]] std::optional<FieldRange> RangeOf(int row) const override;

 private:
  FieldChecks fields_;
};

}  // namespace korva
