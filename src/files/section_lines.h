#pragma once

#include "platform/string.h"

namespace korva {

/// The key that ends a definition or configuration file.
inline constexpr StringView kEndKey = u"$End";

/// True for a line that begins a section.
inline bool IsKeyLine(StringView line) { return !line.empty() && line.front() == u'$'; }

}  // namespace korva
