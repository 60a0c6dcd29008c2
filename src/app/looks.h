#pragma once

#include <QPalette>

#include "core/control.h"

namespace korva {

/// The palette of a field or label in a look: a pair of the system's own colours, light or dark.
QPalette PaletteOf(Look look, const QPalette& system);

}  // namespace korva
