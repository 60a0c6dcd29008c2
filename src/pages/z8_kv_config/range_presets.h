#pragma once

#include "pages/z8_kv_config/item_pairs.h"

namespace korva {

/// What a choice of an input or output type brings along: the range that belongs to it.
class RangePresets final : public PagePart {
 public:
  /// Adds itself to the page. Both outlive this.
  RangePresets(ParameterPage& page, ItemPairs& pairs);

  void ChoiceMade(const Choice& choice) override;

 private:
  ParameterPage& page_;
  ItemPairs& pairs_;
};

}  // namespace korva
