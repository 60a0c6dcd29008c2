#pragma once

#include "core/page.h"

namespace korva {

/// What kind of device the model in row `row` of the catalogue is, as the first lines of its definition tell:
/// the first in English, the second in Japanese, each behind the definition's name and a colon. Empty when
/// the definition can't be read, or says nothing.
String KindOfModel(const Page& page, int row, Language language);

}  // namespace korva
