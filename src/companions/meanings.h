#pragma once

#include "core/texts.h"
#include "platform/string.h"

namespace korva {

/// What an item means, in one sentence; empty for one that is not known. `caption` is what the definitions
/// call it in Japanese, `item` its key ("14_0").
StringView MeaningOfItem(StringView caption, StringView item, Language language);

/// The same of an input that is no item, by its control's name ("txtStep").
StringView MeaningOfControl(std::string_view name, Language language);

/// What the limits of a field say, with places for the numbers.
enum class LimitWords {
  AtLeast,      ///< (limit)
  AtMost,       ///< (limit)
  Between,      ///< (low, high), neither allowed
  Span,         ///< (least distance of the two ends)
  Suppression,  ///< (most that zero is of the distance)
  Rising,       ///< the upper end above the lower one
  Unpaired,     ///< the two ends of a pair, each within its limits, don't go together
  Besides,      ///< (number that is allowed besides)
};
StringView WordsOf(LimitWords words, Language language);

}  // namespace korva
